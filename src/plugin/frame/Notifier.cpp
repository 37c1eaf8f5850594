// The notifier suite's calls.
#include "plugin/frame/Notifier.h"

#include <algorithm>
#include <utility>

#include "hostapi/AINotifierSuite.h"
#include "plugin/frame/Messages.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin {

Notifier::Notifier(SPPlugin* plugin, const std::string& name, std::string_view type, const core::CallbackSlot& callback)
    : name_(name), type_(type), callback_(callback) {
    handle_ = host::ask<&AINotifierSuite::AddNotifier>(AINotifierHandle{}, plugin, name_.c_str(), type_.c_str());
}

void Notifier::destroy() {
    if (AINotifier* const handle = std::exchange(handle_, nullptr))
        host::call<&AINotifierSuite::RemoveNotifier>(handle);
}

void NotifierRegistry::remove(const Notifier& notifier) {
    std::erase_if(notifiers_, [&](const std::shared_ptr<Notifier>& known) { return known.get() == &notifier; });
}

void NotifierRegistry::clear() {
    for (const std::shared_ptr<Notifier>& notifier : notifiers_) notifier->destroy();
    notifiers_.clear();
}

std::vector<std::shared_ptr<Notifier>> NotifierRegistry::ofType(std::string_view type) const {
    std::vector<std::shared_ptr<Notifier>> found;
    std::copy_if(notifiers_.begin(), notifiers_.end(), std::back_inserter(found),
                 [type](const std::shared_ptr<Notifier>& notifier) { return notifier->type() == type; });
    return found;
}

std::shared_ptr<Notifier> NotifierRegistry::find(AINotifier* handle) const {
    const auto known = std::find_if(notifiers_.begin(), notifiers_.end(), [handle](const std::shared_ptr<Notifier>& n) {
        return n->handle() && n->handle() == handle;
    });
    return known == notifiers_.end() ? nullptr : *known;
}

bool NotifierRegistry::notify(const NotifyMessage& message) const {
    // Held while it works: a callback may end its own subscription.
    const std::shared_ptr<Notifier> notifier = find(message.notifier);
    if (notifier) notifier->callback().run();
    return notifier != nullptr;
}

} // namespace kzo::plugin
