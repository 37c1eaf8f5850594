// The calls of the plug-ins suite and the interface suite.
#include "plugin/frame/ThirdPartyPlugin.h"

#include <algorithm>

#include "hostapi/SPInterfaceSuite.h"
#include "hostapi/SPPluginsSuite.h"
#include "plugin/frame/Convert.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin {

std::vector<SPPlugin*> ThirdPartyPlugin::all() {
    std::vector<SPPlugin*> plugins;
    const auto count = host::ask<&SPPluginsSuite::CountPlugins>(std::int32_t{0});
    for (std::int32_t i = 0; i < count; ++i)
        if (SPPlugin* const plugin = host::ask<&SPPluginsSuite::GetNthPlugin>(SPPluginRef{}, i))
            plugins.push_back(plugin);
    return plugins;
}

std::string ThirdPartyPlugin::name() const { return host::ask<&SPPluginsSuite::GetPluginName>("", plugin_); }
std::string ThirdPartyPlugin::fileName() const { return host::ask<&SPPluginsSuite::GetPluginFileName>("", plugin_); }
std::string ThirdPartyPlugin::filePath() const { return host::ask<&SPPluginsSuite::GetPluginFilePath>("", plugin_); }

core::PluginOptions ThirdPartyPlugin::options() const {
    return host::get<&SPPluginsSuite::GetPluginOptions, core::PluginOptions>(plugin_);
}

void ThirdPartyPlugin::setOptions(core::PluginOptions options) const {
    host::call<&SPPluginsSuite::SetPluginOptions>(plugin_, options);
}

bool ThirdPartyPlugin::started() const {
    return host::ask<&SPPluginsSuite::GetPluginStarted>(AIBoolean{0}, plugin_) != 0;
}

bool ThirdPartyPlugin::broken() const {
    return host::ask<&SPPluginsSuite::GetPluginBroken>(AIBoolean{1}, plugin_) != 0;
}

void* ThirdPartyPlugin::platformPlugin() const {
    return host::ask<&SPPluginsSuite::GetPluginPlatformRef>(static_cast<void*>(nullptr), plugin_);
}

std::vector<std::uint8_t> ThirdPartyPlugin::resourceData(const std::string& type, std::int16_t number) const {
    const auto size = host::ask<&SPPluginsSuite::GetPluginResourceSize>(std::int32_t{0}, plugin_, type.c_str(), number);
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(std::max(size, 0)));
    void* const into = bytes.data();
    const bool read =
        !bytes.empty() && host::call<&SPPluginsSuite::GetPluginResource>(plugin_, type.c_str(), number, size, into);
    return read ? bytes : std::vector<std::uint8_t>();
}

bool ThirdPartyPlugin::prepMessageData(SPMessageData& message) const {
    return host::call<&SPInterfaceSuite::SetUpMessageData>(plugin_, &message);
}

bool ThirdPartyPlugin::cleanMessageData(SPMessageData& message) const {
    return host::call<&SPInterfaceSuite::EmptyMessageData>(plugin_, &message);
}

std::int32_t ThirdPartyPlugin::message(const std::string& caller, const std::string& selector, SPMessageData* data,
                                       std::int32_t& result) const {
    const bool sent =
        host::call<&SPInterfaceSuite::SendMessage>(plugin_, caller.c_str(), selector.c_str(), data, &result);
    return sent ? kNoErr : host::monitor().refusedError();
}

} // namespace kzo::plugin
