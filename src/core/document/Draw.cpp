// Paths out of the points of elementary shapes, and text.
#include "core/document/Draw.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <optional>

#include "core/document/PathArt.h"
#include "geo/Shapes.h"
#include "plugin/document/TextFrame.h"
#include "plugin/values/ArtboardPoint.h"
#include "plugin/values/ArtboardRect.h"
#include "plugin/values/PathSegPoint.h"

namespace kzo::core::draw {

namespace {

using geo::Path;

PaintOrder orderFor(const Art* prep) { return prep ? PaintOrder::InsideOnTop : PaintOrder::AboveAll; }

/// A path of a shape, or nothing at all: when the host refuses a part, what was made goes again.
std::unique_ptr<Art> made(const std::optional<Path>& shape, const PathStyle* style, const Art* prep) {
    constexpr std::size_t kMostPoints = std::numeric_limits<std::int16_t>::max();
    if (!shape || shape->anchors.empty() || shape->anchors.size() > kMostPoints || !shape->finite()) return nullptr;
    auto art = std::make_unique<Art>(ArtType::Path, orderFor(prep), prep);
    if (art->isEmpty()) return nullptr;
    PathArt::SegPoints points;
    points.reserve(shape->anchors.size());
    for (const geo::Anchor& a : shape->anchors) {
        const auto point = [](geo::Point p) { return plugin::ArtboardPoint(p); };
        points.emplace_back(plugin::PathSegPoint(point(a.p), point(a.in), point(a.out), a.corner));
    }
    const auto count = static_cast<int>(points.size());
    PathArt* const path = art->path();
    const bool done = (!style || path->setStyle(*style)) && path->setClosed(shape->closed) &&
                      path->setSegCount(static_cast<std::int16_t>(shape->closed ? count : count - 1)) &&
                      path->setSegs(0, points);
    if (done) return art;
    art->dispose();
    return nullptr;
}

geo::Point plain(const ArtboardPoint& point) { return point.impl().plain(); }
geo::Box box(const ArtboardRect& rect) { return {{rect.left, rect.top}, {rect.right, rect.bottom}}; }

Path open(const std::vector<geo::Point>& corners) {
    Path path = geo::polygon(corners);
    path.closed = false;
    return path;
}

Path through(const std::vector<ArtboardPoint>& points) {
    std::vector<geo::Point> corners;
    corners.reserve(points.size());
    for (const ArtboardPoint& point : points) corners.push_back(plain(point));
    return corners.size() < 2 ? Path() : geo::polygon(corners);
}

Path ellipseOf(const ArtboardPoint& center, double width, double height, bool reversed) {
    Path path = geo::ellipse(plain(center), width, height);
    if (reversed) {
        path.reverse();
        std::rotate(path.anchors.begin(), path.anchors.end() - 1, path.anchors.end()); // begins at the top all the same
    }
    return path;
}

geo::Point above(const ArtboardPoint& center, double radius) { return plain(center) - geo::Point{0, radius}; }

std::optional<Path> triangleOf(const ArtboardPoint& center, double size) {
    return geo::regularPolygon(plain(center), above(center, size / std::numbers::sqrt3), 3);
}

std::unique_ptr<Art> madeText(const std::string& text, const ArtboardPoint& position, const std::string& font,
                              double size, ParagraphJustification justification, const PathStyle& paint,
                              const Art* prep) {
    const plugin::PointText values{text, font, size, justification, paint, position};
    ArtObject* const art = plugin::newPointText(values, orderFor(prep), prep ? prep->aiArtHandle() : nullptr);
    return art ? std::make_unique<Art>(art) : nullptr;
}

} // namespace

// Lines

std::unique_ptr<Art> point(const ArtboardPoint& at, const Art* prep) { return made(open({plain(at)}), nullptr, prep); }
std::unique_ptr<Art> point(const ArtboardPoint& at, const PathStyle& style, const Art* prep) {
    return made(open({plain(at)}), &style, prep);
}

std::unique_ptr<Art> line(const ArtboardPoint& from, const ArtboardPoint& to, const Art* prep) {
    return made(open({plain(from), plain(to)}), nullptr, prep);
}
std::unique_ptr<Art> line(const ArtboardPoint& from, const ArtboardPoint& to, const PathStyle& style, const Art* prep) {
    return made(open({plain(from), plain(to)}), &style, prep);
}

std::unique_ptr<Art> arc(const ArtboardPoint& start, const ArtboardPoint& through, const ArtboardPoint& end,
                         const Art* prep) {
    return made(geo::arc(plain(start), plain(through), plain(end)), nullptr, prep);
}
std::unique_ptr<Art> arc(const ArtboardPoint& start, const ArtboardPoint& through, const ArtboardPoint& end,
                         const PathStyle& style, const Art* prep) {
    return made(geo::arc(plain(start), plain(through), plain(end)), &style, prep);
}

// Rectangles

std::unique_ptr<Art> rect(const ArtboardRect& rect, const Art* prep) {
    return made(geo::rectangle(box(rect)), nullptr, prep);
}
std::unique_ptr<Art> rect(const ArtboardRect& rect, const PathStyle& style, const Art* prep) {
    return made(geo::rectangle(box(rect)), &style, prep);
}

std::unique_ptr<Art> roundedRect(const ArtboardRect& rect, double radius, const Art* prep) {
    return made(geo::roundedRectangle(box(rect), radius), nullptr, prep);
}
std::unique_ptr<Art> roundedRect(const ArtboardRect& rect, double radius, const PathStyle& style, const Art* prep) {
    return made(geo::roundedRectangle(box(rect), radius), &style, prep);
}

std::unique_ptr<Art> chamferedRect(const ArtboardRect& rect, double size, const Art* prep) {
    return made(geo::chamferedRectangle(box(rect), size), nullptr, prep);
}
std::unique_ptr<Art> chamferedRect(const ArtboardRect& rect, double size, const PathStyle& style, const Art* prep) {
    return made(geo::chamferedRectangle(box(rect), size), &style, prep);
}

// Round and many-sided shapes

std::unique_ptr<Art> ellipse(const ArtboardPoint& center, double width, double height, bool reversed, const Art* prep) {
    return made(ellipseOf(center, width, height, reversed), nullptr, prep);
}
std::unique_ptr<Art> ellipse(const ArtboardPoint& center, double width, double height, bool reversed,
                             const PathStyle& style, const Art* prep) {
    return made(ellipseOf(center, width, height, reversed), &style, prep);
}

std::unique_ptr<Art> triangle(const ArtboardPoint& center, double size, const Art* prep) {
    return made(triangleOf(center, size), nullptr, prep);
}
std::unique_ptr<Art> triangle(const ArtboardPoint& center, double size, const PathStyle& style, const Art* prep) {
    return made(triangleOf(center, size), &style, prep);
}

std::unique_ptr<Art> star(const ArtboardPoint& center, std::uint16_t points, double radius, double innerRadius,
                          const Art* prep) {
    return made(geo::star(plain(center), points, radius, innerRadius), nullptr, prep);
}
std::unique_ptr<Art> star(const ArtboardPoint& center, std::uint16_t points, double radius, double innerRadius,
                          const PathStyle& style, const Art* prep) {
    return made(geo::star(plain(center), points, radius, innerRadius), &style, prep);
}

std::unique_ptr<Art> polygon(const std::vector<ArtboardPoint>& points, const Art* prep) {
    return made(through(points), nullptr, prep);
}
std::unique_ptr<Art> polygon(const std::vector<ArtboardPoint>& points, const PathStyle& style, const Art* prep) {
    return made(through(points), &style, prep);
}

std::unique_ptr<Art> regularPolygon(const ArtboardPoint& center, const ArtboardPoint& corner, std::int16_t sides,
                                    const Art* prep) {
    return made(geo::regularPolygon(plain(center), plain(corner), sides), nullptr, prep);
}
std::unique_ptr<Art> regularPolygon(const ArtboardPoint& center, const ArtboardPoint& corner, std::int16_t sides,
                                    const PathStyle& style, const Art* prep) {
    return made(geo::regularPolygon(plain(center), plain(corner), sides), &style, prep);
}

std::unique_ptr<Art> regularPolygon(const ArtboardPoint& center, double radius, std::int16_t sides, const Art* prep) {
    return made(geo::regularPolygon(plain(center), above(center, radius), sides), nullptr, prep);
}
std::unique_ptr<Art> regularPolygon(const ArtboardPoint& center, double radius, std::int16_t sides,
                                    const PathStyle& style, const Art* prep) {
    return made(geo::regularPolygon(plain(center), above(center, radius), sides), &style, prep);
}

// Text

std::unique_ptr<Art> text(const std::string& text, const ArtboardPoint& position, const std::string& fontName,
                          double size, ParagraphJustification justification, const ArtColor& color, const Art* prep) {
    PathStyle paint;
    paint.fill = {true, color};
    paint.stroke.painted = false;
    return madeText(text, position, fontName, size, justification, paint, prep);
}
std::unique_ptr<Art> text(const std::string& text, const ArtboardPoint& position, const std::string& fontName,
                          double size, ParagraphJustification justification, const ArtColor& /*color*/,
                          const PathStyle& style, const Art* prep) {
    return madeText(text, position, fontName, size, justification, style, prep);
}

std::unique_ptr<Art> text(const std::string& text, const ArtboardPoint& position, const Font& font, double size,
                          ParagraphJustification justification, const ArtColor& color, const Art* prep) {
    return draw::text(text, position, font.name, size, justification, color, prep);
}
std::unique_ptr<Art> text(const std::string& text, const ArtboardPoint& position, const Font& font, double size,
                          ParagraphJustification justification, const ArtColor& color, const PathStyle& style,
                          const Art* prep) {
    return draw::text(text, position, font.name, size, justification, color, style, prep);
}

} // namespace kzo::core::draw
