// How the window looks, light or dark: colours, font, icons.
#pragma once

#include <QColor>
#include <QIcon>
#include <QSize>
#include <QString>

#include <functional>

class QPainter;

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
    QColor wrong;  ///< text that cannot be taken
    QColor grid;
};

struct Look {
    Colors colors;
};

/// Of the application at the moment.
[[nodiscard]] const Look& look();
void applyLook(bool dark);

// The list of fonts, a third of the way to the first picture, is made in a thread of its own.
void readFonts();  ///< begins, before there is an application
void listFonts();  ///< goes on, since there is one now
void awaitFonts(); ///< until the list is made, if it was begun

constexpr QSize kToolIcon(22, 22);
constexpr QSize kButtonIcon(16, 16);
/// Paints the icons that every window shows, which the first picture need not wait for then.
void paintIcons();

/// Icons that are drawn at whatever size is asked for, in the text's colour.
enum class Symbol {
    Select,
    DirectSelect,
    Hand,
    Zoom,
    Eye,
    NoEye,
    Lock,
    NoLock,
    Plus,
    Trash,
    Up,
    Down,
    More,
    Information,
    Question,
    Warning,
    Critical,
    Easel, ///< the window's own
    Close,
    Folder,
    NewFolder,
    File,
    Back,
    Forward
};
[[nodiscard]] QIcon icon(Symbol symbol);
/// One that is painted anew at each size.
[[nodiscard]] QIcon painted(std::function<void(QPainter& painter, const QRect& rect, QIcon::Mode mode)> paint);

/// A text as it stands, for buttons and menus: an ampersand in it makes no key.
[[nodiscard]] QString literal(QString text);

/// One of some colours that tell layers apart.
[[nodiscard]] QColor layerColor(std::size_t index);

} // namespace easel::app
