// Meetings of two curves, by clipping: the strip around one curve's chord tells which part of the other can meet it. As
// soon as no direction of travel of one part is one of the other, they meet at most once, and Newton's method finds the
// place.
#include "geo/Crossings.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "geo/Cubic.h"
#include "geo/FlatCrossings.h"
#include "geo/Vector.h"

namespace kzo::geo {

namespace {

constexpr double kMeets = 1e-12;       // of the extent
constexpr double kSmallest = 1e-6;     // of the parameter's range: what is not taken apart any further
constexpr int kStepsBeforeDoubt = 400; // after which the curves may run together
constexpr int kMostSteps = 5000;

/// A stretch of a curve with its parameters on the whole.
struct Part {
    const Bezier* whole;
    double from;
    double to;
    Bezier curve;

    Part(const Bezier& of, double start, double end)
        : whole(&of), from(start), to(end), curve(start == 0.0 && end == 1.0 ? of : of.section(start, end)) {}

    [[nodiscard]] double width() const { return to - from; }
    [[nodiscard]] Part cut(double start, double end) const {
        return {*whole, from + width() * start, end == 1.0 ? to : from + width() * end};
    }
};

struct Range {
    double low = 1.0;
    double high = 0.0;

    [[nodiscard]] bool isEmpty() const { return !(low <= high); }
    [[nodiscard]] double width() const { return high - low; }
    void include(double value) {
        low = std::min(low, value);
        high = std::max(high, value);
    }
};

double extentOf(const Bezier& b) {
    return std::max({largest(b.p1 - b.p0), largest(b.p2 - b.p0), largest(b.p3 - b.p0)});
}

/// What of the first curve's parameters lets it be within `reach` of the strip that holds the second. Nothing is ruled
/// out by a second curve without a direction.
Range clip(const Bezier& a, const Bezier& b, double reach) {
    const Point chord = b.p3 != b.p0 ? b.p3 - b.p0 : (b.p1 != b.p0 ? b.p1 - b.p0 : b.p2 - b.p0);
    if (chord == Point()) return {0.0, 1.0};
    const double d1 = cross(chord, b.p1 - b.p0);
    const double d2 = cross(chord, b.p2 - b.p0);
    const double slack = reach * norm(chord);
    const double low = std::min({0.0, d1, d2}) - slack;
    const double high = std::max({0.0, d1, d2}) + slack;
    const std::array<double, 4> e = {cross(chord, a.p0 - b.p0), cross(chord, a.p1 - b.p0), cross(chord, a.p2 - b.p0),
                                     cross(chord, a.p3 - b.p0)};
    Range range;
    for (std::size_t i = 0; i < 4; ++i) {
        const double at = static_cast<double>(i) / 3.0;
        if (e[i] >= low && e[i] <= high) range.include(at);
        for (std::size_t k = i + 1; k < 4; ++k) {
            const double step = static_cast<double>(k - i) / 3.0;
            for (const double level : {low, high}) {
                if ((e[i] < level) != (e[k] < level)) range.include(at + step * (level - e[i]) / (e[k] - e[i]));
            }
        }
    }
    return {std::clamp(range.low, 0.0, 1.0), std::min(range.high, 1.0)};
}

/// No chord of one is parallel to a chord of the other.
bool meetAtMostOnce(const Bezier& a, const Bezier& b) {
    const std::array<Point, 3> of = {a.p1 - a.p0, a.p2 - a.p1, a.p3 - a.p2};
    const std::array<Point, 3> with = {b.p1 - b.p0, b.p2 - b.p1, b.p3 - b.p2};
    double sense = 0.0;
    for (const Point u : of) {
        for (const Point v : with) {
            const double turn = cross(u, v);
            // A vector of no length adds nothing to a chord.
            if (turn == 0.0 && u != Point() && v != Point()) return false;
            if (turn * sense < 0.0) return false;
            if (turn != 0.0) sense = turn;
        }
    }
    return sense != 0.0;
}

Point velocity(const Bezier& b, double t) {
    return scaled(between(between(b.p1 - b.p0, b.p2 - b.p1, t), between(b.p2 - b.p1, b.p3 - b.p2, t), t), 3.0);
}

Point acceleration(const Bezier& b, double t) {
    return scaled(between((b.p2 - b.p1) - (b.p1 - b.p0), (b.p3 - b.p2) - (b.p2 - b.p1), t), 6.0);
}

class Meeting {
  public:
    /// The curves are taken relative to a point of theirs, in units of their extent, so that limits are plain numbers.
    Meeting(const Bezier& a, const Bezier& b) {
        const double extent = std::max({extentOf(a), extentOf(b), largest(b.p0 - a.p0)});
        const double farthest = std::max(largest(a.p0), largest(b.p0));
        reach_ = kMeets + 4.0 * std::numeric_limits<double>::epsilon() * farthest / extent;
        const auto local = [&](Point p) { return Point{(p.x - a.p0.x) / extent, (p.y - a.p0.y) / extent}; };
        a_ = {local(a.p0), local(a.p1), local(a.p2), local(a.p3)};
        b_ = {local(b.p0), local(b.p1), local(b.p2), local(b.p3)};
        usable_ = std::isfinite(extent) && extentOf(a_) > reach_ && extentOf(b_) > reach_;
    }

    [[nodiscard]] std::vector<Crossing> find(int& patience) {
        if (!usable_) return {};
        limit_ = std::min(kStepsBeforeDoubt, patience);
        meet(Part(a_, 0.0, 1.0), Part(b_, 0.0, 1.0));
        patience -= std::min(steps_, patience);
        if (steps_ > limit_) {
            if (auto ends = sharedStretch()) return *ends;
            found_.clear();
            leaves_.clear();
            steps_ = 0;
            limit_ = std::min(kMostSteps, patience);
            meet(Part(a_, 0.0, 1.0), Part(b_, 0.0, 1.0));
            patience -= std::min(steps_, patience);
        }
        gatherLeaves();
        return distinct();
    }

  private:
    /// Clips the two in turn, and takes the longer apart where clipping gains little. Finds what is in `found_`, and in
    /// `leaves_` what is too small to be taken apart.
    void meet(Part a, Part b) {
        constexpr double kGain = 0.8;
        bool clipFirst = true;
        bool gained = true;
        while (++steps_ <= limit_) {
            if (apart(a.curve, b.curve)) return;
            if (a.width() <= kSmallest && b.width() <= kSmallest) {
                leaves_.push_back({0.5 * (a.from + a.to), 0.5 * (b.from + b.to)});
                return;
            }
            if (meetAtMostOnce(a.curve, b.curve) && meetOnce(a, b)) return;
            if (a.width() <= kSmallest) clipFirst = false;
            if (b.width() <= kSmallest) clipFirst = true;
            Part& clipped = clipFirst ? a : b;
            const Range range = clip(clipped.curve, (clipFirst ? b : a).curve, reach_);
            if (range.isEmpty()) return;
            const bool gains = range.width() <= kGain;
            clipped = clipped.cut(range.low, range.high);
            clipFirst = !clipFirst;
            if (!gains && !gained) {
                const bool first = a.width() > b.width();
                const Part longer = first ? a : b;
                const Part half = longer.cut(0.5, 1.0);
                first ? meet(half, b) : meet(a, half);
                (first ? a : b) = longer.cut(0.0, 0.5);
                gained = true;
                continue;
            }
            gained = gains;
        }
    }

    [[nodiscard]] bool apart(const Bezier& a, const Bezier& b) const {
        const auto separate = [&](double p, double q, double r, double s, double t, double u, double v, double w) {
            return std::max({p, q, r, s}) + reach_ < std::min({t, u, v, w}) ||
                   std::max({t, u, v, w}) + reach_ < std::min({p, q, r, s});
        };
        return separate(a.p0.x, a.p1.x, a.p2.x, a.p3.x, b.p0.x, b.p1.x, b.p2.x, b.p3.x) ||
               separate(a.p0.y, a.p1.y, a.p2.y, a.p3.y, b.p0.y, b.p1.y, b.p2.y, b.p3.y);
    }

    /// Newton's method for parts that meet at most once. False where it does not end within them.
    [[nodiscard]] bool meetOnce(const Part& a, const Part& b) {
        constexpr double kSlack = 1e-9;
        // Starts where the chords meet.
        const Point u = a.curve.p3 - a.curve.p0;
        const Point v = b.curve.p3 - b.curve.p0;
        const Point gap = b.curve.p0 - a.curve.p0;
        const double s = a.from + a.width() * std::clamp(cross(gap, v) / cross(u, v), 0.0, 1.0);
        const double t = b.from + b.width() * std::clamp(cross(gap, u) / cross(u, v), 0.0, 1.0);
        const auto end = crossingNear({s, t});
        const auto within = [&](double at, const Part& part) {
            return at >= part.from - kSlack && at <= part.to + kSlack;
        };
        return end && within(end->first, a) && within(end->second, b) && note(*end);
    }

    /// Where Newton's method leads; none where it does not come to rest.
    [[nodiscard]] std::optional<Crossing> crossingNear(Crossing c) const {
        constexpr int kMostRounds = 12;
        constexpr double kRest = 1e-14;
        constexpr double kFine = 1e-8; // steps this short that grow no shorter are rounding, where the angle is small
        double before = 1.0;
        for (int i = 0; i < kMostRounds; ++i) {
            const Point off = b_.evaluate(c.second) - a_.evaluate(c.first);
            const Point u = velocity(a_, c.first);
            const Point v = velocity(b_, c.second);
            const double ds = cross(off, v) / cross(u, v);
            const double dt = cross(off, u) / cross(u, v);
            const double step = std::max(std::abs(ds), std::abs(dt));
            if (!(step <= 1.0)) return std::nullopt;
            c = {c.first + ds, c.second + dt};
            if (step <= kRest || (step <= kFine && step > 0.5 * before)) return c;
            before = step;
        }
        return std::nullopt;
    }

    /// Where the curves touch, by Newton's method: the points face one another and travel is parallel. It may lead
    /// anywhere, at an end or where the curves bend alike.
    [[nodiscard]] Crossing touchNear(Crossing c) const {
        constexpr int kRounds = 8;
        for (int i = 0; i < kRounds; ++i) {
            const Point off = b_.evaluate(c.second) - a_.evaluate(c.first);
            const Point u = velocity(a_, c.first);
            const Point v = velocity(b_, c.second);
            const Point uu = acceleration(a_, c.first);
            const Point vv = acceleration(b_, c.second);
            const double parallel = cross(u, v);
            const double facing = dot(off, u);
            const double parallelS = cross(uu, v);
            const double parallelT = cross(u, vv);
            const double facingS = dot(off, uu) - dot(u, u);
            const double facingT = dot(v, u);
            const double turn = parallelS * facingT - parallelT * facingS;
            c.first -= (parallel * facingT - parallelT * facing) / turn;
            c.second -= (parallelS * facing - parallel * facingS) / turn;
        }
        return c;
    }

    /// Keeps a meeting, if the points agree once the parameters are held to the curves.
    bool note(Crossing c) {
        c = {std::clamp(c.first, 0.0, 1.0), std::clamp(c.second, 0.0, 1.0)};
        if (!(largest(b_.evaluate(c.second) - a_.evaluate(c.first)) <= 4.0 * reach_)) return false;
        found_.push_back(c);
        return true;
    }

    /// Keeps the meeting that a leaf stands for, moved to where the curves touch or cross, if that is near.
    void settle(const Crossing& leaf) {
        constexpr double kNear = 1e-3;
        const auto near = [&](const Crossing& c) {
            return std::abs(c.first - leaf.first) <= kNear && std::abs(c.second - leaf.second) <= kNear;
        };
        const Crossing touch = touchNear(leaf);
        if (near(touch) && note(touch)) return;
        const auto cross = crossingNear(leaf);
        if (!(cross && near(*cross) && note(*cross))) note(leaf);
    }

    /// Leaves next to one another are one place where the curves touch: of each run the middle is kept.
    void gatherLeaves() {
        constexpr double kNeighbours = 4.0 * kSmallest;
        std::sort(leaves_.begin(), leaves_.end(),
                  [](const Crossing& x, const Crossing& y) { return x.first < y.first; });
        std::vector<bool> done(leaves_.size(), false);
        for (std::size_t i = 0; i < leaves_.size(); ++i) {
            if (done[i]) continue;
            const Crossing& first = leaves_[i];
            Crossing last = first;
            for (std::size_t k = i + 1; k < leaves_.size() && leaves_[k].first - last.first <= kNeighbours; ++k) {
                if (done[k] || std::abs(leaves_[k].second - last.second) > kNeighbours) continue;
                done[k] = true;
                last = leaves_[k];
            }
            settle({0.5 * (first.first + last.first), 0.5 * (first.second + last.second)});
        }
    }

    [[nodiscard]] std::vector<Crossing> distinct() {
        constexpr double kSame = 2.0 * kSmallest;
        std::sort(found_.begin(), found_.end(), [](const Crossing& x, const Crossing& y) { return x.first < y.first; });
        std::vector<Crossing> kept;
        for (const Crossing& c : found_) {
            bool known = false;
            for (auto it = kept.rbegin(); it != kept.rend() && c.first - it->first <= kSame; ++it)
                known = known || std::abs(c.second - it->second) <= kSame;
            if (!known) kept.push_back(c);
        }
        return kept;
    }

    /// The ends of the stretch that the curves share, if they do: an end of one lies on the other at each end of it,
    /// and between them the control points agree, since only one cubic runs along a piece of another.
    [[nodiscard]] std::optional<std::vector<Crossing>> sharedStretch() const {
        constexpr double kRunsTogether = 1e-9;
        std::vector<Crossing> ends;
        const auto add = [&](std::optional<double> s, std::optional<double> t) {
            if (!s || !t) return;
            for (const Crossing& known : ends) {
                if (std::abs(known.first - *s) <= kSmallest && std::abs(known.second - *t) <= kSmallest) return;
            }
            ends.push_back({*s, *t});
        };
        for (const double end : {0.0, 1.0}) {
            add(end, parameterOf(a_.evaluate(end), b_));
            add(parameterOf(b_.evaluate(end), a_), end);
        }
        if (ends.size() != 2) return std::nullopt;
        if (ends[0].first > ends[1].first) std::swap(ends[0], ends[1]);
        const Bezier of = a_.section(ends[0].first, ends[1].first);
        const Bezier with = b_.section(ends[0].second, ends[1].second);
        const bool agree = largest(of.p0 - with.p0) <= kRunsTogether && largest(of.p1 - with.p1) <= kRunsTogether &&
                           largest(of.p2 - with.p2) <= kRunsTogether && largest(of.p3 - with.p3) <= kRunsTogether;
        return agree ? std::optional(ends) : std::nullopt;
    }

    /// Where a point lies on a curve, if it does.
    [[nodiscard]] std::optional<double> parameterOf(Point point, const Bezier& curve) const {
        constexpr int kSamples = 32;
        constexpr int kRounds = 30;
        constexpr double kOnCurve = 1e-10;
        double best = 0.0;
        for (int i = 1; i <= kSamples; ++i) {
            const double t = static_cast<double>(i) / kSamples;
            if (norm(curve.evaluate(t) - point) < norm(curve.evaluate(best) - point)) best = t;
        }
        for (int i = 0; i < kRounds; ++i) {
            const Point v = velocity(curve, best);
            const double next = std::clamp(best + dot(point - curve.evaluate(best), v) / dot(v, v), 0.0, 1.0);
            if (!(norm(curve.evaluate(next) - point) < norm(curve.evaluate(best) - point))) break;
            best = next;
        }
        return norm(curve.evaluate(best) - point) <= std::max(kOnCurve, reach_) ? std::optional(best) : std::nullopt;
    }

    Bezier a_;
    Bezier b_;
    double reach_ = 0.0;
    bool usable_ = false;
    int steps_ = 0;
    int limit_ = 0;
    std::vector<Crossing> found_;
    std::vector<Crossing> leaves_;
};

} // namespace

std::vector<Crossing> crossings(const Bezier& a, const Bezier& b) {
    int patience = kStepsBeforeDoubt + kMostSteps;
    return crossings(a, b, patience);
}

std::vector<Crossing> crossings(const Bezier& a, const Bezier& b, int& patience) {
    if (--patience < 0) return {};
    if (auto flat = flatCrossings(a, b)) return *flat;
    return Meeting(a, b).find(patience);
}

std::optional<Crossing> selfCrossing(const Bezier& curve) {
    const Bezier b = usableSize(curve).curve;
    // With s the sum of the two parameters and p their product, equal points mean cube·(s² − p) + square·s + linear =
    // 0.
    const Point linear = scaled(b.p1 - b.p0, 3.0);
    const Point square = scaled((b.p2 - b.p1) - (b.p1 - b.p0), 3.0);
    const Point cube = ((b.p3 - b.p2) - (b.p2 - b.p1)) - ((b.p2 - b.p1) - (b.p1 - b.p0));
    const double s = cross(linear, cube) / cross(cube, square);
    const double p = s * s + dot(scaled(square, s) + linear, cube) / dot(cube, cube);
    const double apart = s * s - 4.0 * p;
    if (!(apart > kSmallest * kSmallest)) return std::nullopt; // parallel vectors come here as NaN or infinite
    const double half = 0.5 * std::sqrt(apart);
    const Crossing found{0.5 * s - half, 0.5 * s + half};
    constexpr double kSlack = 1e-12;
    if (found.first < -kSlack || found.second > 1.0 + kSlack) return std::nullopt;
    return Crossing{std::max(found.first, 0.0), std::min(found.second, 1.0)};
}

} // namespace kzo::geo
