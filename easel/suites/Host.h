// The parts of the running session that suites work on, each by its class. The one place that reaches for the session
// as a whole is Host.cpp: a suite sees no more of it than the parts whose headers it includes.
#pragma once

#include "session/base/Reports.h"

namespace easel::session {
class Alerts;
class Annotations;
class Dialogs;
class Documents;
class Fonts;
class HostPreferences;
struct Browser;
struct Identity;
class Input;
class Memory;
class Menus;
class Messenger;
class Notifiers;
class PluginGroups;
class Plugins;
class Pointer;
class Profile;
class Screen;
class Session;
class Suites;
class Timers;
class Toolbox;
} // namespace easel::session

namespace easel::suites {

template <class Part> [[nodiscard]] Part& host();

template <> session::Alerts& host();
template <> session::Annotations& host();
template <> session::Dialogs& host();
template <> session::Documents& host();
template <> session::Fonts& host();
template <> session::HostPreferences& host();
template <> session::Browser& host();
template <> session::Identity& host();
template <> session::Input& host();
template <> session::Memory& host();
template <> session::Menus& host();
template <> session::Messenger& host();
template <> session::Notifiers& host();
template <> session::PluginGroups& host();
template <> session::Plugins& host();
template <> session::Pointer& host();
template <> session::Profile& host();
template <> session::Reports& host();
template <> session::Screen& host();
template <> session::Session& host();
template <> session::Suites& host();
template <> session::Timers& host();
template <> session::Toolbox& host();

} // namespace easel::suites
