// Geometry values: arc length and crossings against an independent library, the inverse of length against itself, and
// points on the move.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <random>
#include <vector>

#include <2geom/bezier-curve.h>
#include <benchmark/benchmark.h>

#include "core/values/Bezier.h"
#include "geo/Crossings.h"

namespace {

using kzo::core::Angle;
using kzo::core::ArtboardPoint;
using kzo::core::Bezier;

/// The curves of drawings: each handle a third of the chord long, on average, and turned aside by up to a right angle.
const std::vector<Bezier>& curves() {
    static const std::vector<Bezier> made = [] {
        std::mt19937 random(7);
        std::uniform_real_distribution<double> place(0, 600);
        std::uniform_real_distribution<double> part(0.1, 0.6);
        std::uniform_real_distribution<double> aside(-90, 90);
        std::vector<Bezier> list;
        for (int i = 0; i < 256; ++i) {
            const ArtboardPoint start(place(random), place(random));
            const ArtboardPoint end(place(random), place(random));
            const auto handle = [&](const ArtboardPoint& from, const ArtboardPoint& to) {
                return from.move((from | to) * part(random), (from ^ to) + Angle(aside(random), Angle::Units::Degrees));
            };
            list.emplace_back(start, handle(start, end), handle(end, start), end);
        }
        return list;
    }();
    return made;
}

const std::vector<Geom::CubicBezier>& peers() {
    static const std::vector<Geom::CubicBezier> made = [] {
        const auto point = [](const ArtboardPoint& p) { return Geom::Point(p.x(), p.y()); };
        std::vector<Geom::CubicBezier> list;
        for (const Bezier& b : curves()) list.emplace_back(point(b.p0), point(b.p1), point(b.p2), point(b.p3));
        return list;
    }();
    return made;
}

/// Runs `measure(i)` over the curves in turn.
template <typename Measure> void forEachCurve(benchmark::State& state, const Measure& measure) {
    std::size_t i = 0;
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(measure(i));
        i = (i + 1) % curves().size();
    }
}

void arcLength(benchmark::State& state) {
    forEachCurve(state, [](std::size_t i) { return curves()[i].length(); });
}
BENCHMARK(arcLength);

/// The peer takes an absolute tolerance. Its error is larger than that at sharp turns, which is in its favour here.
void arcLengthOfPeer(benchmark::State& state) {
    std::vector<double> tolerances;
    for (const Bezier& curve : curves()) tolerances.push_back(1e-9 * curve.length());
    double worst = 0;
    for (std::size_t i = 0; i < curves().size(); ++i) {
        const double length = curves()[i].length();
        worst = std::max(worst, std::abs(peers()[i].length(tolerances[i]) - length) / length);
    }
    forEachCurve(state, [&](std::size_t i) { return peers()[i].length(tolerances[i]); });
    state.counters["worst difference"] = worst;
}
BENCHMARK(arcLengthOfPeer);

void tAtLength(benchmark::State& state) {
    std::vector<double> targets;
    for (const Bezier& curve : curves()) targets.push_back(0.618 * curve.length());
    forEachCurve(state, [&](std::size_t i) { return curves()[i].tAtLength(targets[i]); });
}
BENCHMARK(tAtLength);

// Crossings of each curve with the next

std::vector<kzo::geo::Bezier> plainCurves() {
    const auto point = [](const ArtboardPoint& p) { return kzo::geo::Point{p.x(), p.y()}; };
    std::vector<kzo::geo::Bezier> list;
    for (const Bezier& b : curves()) list.push_back({point(b.p0), point(b.p1), point(b.p2), point(b.p3)});
    return list;
}

void curveCrossings(benchmark::State& state) {
    const auto plain = plainCurves();
    std::size_t met = 0;
    for (std::size_t i = 0; i < plain.size(); ++i)
        met += kzo::geo::crossings(plain[i], plain[(i + 1) % plain.size()]).size();
    forEachCurve(state, [&](std::size_t i) { return kzo::geo::crossings(plain[i], plain[(i + 1) % plain.size()]); });
    state.counters["found"] = static_cast<double>(met);
}
BENCHMARK(curveCrossings);

/// At its finest tolerance the peer's points are a hundred thousandth of a point apart; ours, a millionth of that.
void curveCrossingsOfPeer(benchmark::State& state) {
    std::size_t met = 0;
    for (std::size_t i = 0; i < peers().size(); ++i)
        met += peers()[i].intersect(peers()[(i + 1) % peers().size()], 1e-9).size();
    forEachCurve(state, [&](std::size_t i) { return peers()[i].intersect(peers()[(i + 1) % peers().size()], 1e-9); });
    state.counters["found"] = static_cast<double>(met);
}
BENCHMARK(curveCrossingsOfPeer);

void movePoint(benchmark::State& state) {
    ArtboardPoint point;
    Angle angle;
    const Angle step(1, Angle::Units::Degrees);
    for ([[maybe_unused]] auto _ : state) {
        point = point.move(1, angle);
        angle += step;
    }
    benchmark::DoNotOptimize(point);
}
BENCHMARK(movePoint);

} // namespace
