// A plug-in on the framework that does what it is told, also in its callbacks. Built as several bundles.
#include <memory>
#include <stdexcept>
#include <string>

#include "core/app/Illustrator.h"
#include "core/app/Plugin.h"
#include "core/frame/Dispatcher.h"
#include "core/frame/Timer.h"
#include "core/frame/Tool.h"
#include "plugins/Orders.h"

namespace obeying {

using namespace kzo::core;

/// In the order of the host's selectors: before the event, the tool's own, after it.
const struct {
    void (Plugin::*before)(const Callback&);
    void (Tool::*own)(const Callback&);
    void (Plugin::*after)(const Callback&);
} events[] = {
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
        plugin_.dispatcher()->registerMessageCallback(caller, selector, callback([this] { receive(); }));
        plugin_.setMenuItemSelectedCallback(next_);
        plugin_.setMenuItemsUpdateCallback(next_);
        plugin_.setPreShutdownCallback(next_);
        for (const auto& event : events) {
            (plugin_.*event.before)(next_);
            (plugin_.*event.after)(next_);
        }
    }

    [[nodiscard]] std::set<const void*> handles() const {
        std::set<const void*> all;
        for (int i = 0; i < places; ++i) {
            all.insert({timers_[i].aiTimerHandle(), items_[i].aiMenuItemHandle(), notifiers_[i].aiNotifierHandle(),
                        tools_[i].aiToolHandle(), annotators_[i].aiAnnotatorHandle()});
        }
        all.erase(nullptr);
        return all;
    }

    static inline std::unique_ptr<Obeying> theOne;

  private:
    void receive() {
        const auto* const message = static_cast<OrderMessage*>(Dispatcher::lastRecord());
        slate_ = message->slate;
        number_ = message->plugin;
        slate_->idle[number_] = [] { return !Dispatcher::lastMessage() && !Dispatcher::lastToolMessage(); };
        slate_->handles[number_] = [] { return theOne ? theOne->handles() : std::set<const void*>(); };
        const Order order = message->order;
        ++slate_->done[0][int(order.deed)];
        obey(order);
    }

    /// What all its callbacks do.
    void obeyNext() {
        if (!slate_ || slate_->laidDown[number_].empty()) return;
        const Order order = slate_->laidDown[number_].front();
        slate_->laidDown[number_].pop_front();
        ++slate_->done[1][int(order.deed)];
        obey(order);
    }

    void obey(const Order& order) {
        Timer& timer = timers_[order.place];
        MenuItem& item = items_[order.place];
        Notifier& notifier = notifiers_[order.place];
        Tool& tool = tools_[order.place];
        Annotator& annotator = annotators_[order.place];
        Dispatcher& dispatcher = *plugin_.dispatcher();
        switch (order.deed) {
        case Deed::Throw: throw std::runtime_error("as ordered");
        case Deed::AddTimer:
            timer.destroy();
            timer = Timer("Timer", 1, next_);
            break;
        case Deed::ActivateTimer: timer.activate(); break;
        case Deed::DeactivateTimer: timer.deactivate(); break;
        case Deed::RegisterTimer: dispatcher.registerTimer(timer); break;
        case Deed::UnregisterTimer: dispatcher.unregisterTimer(timer); break;
        case Deed::DestroyTimer: timer.destroy(); break;
        case Deed::Schedule: dispatcher.scheduleCallback(next_, 1); break;
        case Deed::AddItem:
            item.destroy();
            item = MenuItem(BuiltinMenuGroup::Edit, "Item", next_);
            break;
        case Deed::DestroyItem: item.destroy(); break;
        case Deed::AddNotifier:
            notifier.destroy();
            notifier = dispatcher.registerNotifier("N", NotifierType::DocumentSaved, next_);
            break;
        case Deed::DestroyNotifier: dispatcher.unregisterNotifier(notifier); break;
        case Deed::AddTool:
            tool.destroy();
            tool = Tool(-2, -2, "Tool " + std::to_string(order.place), "", 0, 0, ToolOptions::None);
            for (const auto& event : events) (tool.*event.own)(next_);
            break;
        case Deed::DestroyTool: tool.destroy(); break;
        case Deed::HoldCursor: tool.setCursorLoc({double(order.place), 0}); break;
        case Deed::AddAnnotator:
            annotator.destroy();
            annotator = Annotator("Marks", next_);
            break;
        case Deed::DestroyAnnotator: annotator.destroy(); break;
        case Deed::AddMonitor:
            dispatcher.removeKeypressMonitor(monitors_[order.place]);
            monitors_[order.place] = dispatcher.addKeypressMonitor(VirtualKey(order.place), next_);
            break;
        case Deed::RemoveMonitor: dispatcher.removeKeypressMonitor(monitors_[order.place]); break;
        case Deed::Register:
            if (order.type)
                dispatcher.registerMessageCallback(MessageType(order.type), next_);
            else
                dispatcher.registerMessageCallback(order.caller, order.selector, next_);
            break;
        case Deed::Unregister:
            if (order.type)
                dispatcher.unregisterMessageCallback(MessageType(order.type));
            else
                dispatcher.unregisterMessageCallback(order.caller, order.selector);
            break;
        case Deed::Dispatch:
            if (order.type)
                dispatcher.message(MessageType(order.type), order.record);
            else
                dispatcher.message(order.caller, order.selector, order.record);
            break;
        case Deed::Send: send(order); break;
        }
    }

    void send(const Order& order) const {
        const ThirdPartyPlugin receiver = Illustrator::instance()->allPlugins()[slate_->names[order.place]];
        int result = 0;
        if (!receiver.started() || receiver.broken() || !receiver.prepMessageData(*order.record)) return;
        receiver.message(order.caller, order.selector, order.record, result);
        receiver.cleanMessageData(*order.record);
    }

    Plugin& plugin_;
    Slate* slate_ = nullptr;
    int number_ = 0;
    __Callback<Obeying> next_{this, &Obeying::obeyNext};
    Timer timers_[places];
    MenuItem items_[places];
    Notifier notifiers_[places];
    Tool tools_[places];
    Annotator annotators_[places];
    std::uint32_t monitors_[places] = {};
};

} // namespace obeying

bool kzo::core::pluginSetup(Plugin* plugin) {
    obeying::Obeying::theOne = std::make_unique<obeying::Obeying>(plugin);
    return true;
}

void kzo::core::pluginDestroy(Plugin*) { obeying::Obeying::theOne.reset(); }
