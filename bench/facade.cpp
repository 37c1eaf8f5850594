// What plug-ins ask about a whole document: the selection, all art, all that lies under a point.
#include <benchmark/benchmark.h>

#include <functional>
#include <memory>

#include "Documents.h"
#include "core/app/Plugin.h"
#include "core/document/CurrentDocument.h"
#include "core/frame/Dispatcher.h"
#include "session/app/Session.h"

extern "C" SPErr PluginMain(const char* caller, const char* selector, void* message);

namespace {

using namespace easel;
namespace core = kzo::core;

/// A session with a document, and work done while a plug-in handles a message.
class Stage {
  public:
    explicit Stage(std::int64_t paths) {
        session.start();
        documents::fill(session.newDocument(documents::side(paths), documents::side(paths)), paths);
    }

    void inMessage(const std::function<void()>& work) {
        core::Dispatcher& dispatcher = *core::Plugin::instance()->dispatcher();
        dispatcher.registerMessageCallback("Bench", "Run", core::callback([&work] { work(); }));
        SPMessageData message{};
        session.messenger.send(plugin, "Bench", "Run", message);
        dispatcher.unregisterMessageCallback("Bench", "Run");
    }

    session::Session session;
    session::Plugin& plugin = session.plugins.attach("Ortholine", PluginMain);
};

/// Arguments: selected, all.
void selectedArt(benchmark::State& state) {
    Stage stage(state.range(1));
    model::Document& document = *stage.session.document();
    const std::int64_t step = state.range(1) / state.range(0);
    std::int64_t at = 0;
    for (model::Node* node = document.currentLayer().firstChild(); node; node = node->next())
        if (at++ % step == 0) document.select(*node, true);
    stage.inMessage([&] {
        for (auto _ : state) benchmark::DoNotOptimize(core::CurrentDocument().selectedArt()->size());
    });
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(selectedArt)->Args({10'000, 10'000})->Args({10'000, 1'000'000})->Unit(benchmark::kMillisecond);

void walkAllArt(benchmark::State& state) {
    Stage stage(state.range(0));
    stage.inMessage([&] {
        for (auto _ : state) {
            std::int64_t count = 0;
            const auto all = core::CurrentDocument().firstLayer()->group();
            for (auto at = all->begin(); !at.atEnd(); ++at) ++count;
            if (count != state.range(0)) state.SkipWithError("some art was not met");
        }
    });
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(walkAllArt)->Arg(1'000'000)->Unit(benchmark::kMillisecond)->Iterations(1);

void artAtPoint(benchmark::State& state) {
    Stage stage(1);
    model::Document& document = *stage.session.document();
    document.journal().begin();
    model::Style filled;
    filled.fill = true;
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        model::Node& square =
            document.create(model::NodeType::Path, model::Placement::OnTopInside, document.currentLayer());
        document.setPath(square, {.points = {model::cornerAt({100, 100}), model::cornerAt({200, 100}),
                                             model::cornerAt({200, 200}), model::cornerAt({100, 200})},
                                  .closed = true});
        document.setStyle(square, filled);
    }
    document.journal().end();
    stage.inMessage([&] {
        for (auto _ : state) {
            const auto found = core::CurrentDocument().artAtPoint({150, 150}, core::HitRequest::Fills);
            if (std::int64_t(found->size()) != state.range(0)) state.SkipWithError("some art was not found");
        }
    });
}
BENCHMARK(artAtPoint)->Arg(10)->Arg(100)->Arg(1'000)->Unit(benchmark::kMillisecond);

} // namespace
