// A tool that measures: press, drag, and the distance and the angle stand over the view until the next press. It draws
// nothing into the document. The whole of a plug-in is here: how it starts and ends, a tool, marks over the view.
#include <cmath>
#include <cstdio>
#include <optional>

#include "core/app/Plugin.h"
#include "core/frame/AnnotationDrawer.h"
#include "core/frame/Annotator.h"
#include "core/frame/Dispatcher.h"
#include "core/frame/Messages.h"
#include "core/frame/Tool.h"

namespace {

using kzo::core::AnnotationDrawer;
using kzo::core::Annotator;
using kzo::core::ArtboardPoint;
using kzo::core::callback;
using kzo::core::Tool;
using kzo::core::ToolOptions;

constexpr kzo::core::ArtColor kInk{0.85, 0.25, 0.1};
constexpr double kTick = 3.0;      // half the mark at each end, points
constexpr double kTextAside = 8.0; // from the end of the line to the text, points
constexpr std::int16_t kNewGroup = -2;
constexpr std::int16_t kLightIcon = 100; // Resources/100.png
constexpr std::int16_t kDarkIcon = 102;

class Measure {
  public:
    explicit Measure(kzo::core::Plugin* plugin) : plugin_(plugin) {
        plugin->setStartupCallback(callback([this] { startup(); }));
        plugin->setShutdownCallback(callback([this] { shutdown(); }));
    }

  private:
    struct Line {
        ArtboardPoint from;
        ArtboardPoint to;
    };

    void startup() {
        tool_ = Tool(kNewGroup, kNewGroup, "Measure Tool", "Measures a distance and its angle", kLightIcon, kDarkIcon,
                     ToolOptions::TrackCursor);
        tool_.setMouseDownCallback(callback([this] { show({}); }));
        tool_.setDragCallback(callback([this] { drag(); }));
        tool_.setMouseUpCallback(callback([this] { release(); }));
        tool_.setDeselectionCallback(callback([this] { show({}); }));
        marks_ = Annotator("Measured Line", callback([this] { draw(); }));
    }

    void shutdown() {
        marks_.destroy();
        tool_.destroy();
    }

    // The gesture

    void drag() {
        const ArtboardPoint from = tool_.mouseDownLocs().back();
        ArtboardPoint to = tool_.cursorLoc();
        if (tool_.shiftKeyDown()) to = from + ArtboardPoint::LengthAngle(from | to, (from ^ to).nearest45());
        show(Line{from, to});
    }

    void release() {
        if (tool_.gestureTakenBack()) show({});
        tool_.resetCursorLocs();
    }

    void show(const std::optional<Line>& line) {
        line_ = line;
        marks_.invalidate();
    }

    // The marks

    /// Runs for both of an annotator's messages; only in the one that asks for marks there is something to draw into.
    void draw() const {
        const auto* message = dynamic_cast<const kzo::core::AnnotatorMessage*>(plugin_->dispatcher()->lastMessage());
        if (!message || !message->context() || !line_) return;
        const auto& [from, to] = *line_;
        AnnotationDrawer drawer(message->context());
        drawer.setColor(kInk);
        drawer.line(from, to);
        for (const ArtboardPoint& end : {from, to})
            drawer.rect({end.x() - kTick, end.y() - kTick, end.x() + kTick, end.y() + kTick});
        drawer.text(label(), to.offset(kTextAside, -kTextAside));
    }

    /// "72.25 pt, 30.0°"
    [[nodiscard]] std::string label() const {
        char text[64];
        std::snprintf(text, sizeof text, "%.2f pt, %.1f\u00b0", line_->from | line_->to,
                      (line_->from ^ line_->to).range0To2Pi().asDegrees());
        return text;
    }

    kzo::core::Plugin* plugin_;
    Tool tool_;
    Annotator marks_;
    std::optional<Line> line_;
};

std::optional<Measure> measure;

} // namespace

bool kzo::core::pluginSetup(Plugin* plugin) {
    measure.emplace(plugin);
    return true;
}

void kzo::core::pluginDestroy(Plugin*) { measure.reset(); }
