// What the canvas shows: desk and page, the scene, and over it what is selected, marked, and told of a gesture.
#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "app/Canvas.h"
#include "app/Look.h"

namespace easel::app {

namespace {

using model::Mark;
using model::Node;
using model::NodeType;
using model::PathData;
using model::Point;

constexpr std::size_t kMostOutlines = 3000; // of selected objects; beyond that one box stands for all
constexpr std::size_t kMostAnchors = 4000;
constexpr double kFarthest = 1e6; // widget pixels

QPointF clamped(QPointF place) {
    return {std::clamp(place.x(), -kFarthest, kFarthest), std::clamp(place.y(), -kFarthest, kFarthest)};
}

QColor colorOf(const model::Color& color, double opacity) {
    return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                            static_cast<float>(color.blue), static_cast<float>(opacity));
}

QPen penOf(const model::Pen& pen) {
    QPen out(colorOf(pen.color, pen.opacity), pen.lineWidth);
    if (pen.dash > 0 && pen.lineWidth > 0) out.setDashPattern({pen.dash / pen.lineWidth, pen.dash / pen.lineWidth});
    return out;
}

void paintMark(QPainter& painter, const Mark& mark, const std::vector<QPointF>& places) {
    if (mark.kind == Mark::Kind::Text) {
        QFont font = painter.font();
        font.setPixelSize(std::max(1, static_cast<int>(std::lround(mark.pen.fontSize))));
        painter.setFont(font);
        painter.setPen(colorOf(mark.pen.color, mark.pen.opacity));
        return painter.drawText(places[0], QString::fromStdString(mark.text));
    }
    painter.setPen(mark.filled ? QPen(Qt::NoPen) : penOf(mark.pen));
    painter.setBrush(mark.filled ? QBrush(colorOf(mark.pen.color, mark.pen.opacity)) : QBrush(Qt::NoBrush));
    switch (mark.kind) {
    case Mark::Kind::Line: return painter.drawLine(places[0], places[1]);
    case Mark::Kind::Rectangle: return painter.drawRect(QRectF(places[0], places[1]).normalized());
    case Mark::Kind::Ellipse: return painter.drawEllipse(QRectF(places[0], places[1]).normalized());
    case Mark::Kind::Polygon: return painter.drawPolygon(places.data(), static_cast<int>(places.size()));
    case Mark::Kind::Text: return;
    }
}

void addOutline(QPainterPath& to, const PathData& path, const Canvas& canvas) {
    if (path.points.empty()) return;
    const auto place = [&](Point point) { return clamped(canvas.fromDocument(point)); };
    to.moveTo(place(path.points.front().anchor));
    for (std::size_t i = 0; i < path.segmentCount(); ++i) {
        const model::Cubic c = path.segment(i);
        if (model::isStraight(c))
            to.lineTo(place(c[3]));
        else
            to.cubicTo(place(c[1]), place(c[2]), place(c[3]));
    }
}

QRectF rectangleOf(const model::Box& box, const Canvas& canvas) {
    return {clamped(canvas.fromDocument({box.left, box.top})), clamped(canvas.fromDocument({box.right, box.bottom}))};
}

void paintAnchors(QPainter& painter, const Node& node, const Canvas& canvas) {
    constexpr double kHalf = 3;
    const PathData& path = node.path();
    for (std::size_t i = 0; i < path.points.size(); ++i) {
        const QPointF at = clamped(canvas.fromDocument(path.points[i].anchor));
        const bool selected = node.pointSelected(i);
        for (const Point handle : {path.points[i].in, path.points[i].out}) {
            if (!selected || node.allPointsSelected() || handle == path.points[i].anchor) continue;
            const QPointF end = clamped(canvas.fromDocument(handle));
            painter.drawLine(at, end);
            painter.setBrush(painter.pen().color());
            painter.drawEllipse(end, kHalf - 0.5, kHalf - 0.5);
        }
        painter.setBrush(selected && !node.allPointsSelected() ? painter.pen().color() : QColor(Qt::white));
        painter.drawRect(QRectF(at.x() - kHalf, at.y() - kHalf, 2 * kHalf, 2 * kHalf));
    }
}

} // namespace

void Canvas::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setClipRegion(event->region());
    paintDesk(painter);
    if (!document()) return;
    const double scale = devicePixelRatioF();
    const QRect part = event->region().boundingRect();
    const QRect pixels =
        QRectF(part.x() * scale, part.y() * scale, part.width() * scale, part.height() * scale).toAlignedRect() &
        QRect(QPoint(0, 0), scene_.port().size);
    painter.save();
    painter.scale(1 / scale, 1 / scale);
    scene_.paint(painter, pixels);
    scene_.paintLive(painter, pixels);
    painter.restore();
    painter.setRenderHint(QPainter::Antialiasing);
    if (actions_.session().pointer.snapping.axisGrid) paintGrid(painter, part);
    paintSelection(painter);
    paintMarks(painter);
    if (dragging()) paintMarquee(painter);
    if (dragging() && feedbackShown) paintFeedback(painter);
}

void Canvas::paintDesk(QPainter& painter) const {
    const Colors& colors = look().colors;
    if (!document()) {
        painter.fillRect(rect(), colors.desk);
        painter.setPen(colors.faint);
        painter.drawText(rect(), Qt::AlignCenter, notice_.isEmpty() ? "File > New or Open begins a drawing" : notice_);
        return;
    }
    const QRectF page = rectangleOf({0, 0, document()->width(), document()->height()}, *this);
    painter.save(); // of what lies below the page only its edges are painted: a page is large
    painter.setClipRegion(QRegion(rect()) - page.toAlignedRect().adjusted(1, 1, -1, -1), Qt::IntersectClip);
    painter.fillRect(rect(), colors.desk);
    for (int i = 4; i > 0; --i)
        painter.fillRect(page.adjusted(-i + 1, -i + 2, i - 1, i), QColor(0, 0, 0, colors.dark ? 40 : 14));
    painter.fillRect(page.adjusted(-1, -1, 1, 1), colors.pageEdge);
    painter.restore();
    painter.fillRect(page, Qt::white);
}

/// The lines of the grid that cross a part of the widget. Where they would lie too close there are fewer.
void Canvas::paintGrid(QPainter& painter, const QRect& part) const {
    static constexpr double kLeastApart = 10; // widget pixels
    static constexpr int kMain = 5;           // each so many lines one that is stronger
    const session::Session& session = actions_.session();
    double spacing = session.pointer.snapping.gridSpacing;
    const double reach = std::hypot(part.width(), part.height()) / zoom() / 2;
    const Point middle = toDocument(QRectF(part).center());
    QColor faint = look().colors.grid;
    faint.setAlphaF(faint.alphaF() / 2);
    const auto isTooDense = [this](const session::AxisGrid& grid) {
        return std::any_of(grid.lines().begin(), grid.lines().end(), [this](const session::AxisGrid::Lines& lines) {
            return lines.apart * zoom() < kLeastApart;
        });
    };
    session::AxisGrid grid(session.toolbox.axes(), spacing);
    while (isTooDense(grid)) grid = session::AxisGrid(session.toolbox.axes(), spacing *= 2);
    for (const session::AxisGrid::Lines& lines : grid.lines()) {
        const Point way = lines.direction;
        const double apart = lines.apart;
        const double along = middle.x * way.x + middle.y * way.y;
        const double beside = middle.x * way.y - middle.y * way.x;
        const auto at = [&](double s, double t) {
            return fromDocument({s * way.x + t * way.y, s * way.y - t * way.x});
        };
        const double first = std::ceil((beside - reach) / apart) * apart;
        const int last = static_cast<int>(std::floor((beside + reach - first) / apart));
        for (int i = 0; i <= last; ++i) {
            const bool isMain = std::fmod(std::round(first / apart) + i, kMain) == 0;
            painter.setPen(QPen(isMain ? look().colors.grid : faint, 1));
            painter.drawLine(at(along - reach, first + i * apart), at(along + reach, first + i * apart));
        }
    }
}

void Canvas::paintMarquee(QPainter& painter) const {
    const session::Tool& tool = *actions_.session().toolbox.current();
    const auto box = tool.builtin ? tool.builtin->marquee() : std::nullopt;
    if (!box) return;
    QColor inside = look().colors.accent;
    inside.setAlphaF(0.12F);
    painter.setPen(QPen(look().colors.accent, 1));
    painter.setBrush(inside);
    painter.drawRect(rectangleOf(*box, *this));
}

void Canvas::paintSelection(QPainter& painter) const {
    std::vector<Node*> selection = document()->selection();
    std::erase_if(selection, [](const Node* node) { return node->effectivelyHidden(); });
    if (selection.empty()) return;
    painter.setPen(QPen(look().colors.accent, 1));
    painter.setBrush(Qt::NoBrush);
    if (selection.size() > kMostOutlines) {
        model::Box all;
        for (const Node* const node : selection) all.include(node->hull());
        if (!all.isEmpty()) painter.drawRect(rectangleOf(all, *this));
        return;
    }
    QPainterPath outlines;
    std::size_t anchors = 0;
    for (const Node* const node : selection) {
        if (node->type() == NodeType::Path) {
            addOutline(outlines, node->path(), *this);
            anchors += node->path().points.size();
        } else if (node->type() == NodeType::Opaque && !node->hull().isEmpty()) {
            outlines.addRect(rectangleOf(node->hull(), *this));
        }
    }
    painter.drawPath(outlines);
    if (anchors > kMostAnchors) return;
    for (const Node* const node : selection)
        if (node->type() == NodeType::Path) paintAnchors(painter, *node, *this);
}

void Canvas::paintMarks(QPainter& painter) const {
    for (const session::Annotator* const annotator : actions_.session().annotations.all()) {
        for (const Mark& mark : annotator->marks) {
            std::vector<QPointF> places;
            for (const Point point : mark.points) places.push_back(clamped(fromDocument(point)));
            const std::size_t needed = mark.kind == Mark::Kind::Text || mark.kind == Mark::Kind::Polygon ? 1 : 2;
            if (places.size() >= needed) paintMark(painter, mark, places);
        }
    }
}

std::string Canvas::feedback() const {
    const session::Pointer& pointer = actions_.session().pointer;
    Point from = pointer.pressLocation();
    Point to = pointer.location();
    // Of a line being drawn, what it is; the tool may hold it to an axis.
    if (const auto& live = watch_.live(); live.size() == 1 && live[0]->type() == NodeType::Path) {
        const auto& points = live[0]->path().points;
        if (points.size() == 2 && live[0]->origin() == 0 && points[0].anchor == from) to = points[1].anchor;
    }
    // Of what is moved, how far; the tool may hold that to an axis.
    const auto moved = watch_.live().empty() ? std::nullopt : watch_.movedBy(*watch_.live().front());
    if (moved) to = {from.x + moved->x, from.y + moved->y};
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    std::string typed = typedLength_.empty() ? "" : typedLength_ + "| pt";
    if (length == 0) return typed;
    double angle = std::atan2(from.y - to.y, to.x - from.x) * 180 / std::numbers::pi;
    if (std::abs(angle) < 0.05) angle = 0;
    const QString first = typed.empty() ? QString::number(length, 'f', 1) + " pt" : QString::fromStdString(typed);
    return (first + "   " + QString::number(angle, 'f', 1) + "°").toStdString();
}

void Canvas::paintFeedback(QPainter& painter) const {
    const QString text = QString::fromStdString(feedback());
    if (text.isEmpty()) return;
    constexpr double kAway = 14;
    const QRectF needed = painter.boundingRect(QRectF(0, 0, 400, 40), Qt::AlignLeft, text);
    QRectF label(lastPlace_.x() + kAway, lastPlace_.y() - kAway - 22, needed.width() + 14, 22);
    label.moveRight(std::clamp(label.right(), label.width() + 4.0, std::max(width() - 4.0, label.width() + 4.0)));
    label.moveTop(std::clamp(label.top(), 4.0, std::max(height() - 4.0 - label.height(), 4.0)));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(40, 42, 46, 235));
    painter.drawRoundedRect(label, 3, 3);
    painter.setPen(Qt::white);
    painter.drawText(label, Qt::AlignCenter, text);
}

} // namespace easel::app
