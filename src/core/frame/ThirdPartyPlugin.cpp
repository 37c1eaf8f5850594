// ThirdPartyPlugin: sharing of the implementation, and forwarding to it.
#include "core/frame/ThirdPartyPlugin.h"

#include "core/Forward.h"
#include "plugin/frame/BasePlugin.h"
#include "plugin/frame/ThirdPartyPlugin.h"

namespace kzo::core {

/// What the copies of a handle hold together: their part in what all handles on the plug-in share.
class __IntThirdPartyPluginData : public plugin::SharedThirdPartyPlugin {
  public:
    using SharedImpl::SharedImpl;
};

namespace {

using Impl = plugin::ThirdPartyPlugin;

constexpr std::int32_t pluginNotFound = 0x50214664; // "P!Fd"
constexpr std::int32_t badParameter = 0x5061726D;   // "Parm"

Impl* implOf(const std::shared_ptr<__IntThirdPartyPluginData>& data) { return data ? data->get() : nullptr; }

} // namespace

ThirdPartyPlugin::ThirdPartyPlugin(SPPlugin* plugin)
    : data_(plugin && plugin::frame() ? std::make_shared<__IntThirdPartyPluginData>(plugin) : nullptr) {}

bool ThirdPartyPlugin::isEmpty() const { return !implOf(data_); }
SPPlugin* ThirdPartyPlugin::spPluginRef() const { return ask(implOf(data_), &Impl::handle); }
std::string ThirdPartyPlugin::name() const { return ask(implOf(data_), &Impl::name); }
std::string ThirdPartyPlugin::fileName() const { return ask(implOf(data_), &Impl::fileName); }
std::string ThirdPartyPlugin::filePath() const { return ask(implOf(data_), &Impl::filePath); }
PluginOptions ThirdPartyPlugin::options() const { return ask(implOf(data_), &Impl::options); }
bool ThirdPartyPlugin::started() const { return ask(implOf(data_), &Impl::started); }
bool ThirdPartyPlugin::broken() const { return isEmpty() || implOf(data_)->broken(); }

// Callers rely on an empty handle not being a failure here.
bool ThirdPartyPlugin::prepMessageData(SPMessageData& message) const {
    return isEmpty() || implOf(data_)->prepMessageData(message);
}

bool ThirdPartyPlugin::cleanMessageData(SPMessageData& message) const {
    return isEmpty() || implOf(data_)->cleanMessageData(message);
}

std::int32_t ThirdPartyPlugin::message(const std::string& caller, const std::string& selector, SPMessageData* data,
                                       int& result) const {
    if (isEmpty()) return pluginNotFound;
    if (caller.empty() || selector.empty()) return badParameter;
    return implOf(data_)->message(caller, selector, data, result);
}

} // namespace kzo::core
