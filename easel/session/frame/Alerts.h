// Alerts of plug-ins: a text with buttons, and who chooses one.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace easel::session {

struct Alert {
    enum class Kind { Message = 1, Error = 2, Confirm = 3, Question = 4 };

    Kind kind = Kind::Message;
    std::string text;
    std::vector<std::string> buttons; ///< at least one; the first is the default, the last is what Escape chooses
};

class Alerts {
  public:
    /// Returns the index of the chosen button.
    using Handler = std::function<std::size_t(const Alert&)>;

    Handler handler; ///< without one the default button is chosen
    int beeps = 0;

    [[nodiscard]] std::size_t show(const Alert& alert) const {
        const Handler chooses = handler; // which may set another one
        return chooses ? chooses(alert) : 0;
    }
};

} // namespace easel::session
