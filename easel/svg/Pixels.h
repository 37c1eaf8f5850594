// How many pixels a picture has, from its first bytes (PNG, JPEG, GIF); and pictures as addresses that hold them.
// Decodes nothing: that is done by the renderer, in its process.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace easel::svg {

struct PixelSize {
    std::uint32_t columns = 0;
    std::uint32_t rows = 0;
};

/// None for what is no picture of these kinds.
[[nodiscard]] std::optional<PixelSize> pixelSize(std::string_view bytes);
/// Of what a "data:" address holds.
[[nodiscard]] std::optional<PixelSize> pixelSizeInside(std::string_view address);
/// A "data:" address of the picture; none for what is no picture of these kinds.
[[nodiscard]] std::optional<std::string> dataAddress(std::string_view bytes);

} // namespace easel::svg
