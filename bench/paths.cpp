// Path art through the facade and the host: reading and writing all points of a path as long as the host allows, and
// measures against an independent library that has the same curves in its own form already.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <random>
#include <utility>

#include <2geom/bezier-curve.h>
#include <2geom/path.h>
#include <2geom/sbasis-geometric.h>
#include <benchmark/benchmark.h>

#include "core/app/Plugin.h"
#include "core/document/Art.h"
#include "core/frame/Dispatcher.h"
#include "core/values/Callback.h"
#include "session/app/Session.h"

extern "C" SPErr PluginMain(const char* caller, const char* selector, void* message);

namespace {

using namespace kzo::core;

/// Runs `work` in a message to the plug-in.
struct Work {
    std::function<void()> run_;
    void run() { run_(); }
};

void inMessage(const std::function<void()>& run) {
    easel::session::Session session;
    auto& plugin = session.plugins.attach("Ortholine", PluginMain);
    session.start();
    session.newDocument(100, 100);
    Work work{run};
    Plugin::instance()->dispatcher()->registerMessageCallback("Bench", "Run", __Callback<Work>(&work, &Work::run));
    SPMessageData message{};
    session.messenger.send(plugin, "Bench", "Run", message);
}

/// To be done within 2 ms for 32,000 anchors.
void readAndWritePoints(benchmark::State& state) {
    inMessage([&] {
        Art art(ArtType::Path, PaintOrder::AboveAll);
        PathArt& path = *art.path();
        const auto count = static_cast<std::int16_t>(state.range(0));
        path.setSegPointCount(count);
        for ([[maybe_unused]] auto _ : state) {
            PathArt::SegPoints points = path.segPoints(0, count);
            points.front().p += 1.0; // else nothing would be written
            path.setSegPoints(0, points);
        }
        art.dispose();
    });
}
BENCHMARK(readAndWritePoints)->Arg(32'000)->Unit(benchmark::kMillisecond);

// Measures of closed smooth paths: a round with waves of random height.

using Points = PathArt::SegPoints;

constexpr unsigned kFirst = 3;
constexpr unsigned kSecond = 4;

Points round(benchmark::State& state, unsigned seed) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> height(180, 220);
    const auto count = static_cast<int>(state.range(0));
    std::vector<ArtboardPoint> at;
    for (int i = 0; i < count; ++i) {
        const double angle = 2.0 * M_PI * i / count;
        const double radius = height(random);
        at.emplace_back(radius * std::cos(angle), radius * std::sin(angle));
    }
    Points points;
    for (int i = 0; i < count; ++i) {
        const ArtboardPoint& here = at[static_cast<std::size_t>(i)];
        const ArtboardPoint& before = at[static_cast<std::size_t>((i + count - 1) % count)];
        const ArtboardPoint& behind = at[static_cast<std::size_t>((i + 1) % count)];
        const double dx = (behind.x() - before.x()) / 6.0;
        const double dy = (behind.y() - before.y()) / 6.0;
        points.emplace_back(here, here.offset(-dx, -dy), here.offset(dx, dy), false);
    }
    return points;
}

Art drawn(const Points& points) {
    Art art(ArtType::Path, PaintOrder::AboveAll);
    art.path()->setSegPointCount(static_cast<std::int16_t>(points.size()));
    art.path()->setClosed(true);
    art.path()->setSegPoints(0, points);
    return art;
}

Geom::Path peer(const Points& points) {
    const auto point = [](const ArtboardPoint& p) { return Geom::Point(p.x(), p.y()); };
    Geom::Path made(point(points.front().p));
    for (std::size_t i = 0; i < points.size(); ++i) {
        const ArtboardSegPoint& next = points[(i + 1) % points.size()];
        made.append(Geom::CubicBezier(point(points[i].p), point(points[i].out), point(next.in), point(next.p)));
    }
    made.close();
    return made;
}

/// Measures a path through the facade; `measure` takes it and another.
template <class Measure> void ours(benchmark::State& state, const Measure& measure) {
    inMessage([&] {
        const Art a = drawn(round(state, kFirst));
        const Art b = drawn(round(state, kSecond));
        for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(measure(*a.path(), b));
        state.counters["result"] = measure(*a.path(), b);
    });
}

template <class Measure> void peers(benchmark::State& state, const Measure& measure) {
    const Geom::Path a = peer(round(state, kFirst));
    const Geom::Path b = peer(round(state, kSecond));
    for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(measure(a, b));
    state.counters["result"] = measure(a, b);
}

/// What the host measures for `length` is as good as the flatness that it is asked for. This is ours, to 1e-9.
void pathLength(benchmark::State& state) {
    ours(state, [](const PathArt& a, const Art&) {
        return a.sublength(0, 0, static_cast<std::int16_t>(a.segCount() - 1), 1);
    });
}
BENCHMARK(pathLength)->Arg(100)->Arg(10'000);

/// At the tolerance, in points, that comes nearest to that: the results tell.
void pathLengthOfPeer(benchmark::State& state) {
    peers(state, [](const Geom::Path& a, const Geom::Path&) {
        double sum = 0;
        for (const Geom::Curve& curve : a) sum += curve.length(1e-9);
        return sum;
    });
}
BENCHMARK(pathLengthOfPeer)->Arg(100)->Arg(10'000);

/// The host's, with its flatness of a hundredth of a point.
void pathLengthOfHost(benchmark::State& state) {
    ours(state, [](const PathArt& a, const Art&) { return a.length(); });
}
BENCHMARK(pathLengthOfHost)->Arg(100)->Arg(10'000);

void pathArea(benchmark::State& state) {
    ours(state, [](const PathArt& a, const Art&) { return a.area(); });
}
BENCHMARK(pathArea)->Arg(100)->Arg(10'000);

void pathAreaOfPeer(benchmark::State& state) {
    const auto curves = peer(round(state, kFirst)).toPwSb().segs;
    const auto area = [&] {
        double twice = 0;
        for (const auto& curve : curves) {
            const Geom::SBasis swept = Geom::integral(Geom::dot(curve, Geom::rot90(Geom::derivative(curve))));
            twice += swept.at1() - swept.at0();
        }
        return std::abs(twice) / 2;
    };
    for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(area());
    state.counters["result"] = area();
}
BENCHMARK(pathAreaOfPeer)->Arg(100)->Arg(10'000);

void pathIntersections(benchmark::State& state) {
    ours(state, [](const PathArt& a, const Art& b) { return static_cast<double>(a.getIntersections(b).size()); });
}
BENCHMARK(pathIntersections)->Arg(100)->Arg(10'000);

void pathIntersectionsOfPeer(benchmark::State& state) {
    peers(state,
          [](const Geom::Path& a, const Geom::Path& b) { return static_cast<double>(a.intersect(b, 1e-9).size()); });
}
BENCHMARK(pathIntersectionsOfPeer)->Arg(100)->Arg(10'000);

} // namespace
