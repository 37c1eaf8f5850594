// Menu groups that all of the maker's plug-ins share.
#pragma once

#include <string>

#include "core/frame/MenuGroup.h"

namespace vl {

/// The group of that text, wherever it is in the menus; where no plug-in has made it yet, it becomes a submenu of the
/// host's group.
[[nodiscard]] kzo::core::MenuGroup sharedMenuGroup(const std::string& text, kzo::core::BuiltinMenuGroup in);

} // namespace vl
