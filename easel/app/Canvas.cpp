// Input and view. Painting of what lies over the drawing is in CanvasPainting.cpp.
#include "app/Canvas.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPixmap>
#include <QTimerEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>
#include <vector>

#include "app/Application.h"
#include "session/input/Keys.h"
#include "svg/Writer.h"

namespace easel::app {

namespace {

using model::Point;
using session::Modifiers;

constexpr double kLeastZoom = 0.01; // unless the page needs less
constexpr double kMostZoom = 256;
constexpr double kWheelStep = 1.2;    // zoom factor of a notch
constexpr double kNotch = 120;        // what a wheel's notch says of itself
constexpr int kSliceMilliseconds = 8; // of painting between events
constexpr std::size_t kMostTrueObjects = 50'000;
constexpr double kMargin = 24; // around the page that is fitted, in widget pixels
constexpr std::size_t kMostDigits = 12;
constexpr double kMostLength = 1e6; // points, typed

/// Plug-ins number the host's cursors. Pens look alike here.
constexpr std::int32_t kMoveCursor = 140;

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

Canvas::Canvas(Actions& actions)
    : actions_(actions),
      scene_(watch_),
      truths_(
          *this, [this](const TruePictures::Order& order, const QImage& image) { takeTruth(order, image); },
          [this](const TruePictures::Order& order, const std::string& why) { missTruth(order, why); }) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_InputMethodEnabled, false);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setMinimumSize(200, 150);
    setObjectName("canvas");
    setAccessibleName("Drawing");
}

Canvas::~Canvas() = default;

// Showing

void Canvas::showDocument() {
    const std::optional<double> known = std::exchange(knownReach_, {});
    watch_.follow(document(), known || !document() ? known.value_or(0) : farthestReach(*document()));
    scene_.show(document());
    ++lastOrder_;
    ++lastPieces_;
    piecesDue_ = 0;
    truthFails_ = false;
    sizeIsKnown_ = false;
    text_ = nullptr;
    textIsOfBefore_ = false;
    typedLength_.clear();
    updatePort();
    showView();
}

void Canvas::leaveDocument() {
    watch_.follow(nullptr, 0);
    scene_.show(nullptr);
    ++lastOrder_;
    truthIsDue_ = false;
    textIsOfBefore_ = false;
}

bool Canvas::refresh() {
    const Port before = scene_.port();
    updatePort(); // plug-ins may have set the view
    if (scene_.port() != before) showView();
    const bool keepsTruth = settleGesture();
    const Watch::Change change = watch_.take(dragging());
    scene_.invalidate(change.boxes);
    if (!keepsTruth) scene_.spoilTruth(change.boxes);
    if (change.everything && document()) {
        scene_.invalidateAll();
        if (!keepsTruth) scene_.spoilTruth({{0, 0, document()->width(), document()->height()}});
    }
    if (change.real) truthFails_ = false;
    if (!dragging()) typedLength_.clear();
    if (document()) actions_.session().annotations.update();
    showCursor();
    scene_.takeLive(kSliceMilliseconds);
    askForPieces();
    if (!scene_.isComplete()) refineTimer_.start(0, this);
    if (change.real) truthTimer_.start(restMilliseconds, this);
    update();
    return change.real;
}

/// When a gesture has ended, what it shows counts as true for now. Returns whether the truth is as good as before the
/// changes that come next.
bool Canvas::settleGesture() {
    const bool ends = std::exchange(inGesture_, dragging()) && !dragging();
    if (!ends || !document()) return dragging();
    const Watch::Change last = watch_.take(true); // with what the release has done
    scene_.invalidate(last.boxes);
    scene_.takeLive(kSliceMilliseconds);
    if (last.real) {
        ++lastOrder_; // what was asked for is of before
        truthIsDue_ = false;
    }
    ++lastPieces_;
    piecesDue_ = 0;
    textIsOfBefore_ = false;
    return scene_.settle(last.real);
}

void Canvas::showCursor() {
    if (handlingNow() == Handling::Hand) return setCursor(panFrom_ ? Qt::ClosedHandCursor : Qt::OpenHandCursor);
    if (handlingNow() == Handling::Zoom) return setCursor(Qt::CrossCursor);
    const session::Session& session = actions_.session();
    const bool draws = session.toolbox.current()->owner != nullptr;
    if (draws && document()) {
        const model::Node& layer = document()->currentLayer();
        if (layer.locked() || layer.hidden()) {
            const std::string why = std::string("The current layer is ") + (layer.locked() ? "locked" : "hidden");
            if (remark && lastRemark_ != why) remark(lastRemark_ = why);
            return setCursor(Qt::ForbiddenCursor);
        }
    }
    if (!lastRemark_.empty() && remark) remark(lastRemark_ = "");
    if (const auto own = pluginCursor()) return setCursor(*own);
    setCursor(draws ? Qt::CrossCursor : Qt::ArrowCursor);
}

/// The one that the current tool's plug-in has set, if so: a picture of its own, or one of the host's by number.
std::optional<QCursor> Canvas::pluginCursor() const {
    const session::Plugin* const owner = actions_.session().toolbox.current()->owner;
    const StageCursor& set = actions_.session().screen.cursor;
    if (!owner) return {};
    if (set.number == kMoveCursor) return QCursor(Qt::SizeAllCursor);
    if (set.plugin != owner->handle || set.scale <= 0) return {};
    QPixmap picture(
        QString::fromStdString(owner->filePath + "/Contents/Resources/" + std::to_string(set.resource) + ".png"));
    if (picture.isNull()) return {};
    picture.setDevicePixelRatio(set.scale);
    return QCursor(picture, static_cast<int>(std::lround(set.hotSpot.h)), static_cast<int>(std::lround(set.hotSpot.v)));
}

// View

double Canvas::zoom() const { return document() ? document()->view.zoom : 1; }

Point Canvas::toDocument(QPointF place) const { return document()->fromScreen({place.x(), place.y()}); }

QPointF Canvas::fromDocument(Point point) const {
    const Point place = document()->toScreen(point);
    return {place.x, place.y};
}

void Canvas::updatePort() {
    if (!document()) return;
    document()->view.windowWidth = width();
    document()->view.windowHeight = height();
    actions_.session().screen.displayScale = devicePixelRatioF();
    const double pixels = zoom() * devicePixelRatioF();
    // The page's corner lies on a corner of pixels: its edges are sharp, and a view that is moved keeps its picture.
    const model::Box shown = document()->visibleBox();
    const Point corner{std::round(shown.left * pixels) / pixels, std::round(shown.top * pixels) / pixels};
    Point& center = document()->view.center;
    center = {center.x + corner.x - shown.left, center.y + corner.y - shown.top};
    scene_.setPort({.origin = corner, .pixels = pixels, .size = (QSizeF(size()) * devicePixelRatioF()).toSize()});
}

/// After a change of the view.
void Canvas::showView() {
    updatePort();
    if (document() && mouse_) mouse_ = toDocument(lastPlace_);
    actions_.session().messenger.flush();
    if (document()) actions_.session().annotations.update();
    if (!scene_.isComplete()) refineTimer_.start(0, this);
    truthTimer_.start(restMilliseconds, this);
    update();
    if (viewChanged) viewChanged();
}

void Canvas::zoomTo(double zoom, std::optional<QPointF> fixed) {
    if (!document()) return;
    const QPointF place = fixed.value_or(QPointF(width() / 2.0, height() / 2.0));
    const Point still = toDocument(place);
    model::View& view = document()->view;
    view.zoom = std::clamp(zoom, std::min(kLeastZoom, pageZoom()), kMostZoom);
    const Point moved = toDocument(place);
    view.center = {view.center.x + still.x - moved.x, view.center.y + still.y - moved.y};
    showView();
}

void Canvas::zoomBy(double factor, std::optional<QPointF> fixed) { zoomTo(zoom() * factor, fixed); }

/// That the whole page is seen at.
double Canvas::pageZoom() const {
    const double across = (width() - 2 * kMargin) / document()->width();
    const double down = (height() - 2 * kMargin) / document()->height();
    return std::min(across, down);
}

void Canvas::fitPage() {
    if (!document()) return;
    document()->view.center = {document()->width() / 2, document()->height() / 2};
    zoomTo(pageZoom());
}

void Canvas::panBy(QPointF way) {
    if (!document()) return;
    Point& center = document()->view.center;
    center = {center.x - way.x() / zoom(), center.y - way.y() / zoom()};
    showView();
}

void Canvas::setHandling(Handling handling) {
    handling_ = handling;
    showCursor();
}

void Canvas::setNotice(const QString& notice) {
    if (std::exchange(notice_, notice) != notice && !document()) update();
}

bool Canvas::isTrue() const {
    return scene_.isComplete() && !truthIsDue_ && piecesDue_ == 0 && !truthTimer_.isActive();
}

/// Whether true pictures of the drawing are made. Says once that they are not where they would show more.
bool Canvas::wantsTruth() {
    std::size_t objects = 0;
    bool isPlain = true;
    for (const model::Node* at = &document()->root(); at; at = model::nextWithin(document()->root(), *at)) {
        if (hasLooks(*at)) isPlain = false;
        if (++objects > kMostTrueObjects && (sizeIsKnown_ || !isPlain)) break;
    }
    // What was read may have looks that we do not know of.
    if (objects <= kMostTrueObjects) return !isPlain || document()->root().origin() != 0;
    if (!std::exchange(sizeIsKnown_, true) && !isPlain && tell)
        tell("This drawing has more than 50,000 objects: gradients, text and images of it show in plain colours, or "
             "as boxes");
    return false;
}

TruePictures::Order Canvas::orderOf(Piece piece, std::uint64_t number) const {
    return {text_, document()->width(), document()->height(), std::move(piece), number};
}

void Canvas::takeTruth(const TruePictures::Order& order, const QImage& image) {
    const Port& port = order.piece.port;
    if (order.piece.kind != Piece::Kind::Whole) {
        if (order.number != lastPieces_) return;
        --piecesDue_;
        scene_.setPiece(order.piece, image);
        if (!scene_.isComplete()) refineTimer_.start(0, this);
        return update();
    }
    if (order.number != lastOrder_) return; // of what is not shown any more
    scene_.setTruth(image, port);
    truthIsDue_ = truthTimer_.isActive() || port != scene_.port();
    update();
    if (port != scene_.port()) truthTimer_.start(restMilliseconds, this);
}

void Canvas::missTruth(const TruePictures::Order& order, const std::string& why) {
    if (order.piece.kind != Piece::Kind::Whole) { // the last picture of all shows on
        if (order.number == lastPieces_) --piecesDue_;
        return;
    }
    if (order.number != lastOrder_) return;
    truthFails_ = true;
    truthIsDue_ = false;
    scene_.dropTruth();
    update();
    if (tell) tell("Some art shows as boxes: the drawing cannot be drawn: " + why);
}

bool Canvas::updateText() {
    try {
        const std::uint64_t changes = document()->journal().changeCount();
        if (!text_ || changes != textChanges_) text_ = std::make_shared<const std::string>(svg::write(*document()));
        textChanges_ = changes;
        return true;
    } catch (const std::exception& error) {
        truthFails_ = true;
        if (tell) tell(error.what());
        return false;
    }
}

/// While a gesture runs, of the document as it was before.
void Canvas::askForTruth() {
    truthIsDue_ = false;
    if (dragging() && scene_.sharpenLive()) update();
    if (!document() || truthFails_ || scene_.port().size.isEmpty()) return;
    if (dragging() && (!textIsOfBefore_ || scene_.isTruthNew())) return;
    if (!wantsTruth()) {
        ++lastOrder_; // what was asked for before is out of date
        return scene_.dropTruth();
    }
    if (!dragging() && !updateText()) return;
    scene_.noteRequest();
    truthIsDue_ = true;
    truths_.ask(orderOf({.kind = Piece::Kind::Whole, .port = scene_.port()}, ++lastOrder_));
}

/// For the running gesture.
void Canvas::askForPieces() {
    if (!dragging() || !textIsOfBefore_) return;
    const auto wanted = scene_.takeWantedPieces();
    if (!wanted) return;
    ++lastPieces_;
    piecesDue_ = wanted->size();
    std::vector<TruePictures::Order> orders;
    for (const Piece& piece : *wanted) orders.push_back(orderOf(piece, lastPieces_));
    truths_.askPieces(std::move(orders));
}

// Events

bool Canvas::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride: {
        // While a gesture runs its keys come here, not to menus.
        const auto& key = static_cast<const QKeyEvent&>(*event);
        const bool takes = dragging() || key.key() == Qt::Key_Space;
        if (takes) {
            event->accept();
            return true;
        }
        break;
    }
    case QEvent::WindowBlocked: // a dialog has opened and takes the release
        cancelGesture();
        break;
    case QEvent::KeyPress:
        if (static_cast<const QKeyEvent&>(*event).key() == Qt::Key_Tab && dragging()) return true;
        break;
    default: break;
    }
    return QWidget::event(event);
}

void Canvas::resizeEvent(QResizeEvent* /*event*/) { showView(); }

void Canvas::timerEvent(QTimerEvent* event) {
    if (event->timerId() == truthTimer_.timerId()) {
        truthTimer_.stop();
        askForTruth();
        return askForPieces();
    }
    if (event->timerId() != refineTimer_.timerId()) return QWidget::timerEvent(event);
    for (const QRect& painted : scene_.refine(kSliceMilliseconds)) {
        const double scale = devicePixelRatioF();
        update(QRectF(painted.x() / scale, painted.y() / scale, painted.width() / scale, painted.height() / scale)
                   .toAlignedRect());
    }
    if (scene_.isComplete()) refineTimer_.stop();
}

Modifiers Canvas::modifiersOf(Qt::KeyboardModifiers keys) const {
    Modifiers held = heldByToggles ? heldByToggles() : 0;
    if (keys & Qt::ShiftModifier) held |= kAIShiftKey;
    if (keys & Qt::ControlModifier) held |= kAICommandKey;
    if (keys & Qt::AltModifier) held |= kAIOptionKey;
    if (keys & Qt::MetaModifier) held |= superIsOption ? kAIOptionKey : kAIControlKey;
    return held;
}

void Canvas::mousePressEvent(QMouseEvent* event) {
    lastPlace_ = event->position();
    const bool pans =
        event->button() == Qt::MiddleButton || (event->button() == Qt::LeftButton && handlingNow() == Handling::Hand);
    if (pans && !dragging()) {
        panFrom_ = event->position();
        return showCursor();
    }
    if (!document() || panFrom_) return;
    if (event->button() == Qt::RightButton && handlingNow() == Handling::Tool)
        return actions_.rightClick(toDocument(event->position()), modifiersOf(event->modifiers()));
    if (event->button() != Qt::LeftButton || dragging()) return;
    if (handlingNow() == Handling::Zoom)
        return zoomBy(modifiersOf(event->modifiers()) & kAIOptionKey ? 0.5 : 2, event->position());
    typedLength_.clear();
    const bool showsTruth = scene_.hasTruth() || truthIsDue_ || truthTimer_.isActive();
    textIsOfBefore_ = showsTruth && !truthFails_ && wantsTruth() && updateText();
    actions_.press(toDocument(event->position()), modifiersOf(event->modifiers()));
}

void Canvas::mouseDoubleClickEvent(QMouseEvent* event) { mousePressEvent(event); }

void Canvas::mouseMoveEvent(QMouseEvent* event) {
    lastPlace_ = event->position();
    if (panFrom_) {
        panBy(event->position() - *panFrom_);
        panFrom_ = event->position();
        return;
    }
    if (!document()) return;
    mouse_ = toDocument(event->position());
    const Modifiers held = modifiersOf(event->modifiers());
    if (dragging())
        actions_.drag(*mouse_, held);
    else if (handlingNow() == Handling::Tool)
        hover(held);
    if (viewChanged) viewChanged();
}

/// No act: the drawing stays as it is, but what plug-ins draw over it may change, and their cursor.
void Canvas::hover(Modifiers held) {
    session::Session& session = actions_.session();
    const auto marks = [&] {
        std::vector<model::Mark> all;
        for (const session::Annotator* each : session.annotations.all())
            all.insert(all.end(), each->marks.begin(), each->marks.end());
        return all;
    };
    const std::vector<model::Mark> before = marks();
    const StageCursor cursor = session.screen.cursor;
    session.pointer.move(*mouse_, held);
    session.annotations.update();
    if (marks() != before) update();
    const StageCursor& now = session.screen.cursor;
    const bool isAnother =
        now.number != cursor.number || now.plugin != cursor.plugin || now.resource != cursor.resource;
    if (isAnother) showCursor();
}

void Canvas::mouseReleaseEvent(QMouseEvent* event) {
    if (panFrom_ && (event->button() == Qt::MiddleButton || event->button() == Qt::LeftButton)) {
        panFrom_.reset();
        return showCursor();
    }
    if (event->button() != Qt::LeftButton || !document()) return;
    if (dragging()) actions_.release(toDocument(event->position()), modifiersOf(event->modifiers()));
    const session::Remark said = actions_.session().pointer.remark();
    if (said != session::Remark::None && remark) {
        remark(std::string("Nothing was drawn: the current layer is ") +
               (said == session::Remark::LayerLocked ? "locked" : "hidden"));
    }
}

void Canvas::cancelGesture() {
    panFrom_.reset();
    if (dragging()) actions_.key("Escape", 0);
}

void Canvas::leaveEvent(QEvent* /*event*/) {
    mouse_.reset();
    if (viewChanged) viewChanged();
}

void Canvas::wheelEvent(QWheelEvent* event) {
    const QPointF notches = QPointF(event->angleDelta()) / kNotch;
    lastPlace_ = event->position();
    if (event->modifiers() & Qt::ControlModifier) {
        const double turned = notches.y() == 0 ? notches.x() : notches.y(); // with Alt the axes are swapped
        zoomBy(std::pow(kWheelStep, turned), event->position());
    } else {
        constexpr double kStep = 48; // widget pixels a notch
        const QPointF way = event->pixelDelta().isNull() ? notches * kStep : QPointF(event->pixelDelta());
        panBy(event->modifiers() & Qt::ShiftModifier ? QPointF(way.y(), way.x()) : way);
    }
    if (dragging()) dragAgain(modifiersOf(event->modifiers())); // the mouse is elsewhere in the drawing
}

void Canvas::dragAgain(Modifiers modifiers) { actions_.drag(toDocument(lastPlace_), modifiers); }

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
