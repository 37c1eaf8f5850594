// What the user is told of misbehaviour: one line each, on standard error and kept for scripts and tests.
#pragma once

#include <string>
#include <vector>

namespace easel::session {

/// Whose fault a report is about.
enum class Blame { Host, Plugin, UserData };

/// What is said of a plug-in's wrong calls, which are refused in any case.
enum class CheckLevel { Refuse, Full };

class Reports {
  public:
    void add(Blame blame, const std::string& text);
    [[nodiscard]] const std::vector<std::string>& lines() const { return lines_; }

    CheckLevel checkLevel = CheckLevel::Full;

  private:
    std::vector<std::string> lines_;
};

} // namespace easel::session
