// Plays a session script (JavaScript) on a running session: the face of the application that needs no display. Starts
// and ends no session itself.
#pragma once

#include <ostream>
#include <stdexcept>
#include <string>

namespace easel::session {
class Session;
}

namespace easel::script {

/// Why a script ended early. what() is one line, "FILE:LINE: reason (called from FILE:LINE)", or "FILE: reason" where
/// there is no line.
class ScriptError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Plays the script at `path` to its end; what it prints goes to `out`. Throws ScriptError.
void run(session::Session& session, const std::string& path, std::ostream& out);
/// Likewise a script that is no file; `name` is what errors call it.
void runSource(session::Session& session, std::string source, const std::string& name, std::ostream& out);

/// From now on alerts are printed and take their default buttons, and dialogs are printed by their titles and
/// cancelled.
void showWithoutAsking(session::Session& session, std::ostream& out);

} // namespace easel::script
