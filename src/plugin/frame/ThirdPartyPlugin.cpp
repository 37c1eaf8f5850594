// The calls of the plug-ins suite and the interface suite.
#include "plugin/frame/ThirdPartyPlugin.h"

#include <algorithm>

#include "hostapi/SPInterfaceSuite.h"
#include "hostapi/SPPluginsSuite.h"
#include "plugin/frame/Convert.h"

namespace kzo::plugin {

std::vector<SPPlugin*> ThirdPartyPlugin::all() {
    return host::all<&SPPluginsSuite::CountPlugins, &SPPluginsSuite::GetNthPlugin>();
}

std::string ThirdPartyPlugin::name() const { return get<&SPPluginsSuite::GetPluginName>(); }
std::string ThirdPartyPlugin::fileName() const { return get<&SPPluginsSuite::GetPluginFileName>(); }
std::string ThirdPartyPlugin::filePath() const { return get<&SPPluginsSuite::GetPluginFilePath>(); }
core::PluginOptions ThirdPartyPlugin::options() const {
    return get<&SPPluginsSuite::GetPluginOptions, core::PluginOptions>();
}
void ThirdPartyPlugin::setOptions(core::PluginOptions options) const {
    call<&SPPluginsSuite::SetPluginOptions>(options);
}
bool ThirdPartyPlugin::started() const { return get<&SPPluginsSuite::GetPluginStarted>(); }
bool ThirdPartyPlugin::broken() const { return getOr<&SPPluginsSuite::GetPluginBroken>(true); }
void* ThirdPartyPlugin::platformPlugin() const { return get<&SPPluginsSuite::GetPluginPlatformRef>(); }

std::vector<std::uint8_t> ThirdPartyPlugin::resourceData(const std::string& type, std::int16_t number) const {
    const std::int32_t size = std::max(get<&SPPluginsSuite::GetPluginResourceSize>(type, number), 0);
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size));
    void* const into = bytes.data();
    const bool read = size > 0 && call<&SPPluginsSuite::GetPluginResource>(type, number, size, into);
    return read ? bytes : std::vector<std::uint8_t>();
}

bool ThirdPartyPlugin::prepMessageData(SPMessageData& message) const {
    return call<&SPInterfaceSuite::SetUpMessageData>(&message);
}

bool ThirdPartyPlugin::cleanMessageData(SPMessageData& message) const {
    return call<&SPInterfaceSuite::EmptyMessageData>(&message);
}

std::int32_t ThirdPartyPlugin::message(const std::string& caller, const std::string& selector, SPMessageData* data,
                                       std::int32_t& result) const {
    return call<&SPInterfaceSuite::SendMessage>(caller, selector, data, &result) ? kNoErr
                                                                                 : host::monitor().refusedError();
}

} // namespace kzo::plugin
