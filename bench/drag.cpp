// One drag message through the whole way: roll-back, snapping, entry, tool, hit test, new feedback line.
#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>

#include "Documents.h"
#include "plugin/host/HostMonitor.h"
#include "session/app/Session.h"

extern "C" SPErr PluginMain(const char* caller, const char* selector, void* message);

namespace {

using namespace easel;

/// Under the paths many layers with one far away each, which every hit test asks in turn.
void addLayers(model::Document& document, std::int64_t count) {
    document.journal().begin();
    for (std::int64_t i = 0; i < count; ++i) {
        model::Node& layer = document.addLayer("layer");
        model::Node& path = document.create(model::NodeType::Path, model::Placement::OnTopInside, layer);
        document.setPath(path, {.points = {{{-1e4, 0}, {-1e4, 0}, {-1e4, 0}}, {{-2e4, 0}, {-2e4, 0}, {-2e4, 0}}}});
    }
    document.journal().end();
}

/// Arguments: paths, layers besides the first.
void drag(benchmark::State& state) {
    session::Session session;
    session.plugins.attach("Ortholine", PluginMain);
    session.start();
    const double side = documents::side(state.range(0));
    documents::fill(session.newDocument(side, side), state.range(0));
    addLayers(*session.document(), state.range(1));
    session.input.selectTool(*session.toolbox.findByTitle("Isometric Line Tool"));

    // A circle of cursor locations round the middle, some on features and some on none.
    std::vector<model::Point> way;
    for (int i = 0; i < 1024; ++i) {
        const double turn = 2 * 3.14159265358979 * i / 1024;
        way.push_back({side / 2 + 80 * std::cos(turn), side / 2 + 80 * std::sin(turn)});
    }
    session.pointer.press({side / 2, side / 2}, 0);
    session.pointer.drag(way[0], 0); // the index is built on first use
    auto& monitor = kzo::plugin::host::monitor();
    monitor.reset();
    std::size_t at = 0;
    for (auto _ : state) session.pointer.drag(way[at++ % way.size()], 0);
    state.SetItemsProcessed(state.iterations());
    state.counters["host calls"] =
        benchmark::Counter(static_cast<double>(monitor.calls()) / static_cast<double>(state.iterations()));
    session.pointer.cancel();
}

BENCHMARK(drag)->Args({100, 0})->Args({10'000, 0})->Args({1'000'000, 0})->Args({100, 1'000})->Args({100, 10'000});

} // namespace
