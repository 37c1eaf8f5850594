// Rows are made when there is something to tell.
#include "app/Notices.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QToolButton>

#include <algorithm>

#include "app/Application.h"
#include "app/Look.h"

namespace easel::app {

Notices::Notices(QWidget* parent) : QWidget(parent) {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(10, 3, 6, 3);
    column->setSpacing(2);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum); // the room is the drawing's
    hide();
}

void Notices::tell(Kind kind, const QString& text, const QString& button, std::function<void()> what) {
    drop(kind);
    auto* const row = rows_[kind] = new QWidget(this);
    auto* const line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    auto* const label = new QLabel(row);
    label->setObjectName("notice");
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setText(text);
    line->addWidget(label, 1);
    if (what) {
        auto* const way = new QPushButton(button, row);
        way->setFocusPolicy(Qt::TabFocus);
        connect(way, &QPushButton::clicked, this, guarded(std::move(what)));
        line->addWidget(way);
    }
    auto* const close = new QToolButton(row);
    close->setIcon(icon(Symbol::Close));
    close->setIconSize(kButtonIcon);
    close->setFocusPolicy(Qt::TabFocus);
    close->setToolTip("Close the notice");
    close->setAccessibleName("Close the notice");
    connect(close, &QToolButton::clicked, this, guarded([this, kind] { drop(kind); }));
    line->addWidget(close);
    layout()->addWidget(row);
    show();
}

void Notices::drop(Kind kind) {
    QWidget* const row = std::exchange(rows_[kind], nullptr);
    if (!row) return;
    row->hide();
    layout()->removeWidget(row);
    row->deleteLater(); // its button may be under way
    if (std::all_of(rows_.begin(), rows_.end(), [](const QWidget* each) { return !each; })) hide();
}

void Notices::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), look().colors.chosen);
    painter.fillRect(0, height() - 1, width(), 1, look().colors.line);
}

void Hint::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QRect place = contentsRect();
    const QString fitting = fontMetrics().elidedText(text(), Qt::ElideRight, place.width());
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, fitting);
    const QString whole = fitting == text() ? QString() : "<qt>" + text().toHtmlEscaped() + "</qt>";
    if (toolTip() != whole) setToolTip(whole);
}

} // namespace easel::app
