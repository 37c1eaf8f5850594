// Where curves and paths meet.
// Curves that run together for a stretch meet at the ends of that stretch; those that only touch meet where they touch.
// Meeting is judged to 1e-12 of the curves' extent, and meetings nearer than 1e-6 in both parameters are one.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "geo/Bezier.h"
#include "geo/Path.h"

namespace kzo::geo {

/// Parameters, or places of paths, that stand for the same point.
struct Crossing {
    double first = 0.0;
    double second = 0.0;

    constexpr bool operator==(const Crossing&) const = default;
};

/// In the order of the first curve. The work is limited: of curves that nearly run together, and of no others, some
/// meetings may be missing. A curve that is a single point meets nothing.
[[nodiscard]] std::vector<Crossing> crossings(const Bezier& a, const Bezier& b);
/// The same with a limit for many pairs together: takes the steps that the search needs from `patience`, and finds no
/// more when that is used up.
[[nodiscard]] std::vector<Crossing> crossings(const Bezier& a, const Bezier& b, int& patience);
/// Where a curve's loop closes; `first` is the lesser parameter.
[[nodiscard]] std::optional<Crossing> selfCrossing(const Bezier& curve);

/// What searches may still cost, so that they end for every input: in nanoseconds of an ordinary processor, about.
/// Whatever people draw needs a small part of it. Of tens of thousands of curves that lie over one another, without
/// hatching in one direction, some meetings may be missing.
class Patience {
  public:
    explicit Patience(double nanoseconds = 2e9) : left_(nanoseconds) {}

    /// False when it has ended.
    bool spend(double cost) { return (left_ -= cost) > 0.0; }
    [[nodiscard]] std::vector<Crossing> meetings(const Bezier& a, const Bezier& b);

  private:
    double left_;
};

/// Meetings of two paths, in the order of the first. The search ends when it has found some 400,000.
[[nodiscard]] std::vector<Crossing> crossings(const Path& a, const Path& b);
[[nodiscard]] std::vector<Crossing> crossings(const Path& a, const Path& b, Patience& patience);
/// Meetings of a path with itself, each once, with the lesser place as `first`; neighbours meet at their anchor without
/// being mentioned. Limited likewise.
[[nodiscard]] std::vector<Crossing> selfCrossings(const Path& path);
[[nodiscard]] std::vector<Crossing> selfCrossings(const Path& path, Patience& patience);

} // namespace kzo::geo
