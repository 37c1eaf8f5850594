// Ticks at round numbers, at least so far apart that the numbers can be read.
#include "app/Ruler.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

#include "app/Look.h"

namespace easel::app {

namespace {

constexpr double kLeastApart = 48; // widget pixels between numbers
constexpr double kBeside = 12;     // of them beside a number

/// The least of 1, 2 and 5 times a power of ten that is so many widget pixels.
double stepFor(double zoom, double apart) {
    const double least = apart / zoom;
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double times : {1.0, 2.0, 5.0})
        if (times * power >= least) return times * power;
    return 10 * power;
}

/// With the decimals that its step has.
QString numberAt(double place, double step) {
    const int decimals = std::max(0, static_cast<int>(-std::floor(std::log10(step) + 1e-9)));
    return QString::number(place, 'f', decimals);
}

/// The widest number must fit between two.
double stepThatFits(const QFontMetrics& metrics, double zoom, double farthest) {
    const double widest = metrics.horizontalAdvance(numberAt(-farthest, stepFor(zoom, kLeastApart)));
    return stepFor(zoom, std::max(kLeastApart, widest + kBeside));
}

} // namespace

Ruler::Ruler(const Canvas& canvas, Qt::Orientation orientation)
    : canvas_(canvas), lies_(orientation == Qt::Horizontal) {
    lies_ ? setFixedHeight(kBreadth) : setFixedWidth(kBreadth);
}

void Ruler::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const Colors& colors = look().colors;
    painter.fillRect(rect(), colors.panel);
    if (!canvas_.hasDocument()) return;
    QFont small = font();
    small.setPixelSize(10);
    painter.setFont(small);
    const int length = lies_ ? width() : height();
    const model::Point corner = canvas_.toDocument({0, 0});
    const double start = lies_ ? corner.x : corner.y;
    const double zoom = canvas_.zoom();
    const double step =
        stepThatFits(painter.fontMetrics(), zoom, std::max(std::abs(start), std::abs(start + length / zoom)));
    const auto line = [&](double at, double from) {
        lies_ ? painter.drawLine(QPointF(at, from), QPointF(at, kBreadth))
              : painter.drawLine(QPointF(from, at), QPointF(kBreadth, at));
    };
    constexpr int kParts = 10;
    const double first = std::floor(start / step);
    const int count = static_cast<int>(length / (step * zoom)) + 2;
    for (int i = 0; i < count; ++i) {
        const double index = first + i;
        const double place = (index * step - start) * zoom;
        painter.setPen(colors.line.darker(colors.dark ? 60 : 125));
        for (int part = 1; part < kParts; ++part)
            line(std::round(place + part * step * zoom / kParts) + 0.5, part == kParts / 2 ? 13 : 16);
        line(std::round(place) + 0.5, 6);
        painter.setPen(colors.faint);
        const QString number = numberAt(index * step, step);
        painter.save();
        painter.translate(lies_ ? QPointF(place + 4, 11) : QPointF(11, place - 4));
        if (!lies_) painter.rotate(-90);
        painter.drawText(QPointF(0, 0), number);
        painter.restore();
    }
    if (const auto mouse = canvas_.mouse()) {
        const QPointF place = canvas_.fromDocument(*mouse);
        painter.setPen(QPen(colors.accent, 1));
        line(lies_ ? place.x() : place.y(), 0);
    }
}

} // namespace easel::app
