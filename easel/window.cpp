// The window's executable. Exit codes: 0 when the window was closed, 1 after an error (one line on standard error), 2
// when it was called in a way it does not know.
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "app/Application.h"
#include "app/Dialogs.h"
#include "app/Look.h"
#include "app/Window.h"
#include "session/app/Environment.h"
#include "session/frame/PluginFolders.h"

namespace {

using namespace easel;

enum ExitCode { Done = 0, Failed = 1, Misused = 2 };

constexpr const char* kAbout = R"(Environment, as easel --help tells it:
  EASEL_PLUGINS, EASEL_RENDER_SECONDS, EASEL_RENDER_MEGABYTES, EASEL_UNDO_MEGABYTES, EASEL_TRACE=1)";

struct Command {
    std::string drawing;
    std::vector<std::string> plugins;
    std::string profile;
    std::string record;
    bool dark = false;
    bool timeStart = false;
    bool nativeDialogs = false;
};

app::Window* shownWindow = nullptr;

int fail(ExitCode code, const std::string& why) {
    std::fprintf(stderr, "easel-window: %s\n", why.c_str());
    return code;
}

/// For whoever ends the program, with or without a display to say it on.
void keepWork() {
    std::string why;
    try {
        if (shownWindow) why = shownWindow->files().keepWork(true);
    } catch (const std::exception& error) {
        why = error.what();
    }
    if (!why.empty()) std::fprintf(stderr, "easel-window: unsaved work is not kept: %s\n", why.c_str());
}

std::string whyUnreachable() {
    for (const char* const name : {"WAYLAND_DISPLAY", "DISPLAY"})
        if (const char* const display = std::getenv(name); display && *display)
            return std::string(name) + '=' + display + " cannot be reached";
    return "neither DISPLAY nor WAYLAND_DISPLAY names one";
}

/// Hears what Qt says. Without a display, and when the display is lost, these lines are all that comes.
void hearQt(QtMsgType type, const QMessageLogContext& /*where*/, const QString& text) {
    const bool isLost = text.contains("connection broke");
    if (isLost) keepWork();
    if (type != QtFatalMsg && !isLost) return;
    std::string why = text.section('\n', 0, 0).toStdString();
    if (isLost) why = "it was lost; the next start offers what was not saved";
    if (text.contains("no Qt platform plugin")) why = whyUnreachable();
    std::fprintf(stderr, "easel-window: no display: %s\n", why.c_str());
    std::_Exit(Failed);
}

// Signals end the loop, so that unsaved work is kept and plug-ins are told.
int signalPipe[2];
void hearSignal(int number) {
    const auto byte = static_cast<unsigned char>(number);
    static_cast<void>(!::write(signalPipe[1], &byte, 1));
}

void endOnSignals(QObject& context) {
    if (::pipe2(signalPipe, O_CLOEXEC | O_NONBLOCK) != 0) return;
    auto* const heard = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, &context);
    QObject::connect(heard, &QSocketNotifier::activated, &context, app::guarded([] {
                         unsigned char number = 0;
                         if (::read(signalPipe[0], &number, 1) != 1) return;
                         keepWork();
                         constexpr int kBySignal = 128;
                         QApplication::exit(kBySignal + number);
                     }));
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) std::signal(number, hearSignal);
}

/// Where the settings of plug-ins are, unless told otherwise.
std::string defaultProfile() {
    const char* const config = std::getenv("XDG_CONFIG_HOME");
    const char* const home = std::getenv("HOME");
    const std::filesystem::path base =
        config && *config ? config : std::filesystem::path(home ? home : "/tmp") / ".config";
    return (base / "easel").string();
}

/// Sees when the window is painted for the first time, and when the drawing is.
class FirstPictures final : public QObject {
  public:
    FirstPictures(app::Canvas& canvas, std::function<void()> shown, std::function<void()> drawn)
        : QObject(&canvas), canvas_(canvas), shown_(std::move(shown)), drawn_(std::move(drawn)) {
        canvas.installEventFilter(this);
        constexpr int kHidden = 300; // milliseconds; a window that nobody sees is never painted
        QTimer::singleShot(kHidden, this, app::guarded([this] { tell(shown_); }));
    }

    bool eventFilter(QObject* /*canvas*/, QEvent* event) override {
        if (event->type() != QEvent::Paint) return false;
        // When the picture is there.
        QTimer::singleShot(0, this, app::guarded([this] {
                               tell(shown_);
                               if (canvas_.hasDocument()) tell(drawn_);
                           }));
        return false;
    }

  private:
    static void tell(std::function<void()>& whom) {
        if (const auto once = std::exchange(whom, {})) once();
    }

    app::Canvas& canvas_;
    std::function<void()> shown_;
    std::function<void()> drawn_;
};

/// Plug-ins start, who may open dialogs over the window, and the drawing is opened.
void begin(app::Window& window, session::Session& session, const Command& command) {
    for (const std::string& bundle : command.plugins) session.plugins.load(bundle);
    session::loadFound(session.plugins, session.reports);
    for (const std::string& line : session.start()) window.tell(QString::fromStdString(line));
    window.canvas().setNotice({});
    constexpr double kWidth = 595;
    constexpr double kHeight = 842;
    if (command.drawing.empty())
        window.files().newDocument(kWidth, kHeight);
    else
        window.open(command.drawing);
    QApplication::setWindowIcon(app::icon(app::Symbol::Easel)); // no part of the first picture
    window.files().offerRecovered();
}

int runUntilClosed(app::Window& window, session::Session& session, const Command& command) {
    const auto say = [&](const char* what) {
        if (command.timeStart) std::printf("%s\n", what);
        std::fflush(stdout);
    };
    const auto shown = [&] {
        say("window");
        try {
            begin(window, session, command);
        } catch (const session::Error& error) { // a plug-in that was named is not there
            QApplication::exit(fail(Failed, error.what()));
        }
    };
    const auto drawn = [&] {
        say("drawing");
        if (command.timeStart) QApplication::exit(Done);
    };
    const FirstPictures pictures(window.canvas(), shown, drawn);
    window.canvas().setNotice(" "); // a drawing is about to come
    window.show();
    window.activateWindow(); // without a window manager nobody else does
    const int code = QApplication::exec();
    window.canvas().leaveDocument(); // documents end with the session, the window after it
    session.quit();
    return code;
}

int show(int argc, char** argv, const Command& command) {
    qInstallMessageHandler(hearQt);
    app::readFonts();
    app::Application application(argc, argv);
    app::listFonts();
    const struct FontsListed { // before the application goes, also when something is thrown
        ~FontsListed() { app::awaitFonts(); }
    } fontsListed;
    QApplication::setApplicationName("Easel");
    QApplication::setApplicationVersion(EASEL_VERSION);

    session::Session session;
    session::useEnvironment(session);
    session.profile.use(command.profile.empty() ? defaultProfile() : command.profile);
    app::Settings settings(session.profile.folder());
    if (command.dark) settings.setDark(true);
    app::applyLook(settings.dark());
    app::Recorder recorder(command.record);
    app::Actions actions(session, recorder);
    app::Recovery recovery(app::Recovery::defaultFolder());
    session.screen.setBrightness(settings.dark() ? 0 : 1);
    session.dialogs.staged = !command.nativeDialogs;
    app::paintIcons();
    app::Window window(actions, recovery, settings);
    shownWindow = &window;
    application.failed = [&window](const QString& why) { window.tell(why); };
    app::connectDialogs(actions, window);
    session.browser.open = app::openAddress;
    endOnSignals(application);
    const int code = runUntilClosed(window, session, command);
    shownWindow = nullptr;
    return code;
}

int run(int argc, char** argv) {
    Command command;
    CLI::App cli{"Easel, a drawing application for axonometric views", "easel-window"};
    cli.footer(kAbout);
    cli.set_version_flag("--version", "Easel " EASEL_VERSION, "Print the version and exit");
    cli.add_option("FILE.svg", command.drawing, "The drawing to open; a new one if left out");
    cli.add_option("--plugin", command.plugins, "A plug-in bundle (NAME.aip); can be given more than once")
        ->allow_extra_args(false);
    cli.add_option("--profile", command.profile, "The folder of settings; ~/.config/easel if left out");
    cli.add_option("--record", command.record, "Writes what is done as a session script");
    cli.add_flag("--time-start", command.timeStart,
                 "Prints a line when the first picture shows, and one when the drawing does, and ends");
    cli.add_flag("--native-dialogs", command.nativeDialogs,
                 "Leave dialogs and alerts to the plug-ins' own windows, where they have any");
    cli.add_flag("--dark", command.dark, "Light on dark, from now on; View > Dark changes it");
    try {
        cli.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) return cli.exit(error);
        return fail(Misused, std::string(error.what()) + "; see easel-window --help");
    }
    return show(argc, argv, command);
}

} // namespace

int main(int argc, char** argv) {
    std::signal(SIGXFSZ, SIG_IGN); // a file that may not grow any more is an error like a full disk
    int code = Failed;
    try {
        code = run(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "easel-window: %s\n", error.what());
    }
    return code;
}
