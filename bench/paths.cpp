// Path art through the facade and the host: reading and writing all points of a path as long as the host allows.
#include <benchmark/benchmark.h>

#include <cstdint>

#include "core/app/Plugin.h"
#include "core/document/Art.h"
#include "core/frame/Dispatcher.h"
#include "core/values/Callback.h"
#include "session/app/Session.h"

extern "C" SPErr PluginMain(const char* caller, const char* selector, void* message);

namespace {

using namespace kzo::core;

/// What the plug-in does in the message that is timed.
struct Work {
    benchmark::State& state;

    void run() {
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
    }
};

/// To be done within 2 ms for 32,000 anchors.
void readAndWritePoints(benchmark::State& state) {
    easel::session::Session session;
    auto& plugin = session.plugins.attach("Ortholine", PluginMain);
    session.start();
    session.newDocument(100, 100);
    Work work{state};
    Plugin::instance()->dispatcher()->registerMessageCallback("Bench", "Run", __Callback<Work>(&work, &Work::run));
    SPMessageData message{};
    session.messenger.send(plugin, "Bench", "Run", message);
}
BENCHMARK(readAndWritePoints)->Arg(32'000)->Unit(benchmark::kMillisecond);

} // namespace
