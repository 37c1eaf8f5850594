// An error code on its way to a plug-in. Thrown inside the host, turned into the code at the entry point.
#pragma once

#include <string>

#include "hostapi/SPTypes.h"

namespace easel::session {

struct HostError {
    AIErr code;
};

/// Throws `otherwise` unless the condition holds.
inline void require(bool condition, AIErr otherwise = kBadParameterErr) {
    if (!condition) throw HostError{otherwise};
}

/// A code as its four characters in quotes.
[[nodiscard]] inline std::string fourCharacters(AIErr code) {
    std::string text = "\"";
    for (int shift = 24; shift >= 0; shift -= 8) text += static_cast<char>(code >> shift & 0xFF);
    return text + '"';
}

} // namespace easel::session
