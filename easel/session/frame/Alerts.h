// Alerts of plug-ins: a text with buttons, and who chooses one.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
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
    /// Returns the index of the button that was chosen, or nothing where nobody was there to choose.
    using Handler = std::function<std::optional<std::size_t>(const Alert&)>;

    Handler handler;
    int beeps = 0;

    [[nodiscard]] std::optional<std::size_t> show(const Alert& alert) const {
        const Handler chooses = handler; // which may set another one
        return chooses ? chooses(alert) : std::nullopt;
    }
};

} // namespace easel::session
