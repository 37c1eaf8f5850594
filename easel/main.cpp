// The command line. Returns 0 when all went well, 1 after an error (one line on standard error), 2 when it was called
// in a way it does not know.
#include <CLI/CLI.hpp>

#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "script/Script.h"
#include "session/Session.h"
#include "svg/Picture.h"
#include "svg/Reader.h"
#include "svg/Summary.h"
#include "svg/Writer.h"

namespace {

enum ExitCode { Done = 0, Failed = 1, Misused = 2 };

ExitCode fail(ExitCode code, std::string_view line) {
    std::cerr << "easel: " << line << '\n';
    return code;
}

struct Command {
    std::string script;
    std::vector<std::string> plugins;
    std::string drawing;
    std::string picture;
    double scale = 1;
};

// Scripts and plug-ins

ExitCode runScript(const Command& command) {
    easel::session::Session session;
    const char* const trace = std::getenv("EASEL_TRACE");
    session.trace = trace && std::string_view(trace) == "1";
    for (const std::string& bundle : command.plugins) session.load(bundle);
    ExitCode code = Done;
    for (const std::string& line : session.start()) code = fail(Failed, line);
    if (code == Done) easel::script::run(session, command.script, std::cout);
    session.quit();
    return code;
}

/// Names what loads and starts, and goes on after what does not.
ExitCode listPlugins(const Command& command) {
    easel::session::Session session;
    ExitCode code = Done;
    for (const std::string& bundle : command.plugins) {
        try {
            session.load(bundle);
        } catch (const easel::session::Error& error) {
            code = fail(Failed, error.what());
        }
    }
    for (const std::string& line : session.start()) code = fail(Failed, line);
    for (const auto* plugin : session.plugins.all()) {
        if (!plugin->started) continue;
        std::cout << plugin->name << '\n';
        for (const auto* tool : session.toolbox.all())
            if (tool->owner == plugin) std::cout << "  tool: " << tool->title << '\n';
    }
    session.quit();
    return code;
}

// Drawings

std::unique_ptr<easel::model::Document> openDrawing(const Command& command) {
    return easel::svg::open(command.drawing,
                            [](const std::string& line) { std::cerr << "easel: user data: " << line << '\n'; });
}

ExitCode render(const Command& command) {
    const auto document = openDrawing(command);
    const easel::svg::PictureOptions options{.scale = command.scale};
    easel::svg::exportPicture(*document, *easel::svg::formatOf(command.picture), options, command.picture);
    return Done;
}

ExitCode info(const Command& command) {
    const auto document = openDrawing(command);
    easel::svg::summarize(*document, std::cout);
    return Done;
}

std::string pictureName(const std::string& name) {
    return easel::svg::formatOf(name) ? "" : "the name of a picture ends in .png or .pdf";
}

void addPlugins(CLI::App& cli, Command& command) {
    cli.add_option("--plugin", command.plugins, "A plug-in bundle (NAME.aip); can be given more than once")
        ->allow_extra_args(false);
}

ExitCode run(int argc, char** argv) {
    Command command;
    CLI::App cli{"Easel, a drawing application that plays its part without a window", "easel"};
    cli.require_subcommand(1);
    CLI::App& runCommand = *cli.add_subcommand("run", "Plays a session script");
    runCommand.add_option("SCRIPT", command.script, "JavaScript; see docs/session-scripts.md")->required();
    addPlugins(runCommand, command);
    CLI::App& picture = *cli.add_subcommand("render", "Makes a picture of a drawing");
    picture.add_option("IN.svg", command.drawing, "The drawing")->required();
    picture.add_option("-o", command.picture, "The picture: OUT.png or OUT.pdf")
        ->required()
        ->check(pictureName, "NAME");
    picture.add_option("--scale", command.scale, "Pixels (of a PDF: points) for each point of the drawing")
        ->check(CLI::PositiveNumber);
    CLI::App& infoCommand = *cli.add_subcommand("info", "Tells what a drawing holds, and what of it is not edited");
    infoCommand.add_option("FILE", command.drawing, "The drawing")->required();
    CLI::App& plugins = *cli.add_subcommand("plugins", "Tells which plug-ins load and start, and their tools");
    addPlugins(plugins, command);
    const auto named = [&](const CLI::App* known) { return known->get_name() == argv[1]; };
    if (argc > 1 && argv[1][0] != '-' && cli.get_subcommands(named).empty()) {
        return fail(Misused, "there is no command \"" + std::string(argv[1]) + "\"; see easel --help");
    }
    try {
        cli.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() != 0) return fail(Misused, std::string(error.what()) + "; see easel --help");
        cli.exit(error); // help was asked for
        return Done;
    }
    if (picture.parsed()) return render(command);
    if (infoCommand.parsed()) return info(command);
    return plugins.parsed() ? listPlugins(command) : runScript(command);
}

} // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        return fail(Failed, error.what());
    }
}
