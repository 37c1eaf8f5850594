// Callbacks for key and mouse presses anywhere in the application, as the platform reports them.
#pragma once

#include <cstdint>
#include <map>

#include "core/values/Callback.h"
#include "core/values/VirtualKey.h"

struct SPPlugin;

namespace kzo::plugin {

/// A key or a mouse button.
struct Input {
    enum class Kind : std::uint8_t { Key, Button };

    explicit Input(core::VirtualKey key) : kind(Kind::Key), code(static_cast<std::int32_t>(key)) {}
    explicit Input(core::MouseButton button) : kind(Kind::Button), code(static_cast<std::int32_t>(button)) {}

    bool operator==(const Input&) const = default;

    Kind kind;
    std::int32_t code;
};

class Monitors {
  public:
    explicit Monitors(SPPlugin* plugin) : plugin_(plugin) {}

    /// Returns the monitor's number, counted from 1, or 0 when the platform tells of no input.
    std::uint32_t add(const Input& input, const core::CallbackSlot& callback);
    [[nodiscard]] core::Callback* find(Input::Kind kind, std::uint32_t id) const; ///< null when there is none
    void remove(Input::Kind kind, std::uint32_t id);
    void clear();

    /// Runs the monitors of this key or button in the order in which they were added. They may come and go meanwhile.
    void pressed(const Input& input) const;

  private:
    struct Monitor {
        Input input;
        core::CallbackSlot callback;
    };

    SPPlugin* plugin_;
    std::map<std::uint32_t, Monitor> monitors_;
    std::uint32_t lastId_ = 0;
};

} // namespace kzo::plugin
