// Path data, scanned once, from the left: what is complete before an error is kept.
#pragma once

#include <string_view>

#include "svg/Outlines.h"

namespace easel::svg {

[[nodiscard]] Outline scanPath(std::string_view data);

} // namespace easel::svg
