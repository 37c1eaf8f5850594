// How dialogs are kept, and how the user's doings become messages.
#include "session/frame/Dialogs.h"

#include <algorithm>
#include <cmath>

#include "session/base/HostError.h"

namespace easel::session {

namespace {

bool startsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80; }

std::int32_t length(std::string_view text) {
    return static_cast<std::int32_t>(std::count_if(text.begin(), text.end(), startsCharacter));
}

/// Where the character of this number begins.
std::size_t offsetOf(std::string_view text, std::int32_t character) {
    std::size_t at = 0;
    for (; at < text.size(); ++at)
        if (startsCharacter(text[at]) && character-- == 0) break;
    return at;
}

/// Whether the characters stand for a key that has none of its own, U+F700 to U+F73F.
bool isNoCharacter(std::string_view characters) { return characters.size() == 3 && characters.starts_with("\xEF\x9C"); }

void moveCaret(Widget& field, std::string_view key) {
    const std::int32_t end = length(field.text);
    const bool selects = field.selectionStart < field.selectionEnd;
    std::int32_t at = field.selectionStart;
    if (key == kUpKey || key == kHomeKey)
        at = 0;
    else if (key == kDownKey || key == kEndKey)
        at = end;
    else if (key == kLeftKey)
        at = selects ? at : std::max(0, at - 1);
    else if (key == kRightKey)
        at = selects ? field.selectionEnd : std::min(end, at + 1);
    else
        return;
    field.selectionStart = field.selectionEnd = at;
}

bool finite(const AIRealRect& r) {
    return std::isfinite(r.left) && std::isfinite(r.top) && std::isfinite(r.right) && std::isfinite(r.bottom);
}

/// The lines that the text takes, broken at blanks.
std::int32_t lineCount(std::string_view text, std::int32_t charactersALine) {
    std::int32_t lines = 1;
    std::int32_t used = 0;
    while (!text.empty()) {
        const std::size_t end = text.find_first_of(" \n");
        const std::int32_t word = length(text.substr(0, end));
        if (used > 0 && used + 1 + word > charactersALine) {
            ++lines;
            used = 0;
        }
        used += word + (used > 0 ? 1 : 0);
        lines += std::max(0, used - 1) / charactersALine; // a word longer than the line
        used = used > charactersALine ? (used - 1) % charactersALine + 1 : used;
        if (end == text.npos) break;
        if (text[end] == '\n') {
            ++lines;
            used = 0;
        }
        text.remove_prefix(end + 1);
    }
    return lines;
}

} // namespace

std::optional<AIRealPoint> imageSize(const Plugin& plugin, std::int16_t number) {
    constexpr std::string_view kStart("\x89PNG\r\n\x1A\n\0\0\0\rIHDR", 16); // the width and the height follow
    std::string bytes;
    try {
        bytes = resource(plugin, "png", number);
    } catch (const HostError&) {
        return std::nullopt;
    }
    const auto numberAt = [&](std::size_t at) {
        double value = 0;
        for (const char byte : bytes.substr(at, 4)) value = value * 256 + static_cast<unsigned char>(byte);
        return value;
    };
    if (!bytes.starts_with(kStart) || bytes.size() < kStart.size() + 8) return std::nullopt;
    return AIRealPoint{numberAt(kStart.size()), numberAt(kStart.size() + 4)};
}

AIRealPoint fittingSize(const Plugin& plugin, const Widget& widget) {
    const bool isPicture = widget.image != 0 && (widget.kind == kStageLabel || widget.kind == kStageButton);
    if (const auto size = isPicture ? imageSize(plugin, widget.image) : std::nullopt) return *size;
    const double character = widget.bold ? 7 : 6.5;
    const double text = character * length(widget.text);
    constexpr double kLine = 17;
    constexpr double kMost = 1e6; // a line's length, where it is not bounded
    const double width = widget.frame.right - widget.frame.left;
    const auto charactersALine =
        static_cast<std::int32_t>(std::clamp((width > 0 ? width : kMost) / character, 1., kMost));
    switch (widget.kind) {
    case kStageTextField: return {text + 8, 22};
    case kStageCheckbox: return {text + 20, 18};
    case kStageButton: return {text + 32, 26};
    default: return {text, kLine * lineCount(widget.text, charactersALine)};
    }
}

Widget* Dialog::find(std::int32_t id) {
    const auto at = std::find_if(widgets.begin(), widgets.end(), [id](const Widget& each) { return each.id == id; });
    return at == widgets.end() ? nullptr : &*at;
}

bool Dialog::shows(const Widget& widget) const {
    const AIRealRect& frame = widget.frame;
    return widget.visible && frame.left < width && frame.top < height && frame.right > 0 && frame.bottom > 0;
}

// What plug-ins do

void Dialogs::requireStaged() const { require(staged, kRefusedErr); }

Dialog& Dialogs::add(Plugin& owner, std::string_view title, AIReal width, AIReal height) {
    requireStaged();
    auto made = std::make_unique<Dialog>();
    made->owner = &owner;
    setFrame(*made, title, width, height);
    return dialogs_.add(std::move(made));
}

void Dialogs::remove(Dialog& dialog) {
    dialog.ended = true;
    dialog.disposed = true;
    if (!dialog.running) dialogs_.remove(dialog);
}

void Dialogs::setFrame(Dialog& dialog, std::string_view title, AIReal width, AIReal height) const {
    require(std::isfinite(width) && std::isfinite(height) && width >= 0 && height >= 0);
    dialog.title = title;
    dialog.width = width;
    dialog.height = height;
}

void Dialogs::setWidget(Dialog& dialog, const Widget& widget) {
    require(widget.id > 0 && widget.kind >= kStageLabel && widget.kind <= kStageButton && finite(widget.frame) &&
            widget.alignment >= kStageAlignLeft && widget.alignment <= kStageAlignRight &&
            widget.style >= kStagePlainButton && widget.style <= kStageCancelButton);
    Widget* place = dialog.find(widget.id);
    if (!place) place = &dialog.widgets.emplace_back();
    const Widget before = std::exchange(*place, widget);
    const std::int32_t end = length(place->text);
    if (widget.selectionStart < 0) {
        const bool same = before.text == place->text;
        place->selectionStart = same ? before.selectionStart : end;
        place->selectionEnd = same ? before.selectionEnd : end;
    }
    place->selectionStart = std::clamp(place->selectionStart, 0, end);
    place->selectionEnd = std::clamp(place->selectionEnd, place->selectionStart, end);
}

void Dialogs::removeWidget(Dialog& dialog, std::int32_t id) {
    require(dialog.find(id) != nullptr);
    if (dialog.focus == id) dialog.focus = 0;
    std::erase_if(dialog.widgets, [id](const Widget& each) { return each.id == id; });
}

void Dialogs::setFocus(Dialog& dialog, std::int32_t id) {
    Widget* const field = dialog.find(id);
    require(id == 0 || (field && field->kind == kStageTextField));
    if (field && dialog.focus != id) {
        field->selectionStart = 0;
        field->selectionEnd = length(field->text);
    }
    dialog.focus = id;
}

void Dialogs::run(Dialog& dialog) {
    require(!dialog.running, kRefusedErr);
    dialog.running = true;
    dialog.ended = false;
    if (const Face shows = face) shows(dialog); // which may set another one
    if (!dialog.ended) close(dialog);
    dialog.running = false;
    if (dialog.disposed) dialogs_.remove(dialog);
}

Dialog* Dialogs::find(StageDialogRef handle) const {
    Dialog* const dialog = dialogs_.find(handle);
    return dialog && !dialog->disposed ? dialog : nullptr;
}

void Dialogs::forget(const Plugin& plugin) {
    for (Dialog* dialog : dialogs_.all())
        if (dialog->owner == &plugin) remove(*dialog);
}

// What the user does

void Dialogs::tell(Dialog& dialog, StageDialogMessage message) {
    if (!dialog.running || dialog.ended) return;
    message.dialog = dialog.handle;
    if (heard) heard(dialog, message);
    messenger_.send(*dialog.owner, kCallerStage, kSelectorStageDialogEvent, message.d);
}

void Dialogs::type(Dialog& dialog, std::int32_t id, const std::string& characters) {
    moveFocus(dialog, id);
    Widget* const field = dialog.find(id);
    if (!field || dialog.focus != id || dialog.ended) return;
    if (isNoCharacter(characters)) {
        moveCaret(*field, characters);
        return typeNothing(dialog, id, characters);
    }
    const bool deletes = characters == kDeleteKey;
    std::int32_t start = field->selectionStart;
    if (deletes && start == field->selectionEnd && start > 0) --start;
    const std::size_t from = offsetOf(field->text, start);
    const std::size_t to = offsetOf(field->text, field->selectionEnd);
    const std::string put = deletes ? "" : characters;
    field->text.replace(from, to - from, put);
    field->selectionStart = field->selectionEnd = start + length(put);
    typeNothing(dialog, id, characters);
}

void Dialogs::typeNothing(Dialog& dialog, std::int32_t id, const std::string& key) {
    const Widget* const field = dialog.find(id);
    if (!field || dialog.focus != id) return;
    const std::string text = field->text;
    tell(dialog, {.d = {},
                  .dialog = nullptr,
                  .event = kStageTyping,
                  .widget = id,
                  .key = 0,
                  .checked = 0,
                  .text = text.c_str(),
                  .typed = key.c_str()});
}

namespace {

StageDialogMessage about(std::int32_t event, std::int32_t widget) {
    StageDialogMessage message{};
    message.event = event;
    message.widget = widget;
    return message;
}

} // namespace

void Dialogs::moveFocus(Dialog& dialog, std::int32_t id) {
    const Widget* const field = dialog.find(id);
    if (dialog.focus == id || !field || !field->visible || !field->enabled) return;
    dialog.focus = id;
    tell(dialog, about(kStageFocusMoved, id));
}

void Dialogs::commit(Dialog& dialog, std::int32_t id) { tell(dialog, about(kStageCommit, id)); }

void Dialogs::click(Dialog& dialog, std::int32_t id) {
    Widget* const widget = dialog.find(id);
    if (!widget || !widget->visible || !widget->enabled) return;
    if (widget->kind == kStageTextField) return moveFocus(dialog, id);
    if (widget->kind == kStageCheckbox) widget->checked = !widget->checked;
    StageDialogMessage message = about(kStageClick, id);
    message.checked = widget->checked;
    tell(dialog, message);
}

void Dialogs::doubleClick(Dialog& dialog, std::int32_t id) {
    const Widget* const widget = dialog.find(id);
    if (widget && widget->visible && widget->enabled) tell(dialog, about(kStageDoubleClick, id));
}

void Dialogs::press(Dialog& dialog, std::int32_t key) {
    StageDialogMessage message = about(kStageDialogKey, 0);
    message.key = key;
    tell(dialog, message);
}

void Dialogs::close(Dialog& dialog) { tell(dialog, about(kStageClose, 0)); }

} // namespace easel::session
