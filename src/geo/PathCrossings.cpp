// Meetings of paths: a sweep over boxes finds the pairs of segments that may meet.
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "geo/Crossings.h"
#include "geo/Vector.h"

namespace kzo::geo {

namespace {

constexpr double kSame = 1e-6;
constexpr std::size_t kMostCrossings = 400'000; // an anchor that meets an anchor is found four times

struct Item {
    Box box; // of the control points, in the frame of the sweep; x is its direction
    Bezier curve;
    std::size_t seg;
};

/// Directions in which boxes are taken: `along`, and a right angle on from it.
struct Frame {
    Point along{1.0, 0.0};

    [[nodiscard]] Point at(Point p) const { return {dot(along, p), cross(along, p)}; }
};

/// Boxes within which the directions of a frame may be turned: farther points have products that are not exact.
constexpr double kFarthest = 1e140;

/// The segments of one path, or of two against each other.
class Search {
  public:
    Search(const Path& a, const Path* b, Patience& patience) : patience_(patience) {
        add(a, items_[0]);
        if (b) add(*b, items_[1]);
        isOfTwo_ = b != nullptr;
        measure();
        chooseFrame();
    }

    /// Calls `visit(item, item)` for pairs of segments that may meet until it returns false or patience ends. Of two
    /// paths, the first comes first.
    template <class Visit> void run(const Visit& visit) {
        std::array<std::vector<Open>, 2> open;
        std::array<std::size_t, 2> next{};
        for (;;) {
            const bool first = next[0] < items_[0].size();
            const bool second = next[1] < items_[1].size();
            if (!first && !second) return;
            const auto start = [&](std::size_t of) { return items_[of][next[of]].box.min.x; };
            const std::size_t of = first && (!second || start(0) <= start(1)) ? 0 : 1;
            const Item& item = items_[of][next[of]++];
            std::vector<Open>& others = open[isOfTwo_ ? 1 - of : of];
            if (!patience_.spend(static_cast<double>(others.size()) * kGlance)) return;
            std::size_t kept = 0;
            for (const Open& other : others) {
                if (other.right < item.box.min.x) continue;
                others[kept++] = other;
                if (other.low > item.box.max.y || item.box.min.y > other.high) continue;
                if (!patience_.spend(kLook)) return;
                const Item& with = *other.item;
                if (isBeside(item.curve, with.curve) || isBeside(with.curve, item.curve)) continue;
                const bool inOrder = of == 0 && isOfTwo_;
                const Item& a = inOrder ? item : with;
                const Item& b = inOrder ? with : item;
                if (!visit(a, b)) return;
            }
            others.resize(kept);
            open[of].push_back({item.box.max.x, item.box.min.y, item.box.max.y, &item});
        }
    }

  private:
    static constexpr double kGlance = 1.0; // of patience: what comparing two boxes costs
    static constexpr double kLook = 15.0;  // and two curves with each other's strips

    /// An item that the sweep has reached and not left.
    struct Open {
        double right;
        double low;
        double high;
        const Item* item;
    };

    /// Coordinates that are not finite meet nothing.
    static void add(const Path& path, std::vector<Item>& items) {
        items.reserve(path.segCount());
        for (std::size_t i = 0; i < path.segCount(); ++i) {
            const Bezier b = path.seg(i);
            if (std::isfinite(largest(b.p0) + largest(b.p1) + largest(b.p2) + largest(b.p3)))
                items.push_back({{}, b, i});
        }
    }

    template <class Visit> void forEach(const Visit& visit) {
        for (auto& items : items_)
            for (Item& item : items) visit(item);
    }

    /// As much as meetings are judged by, and more: it only has to be far below what separates segments.
    void measure() {
        constexpr double kPart = 1e-11;
        constexpr double kRounding = 16.0 * std::numeric_limits<double>::epsilon();
        Box all;
        bool first = true;
        forEach([&](Item& item) {
            item.box = boxOf(item.curve, Frame(), 0.0);
            all = first ? item.box : all.unionWith(item.box);
            first = false;
        });
        const double extent = std::max(all.width(), all.height());
        const double farthest = std::max(largest(all.min), largest(all.max));
        slack_ = kPart * extent + kRounding * farthest;
        exact_ = farthest <= kFarthest;
    }

    [[nodiscard]] static Box boxOf(const Bezier& b, const Frame& frame, double slack) {
        const std::array<Point, 4> p = {frame.at(b.p0), frame.at(b.p1), frame.at(b.p2), frame.at(b.p3)};
        const auto [left, right] = std::minmax({p[0].x, p[1].x, p[2].x, p[3].x});
        const auto [top, bottom] = std::minmax({p[0].y, p[1].y, p[2].y, p[3].y});
        return {{left - slack, top - slack}, {right + slack, bottom + slack}};
    }

    /// Sets the boxes; the direction of the sweep is the one in which fewer overlap. Returns how many others a box
    /// overlaps, about.
    double takeBoxes(const Frame& frame) {
        Box all;
        Point sum;
        double count = 0.0;
        forEach([&](Item& item) {
            item.box = boxOf(item.curve, frame, slack_);
            all = count == 0.0 ? item.box : all.unionWith(item.box);
            sum += {item.box.width(), item.box.height()};
            ++count;
        });
        const Point overlap{sum.x / all.width(), sum.y / all.height()};
        if (overlap.y < overlap.x) {
            forEach([](Item& item) {
                std::swap(item.box.min.x, item.box.min.y);
                std::swap(item.box.max.x, item.box.max.y);
            });
        }
        return overlap.x * overlap.y / std::max(count, 1.0);
    }

    /// As things lie, or along the prevailing direction: seen so, the boxes of a hatch hardly overlap.
    void chooseFrame() {
        Point axis; // the sum of directions of twice the angle, in which there and back are one
        forEach([&](const Item& item) {
            const Point chord = item.curve.p3 - item.curve.p0;
            const double length = norm(chord);
            const Point unit = scaled(chord, 1.0 / length);
            if (length > 0.0) axis += {chord.x * unit.x - chord.y * unit.y, 2.0 * chord.x * unit.y};
        });
        const double angle = 0.5 * std::atan2(axis.y, axis.x);
        const Frame turned{{std::cos(angle), std::sin(angle)}};
        const double overlap = exact_ ? takeBoxes(turned) : std::numeric_limits<double>::infinity();
        if (takeBoxes(Frame()) > overlap) takeBoxes(turned);
        for (auto& items : items_) {
            std::sort(items.begin(), items.end(),
                      [](const Item& a, const Item& b) { return a.box.min.x < b.box.min.x; });
        }
    }

    /// Whether all of `b` lies on one side of the strip along the chord of `a` that holds `a`.
    [[nodiscard]] bool isBeside(const Bezier& a, const Bezier& b) const {
        if (!exact_) return false;
        const Point chord = a.p3 - a.p0;
        const auto off = [&](Point p) { return cross(chord, p - a.p0); };
        const double d1 = off(a.p1);
        const double d2 = off(a.p2);
        const double room = slack_ * (std::abs(chord.x) + std::abs(chord.y));
        const auto [low, high] = std::minmax({off(b.p0), off(b.p1), off(b.p2), off(b.p3)});
        return low > std::max({0.0, d1, d2}) + room || high < std::min({0.0, d1, d2}) - room;
    }

    std::array<std::vector<Item>, 2> items_;
    Patience& patience_;
    double slack_ = 0.0;
    bool isOfTwo_ = false;
    bool exact_ = true; // products of coordinates are in the range of numbers
};

/// An anchor is a place of its own, whichever of its segments was met; the end of a closed path is its start.
Place placeOf(const Path& path, std::size_t seg, double t) {
    Place place = static_cast<double>(seg) + t;
    if (std::abs(place - std::round(place)) <= kSame * 1e-3) place = std::round(place);
    return path.closed && place == static_cast<double>(path.segCount()) ? 0.0 : place;
}

/// Sorted, and each place once: a meeting at an anchor was found on both its segments.
std::vector<Crossing> distinct(std::vector<Crossing> found) {
    const auto byFirst = [](const Crossing& a, const Crossing& b) { return a.first < b.first; };
    const auto bySecond = [](const Crossing& a, const Crossing& b) { return a.second < b.second; };
    std::sort(found.begin(), found.end(), byFirst);
    std::vector<Crossing> kept;
    for (auto run = found.begin(); run != found.end();) {
        // Thousands may be at one place of the first path: among them the same are found by the second.
        auto end = run + 1;
        while (end != found.end() && end->first - (end - 1)->first <= kSame) ++end;
        std::sort(run, end, bySecond);
        const std::size_t start = kept.size();
        for (; run != end; ++run) {
            bool known = false;
            for (std::size_t i = kept.size(); i-- > start && run->second - kept[i].second <= kSame && !known;)
                known = std::abs(run->first - kept[i].first) <= kSame;
            if (!known) kept.push_back(*run);
        }
    }
    std::sort(kept.begin(), kept.end(), [](const Crossing& a, const Crossing& b) {
        return std::pair(a.first, a.second) < std::pair(b.first, b.second);
    });
    return kept;
}

} // namespace

std::vector<Crossing> Patience::meetings(const Bezier& a, const Bezier& b) {
    constexpr double kStep = 100.0;
    const int steps = static_cast<int>(std::min(left_ / kStep, 1e9));
    int rest = steps;
    std::vector<Crossing> found = crossings(a, b, rest);
    left_ -= kStep * (steps - rest);
    return found;
}

std::vector<Crossing> crossings(const Path& a, const Path& b) {
    Patience patience;
    return crossings(a, b, patience);
}

std::vector<Crossing> crossings(const Path& a, const Path& b, Patience& patience) {
    std::vector<Crossing> found;
    Search(a, &b, patience).run([&](const Item& x, const Item& y) {
        for (const Crossing& c : patience.meetings(x.curve, y.curve))
            found.push_back({placeOf(a, x.seg, c.first), placeOf(b, y.seg, c.second)});
        return found.size() < kMostCrossings;
    });
    return distinct(std::move(found));
}

std::vector<Crossing> selfCrossings(const Path& path) {
    Patience patience;
    return selfCrossings(path, patience);
}

std::vector<Crossing> selfCrossings(const Path& path, Patience& patience) {
    std::vector<Crossing> found;
    const auto add = [&](Place first, Place second) {
        if (std::abs(first - second) > kSame) found.push_back({std::min(first, second), std::max(first, second)});
    };
    for (std::size_t i = 0; i < path.segCount(); ++i) {
        if (const auto loop = selfCrossing(path.seg(i)))
            add(placeOf(path, i, loop->first), placeOf(path, i, loop->second));
    }
    Search(path, nullptr, patience).run([&](const Item& x, const Item& y) {
        for (const Crossing& c : patience.meetings(x.curve, y.curve))
            add(placeOf(path, x.seg, c.first), placeOf(path, y.seg, c.second));
        return found.size() < kMostCrossings;
    });
    return distinct(std::move(found));
}

} // namespace kzo::geo
