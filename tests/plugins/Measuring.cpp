// A plug-in on the framework with a tool that measures: while the button is down a dashed line goes from the press to
// the cursor, with its length beside it. All of that is annotation; the document stays as it is.
#include <cmath>
#include <memory>

#include "core/AnnotationDrawer.h"
#include "core/Annotator.h"
#include "core/Dispatcher.h"
#include "core/Messages.h"
#include "core/Plugin.h"
#include "core/Tool.h"

namespace measuring {

using namespace kzo::core;

class Measuring {
  public:
    explicit Measuring(Plugin* plugin) { plugin->setStartupCallback(bound(&Measuring::start)); }

  private:
    using Method = void (Measuring::*)();
    __Callback<Measuring> bound(Method method) { return {this, method}; }

    void start() {
        constexpr std::int16_t newGroup = -2;
        tool_ = Tool(newGroup, newGroup, "Measure", "Measure", 0, 0, ToolOptions::None);
        tool_.setMouseDownCallback(bound(&Measuring::press));
        tool_.setDragCallback(bound(&Measuring::drag));
        tool_.setMouseUpCallback(bound(&Measuring::release));
        annotator_ = Annotator("Measure", bound(&Measuring::annotate));
        annotator_.deactivate();
    }

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

    Tool tool_;
    Annotator annotator_;
    ArtboardPoint from_;
    ArtboardPoint to_;
};

std::unique_ptr<Measuring> theOne;

} // namespace measuring

bool kzo::core::pluginSetup(Plugin* plugin) {
    measuring::theOne = std::make_unique<measuring::Measuring>(plugin);
    return true;
}

void kzo::core::pluginDestroy(Plugin*) { measuring::theOne.reset(); }
