// Removing objects and anchors.
#include "session/input/Editing.h"

#include <utility>
#include <vector>

namespace easel::session {

namespace {

using model::Document;
using model::Node;
using model::PathData;

/// The runs of anchors that are not selected, each of at least one segment, as paths of their own.
std::vector<PathData> runsLeft(const Node& path) {
    const PathData& data = path.path();
    std::size_t first = 0;
    // The runs of a closed path begin behind an anchor that goes.
    if (data.closed)
        while (first < data.points.size() && !path.pointSelected(first)) ++first;
    std::vector<std::vector<std::size_t>> runs(1);
    for (std::size_t i = 0; i < data.points.size(); ++i) {
        const std::size_t at = (first + i) % data.points.size();
        if (!path.pointSelected(at))
            runs.back().push_back(at);
        else if (!runs.back().empty())
            runs.emplace_back();
    }
    std::vector<PathData> left;
    for (const std::vector<std::size_t>& run : runs) {
        if (run.size() < 2) continue;
        PathData& piece = left.emplace_back();
        model::PointFlags corners;
        for (const std::size_t at : run) {
            piece.points.push_back(data.points[at]);
            corners.push_back(data.isCorner(at));
        }
        piece.setCorners(0, corners);
    }
    return left;
}

void removeAnchors(Document& document, Node& path) {
    std::vector<PathData> runs = runsLeft(path);
    if (runs.empty()) return document.remove(path);
    const model::Style style = path.style();
    Node* above = &path;
    document.setPath(path, std::move(runs.front()));
    document.select(path, false);
    for (auto run = runs.begin() + 1; run != runs.end(); ++run) {
        Node& piece = document.create(model::NodeType::Path, model::Placement::Below, *above);
        document.setPath(piece, std::move(*run));
        document.setStyle(piece, style);
        above = &piece;
    }
}

} // namespace

void removeSelected(Document& document) {
    const model::Journal::Scope oneStep(document.journal());
    for (Node* const node : document.selection()) {
        // A group takes along what is in it.
        if (!node->alive() || node->effectivelyLocked() || node->effectivelyHidden()) continue;
        Node* const compound = node->isSubpath() ? node->parent() : nullptr;
        if (node->type() == model::NodeType::Path && !node->allPointsSelected())
            removeAnchors(document, *node);
        else
            document.remove(*node);
        if (compound && !compound->firstChild()) document.remove(*compound);
    }
}

} // namespace easel::session
