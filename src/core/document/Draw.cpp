// Paths out of points.
#include "core/document/Draw.h"

namespace kzo::core::draw {

namespace {

std::unique_ptr<Art> openPath(const PathArt::SegPoints& points, const PathStyle* style, const Art* prep) {
    auto art = std::make_unique<Art>(ArtType::Path, prep ? PaintOrder::InsideOnTop : PaintOrder::AboveAll, prep);
    if (art->isEmpty()) return nullptr;
    PathArt* const path = art->path();
    if (style) path->setStyle(*style);
    path->setClosed(false);
    path->setSegCount(static_cast<std::int16_t>(points.size() - 1));
    path->setSegs(0, points);
    return art;
}

std::unique_ptr<Art> styledLine(const ArtboardPoint& from, const ArtboardPoint& to, const PathStyle* style,
                                const Art* prep) {
    return openPath({ArtboardSegPoint(from, true), ArtboardSegPoint(to, true)}, style, prep);
}

} // namespace

std::unique_ptr<Art> line(const ArtboardPoint& from, const ArtboardPoint& to, const Art* prep) {
    return styledLine(from, to, nullptr, prep);
}

std::unique_ptr<Art> line(const ArtboardPoint& from, const ArtboardPoint& to, const PathStyle& style, const Art* prep) {
    return styledLine(from, to, &style, prep);
}

} // namespace kzo::core::draw
