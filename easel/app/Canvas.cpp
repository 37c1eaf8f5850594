// The mouse and the view. Keys are in CanvasKeys.cpp, what lies over the drawing in CanvasPainting.cpp, and what comes
// from the renderer in CanvasTruth.cpp.
#include "app/Canvas.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPixmap>
#include <QTimerEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "app/Application.h"
#include "session/input/Keys.h"

namespace easel::app {

namespace {

using model::Point;
using session::Modifiers;

constexpr double kLeastZoom = 0.01; // unless the page needs less
constexpr double kMostZoom = 256;
constexpr double kWheelStep = 1.2;    // zoom factor of a notch
constexpr double kNotch = 120;        // what a wheel's notch says of itself
constexpr int kSliceMilliseconds = 8; // of painting between events
constexpr double kMargin = 24;        // around the page that is fitted, in widget pixels

/// Plug-ins number the host's cursors. Pens look alike here.
constexpr std::int32_t kMoveCursor = 140;

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
    dropPieces();
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
    dropPieces();
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
    dropPieces();
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

Modifiers Canvas::modifiersOf(Qt::KeyboardModifiers down) const {
    Modifiers held = heldByToggles ? heldByToggles() : 0;
    if (down & Qt::ShiftModifier) held |= kAIShiftKey;
    if (down & Qt::ControlModifier) held |= keys.ctrl;
    if (down & Qt::AltModifier) held |= keys.alt;
    if (down & Qt::MetaModifier) held |= keys.super;
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

} // namespace easel::app
