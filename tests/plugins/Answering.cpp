// A plug-in on the framework that talks: answers messages, asks all other plug-ins when its menu item is chosen, and
// counts the ticks of a timer. What it found out stands in the text of its last item. Its tool measures: while the
// button is down an annotation shows the way from the press to the cursor. Built as several bundles.
#include <cmath>
#include <cstring>
#include <memory>
#include <string>

#include "core/app/Illustrator.h"
#include "core/app/Plugin.h"
#include "core/frame/AnnotationDrawer.h"
#include "core/frame/Annotator.h"
#include "core/frame/Dispatcher.h"
#include "core/frame/MenuGroup.h"
#include "core/frame/Messages.h"
#include "core/frame/Timer.h"
#include "core/frame/Tool.h"
#include "plugins/Question.h"

namespace answering {

using namespace kzo::core;

class Answering {
  public:
    explicit Answering(Plugin* plugin) : plugin_(*plugin) {
        plugin_.setStartupCallback(bound(&Answering::start));
        plugin_.setMenuItemsUpdateCallback(bound(&Answering::updateItems));
    }

  private:
    using Method = void (Answering::*)();
    __Callback<Answering> bound(Method method) { return {this, method}; }

    void start() {
        plugin_.dispatcher()->registerMessageCallback(caller, doubleIt, bound(&Answering::answer));
        group_ = sharedGroup();
        MenuItem::Divider(group_);
        ask_ = MenuItem(group_, plugin_.name() + ": Ask", bound(&Answering::ask));
        count_ = MenuItem(group_, plugin_.name() + ": Count", bound(&Answering::toggleTimer));
        result_ = MenuItem(group_, plugin_.name() + ": nothing yet", __Callback<Answering>());
        result_.setEnabled(false);
        timer_ = Timer(plugin_.name() + " Timer", 0.5, bound(&Answering::tick));
        timer_.deactivate();
        tool_ = Tool(-2, -2, plugin_.name() + ": Measure", "Measure", 0, 0, ToolOptions::None);
        tool_.setMouseDownCallback(bound(&Answering::press));
        tool_.setDragCallback(bound(&Answering::drag));
        tool_.setMouseUpCallback(bound(&Answering::release));
        annotator_ = Annotator("Measure", bound(&Answering::annotate));
        annotator_.deactivate();
    }

    /// The group of all these plug-ins; the first of them makes it.
    static MenuGroup sharedGroup() {
        const Illustrator& illustrator = *Illustrator::instance();
        for (std::size_t i = 0; i < illustrator.menuGroupCount(); ++i) {
            MenuGroup known = illustrator.menuGroupAtIndex(i);
            if (known.text() == "Answers") return known;
        }
        return MenuGroup(BuiltinMenuGroup::EditUtilities, "Answers", false, true, true, false);
    }

    void answer() {
        auto* const question = static_cast<Question*>(plugin_.dispatcher()->lastRecord());
        question->answer = 2 * question->number;
        std::strncpy(question->by, plugin_.name().c_str(), sizeof question->by - 1);
    }

    void ask() {
        std::string heard;
        for (const auto& [name, other] : Illustrator::instance()->allPlugins()) {
            if (!other.started() || other.broken() || other.spPluginRef() == plugin_.spPluginRef()) continue;
            Question question{};
            int result = 0;
            if (!other.prepMessageData(question.d)) continue;
            question.number = 21;
            const bool sent = other.message(caller, doubleIt, &question.d, result) == 0;
            if (sent && question.answer != 0) heard += " " + std::to_string(question.answer) + " from " + question.by;
            other.cleanMessageData(question.d);
        }
        result_.setText(plugin_.name() + ":" + (heard.empty() ? " no answer" : heard));
    }

    void toggleTimer() { timer_.setActive(!timer_.active()); }
    void tick() { result_.setText(plugin_.name() + ": tick " + std::to_string(++ticks_)); }
    void updateItems() { count_.setChecked(timer_.active()); }

    void press() { from_ = to_ = tool_.cursorLoc(); }
    void drag() {
        to_ = tool_.cursorLoc();
        annotator_.activate();
    }
    void release() { annotator_.deactivate(); }

    void annotate() {
        const auto& message = static_cast<const AnnotatorMessage&>(*Dispatcher::lastMessage());
        if (message.type() != MessageType::AnnotationDraw) return;
        AnnotationDrawer drawer(message.context());
        drawer.setColor({0, 0, 1});
        drawer.setLineDash(4);
        drawer.line(from_, to_);
        drawer.text(std::to_string(std::lround(from_ | to_)) + " pt", to_);
    }

    Plugin& plugin_;
    MenuGroup group_;
    MenuItem ask_;
    MenuItem count_;
    MenuItem result_;
    Timer timer_;
    int ticks_ = 0;
    Tool tool_;
    Annotator annotator_;
    ArtboardPoint from_;
    ArtboardPoint to_;
};

std::unique_ptr<Answering> theOne;

} // namespace answering

bool kzo::core::pluginSetup(Plugin* plugin) {
    answering::theOne = std::make_unique<answering::Answering>(plugin);
    return true;
}

void kzo::core::pluginDestroy(Plugin*) { answering::theOne.reset(); }
