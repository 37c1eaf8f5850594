// What the test plug-in "Obeying" understands: orders about its own timers, items and so on, given in a message or put
// down for a callback, and the slate on which it notes every callback that runs.
#pragma once

#include <cstdint>
#include <vector>

#include "hostapi/SPMessages.h"

namespace obeying {

constexpr const char* caller = "Test Orders";
constexpr const char* selector = "Obey";

constexpr int places = 3; ///< for each sort of thing that it can have

enum class Deed {
    Throw,
    AddTimer, ///< all that add something destroy what has its place
    ActivateTimer,
    DeactivateTimer,
    RegisterTimer,
    UnregisterTimer,
    DestroyTimer,
    Schedule,
    AddItem,
    DestroyItem,
    AddNotifier,
    DestroyNotifier,
    AddTool,
    DestroyTool,
    AddAnnotator,
    DestroyAnnotator,
    AddMonitor, ///< of the key that has the place's number
    RemoveMonitor,
    Register, ///< a callback for messages of a kind, or without one of `caller` and `selector`
    Unregister,
    Dispatch, ///< hands `record` to its own dispatcher
    Send      ///< sends `record` to another plug-in
};
constexpr int deedCount = static_cast<int>(Deed::Send) + 1;
constexpr const char* deedNames[deedCount] = {"throw",          "add timer",
                                              "activate timer", "deactivate timer",
                                              "register timer", "unregister timer",
                                              "destroy timer",  "schedule",
                                              "add item",       "destroy item",
                                              "add notifier",   "destroy notifier",
                                              "add tool",       "destroy tool",
                                              "add annotator",  "destroy annotator",
                                              "add monitor",    "remove monitor",
                                              "register",       "unregister",
                                              "dispatch",       "send"};

struct Order {
    Deed deed;
    int place = 0; ///< of Send: the number of the receiver
    int type = 0;  ///< kind of message, 0 for none
    const char* caller = "";
    const char* selector = "";
    SPMessageData* record = nullptr;
    bool done = false;
    // The reply
    void* handle = nullptr;
    std::int32_t answer = -1;
    int result = -1;
};

/// What a callback is known by.
enum Bell {
    Selected = 1,
    Updating,
    PreShutdown,
    Obeyed,
    Before = 10, ///< a tool's event, added
    After = 20,
    OfTool = 30, ///< ten times the place added, and the event
    OfTimer = 100,
    Scheduled = 110,
    OfItem = 120,
    OfNotifier = 130,
    OfAnnotator = 140,
    OfMonitor = 150,
    OfMessage = 200 ///< the place added
};

struct Ring {
    int plugin;
    int bell;
    int message;     ///< kind of the last message, 0 for none
    int toolMessage; ///< the same of the last tool message

    bool operator==(const Ring&) const = default;
};

/// Shared by those who give orders and those who obey.
struct Slate {
    /// To be done when this callback runs.
    struct Armed {
        int plugin;
        int bell;
        Order* order;
    };
    std::vector<Ring> rings;
    std::vector<Armed> armed;
    const char* names[2];
    bool (*idle[2])(); ///< whether the plug-in knows of no message; to be asked outside of any
};

struct OrderMessage {
    SPMessageData d;
    Slate* slate;
    int plugin; ///< number of the receiver
    Order order;
};

} // namespace obeying
