// Why something could not be had from the Internet.
#pragma once

namespace kzo::core {

enum class InternetError {
    None = 0,
    Offline = 10,     ///< the name could not be resolved, or the network is unreachable
    Unreachable = 20, ///< the server refuses, or ends the connection early
    BadURL = 30,      ///< no address, or neither http nor https; also of a redirection
    TimedOut = 40,
    Redirects = 50, ///< too many
    TooLarge = 60,
    Status = 70, ///< the server's status is not 200; the platform's code is that status
    Other = 80
};

} // namespace kzo::core
