// The stage suite: keys, cursors, screen, mouse, log, alerts and folders of a host without a display.
#include "hostapi/StageSuite.h"

#include <cmath>

#include "session/base/Profile.h"
#include "session/frame/Alerts.h"
#include "session/frame/Dialogs.h"
#include "session/frame/Plugins.h"
#include "session/frame/Screen.h"
#include "session/input/Pointer.h"
#include "suites/Enter.h"

namespace easel::suites {

template <> struct Argument<session::Dialog&> {
    static session::Dialog& from(StageDialogRef handle) { return found(host<session::Dialogs>().find(handle)); }
};

namespace {

using session::Plugin;
using session::Pointer;
using session::Screen;

void setCursor(std::int32_t number) {
    host<Screen>().cursor = {.number = number, .plugin = nullptr, .resource = 0, .hotSpot = {}, .scale = 1};
}

void setCursorImage(Plugin& plugin, std::int16_t resource, const AIRealPoint& hotSpot, AIReal scale) {
    require(resource != 0 && std::isfinite(hotSpot.h) && std::isfinite(hotSpot.v) && std::isfinite(scale) && scale > 0);
    host<Screen>().cursor = {
        .number = 0, .plugin = plugin.handle, .resource = resource, .hotSpot = hotSpot, .scale = scale};
}

AIReal getDisplayScale() {
    static_cast<void>(currentDocument());
    return host<Screen>().displayScale;
}

AIRealPoint getPointerLocation() {
    const model::Point place = currentDocument().toScreen(host<Pointer>().rawLocation());
    return {place.x, place.y};
}

void postMouseEvent(std::int32_t event, const AIRealPoint& location) {
    require((event == kStageMouseDown || event == kStageMouseUp) && std::isfinite(location.h) &&
            std::isfinite(location.v));
    const model::Point place{location.h, location.v};
    event == kStageMouseDown ? host<Pointer>().postPress(place) : host<Pointer>().postRelease(place);
}

void log(Plugin& self, std::string_view line) {
    const std::string name = self.name.empty() ? "a plug-in without a name" : self.name;
    host<session::Reports>().add(session::Blame::Plugin, name + ": " + std::string(line));
}

using session::Dialog;
using session::Dialogs;

session::Widget widgetOf(const StageWidget& record) {
    const auto text = [](const char* characters) { return std::string(characters ? characters : ""); };
    return {.id = record.id,
            .kind = record.kind,
            .frame = record.frame,
            .text = text(record.text),
            .tooltip = text(record.tooltip),
            .visible = record.visible != 0,
            .enabled = record.enabled != 0,
            .checked = record.checked != 0,
            .bold = record.bold != 0,
            .italic = record.italic != 0,
            .image = record.image,
            .rolloverImage = record.rolloverImage,
            .pressedImage = record.pressedImage,
            .alignment = record.alignment,
            .style = record.style,
            .linked = record.linked,
            .tabPlace = record.tabPlace,
            .selectionStart = record.selectionStart,
            .selectionEnd = record.selectionEnd};
}

void getDialogSelection(Dialog& dialog, std::int32_t id, std::int32_t& start, std::int32_t& end) {
    const session::Widget* const field = dialog.find(id);
    require(field && field->kind == kStageTextField);
    start = field->selectionStart;
    end = field->selectionEnd;
}

AIRealPoint getFittingSize(Plugin& self, const StageWidget& widget) {
    host<Dialogs>().requireStaged();
    return fittingSize(self, widgetOf(widget));
}

/// Reports a picture that cannot be had, once.
void setDialogWidget(Dialog& dialog, const StageWidget& record) {
    const session::Widget* const known = dialog.find(record.id);
    const bool isNew = record.image != 0 && (!known || known->image != record.image);
    Dialogs::setWidget(dialog, widgetOf(record));
    if (isNew && !session::imageSize(*dialog.owner, record.image))
        log(*dialog.owner, "dialog \"" + dialog.title + "\": resource " + std::to_string(record.image) +
                               ".png is missing or no picture; the text shows");
}

void showAlert(std::int32_t kind, std::string_view text, const char* const& firstButton, std::int32_t count,
               std::int32_t& chosen, AIBoolean& asked) {
    host<Dialogs>().requireStaged();
    require(kind >= kStageMessageAlert && kind <= kStageQuestionAlert && count >= 1 && count <= 3);
    session::Alert alert{.kind = static_cast<session::Alert::Kind>(kind), .text = std::string(text), .buttons = {}};
    for (std::int32_t i = 0; i < count; ++i) alert.buttons.emplace_back(&required((&firstButton)[i]));
    const std::optional<std::size_t> answer = host<session::Alerts>().show(alert);
    chosen = static_cast<std::int32_t>(answer.value_or(0));
    asked = answer.has_value();
}

} // namespace

template <> void fill(StageSuite& suite) {
    enter<&StageSuite::GetModifiers, &Pointer::modifiers>(suite);
    enter<&StageSuite::SetCursor, setCursor>(suite);
    enter<&StageSuite::SetCursorImage, setCursorImage>(suite);
    enter<&StageSuite::GetCursor>(suite, [] { return host<Screen>().cursor; });
    enter<&StageSuite::GetDisplayScale, getDisplayScale>(suite);
    enter<&StageSuite::GetBrightness, &Screen::brightness>(suite);
    enter<&StageSuite::GetPointerLocation, getPointerLocation>(suite);
    enter<&StageSuite::PostMouseEvent, postMouseEvent>(suite);
    enter<&StageSuite::MonitorInput>(suite, [](Plugin& self, bool monitor) { self.monitorsInput = monitor; });
    enter<&StageSuite::Log, log>(suite);
    enter<&StageSuite::ShowAlert, showAlert>(suite);
    enter<&StageSuite::Beep>(suite, [] { ++host<session::Alerts>().beeps; });
    enter<&StageSuite::GetPreferencesFolder, &session::Profile::folder>(suite);
    enter<&StageSuite::ShowsDialogs>(suite, [] { return host<Dialogs>().staged; });
    enter<&StageSuite::NewDialog, &Dialogs::add>(suite);
    enter<&StageSuite::DisposeDialog, &Dialogs::remove>(suite);
    enter<&StageSuite::SetDialogFrame, &Dialogs::setFrame>(suite);
    enter<&StageSuite::SetDialogWidget, setDialogWidget>(suite);
    enter<&StageSuite::RemoveDialogWidget, Dialogs::removeWidget>(suite);
    enter<&StageSuite::SetDialogFocus, Dialogs::setFocus>(suite);
    enter<&StageSuite::GetDialogSelection, getDialogSelection>(suite);
    enter<&StageSuite::RunDialog, &Dialogs::run>(suite);
    enter<&StageSuite::EndDialog, Dialogs::end>(suite);
    enter<&StageSuite::GetFittingSize, getFittingSize>(suite);
}

} // namespace easel::suites
