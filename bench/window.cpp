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
#include <QProcess>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "Documents.h"
#include "Peak.h"
#include "app/Application.h"
#include "app/Dialogs.h"
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
    explicit Shown(const std::filesystem::path& within) : folder(within) {
        session.profile.use(folder / "profile");
        session.plugins.attach("Ortholine", PluginMain);
        session.start();
        window.emplace(actions, recovery, settings);
        app::connectDialogs(actions, *window);
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

    std::filesystem::path folder;
    session::Session session;
    app::Recorder recorder{""};
    app::Actions actions{session, recorder};
    app::Recovery recovery{folder / "recovery"};
    app::Settings settings{folder};
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

enum class Grip { Ground, Topmost, Bottommost };

/// Argument: paths, all of them visible. A picture for each message: more than screens show.
void drag(benchmark::State& state, const char* tool, Grip grip) {
    const Folder folder;
    Shown shown(folder.path);
    const double side = documents::side(state.range(0));
    shown.actions.newDocument(side, side);
    documents::fill(*shown.session.document(), state.range(0));
    shown.actions.setCurrentLayer(0); // any act shows what was filled in
    shown.window->canvas().fitPage();
    shown.settle();
    shown.actions.selectTool(*shown.session.toolbox.findByTitle(tool));
    model::Point from{side / 2, side / 2};
    const model::Node& layer = shown.session.document()->currentLayer();
    if (grip != Grip::Ground)
        from = (grip == Grip::Topmost ? layer.firstChild() : layer.lastChild())->path().points[0].anchor;
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

/// Argument: objects that are moved, every other one of a drawing from a file.
void moveMany(benchmark::State& state) {
    const Folder folder;
    Shown shown(folder.path);
    const double side = documents::side(state.range(0) * 2);
    const std::string file = (folder.path / "many.svg").string();
    {
        model::Document document(side, side);
        documents::fill(document, state.range(0) * 2);
        svg::replaceFile(file, svg::write(document));
    }
    shown.window->open(file);
    while (shown.window->files().isReading()) QApplication::processEvents();
    shown.settle();
    shown.actions.selectTool(*shown.session.toolbox.findByTitle("Selection Tool"));
    model::Document& document = *shown.session.document();
    model::Point from;
    for (model::Node* at = document.currentLayer().firstChild(); at; at = at->next() ? at->next()->next() : nullptr) {
        document.select(*at, true);
        from = at->path().points[0].anchor;
    }
    shown.send(QEvent::MouseButtonPress, from);
    double turn = 0;
    for (auto _ : state) {
        turn += 0.01;
        shown.send(QEvent::MouseMove, {from.x + 20 * std::cos(turn), from.y + 20 * std::sin(turn)});
        shown.window->canvas().repaint();
    }
    state.SetItemsProcessed(state.iterations());
    shown.send(QEvent::MouseButtonRelease, from);
}

/// Zooming in and out about the middle: until the old picture shows at the new scale, and until all of it is sharp
/// again.
void zoom(benchmark::State& state) {
    const Folder folder;
    Shown shown(folder.path);
    const double side = documents::side(state.range(0));
    shown.actions.newDocument(side, side);
    documents::fill(*shown.session.document(), state.range(0));
    shown.actions.setCurrentLayer(0); // any act shows what was filled in
    app::Canvas& canvas = shown.window->canvas();
    canvas.fitPage();
    shown.settle();
    double slowest = 0;
    double factor = 1.25;
    for (auto _ : state) {
        QElapsedTimer clock;
        clock.start();
        canvas.zoomBy(factor);
        canvas.repaint();
        slowest = std::max(slowest, static_cast<double>(clock.nsecsElapsed()) * 1e-6);
        shown.settle();
        factor = 1 / factor;
    }
    state.counters["first picture, ms"] = slowest;
}

/// A program from its start until it says so on standard output; then it is ended.
double secondsUntil(const char* line, const QString& program, const QStringList& arguments) {
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QElapsedTimer clock;
    clock.start();
    process.start(program, arguments, QIODevice::ReadOnly);
    QByteArray said;
    while (!said.contains(line) && process.waitForReadyRead()) said += process.readAllStandardOutput();
    const double seconds = static_cast<double>(clock.nsecsElapsed()) * 1e-9;
    if (!said.contains(line)) qFatal("%s did not start", qPrintable(program));
    process.kill();
    process.waitForFinished();
    return seconds;
}

/// The window's process and, in turn, that of an empty one: until the first picture, and until the drawing shows.
void start(benchmark::State& state) {
    const Folder folder;
    { const Shown first(folder.path); } // the profile is that of a second start: the plug-in has said its welcome
    const QStringList arguments{"--time-start", "--plugin", ORTHOLINE_BUNDLE, "--profile",
                                QString::fromStdString(folder.path / "profile")};
    double window = 1e9;
    double drawing = 1e9;
    double empty = 1e9;
    for (auto _ : state) {
        window = std::min(window, secondsUntil("window", EASEL_WINDOW, arguments));
        drawing = std::min(drawing, secondsUntil("drawing", EASEL_WINDOW, arguments));
        empty = std::min(empty, secondsUntil("window", EMPTY_WINDOW, {}));
    }
    state.counters["empty window, ms"] = empty * 1000;
    state.counters["window, ms"] = window * 1000;
    state.counters["drawing, ms"] = drawing * 1000;
    state.counters["ratio"] = window / empty;
}

/// A file of 500,000 paths: until something of it shows, until all of it is sharp, and the longest time that an event
/// waited in between, while the drawing before is used.
void openLarge(benchmark::State& state) {
    const Folder folder;
    Shown shown(folder.path);
    const std::string file = (folder.path / "large.svg").string();
    {
        const double side = documents::side(state.range(0));
        model::Document document(side, side);
        documents::fill(document, state.range(0));
        svg::replaceFile(file, svg::write(document));
    }
    shown.actions.newDocument(300, 300);
    shown.actions.selectTool(*shown.session.toolbox.findByTitle("Isometric Line Tool"));
    double longest = 0;
    const auto slice = [&](bool uses) {
        QElapsedTimer clock;
        clock.start();
        if (uses) {
            shown.send(QEvent::MouseButtonPress, {100, 100});
            shown.send(QEvent::MouseMove, {120, 130});
            shown.actions.key("Escape", 0);
            shown.send(QEvent::MouseButtonRelease, {120, 130});
        }
        QApplication::processEvents(QEventLoop::AllEvents, 1);
        longest = std::max(longest, static_cast<double>(clock.nsecsElapsed()) * 1e-6);
    };
    for (auto _ : state) {
        QElapsedTimer clock;
        clock.start();
        shown.window->open(file);
        while (shown.window->files().isReading()) slice(true);
        state.counters["longest wait until read, ms"] = longest;
        shown.window->canvas().repaint();
        state.counters["first picture, s"] = static_cast<double>(clock.elapsed()) / 1000;
        while (!shown.window->canvas().isTrue()) slice(false);
        state.counters["sharp, s"] = static_cast<double>(clock.elapsed()) / 1000;
        state.counters["longest wait, ms"] = longest;
        state.counters["memory, MiB"] = bench::memoryInUse("VmHWM:") / (1 << 20);
    }
}

BENCHMARK(repaintEmpty)->Name("window/repaintEmpty")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(drag, line, "Isometric Line Tool", Grip::Ground)
    ->Name("window/dragLine")
    ->Arg(1'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(drag, move, "Selection Tool", Grip::Topmost)
    ->Name("window/moveOne")
    ->Arg(1'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(drag, below, "Selection Tool", Grip::Bottommost)
    ->Name("window/moveLowest")
    ->Arg(1'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(moveMany)->Name("window/moveMany")->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(zoom)->Name("window/zoom")->Arg(10'000)->Arg(100'000)->Iterations(6)->Unit(benchmark::kMillisecond);
BENCHMARK(start)->Name("window/start")->Iterations(20)->Unit(benchmark::kMillisecond);
BENCHMARK(openLarge)->Name("window/open")->Arg(500'000)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("VELLORAN_WEB", "http://127.0.0.1:1"); // where nobody listens
    benchmark::Initialize(&argc, argv);
    app::Application application(argc, argv);
    app::applyLook(false);
    benchmark::RunSpecifiedBenchmarks();
}
