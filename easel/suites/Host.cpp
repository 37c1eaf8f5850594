// Which part of the session is which.
#include "suites/Host.h"

#include "session/app/Session.h"

namespace easel::suites {

template <> session::Alerts& host() { return session::Session::current().alerts; }
template <> session::Annotations& host() { return session::Session::current().annotations; }
template <> session::Dialogs& host() { return session::Session::current().dialogs; }
template <> session::Profile& host() { return session::Session::current().profile; }
template <> session::Documents& host() { return session::Session::current().documents; }
template <> session::Fonts& host() { return session::Session::current().fonts; }
template <> session::HostPreferences& host() { return session::Session::current().preferences; }
template <> session::Browser& host() { return session::Session::current().browser; }
template <> session::Identity& host() { return session::Session::current().identity; }
template <> session::Input& host() { return session::Session::current().input; }
template <> session::Memory& host() { return session::Session::current().memory; }
template <> session::Menus& host() { return session::Session::current().menus; }
template <> session::Messenger& host() { return session::Session::current().messenger; }
template <> session::Notifiers& host() { return session::Session::current().notifiers; }
template <> session::PluginGroups& host() { return session::Session::current().pluginGroups; }
template <> session::Plugins& host() { return session::Session::current().plugins; }
template <> session::Pointer& host() { return session::Session::current().pointer; }
template <> session::Reports& host() { return session::Session::current().reports; }
template <> session::Screen& host() { return session::Session::current().screen; }
template <> session::Session& host() { return session::Session::current(); }
template <> session::Suites& host() { return *session::Session::current().suites; }
template <> session::Timers& host() { return session::Session::current().timers; }
template <> session::Toolbox& host() { return session::Session::current().toolbox; }

} // namespace easel::suites
