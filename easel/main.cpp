// The command line. Answers 0 when all went well, 1 after an error (one line on standard error), 2 when it was called
// in a way it does not know.
#include <CLI/CLI.hpp>

#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "script/Script.h"
#include "session/Session.h"

namespace {

enum ExitCode { Done = 0, Failed = 1, Misused = 2 };

ExitCode fail(ExitCode code, std::string_view line) {
    std::cerr << "easel: " << line << '\n';
    return code;
}

struct Command {
    std::string script;
    std::vector<std::string> plugins;
};

ExitCode play(const Command& command) {
    easel::session::Session session;
    const char* const trace = std::getenv("EASEL_TRACE");
    session.trace = trace != nullptr && std::string_view(trace) == "1";
    for (const std::string& bundle : command.plugins) session.load(bundle);
    ExitCode code = Done;
    for (const std::string& line : session.start()) code = fail(Failed, line);
    if (code == Done) easel::script::run(session, command.script, std::cout);
    session.quit();
    return code;
}

ExitCode obey(int argc, char** argv) {
    Command command;
    CLI::App cli{"Easel, a drawing application that plays its part without a window", "easel"};
    cli.require_subcommand(1);
    CLI::App& run = *cli.add_subcommand("run", "Plays a session script");
    run.add_option("SCRIPT", command.script, "JavaScript; see docs/session-scripts.md")->required();
    run.add_option("--plugin", command.plugins, "A plug-in bundle (NAME.aip); can be given more than once")
        ->allow_extra_args(false);
    try {
        cli.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() != 0) return fail(Misused, std::string(error.what()) + "; see easel --help");
        cli.exit(error); // help was asked for
        return Done;
    }
    return play(command);
}

} // namespace

int main(int argc, char** argv) {
    try {
        return obey(argc, argv);
    } catch (const std::exception& error) {
        return fail(Failed, error.what());
    }
}
