// Sizes from the heads of picture files, and pictures in base 64.
#include "svg/Pixels.h"

#include <boost/archive/iterators/base64_from_binary.hpp>
#include <boost/archive/iterators/transform_width.hpp>

#include <algorithm>

namespace easel::svg {

namespace {

constexpr std::string_view kPng = "\x89PNG\r\n\x1a\n";
constexpr std::string_view kJpeg = "\xff\xd8\xff";
constexpr std::string_view kGif = "GIF8";
constexpr std::size_t kHead = std::size_t{1} << 18; ///< bytes in which a JPEG tells its size, as a rule

std::uint32_t byteAt(std::string_view bytes, std::size_t at) {
    return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0;
}
std::uint32_t bigAt(std::string_view bytes, std::size_t at, std::size_t count) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < count; ++i) value = value << 8 | byteAt(bytes, at + i);
    return value;
}

/// A JPEG is a row of segments, each with its length; one of them begins the frame and tells its size.
PixelSize jpegSize(std::string_view bytes) {
    for (std::size_t at = 2; at + 9 < bytes.size() && byteAt(bytes, at) == 0xFF;) {
        const std::uint32_t kind = byteAt(bytes, at + 1);
        const bool isFrame = kind >= 0xC0 && kind <= 0xCF && kind != 0xC4 && kind != 0xC8 && kind != 0xCC;
        if (isFrame) return {bigAt(bytes, at + 7, 2), bigAt(bytes, at + 5, 2)};
        const bool isFill = kind == 0xFF;
        at += isFill ? 1 : 2 + std::max<std::size_t>(bigAt(bytes, at + 2, 2), 2);
    }
    return {};
}

/// The first bytes of what is written in base 64.
std::string decoded(std::string_view text) {
    std::string bytes;
    std::uint32_t bits = 0;
    int count = 0;
    for (const char c : text) {
        constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
        const std::size_t digit = kDigits.find(c);
        if (digit == kDigits.npos) continue; // line breaks
        bits = bits << 6 | static_cast<std::uint32_t>(digit);
        count += 6;
        if (count < 8) continue;
        count -= 8;
        bytes += static_cast<char>(bits >> count & 0xFF);
        if (bytes.size() == kHead) break;
    }
    return bytes;
}

} // namespace

std::optional<PixelSize> pixelSize(std::string_view bytes) {
    PixelSize size;
    if (bytes.starts_with(kPng)) size = {bigAt(bytes, 16, 4), bigAt(bytes, 20, 4)};
    if (bytes.starts_with(kJpeg)) size = jpegSize(bytes);
    if (bytes.starts_with(kGif))
        size = {byteAt(bytes, 6) | byteAt(bytes, 7) << 8, byteAt(bytes, 8) | byteAt(bytes, 9) << 8};
    return size.columns > 0 && size.rows > 0 ? std::optional(size) : std::nullopt;
}

std::optional<PixelSize> pixelSizeInside(std::string_view address) {
    const std::size_t comma = address.find(',');
    const bool isCoded = comma != address.npos && address.substr(0, comma).ends_with(";base64");
    return isCoded ? pixelSize(decoded(address.substr(comma + 1))) : std::nullopt;
}

std::optional<std::string> dataAddress(std::string_view bytes) {
    if (!pixelSize(bytes)) return std::nullopt;
    const char* const kind = bytes.starts_with(kPng) ? "png" : bytes.starts_with(kGif) ? "gif" : "jpeg";
    using namespace boost::archive::iterators;
    using Coded = base64_from_binary<transform_width<const char*, 6, 8>>;
    std::string address = std::string("data:image/") + kind + ";base64,";
    const std::size_t filled = (3 - bytes.size() % 3) % 3;
    std::string threes(bytes);
    threes.append(filled, '\0');
    address.append(Coded(threes.data()), Coded(threes.data() + threes.size()));
    return address.replace(address.size() - filled, filled, filled, '=');
}

} // namespace easel::svg
