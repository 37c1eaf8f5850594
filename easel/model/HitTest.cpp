// Searching a document by place.
#include "model/HitTest.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "model/Clip.h"
#include "model/DocumentImpl.h"
#include "model/Nearest.h"

namespace easel::model {

namespace {

/// What of the art around a point is filled there. The subpaths of a compound path are filled together, so that one may
/// be a hole in another.
class Fills {
  public:
    Fills(const std::vector<Node*>& around, Point point) : point_(point) {
        for (const Node* const node : around) {
            if (!node->isSubpath() || !node->style().isFilled()) continue;
            if (const int winding = windingNumber(node->path(), point)) subpaths_.push_back({node, winding});
        }
        const auto compound = [](const Subpath& subpath) { return subpath.node->parent(); };
        const auto byCompound = [&](const Subpath& a, const Subpath& b) {
            return std::less<>()(compound(a), compound(b));
        };
        std::sort(subpaths_.begin(), subpaths_.end(), byCompound);
        for (auto first = subpaths_.begin(); first != subpaths_.end();) {
            const auto end = std::upper_bound(first, subpaths_.end(), *first, byCompound);
            int winding = 0;
            for (auto at = first; at != end; ++at) winding += at->winding;
            if (isInside(winding, first->node->style().evenOdd))
                for (auto at = first; at != end; ++at) filled_.push_back(at->node);
            first = end;
        }
        std::sort(filled_.begin(), filled_.end(), std::less<>());
    }

    [[nodiscard]] bool contain(const Node& node) const {
        if (node.type() == NodeType::Opaque) return node.hull().meets({point_.x, point_.y, point_.x, point_.y});
        if (node.isSubpath()) return std::binary_search(filled_.begin(), filled_.end(), &node, std::less<>());
        return node.style().isFilled() && isInside(windingNumber(node.path(), point_), node.style().evenOdd);
    }

  private:
    struct Subpath {
        const Node* node;
        int winding;
    };

    Point point_;
    std::vector<Subpath> subpaths_; // those that go round the point
    std::vector<const Node*> filled_;
};

/// The features of a path that are worth a look, by their numbers: all, or those near the place that is searched.
class Features {
  public:
    Features(std::size_t points, std::size_t segments) : points_(points), segments_(segments) {}
    /// `near` are segments. Anchors and handles lie at their ends, except for the outer handles of an open path.
    Features(std::size_t points, const std::vector<std::uint32_t>& near) : points_(points), near_(&near) {}

    template <class Visit> void eachSegment(Visit visit) const {
        const std::size_t count = near_ ? near_->size() : segments_;
        for (std::size_t i = 0; i < count; ++i) visit(near_ ? (*near_)[i] : i);
    }
    /// In order; some may come twice.
    template <class Visit> void eachPoint(Visit visit) const {
        if (!near_) {
            for (std::size_t i = 0; i < points_; ++i) visit(i);
            return;
        }
        visit(0);
        for (const std::size_t i : *near_) {
            visit(i);
            if (i + 1 < points_) visit(i + 1);
        }
        visit(points_ - 1);
    }

  private:
    std::size_t points_;
    std::size_t segments_ = 0;
    const std::vector<std::uint32_t>* near_ = nullptr;
};

/// Calls `visit` with each segment until it returns true; a lone anchor counts as one.
template <class Visit> bool anySegment(const PathData& path, Visit visit) {
    if (path.points.size() == 1) return visit(path.segment(0));
    for (std::size_t i = 0; i < path.segmentCount(); ++i)
        if (visit(path.segment(i))) return true;
    return false;
}

/// The nearest feature so far. Kinds are offered in turn, and one that is found makes the later ones needless.
class BestHit {
  public:
    BestHit(SpatialIndex& index, Point point, double tolerance)
        : index_(index),
          point_(point),
          tolerance_(tolerance),
          distance_(tolerance),
          limit_(tolerance * tolerance * kWider) {}

    [[nodiscard]] const Hit& hit() const { return hit_; }
    [[nodiscard]] bool isFound() const { return hit_.kind != HitKind::None; }
    [[nodiscard]] double distance() const { return distance_; }

    void offerControls(HitKind kind, Node& node, Point PathPoint::*control) {
        if (node.type() != NodeType::Path) return;
        const std::vector<PathPoint>& points = node.path().points;
        featuresOf(node).eachPoint([&](std::size_t index) {
            const PathPoint& point = points[index];
            const Point at = point.*control;
            const double squared = distanceSquared(at, point_);
            if (squared <= limit_ && (kind == HitKind::Anchor || at != point.anchor))
                offer(kind, node, at, squared, static_cast<int>(index));
        });
    }

    void offerSegments(Node& node) {
        if (node.type() != NodeType::Path) return;
        const PathData& path = node.path();
        featuresOf(node).eachSegment([&](std::size_t i) {
            if (const auto nearest = nearestOn(path.segment(i), point_, limit_))
                offer(HitKind::Segment, node, nearest->point, nearest->distanceSquared, static_cast<int>(i),
                      nearest->t);
        });
    }

    void offerBounds(Node& node) {
        const Box box = node.type() == NodeType::Path ? node.path().bounds() : node.hull();
        if (box.isEmpty()) return;
        const Point middle{(box.left + box.right) / 2, (box.top + box.bottom) / 2};
        for (const double x : {box.left, middle.x, box.right})
            for (const double y : {box.top, middle.y, box.bottom})
                offer(HitKind::Anchor, node, {x, y}, distanceSquared({x, y}, point_), -1);
    }

    void offerFill(Node& node) { offer(HitKind::Fill, node, point_, 0, -1); }

  private:
    [[nodiscard]] Features featuresOf(const Node& node) {
        const PathData& path = node.path();
        if (SegmentBoxes* const boxes = index_.segments(node))
            return {path.points.size(), boxes->near(point_, tolerance_)};
        return {path.points.size(), path.segmentCount()};
    }

    void offer(HitKind kind, Node& node, Point at, double squared, int index, double t = 0) {
        const double distance = std::sqrt(squared);
        if (distance > distance_) return;
        if (isFound() && distance == distance_ &&
            (&node == hit_.node || Document::comparePaintOrder(node, *hit_.node) > 0))
            return;
        if (!passesClip(node, at)) return;
        hit_ = {kind, &node, at, index, t};
        distance_ = distance;
        limit_ = squared * kWider;
    }

    SpatialIndex& index_;
    Point point_;
    double tolerance_;
    double distance_; // of the hit, at first the tolerance
    double limit_;    // its square, a little wider: distances that only rounding tells apart are equal
    Hit hit_;
};

/// Offers what is asked for of some objects, one kind of feature after the other; `fills` tells what is filled there.
template <class Iterator, class GetFills>
void searchAmong(Iterator begin, Iterator end, HitRequest request, BestHit& best, GetFills fills) {
    const auto search = [&](HitRequest feature, auto offer) {
        if (!asksFor(request, feature) || best.isFound()) return;
        std::for_each(begin, end, [&](Node* node) { offer(*node); });
    };
    search(HitRequest::Anchors, [&](Node& node) { best.offerControls(HitKind::Anchor, node, &PathPoint::anchor); });
    search(HitRequest::InHandles, [&](Node& node) { best.offerControls(HitKind::InHandle, node, &PathPoint::in); });
    search(HitRequest::OutHandles, [&](Node& node) { best.offerControls(HitKind::OutHandle, node, &PathPoint::out); });
    search(HitRequest::Segments, [&](Node& node) { best.offerSegments(node); });
    if (!asksFor(request, HitRequest::Fills) || best.isFound()) return;
    const Fills& filled = fills();
    search(HitRequest::Fills, [&](Node& node) {
        if (filled.contain(node)) best.offerFill(node);
    });
}

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

Hit Document::hitTest(Node& within, Point point, double tolerance, HitRequest request, HitOrder order) {
    if (!isSearchable(point, tolerance)) return {};
    measure();
    const KeptHits::Place place{point, tolerance, request, order};
    if (impl_->tree.keptHits.isAskedAgain(place, within, impl_->tree.index.changeCount()))
        return impl_->bestKept(within, place);
    impl_->findNear(point, tolerance);
    std::vector<Node*>& found = impl_->found;
    // What cannot be hit may still be a hole in what can.
    const auto end =
        std::partition(found.begin(), found.end(), [&](const Node* node) { return isReachable(*node, within); });
    if (order == HitOrder::Kind) {
        BestHit best(impl_->tree.index, point, tolerance);
        searchAmong(found.begin(), end, request, best, [&] { return Fills(found, point); });
        return best.hit();
    }
    const Fills fills(found, point);
    Hit topmost;
    for (auto at = found.begin(); at != end; ++at) {
        if (topmost.node && comparePaintOrder(**at, *topmost.node) > 0) continue;
        BestHit best(impl_->tree.index, point, tolerance);
        searchAmong(at, at + 1, request, best, [&]() -> const Fills& { return fills; });
        if (best.isFound()) topmost = best.hit();
    }
    return topmost;
}

Hit Document::Impl::bestKept(Node& within, const KeptHits::Place& place) {
    KeptHits::Search* kept = tree.keptHits.find(within);
    std::vector<Node*> unknown;
    if (kept) {
        unknown = kept->takeChanged();
        if (std::any_of(unknown.begin(), unknown.end(), [](const Node* node) { return node->isSubpath(); }))
            kept = nullptr; // by now: what was beside it may look otherwise
    }
    if (!kept) {
        kept = &tree.keptHits.begin(within);
        findNear(place.point, place.tolerance);
        unknown = found;
    }
    const Fills fills(unknown, place.point);
    std::erase_if(unknown, [&](const Node* node) { return !isReachable(*node, within); });
    for (auto at = unknown.begin(); at != unknown.end(); ++at) {
        BestHit best(tree.index, place.point, place.tolerance);
        searchAmong(at, at + 1, place.request, best, [&]() -> const Fills& { return fills; });
        if (best.isFound()) kept->add({best.hit(), best.distance()});
    }
    return kept->best();
}

Node* Document::topmostAt(Point point, double tolerance) {
    if (!isSearchable(point, tolerance)) return nullptr;
    measure();
    impl_->findNear(point, tolerance);
    const Fills fills(impl_->found, point);
    Node* topmost = nullptr;
    for (Node* const node : impl_->found) {
        if (!isReachable(*node, reach()) || (topmost && comparePaintOrder(*node, *topmost) > 0)) continue;
        const auto isNear = [&](const Cubic& curve) {
            const auto nearest = nearestOn(curve, point, tolerance * tolerance);
            return nearest && passesClip(*node, nearest->point);
        };
        const bool filled = fills.contain(*node) && passesClip(*node, point);
        if (filled || (node->type() == NodeType::Path && anySegment(node->path(), isNear))) topmost = node;
    }
    return topmost;
}

std::vector<Node*> Document::touching(const Box& box) {
    measure();
    std::vector<Node*> touched;
    impl_->found.clear();
    impl_->tree.index.find(box, impl_->found);
    const Fills fills(impl_->found, {box.left, box.top});
    const auto isTouched = [&](const Cubic& curve) { return meetsBox(curve, box); };
    for (Node* const node : impl_->found) {
        if (!isReachable(*node, reach()) || !mayPassClip(*node, box)) continue;
        const bool isBox = node->type() == NodeType::Opaque;
        if (isBox ? node->hull().meets(box) : anySegment(node->path(), isTouched) || fills.contain(*node))
            touched.push_back(node);
    }
    return touched;
}

std::vector<Node*> Document::shownIn(const Box& box) {
    std::vector<Node*> shown;
    impl_->tree.index.find(box, shown);
    for (Node*& node : shown)
        if (node->isSubpath()) node = node->parent();
    std::sort(shown.begin(), shown.end());
    shown.erase(std::unique(shown.begin(), shown.end()), shown.end());
    std::erase_if(shown, [](const Node* node) { return node->effectivelyHidden(); });
    std::sort(shown.begin(), shown.end(), [](const Node* a, const Node* b) { return comparePaintOrder(*a, *b) > 0; });
    return shown;
}

std::optional<Point> Document::snapPoint(Point point, double tolerance, SnapTo what) {
    if (!isSearchable(point, tolerance)) return std::nullopt;
    if (what == SnapTo::Bounds) measure();
    impl_->findNear(point, tolerance);
    std::vector<Node*>& found = impl_->found;
    std::erase_if(found, [&](const Node* node) { return node->effectivelyHidden() || journal().wasRolledBack(*node); });
    BestHit best(impl_->tree.index, point, tolerance);
    for (Node* const node : found) {
        if (what == SnapTo::Bounds) {
            best.offerBounds(*node);
        } else {
            best.offerControls(HitKind::Anchor, *node, &PathPoint::anchor);
        }
    }
    if (what == SnapTo::Outlines && !best.isFound())
        for (Node* const node : found) best.offerSegments(*node);
    if (!best.isFound()) return std::nullopt;
    return best.hit().point;
}

} // namespace easel::model
