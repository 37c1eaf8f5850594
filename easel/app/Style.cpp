// What is not drawn here is Fusion's.
#include "app/Style.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QPainter>
#include <QStyleOption>

#include <algorithm>
#include <optional>

#include "app/Look.h"

namespace easel::app {

namespace {

constexpr double kRound = 3; // radius of corners, pixels

/// A rectangle with round corners, and an edge where one is given.
void box(QPainter& painter, const QRect& frame, const QColor& inside, const std::optional<QColor>& edge = {}) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(edge ? QPen(*edge, 1) : QPen(Qt::NoPen));
    painter.setBrush(inside);
    const double half = edge ? 0.5 : 0;
    painter.drawRoundedRect(QRectF(frame).adjusted(half, half, -half, -half), kRound, kRound);
    painter.restore();
}

/// The edge of what can be filled in, or pressed.
QColor edgeOf(const QStyleOption& option) {
    const bool hasFocus = (option.state & QStyle::State_Enabled) && (option.state & QStyle::State_HasFocus);
    return hasFocus ? look().colors.accent : look().colors.line;
}

void field(QPainter& painter, const QStyleOption& option) {
    box(painter, option.rect, look().colors.field, edgeOf(option));
}

bool isPartOfField(const QWidget* widget) {
    const QWidget* const parent = widget ? widget->parentWidget() : nullptr;
    return qobject_cast<const QComboBox*>(parent) || qobject_cast<const QAbstractSpinBox*>(parent);
}

void drawToolButton(QPainter& painter, const QStyleOption& option) {
    const Colors& colors = look().colors;
    if (option.state & QStyle::State_On)
        box(painter, option.rect, colors.accent);
    else if (option.state & QStyle::State_Sunken)
        box(painter, option.rect, colors.chosen, colors.accent);
    else if ((option.state & QStyle::State_MouseOver) && (option.state & QStyle::State_Enabled))
        box(painter, option.rect, colors.chosen);
}

void drawPushButton(QPainter& painter, const QStyleOptionButton& button) {
    const Colors& colors = look().colors;
    if (button.features & QStyleOptionButton::Flat) return;
    const bool isDefault = button.features & QStyleOptionButton::DefaultButton;
    QColor inside = isDefault ? colors.accent : colors.field;
    if (button.state & QStyle::State_Sunken)
        inside = isDefault ? colors.accent.darker(115) : colors.chosen;
    else if (button.state & QStyle::State_MouseOver && !isDefault)
        inside = colors.chosen;
    const bool hasFocus = button.state & QStyle::State_HasFocus;
    box(painter, button.rect, inside, isDefault || hasFocus ? colors.accent : colors.line);
}

void drawCheckBox(QPainter& painter, const QStyleOption& option) {
    const Colors& colors = look().colors;
    const bool isOn = option.state & QStyle::State_On;
    const bool isEnabled = option.state & QStyle::State_Enabled;
    const QColor color = isEnabled ? colors.accent : colors.faint;
    box(painter, option.rect, isOn ? color : colors.field, isOn ? color : colors.faint);
    if (!isOn) return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colors.accentText, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QRectF r(option.rect);
    const QPointF tick[] = {{r.left() + r.width() * 0.24, r.top() + r.height() * 0.52},
                            {r.left() + r.width() * 0.43, r.top() + r.height() * 0.72},
                            {r.left() + r.width() * 0.77, r.top() + r.height() * 0.30}};
    painter.drawPolyline(tick, 3);
    painter.restore();
}

void drawProgress(QPainter& painter, const QStyleOptionProgressBar& bar) {
    const int whole = bar.maximum - bar.minimum;
    if (whole <= 0) return;
    QRect done = bar.rect.adjusted(1, 1, -1, -1);
    done.setWidth(done.width() * (bar.progress - bar.minimum) / whole);
    if (done.width() > 0) box(painter, done, look().colors.chosen);
}

/// In one colour on both parts of the bar.
void drawProgressText(QPainter& painter, const QStyleOptionProgressBar& bar) {
    constexpr int kMargin = 8;
    const QRect place = bar.rect.adjusted(kMargin, 0, -kMargin, 0);
    painter.setPen(look().colors.text);
    painter.drawText(place, Qt::AlignCenter, bar.fontMetrics.elidedText(bar.text, Qt::ElideRight, place.width()));
}

void drawMenuBarItem(QPainter& painter, const QStyleOptionMenuItem& item) {
    const bool isChosen = item.state & (QStyle::State_Selected | QStyle::State_Sunken);
    painter.fillRect(item.rect, look().colors.panel);
    if (isChosen) box(painter, item.rect, look().colors.chosen);
    painter.setPen(item.state & QStyle::State_Enabled ? look().colors.text : look().colors.faint);
    painter.drawText(item.rect, Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextSingleLine, item.text);
}

void drawArrow(QPainter& painter, const QRect& frame, bool isEnabled) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(isEnabled ? look().colors.text : look().colors.faint, 1.4, Qt::SolidLine, Qt::RoundCap));
    const QPointF middle = QRectF(frame).center();
    const QPointF arrow[] = {middle + QPointF(-3.5, -1.5), middle + QPointF(0, 2), middle + QPointF(3.5, -1.5)};
    painter.drawPolyline(arrow, 3);
    painter.restore();
}

} // namespace

// Measures

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
    case PM_ToolBarFrameWidth:
    case PM_MenuBarPanelWidth:
    case PM_MenuBarVMargin:
    case PM_MenuBarItemSpacing:
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical: return 0;
    case PM_ToolBarItemMargin:
    case PM_MenuBarHMargin:
    case PM_MenuHMargin:
    case PM_MenuVMargin: return 4;
    case PM_ToolBarItemSpacing: return 2;
    case PM_MenuPanelWidth: return 1;
    default: return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* more) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons || hint == SH_EtchDisabledText) return 0;
    return QProxyStyle::styleHint(hint, option, widget, more);
}

QSize Style::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                              const QWidget* widget) const {
    constexpr int kRow = 26;
    const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    switch (type) {
    case CT_MenuBarItem: return contents + QSize(16, 8);
    case CT_PushButton: return {contents.width() + 30, std::max(contents.height() + 10, kRow)};
    case CT_ToolButton: return contents + QSize(8, 8);
    case CT_LineEdit: return size + QSize(6, 2);
    case CT_ItemViewItem: return {size.width(), std::max(size.height(), kRow)};
    case CT_MenuItem: {
        const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        const bool parts = item && item->menuItemType == QStyleOptionMenuItem::Separator;
        return parts ? QSize(size.width(), 9) : QSize(size.width() + 8, std::max(size.height(), 24));
    }
    default: return size;
    }
}

QRect Style::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const {
    const QRect rectangle = QProxyStyle::subElementRect(element, option, widget);
    if (element == SE_LineEditContents && !isPartOfField(widget)) return rectangle.adjusted(3, 0, -3, 0);
    return rectangle;
}

QIcon Style::standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const {
    switch (which) {
    case SP_MessageBoxInformation: return icon(Symbol::Information);
    case SP_MessageBoxQuestion: return icon(Symbol::Question);
    case SP_MessageBoxWarning: return icon(Symbol::Warning);
    case SP_MessageBoxCritical: return icon(Symbol::Critical);
    case SP_DirIcon:
    case SP_DirLinkIcon:
    case SP_DirHomeIcon:
    case SP_DesktopIcon:
    case SP_DriveHDIcon:
    case SP_ComputerIcon: return icon(Symbol::Folder);
    case SP_FileIcon:
    case SP_FileLinkIcon: return icon(Symbol::File);
    case SP_FileDialogNewFolder: return icon(Symbol::NewFolder);
    case SP_FileDialogToParent: return icon(Symbol::Up);
    case SP_ArrowBack: return icon(Symbol::Back);
    case SP_ArrowForward: return icon(Symbol::Forward);
    case SP_ToolBarHorizontalExtensionButton:
    case SP_ToolBarVerticalExtensionButton: return icon(Symbol::More);
    default: return QProxyStyle::standardIcon(which, option, widget);
    }
}

// Drawing

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
    const Colors& colors = look().colors;
    switch (element) {
    case PE_PanelMenuBar:
    case PE_PanelStatusBar:
    case PE_FrameStatusBarItem:
    case PE_FrameLineEdit: return; // drawn with its panel
    case PE_PanelLineEdit: {
        const auto* const frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
        if (frame && frame->lineWidth > 0) return field(*painter, *option);
        if (!isPartOfField(widget)) painter->fillRect(option->rect, colors.field);
        return;
    }
    case PE_PanelButtonTool: return drawToolButton(*painter, *option);
    case PE_IndicatorCheckBox: return drawCheckBox(*painter, *option);
    case PE_IndicatorToolBarSeparator: {
        const QPoint middle = option->rect.center();
        const bool lies = !(option->state & State_Horizontal);
        return painter->fillRect(lies ? QRect(option->rect.left() + 5, middle.y(), option->rect.width() - 10, 1)
                                      : QRect(middle.x(), option->rect.top() + 5, 1, option->rect.height() - 10),
                                 colors.line);
    }
    case PE_PanelMenu: return painter->fillRect(option->rect, colors.field);
    case PE_FrameMenu:
        painter->setPen(colors.line);
        painter->setBrush(Qt::NoBrush);
        return painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    case PE_FrameFocusRect:
        if (!qobject_cast<const QAbstractItemView*>(widget))
            box(*painter, option->rect, Qt::transparent, colors.accent);
        return;
    default: QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

/// With the text in the colour that goes with what lies under it.
void Style::drawLabel(ControlElement element, const QStyleOption& option, QPainter& painter,
                      const QWidget* widget) const {
    const QColor onAccent = look().colors.accentText;
    if (const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(&option)) {
        QStyleOptionButton changed = *button;
        if (button->features & QStyleOptionButton::DefaultButton)
            changed.palette.setColor(QPalette::ButtonText, onAccent);
        return QProxyStyle::drawControl(element, &changed, &painter, widget);
    }
    const auto* const tool = qstyleoption_cast<const QStyleOptionToolButton*>(&option);
    if (!tool) return QProxyStyle::drawControl(element, &option, &painter, widget);
    QStyleOptionToolButton changed = *tool;
    if (tool->state & State_On) changed.palette.setColor(QPalette::ButtonText, onAccent);
    QProxyStyle::drawControl(element, &changed, &painter, widget);
}

void Style::drawMenuItem(const QStyleOptionMenuItem& item, QPainter& painter, const QWidget* widget) const {
    const Colors& colors = look().colors;
    if (item.menuItemType == QStyleOptionMenuItem::Separator)
        return painter.fillRect(QRect(item.rect.left() + 6, item.rect.center().y(), item.rect.width() - 12, 1),
                                colors.line);
    QStyleOptionMenuItem changed = item;
    const bool isEnabled = item.state & State_Enabled;
    if ((item.state & State_Selected) && isEnabled) {
        box(painter, item.rect, colors.accent);
        for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
            changed.palette.setColor(role, colors.accentText);
    }
    changed.state &= ~State_Selected;
    QProxyStyle::drawControl(CE_MenuItem, &changed, &painter, widget);
}

void Style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                        const QWidget* widget) const {
    switch (element) {
    case CE_ToolBar:
    case CE_MenuBarEmptyArea:
    case CE_MenuEmptyArea: return;
    case CE_Splitter: return painter->fillRect(option->rect, look().colors.line);
    case CE_MenuBarItem:
        if (const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option))
            return drawMenuBarItem(*painter, *item);
        break;
    case CE_MenuItem:
        if (const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option))
            return drawMenuItem(*item, *painter, widget);
        break;
    case CE_PushButtonBevel:
        if (const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(option))
            return drawPushButton(*painter, *button);
        break;
    case CE_PushButtonLabel:
    case CE_ToolButtonLabel: return drawLabel(element, *option, *painter, widget);
    case CE_ProgressBarGroove: return field(*painter, *option);
    case CE_ProgressBarContents:
        if (const auto* const bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option))
            return drawProgress(*painter, *bar);
        break;
    case CE_ProgressBarLabel:
        if (const auto* const bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option))
            return drawProgressText(*painter, *bar);
        break;
    default: break;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                               const QWidget* widget) const {
    const auto* const spin = qstyleoption_cast<const QStyleOptionSpinBox*>(option);
    if (control == CC_SpinBox && spin && spin->buttonSymbols == QAbstractSpinBox::NoButtons)
        return field(*painter, *option);
    if (const auto* const tool = qstyleoption_cast<const QStyleOptionToolButton*>(option)) {
        QStyleOptionToolButton plain = *tool;
        plain.features &= ~QStyleOptionToolButton::HasMenu; // an arrow would cover a part of the icon
        return QProxyStyle::drawComplexControl(control, &plain, painter, widget);
    }
    if (control != CC_ComboBox) return QProxyStyle::drawComplexControl(control, option, painter, widget);
    field(*painter, *option);
    drawArrow(*painter, subControlRect(control, option, SC_ComboBoxArrow, widget), option->state & State_Enabled);
}

} // namespace easel::app
