// Alerts and dialogs of plug-ins as windows. A dialog is drawn from the session's tree of widgets, and everything that
// the user does goes back there: the plug-in decides what follows.
#pragma once

#include <cstddef>
#include <string>

#include "app/Actions.h"
#include "session/frame/Alerts.h"
#include "session/frame/Dialogs.h"

class QWidget;

namespace easel::app {

/// Has the session's alerts and dialogs shown over the window, and recorded what the user does with them.
void connectDialogs(Actions& actions, QWidget& window);

/// Both wait for the user. `window` is what they lie over, unless a dialog is open already.
[[nodiscard]] std::size_t showAlert(const session::Alert& alert, QWidget& window);
void showDialog(session::Dialogs& dialogs, session::Dialog& dialog, QWidget& window);

/// Has the user's browser open an address of the web, and no other.
void openAddress(const std::string& address);

} // namespace easel::app
