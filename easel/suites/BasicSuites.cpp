// The suites that are not about drawings: basic, plug-ins, interface, notifier, plug-in group, memory, stage, math.
#include <cmath>

#include "session/frame/Memory.h"
#include "session/frame/Notifiers.h"
#include "session/frame/Plugins.h"
#include "session/frame/Screen.h"
#include "session/input/Pointer.h"
#include "suites/Suites.h"
#include "suites/Thunk.h"

namespace easel::suites {

template <> struct Argument<session::Notifier&> {
    static session::Notifier& from(AINotifierHandle handle) { return found(host<session::Notifiers>().find(handle)); }
};

namespace {

// Basic

/// Runs `visit` on the suite of this name and version, if there is one.
template <class Visit> void withSuite(std::string_view name, std::int32_t version, Visit visit) {
    bool known = false;
    host<session::Tables>().each([&](auto& suite) {
        if (suite.name != name || suite.version != version || !suite.available) return;
        known = true;
        visit(suite);
    });
    require(known, kSPSuiteNotFoundErr);
}

void acquireSuite(std::string_view name, std::int32_t version, const void*& table) {
    withSuite(name, version, [&](auto& suite) {
        ++suite.acquired;
        table = &suite.table;
    });
}

void releaseSuite(std::string_view name, std::int32_t version) {
    withSuite(name, version, [&](auto& suite) {
        if (suite.acquired == 0)
            host<session::Reports>().add(session::Blame::Plugin,
                                         std::string(suite.name) + " was released more often than acquired");
        require(suite.acquired > 0);
        --suite.acquired;
    });
}

void allocateBlock(std::size_t size, void*& block) { block = host<session::Memory>().allocateBlock(size); }

/// Freeing what is not there is always the plug-in's fault, and worth a line.
void requireBlock(bool known) {
    if (!known) host<session::Reports>().add(session::Blame::Plugin, "freed a block of memory that is not there");
    require(known);
}

void freeBlock(void* block) { requireBlock(host<session::Memory>().freeBlock(block)); }

// Plug-ins

void getPluginName(session::Plugin& plugin, const char*& name) { name = plugin.name.c_str(); }
void setPluginName(session::Plugin& plugin, std::string_view name) { plugin.name = name; }

void countPlugins(std::int32_t& count) { count = static_cast<std::int32_t>(host<session::Plugins>().all().size()); }

void getNthPlugin(std::int32_t index, SPPluginRef& plugin) {
    const std::vector<session::Plugin*> known = host<session::Plugins>().all();
    require(index >= 0 && static_cast<std::size_t>(index) < known.size());
    plugin = known[static_cast<std::size_t>(index)]->handle;
}

void getPluginFileName(session::Plugin& plugin, const char*& name) { name = plugin.fileName.c_str(); }
void getPluginFilePath(session::Plugin& plugin, const char*& path) { path = plugin.filePath.c_str(); }
void getPluginOptions(session::Plugin& plugin, std::int32_t& options) { options = plugin.options; }
void setPluginOptions(session::Plugin& plugin, std::int32_t options) { plugin.options = options; }
void getPluginStarted(session::Plugin& plugin, AIBoolean& started) { started = plugin.started; }
void getPluginBroken(session::Plugin& plugin, AIBoolean& broken) { broken = plugin.broken; }

void getPluginPlatformRef(session::Plugin& plugin, void*& library) { library = plugin.library; }

void getResourceSize(session::Plugin& plugin, std::string_view type, std::int16_t number, std::int32_t& size) {
    const std::size_t bytes = session::resource(plugin, type, number).size();
    require(bytes <= INT32_MAX, kRefusedErr);
    size = static_cast<std::int32_t>(bytes);
}

void getResource(session::Plugin& plugin, std::string_view type, std::int16_t number, std::int32_t capacity,
                 void* bytes) {
    require(capacity >= 0 && bytes);
    session::resource(plugin, type, number).copy(static_cast<char*>(bytes), static_cast<std::size_t>(capacity));
}

// Interface

void setUpMessageData(session::Plugin& plugin, SPMessageData& message) {
    host<session::Messenger>().address(plugin, message);
}

void emptyMessageData(session::Plugin& plugin, SPMessageData& message) {
    require(message.SPCheck == kSPValidMessageData && message.self == plugin.handle);
    message = {};
}

void sendMessage(session::Plugin& plugin, std::string_view caller, std::string_view selector, SPMessageData& message,
                 SPErr& result) {
    require(plugin.started, kRefusedErr);
    result = host<session::Messenger>().pass(plugin, caller.data(), selector.data(), message);
}

// Notifiers

void addNotifier(session::Plugin& self, std::string_view name, std::string_view type, AINotifierHandle& handle) {
    auto notifier = std::make_unique<session::Notifier>();
    notifier->owner = &self;
    notifier->name = name;
    notifier->type = type;
    handle = host<session::Notifiers>().add(std::move(notifier)).handle;
}

void removeNotifier(session::Notifier& notifier) { host<session::Notifiers>().remove(notifier); }

// Plug-in groups

void addPluginGroup(session::Plugin& self, std::string_view name, std::int32_t options, AIPluginGroupHandle& handle) {
    for (const session::PluginGroup* other : host<session::PluginGroups>().all()) require(other->name != name);
    auto group = std::make_unique<session::PluginGroup>();
    group->owner = &self;
    group->name = name;
    group->options = options;
    handle = host<session::PluginGroups>().add(std::move(group)).handle;
}

// Memory handles

void newHandle(std::size_t size, AIMdMemoryHandle& handle) { handle = host<session::Memory>().newHandle(size); }
void disposeHandle(AIMdMemoryHandle handle) { requireBlock(host<session::Memory>().disposeHandle(handle)); }

// Stage

void getModifiers(std::uint32_t& modifiers) { modifiers = host<session::Pointer>().modifiers(); }

void setCursor(std::int32_t number) {
    host<session::Screen>().cursor = {.number = number, .plugin = nullptr, .resource = 0, .hotSpot = {}, .scale = 1};
}

void setCursorImage(session::Plugin& plugin, std::int16_t resource, const AIRealPoint& hotSpot, AIReal scale) {
    require(resource != 0 && std::isfinite(hotSpot.h) && std::isfinite(hotSpot.v) && std::isfinite(scale) && scale > 0);
    host<session::Screen>().cursor = {
        .number = 0, .plugin = plugin.handle, .resource = resource, .hotSpot = hotSpot, .scale = scale};
}

void getCursor(StageCursor& cursor) { cursor = host<session::Screen>().cursor; }

void getDisplayScale(AIReal& scale) {
    static_cast<void>(currentDocument());
    scale = host<session::Screen>().displayScale;
}

void getPointerLocation(AIRealPoint& location) {
    const model::Point place = currentDocument().toScreen(host<session::Pointer>().rawLocation());
    location = {place.x, place.y};
}

void postMouseEvent(std::int32_t event, const AIRealPoint& location) {
    require((event == kStageMouseDown || event == kStageMouseUp) && std::isfinite(location.h) &&
            std::isfinite(location.v));
    const model::Point place{location.h, location.v};
    event == kStageMouseDown ? host<session::Pointer>().postPress(place) : host<session::Pointer>().postRelease(place);
}

void monitorInput(session::Plugin& self, AIBoolean monitor) { self.monitorsInput = monitor != 0; }

void log(session::Plugin& self, std::string_view line) {
    const std::string name = self.name.empty() ? "a plug-in without a name" : self.name;
    host<session::Reports>().add(session::Blame::Plugin, name + ": " + std::string(line));
}

// Real math

void pointLength(const AIRealPoint& from, const AIRealPoint& to, AIReal& length) {
    length = std::hypot(to.h - from.h, to.v - from.v);
}

} // namespace

void fill(SPBasicSuite& suite) {
    enter<&SPBasicSuite::AcquireSuite, acquireSuite>(suite);
    enter<&SPBasicSuite::ReleaseSuite, releaseSuite>(suite);
    enter<&SPBasicSuite::AllocateBlock, allocateBlock>(suite);
    enter<&SPBasicSuite::FreeBlock, freeBlock>(suite);
}

void fill(SPPluginsSuite& suite) {
    enter<&SPPluginsSuite::GetPluginName, getPluginName>(suite);
    enter<&SPPluginsSuite::SetPluginName, setPluginName>(suite);
    enter<&SPPluginsSuite::CountPlugins, countPlugins>(suite);
    enter<&SPPluginsSuite::GetNthPlugin, getNthPlugin>(suite);
    enter<&SPPluginsSuite::GetPluginFileName, getPluginFileName>(suite);
    enter<&SPPluginsSuite::GetPluginFilePath, getPluginFilePath>(suite);
    enter<&SPPluginsSuite::GetPluginOptions, getPluginOptions>(suite);
    enter<&SPPluginsSuite::SetPluginOptions, setPluginOptions>(suite);
    enter<&SPPluginsSuite::GetPluginStarted, getPluginStarted>(suite);
    enter<&SPPluginsSuite::GetPluginBroken, getPluginBroken>(suite);
    enter<&SPPluginsSuite::GetPluginPlatformRef, getPluginPlatformRef>(suite);
    enter<&SPPluginsSuite::GetPluginResourceSize, getResourceSize>(suite);
    enter<&SPPluginsSuite::GetPluginResource, getResource>(suite);
}

void fill(SPInterfaceSuite& suite) {
    enter<&SPInterfaceSuite::SetUpMessageData, setUpMessageData>(suite);
    enter<&SPInterfaceSuite::EmptyMessageData, emptyMessageData>(suite);
    enter<&SPInterfaceSuite::SendMessage, sendMessage>(suite);
}

void fill(AINotifierSuite& suite) {
    enter<&AINotifierSuite::AddNotifier, addNotifier>(suite);
    enter<&AINotifierSuite::RemoveNotifier, removeNotifier>(suite);
}

void fill(AIPluginGroupSuite& suite) { enter<&AIPluginGroupSuite::AddAIPluginGroup, addPluginGroup>(suite); }

void fill(AIMdMemorySuite& suite) {
    enter<&AIMdMemorySuite::MdMemoryNewHandle, newHandle>(suite);
    enter<&AIMdMemorySuite::MdMemoryDisposeHandle, disposeHandle>(suite);
}

void fill(StageSuite& suite) {
    enter<&StageSuite::GetModifiers, getModifiers>(suite);
    enter<&StageSuite::SetCursor, setCursor>(suite);
    enter<&StageSuite::SetCursorImage, setCursorImage>(suite);
    enter<&StageSuite::GetCursor, getCursor>(suite);
    enter<&StageSuite::GetDisplayScale, getDisplayScale>(suite);
    enter<&StageSuite::GetPointerLocation, getPointerLocation>(suite);
    enter<&StageSuite::PostMouseEvent, postMouseEvent>(suite);
    enter<&StageSuite::MonitorInput, monitorInput>(suite);
    enter<&StageSuite::Log, log>(suite);
}

void fill(AIRealMathSuite& suite) { enter<&AIRealMathSuite::RealPointLength, pointLength>(suite); }

} // namespace easel::suites
