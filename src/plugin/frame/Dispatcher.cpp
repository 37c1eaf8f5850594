// Dispatch by caller and selector.
#include "plugin/frame/Dispatcher.h"

#include <utility>

namespace kzo::plugin {

/// One message on the stack of those being handled.
class Dispatcher::Scope {
  public:
    Scope(Dispatcher& dispatcher, std::string_view caller, std::string_view selector, void* record,
          ToolMessage* toolMessage)
        : dispatcher_(dispatcher),
          outer_(dispatcher.executing_),
          here_{caller, selector, record, toolMessage, handled} {
        dispatcher_.executing_ = &here_;
    }
    ~Scope() { dispatcher_.executing_ = outer_; }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

    [[nodiscard]] std::int32_t answer() const { return here_.answer; }

  private:
    Dispatcher& dispatcher_;
    Executing* outer_;
    Executing here_;
};

std::int32_t Dispatcher::message(std::string_view caller, std::string_view selector, void* record) {
    std::optional<ToolMessage> ownToolMessage;
    if (caller == message::tool && record) ownToolMessage.emplace(record);
    ToolMessage* const outer = executing_ ? executing_->toolMessage : nullptr;
    const Scope scope(*this, caller, selector, record, ownToolMessage ? &*ownToolMessage : outer);
    annotators_.follow(ownToolMessage ? &*ownToolMessage : nullptr);

    // A copy, since the callback may unregister itself.
    const core::CallbackSlot running = callbackOf(caller, selector);
    if (!running.get()) return notHandled;
    running.run();
    if (ownToolMessage) ownToolMessage->copyBack(record);
    return scope.answer();
}

core::CallbackSlot Dispatcher::callbackOf(std::string_view caller, std::string_view selector) const {
    for (const Taken& taken : taken_)
        if (taken.caller == caller && (taken.selector.empty() || taken.selector == selector)) return taken.callback;
    const auto at = callbacks_.find(std::pair(caller, selector));
    return at == callbacks_.end() ? core::CallbackSlot() : at->second;
}

void Dispatcher::take(std::string_view caller, std::string_view selector, const core::Callback& callback) {
    taken_.push_back({caller, selector, core::CallbackSlot(callback)});
}

void Dispatcher::registerMessageCallback(std::string_view caller, std::string_view selector,
                                         const core::Callback& callback) {
    callbacks_.insert_or_assign(std::pair(std::string(caller), std::string(selector)), core::CallbackSlot(callback));
}

void Dispatcher::unregisterMessageCallback(std::string_view caller, std::string_view selector) {
    const auto at = callbacks_.find(std::pair(caller, selector));
    if (at != callbacks_.end()) callbacks_.erase(at);
}

void Dispatcher::setAnswer(std::int32_t answer) {
    if (executing_) executing_->answer = answer;
}

void Dispatcher::setCursorLoc(const ArtboardPoint& location) {
    if (lastCaller() == message::tool && executing_->toolMessage) executing_->toolMessage->cursor = location;
}

} // namespace kzo::plugin
