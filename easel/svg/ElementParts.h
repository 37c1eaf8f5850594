// What the sources of ElementText share: limits, units, and where declarations stand. Private to these.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "model/Node.h"

namespace easel::svg {

/// Throws UnsavableError for a path that could not be read again.
void requireInReach(const model::Node& node);
/// Throws UnsavableError for lengths and colours that could not be read again.
void requireUsable(const model::Style& style);

/// A style for lengths in the units of an element.
[[nodiscard]] model::Style inUnits(model::Style style, double scale);
/// As an attribute's value. Throws UnsavableError for one that leads too far.
[[nodiscard]] std::string transformText(const model::Affine& transform);

/// Whether more has been done to opaque art than moving it.
[[nodiscard]] bool isTurned(const model::Node& node);

/// Where the value of the declaration that counts stands in a style attribute, as this is written.
[[nodiscard]] std::optional<std::pair<std::size_t, std::size_t>> declaration(std::string_view style,
                                                                             std::string_view name);

} // namespace easel::svg
