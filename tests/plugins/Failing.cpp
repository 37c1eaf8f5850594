// A plug-in on the framework whose start fails or ends early, in the way that its name says. It has made one of
// everything by then, and says at its end what of that is left. Messages come to it also while it is being set up and
// while it is destroyed.
#include <cstdio>
#include <stdexcept>
#include <string>

#include "core/app/Plugin.h"
#include "core/frame/Dispatcher.h"
#include "core/frame/Log.h"
#include "core/frame/Tool.h"
#include "hostapi/SPMessages.h"

extern "C" SPErr PluginMain(const char* caller, const char* selector, void* message);

namespace {

using namespace kzo::core;

struct Possessions {
    Tool tool;
    Timer timer;
    Notifier notifier;
    Annotator annotator;
    MenuItem item;
} all;
int destroyed = 0;

std::int32_t start() {
    SPMessageData record{};
    return PluginMain("SP Interface", "Startup", &record);
}

void send(const char* caller, const char* selector) {
    SPMessageData record{};
    PluginMain(caller, selector, &record);
}

} // namespace

bool kzo::core::pluginSetup(Plugin* plugin) {
    const std::string& name = plugin->name();
    const auto nothing = callback([] { std::fprintf(stderr, "a callback ran\n"); });
    destroyed = 0;
    all.tool = Tool(-2, -2, "Tool", "", 0, 0, ToolOptions::None);
    all.timer = Timer("Timer", 1, nothing);
    all.notifier = plugin->dispatcher()->registerNotifier("Notifier", NotifierType::DocumentNew, nothing);
    all.annotator = Annotator("Annotator", nothing);
    all.item = MenuItem(BuiltinMenuGroup::Edit, "Item", nothing);
    plugin->setStartupCallback(nothing);
    if (name != "Ending") plugin->setShutdownCallback(nothing); // which is for those who have started
    if (name == "Throwing") throw std::runtime_error("set-up failed");
    if (name == "Starting") log("a start in set-up: " + std::to_string(start()));
    if (name == "Ending") send("SP Interface", "Shutdown");
    return name == "Ending";
}

void kzo::core::pluginDestroy(Plugin* plugin) {
    const bool left = !(all.tool.isEmpty() && all.timer.isEmpty() && all.notifier.isEmpty() &&
                        all.annotator.isEmpty() && all.item.isEmpty());
    std::fprintf(stderr, "destroyed %d, left %d, start %d\n", ++destroyed, int(left), int(start()));
    send("SP Interface", "Shutdown");
    send("AI Filter", "AI Go");
    if (plugin->name() == "Throwing") throw std::runtime_error("destruction failed");
}
