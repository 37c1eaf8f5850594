// Callbacks by caller and selector, and the stack of messages being handled.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/values/Callback.h"
#include "core/values/MessageType.h"
#include "plugin/frame/Messages.h"

namespace kzo::core {
class Message;
}

namespace kzo::plugin {

/// A message being handled. What it says is copied on arrival, since a host may use its texts and its record again
/// while nested messages are handled.
struct Executing {
    const core::MessageRow* row; ///< null for a pair that the table lacks
    std::string_view caller;
    std::string_view selector;
    void* record;                   ///< the host's own
    const core::Message* typed;     ///< the facade's object for it, or null
    const ToolMessage* toolMessage; ///< null unless it is one of a tool's
    std::int32_t answer;
    Executing* outer;
};

/// Messages nest: what is known of the outer one is there again when the inner one returns, also by an exception.
class Dispatcher {
  public:
    static constexpr std::int32_t kHandled = 0;
    static constexpr std::int32_t kNotHandled = 1;

    Dispatcher();

    // Dispatch
    /// Runs the callback that is there for the message. Returns `kNotHandled` when there is none, else what the
    /// callback left with `setAnswer`, `kHandled` by default.
    std::int32_t message(const core::MessageRow& row, void* record, const core::Message* typed);
    std::int32_t message(std::string_view caller, std::string_view selector, void* record); ///< not in the table
    /// Runs before each message's callback, whether or not there is one.
    void setBeforeEach(const core::Callback& callback) { beforeEach_.set(callback); }

    // Registration
    /// The framework's own callback. A client's takes its place until that is unregistered.
    void handle(std::string_view caller, std::string_view selector, const core::Callback& callback);
    /// A callback of the framework's that no client's replaces, for messages of a caller, without a selector for all.
    void reserve(std::string_view caller, std::string_view selector, const core::Callback& callback);
    void registerMessageCallback(std::string_view caller, std::string_view selector, const core::Callback& callback);
    void unregisterMessageCallback(std::string_view caller, std::string_view selector);
    void clear(); ///< forgets all callbacks

    // The message being handled
    /// The innermost one; null outside of any. Of the process, since a message may outlive the dispatcher, when it
    /// leads to shut-down.
    [[nodiscard]] static const Executing* executing() { return executing_; }
    /// The innermost one of a tool, or null.
    [[nodiscard]] static const Executing* executingTool();
    static void setAnswer(std::int32_t answer);

  private:
    struct Callbacks {
        core::CallbackSlot reserved;
        core::CallbackSlot client;
        core::CallbackSlot own;

        [[nodiscard]] const core::CallbackSlot& first() const {
            return reserved.get() ? reserved : client.get() ? client : own;
        }
    };
    struct ReservedCaller {
        std::string_view caller;
        core::CallbackSlot callback;
    };
    /// Compares pairs of texts without copying the texts that are looked for.
    struct ByTexts {
        using is_transparent = void;
        template <class A, class B> bool operator()(const A& a, const B& b) const {
            const int selectors = std::string_view(a.second).compare(b.second);
            return selectors < 0 || (selectors == 0 && std::string_view(a.first) < std::string_view(b.first));
        }
    };

    [[nodiscard]] Callbacks& callbacksFor(std::string_view caller, std::string_view selector);
    /// Of a message that the table lacks.
    [[nodiscard]] core::CallbackSlot callbackFor(std::string_view caller, std::string_view selector) const;
    template <class Find> std::int32_t run(Executing here, Find find);

    std::vector<Callbacks> byRow_; ///< in the order of the table
    std::map<std::pair<std::string, std::string>, Callbacks, ByTexts> others_;
    std::vector<ReservedCaller> reservedCallers_;
    core::CallbackSlot beforeEach_;

    static inline Executing* executing_ = nullptr;
};

} // namespace kzo::plugin
