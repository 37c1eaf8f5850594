// What the user does besides moving the mouse: keys, the choice of a tool, of a menu item.
#pragma once

#include <cstdint>
#include <string>

#include "session/documents/Clipboard.h"
#include "session/frame/Menus.h"
#include "session/frame/Screen.h"
#include "session/frame/Toolbox.h"
#include "session/input/Monitors.h"
#include "session/input/Pointer.h"

namespace easel::session {

class Input {
  public:
    Input(Documents& documents, const Plugins& plugins, Messenger& messenger, Toolbox& toolbox, const Menus& menus,
          Screen& screen, Monitors& monitors, Pointer& pointer, Clipboard& clipboard, Reports& reports)
        : documents_(documents),
          plugins_(plugins),
          messenger_(messenger),
          toolbox_(toolbox),
          menus_(menus),
          screen_(screen),
          monitors_(monitors),
          pointer_(pointer),
          clipboard_(clipboard),
          reports_(reports) {}

    /// Presses and lets go of a key (see keyCode). Plug-ins that monitor input hear of it first; then Escape cancels a
    /// gesture, and the brackets ask the current tool for another diameter. Between gestures the Delete keys remove
    /// what is selected, and with Command Z takes a step back (with Shift: brings it again), A selects all (nothing), D
    /// duplicates, X, C and V cut, copy and paste (in place), G groups (ungroups), the brackets bring one step forward
    /// and backward (to the front and the back).
    void pressKey(std::int32_t code, Modifiers modifiers);

    /// Makes a tool current, with the messages that go with it. The current one is reselected. A gesture is cancelled.
    void selectTool(Tool& tool);
    void editTool(Tool& tool); ///< double-click on the tool

    /// Shows the menus: every plug-in with items in them is asked to bring these up to date. Not during a gesture.
    void updateMenus();
    /// Chooses the item that Menus::findItem finds, or that has this handle. Cancels a gesture. Throws Error when there
    /// is none or it cannot be chosen.
    void chooseMenu(const std::string& text, const std::string& group = {}, std::size_t number = 1);
    void chooseMenu(AIMenuItemHandle handle);

  private:
    void choose(const MenuItem& item);
    void edit(std::int32_t code);
    void cut(model::Document& document);
    void paste(model::Document& document, bool inPlace);

    Documents& documents_;
    const Plugins& plugins_;
    Messenger& messenger_;
    Toolbox& toolbox_;
    const Menus& menus_;
    Screen& screen_;
    Monitors& monitors_;
    Pointer& pointer_;
    Clipboard& clipboard_;
    Reports& reports_;
};

} // namespace easel::session
