// Draws one drawing. Whatever the drawing does to it, it may take this process along and no other.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "svg/RenderProtocol.h"

struct _RsvgHandle;

namespace easel::render {

class Renderer {
  public:
    Renderer();
    ~Renderer();
    Renderer(const Renderer&) = delete;
    Renderer& operator=(const Renderer&) = delete;

    /// All throw std::exception with a reason in words. Files that the drawing links to are not opened.
    void load(std::string_view svg);
    [[nodiscard]] std::string picture(const PictureRequest& request) const;
    [[nodiscard]] std::string view(const ViewRequest& request) const;
    [[nodiscard]] std::vector<model::Box> bounds(const BoundsRequest& request) const;
    [[nodiscard]] std::vector<std::string> outlines(const OutlinesRequest& request) const;

  private:
    void requireDrawing() const;

    std::unique_ptr<_RsvgHandle, void (*)(void*)> drawing_;
};

} // namespace easel::render
