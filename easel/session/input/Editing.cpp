// Removing objects and anchors.
#include "session/input/Editing.h"

#include <algorithm>
#include <unordered_set>
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
    Node* above = &path;
    document.setPath(path, std::move(runs.front()));
    document.select(path, false);
    for (auto run = runs.begin() + 1; run != runs.end(); ++run) {
        Node& piece = document.duplicate(path, model::Placement::Below, *above);
        document.setPath(piece, std::move(*run));
        above = &piece;
    }
}

} // namespace

std::vector<Node*> selectedObjects(Document& document) {
    std::vector<Node*> objects;
    std::unordered_set<const Node*> compounds; // met already, in one of their pieces
    for (Node* node : document.selection()) {
        if (node->isSubpath()) node = node->parent();
        const bool inside = node->parent()->selected() && node->parent()->type() != model::NodeType::Layer;
        if (inside || node->effectivelyLocked() || node->effectivelyHidden()) continue;
        if (node->type() != model::NodeType::Compound || compounds.insert(node).second) objects.push_back(node);
    }
    return objects;
}

void selectAll(Document& document) {
    const model::Journal::Scope oneStep(document.journal());
    for (Node* layer = document.root().firstChild(); layer; layer = layer->next()) {
        for (Node* art = layer->firstChild(); art; art = art->next())
            if (!art->effectivelyLocked() && !art->effectivelyHidden()) document.select(*art, true);
    }
}

void duplicateSelected(Document& document) {
    constexpr double kAside = 10; // points, down and to the right
    const model::Journal::Scope oneStep(document.journal());
    const std::vector<Node*> objects = selectedObjects(document);
    document.deselectAll();
    for (Node* const object : objects) {
        Node& copy = document.duplicate(*object, model::Placement::Above, *object);
        document.offset(copy, kAside, kAside);
        document.select(copy, true);
    }
}

void groupSelected(Document& document) {
    const model::Journal::Scope oneStep(document.journal());
    const std::vector<Node*> objects = selectedObjects(document);
    if (objects.empty() || (objects.size() == 1 && objects[0]->type() == model::NodeType::Group)) return;
    Node& group = document.create(model::NodeType::Group, model::Placement::Above, *objects.front());
    for (Node* const object : objects) document.place(*object, model::Placement::AtBottomInside, group);
    document.select(group, true);
}

void ungroupSelected(Document& document) {
    const model::Journal::Scope oneStep(document.journal());
    for (Node* const group : selectedObjects(document)) {
        if (group->type() != model::NodeType::Group) continue;
        while (Node* const child = group->firstChild()) {
            document.place(*child, model::Placement::Above, *group);
            document.select(*child, true);
        }
        document.remove(*group);
    }
}

void arrangeSelected(Document& document, Order order) {
    const model::Journal::Scope oneStep(document.journal());
    std::vector<Node*> objects = selectedObjects(document);
    // The last one to go lies outermost; of steps the first, so that neighbours do not change places.
    if (order == Order::Front || order == Order::Backward) std::reverse(objects.begin(), objects.end());
    for (Node* const object : objects) {
        Node* const above = object->previous();
        Node* const below = object->next();
        if (order == Order::Front) document.place(*object, model::Placement::OnTopInside, *object->parent());
        if (order == Order::Back) document.place(*object, model::Placement::AtBottomInside, *object->parent());
        if (order == Order::Forward && above && !above->selected())
            document.place(*object, model::Placement::Above, *above);
        if (order == Order::Backward && below && !below->selected())
            document.place(*object, model::Placement::Below, *below);
    }
}

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
