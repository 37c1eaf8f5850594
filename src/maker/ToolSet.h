// The group of the toolbox that the maker's plug-ins share: the first of them to start records its tool in a small
// file, the others put their tools beside it.
#pragma once

#include <cstdint>

namespace vl::toolSet {

inline constexpr std::int16_t kNone = -2; ///< no tool: also what opens a group of its own

/// The number of the first tool of the group, or kNone. Numbers hold while the host runs, so it is recorded only while
/// plug-ins start.
[[nodiscard]] std::int16_t getBaseTool();
void setBaseTool(std::int16_t number);
void clearBaseTool();

} // namespace vl::toolSet
