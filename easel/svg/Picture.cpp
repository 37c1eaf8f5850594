// The renderer's own notion of a drawing's size is ignored where there is a viewBox: a user unit is a point.
#include "svg/Picture.h"

#include <cairo.h>
#include <librsvg/rsvg.h>

#include <cmath>
#include <memory>

#include "svg/Files.h"
#include "svg/Limits.h"

namespace easel::svg {

namespace {

template <auto release> struct Releasing {
    template <class T> void operator()(T* object) const { release(object); }
};
using Handle = std::unique_ptr<RsvgHandle, Releasing<g_object_unref>>;
using Error = std::unique_ptr<GError, Releasing<g_error_free>>;
using Surface = std::unique_ptr<cairo_surface_t, Releasing<cairo_surface_destroy>>;
using Context = std::unique_ptr<cairo_t, Releasing<cairo_destroy>>;

struct Size {
    double width = 0;
    double height = 0;
};

Size sizeInUnits(RsvgHandle* handle) {
    gboolean hasWidth = FALSE;
    gboolean hasHeight = FALSE;
    gboolean hasBox = FALSE;
    RsvgLength width{};
    RsvgLength height{};
    RsvgRectangle box{};
    rsvg_handle_get_intrinsic_dimensions(handle, &hasWidth, &width, &hasHeight, &height, &hasBox, &box);
    if (hasBox) return {box.width, box.height};
    Size size;
    rsvg_handle_get_intrinsic_size_in_pixels(handle, &size.width, &size.height);
    return size;
}

cairo_status_t appendBytes(void* closure, const unsigned char* data, unsigned length) {
    static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

void require(cairo_status_t status, const std::string& path) {
    if (status != CAIRO_STATUS_SUCCESS) throw FileError(path + ": " + cairo_status_to_string(status));
}

} // namespace

void exportPng(std::string_view svg, const std::string& path, double scale) {
    GError* error = nullptr;
    const auto requireNone = [&] {
        const Error owned(error);
        if (owned) throw FileError(path + ": " + owned->message);
    };
    const Handle handle(rsvg_handle_new_from_data(reinterpret_cast<const guint8*>(svg.data()), svg.size(), &error));
    requireNone();
    rsvg_handle_set_dpi(handle.get(), 96);
    const Size size = sizeInUnits(handle.get());
    const double width = std::ceil(size.width * scale);
    const double height = std::ceil(size.height * scale);
    if (!(width >= 1 && height >= 1 && width <= kMostPixels && height <= kMostPixels)) {
        throw FileError(path + ": a picture has 1 to " + std::to_string(kMostPixels) + " pixels along each side");
    }
    const Surface surface(
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(width), static_cast<int>(height)));
    require(cairo_surface_status(surface.get()), path);
    const Context context(cairo_create(surface.get()));
    cairo_set_source_rgb(context.get(), 1, 1, 1);
    cairo_paint(context.get());
    const RsvgRectangle page{0, 0, size.width * scale, size.height * scale};
    rsvg_handle_render_document(handle.get(), context.get(), &page, &error);
    requireNone();
    require(cairo_status(context.get()), path);
    std::string png;
    require(cairo_surface_write_to_png_stream(surface.get(), appendBytes, &png), path);
    replaceFile(path, png);
}

} // namespace easel::svg
