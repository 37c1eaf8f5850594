// Sending: head, transaction, guard, trace.
#include "session/Messenger.h"

#include <cstdio>

#include "session/Session.h"

namespace easel::session {

namespace {

/// The document's transaction around one message. Changes of a message are kept whatever the plug-in answered.
class MessageTransaction {
  public:
    explicit MessageTransaction(model::Document* document) : document_(document) {
        if (document_) document_->journal().begin();
    }
    ~MessageTransaction() {
        if (document_) document_->journal().end();
    }
    MessageTransaction(const MessageTransaction&) = delete;
    MessageTransaction& operator=(const MessageTransaction&) = delete;

  private:
    model::Document* document_;
};

} // namespace

SPErr Messenger::call(Plugin& plugin, const char* caller, const char* selector, SPMessageData& message) {
    try {
        return plugin.entry(caller, selector, &message);
    } catch (...) {
        session_.report(Blame::Plugin, plugin.name + " threw out of its entry, handling " + caller + "/" + selector);
        return kInternalErr;
    }
}

SPErr Messenger::send(Plugin& plugin, const char* caller, const char* selector, SPMessageData& message) {
    if (plugin.broken) return kRefusedErr;
    message.SPCheck = kSPValidMessageData;
    message.self = plugin.handle;
    message.globals = plugin.globals;
    message.basic = &session_.tables.basic;
    if (session_.trace) std::fprintf(stderr, "%*s%s: %s/%s\n", 2 * depth_, "", plugin.name.c_str(), caller, selector);

    SPErr answer = kNoErr;
    {
        const MessageTransaction transaction(session_.document());
        ++depth_;
        answer = call(plugin, caller, selector, message);
        --depth_;
    }
    plugin.globals = message.globals;
    if (session_.trace)
        std::fprintf(stderr, "%*s%s: %s/%s = %d\n", 2 * depth_, "", plugin.name.c_str(), caller, selector, answer);

    while (depth_ == 0 && !afterwards_.empty()) {
        const auto action = std::move(afterwards_.front());
        afterwards_.erase(afterwards_.begin());
        action();
    }
    return answer;
}

void Messenger::afterwards(std::function<void()> action) { afterwards_.push_back(std::move(action)); }

} // namespace easel::session
