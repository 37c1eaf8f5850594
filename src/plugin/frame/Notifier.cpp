// The notifier suite's calls.
#include "plugin/frame/Notifier.h"

#include "hostapi/AINotifierSuite.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin {

Notifier::Notifier(SPPlugin* plugin, const std::string& name, std::string_view type, const core::CallbackSlot& callback)
    : Object(host::get<&AINotifierSuite::AddNotifier>(plugin, name, std::string(type))),
      name_(name),
      type_(type),
      callback_(callback) {}

void Notifier::destroy() { remove<&AINotifierSuite::RemoveNotifier>(); }

} // namespace kzo::plugin
