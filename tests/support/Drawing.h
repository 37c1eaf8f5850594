// Helpers for tests on documents: making art, listing a whole document, random edits.
#pragma once

#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "model/Document.h"

namespace easel::model {

inline PathPoint corner(double x, double y) { return cornerAt({x, y}); }

inline Node& addPath(Document& document, Node& container, std::vector<PathPoint> points, bool closed = false) {
    Node& path = document.create(NodeType::Path, Placement::OnTopInside, container);
    document.setPath(path, {std::move(points), closed});
    return path;
}

inline Node& addLine(Document& document, Node& container, Point from, Point to) {
    return addPath(document, container, {corner(from.x, from.y), corner(to.x, to.y)});
}

inline Style painted(bool fill, double strokeWidth) {
    Style style;
    style.fill = fill;
    style.strokeWidth = strokeWidth;
    return style;
}

/// All nodes below the root, a container before its contents. Goes by children and neighbours only.
inline std::vector<Node*> allNodes(Document& document) {
    std::vector<Node*> nodes;
    std::vector<Node*> open{&document.root()};
    while (!open.empty()) {
        Node* const node = open.back();
        open.pop_back();
        if (node != &document.root()) nodes.push_back(node);
        for (Node* child = node->lastChild(); child; child = child->previous()) open.push_back(child);
    }
    return nodes;
}

/// Everything that undo must bring back, identities included. The contents also tell apart what the text leaves out;
/// the text is a copy that nothing in the document shares.
struct Listing {
    std::string text;
    std::vector<Content> contents;

    bool operator==(const Listing&) const = default;
    friend void PrintTo(const Listing& listing, std::ostream* out) { *out << listing.text; }
};

inline Listing listing(Document& document) {
    std::ostringstream out;
    std::vector<Content> contents;
    out.precision(17);
    for (const Node* node : allNodes(document)) {
        contents.push_back(node->content());
        out << node->id().slot << '.' << node->id().generation << " in " << node->parent()->id().slot << " type "
            << int(node->type()) << " '" << node->name() << "' " << node->selected() << node->locked()
            << node->hidden();
        if (node->type() == NodeType::Path) {
            out << (node->path().closed ? " closed " : " open ") << node->style().strokeWidth;
            for (std::size_t i = 0; i < node->path().points.size(); ++i) {
                const PathPoint& p = node->path().points[i];
                out << " (" << p.anchor.x << ',' << p.anchor.y << ' ' << p.in.x << ',' << p.in.y << ' ' << p.out.x
                    << ',' << p.out.y << ' ' << node->path().isCorner(i) << int(node->selectedParts(i)) << ')';
            }
        }
        out << '\n';
    }
    return {out.str(), std::move(contents)};
}

/// Changes documents at random, but only as its operations allow.
class RandomEditor {
  public:
    explicit RandomEditor(std::uint32_t seed) : engine_(seed) {}

    bool compounds = true; ///< makes compound paths too, which files know only by what they look like

    std::size_t below(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(engine_); }
    double coordinate() { return std::uniform_real_distribution<double>(0, 100)(engine_); }
    Point point() { return {coordinate(), coordinate()}; }

    std::vector<PathPoint> points(std::size_t count) {
        std::vector<PathPoint> points;
        for (std::size_t i = 0; i < count; ++i) {
            const Point anchor = point();
            points.push_back(below(2) == 0 ? corner(anchor.x, anchor.y) : PathPoint{anchor, point(), point()});
        }
        return points;
    }

    PointFlags flags(std::size_t count) {
        PointFlags flags(count);
        for (std::size_t i = 0; i < count; ++i) flags[i] = below(2) == 0;
        return flags;
    }

    void edit(Document& document) {
        const std::vector<Node*> nodes = allNodes(document);
        Node& node = *nodes[below(nodes.size())];
        Node& other = *nodes[below(nodes.size())];
        const bool isPath = node.type() == NodeType::Path;
        const Placement placement = placementAt(other);
        const Node& parent = placement <= Placement::Below ? *other.parent() : other;
        const NodeType made = compounds && below(3) == 0 ? NodeType::Compound : NodeType::Group;
        switch (below(isPath ? 20 : 10)) {
        case 0:
        case 1:
            if (parent.mayHold(made)) document.create(made, placement, other);
            break;
        case 2:
        case 3: document.setPath(document.create(NodeType::Path, placement, other), {points(below(4)), false}); break;
        case 4:
            if (nodes.size() > 12) document.remove(node);
            break;
        case 5:
            if (parent.mayHold(node.type()) && !other.isWithin(node)) document.place(node, placement, other);
            break;
        case 6: document.select(node, below(3) > 0); break;
        case 7: below(2) ? document.setLocked(node, below(2)) : document.setHidden(node, below(2)); break;
        case 8: below(4) ? document.setName(node, std::to_string(below(5))) : void(document.addLayer("more")); break;
        case 9: document.offset(node, coordinate() - 50, coordinate() - 50); break;
        case 10: document.setPath(node, {points(below(5)), below(2) == 0}); break;
        case 11: document.setPointCount(node, below(5)); break;
        case 12: document.setClosed(node, below(2) == 0); break;
        case 13: document.reverse(node); break;
        case 14: document.setStyle(node, painted(below(2) == 0, double(below(3)))); break;
        case 15:
            if (const std::size_t count = node.path().points.size()) {
                const std::size_t index = below(count);
                document.setPoints(node, index, points(1).data(), 1);
            }
            break;
        case 16: document.setCorners(node, 0, flags(node.path().points.size())); break;
        case 17: document.insertPoints(node, below(node.path().points.size() + 1), points(2).data(), 2); break;
        case 18:
            if (!node.path().points.empty()) document.removePoints(node, below(node.path().points.size()), 1);
            break;
        default:
            PointSelection selection(node.path().points.size());
            for (std::uint8_t& parts : selection) parts = static_cast<std::uint8_t>(below(8));
            document.selectPoints(node, selection);
        }
    }

  private:
    /// A random place for art next to or inside a node.
    Placement placementAt(const Node& anchor) {
        const bool outside = anchor.type() != NodeType::Layer && (!anchor.isContainer() || below(2) == 0);
        return Placement((outside ? 0 : 2) + below(2));
    }

    std::mt19937 engine_;
};

} // namespace easel::model
