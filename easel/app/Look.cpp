// Palette and style sheet on Qt's Fusion style.
#include "app/Look.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QStyleFactory>

#include <array>

namespace easel::app {

namespace {

Look current;

Colors lightColors() {
    return {.dark = false,
            .panel = QColor(0xF1, 0xF2, 0xF4),
            .field = Qt::white,
            .desk = QColor(0xDE, 0xE0, 0xE4),
            .pageEdge = QColor(0xC4, 0xC7, 0xCD),
            .text = QColor(0x1E, 0x21, 0x26),
            .faint = QColor(0x7B, 0x82, 0x8D),
            .line = QColor(0xD5, 0xD8, 0xDD),
            .accent = QColor(0x17, 0x6A, 0xD1),
            .accentText = Qt::white,
            .chosen = QColor(0xDA, 0xE8, 0xF8),
            .grid = QColor(0x17, 0x6A, 0xD1, 40)};
}

Colors darkColors() {
    return {.dark = true,
            .panel = QColor(0x2B, 0x2D, 0x31),
            .field = QColor(0x22, 0x24, 0x28),
            .desk = QColor(0x19, 0x1A, 0x1D),
            .pageEdge = QColor(0x0F, 0x10, 0x12),
            .text = QColor(0xE6, 0xE8, 0xEC),
            .faint = QColor(0x93, 0x9A, 0xA5),
            .line = QColor(0x3C, 0x3F, 0x45),
            .accent = QColor(0x4A, 0x97, 0xF0),
            .accentText = QColor(0x0E, 0x16, 0x20),
            .chosen = QColor(0x2F, 0x45, 0x60),
            .grid = QColor(0x4A, 0x97, 0xF0, 60)};
}

QPalette paletteOf(const Colors& colors) {
    QPalette palette;
    palette.setColor(QPalette::Window, colors.panel);
    palette.setColor(QPalette::WindowText, colors.text);
    palette.setColor(QPalette::Base, colors.field);
    palette.setColor(QPalette::AlternateBase, colors.panel);
    palette.setColor(QPalette::Text, colors.text);
    palette.setColor(QPalette::Button, colors.panel);
    palette.setColor(QPalette::ButtonText, colors.text);
    palette.setColor(QPalette::ToolTipBase, colors.field);
    palette.setColor(QPalette::ToolTipText, colors.text);
    palette.setColor(QPalette::Highlight, colors.accent);
    palette.setColor(QPalette::HighlightedText, colors.accentText);
    palette.setColor(QPalette::PlaceholderText, colors.faint);
    palette.setColor(QPalette::Mid, colors.line);
    palette.setColor(QPalette::Dark, colors.line);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, colors.faint);
    return palette;
}

constexpr const char* kSheet = R"(
    QMenuBar { background: PANEL; }
    QMenuBar::item { padding: 4px 8px; border-radius: 3px; }
    QMenuBar::item:selected { background: CHOSEN; }
    QMenu { background: FIELD; border: 1px solid LINE; padding: 4px; }
    QMenu::item { padding: 4px 26px 4px 22px; border-radius: 3px; }
    QMenu::item:selected { background: ACCENT; color: ACCENTTEXT; }
    QMenu::item:disabled { color: FAINT; background: transparent; }
    QMenu::separator { height: 1px; background: LINE; margin: 4px 6px; }
    QToolBar { background: PANEL; border: none; padding: 4px; spacing: 2px; }
    QToolButton { border: none; border-radius: 4px; padding: 4px; }
    QToolButton:hover { background: CHOSEN; }
    QToolButton:checked { background: ACCENT; color: ACCENTTEXT; }
    QDockWidget::title { padding: 6px; background: PANEL; }
    QStatusBar { background: PANEL; }
    QStatusBar::item { border: none; }
    QLineEdit, QDoubleSpinBox { background: FIELD; border: 1px solid LINE; border-radius: 3px; padding: 2px 5px; }
    QLineEdit:focus, QDoubleSpinBox:focus { border-color: ACCENT; }
    QTreeWidget { background: FIELD; border: none; outline: none; }
    QTreeWidget::item { height: 26px; }
    QTreeWidget::item:selected { background: CHOSEN; color: TEXT; }
    QComboBox QLineEdit { border: none; background: transparent; padding: 0; }
    QPushButton { background: FIELD; border: 1px solid LINE; border-radius: 4px; padding: 4px 14px; min-height: 16px; }
    QPushButton:default { background: ACCENT; color: ACCENTTEXT; border-color: ACCENT; }
    QPushButton:focus { border-color: ACCENT; }
    QPushButton:disabled { color: FAINT; }
    QMainWindow::separator { background: LINE; width: 1px; height: 1px; }
)";

QString sheetOf(const Colors& colors) {
    QString sheet = QString::fromUtf8(kSheet);
    // Longer names first: one contains another.
    sheet.replace("ACCENTTEXT", colors.accentText.name());
    sheet.replace("ACCENT", colors.accent.name());
    sheet.replace("PANEL", colors.panel.name());
    sheet.replace("FIELD", colors.field.name());
    sheet.replace("CHOSEN", colors.chosen.name());
    sheet.replace("FAINT", colors.faint.name());
    sheet.replace("LINE", colors.line.name());
    sheet.replace("TEXT", colors.text.name());
    return sheet;
}

} // namespace

const Look& look() { return current; }

void applyLook(QApplication& application, bool dark) {
    current.colors = dark ? darkColors() : lightColors();
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setPalette(paletteOf(current.colors));
    QFont font("Inter");
    font.setPixelSize(12);
    font.setHintingPreference(QFont::PreferNoHinting);
    QApplication::setFont(font);
    // Fonts of platform themes would win over the application's.
    for (const char* const widget : {"QMenu", "QMenuBar", "QToolTip", "QStatusBar"})
        QApplication::setFont(font, widget);
    application.setStyleSheet(sheetOf(current.colors));
}

QString literal(QString text) { return text.replace('&', "&&"); }

QColor layerColor(std::size_t index) {
    static const std::array<QColor, 8> kColors{
        QColor(0xD0, 0x5A, 0x5A), QColor(0xD8, 0xC8, 0x4A), QColor(0x63, 0xC8, 0x63), QColor(0x57, 0xCB, 0xC8),
        QColor(0x4F, 0x78, 0xD8), QColor(0xA8, 0x5A, 0xD0), QColor(0xE0, 0x8A, 0x3C), QColor(0x8C, 0x8C, 0x8C)};
    return kColors[index % kColors.size()];
}

} // namespace easel::app
