// The menu is made when it opens, so that its pictures fit light and dark.
#include "app/Swatch.h"

#include <QColorDialog>
#include <QMenu>
#include <QPainter>

#include <array>

#include "app/Application.h"
#include "app/Look.h"

namespace easel::app {

namespace {

struct Named {
    const char* name;
    QColor color;
};
const std::array<Named, 9> kOffered{{{"Black", QColor(0, 0, 0)},
                                     {"Slate", QColor(0x3B, 0x4A, 0x5A)},
                                     {"Grey", QColor(0x80, 0x86, 0x8B)},
                                     {"White", QColor(255, 255, 255)},
                                     {"Red", QColor(0xC0, 0x39, 0x2B)},
                                     {"Orange", QColor(0xE6, 0x7E, 0x22)},
                                     {"Yellow", QColor(0xF1, 0xC4, 0x0F)},
                                     {"Green", QColor(0x27, 0x8E, 0x4E)},
                                     {"Blue", QColor(0x17, 0x6A, 0xD1)}}};

/// Of the colour, or one that runs from dark to light. White with a stroke through it paints nothing, white with a dash
/// is not the same for all.
QIcon square(const Paint& paint) {
    return painted([paint](QPainter& painter, const QRect& rect, QIcon::Mode mode) {
        if (mode == QIcon::Disabled) painter.setOpacity(0.35);
        painter.setPen(QPen(look().colors.faint, 1));
        const QRectF square = QRectF(rect).adjusted(1.5, 1.5, -1.5, -1.5);
        QLinearGradient fading(square.topLeft(), square.bottomRight());
        fading.setColorAt(0, QColor(0x40, 0x44, 0x4A));
        fading.setColorAt(1, Qt::white);
        painter.setBrush(paint.kind == Paint::Served  ? QBrush(fading)
                         : paint.kind == Paint::Plain ? QBrush(paint.color)
                                                      : QBrush(Qt::white));
        painter.drawRoundedRect(square, 2, 2);
        painter.setPen(QPen(QColor(0xD0, 0x30, 0x30), 1.6));
        if (paint.kind == Paint::None)
            painter.drawLine(square.bottomLeft() + QPointF(1, -1), square.topRight() + QPointF(-1, 1));
        painter.setPen(QPen(QColor(0x60, 0x66, 0x70), 1.6));
        const QPointF half(square.width() / 4, 0);
        if (paint.kind == Paint::Mixed) painter.drawLine(square.center() - half, square.center() + half);
    });
}

QString nameOf(const Paint& paint) {
    switch (paint.kind) {
    case Paint::Plain: return paint.color.name();
    case Paint::Served: return "gradient or pattern";
    case Paint::Mixed: return "not the same for all";
    default: return "none";
    }
}

} // namespace

Swatch::Swatch(const QString& title, QWidget* parent) : QToolButton(parent), title_(title) {
    setIconSize({20, 20});
    setPopupMode(QToolButton::InstantPopup);
    setFocusPolicy(Qt::StrongFocus);
    auto* const menu = new QMenu(this);
    setMenu(menu);
    connect(menu, &QMenu::aboutToShow, this, guarded([this] { fillMenu(); }));
    setPaint({});
}

void Swatch::setPaint(const Paint& paint) {
    paint_ = paint;
    setIcon(square(paint));
    const QString what = title_ + ": " + nameOf(paint);
    setToolTip(what);
    setAccessibleName(what);
}

void Swatch::fillMenu() {
    menu()->clear();
    const auto offer = [this](const QString& name, std::optional<QColor> color) {
        connect(menu()->addAction(square(color ? Paint{Paint::Plain, *color} : Paint()), name), &QAction::triggered,
                this, guarded([this, color] {
                    if (chosen) chosen(color);
                }));
    };
    offer("None", {});
    for (const Named& each : kOffered) offer(each.name, each.color);
    menu()->addSeparator();
    connect(menu()->addAction("Other..."), &QAction::triggered, this, guarded([this] { chooseOther(); }));
}

void Swatch::chooseOther() {
    const QColor other = QColorDialog::getColor(paint_.kind == Paint::Plain ? paint_.color : Qt::black, this, title_);
    window()->activateWindow(); // without a window manager nobody else does
    if (other.isValid() && chosen) chosen(other);
}

} // namespace easel::app
