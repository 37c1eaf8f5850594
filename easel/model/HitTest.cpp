// Searching a document by place.
#include "model/HitTest.h"

#include <cmath>

#include "model/Clip.h"
#include "model/DocumentImpl.h"
#include "model/Nearest.h"

namespace easel::model {

namespace {

bool isFilledAt(const Node& node, Point point) {
    if (node.type() == NodeType::Opaque) return node.hull().meets({point.x, point.y, point.x, point.y});
    return node.style().fill && isInside(node.path(), point);
}

/// Calls `visit` with the points of each segment until it returns true; a lone anchor counts as one.
template <class Visit> bool anySegment(const PathData& path, Visit visit) {
    const std::vector<PathPoint>& points = path.points;
    if (points.size() == 1) return visit(points[0], points[0]);
    for (std::size_t i = 0; i < path.segmentCount(); ++i)
        if (visit(points[i], points[i + 1 == points.size() ? 0 : i + 1])) return true;
    return false;
}

/// The best feature so far.
class BestHit {
  public:
    BestHit(Point point, double tolerance) : point_(point), tolerance_(tolerance) {}

    [[nodiscard]] const Hit& hit() const { return hit_; }
    /// Whether a feature of this kind could still be better.
    [[nodiscard]] bool wants(HitKind kind) const { return hit_.kind == HitKind::None || kind <= hit_.kind; }

    void offer(HitKind kind, Node& node, Point at, double squared, int index, double t = 0) {
        const double distance = std::sqrt(squared);
        if (distance > tolerance_ || !wants(kind)) return;
        if (kind == hit_.kind) {
            if (distance > distance_) return;
            if (distance == distance_ && (&node == hit_.node || Document::comparePaintOrder(node, *hit_.node) > 0))
                return;
        }
        if (!passesClip(node, at)) return;
        hit_ = {kind, &node, at, index, t};
        distance_ = distance;
    }

    void offerControls(HitKind kind, Node& node, Point PathPoint::*control) {
        if (node.type() != NodeType::Path || !wants(kind)) return;
        int index = 0;
        for (const PathPoint& point : node.path().points) {
            const Point at = point.*control;
            if (kind == HitKind::Anchor || at != point.anchor)
                offer(kind, node, at, distanceSquared(at, point_), index);
            ++index;
        }
    }

    void offerSegments(Node& node) {
        if (node.type() != NodeType::Path || !wants(HitKind::Segment)) return;
        const PathData& path = node.path();
        const std::size_t count = path.segmentCount();
        for (std::size_t i = 0; i < count; ++i) {
            const PathPoint& start = path.points[i];
            const PathPoint& end = path.points[i + 1 == path.points.size() ? 0 : i + 1];
            const NearestPoint nearest = nearestOnSegment(start, end, point_);
            offer(HitKind::Segment, node, nearest.point, nearest.distanceSquared, static_cast<int>(i), nearest.t);
        }
    }

    void offerBounds(Node& node) {
        const Box box = node.type() == NodeType::Path ? node.path().bounds() : node.hull();
        if (box.isEmpty()) return;
        const Point middle{(box.left + box.right) / 2, (box.top + box.bottom) / 2};
        for (const double x : {box.left, middle.x, box.right})
            for (const double y : {box.top, middle.y, box.bottom})
                offer(HitKind::Anchor, node, {x, y}, distanceSquared({x, y}, point_), -1);
    }

    void offerFill(Node& node) {
        if (!wants(HitKind::Fill)) return;
        if (isFilledAt(node, point_)) offer(HitKind::Fill, node, point_, 0, -1);
    }

  private:
    Point point_;
    double tolerance_;
    double distance_ = 0;
    Hit hit_;
};

bool isSearchable(Point point, double tolerance) {
    return std::isfinite(point.x) && std::isfinite(point.y) && tolerance >= 0;
}

/// Whether the node can be hit: below `within`, with nothing hidden or locked on the way up to the root.
bool isReachable(const Node& node, const Node& within) {
    bool passed = false;
    for (const Node* at = &node; at; at = at->parent()) {
        if (at->hidden() || at->locked()) return false;
        if (at == &within) passed = true;
    }
    return passed;
}

} // namespace

void Document::Impl::findNear(Point point, double tolerance) {
    // A little wider, so that rounding leaves nothing out that lies right on the tolerance.
    const double reach = tolerance + 1e-12 * (tolerance + std::fabs(point.x) + std::fabs(point.y));
    found.clear();
    tree.index.find({point.x - reach, point.y - reach, point.x + reach, point.y + reach}, found);
}

Hit Document::hitTest(Node& within, Point point, double tolerance, HitRequest request) {
    if (!isSearchable(point, tolerance)) return {};
    impl_->findNear(point, tolerance);
    BestHit best(point, tolerance);
    for (Node* const node : impl_->found) {
        if (!isReachable(*node, within)) continue;
        if (asksFor(request, HitRequest::Anchors)) best.offerControls(HitKind::Anchor, *node, &PathPoint::anchor);
        if (asksFor(request, HitRequest::InHandles)) best.offerControls(HitKind::InHandle, *node, &PathPoint::in);
        if (asksFor(request, HitRequest::OutHandles)) best.offerControls(HitKind::OutHandle, *node, &PathPoint::out);
        if (asksFor(request, HitRequest::Segments)) best.offerSegments(*node);
        if (asksFor(request, HitRequest::Fills)) best.offerFill(*node);
    }
    return best.hit();
}

Node* Document::topmostAt(Point point, double tolerance) {
    if (!isSearchable(point, tolerance)) return nullptr;
    impl_->findNear(point, tolerance);
    Node* topmost = nullptr;
    for (Node* const node : impl_->found) {
        if (!isReachable(*node, root()) || (topmost && comparePaintOrder(*node, *topmost) > 0)) continue;
        const auto isNear = [&](const PathPoint& start, const PathPoint& end) {
            const NearestPoint nearest = nearestOnSegment(start, end, point);
            return nearest.distanceSquared <= tolerance * tolerance && passesClip(*node, nearest.point);
        };
        const bool filled = isFilledAt(*node, point) && passesClip(*node, point);
        if (filled || (node->type() == NodeType::Path && anySegment(node->path(), isNear))) topmost = node;
    }
    return topmost;
}

std::vector<Node*> Document::touching(const Box& box) {
    std::vector<Node*> touched;
    impl_->found.clear();
    impl_->tree.index.find(box, impl_->found);
    const auto isTouched = [&](const PathPoint& start, const PathPoint& end) { return meetsBox(start, end, box); };
    for (Node* const node : impl_->found) {
        if (!isReachable(*node, root()) || !mayPassClip(*node, box)) continue;
        if (node->type() == NodeType::Opaque || anySegment(node->path(), isTouched) ||
            isFilledAt(*node, {box.left, box.top}))
            touched.push_back(node);
    }
    return touched;
}

std::optional<Point> Document::snapPoint(Point point, double tolerance, SnapTo what) {
    if (!isSearchable(point, tolerance)) return std::nullopt;
    impl_->findNear(point, tolerance);
    BestHit best(point, tolerance);
    for (Node* const node : impl_->found) {
        if (node->effectivelyHidden() || journal().wasRolledBack(*node)) continue;
        if (what == SnapTo::Bounds) {
            best.offerBounds(*node);
            continue;
        }
        best.offerControls(HitKind::Anchor, *node, &PathPoint::anchor);
        if (what == SnapTo::Outlines) best.offerSegments(*node);
    }
    if (best.hit().kind == HitKind::None) return std::nullopt;
    return best.hit().point;
}

} // namespace easel::model
