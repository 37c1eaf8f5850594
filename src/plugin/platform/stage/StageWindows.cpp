// Windows and alerts through the stage suite, and their events from its messages.
#include "plugin/platform/stage/StageWindows.h"

#include <algorithm>
#include <vector>

#include "hostapi/StageSuite.h"
#include "plugin/platform/Convert.h"

namespace kzo::plugin {

namespace {

StageWidget recordOf(WidgetId id, const WidgetState& state) {
    const geo::Box box = state.frame.box();
    return {.id = id,
            .kind = static_cast<std::int32_t>(state.type),
            .frame = {box.min.x, box.min.y, box.max.x, box.max.y},
            .text = state.text.c_str(),
            .tooltip = state.tooltip.c_str(),
            .visible = state.visible,
            .enabled = state.enabled,
            .checked = state.checked,
            .bold = state.bold,
            .italic = state.italic,
            .image = state.images.normal,
            .rolloverImage = state.images.rollover,
            .pressedImage = state.images.pressed,
            .alignment = static_cast<std::int32_t>(state.alignment),
            .style = static_cast<std::int32_t>(state.style),
            .linked = state.linked,
            .tabPlace = state.tabPlace,
            .selectionStart = state.selection ? static_cast<std::int32_t>(state.selection->start) : -1,
            .selectionEnd = state.selection ? static_cast<std::int32_t>(state.selection->end) : -1};
}

std::string textOf(const char* text) { return text ? text : ""; }

class StageWindow final : public Window {
  public:
    StageWindow(StageDialogRef dialog, WindowOwner& owner) : dialog_(dialog), owner_(owner) { all().push_back(this); }
    ~StageWindow() override {
        std::erase(all(), this);
        host::call<&StageSuite::DisposeDialog>(dialog_);
    }

    static StageWindow* find(StageDialogRef dialog) {
        const auto at = std::find_if(all().begin(), all().end(), [&](const auto* it) { return it->dialog_ == dialog; });
        return at == all().end() ? nullptr : *at;
    }
    void tell(const WindowEvent& event) { owner_.handle(event); }

    void setFrame(const std::string& title, const geo::Size& content) override {
        host::call<&StageSuite::SetDialogFrame>(dialog_, title, content.width, content.height);
    }
    void setWidget(WidgetId id, const WidgetState& state) override {
        const StageWidget record = recordOf(id, state);
        host::call<&StageSuite::SetDialogWidget>(dialog_, &record);
    }
    void removeWidget(WidgetId id) override { host::call<&StageSuite::RemoveDialogWidget>(dialog_, id); }
    void setFocus(WidgetId id) override { host::call<&StageSuite::SetDialogFocus>(dialog_, id); }
    [[nodiscard]] core::SelectionRange selection(WidgetId id) const override {
        std::int32_t start = 0;
        std::int32_t end = 0;
        if (!host::call<&StageSuite::GetDialogSelection>(dialog_, id, &start, &end)) return {};
        return {static_cast<std::size_t>(start), static_cast<std::size_t>(end)};
    }
    bool run() override { return host::call<&StageSuite::RunDialog>(dialog_); }
    void stop() override { host::call<&StageSuite::EndDialog>(dialog_); }
    void setBrightness(double /*brightness*/) override {} // the host's own windows have the host's

  private:
    static std::vector<StageWindow*>& all() {
        static std::vector<StageWindow*> windows;
        return windows;
    }

    StageDialogRef dialog_;
    WindowOwner& owner_;
};

} // namespace

void StageWindows::handleMessage(const void* record) {
    const auto& message = *static_cast<const StageDialogMessage*>(record);
    StageWindow* const window = StageWindow::find(message.dialog);
    if (!window || message.event < kStageTyping || message.event > kStageClose) return;
    window->tell(
        {.kind = static_cast<WindowEvent::Kind>(message.event),
         .widget = message.widget,
         .key = message.event == kStageDialogKey ? static_cast<WindowEvent::Key>(message.key) : WindowEvent::Key::None,
         .checked = message.checked != 0,
         .text = textOf(message.text),
         .typed = textOf(message.typed)});
}

std::unique_ptr<Window> StageWindows::make(WindowOwner& owner) {
    StageDialogRef const dialog = host::get<&StageSuite::NewDialog>(host::self, std::string(), AIReal{}, AIReal{});
    return dialog ? std::make_unique<StageWindow>(dialog, owner) : nullptr;
}

double StageWindows::brightness() const { return host::getOr<&StageSuite::GetBrightness>(AIReal{1}); }

geo::Size StageWindows::fittingSize(const WidgetState& state) const {
    const StageWidget record = recordOf(kNoWidget, state);
    const auto size = host::get<&StageSuite::GetFittingSize, geo::Point>(host::self, &record);
    return {size.x, size.y};
}

} // namespace kzo::plugin
