// How the window looks, light or dark: colours, font, icons.
#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

class QApplication;

namespace easel::app {

struct Colors {
    bool dark = false;
    QColor panel; ///< of bars and panels
    QColor field; ///< of lists and text fields
    QColor desk;  ///< around the page
    QColor pageEdge;
    QColor text;
    QColor faint; ///< text that matters less
    QColor line;  ///< between parts
    QColor accent;
    QColor accentText;
    QColor chosen; ///< behind a chosen row
    QColor grid;
};

struct Look {
    Colors colors;
};

/// Of the application at the moment.
[[nodiscard]] const Look& look();
void applyLook(QApplication& application, bool dark);

/// Icons that are drawn at whatever size is asked for, in the text's colour.
enum class Symbol { Select, DirectSelect, Hand, Zoom, Eye, NoEye, Lock, NoLock, Plus, Trash, Up, Down };
[[nodiscard]] QIcon icon(Symbol symbol);

/// A text as it stands, for buttons and menus: an ampersand in it makes no key.
[[nodiscard]] QString literal(QString text);

/// The colour that marks the layer at this place.
[[nodiscard]] QColor layerColor(std::size_t index);

} // namespace easel::app
