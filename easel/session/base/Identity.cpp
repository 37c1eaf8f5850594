// The name of whoever runs the application.
#include "session/base/Identity.h"

#include <pwd.h>
#include <unistd.h>

namespace easel::session {

std::string Identity::loginName() {
    const passwd* const user = getpwuid(getuid());
    if (!user) return "";
    // The first of several fields that are separated by commas.
    const std::string full = user->pw_gecos ? user->pw_gecos : "";
    const std::string name = full.substr(0, full.find(','));
    return name.empty() && user->pw_name ? user->pw_name : name;
}

} // namespace easel::session
