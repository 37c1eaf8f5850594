// What the user does, written as a session script that does the same again.
#pragma once

#include <fstream>
#include <string>
#include <string_view>

#include "model/Types.h"
#include "session/frame/Held.h"

namespace easel::app {

class Recorder {
  public:
    /// Nothing is recorded without a file. Throws session::Error when it cannot be written.
    explicit Recorder(const std::string& path);

    /// One statement, without its semicolon. Written at once, so that a crash loses none.
    void add(const std::string& statement);
    /// The name under which the script finds what is in this file now: that of a copy beside the script. The file's own
    /// where nothing is recorded.
    [[nodiscard]] std::string kept(const std::string& file);

    // Values as scripts write them
    [[nodiscard]] static std::string quoted(std::string_view text);
    [[nodiscard]] static std::string number(double value); ///< which reads back as the same
    [[nodiscard]] static std::string seconds(int milliseconds);
    [[nodiscard]] static std::string modifiers(session::Modifiers held);
    [[nodiscard]] static std::string at(model::Point location, session::Modifiers held); ///< the mouse's arguments

  private:
    std::string path_;
    std::ofstream file_;
};

} // namespace easel::app
