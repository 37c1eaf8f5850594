// What the user does to dialogs and alerts of plug-ins, as the statement of a script that plays the user.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "session/frame/Alerts.h"
#include "session/frame/Dialogs.h"

namespace easel::app {

class DialogRecorder {
  public:
    /// A dialog or, without one, an alert.
    void opened(const session::Dialog* dialog);
    void heard(session::Dialog& dialog, const StageDialogMessage& message);
    void chosen(const session::Alert& alert, std::size_t button);
    void closed();

    /// The user's window did this while a dialog was open.
    void didMeanwhile(const std::string& statement);
    /// Time that passed for timers while one was open.
    void pass(int milliseconds) { passed_ += milliseconds; }
    /// What of it is in no statement.
    [[nodiscard]] int takePassed() { return std::exchange(passed_, 0); }

    /// Forgets what was shown outside of an act.
    void startAct() {
        shown_.clear();
        open_.clear();
    }
    [[nodiscard]] bool anyShown() const { return !shown_.empty(); }
    /// Gives each dialog of the act what its user did; empty when there was none.
    [[nodiscard]] std::string statement();

  private:
    struct Shown {
        const session::Dialog* dialog = nullptr; ///< null of an alert
        std::string calls{};
        std::string field{}; ///< where keys went last, quoted
        std::string text{};  ///< of that field, quoted
    };
    /// What was typed, and the time until now.
    void flush(Shown& shown);

    std::vector<Shown> shown_;      ///< in the order in which they opened
    std::vector<std::size_t> open_; ///< of those; the last is the topmost
    int passed_ = 0;
};

} // namespace easel::app
