// What the host and its renderer, a process of its own, say to each other over a socket: a head, and behind it the
// bytes that it counts. The host asks, the renderer replies, one at a time. Both are built together, so records are
// sent as they lie in memory; a new kind of request goes to the end of the list.
#pragma once

#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "model/Mark.h"

namespace easel::render {

constexpr const char* kProgramName = "easel-render";

enum class Request : std::uint32_t {
    Load,    ///< a drawing's text; the requests that follow are about it
    Picture, ///< a PictureRequest; the reply is a file of its format
    View,    ///< a ViewRequest; the reply is its pixels, row by row, as premultiplied ARGB of 32 bits in this machine's
             ///< order
    Bounds,  ///< a BoundsRequest; the reply is a list of boxes on the page
    Outlines ///< an OutlinesRequest; the reply is a list of SVG drawings of that page, empty for what cannot be drawn
};
enum class Reply : std::uint32_t {
    Done,
    Failed,     ///< why, in words
    OutOfMemory ///< the renderer has reached its limit
};

struct Head {
    std::uint32_t kind = 0; ///< a Request or a Reply
    std::uint32_t reserved = 0;
    std::uint64_t size = 0; ///< bytes behind the head
};

enum class PictureFormat : std::uint32_t { Png, Pdf };

/// The drawing is fitted to a page of `width` by `height`, and that is drawn `scale` times as large: in pixels (PNG) or
/// points (PDF). Marks lie over it; a screen unit is a pixel.
struct PictureRequest {
    PictureFormat format = PictureFormat::Png;
    double width = 0;
    double height = 0;
    double scale = 1;
    std::vector<model::Mark> marks{};
};

/// A part of the page for a window, on nothing: the page of `width` by `height` units is drawn `scale` times as large,
/// and shown are `columns` by `rows` pixels from the pixel `left`, `top` of it on.
struct ViewRequest {
    double width = 0;
    double height = 0;
    double scale = 1;
    double left = 0;
    double top = 0;
    std::uint32_t columns = 0;
    std::uint32_t rows = 0;
};

/// Where the elements with these ids lie on a page of `width` by `height` that the drawing is fitted to. The box of
/// what does not show is empty; there are fewer boxes than ids when the time is up before the last.
struct BoundsRequest {
    double width = 0;
    double height = 0;
    double seconds = 0;
    std::vector<std::string> ids{};
};

/// Of the elements with these ids, each for itself, what is drawn, letters as their outlines.
struct OutlinesRequest {
    double width = 0;
    double height = 0;
    std::vector<std::string> ids{};
};

/// Values in the order in which they are packed.
class Packer {
  public:
    template <class T> Packer& operator<<(const T& value) {
        static_assert(std::is_trivially_copyable_v<T>);
        bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
        return *this;
    }
    Packer& operator<<(const std::string& text) {
        *this << std::uint64_t{text.size()};
        bytes += text;
        return *this;
    }
    template <class T> Packer& operator<<(const std::vector<T>& list) {
        *this << std::uint64_t{list.size()};
        for (const T& item : list) *this << item;
        return *this;
    }
    Packer& operator<<(const model::Mark& mark) {
        return *this << mark.kind << mark.points << mark.pen << mark.filled << mark.text;
    }
    Packer& operator<<(const PictureRequest& picture) {
        return *this << picture.format << picture.width << picture.height << picture.scale << picture.marks;
    }

    Packer& operator<<(const BoundsRequest& bounds) {
        return *this << bounds.width << bounds.height << bounds.seconds << bounds.ids;
    }
    Packer& operator<<(const OutlinesRequest& outlines) {
        return *this << outlines.width << outlines.height << outlines.ids;
    }

    std::string bytes;
};

/// The same values again. Throws when the bytes end too early.
class Unpacker {
  public:
    explicit Unpacker(std::string_view bytes) : bytes_(bytes) {}

    template <class T> Unpacker& operator>>(T& value) {
        static_assert(std::is_trivially_copyable_v<T>);
        std::memcpy(&value, take(sizeof value).data(), sizeof value);
        return *this;
    }
    Unpacker& operator>>(std::string& text) {
        text = take(count());
        return *this;
    }
    template <class T> Unpacker& operator>>(std::vector<T>& list) {
        for (std::uint64_t left = count(); left > 0; --left) *this >> list.emplace_back();
        return *this;
    }
    Unpacker& operator>>(model::Mark& mark) {
        return *this >> mark.kind >> mark.points >> mark.pen >> mark.filled >> mark.text;
    }
    Unpacker& operator>>(PictureRequest& picture) {
        return *this >> picture.format >> picture.width >> picture.height >> picture.scale >> picture.marks;
    }
    Unpacker& operator>>(BoundsRequest& bounds) {
        return *this >> bounds.width >> bounds.height >> bounds.seconds >> bounds.ids;
    }
    Unpacker& operator>>(OutlinesRequest& outlines) {
        return *this >> outlines.width >> outlines.height >> outlines.ids;
    }

  private:
    std::uint64_t count() {
        std::uint64_t number = 0;
        *this >> number;
        return number;
    }
    std::string_view take(std::uint64_t size) {
        if (size > bytes_.size()) throw std::runtime_error("the request ends too early");
        const std::string_view taken = bytes_.substr(0, size);
        bytes_.remove_prefix(size);
        return taken;
    }

    std::string_view bytes_;
};

} // namespace easel::render
