// Resolves references of pictures against the drawing that has them.
#include "session/documents/Pictures.h"

#include <charconv>
#include <filesystem>
#include <string_view>

#include "svg/FileError.h"
#include "svg/Files.h"
#include "svg/Pixels.h"

namespace easel::session {

namespace {

constexpr std::string_view kFile = "file://";

/// What stands for bytes that addresses cannot have is resolved.
std::string unescaped(std::string_view address) {
    std::string text;
    for (std::size_t at = 0; at < address.size(); ++at) {
        unsigned char byte = 0;
        const char* const digits = address.data() + at + 1;
        const bool isEscape = address[at] == '%' && at + 2 < address.size();
        const bool isByte = isEscape && std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2;
        text += isByte ? static_cast<char>(byte) : address[at];
        at += isByte ? 2 : 0;
    }
    return text;
}

} // namespace

std::string linkedPath(const std::string& drawing, const std::string& link) {
    const std::string_view address(link);
    const bool isFile = address.starts_with(kFile);
    const bool isElsewhere = !isFile && address.substr(0, address.find_first_of("/?#")).find(':') != address.npos;
    if (link.empty() || isElsewhere) return link;
    const std::filesystem::path path = unescaped(isFile ? address.substr(kFile.size()) : address);
    return (std::filesystem::path(drawing).parent_path() / path).lexically_normal().string();
}

std::string linkTo(const std::string& path) {
    constexpr std::string_view kPlain = "-._~/!$&'()*+,;=@";
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string link;
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
        if (isLetter || kPlain.find(c) != kPlain.npos)
            link += c;
        else
            link.append({'%', kDigits[byte >> 4], kDigits[byte & 15]});
    }
    return link;
}

std::optional<Picture> pictureIn(const std::string& path) {
    try {
        const std::string bytes = svg::readFile(path);
        const auto size = svg::pixelSize(bytes);
        auto address = size ? svg::dataAddress(bytes) : std::nullopt;
        if (address) return Picture{size->columns, size->rows, *std::move(address)};
    } catch (const svg::FileError&) { // as where there is no picture
    }
    return std::nullopt;
}

} // namespace easel::session
