// zlib does the packing, utfcpp the recoding: every pair of bytes comes back as it was.
#include "svg/Packing.h"

#include <utf8.h>
#include <zlib.h>

#include <memory>
#include <stdexcept>

#include "svg/Limits.h"

namespace easel::svg {

namespace {

constexpr int kGzip = 16 + MAX_WBITS; // what zlib calls a gzip header and trailer
constexpr std::size_t kPiece = std::size_t{1} << 16;

Bytef* writable(std::string_view bytes) {
    return const_cast<Bytef*>(reinterpret_cast<const Bytef*>(bytes.data())); // zlib only reads it
}

/// Hands `bytes` to zlib step by step and collects what comes out, but no more than `most`; `step` returns false at the
/// end.
template <class Step> std::string pumped(z_stream& stream, std::string_view bytes, std::size_t most, Step step) {
    stream.next_in = writable(bytes);
    stream.avail_in = static_cast<uInt>(bytes.size());
    std::string out;
    bool more = true;
    while (more) {
        const std::size_t size = out.size();
        out.resize(size + kPiece);
        stream.next_out = reinterpret_cast<Bytef*>(out.data() + size);
        stream.avail_out = static_cast<uInt>(kPiece);
        more = step();
        out.resize(out.size() - stream.avail_out);
        if (out.size() > most) throw std::runtime_error("more than " + std::to_string(most) + " bytes when unpacked");
    }
    return out;
}

} // namespace

bool isPacked(std::string_view bytes) { return bytes.substr(0, 2) == "\x1f\x8b"; }

std::string unpack(std::string_view bytes) {
    z_stream stream{};
    if (inflateInit2(&stream, kGzip) != Z_OK) throw std::bad_alloc();
    const std::unique_ptr<z_stream, int (*)(z_streamp)> ended(&stream, inflateEnd);
    return pumped(stream, bytes, kMostUnpackedBytes, [&] {
        const int result = inflate(&stream, Z_NO_FLUSH);
        if (result == Z_STREAM_END) {
            if (stream.avail_in == 0) return false;
            // Packed files may be joined end to end.
            return inflateReset(&stream) == Z_OK;
        }
        if (result == Z_OK && (stream.avail_in > 0 || stream.avail_out == 0)) return true;
        throw std::runtime_error("the compressed data is damaged");
    });
}

std::string pack(std::string_view bytes) {
    z_stream stream{};
    if (deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, kGzip, MAX_MEM_LEVEL, Z_DEFAULT_STRATEGY) != Z_OK) {
        throw std::bad_alloc();
    }
    const std::unique_ptr<z_stream, int (*)(z_streamp)> ended(&stream, deflateEnd);
    return pumped(stream, bytes, SIZE_MAX, [&] { return deflate(&stream, Z_FINISH) == Z_OK; });
}

std::string fromUtf16(std::string_view bytes, bool bigEndian) {
    if (bytes.size() % 2 != 0) throw std::runtime_error("ends in the middle of a character");
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(bytes[at]); };
    std::u16string units(bytes.size() / 2, u'\0');
    for (std::size_t i = 0; i < units.size(); ++i)
        units[i] = static_cast<char16_t>(byte(2 * i + (bigEndian ? 0 : 1)) << 8 | byte(2 * i + (bigEndian ? 1 : 0)));
    try {
        return utf8::utf16to8(units);
    } catch (const utf8::invalid_utf16&) {
        throw std::runtime_error("half of a surrogate pair stands alone");
    }
}

std::string toUtf16(std::string_view text, bool bigEndian) {
    std::string bytes;
    bytes.reserve(text.size() * 2);
    for (const char16_t unit : utf8::utf8to16(text)) {
        const char high = static_cast<char>(unit >> 8);
        const char low = static_cast<char>(unit & 0xFF);
        bytes += bigEndian ? high : low;
        bytes += bigEndian ? low : high;
    }
    return bytes;
}

} // namespace easel::svg
