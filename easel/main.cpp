// The command line. Returns 0 when all went well, 1 after an error (one line on standard error), 2 when it was called
// in a way it does not know.
#include <unistd.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "script/Script.h"
#include "session/app/Environment.h"
#include "session/app/Session.h"
#include "session/frame/PluginFolders.h"
#include "svg/Files.h"
#include "svg/Picture.h"
#include "svg/Reader.h"
#include "svg/Summary.h"

namespace {

enum ExitCode { Done = 0, Failed = 1, Misused = 2 };

constexpr const char* kStandard = "-"; // as a file's name: standard input or output
constexpr const char* kStandardInput = "standard input";

constexpr const char* kAbout = R"(A file called - is standard input or output.

Exit codes: 0 all went well; 1 an error, told in one line on standard error; 2 called in a way it does not know.

Environment:
  EASEL_PLUGINS            folders, separated by colons; each bundle (NAME.aip) in them is loaded.
                           Unset: $XDG_DATA_HOME/easel/plug-ins, which is usually ~/.local/share/easel/plug-ins
  EASEL_RENDER_SECONDS     how much of the processor's time a picture may take (60)
  EASEL_RENDER_MEGABYTES   how much memory (4096)
  EASEL_UNDO_MEGABYTES     how much memory the undo steps of a document may take (256)
  EASEL_TRACE=1            writes every message to a plug-in, and every call that it makes, to standard error)";

ExitCode fail(ExitCode code, std::string_view line) {
    std::cerr << "easel: " << line << '\n';
    return code;
}

void print(std::string_view text) {
    errno = 0;
    if (!std::cout.write(text.data(), static_cast<std::streamsize>(text.size())).flush())
        throw std::runtime_error(std::string("standard output: ") + std::strerror(errno != 0 ? errno : EIO));
}

struct Command {
    std::string script;
    std::vector<std::string> plugins;
    std::string profile;
    bool nativeDialogs = false;
    std::int32_t hostVersion = easel::session::Identity().majorVersion;
    std::string drawing;
    std::string picture;
    std::string format;
    double scale = 1;
    double dpi = 0;
};

/// Shows on a terminal that a picture takes its time.
easel::svg::Waiting progress(const std::string& what) {
    if (::isatty(STDERR_FILENO) == 0) return {};
    return [what](int seconds) {
        std::cerr << "\r\033[K"; // back to the start of an empty line
        if (seconds > 0) std::cerr << "easel: " << what << " is being drawn, " << seconds << " s" << std::flush;
    };
}

// Scripts and plug-ins

ExitCode runScript(const Command& command) {
    const bool fromInput = command.script == kStandard;
    const std::string source = fromInput ? easel::svg::readAll(STDIN_FILENO, kStandardInput) : std::string();
    easel::session::Session session;
    easel::session::useEnvironment(session);
    session.documents.whileDrawing = progress("a picture");
    if (!command.profile.empty()) session.profile.use(command.profile);
    session.dialogs.staged = !command.nativeDialogs;
    session.identity.majorVersion = command.hostVersion;
    easel::script::showWithoutAsking(session, std::cout);
    for (const std::string& bundle : command.plugins) session.plugins.load(bundle);
    easel::session::loadFound(session.plugins, session.reports);
    ExitCode code = Done;
    for (const std::string& line : session.start()) code = fail(Failed, line);
    if (code == Done && fromInput) easel::script::runSource(session, source, kStandardInput, std::cout);
    if (code == Done && !fromInput) easel::script::run(session, command.script, std::cout);
    session.quit();
    return code;
}

std::string wherePluginsAre() {
    std::string text =
        "no plug-in is there; a plug-in is a bundle, a folder NAME.aip with Contents/Linux/NAME in it\n"
        "easel plugins BUNDLE looks at one; these folders are looked through each time (EASEL_PLUGINS):\n";
    for (const std::string& folder : easel::session::pluginFolders()) text += "  " + folder + '\n';
    return text;
}

/// Names what loads and starts, and goes on after what does not.
ExitCode listPlugins(const Command& command) {
    easel::session::Session session;
    ExitCode code = Done;
    for (const std::string& bundle : command.plugins) {
        try {
            session.plugins.load(bundle);
        } catch (const easel::session::Error& error) {
            code = fail(Failed, error.what());
        }
    }
    easel::session::loadFound(session.plugins, session.reports);
    if (!session.reports.lines().empty()) code = Failed;
    std::string text;
    if (session.plugins.all().empty() && code == Done) text = wherePluginsAre();
    for (const std::string& line : session.start()) code = fail(Failed, line);
    for (const auto* plugin : session.plugins.all()) {
        if (!plugin->started) continue;
        text += plugin->name + '\n';
        for (const auto* tool : session.toolbox.all())
            if (tool->owner == plugin) text += "  tool: " + tool->title + '\n';
    }
    print(text);
    session.quit();
    return code;
}

// Drawings

std::unique_ptr<easel::model::Document> openDrawing(const Command& command) {
    const auto warn = [](const std::string& line) { std::cerr << "easel: user data: " << line << '\n'; };
    if (command.drawing != kStandard) return easel::svg::open(command.drawing, warn);
    return easel::svg::read(easel::svg::readAll(STDIN_FILENO, kStandardInput), kStandardInput, warn);
}

ExitCode render(const Command& command) {
    using easel::svg::PictureFormat;
    const bool toOutput = command.picture == kStandard;
    const auto asked = easel::svg::formatOf("picture." + command.format);
    const auto format = toOutput ? asked : easel::svg::formatOf(command.picture);
    if (!format) {
        return fail(Misused, toOutput ? "-o -: which format? --format png or --format pdf; see easel render --help"
                                      : "-o: the name of a picture ends in .png or .pdf; see easel render --help");
    }
    if (asked && asked != format) return fail(Misused, "-o and --format differ; see easel render --help");
    if (*format == PictureFormat::Pdf && command.dpi > 0)
        return fail(Misused, "--dpi is for PNG: a PDF has no pixels; see easel render --help");
    const auto document = openDrawing(command);
    const std::string shown = command.drawing == kStandard ? kStandardInput : command.drawing;
    const easel::svg::PictureOptions options{
        .scale = command.scale, .dpi = command.dpi, .marks = {}, .waiting = progress(shown)};
    if (toOutput)
        print(easel::svg::picture(*document, *format, options, shown));
    else
        easel::svg::exportPicture(*document, *format, options, command.picture);
    return Done;
}

ExitCode info(const Command& command) {
    const auto document = openDrawing(command);
    std::ostringstream text;
    easel::svg::summarize(*document, text);
    print(text.str());
    return Done;
}

// The command line itself

std::string positiveNumber(const std::string& text) {
    char* end = nullptr;
    const double number = std::strtod(text.c_str(), &end);
    const bool usable = end != text.c_str() && *end == '\0' && std::isfinite(number) && number > 0;
    return usable ? "" : "must be a number greater than 0, not \"" + text + '"';
}

std::string formatName(const std::string& text) {
    return text == "png" || text == "pdf" ? "" : "must be png or pdf, not \"" + text + '"';
}

struct Commands {
    explicit Commands(Command& command) {
        cli.require_subcommand(1);
        cli.set_version_flag("--version", "Easel " EASEL_VERSION, "Print the version and exit");
        cli.footer(kAbout);
        run.add_option("SCRIPT", command.script, "JavaScript; see docs/session-scripts.md")->required();
        addPlugins(run, command);
        run.add_option("--profile", command.profile,
                       "The folder of the plug-ins' preferences; a temporary one if left out");
        run.add_option("--host-version", command.hostVersion, "The major version that plug-ins are told")
            ->check(CLI::Range(1, 1000));
        run.add_flag("--native-dialogs", command.nativeDialogs,
                     "Leave dialogs and alerts to the plug-ins' own windows, where they have any");
        picture.add_option("IN.svg", command.drawing, "The drawing")->required();
        picture.add_option("-o", command.picture, "The picture: OUT.png, OUT.pdf or -")->required();
        picture.add_option("--format", command.format, "png or pdf, where the name does not tell")
            ->check(formatName, "FORMAT");
        CLI::Option* const scale =
            picture
                .add_option("--scale", command.scale, "Pixels a unit of the drawing; of a PDF: times its size on paper")
                ->check(positiveNumber, "NUMBER");
        picture.add_option("--dpi", command.dpi, "Pixels of a PNG an inch of the drawing's size on paper")
            ->check(positiveNumber, "NUMBER")
            ->excludes(scale);
        information.add_option("FILE", command.drawing, "The drawing")->required();
        plugins.add_option("BUNDLE", command.plugins, "A plug-in bundle (NAME.aip)");
        addPlugins(plugins, command);
        cli.allow_extras();
        for (CLI::App* const each : cli.get_subcommands({})) each->allow_extras();
    }

    static void addPlugins(CLI::App& app, Command& command) {
        app.add_option("--plugin", command.plugins, "A plug-in bundle (NAME.aip); can be given more than once")
            ->allow_extra_args(false);
    }

    /// What of the command line means nothing, in words.
    [[nodiscard]] std::string unknown() const {
        const std::vector<std::string> extras = cli.remaining(true);
        if (extras.empty()) return {};
        const std::string& first = extras.front();
        if (first.size() > 1 && first[0] == '-') return "there is no option " + first;
        if (cli.get_subcommands().empty()) return "there is no command \"" + first + '"';
        return '"' + first + "\" is one argument too many";
    }

    CLI::App cli{"Easel, a drawing application that plays its part without a window", "easel"};
    CLI::App& run = *cli.add_subcommand("run", "Plays a session script");
    CLI::App& picture = *cli.add_subcommand("render", "Makes a picture of a drawing");
    CLI::App& information = *cli.add_subcommand("info", "Tells what a drawing holds, and what of it is not edited");
    CLI::App& plugins = *cli.add_subcommand("plugins", "Tells which plug-ins load and start, and their tools");
};

ExitCode run(int argc, char** argv) {
    Command command;
    Commands commands(command);
    std::string misuse;
    try {
        commands.cli.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) { // help or the version was asked for
            std::ostringstream text;
            commands.cli.exit(error, text, text);
            print(text.str());
            return Done;
        }
        misuse = error.what();
    }
    if (const std::string unknown = commands.unknown(); !unknown.empty()) misuse = unknown;
    if (!misuse.empty()) return fail(Misused, misuse + "; see easel --help");
    if (commands.picture.parsed()) return render(command);
    if (commands.information.parsed()) return info(command);
    return commands.plugins.parsed() ? listPlugins(command) : runScript(command);
}

} // namespace

int main(int argc, char** argv) {
    std::signal(SIGXFSZ, SIG_IGN); // a file that may not grow any more is an error like a full disk
    ExitCode code = Done;
    try {
        code = run(argc, argv);
        print(""); // what is still to be written
    } catch (const std::exception& error) {
        code = fail(Failed, error.what());
    }
    return code;
}
