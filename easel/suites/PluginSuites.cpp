// What plug-ins are to the host and to one another: the plug-ins, interface, notifier and math suites.
#include <cmath>

#include "hostapi/AINotifierSuite.h"
#include "hostapi/AIRealMathSuite.h"
#include "hostapi/SPInterfaceSuite.h"
#include "hostapi/SPPluginsSuite.h"
#include "session/frame/Notifiers.h"
#include "session/frame/Plugins.h"
#include "suites/Enter.h"

namespace easel::suites {

using session::Messenger;
using session::Notifier;
using session::Notifiers;
using session::Plugin;
using session::Plugins;

template <> struct Argument<Notifier&> {
    static Notifier& from(AINotifierHandle handle) { return found(host<Notifiers>().find(handle)); }
};

namespace {

// Plug-ins

Plugin* getNthPlugin(std::int32_t index) {
    const std::vector<Plugin*> known = host<Plugins>().all();
    require(index >= 0 && static_cast<std::size_t>(index) < known.size());
    return known[static_cast<std::size_t>(index)];
}

std::int32_t getResourceSize(Plugin& plugin, std::string_view type, std::int16_t number) {
    const std::size_t bytes = session::resource(plugin, type, number).size();
    require(bytes <= INT32_MAX, kRefusedErr);
    return static_cast<std::int32_t>(bytes);
}

void getResource(Plugin& plugin, std::string_view type, std::int16_t number, std::int32_t capacity, void* bytes) {
    require(capacity >= 0 && bytes);
    session::resource(plugin, type, number).copy(static_cast<char*>(bytes), static_cast<std::size_t>(capacity));
}

// Interface

void emptyMessageData(Plugin& plugin, SPMessageData& message) {
    require(message.SPCheck == kSPValidMessageData && message.self == plugin.handle);
    message = {};
}

SPErr sendMessage(Plugin& plugin, std::string_view caller, std::string_view selector, SPMessageData& message) {
    require(plugin.started, kRefusedErr);
    return host<Messenger>().pass(plugin, caller.data(), selector.data(), message);
}

// Notifiers

Notifier& addNotifier(Plugin& self, std::string_view name, std::string_view type) {
    auto notifier = std::make_unique<Notifier>();
    notifier->owner = &self;
    notifier->name = name;
    notifier->type = type;
    return host<Notifiers>().add(std::move(notifier));
}

} // namespace

template <> void fill(SPPluginsSuite& suite) {
    enter<&SPPluginsSuite::GetPluginName, &Plugin::name>(suite);
    enter<&SPPluginsSuite::SetPluginName>(suite, [](Plugin& plugin, std::string_view name) { plugin.name = name; });
    enter<&SPPluginsSuite::CountPlugins>(suite, [] { return host<Plugins>().all().size(); });
    enter<&SPPluginsSuite::GetNthPlugin, getNthPlugin>(suite);
    enter<&SPPluginsSuite::GetPluginFileName, &Plugin::fileName>(suite);
    enter<&SPPluginsSuite::GetPluginFilePath, &Plugin::filePath>(suite);
    enter<&SPPluginsSuite::GetPluginOptions, &Plugin::options>(suite);
    enter<&SPPluginsSuite::SetPluginOptions>(suite, [](Plugin& plugin, std::int32_t bits) { plugin.options = bits; });
    enter<&SPPluginsSuite::GetPluginStarted, &Plugin::started>(suite);
    enter<&SPPluginsSuite::GetPluginBroken, &Plugin::broken>(suite);
    enter<&SPPluginsSuite::GetPluginPlatformRef, &Plugin::library>(suite);
    enter<&SPPluginsSuite::GetPluginResourceSize, getResourceSize>(suite);
    enter<&SPPluginsSuite::GetPluginResource, getResource>(suite);
}

template <> void fill(SPInterfaceSuite& suite) {
    enter<&SPInterfaceSuite::SetUpMessageData, &Messenger::address>(suite);
    enter<&SPInterfaceSuite::EmptyMessageData, emptyMessageData>(suite);
    enter<&SPInterfaceSuite::SendMessage, sendMessage>(suite);
}

template <> void fill(AINotifierSuite& suite) {
    enter<&AINotifierSuite::AddNotifier, addNotifier>(suite);
    enter<&AINotifierSuite::RemoveNotifier>(suite, [](Notifier& notifier) { host<Notifiers>().remove(notifier); });
}

template <> void fill(AIRealMathSuite& suite) {
    enter<&AIRealMathSuite::RealPointLength>(
        suite, [](const AIRealPoint& from, const AIRealPoint& to) { return std::hypot(to.h - from.h, to.v - from.v); });
}

} // namespace easel::suites
