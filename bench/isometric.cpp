// The mover's drag message with many objects selected, and the joining of long paths.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cmath>
#include <ctime>
#include <vector>

#include "Documents.h"
#include "core/app/Plugin.h"
#include "core/document/Art.h"
#include "core/frame/Dispatcher.h"
#include "maker/Concatenate.h"
#include "session/app/Session.h"

extern "C" SPErr PluginMain(const char* caller, const char* selector, void* message);

namespace {

using namespace easel;

/// A new document with so many of its paths selected, all over the page or side by side; the mover tool is chosen.
model::Document& selectionToMove(session::Session& session, std::int64_t paths, std::int64_t selected, bool allOver) {
    model::Document& document = session.newDocument(documents::side(paths), documents::side(paths));
    documents::fill(document, paths);
    const std::int64_t every = allOver ? paths / selected : 1;
    std::int64_t at = 0;
    std::int64_t left = selected;
    for (model::Node* path = document.currentLayer().firstChild(); path && left > 0; path = path->next())
        if (at++ % every == 0) document.select(*path, --left >= 0);
    session.input.selectTool(*session.toolbox.findByTitle("Isometric Mover Tool"));
    return document;
}

/// Arguments: paths, selected ones among them, whether these are all over the page instead of side by side. To be done
/// within 40 ms for 10,000, in a time that grows with the selection alone.
void moveSelection(benchmark::State& state) {
    session::Session session;
    session.plugins.attach("Ortholine", PluginMain);
    session.start();
    selectionToMove(session, state.range(0), state.range(1), state.range(2) != 0);
    session.pointer.press({5, 5}, 0);
    int step = 0;
    for ([[maybe_unused]] auto _ : state) session.pointer.drag({5.0 + ++step % 97, 50}, 0);
    session.pointer.cancel();
}
BENCHMARK(moveSelection)
    ->Args({20'000, 1'000, 0})
    ->Args({20'000, 10'000, 0})
    ->Args({1'000'000, 10'000, 0})
    ->Args({1'000'000, 10'000, 1})
    ->Args({1'000'000, 100'000, 0})
    ->Unit(benchmark::kMillisecond);

/// The same message for 10,000 of 1,000,000 paths and of 20,000, in turn, so that whatever else the machine does weighs
/// on both: `ratio` is to be at most 1.5. Argument: whether they are all over the page.
void moveInLargerDocument(benchmark::State& state) {
    session::Session session;
    session.plugins.attach("Ortholine", PluginMain);
    session.start();
    struct Drag {
        model::Document& document;
        double seconds = 0;
    };
    const bool allOver = state.range(0) != 0;
    Drag drags[] = {{selectionToMove(session, 20'000, 10'000, allOver)},
                    {selectionToMove(session, 1'000'000, 10'000, allOver)}};
    for ([[maybe_unused]] auto _ : state) {
        for (Drag& drag : drags) {
            session.documents.bringToFront(drag.document);
            session.pointer.press({5, 5}, 0);
            session.pointer.drag({55, 50}, 0); // the next has something to take back
            const std::clock_t start = std::clock();
            session.pointer.drag({60, 50}, 0);
            drag.seconds += static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
            session.pointer.cancel();
        }
    }
    state.counters["ratio"] = drags[1].seconds / drags[0].seconds;
}
BENCHMARK(moveInLargerDocument)->Arg(0)->Arg(1)->Iterations(20)->Unit(benchmark::kMillisecond);

/// What the plug-in does in the message that is timed.
struct Joining {
    benchmark::State& state;

    /// A wave from the origin, a point for each anchor.
    static kzo::core::Art path(double step, std::int16_t count) {
        kzo::core::PathArt::SegPoints points;
        for (int i = 0; i < count; ++i) points.emplace_back(kzo::core::ArtboardPoint(step * i, std::sin(i)), true);
        kzo::core::Art art(kzo::core::ArtType::Path, kzo::core::PaintOrder::AboveAll);
        art.path()->setSegPointCount(count);
        art.path()->setSegPoints(0, points);
        return art;
    }

    void run() {
        const auto count = static_cast<std::int16_t>(state.range(0));
        for ([[maybe_unused]] auto _ : state) {
            const kzo::core::Art first = path(-1, count);
            const kzo::core::Art second = path(1, count);
            ArtObject* a = first.aiArtHandle();
            ArtObject* b = second.aiArtHandle();
            using namespace vl::conc;
            const auto start = std::chrono::steady_clock::now();
            const bool joined = concat_path(a, b, kJoinDistance, kMostVariance, kHandleTolerance, kStraightOn);
            state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
            if (!joined) state.SkipWithError("not joined");
            kzo::core::Art(a).dispose();
        }
    }
};

/// To be done within 10 ms for two paths of 16,000 anchors.
void joinPaths(benchmark::State& state) {
    session::Session session;
    auto& plugin = session.plugins.attach("Ortholine", PluginMain);
    session.start();
    session.newDocument(100, 100);
    Joining joining{state};
    using kzo::core::__Callback;
    kzo::core::Plugin::instance()->dispatcher()->registerMessageCallback("Bench", "Join",
                                                                         __Callback<Joining>(&joining, &Joining::run));
    SPMessageData message{};
    session.messenger.send(plugin, "Bench", "Join", message);
}
BENCHMARK(joinPaths)->Arg(1'600)->Arg(16'000)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
