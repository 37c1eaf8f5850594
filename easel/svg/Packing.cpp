// zlib does the packing; UTF-16 is recoded by hand, so that every pair of bytes comes back as it was.
#include "svg/Packing.h"

#include <zlib.h>

#include <cstdint>
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

void appendUtf8(std::string& out, std::uint32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
        return;
    }
    const int more = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    static constexpr unsigned kLeads[] = {0, 0xC0, 0xE0, 0xF0};
    out += static_cast<char>(kLeads[more] | c >> 6 * more);
    for (int i = more - 1; i >= 0; --i) out += static_cast<char>(0x80 | (c >> 6 * i & 0x3F));
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
    const auto unit = [&](std::size_t at) {
        const auto first = static_cast<unsigned char>(bytes[at]);
        const auto second = static_cast<unsigned char>(bytes[at + 1]);
        return static_cast<std::uint32_t>(bigEndian ? first << 8 | second : second << 8 | first);
    };
    if (bytes.size() % 2 != 0) throw std::runtime_error("ends in the middle of a character");
    std::string text;
    text.reserve(bytes.size() / 2);
    for (std::size_t at = 0; at < bytes.size(); at += 2) {
        std::uint32_t c = unit(at);
        if (c >= 0xD800 && c < 0xE000) {
            const std::uint32_t low = at + 2 < bytes.size() ? unit(at + 2) : 0;
            if (c >= 0xDC00 || low < 0xDC00 || low >= 0xE000) {
                throw std::runtime_error("half of a surrogate pair stands alone");
            }
            c = 0x10000 + ((c - 0xD800) << 10 | (low - 0xDC00));
            at += 2;
        }
        appendUtf8(text, c);
    }
    return text;
}

std::string toUtf16(std::string_view text, bool bigEndian) {
    std::string bytes;
    bytes.reserve(text.size() * 2);
    const auto put = [&](std::uint32_t unit) {
        const char high = static_cast<char>(unit >> 8);
        const char low = static_cast<char>(unit & 0xFF);
        bytes += bigEndian ? high : low;
        bytes += bigEndian ? low : high;
    };
    for (std::size_t at = 0; at < text.size();) {
        const auto lead = static_cast<unsigned char>(text[at++]);
        const int more = lead < 0xC0 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
        std::uint32_t c = more == 0 ? lead : lead & (0x3FU >> more);
        for (int i = 0; i < more && at < text.size(); ++i)
            c = c << 6 | (static_cast<unsigned char>(text[at++]) & 0x3FU);
        if (c < 0x10000) {
            put(c);
        } else {
            put(0xD800 + ((c - 0x10000) >> 10));
            put(0xDC00 + ((c - 0x10000) & 0x3FF));
        }
    }
    return bytes;
}

} // namespace easel::svg
