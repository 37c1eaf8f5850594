// The renderer's own notion of a drawing's size is ignored where there is a viewBox: a user unit is a point.
#include "svg/Picture.h"

#include <cairo-pdf.h>
#include <cairo.h>
#include <librsvg/rsvg.h>

#include <cmath>
#include <memory>

#include "svg/Files.h"
#include "svg/Limits.h"
#include "svg/Marks.h"

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

void require(GError* error, const std::string& path) {
    const Error owned(error);
    if (owned) throw FileError(path + ": " + owned->message);
}

/// A drawing ready to be drawn, and the size of its picture.
struct Drawing {
    Drawing(std::string_view svg, const std::string& path, double scale) {
        GError* error = nullptr;
        handle.reset(rsvg_handle_new_from_data(reinterpret_cast<const guint8*>(svg.data()), svg.size(), &error));
        require(error, path);
        rsvg_handle_set_dpi(handle.get(), 96);
        size = sizeInUnits(handle.get());
        size.width *= scale;
        size.height *= scale;
        if (!(size.width > 0 && size.height > 0 && size.width <= kMostPixels && size.height <= kMostPixels)) {
            throw FileError(path + ": a picture has 1 to " + std::to_string(kMostPixels) + " pixels along each side");
        }
    }

    void draw(cairo_surface_t* surface, const std::string& path) const {
        require(cairo_surface_status(surface), path);
        const Context context(cairo_create(surface));
        cairo_set_source_rgb(context.get(), 1, 1, 1);
        cairo_paint(context.get());
        const RsvgRectangle page{0, 0, size.width, size.height};
        GError* error = nullptr;
        rsvg_handle_render_document(handle.get(), context.get(), &page, &error);
        require(error, path);
        require(cairo_status(context.get()), path);
    }

    Handle handle;
    Size size;
};

} // namespace

void exportPng(std::string_view svg, const std::string& path, double scale, const std::vector<model::Mark>& marks) {
    const Drawing drawing(svg, path, scale);
    const Surface surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24,
                                                     static_cast<int>(std::ceil(drawing.size.width)),
                                                     static_cast<int>(std::ceil(drawing.size.height))));
    drawing.draw(surface.get(), path);
    drawMarks(surface.get(), marks, scale);
    std::string png;
    require(cairo_surface_write_to_png_stream(surface.get(), appendBytes, &png), path);
    replaceFile(path, png);
}

void exportPdf(std::string_view svg, const std::string& path, double scale) {
    const Drawing drawing(svg, path, scale);
    std::string pdf;
    const Surface surface(
        cairo_pdf_surface_create_for_stream(appendBytes, &pdf, drawing.size.width, drawing.size.height));
    drawing.draw(surface.get(), path);
    cairo_surface_finish(surface.get());
    require(cairo_surface_status(surface.get()), path);
    replaceFile(path, pdf);
}

} // namespace easel::svg
