// Picking, moving and the marquee.
#include "session/frame/BuiltinTools.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

#include "hostapi/SPTypes.h"
#include "model/Clip.h"
#include "model/Nearest.h"
#include "session/frame/PathPieces.h"

namespace easel::session {

namespace {

using model::Box;
using model::Document;
using model::Node;
using model::NodeType;
using model::PathData;
using model::PathPoint;
using model::Point;
using model::PointSelection;

/// How far from a feature the mouse still means it, in screen units.
constexpr double kReach = 2;

double reachIn(const Document& document) { return kReach / document.view.zoom; }

bool isEditable(const Node& node) { return !node.effectivelyLocked() && !node.effectivelyHidden(); }

/// The nearest of the eight directions, as far as the mouse went along it.
Point constrained(Point way) {
    constexpr double kSteep = 2.414213562373095; // tan 67.5 degrees
    if (std::fabs(way.x) > kSteep * std::fabs(way.y)) return {way.x, 0};
    if (std::fabs(way.y) > kSteep * std::fabs(way.x)) return {0, way.y};
    const double along = (std::fabs(way.x) + std::fabs(way.y)) / 2;
    return {std::copysign(along, way.x), std::copysign(along, way.y)};
}

/// A copy above it, or of this part of it, is moved and selected in its place.
void moveCopy(Document& document, Node& node, Point way, std::optional<PathData> part = {}) {
    document.select(node, false);
    Node& copy = document.duplicate(node, model::Placement::Above, node);
    if (part) document.setPath(copy, *std::move(part));
    document.offset(copy, way.x, way.y);
    document.select(copy, true);
}

/// The sequence that both tools share: a press picks something or begins a marquee; a drag moves what is selected or
/// opens the marquee; a release without any drag is a click.
class SelectingTool : public BuiltinTool {
  public:
    void press(Document& document, Point location, Modifiers modifiers) final {
        start_ = location;
        dragged_ = false;
        const bool adding = (modifiers & kAIShiftKey) != 0;
        picked_ = pick(document, location, adding);
        if (!picked_ && !adding) document.deselectAll();
        marquee_.reset();
        if (!picked_) includeInMarquee(location);
    }

    void drag(Document& document, Point location, Modifiers modifiers) final {
        dragged_ = true;
        if (picked_) return move(document, {location.x - start_.x, location.y - start_.y}, modifiers);
        includeInMarquee(location);
        selectWithin(document, *marquee_, (modifiers & kAIShiftKey) != 0);
    }

    void release(Document& document, Point location, Modifiers modifiers) final {
        if (dragged_ || location != start_)
            drag(document, location, modifiers);
        else if (picked_)
            click(document, (modifiers & kAIShiftKey) != 0);
        marquee_.reset();
    }

    [[nodiscard]] Point taken(Point way, Modifiers modifiers) const final {
        return picked_ && (modifiers & kAIShiftKey) ? constrained(way) : way;
    }

    [[nodiscard]] std::optional<Box> marquee() const final { return marquee_; }

  protected:
    /// Selects what lies at `location`, in addition when `adding`; what is selected already is left as it is until it
    /// turns out to be a click. False when nothing is there.
    virtual bool pick(Document& document, Point location, bool adding) = 0;
    virtual void click(Document& document, bool taking) = 0;
    virtual void move(Document& document, Point way, Modifiers modifiers) = 0;
    /// `toggling` what the box touches, or selecting it.
    virtual void selectWithin(Document& document, const Box& box, bool toggling) = 0;

  private:
    void includeInMarquee(Point location) {
        marquee_ = Box{};
        marquee_->include(start_);
        marquee_->include(location);
    }

    Point start_;
    std::optional<Box> marquee_;
    bool picked_ = false;
    bool dragged_ = false;
};

class SelectionTool final : public SelectingTool {
  protected:
    bool pick(Document& document, Point location, bool adding) override {
        Node* const art = document.topmostAt(location, reachIn(document));
        if (!art) return false;
        Node& object = outermost(document, *art);
        object_ = object.id();
        wasSelected_ = art->allPointsSelected() && object.selected(); // not a part of a group alone
        if (wasSelected_) return true;
        if (!adding) document.deselectAll();
        document.select(object, true);
        return true;
    }

    void click(Document& document, bool taking) override {
        if (!wasSelected_) return;
        Node& object = *document.find(object_);
        if (taking) return document.select(object, false);
        document.deselectAll();
        document.select(object, true);
    }

    /// With Option, copies.
    void move(Document& document, Point way, Modifiers modifiers) override {
        for (Node* const node : document.selection()) {
            // What a copied group contains is not selected any more.
            if (!node->selected() || node->parent()->selected() || !isEditable(*node)) continue;
            if (modifiers & kAIOptionKey)
                moveCopy(document, *node, way);
            else
                document.offset(*node, way.x, way.y);
        }
    }

    void selectWithin(Document& document, const Box& box, bool toggling) override {
        std::vector<Node*> objects = document.touching(box);
        for (Node*& node : objects) node = &outermost(document, *node);
        std::sort(objects.begin(), objects.end());
        objects.erase(std::unique(objects.begin(), objects.end()), objects.end());
        for (Node* const object : objects) document.select(*object, !toggling || !object->selected());
    }

  private:
    /// Of what the pointer can reach.
    static Node& outermost(Document& document, Node& art) {
        Node* node = &art;
        while (node->parent()->type() != NodeType::Layer && node->parent() != &document.reach()) node = node->parent();
        return *node;
    }

    model::NodeId object_;
    bool wasSelected_ = false;
};

class DirectSelectionTool final : public SelectingTool {
  protected:
    bool pick(Document& document, Point location, bool adding) override {
        using model::HitRequest;
        const double tolerance = reachIn(document);
        Node* const art = document.topmostAt(location, tolerance);
        const model::Hit hit =
            art ? document.hitTest(*art, location, tolerance, HitRequest::Anchors | HitRequest::Segments)
                : model::Hit{};
        handle_ = hit.kind == model::HitKind::Anchor ? std::nullopt : handleAt(document, location, tolerance);
        if (handle_) return true;
        if (!art) return false;

        art_ = art->id();
        meant_ = PointSelection(pointCount(*art), hit.kind == model::HitKind::None); // its fill means all of it
        if (hit.kind != model::HitKind::None) {
            const auto index = static_cast<std::size_t>(hit.index);
            meant_[index] = true;
            if (hit.kind == model::HitKind::Segment) meant_[(index + 1) % meant_.size()] = true;
        }
        wasSelected_ = art->selected();
        for (std::size_t i = 0; i < meant_.size(); ++i)
            if (meant_[i] && !art->pointSelected(i)) wasSelected_ = false;
        if (wasSelected_) return true;
        if (!adding) document.deselectAll();
        choose(document, *art, meant_, true);
        return true;
    }

    void click(Document& document, bool taking) override {
        if (handle_ || !wasSelected_) return;
        if (!taking) document.deselectAll();
        choose(document, *document.find(art_), meant_, !taking);
    }

    /// With Option, copies.
    void move(Document& document, Point way, Modifiers modifiers) override {
        const bool alternate = (modifiers & kAIOptionKey) != 0;
        if (handle_) return moveHandle(document, way, alternate);
        for (Node* const node : document.selection()) {
            if (!isEditable(*node) || (alternate && moveCopies(document, *node, way)) || node->isContainer()) continue;
            if (node->type() == NodeType::Opaque || node->allPointsSelected()) {
                document.offset(*node, way.x, way.y);
                continue;
            }
            std::vector<PathPoint> points = node->path().points;
            for (std::size_t i = 0; i < points.size(); ++i)
                if (node->pointSelected(i)) shift(points[i], way);
            document.setPoints(*node, 0, points.data(), points.size());
        }
    }

    void selectWithin(Document& document, const Box& box, bool toggling) override {
        for (Node* const node : document.touching(box)) {
            if (node->type() == NodeType::Opaque) {
                document.select(*node, !toggling || !node->selected());
                continue;
            }
            PointSelection points(pointCount(*node));
            for (std::size_t i = 0; i < points.size(); ++i) {
                const Point at = node->path().points[i].anchor;
                const bool inside = box.meets({at.x, at.y, at.x, at.y}) && model::passesClip(*node, at);
                points[i] = toggling ? node->pointSelected(i) != inside : node->pointSelected(i) || inside;
            }
            document.selectPoints(*node, std::move(points));
        }
    }

  private:
    struct Handle {
        model::NodeId path;
        std::size_t index;
        bool in;
    };

    /// Opaque art counts as one point that cannot be told from it.
    static std::size_t pointCount(const Node& art) {
        return art.type() == NodeType::Path ? art.path().points.size() : 0;
    }

    static void choose(Document& document, Node& art, const PointSelection& meant, bool selected) {
        if (art.type() == NodeType::Opaque) return document.select(art, selected);
        PointSelection points(meant.size());
        for (std::size_t i = 0; i < points.size(); ++i) points[i] = meant[i] ? selected : art.pointSelected(i);
        document.selectPoints(art, std::move(points));
    }

    /// The handle of a selected anchor at this place; those of what is selected as a whole do not show.
    static std::optional<Handle> handleAt(Document& document, Point location, double tolerance) {
        std::optional<Handle> nearest;
        double best = tolerance * tolerance;
        for (const Node* const node : document.selection()) {
            if (node->type() != NodeType::Path || node->allPointsSelected() || !isEditable(*node)) continue;
            const std::vector<PathPoint>& points = node->path().points;
            for (std::size_t i = 0; i < points.size(); ++i) {
                if (!node->pointSelected(i)) continue;
                for (const bool in : {true, false}) {
                    const Point at = in ? points[i].in : points[i].out;
                    const double distance = model::distanceSquared(at, location);
                    if (at == points[i].anchor || distance > best) continue;
                    best = distance;
                    nearest = Handle{node->id(), i, in};
                }
            }
        }
        return nearest;
    }

    /// All of what is selected whole; else the segments between selected anchors. False where there is none of these.
    static bool moveCopies(Document& document, Node& node, Point way) {
        if (!node.selected()) return true; // in what has been copied
        if (node.type() != NodeType::Path || node.allPointsSelected()) {
            moveCopy(document, node, way);
            return true;
        }
        std::vector<PathData> pieces = piecesOf(node, true);
        for (PathData& piece : pieces) moveCopy(document, node, way, std::move(piece));
        return !pieces.empty();
    }

    static void shift(PathPoint& point, Point way) {
        for (Point* const moved : {&point.anchor, &point.in, &point.out}) {
            moved->x += way.x;
            moved->y += way.y;
        }
    }

    /// At a smooth point the other handle turns with this one, unless the user breaks them apart.
    void moveHandle(Document& document, Point way, bool breaking) const {
        Node& path = *document.find(handle_->path);
        PathPoint point = path.path().points[handle_->index];
        Point& moved = handle_->in ? point.in : point.out;
        Point& other = handle_->in ? point.out : point.in;
        moved = {moved.x + way.x, moved.y + way.y};
        if (breaking) document.setCorners(path, handle_->index, {true});
        const double length = std::sqrt(model::distanceSquared(moved, point.anchor));
        if (!path.path().isCorner(handle_->index) && length > 0) {
            const double scale = std::sqrt(model::distanceSquared(other, point.anchor)) / length;
            other = {point.anchor.x - (moved.x - point.anchor.x) * scale,
                     point.anchor.y - (moved.y - point.anchor.y) * scale};
        }
        document.setPoints(path, handle_->index, &point, 1);
    }

    model::NodeId art_;
    PointSelection meant_; ///< what the press points at
    bool wasSelected_ = false;
    std::optional<Handle> handle_;
};

} // namespace

std::unique_ptr<BuiltinTool> makeSelectionTool() { return std::make_unique<SelectionTool>(); }

std::unique_ptr<BuiltinTool> makeDirectSelectionTool() { return std::make_unique<DirectSelectionTool>(); }

} // namespace easel::session
