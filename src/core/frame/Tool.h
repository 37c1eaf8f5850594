// A tool in the host's toolbox, with the client's callbacks for what happens to it.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/Handle.h"
#include "core/dialogs/ModalDialog.h"
#include "core/document/HitData.h"
#include "core/values/ArtboardPoint.h"
#include "core/values/BuiltinTool.h"
#include "core/values/Callback.h"
#include "core/values/DocumentEnumerations.h"
#include "core/values/FrameEnumerations.h"

struct AITool;

namespace kzo::plugin {
class BaseTool;
enum class ToolEvent : std::uint8_t;
} // namespace kzo::plugin

namespace kzo::core {

class __IntToolSubclass;

extern template class Handle<__IntToolSubclass>;

/// Stays in the toolbox until `destroy` or shut-down. Empty handles return false, 0, empty texts or null, and -2 for
/// the number. Locations are those of the message being handled and of the gesture so far; tolerances of hit tests are
/// in screen units.
class Tool : public Handle<__IntToolSubclass> {
  public:
    using Options = ToolOptions;

    // Construction; texts are what the user sees
    Tool() = default; ///< empty
    using Handle::Handle;
    /// In the group and slot of the tools with these numbers; -2 opens a new one.
    Tool(std::int16_t group, std::int16_t toolset, const std::string& title, const std::string& tip,
         std::int16_t lightIconID, std::int16_t darkIconID, Options options);
    /// In the group of `group`, and in the slot of `toolset` if there is one. An empty `group` opens new ones.
    Tool(const Tool& group, const Tool* toolset, const std::string& title, const std::string& tip,
         std::int16_t lightIconID, std::int16_t darkIconID, Options options);
    /// The same beside the host's own tools. One that the host lacks counts as empty.
    Tool(BuiltinTool group, std::optional<BuiltinTool> toolset, const std::string& title, const std::string& tip,
         std::int16_t lightIconID, std::int16_t darkIconID, Options options);
    explicit Tool(const std::shared_ptr<plugin::BaseTool>& impl);

    // Identity
    [[nodiscard]] AITool* aiToolHandle() const;
    [[nodiscard]] std::int16_t number() const;
    [[nodiscard]] std::string title() const;
    void setTitle(const std::string& title);
    [[nodiscard]] std::string tip() const;
    void setTip(const std::string& tip);
    [[nodiscard]] std::int16_t lightIconID() const;
    void setLightIconID(std::int16_t id);
    [[nodiscard]] std::int16_t darkIconID() const;
    void setDarkIconID(std::int16_t id);
    [[nodiscard]] Options options() const;
    void setOptions(Options options);
    [[nodiscard]] bool selected() const;
    void setSelected(); ///< makes it the host's current tool
    void destroy();     ///< takes it out of the toolbox

    // Callbacks
    [[nodiscard]] Callback* selectionCallback() const;
    void setSelectionCallback(const Callback& callback);
    [[nodiscard]] Callback* reselectionCallback() const;
    void setReselectionCallback(const Callback& callback);
    [[nodiscard]] Callback* deselectionCallback() const;
    void setDeselectionCallback(const Callback& callback);
    [[nodiscard]] Callback* trackCallback() const; // the mouse moved with no button down
    void setTrackCallback(const Callback& callback);
    [[nodiscard]] Callback* mouseDownCallback() const;
    void setMouseDownCallback(const Callback& callback);
    [[nodiscard]] Callback* dragCallback() const;
    void setDragCallback(const Callback& callback);
    [[nodiscard]] Callback* mouseUpCallback() const;
    void setMouseUpCallback(const Callback& callback);
    [[nodiscard]] Callback* decreaseDiameterCallback() const;
    void setDecreaseDiameterCallback(const Callback& callback);
    [[nodiscard]] Callback* increaseDiameterCallback() const;
    void setIncreaseDiameterCallback(const Callback& callback);
    [[nodiscard]] Callback* editCallback() const; // double-click on the tool
    void setEditCallback(const Callback& callback);

    // Dialogs; empty until they are set
    [[nodiscard]] ModalDialog prefsDialog() const;
    void setPrefsDialog(const ModalDialog& dialog);
    [[nodiscard]] bool autoShowPrefsDialog() const;
    void setAutoShowPrefsDialog(bool show); ///< at a double-click on the tool, after the callback; off at first
    [[nodiscard]] ModalDialog inputDialog() const;
    void setInputDialog(const ModalDialog& dialog);

    // The gesture
    [[nodiscard]] ArtboardPoint cursorLoc() const;
    void setCursorLoc(const ArtboardPoint& location);
    [[nodiscard]] std::vector<ArtboardPoint> mouseDownLocs() const; ///< all presses since resetCursorLocs
    [[nodiscard]] std::vector<ArtboardPoint> mouseUpLocs() const;
    void resetCursorLocs(); ///< empties both lists, and nothing was dragged
    [[nodiscard]] bool wasDragged() const;
    /// During a mouse-up: the gesture is taken back, say by Escape, instead of ended. The host takes back what is done
    /// then.
    [[nodiscard]] bool gestureTakenBack() const;
    [[nodiscard]] bool shiftKeyDown() const;
    [[nodiscard]] bool optionKeyDown() const;
    [[nodiscard]] bool controlKeyDown() const;
    [[nodiscard]] bool commandKeyDown() const;
    /// The framework's own cursor handling: 0, or 1000 and 1001 on a layer that is not editable or visible.
    std::int32_t trackCursor();

    // Hit tests; null for an index past the end
    [[nodiscard]] std::unique_ptr<HitData> mouseDownHitData(std::size_t index, HitRequest request,
                                                            double tolerance) const;
    [[nodiscard]] std::unique_ptr<HitData> mouseUpHitData(std::size_t index, HitRequest request,
                                                          double tolerance) const;
    [[nodiscard]] std::unique_ptr<HitData> cursorHitData(HitRequest request, double tolerance) const;

  private:
    [[nodiscard]] Callback* callback(plugin::ToolEvent event) const;
    void setCallback(plugin::ToolEvent event, const Callback& callback);
    [[nodiscard]] bool keyDown(ModifierKeys key) const;
};

} // namespace kzo::core
