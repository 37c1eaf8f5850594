// What the user does to dialogs and alerts of plug-ins, as the statement of a script that plays the user.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "session/frame/Alerts.h"
#include "session/frame/Dialogs.h"

namespace easel::app {

class DialogRecorder {
  public:
    // In the order in which dialogs and alerts open
    void opened(const session::Dialog& dialog);
    void heard(session::Dialog& dialog, const StageDialogMessage& message);
    void chosen(const session::Alert& alert, std::size_t button);

    /// The user's window did this while a dialog opened, or was open.
    void didMeanwhile(const std::string& statement);

    /// Forgets what was shown outside of an act.
    void startAct() {
        shown_.clear();
        meanwhile_.clear();
    }
    /// Gives each dialog of the act what its user did; empty when there was none.
    [[nodiscard]] std::string statement();

  private:
    struct Shown {
        const session::Dialog* dialog = nullptr; ///< null of an alert
        std::string calls{};
        std::string field{}; ///< where keys went last, quoted
        std::string text{};  ///< of that field, quoted
    };
    static void flush(Shown& shown);

    std::vector<Shown> shown_;
    std::string meanwhile_; ///< done before the alert was answered that is shown first
};

} // namespace easel::app
