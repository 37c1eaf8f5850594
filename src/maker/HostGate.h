// The question whether to load into a host that the product was not built for.
#pragma once

#include <string>

namespace vl {

/// Whether the plug-in may load. Under another version than its own the user is asked once, and the host's preferences
/// keep the answer; a refusal holds for every such version until it is taken out of them.
[[nodiscard]] bool mayLoad(const std::string& plugin);

} // namespace vl
