// A plug-in on the framework that does what it is told, and notes which callbacks run. Built as several bundles.
#include <map>
#include <memory>
#include <stdexcept>
#include <string>

#include "core/app/Illustrator.h"
#include "core/app/Plugin.h"
#include "core/frame/Dispatcher.h"
#include "core/frame/Messages.h"
#include "core/frame/Timer.h"
#include "core/frame/Tool.h"
#include "plugins/Orders.h"

namespace obeying {

using namespace kzo::core;

using Around = void (Plugin::*)(const Callback&);
using Own = void (Tool::*)(const Callback&);

struct Event {
    Around before;
    Own own;
    Around after;
};

/// In the order of the host's selectors.
const Event events[] = {
    {&Plugin::setToolPreEditedCallback, &Tool::setEditCallback, &Plugin::setToolPostEditedCallback},
    {&Plugin::setToolPreTrackedCallback, &Tool::setTrackCallback, &Plugin::setToolPostTrackedCallback},
    {&Plugin::setToolPreMouseDownCallback, &Tool::setMouseDownCallback, &Plugin::setToolPostMouseDownCallback},
    {&Plugin::setToolPreDraggedCallback, &Tool::setDragCallback, &Plugin::setToolPostDraggedCallback},
    {&Plugin::setToolPreMouseUpCallback, &Tool::setMouseUpCallback, &Plugin::setToolPostMouseUpCallback},
    {&Plugin::setToolPreSelectedCallback, &Tool::setSelectionCallback, &Plugin::setToolPostSelectedCallback},
    {&Plugin::setToolPreReselectedCallback, &Tool::setReselectionCallback, &Plugin::setToolPostReselectedCallback},
    {&Plugin::setToolPreDeselectedCallback, &Tool::setDeselectionCallback, &Plugin::setToolPostDeselectedCallback},
    {&Plugin::setToolPreDiameterDecreasedCallback, &Tool::setDecreaseDiameterCallback,
     &Plugin::setToolPostDiameterDecreasedCallback},
    {&Plugin::setToolPreDiameterIncreasedCallback, &Tool::setIncreaseDiameterCallback,
     &Plugin::setToolPostDiameterIncreasedCallback},
};

class Obeying {
  public:
    explicit Obeying(Plugin* plugin) : plugin_(*plugin) {
        plugin_.dispatcher()->registerMessageCallback(caller, selector, __Callback<Obeying>(this, &Obeying::receive));
        plugin_.setMenuItemSelectedCallback(bell(Selected));
        plugin_.setMenuItemsUpdateCallback(bell(Updating));
        plugin_.setPreShutdownCallback(bell(PreShutdown));
        int number = 0;
        for (const Event& event : events) {
            (plugin_.*event.before)(bell(Before + number));
            (plugin_.*event.after)(bell(After + number++));
        }
    }

  private:
    struct Ringer {
        Obeying& owner;
        int bell;
        void ring() { owner.rang(bell); }
    };

    __Callback<Ringer> bell(int number) {
        return {&ringers_.try_emplace(number, Ringer{*this, number}).first->second, &Ringer::ring};
    }

    void receive() {
        auto* const message = static_cast<OrderMessage*>(plugin_.dispatcher()->lastRecord());
        slate_ = message->slate;
        number_ = message->plugin;
        slate_->idle[number_] = [] { return !Dispatcher::lastMessage() && !Dispatcher::lastToolMessage(); };
        rang(Obeyed);
        obey(message->order);
    }

    void rang(int bell) {
        if (!slate_) return; // not told yet where to write
        const auto kind = [](const Message* message) { return message ? int(message->type()) : 0; };
        slate_->rings.push_back({number_, bell, kind(Dispatcher::lastMessage()), kind(Dispatcher::lastToolMessage())});
        for (const Slate::Armed& armed : slate_->armed)
            if (armed.plugin == number_ && armed.bell == bell && !armed.order->done) return obey(*armed.order);
    }

    void obey(Order& order) {
        order.done = true;
        Timer& timer = timers_[order.place];
        MenuItem& item = items_[order.place];
        Notifier& notifier = notifiers_[order.place];
        Tool& tool = tools_[order.place];
        Annotator& annotator = annotators_[order.place];
        Dispatcher& dispatcher = *plugin_.dispatcher();
        const auto type = MessageType(order.type);
        switch (order.deed) {
        case Deed::Throw: throw std::runtime_error("as ordered");
        case Deed::AddTimer:
            timer.destroy();
            timer = Timer("Timer", 1, bell(OfTimer + order.place));
            order.handle = timer.aiTimerHandle();
            break;
        case Deed::ActivateTimer: timer.activate(); break;
        case Deed::DeactivateTimer: timer.deactivate(); break;
        case Deed::RegisterTimer: dispatcher.registerTimer(timer); break;
        case Deed::UnregisterTimer: dispatcher.unregisterTimer(timer); break;
        case Deed::DestroyTimer: timer.destroy(); break;
        case Deed::Schedule: dispatcher.scheduleCallback(bell(Scheduled), 1); break;
        case Deed::AddItem:
            item.destroy();
            item = MenuItem(BuiltinMenuGroup::Edit, "Item", bell(OfItem + order.place));
            order.handle = item.aiMenuItemHandle();
            break;
        case Deed::DestroyItem: item.destroy(); break;
        case Deed::AddNotifier:
            notifier.destroy();
            notifier = dispatcher.registerNotifier("N", NotifierType::DocumentSaved, bell(OfNotifier + order.place));
            order.handle = notifier.aiNotifierHandle();
            break;
        case Deed::DestroyNotifier: dispatcher.unregisterNotifier(notifier); break;
        case Deed::AddTool:
            tool.destroy();
            tool = Tool(-2, -2, "Tool " + std::to_string(order.place), "", 0, 0, ToolOptions::None);
            bindTool(tool, OfTool + 10 * order.place);
            order.handle = tool.aiToolHandle();
            break;
        case Deed::DestroyTool: tool.destroy(); break;
        case Deed::AddAnnotator:
            annotator.destroy();
            annotator = Annotator("Marks", bell(OfAnnotator + order.place));
            order.handle = annotator.aiAnnotatorHandle();
            break;
        case Deed::DestroyAnnotator: annotator.destroy(); break;
        case Deed::AddMonitor:
            dispatcher.removeKeypressMonitor(monitors_[order.place]);
            monitors_[order.place] =
                dispatcher.addKeypressMonitor(VirtualKey(order.place), bell(OfMonitor + order.place));
            break;
        case Deed::RemoveMonitor: dispatcher.removeKeypressMonitor(monitors_[order.place]); break;
        case Deed::Register:
            if (order.type)
                dispatcher.registerMessageCallback(type, bell(OfMessage + order.type));
            else
                dispatcher.registerMessageCallback(order.caller, order.selector, bell(OfMessage + order.place));
            break;
        case Deed::Unregister:
            order.type ? dispatcher.unregisterMessageCallback(type)
                       : dispatcher.unregisterMessageCallback(order.caller, order.selector);
            break;
        case Deed::Dispatch:
            order.answer = order.type ? dispatcher.message(type, order.record)
                                      : dispatcher.message(order.caller, order.selector, order.record);
            break;
        case Deed::Send: send(order); break;
        }
    }

    void bindTool(Tool& tool, int first) {
        for (const Event& event : events) (tool.*event.own)(bell(first++));
    }

    void send(Order& order) {
        const ThirdPartyPlugin receiver = Illustrator::instance()->allPlugins()[slate_->names[order.place]];
        if (!receiver.started() || receiver.broken() || !receiver.prepMessageData(*order.record)) return;
        order.answer = receiver.message(order.caller, order.selector, order.record, order.result);
        receiver.cleanMessageData(*order.record);
    }

    Plugin& plugin_;
    Slate* slate_ = nullptr;
    int number_ = 0;
    std::map<int, Ringer> ringers_;
    Timer timers_[places];
    MenuItem items_[places];
    Notifier notifiers_[places];
    Tool tools_[places];
    Annotator annotators_[places];
    std::uint32_t monitors_[places] = {};
};

std::unique_ptr<Obeying> theOne;

} // namespace obeying

bool kzo::core::pluginSetup(Plugin* plugin) {
    obeying::theOne = std::make_unique<obeying::Obeying>(plugin);
    return true;
}

void kzo::core::pluginDestroy(Plugin*) { obeying::theOne.reset(); }
