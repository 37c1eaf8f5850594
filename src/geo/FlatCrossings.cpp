// Curves on lines are cut where they turn round, and become stretches of their line.
#include "geo/FlatCrossings.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "geo/Cubic.h"
#include "geo/Vector.h"

namespace kzo::geo {

namespace {

constexpr double kOnLine = 1e-12; // of the extent

/// A piece of a curve that runs one way along its line; `from` and `to` are its ends, in points from the line's origin.
struct Run {
    double t1 = 0.0;
    double t2 = 0.0;
    double from = 0.0;
    double to = 0.0;

    [[nodiscard]] double low() const { return std::min(from, to); }
    [[nodiscard]] double high() const { return std::max(from, to); }
};

/// A curve seen from the line that it lies on.
class Flat {
  public:
    /// None when a point lies off the line through the start and the farthest of them.
    static std::optional<Flat> from(const Bezier& b) {
        const std::array<Point, 3> arms = {b.p1 - b.p0, b.p2 - b.p0, b.p3 - b.p0};
        const Point farthest =
            *std::max_element(arms.begin(), arms.end(), [](Point x, Point y) { return largest(x) < largest(y); });
        const double length = norm(farthest);
        const Point direction = scaled(farthest, 1.0 / length);
        for (const Point arm : arms) {
            if (!(std::abs(cross(arm, direction)) <= kOnLine * length)) return std::nullopt;
        }
        return Flat(b, direction, length);
    }

    [[nodiscard]] Point origin() const { return origin_; }
    [[nodiscard]] Point direction() const { return direction_; }
    [[nodiscard]] double extent() const { return extent_; }
    [[nodiscard]] Point point(double place) const { return origin_ + scaled(direction_, place); }

    /// Takes places from another origin on the same line.
    void measureFrom(const Flat& other) {
        origin_ = other.origin_;
        direction_ = other.direction_;
    }

    /// Only those that have a length.
    [[nodiscard]] std::vector<Run> runs() const {
        const auto at = [&](Point p) { return along(p - curve_.p0); };
        std::vector<double> cuts{0.0};
        const Turns found = turns(0.0, at(curve_.p1), at(curve_.p2), at(curve_.p3));
        cuts.insert(cuts.end(), found.begin(), found.end());
        cuts.push_back(1.0);
        std::vector<Run> made;
        for (std::size_t i = 0; i + 1 < cuts.size(); ++i) {
            const Run run{cuts[i], cuts[i + 1], place(cuts[i]), place(cuts[i + 1])};
            if (run.from != run.to) made.push_back(run);
        }
        return made;
    }

    /// Where the run passes `at`, held to its ends.
    [[nodiscard]] double parameter(const Run& run, double at) const {
        const bool rising = run.from < run.to;
        if (at == run.from || (at < run.from) == rising) return run.t1;
        if (at == run.to || (at > run.to) == rising) return run.t2;
        double t1 = run.t1;
        double t2 = run.t2;
        for (double t = 0.5 * (t1 + t2); t > t1 && t < t2; t = 0.5 * (t1 + t2))
            ((place(t) < at) == rising ? t1 : t2) = t;
        return t1;
    }

  private:
    Flat(const Bezier& curve, Point direction, double extent)
        : curve_(curve), origin_(curve.p0), direction_(direction), extent_(extent) {}

    [[nodiscard]] double along(Point v) const { return dot(v, direction_); }
    [[nodiscard]] double place(double t) const { return along(curve_.evaluate(t) - origin_); }

    Bezier curve_;
    Point origin_;
    Point direction_;
    double extent_;
};

/// Held to the run, and to its end where that is as near to the other line as can be told. With retracted handles an
/// end is approached so slowly that its parameter would be far off.
double heldTo(const Run& run, double place, double slack) {
    if (place <= run.low() + slack) return run.low();
    if (place >= run.high() - slack) return run.high();
    return place;
}

} // namespace

std::optional<std::vector<Crossing>> flatCrossings(const Bezier& a, const Bezier& b) {
    const auto first = Flat::from(a);
    if (!first) return std::nullopt;
    auto second = Flat::from(b);
    if (!second) return std::nullopt;
    constexpr double kSame = 1e-6;
    std::vector<Crossing> found;
    const auto add = [&](const Run& of, double u, const Run& with, double v) {
        const Crossing c{first->parameter(of, u), second->parameter(with, v)};
        const auto same = [&](const Crossing& d) {
            return std::abs(c.first - d.first) <= kSame && std::abs(c.second - d.second) <= kSame;
        };
        if (std::none_of(found.begin(), found.end(), same)) found.push_back(c);
    };
    const Point gap = second->origin() - first->origin();
    const double limit = kOnLine * std::max({first->extent(), second->extent(), norm(gap)});
    const double turn = cross(first->direction(), second->direction());
    const bool oneLine =
        std::abs(cross(gap, first->direction())) <= limit && std::abs(turn) * second->extent() <= limit;
    if (oneLine) second->measureFrom(*first);
    const double u = cross(gap, second->direction()) / turn;
    const double v = cross(gap, first->direction()) / turn;
    for (const Run& of : first->runs()) {
        for (const Run& with : second->runs()) {
            if (oneLine) {
                const double low = std::max(of.low(), with.low());
                const double high = std::min(of.high(), with.high());
                if (low > high + limit) continue;
                for (const double place : {low, high}) add(of, place, with, place);
            } else {
                // Parallel lines come here as NaN or infinite.
                const double nearU = heldTo(of, u, limit / std::abs(turn));
                const double nearV = heldTo(with, v, limit / std::abs(turn));
                if (largest(first->point(nearU) - second->point(nearV)) <= 4.0 * limit) add(of, nearU, with, nearV);
            }
        }
    }
    std::sort(found.begin(), found.end(), [](const Crossing& x, const Crossing& y) { return x.first < y.first; });
    return found;
}

} // namespace kzo::geo
