// Messages through the plug-in's entry, with the host's suites behind it: one that nobody registered for, and a drag to
// a tool whose callback does nothing. The limits are 200 ns and 1 µs; the peer is the bare call of a function.
#include <benchmark/benchmark.h>

#include "core/app/Plugin.h"
#include "core/frame/Tool.h"
#include "session/app/Session.h"
#include "suites/Tables.h"
#include "tool/Plugin.h"

extern "C" SPErr PluginMain(const char* caller, const char* selector, void* message);

namespace {

using namespace easel;

struct Nothing {
    void run() {}
};

/// A session with the product started and an empty document.
struct Stage {
    session::Session session;
    session::Plugin& plugin;
    SPMessageData head{};

    Stage() : plugin(session.plugins.attach("Ortholine", PluginMain)) {
        session.start();
        session.newDocument(800, 600);
        session.input.selectTool(*session.toolbox.findByTitle("Isometric Line Tool"));
        head = {.SPCheck = kSPValidMessageData,
                .self = plugin.handle,
                .globals = nullptr,
                .basic = &suites::Tables::of(*session.suites).basicSuite};
    }
};

void bareCall(benchmark::State& state) {
    Nothing nothing;
    kzo::core::__Callback<Nothing> callback(&nothing, &Nothing::run);
    kzo::core::Callback* volatile called = &callback;
    for (auto _ : state) called->execute();
}

void messageWithoutCallback(benchmark::State& state) {
    Stage stage;
    for (auto _ : state) benchmark::DoNotOptimize(PluginMain("Nobody", "Listens", &stage.head));
}

void dragToEmptyCallback(benchmark::State& state) {
    Stage stage;
    Nothing nothing;
    kzo::core::Tool tool = ortho::Plugin::instance()->lineTool();
    tool.setDragCallback(kzo::core::__Callback<Nothing>(&nothing, &Nothing::run));
    AIToolMessage message{.d = stage.head, .tool = tool.aiToolHandle(), .cursor = {1, 2}, .modifiers = 0, .flags = 0};
    // Suites answer only while the host knows of a message, so the loop runs inside of one.
    struct Loop {
        benchmark::State& state;
        AIToolMessage& message;
        void run() {
            for (auto _ : state) {
                message.cursor.h += 0.01;
                benchmark::DoNotOptimize(PluginMain("AI Tool", "AI Mouse Drag", &message));
            }
        }
    } loop{state, message};
    kzo::core::Plugin::instance()->setToolPreTrackedCallback(kzo::core::__Callback<Loop>(&loop, &Loop::run));
    stage.session.pointer.move({5, 5}, 0);
}

BENCHMARK(bareCall);
BENCHMARK(messageWithoutCallback);
BENCHMARK(dragToEmptyCallback);

} // namespace
