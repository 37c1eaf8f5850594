// ThirdPartyPlugin: forwards to its implementation.
#include "core/frame/ThirdPartyPlugin.h"

#include "core/Forward.h"
#include "plugin/frame/ThirdPartyPlugin.h"
#include "plugin/host/RefCountMap.h"

namespace kzo::core {

using Impl = plugin::ThirdPartyPlugin;
template class Handle<Impl>;

namespace {

constexpr std::int32_t kPluginNotFound = 0x50214664; // "P!Fd"
constexpr std::int32_t kBadParameter = 0x5061726D;   // "Parm"

} // namespace

ThirdPartyPlugin::ThirdPartyPlugin(SPPlugin* plugin) : Handle(plugin::share<Impl>(plugin)) {}

SPPlugin* ThirdPartyPlugin::spPluginRef() const { return ask(impl(), &Impl::handle); }
std::string ThirdPartyPlugin::name() const { return ask(impl(), &Impl::name); }
std::string ThirdPartyPlugin::fileName() const { return ask(impl(), &Impl::fileName); }
std::string ThirdPartyPlugin::filePath() const { return ask(impl(), &Impl::filePath); }
PluginOptions ThirdPartyPlugin::options() const { return ask(impl(), &Impl::options); }
bool ThirdPartyPlugin::started() const { return ask(impl(), &Impl::started); }
bool ThirdPartyPlugin::broken() const { return isEmpty() || impl()->broken(); }

// Callers rely on an empty handle not being a failure here.
bool ThirdPartyPlugin::prepMessageData(SPMessageData& message) const {
    return isEmpty() || impl()->prepMessageData(message);
}

bool ThirdPartyPlugin::cleanMessageData(SPMessageData& message) const {
    return isEmpty() || impl()->cleanMessageData(message);
}

std::int32_t ThirdPartyPlugin::message(const std::string& caller, const std::string& selector, SPMessageData* data,
                                       int& result) const {
    if (isEmpty()) return kPluginNotFound;
    if (caller.empty() || selector.empty()) return kBadParameter;
    return impl()->message(caller, selector, data, result);
}

} // namespace kzo::core
