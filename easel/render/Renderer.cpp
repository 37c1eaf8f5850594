// The drawing's own notion of its size is ignored: it is fitted to the page that the host asks for.
#include "render/Renderer.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <cairo.h>
#include <librsvg/rsvg.h>

#include <chrono>
#include <cmath>
#include <new>
#include <stdexcept>

#include "render/Marks.h"

namespace easel::render {

namespace {

template <auto release> struct Releasing {
    template <class T> void operator()(T* object) const { release(object); }
};
using Error = std::unique_ptr<GError, Releasing<g_error_free>>;
using Surface = std::unique_ptr<cairo_surface_t, Releasing<cairo_surface_destroy>>;
using Context = std::unique_ptr<cairo_t, Releasing<cairo_destroy>>;

cairo_status_t appendBytes(void* closure, const unsigned char* data, unsigned length) {
    static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

void require(cairo_status_t status) {
    if (status == CAIRO_STATUS_NO_MEMORY) throw std::bad_alloc();
    if (status != CAIRO_STATUS_SUCCESS) throw std::runtime_error(cairo_status_to_string(status));
}

void require(GError* error) {
    const Error owned(error);
    if (owned) throw std::runtime_error(owned->message);
}

template <class Any> void drawPage(RsvgHandle* drawing, cairo_t* context, const Any& request) {
    // Scaled here and not by a larger page, which would leave lengths in the drawing's own units as they are.
    cairo_scale(context, request.scale, request.scale);
    const RsvgRectangle page{0, 0, request.width, request.height};
    GError* error = nullptr;
    rsvg_handle_render_document(drawing, context, &page, &error);
    require(error);
    require(cairo_status(context));
}

void draw(RsvgHandle* drawing, cairo_surface_t* surface, const PictureRequest& request) {
    require(cairo_surface_status(surface));
    const Context context(cairo_create(surface));
    cairo_set_source_rgb(context.get(), 1, 1, 1);
    cairo_paint(context.get());
    drawPage(drawing, context.get(), request);
}

} // namespace

Renderer::Renderer() : drawing_(nullptr, g_object_unref) {}

Renderer::~Renderer() = default;

void Renderer::load(std::string_view svg) {
    GError* error = nullptr;
    drawing_.reset(rsvg_handle_new_from_data(reinterpret_cast<const guint8*>(svg.data()), svg.size(), &error));
    require(error);
    rsvg_handle_set_dpi(drawing_.get(), 96);
}

void Renderer::requireDrawing() const {
    if (!drawing_) throw std::runtime_error("there is no drawing");
}

std::string Renderer::view(const ViewRequest& request) const {
    requireDrawing();
    const std::size_t stride = std::size_t{request.columns} * 4;
    std::string pixels(stride * request.rows, '\0');
    const Surface surface(cairo_image_surface_create_for_data(
        reinterpret_cast<unsigned char*>(pixels.data()), CAIRO_FORMAT_ARGB32, static_cast<int>(request.columns),
        static_cast<int>(request.rows), static_cast<int>(stride)));
    require(cairo_surface_status(surface.get()));
    const Context context(cairo_create(surface.get()));
    cairo_translate(context.get(), -request.left, -request.top);
    drawPage(drawing_.get(), context.get(), request);
    cairo_surface_flush(surface.get());
    return pixels;
}

std::string Renderer::picture(const PictureRequest& request) const {
    requireDrawing();
    const double width = request.width * request.scale;
    const double height = request.height * request.scale;
    std::string bytes;
    if (request.format == PictureFormat::Pdf) {
        const Surface surface(cairo_pdf_surface_create_for_stream(appendBytes, &bytes, width, height));
        draw(drawing_.get(), surface.get(), request);
        cairo_surface_finish(surface.get());
        require(cairo_surface_status(surface.get()));
        return bytes;
    }
    const Surface surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(std::ceil(width)),
                                                     static_cast<int>(std::ceil(height))));
    draw(drawing_.get(), surface.get(), request);
    drawMarks(surface.get(), request.marks, request.scale);
    require(cairo_surface_write_to_png_stream(surface.get(), appendBytes, &bytes));
    return bytes;
}

std::vector<model::Box> Renderer::bounds(const BoundsRequest& request) const {
    if (!drawing_) throw std::runtime_error("there is no drawing");
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::duration<double>(request.seconds);
    const RsvgRectangle page{0, 0, request.width, request.height};
    std::vector<model::Box> boxes;
    for (const std::string& id : request.ids) {
        if (Clock::now() > end) break;
        RsvgRectangle ink{};
        RsvgRectangle outline{};
        GError* error = nullptr;
        rsvg_handle_get_geometry_for_layer(drawing_.get(), ('#' + id).c_str(), &page, &ink, &outline, &error);
        const Error owned(error); // there is no such element for the renderer, hence nothing to be seen
        const RsvgRectangle& shown = outline.width > 0 || outline.height > 0 ? outline : ink;
        const bool isThere = !owned && (shown.width > 0 || shown.height > 0);
        boxes.push_back(isThere ? model::Box{shown.x, shown.y, shown.x + shown.width, shown.y + shown.height}
                                : model::Box{});
    }
    return boxes;
}

std::vector<std::string> Renderer::outlines(const OutlinesRequest& request) const {
    requireDrawing();
    const RsvgRectangle page{0, 0, request.width, request.height};
    std::vector<std::string> drawings;
    for (const std::string& id : request.ids) {
        std::string& bytes = drawings.emplace_back();
        const Surface surface(cairo_svg_surface_create_for_stream(appendBytes, &bytes, request.width, request.height));
        require(cairo_surface_status(surface.get()));
        const Context context(cairo_create(surface.get()));
        GError* error = nullptr;
        const bool isDrawn = rsvg_handle_render_layer(drawing_.get(), context.get(), ('#' + id).c_str(), &page, &error);
        const Error owned(error); // there is no such element for the renderer
        cairo_surface_finish(surface.get());
        require(cairo_surface_status(surface.get()));
        if (!isDrawn || owned) bytes.clear();
    }
    return drawings;
}

} // namespace easel::render
