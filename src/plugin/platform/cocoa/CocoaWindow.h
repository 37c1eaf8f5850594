// A window of AppKit.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "plugin/platform/Windows.h"
#include "plugin/platform/cocoa/Views.h"

namespace kzo::plugin::cocoa {

/// What a field that is edited shows.
struct FieldText {
    WidgetId widget = kNoWidget;
    std::string text;
    std::optional<core::SelectionRange> selection;
};

class CocoaWindow final : public Window, private Listener {
  public:
    explicit CocoaWindow(WindowOwner& owner);
    ~CocoaWindow() override;

    void setFrame(const std::string& title, const geo::Size& content) override;
    void setWidget(WidgetId id, const WidgetState& state) override;
    void removeWidget(WidgetId id) override;
    void setFocus(WidgetId id) override;
    [[nodiscard]] core::SelectionRange selection(WidgetId id) const override;
    bool run() override;
    void stop() override { stopped_ = true; }
    void setBrightness(double brightness) override;

  private:
    // Listener
    void typed(NSTextField* field) override;
    void clicked(NSControl* control, bool twice) override;
    bool keyPressed(NSEvent* event) override;
    void eventHandled() override;
    void closeAsked() override;

    void tell(const WindowEvent& event);
    [[nodiscard]] NSControl* control(WidgetId id) const;
    [[nodiscard]] NSControl* newControl(const WidgetState& state);
    [[nodiscard]] NSControl* controlFor(WidgetId id, const WidgetState& state);
    void showImages(NSControl* control, const WidgetState& state);
    void setText(NSControl* control, const WidgetState& state);
    void lookAtFocus();
    [[nodiscard]] NSText* editorOf(NSControl* control) const;
    [[nodiscard]] WidgetId focused() const;
    void paint(double brightness);
    void loop(NSModalSession session);
    void printPlaces() const;

    WindowOwner& owner_;
    KZO_CLASS(Delegate) * delegate_;
    KZO_CLASS(Panel) * panel_;
    WidgetId focused_ = kNoWidget; ///< as the owner knows it
    std::string lastTyped_;
    bool keyWaits_ = false; ///< a key that changes no text by itself is being handled
    std::map<WidgetId, core::WidgetImages> shownImages_;
    bool typing_ = false;           ///< its owner hears of a keystroke
    std::optional<FieldText> late_; ///< what its owner made of that, for after the keystroke
    bool stopped_ = false;
    bool dark_ = false;
};

[[nodiscard]] NSFont* fontOf(const WidgetState& state);
/// The picture that stands for the widget's text; nil where it has none, or none that can be had.
[[nodiscard]] NSImage* imageOf(const WidgetState& state);

} // namespace kzo::plugin::cocoa
