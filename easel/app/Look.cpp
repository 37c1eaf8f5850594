// Palettes and fonts.
#include "app/Look.h"

#include <fontconfig/fontconfig.h>

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QPalette>

#include <array>
#include <future>

#include "app/Style.h"

namespace easel::app {

namespace {

constexpr const char* kFamily = "Inter";

Look current;
std::promise<void> applicationMade;
std::future<void> fontsListed;

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
            .wrong = QColor(0xC0, 0x39, 0x2B),
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
            .wrong = QColor(0xFF, 0x8A, 0x7A),
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

} // namespace

const Look& look() { return current; }

void applyLook(bool dark) {
    current.colors = dark ? darkColors() : lightColors();
    QApplication::setStyle(new Style);
    QPalette palette = paletteOf(current.colors);
    QApplication::setPalette(palette);
    palette.setColor(QPalette::Highlight, current.colors.chosen);
    palette.setColor(QPalette::HighlightedText, current.colors.text);
    QApplication::setPalette(palette, "QTreeWidget");
    QFont font(kFamily);
    font.setPixelSize(12);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::PreferNoShaping);
    QApplication::setFont(font);
    // Fonts of platform themes would win over the application's.
    for (const char* const widget : {"QMenu", "QMenuBar", "QToolTip", "QStatusBar"})
        QApplication::setFont(font, widget);
}

void readFonts() {
    fontsListed = std::async(std::launch::async, [] {
        FcInit();
        applicationMade.get_future().wait();
        static_cast<void>(QFontDatabase::families()); // the first question makes the list
    });
}

void listFonts() { applicationMade.set_value(); }

void awaitFonts() {
    if (fontsListed.valid()) fontsListed.wait();
}

QString literal(QString text) { return text.replace('&', "&&"); }

QColor layerColor(std::size_t index) {
    static const std::array<QColor, 8> kColors{
        QColor(0xD0, 0x5A, 0x5A), QColor(0xD8, 0xC8, 0x4A), QColor(0x63, 0xC8, 0x63), QColor(0x57, 0xCB, 0xC8),
        QColor(0x4F, 0x78, 0xD8), QColor(0xA8, 0x5A, 0xD0), QColor(0xE0, 0x8A, 0x3C), QColor(0x8C, 0x8C, 0x8C)};
    return kColors[index % kColors.size()];
}

} // namespace easel::app
