// The About box: version, whom the host is registered to, and the ways to the maker.
#pragma once

#include <string>

#include "core/dialogs/Button.h"
#include "core/dialogs/Label.h"
#include "core/dialogs/ModalDialog.h"
#include "core/frame/MenuItem.h"

namespace vl {

class vlBasePrefs;

class About {
  public:
    explicit About(vlBasePrefs& prefs) : prefs_(prefs) {} ///< which check for updates
    About(const About&) = delete;
    About& operator=(const About&) = delete;

    // Life
    void startup();     ///< adds the menu item
    void postStartup(); ///< builds the box
    void preShutdown(); ///< takes the box down
    void shutdown();

    // Callbacks
    void __aboutBoxCB();
    void __checkUpdatesBtnCB();
    void __URLbtnCB();
    void __ackKZOBtnCB();
    void __aboutOKbtnCB();

  private:
    void addLabels();
    void updateUserLabel();
    void addButtons();

    vlBasePrefs& prefs_;
    kzo::core::MenuItem menuItem_;
    kzo::core::ModalDialog dialog_;
    kzo::core::Label userLabel_;
    kzo::core::Button ackButton_;
};

} // namespace vl
