// The gradient's own units are turned such that its place is a coordinate: across the first axis of a linear one, and
// by the circle of a radial one.
#include "svg/Bands.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "model/Flat.h"
#include "svg/Outlines.h"
#include "svg/Reach.h"

namespace easel::svg {

namespace {

using model::Affine;
using model::Box;
using model::PathData;
using model::Point;

constexpr double kMargin = 0.01; ///< around what is painted, against its size
constexpr double kSame = 1e-9;

Box boundsOf(const model::OutlineList& outlines, const Affine& transform) {
    Box box;
    for (const auto& outline : outlines) {
        PathData path = *outline;
        transformBy(path, transform);
        box.include(path.bounds());
    }
    return box;
}

PathData rectangle(const Box& box) {
    PathData path;
    path.closed = true;
    for (const Point corner : {Point{box.left, box.top}, Point{box.right, box.top}, Point{box.right, box.bottom},
                               Point{box.left, box.bottom}})
        path.points.push_back(model::cornerAt(corner));
    return path;
}

PathData circle(Point center, double radius) {
    const double reach = handleReach(M_PI / 2);
    PathData path;
    path.closed = true;
    for (const Point unit : {Point{1, 0}, Point{0, 1}, Point{-1, 0}, Point{0, -1}}) {
        const auto at = [&](double along) {
            return Point{center.x + radius * (unit.x - along * unit.y), center.y + radius * (unit.y + along * unit.x)};
        };
        path.points.push_back({at(0), at(-reach), at(reach)});
    }
    path.setCorners(0, model::PointFlags(path.points.size(), false));
    return path;
}

/// Makes bands outwards, from the first place that is seen.
class BandMaker {
  public:
    BandMaker(const Gradient& gradient, const Affine& toPage, const model::OutlineList& outlines, int steps)
        : gradient_(gradient), toPage_(placed(gradient) * toPage) {
        if (isFlat(toPage_) || !canTell()) return;
        box_ = boundsOf(outlines, inverse(toPage_));
        const double margin = kMargin * (box_.right - box_.left + box_.bottom - box_.top);
        outer_ = {box_.left - margin, box_.top - margin, box_.right + margin, box_.bottom + margin};
        for (int i = 1; i < steps; ++i) edges_.push_back(double(i) / steps);
        for (const Gradient::Stop& stop : gradient.stops) edges_.push_back(stop.offset);
        edges_.push_back(0);
        edges_.push_back(1);
        std::sort(edges_.begin(), edges_.end());
        edges_.erase(std::unique(edges_.begin(), edges_.end()), edges_.end());
        make();
    }

    std::vector<Band> bands;

  private:
    /// What makes a linear gradient go from 0 to 1 along x; a radial one stays as it is.
    static Affine placed(const Gradient& gradient) {
        const Point along{gradient.to.x - gradient.from.x, gradient.to.y - gradient.from.y};
        const Affine own{along.x, along.y, -along.y, along.x, gradient.from.x, gradient.from.y};
        return gradient.isRadial ? gradient.transform : own * gradient.transform;
    }

    /// Circles must lie in one another.
    [[nodiscard]] bool canTell() const {
        if (!gradient_.isRadial) return true;
        const double apart = std::hypot(gradient_.to.x - gradient_.from.x, gradient_.to.y - gradient_.from.y);
        return gradient_.toRadius > gradient_.fromRadius && gradient_.fromRadius >= 0 &&
               apart < gradient_.toRadius - gradient_.fromRadius;
    }

    void make() {
        if (box_.isEmpty() || !withinReach(box_)) return;
        const bool isPadded = gradient_.spread == Gradient::Spread::Pad;
        const double first = gradient_.isRadial ? 0 : std::floor(box_.left);
        if (isPadded) {
            add(0, gradient_.stops.front());
            for (std::size_t i = 1; i < edges_.size(); ++i) addBetween(edges_[i - 1], edges_[i], 0);
            if (!isCovered_) addLast(gradient_.stops.back());
            return;
        }
        if (!gradient_.isRadial && (box_.right - first) * static_cast<double>(edges_.size()) > kMostBands) return;
        for (double period = first; !isCovered_; ++period) {
            for (std::size_t i = 1; i < edges_.size() && !isCovered_; ++i) {
                const bool mirrored = gradient_.spread == Gradient::Spread::Reflect && std::fmod(period, 2) != 0;
                const std::size_t at = mirrored ? edges_.size() - i : i;
                addBetween(edges_[at - 1], edges_[at], period, mirrored);
            }
            if (bands.size() > kMostBands) return bands.clear();
        }
    }

    void addBetween(double begin, double end, double period, bool mirrored = false) {
        add(period + (mirrored ? 1 - begin : end), gradient_.at((begin + end) / 2));
    }

    /// All up to a place.
    [[nodiscard]] PathData upTo(double place) const {
        if (!gradient_.isRadial)
            return rectangle({outer_.left, outer_.top, std::min(place, outer_.right), outer_.bottom});
        const auto between = [place](double a, double b) { return a + (b - a) * place; };
        return circle({between(gradient_.from.x, gradient_.to.x), between(gradient_.from.y, gradient_.to.y)},
                      between(gradient_.fromRadius, gradient_.toRadius));
    }

    [[nodiscard]] bool covers(double place) const {
        if (!gradient_.isRadial) return place >= box_.right - kSame;
        const auto between = [place](double a, double b) { return a + (b - a) * place; };
        const Point center{between(gradient_.from.x, gradient_.to.x), between(gradient_.from.y, gradient_.to.y)};
        const double radius = between(gradient_.fromRadius, gradient_.toRadius);
        const double x = std::max(std::fabs(box_.left - center.x), std::fabs(box_.right - center.x));
        const double y = std::max(std::fabs(box_.top - center.y), std::fabs(box_.bottom - center.y));
        return std::hypot(x, y) <= radius;
    }

    void add(double place, const Gradient::Stop& stop) {
        const bool isSeen = gradient_.isRadial ? place > 0 || gradient_.fromRadius > 0 : place > box_.left + kSame;
        if (!isSeen || isCovered_) return;
        isCovered_ = covers(place);
        isCovered_ ? addLast(stop) : push(upTo(place), stop);
    }

    void addLast(const Gradient::Stop& stop) {
        isCovered_ = true;
        push(rectangle(outer_), stop);
    }

    /// What is not opaque must not show the next ones.
    void push(PathData outline, const Gradient::Stop& stop) {
        std::vector<PathData> paths{outline};
        const bool isOpaque = stop.opacity == 1;
        if (!isOpaque && before_) paths.push_back(*before_);
        before_ = std::move(outline);
        for (PathData& path : paths) transformBy(path, toPage_);
        const bool isSame = isOpaque && !bands.empty() && bands.back().opacity == 1 && bands.back().color == stop.color;
        if (isSame) bands.pop_back();
        bands.push_back({std::move(paths), stop.color, stop.opacity});
    }

    const Gradient& gradient_;
    Affine toPage_; // from units in which the place of a linear gradient is x
    Box box_;       // of what is painted, in these
    Box outer_;     // with a margin
    std::vector<double> edges_;
    std::optional<PathData> before_;
    bool isCovered_ = false;
};

} // namespace

std::vector<Band> bandsOf(const Gradient& gradient, const Affine& toPage, const model::OutlineList& outlines,
                          int steps) {
    const int most = static_cast<int>(kMostBands / 10);
    return BandMaker(gradient, toPage, outlines, std::min(steps, most)).bands;
}

} // namespace easel::svg
