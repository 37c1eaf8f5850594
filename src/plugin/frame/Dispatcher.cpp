// Dispatch by the rows of the message table, and by texts for what it lacks.
#include "plugin/frame/Dispatcher.h"

#include <optional>

namespace kzo::plugin {

namespace {

std::size_t indexOf(const core::MessageRow& row) { return static_cast<std::size_t>(&row - core::messageRows().data()); }

} // namespace

Dispatcher::Dispatcher() : byRow_(core::messageRows().size()) {}

// Dispatch

/// Runs the callback that `find` returns, with the message on the stack.
template <class Find> std::int32_t Dispatcher::run(Executing here, Find find) {
    struct Scope {
        explicit Scope(Executing& message) { executing_ = &message; }
        ~Scope() { executing_ = executing_->outer; }
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;
    };
    const Scope scope(here);
    beforeEach_.run();
    const core::CallbackSlot& callback = find();
    if (!callback.get()) return kNotHandled;
    callback.run();
    return here.answer;
}

std::int32_t Dispatcher::message(const core::MessageRow& row, void* record, const core::Message* typed) {
    std::optional<ToolMessage> toolMessage;
    if (row.family == core::MessageFamily::Tool && record) toolMessage.emplace(record);
    const Executing here{.row = &row,
                         .caller = row.caller,
                         .selector = row.selector,
                         .record = record,
                         .typed = typed,
                         .toolMessage = toolMessage ? &*toolMessage : nullptr,
                         .answer = kHandled,
                         .outer = executing_};
    return run(here, [&]() -> const core::CallbackSlot& { return byRow_[indexOf(row)].first(); });
}

std::int32_t Dispatcher::message(std::string_view caller, std::string_view selector, void* record) {
    const std::string callerCopy(caller);
    const std::string selectorCopy(selector);
    const Executing here{.row = nullptr,
                         .caller = callerCopy,
                         .selector = selectorCopy,
                         .record = record,
                         .typed = nullptr,
                         .toolMessage = nullptr,
                         .answer = kHandled,
                         .outer = executing_};
    return run(here, [&] { return callbackFor(callerCopy, selectorCopy); });
}

core::CallbackSlot Dispatcher::callbackFor(std::string_view caller, std::string_view selector) const {
    for (const ReservedCaller& reserved : reservedCallers_)
        if (reserved.caller == caller) return reserved.callback;
    const auto at = others_.find(std::pair(caller, selector));
    return at == others_.end() ? core::CallbackSlot() : at->second.first();
}

// Registration

Dispatcher::Callbacks& Dispatcher::callbacksFor(std::string_view caller, std::string_view selector) {
    const core::MessageRow* const row = core::messageRow(caller, selector);
    return row ? byRow_[indexOf(*row)] : others_[std::pair(std::string(caller), std::string(selector))];
}

void Dispatcher::handle(std::string_view caller, std::string_view selector, const core::Callback& callback) {
    callbacksFor(caller, selector).own.set(callback);
}

void Dispatcher::reserve(std::string_view caller, std::string_view selector, const core::Callback& callback) {
    if (!selector.empty()) return callbacksFor(caller, selector).reserved.set(callback);
    reservedCallers_.push_back({caller, core::CallbackSlot(callback)});
    for (const core::MessageRow& row : core::messageRows())
        if (row.caller == caller) byRow_[indexOf(row)].reserved.set(callback);
}

void Dispatcher::registerMessageCallback(std::string_view caller, std::string_view selector,
                                         const core::Callback& callback) {
    callbacksFor(caller, selector).client.set(callback);
}

void Dispatcher::unregisterMessageCallback(std::string_view caller, std::string_view selector) {
    if (core::messageRow(caller, selector)) {
        callbacksFor(caller, selector).client = {};
        return;
    }
    const auto at = others_.find(std::pair(caller, selector));
    if (at == others_.end()) return;
    at->second.client = {};
    if (!at->second.first().get()) others_.erase(at);
}

void Dispatcher::clear() {
    byRow_.assign(byRow_.size(), {});
    others_.clear();
    reservedCallers_.clear();
    beforeEach_ = {};
}

// The message being handled

const Executing* Dispatcher::executingTool() {
    const Executing* at = executing_;
    while (at && !at->toolMessage) at = at->outer;
    return at;
}

void Dispatcher::setAnswer(std::int32_t answer) {
    if (executing_) executing_->answer = answer;
}

} // namespace kzo::plugin
