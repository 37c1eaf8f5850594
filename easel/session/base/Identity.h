// Which version of the application this is, whom it is registered to, and the addresses that plug-ins had it open.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace easel::session {

struct Identity {
    std::int32_t majorVersion = 19;     ///< that plug-ins are told
    std::string userName = loginName(); ///< UTF-8
    std::string userOrganization;

    /// The full name of whoever is logged in, or else the short one; empty where there is none.
    [[nodiscard]] static std::string loginName();
};

struct Browser {
    std::function<void(const std::string& address)> open; ///< without a face that has a browser, it is only noted
    std::vector<std::string> opened;                      ///< in their order
};

} // namespace easel::session
