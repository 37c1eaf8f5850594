// Keys on the drawing: modifiers, lengths that are typed, arrows, and all that plug-ins hear of.
#include <QKeyEvent>

#include <string_view>

#include "app/Canvas.h"

namespace easel::app {

namespace {

using model::Point;

constexpr std::size_t kMostDigits = 12;
constexpr double kMostLength = 1e6; // points, typed

/// The name of a key as sessions know it; empty for keys without.
std::string keyName(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Escape: return "Escape";
    case Qt::Key_Backspace: return "Delete";
    case Qt::Key_Delete: return "ForwardDelete";
    case Qt::Key_Return: return "Return";
    case Qt::Key_Tab: return "Tab";
    case Qt::Key_Space: return "Space";
    default: break;
    }
    if (event.key() >= Qt::Key_F1 && event.key() <= Qt::Key_F15)
        return "F" + std::to_string(event.key() - Qt::Key_F1 + 1);
    if (event.key() > Qt::Key_Space && event.key() < 0x7F) return std::string(1, static_cast<char>(event.key()));
    return {};
}

bool isModifier(int key) {
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_Meta;
}

/// What a key adds to a length, whichever modifiers are down: a digit, a point, or 0 for nothing. With Ctrl only the
/// key tells, with Shift only its place on the keyboard.
char digitOf(const QKeyEvent& event) {
    const QString text = event.text();
    int typed = text.size() == 1 ? text[0].unicode() : 0;
    if (typed && text[0].isDigit()) typed = '0' + text[0].digitValue(); // of any alphabet
    for (const int sign : {typed, event.key()}) {
        if (sign >= '0' && sign <= '9') return static_cast<char>(sign);
        if (sign == '.' || sign == ',' || sign == '<' || sign == '>' || sign == ';' || sign == ':') return '.';
    }
    struct Keys {
        std::uint32_t first; // as X11 and Wayland number the keys
        std::string_view signs;
    };
    for (const Keys& keys : {Keys{10, "1234567890"}, {79, "789 456 1230."}}) {
        const std::size_t place = event.nativeScanCode() - keys.first;
        if (event.nativeScanCode() >= keys.first && place < keys.signs.size() && keys.signs[place] != ' ')
            return keys.signs[place];
    }
    return 0;
}

} // namespace

/// Digits during a drag are the gesture's length. Returns whether the key was one of these.
bool Canvas::typeLength(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Backspace && !typedLength_.empty()) {
        typedLength_.pop_back();
    } else if (const char digit = digitOf(event); digit && typedLength_.size() < kMostDigits) {
        const std::string longer = typedLength_ + digit;
        const bool isSecondPoint = digit == '.' && typedLength_.find('.') != std::string::npos;
        if (isSecondPoint || QString::fromStdString(longer).toDouble() > kMostLength) return true;
        typedLength_ = longer;
    } else {
        return false;
    }
    const double length = QString::fromStdString(typedLength_).toDouble();
    actions_.holdLength(typedLength_.empty() ? std::nullopt : std::optional(length));
    dragAgain(modifiersOf(event.modifiers()));
    return true;
}

void Canvas::hearKey(const QKeyEvent& event) {
    const std::string name = keyName(event);
    if (!name.empty()) actions_.key(name, modifiersOf(event.modifiers()));
}

void Canvas::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space) {
        if (!event->isAutoRepeat() && !dragging()) {
            spaceHeld_ = true;
            showCursor();
        }
        return;
    }
    if (!document()) return QWidget::keyPressEvent(event);
    if (isModifier(event->key())) {
        if (dragging()) dragAgain(modifiersOf(event->modifiers()));
        return;
    }
    if (dragging()) {
        if (typeLength(*event)) return;
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            return actions_.release(toDocument(lastPlace_), modifiersOf(event->modifiers()));
        return hearKey(*event);
    }
    if (!nudge(*event)) hearKey(*event);
}

/// The arrows move what is selected: across and upright or, while the grid along the axes is shown, along its first
/// axis, with Ctrl its second, and its third. Returns whether the key was one of these.
bool Canvas::nudge(const QKeyEvent& event) {
    const bool upright = event.key() == Qt::Key_Up || event.key() == Qt::Key_Down;
    const bool back = event.key() == Qt::Key_Left || event.key() == Qt::Key_Up;
    if (!upright && event.key() != Qt::Key_Left && event.key() != Qt::Key_Right) return false;
    Point way = upright ? Point{0, 1} : Point{1, 0};
    const session::Pointer& pointer = actions_.session().pointer;
    if (pointer.snapping.axisGrid) {
        const auto lines = pointer.axisGrid().lines();
        const std::size_t axis = upright ? 2 : event.modifiers() & Qt::ControlModifier ? 1 : 0;
        if (axis < lines.size()) way = lines[axis].direction;
        // To the side that the arrow points to, whichever way the axis is told.
        if ((upright ? way.y : way.x) < 0) way = {-way.x, -way.y};
    }
    const double step = (event.modifiers() & Qt::ShiftModifier ? 10 : 1) * (back ? -1 : 1);
    actions_.nudge(step * way.x, step * way.y);
    return true;
}

/// What is let go elsewhere is not heard of here.
void Canvas::focusOutEvent(QFocusEvent* event) {
    spaceHeld_ = false;
    showCursor();
    QWidget::focusOutEvent(event);
}

void Canvas::keyReleaseEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat()) {
        spaceHeld_ = false;
        return showCursor();
    }
    if (isModifier(event->key()) && dragging()) dragAgain(modifiersOf(event->modifiers()));
}

} // namespace easel::app
