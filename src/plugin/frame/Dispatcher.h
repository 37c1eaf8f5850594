// Where messages meet what is registered for them. Holds the registrations and the message being handled; what a
// message means is the business of whoever registered.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/values/Callback.h"
#include "plugin/frame/Annotator.h"
#include "plugin/frame/Messages.h"

namespace kzo::plugin {

class Dispatcher {
  public:
    static constexpr std::int32_t handled = 0;
    static constexpr std::int32_t notHandled = 1;

    explicit Dispatcher(AnnotatorRegistry& annotators) : annotators_(annotators) {}

    /// Has annotations drawn anew where the view or the tool's cursor has moved since the last message, then runs the
    /// callback that is there for caller and selector. Answers `notHandled` when there is none, else what
    /// the callback left with `setAnswer`, `handled` by default. Messages nest: what the queries below say of the outer
    /// one is there again when the inner one returns, also by an exception.
    std::int32_t message(std::string_view caller, std::string_view selector, void* record);

    /// Takes messages for good, whatever a client registers: those of a caller, with no selector all of them.
    void take(std::string_view caller, std::string_view selector, const core::Callback& callback);
    void registerMessageCallback(std::string_view caller, std::string_view selector, const core::Callback& callback);
    void unregisterMessageCallback(std::string_view caller, std::string_view selector);

    // The message being handled
    [[nodiscard]] std::string_view lastCaller() const { return executing_ ? executing_->caller : std::string_view(); }
    [[nodiscard]] std::string_view lastSelector() const {
        return executing_ ? executing_->selector : std::string_view();
    }
    /// The host's record of the message, null outside of any.
    [[nodiscard]] void* lastRecord() const { return executing_ ? executing_->record : nullptr; }
    /// The innermost tool message that is being handled, or null.
    [[nodiscard]] const ToolMessage* lastToolMessage() const { return executing_ ? executing_->toolMessage : nullptr; }

    // Results of the message being handled; they are the host's once its callback has returned
    void setAnswer(std::int32_t answer);
    void setCursorLoc(const ArtboardPoint& location); ///< where the tool holds the cursor; of tool messages only

  private:
    struct Executing {
        std::string_view caller;
        std::string_view selector;
        void* record;
        ToolMessage* toolMessage;
        std::int32_t answer;
    };
    class Scope;

    struct Taken {
        std::string_view caller;
        std::string_view selector;
        core::CallbackSlot callback;
    };

    /// What runs for a message; empty for nothing.
    [[nodiscard]] core::CallbackSlot callbackOf(std::string_view caller, std::string_view selector) const;

    /// Compares pairs of texts without copying the texts that are looked for.
    struct ByTexts {
        using is_transparent = void;
        template <class A, class B> bool operator()(const A& a, const B& b) const {
            const int selectors = std::string_view(a.second).compare(b.second);
            return selectors < 0 || (selectors == 0 && std::string_view(a.first) < std::string_view(b.first));
        }
    };

    std::vector<Taken> taken_;
    AnnotatorRegistry& annotators_;
    std::map<std::pair<std::string, std::string>, core::CallbackSlot, ByTexts> callbacks_;
    Executing* executing_ = nullptr;
};

} // namespace kzo::plugin
