// One tool of the host's toolbox: its registration, and the framework's share of each tool event. What the client's
// callbacks are is known above (core::Tool).
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/values/ArtboardPoint.h"
#include "core/values/BuiltinTool.h"
#include "core/values/DocumentEnumerations.h"
#include "core/values/FrameEnumerations.h"
#include "plugin/document/HitData.h"
#include "plugin/host/Object.h"

struct AITool;
struct SPPlugin;

namespace kzo::plugin {

class ModalDialog;

/// What can happen to a tool, in the order of the host's selectors.
enum class ToolEvent : std::uint8_t {
    Edit,
    Track,
    MouseDown,
    Drag,
    MouseUp,
    Select,
    Reselect,
    Deselect,
    DecreaseDiameter,
    IncreaseDiameter
};
inline constexpr std::size_t kToolEventCount = 10;

class BaseTool : public host::Object<AITool> {
  public:
    static constexpr std::int16_t kNoNumber = -2;

    /// How a tool presents itself. A group or tool set is named by the number of a tool in it.
    struct Description {
        std::int16_t group = kNoNumber;
        std::int16_t toolset = kNoNumber;
        std::string title;
        std::string tip;
        std::int16_t lightIconID = 0;
        std::int16_t darkIconID = 0;
        core::ToolOptions options = core::ToolOptions::None;
    };

    /// Adds the tool to the toolbox under the name "PLUGIN Tool TITLE". Without a handle afterwards: the host refused.
    BaseTool(SPPlugin* plugin, const std::string& pluginName, const Description& description);
    virtual ~BaseTool() = default;
    BaseTool(const BaseTool&) = delete;
    BaseTool& operator=(const BaseTool&) = delete;

    // Identity
    [[nodiscard]] std::int16_t number() const;
    [[nodiscard]] std::string name() const;
    [[nodiscard]] std::string title() const;
    void setTitle(const std::string& title);
    [[nodiscard]] std::string tip() const;
    void setTip(const std::string& tip);
    [[nodiscard]] std::int16_t lightIconID() const { return lightIconID_; }
    void setLightIconID(std::int16_t id);
    [[nodiscard]] std::int16_t darkIconID() const { return darkIconID_; }
    void setDarkIconID(std::int16_t id);
    [[nodiscard]] core::ToolOptions options() const;
    void setOptions(core::ToolOptions options);
    [[nodiscard]] bool selected() const;
    void setSelected();
    void destroy(); ///< takes the tool out of the toolbox; no handle is left

    // Events
    /// Checks the current layer, records the gesture, then always runs the client's callback. Returns 0, 1000 (layer
    /// not editable) or 1001 (not visible).
    std::int32_t handleEvent(ToolEvent event);

    // Dialogs
    std::shared_ptr<ModalDialog> prefsDialog;
    std::shared_ptr<ModalDialog> inputDialog;
    bool autoShowPrefsDialog = false; ///< after the callback of the edit event

    // The gesture
    struct CursorState {
        core::ArtboardPoint location;
        bool held = false; ///< the client put it there
    };
    [[nodiscard]] const CursorState& cursor() const { return cursor_; }
    void setCursor(const CursorState& cursor) { cursor_ = cursor; } ///< as a message says, or said before
    [[nodiscard]] const core::ArtboardPoint& cursorLoc() const { return cursor_.location; }
    /// Holds the cursor there; the host hears of it when the message has been handled.
    void setCursorLoc(const core::ArtboardPoint& location) { cursor_ = {.location = location, .held = true}; }
    [[nodiscard]] const std::vector<core::ArtboardPoint>& mouseDownLocs() const { return mouseDownLocs_; }
    [[nodiscard]] const std::vector<core::ArtboardPoint>& mouseUpLocs() const { return mouseUpLocs_; }
    void resetCursorLocs(); ///< empties both lists, and nothing was dragged
    [[nodiscard]] bool wasDragged() const { return wasDragged_; }
    /// 0; 1000 when the current layer is not editable, else 1001 when it is not visible.
    std::int32_t trackCursor();

    // Hit tests at recorded locations, tolerance in screen units; null for an index that is not there
    [[nodiscard]] std::unique_ptr<HitData> mouseDownHitData(std::size_t index, core::HitRequest request,
                                                            double tolerance) const;
    [[nodiscard]] std::unique_ptr<HitData> mouseUpHitData(std::size_t index, core::HitRequest request,
                                                          double tolerance) const;
    [[nodiscard]] std::unique_ptr<HitData> cursorHitData(core::HitRequest request, double tolerance) const;

  protected:
    virtual void runCallback(ToolEvent event) = 0;

  private:
    std::int32_t mouseDown();
    std::int32_t mouseDrag();
    std::int32_t mouseUp();

    CursorState cursor_;
    std::vector<core::ArtboardPoint> mouseDownLocs_;
    std::vector<core::ArtboardPoint> mouseUpLocs_;
    bool wasDragged_ = false;
    std::int16_t lightIconID_;
    std::int16_t darkIconID_;
};

/// The number of the host's own tool; BaseTool::kNoNumber when the host lacks it.
[[nodiscard]] std::int16_t builtinToolNumber(core::BuiltinTool tool);

} // namespace kzo::plugin
