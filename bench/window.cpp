// The window: pictures a second while a hand drags in a document of 100,000 visible paths, against an empty window's
// repainting; the start against that of an empty window; the first picture of a large file, and how long keys wait
// meanwhile. A program of its own, since it needs Qt:
//
//   build/release/bench/window_bench       (without a display, unless QT_QPA_PLATFORM says otherwise)
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QMainWindow>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

#include <cmath>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "Documents.h"
#include "Peak.h"
#include "app/Application.h"
#include "app/Look.h"
#include "app/Window.h"
#include "svg/Files.h"
#include "svg/Writer.h"

extern "C" SPErr PluginMain(const char* caller, const char* selector, void* message);

namespace {

using namespace easel;

constexpr QSize kSize(1600, 1000);

struct Folder {
    Folder() { std::filesystem::create_directories(path); }
    ~Folder() { std::filesystem::remove_all(path); }
    std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("window-bench-" + std::to_string(::getpid()));
};

struct Shown {
    Shown() {
        session.profile.use(folder.path / "profile");
        session.plugins.attach("Ortholine", PluginMain);
        session.start();
        window.emplace(actions, recovery, settings);
        window->resize(kSize);
        window->show();
        QApplication::processEvents();
    }

    void send(QEvent::Type type, model::Point at) {
        app::Canvas& canvas = window->canvas();
        const QPointF place = canvas.fromDocument(at);
        QMouseEvent event(type, place, canvas.mapToGlobal(place),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, Qt::LeftButton, {});
        QApplication::sendEvent(&canvas, &event);
    }

    /// Until the picture is complete.
    void settle() {
        while (!window->canvas().isTrue()) QApplication::processEvents(QEventLoop::AllEvents, 5);
    }

    Folder folder;
    session::Session session;
    app::Recorder recorder{""};
    app::Actions actions{session, recorder};
    app::Recovery recovery{folder.path / "recovery"};
    app::Settings settings{folder.path};
    std::optional<app::Window> window;
};

/// How long the machine takes to fill a window of this size, and nothing else.
void repaintEmpty(benchmark::State& state) {
    QWidget empty;
    empty.resize(kSize);
    empty.show();
    QApplication::processEvents();
    for (auto _ : state) empty.repaint();
    state.SetItemsProcessed(state.iterations());
}

/// Argument: paths, all of them visible. A picture for each message: more than screens show.
void drag(benchmark::State& state, const char* tool, bool onArt) {
    Shown shown;
    const double side = documents::side(state.range(0));
    shown.actions.newDocument(side, side);
    documents::fill(*shown.session.document(), state.range(0));
    shown.actions.setCurrentLayer(0); // any act shows what was filled in
    shown.window->canvas().fitPage();
    shown.settle();
    shown.actions.selectTool(*shown.session.toolbox.findByTitle(tool));
    model::Point from{side / 2, side / 2};
    if (onArt) from = shown.session.document()->currentLayer().firstChild()->path().points[0].anchor;
    shown.send(QEvent::MouseButtonPress, from);
    double turn = 0;
    for (auto _ : state) {
        turn += 0.01;
        shown.send(QEvent::MouseMove, {side / 2 + side / 3 * std::cos(turn), side / 2 + side / 3 * std::sin(turn)});
        shown.window->canvas().repaint();
    }
    state.SetItemsProcessed(state.iterations());
    shown.send(QEvent::MouseButtonRelease, from);
}

void start(benchmark::State& state) {
    for (auto _ : state) {
        Shown shown;
        shown.actions.newDocument(595, 842);
        shown.window->canvas().repaint();
        benchmark::DoNotOptimize(shown.window->isVisible());
    }
}

void startEmpty(benchmark::State& state) {
    for (auto _ : state) {
        QMainWindow empty;
        empty.resize(kSize);
        empty.show();
        QApplication::processEvents();
        empty.repaint();
    }
}

/// A file of 500,000 paths: until something of it shows, until all of it is sharp, and the longest time that an event
/// waited in between.
void openLarge(benchmark::State& state) {
    Shown shown;
    const std::string file = (shown.folder.path / "large.svg").string();
    {
        const double side = documents::side(state.range(0));
        model::Document document(side, side);
        documents::fill(document, state.range(0));
        svg::replaceFile(file, svg::write(document));
    }
    for (auto _ : state) {
        QElapsedTimer clock;
        clock.start();
        shown.actions.open(file);
        shown.window->canvas().repaint();
        state.counters["first picture, s"] = static_cast<double>(clock.elapsed()) / 1000;
        qint64 longest = 0;
        while (!shown.window->canvas().isTrue()) {
            QElapsedTimer slice;
            slice.start();
            QApplication::processEvents(QEventLoop::AllEvents, 1);
            longest = std::max(longest, slice.elapsed());
        }
        state.counters["sharp, s"] = static_cast<double>(clock.elapsed()) / 1000;
        state.counters["longest slice, ms"] = static_cast<double>(longest);
        state.counters["memory, MiB"] = bench::memoryInUse("VmHWM:") / (1 << 20);
    }
}

BENCHMARK(repaintEmpty)->Name("window/repaintEmpty")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(drag, line, "Isometric Line Tool", false)
    ->Name("window/dragLine")
    ->Arg(1'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(drag, move, "Selection Tool", true)
    ->Name("window/moveOne")
    ->Arg(1'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(startEmpty)->Name("window/startEmpty")->Unit(benchmark::kMillisecond);
BENCHMARK(start)->Name("window/start")->Unit(benchmark::kMillisecond);
BENCHMARK(openLarge)->Name("window/open")->Arg(500'000)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    benchmark::Initialize(&argc, argv);
    app::Application application(argc, argv);
    app::applyLook(application, false);
    benchmark::RunSpecifiedBenchmarks();
}
