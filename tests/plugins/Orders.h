// What the test plug-in "Obeying" understands: orders about its own timers, items and so on, given in a message or laid
// down for whichever of its callbacks runs next.
#pragma once

#include <cstdint>
#include <deque>
#include <set>

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
    HoldCursor,
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

struct Order {
    Deed deed;
    int place = 0; ///< of Send: the number of the receiver
    int type = 0;  ///< kind of message, 0 for none
    const char* caller = "";
    const char* selector = "";
    SPMessageData* record = nullptr;
};

/// Shared by those who give orders and those who obey.
struct Slate {
    std::deque<Order> laidDown[2]; ///< for the callbacks of each
    int done[2][deedCount] = {};   ///< by order of a message, and in a callback
    const char* names[2];
    // Of each, to be asked outside of any message
    bool (*idle[2])();                     ///< whether it knows of no message
    std::set<const void*> (*handles[2])(); ///< of all it has
};

struct OrderMessage {
    SPMessageData d;
    Slate* slate;
    int plugin; ///< number of the receiver
    Order order;
};

} // namespace obeying
