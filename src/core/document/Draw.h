// Functions that make art in the document.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/document/Art.h"
#include "core/values/ArtboardPoint.h"
#include "core/values/ArtboardRect.h"
#include "core/values/DocumentEnumerations.h"
#include "core/values/Font.h"
#include "core/values/PathStyle.h"

/// Each makes a new object on top inside of `prep`, or above all art without it, and returns a handle on it. Null, with
/// nothing left behind, when the host refuses, when a number is not finite, when a path would have more points than the
/// host allows, or when there is no such shape. Without a style a path has the document's default one.
///
/// Lengths are in points. Closed shapes run clockwise on screen and start at their top or top left. Curves keep within
/// 0.03 % of the radius.
namespace kzo::core::draw {

// Lines

/// An open path of one corner point.
std::unique_ptr<Art> point(const ArtboardPoint& at, const Art* prep = nullptr);
std::unique_ptr<Art> point(const ArtboardPoint& at, const PathStyle& style, const Art* prep = nullptr);
/// An open path of two corner points.
std::unique_ptr<Art> line(const ArtboardPoint& from, const ArtboardPoint& to, const Art* prep = nullptr);
std::unique_ptr<Art> line(const ArtboardPoint& from, const ArtboardPoint& to, const PathStyle& style,
                          const Art* prep = nullptr);
/// The open arc of a circle from `start` past `through` to `end`; a line when `through` lies on it.
std::unique_ptr<Art> arc(const ArtboardPoint& start, const ArtboardPoint& through, const ArtboardPoint& end,
                         const Art* prep = nullptr);
std::unique_ptr<Art> arc(const ArtboardPoint& start, const ArtboardPoint& through, const ArtboardPoint& end,
                         const PathStyle& style, const Art* prep = nullptr);

// Rectangles, whose edges may be in any order

std::unique_ptr<Art> rect(const ArtboardRect& rect, const Art* prep = nullptr);
std::unique_ptr<Art> rect(const ArtboardRect& rect, const PathStyle& style, const Art* prep = nullptr);
/// The radius is held to half the shorter side.
std::unique_ptr<Art> roundedRect(const ArtboardRect& rect, double radius, const Art* prep = nullptr);
std::unique_ptr<Art> roundedRect(const ArtboardRect& rect, double radius, const PathStyle& style,
                                 const Art* prep = nullptr);
/// `size` is cut off each side at a corner, and held to half the shorter side.
std::unique_ptr<Art> chamferedRect(const ArtboardRect& rect, double size, const Art* prep = nullptr);
std::unique_ptr<Art> chamferedRect(const ArtboardRect& rect, double size, const PathStyle& style,
                                   const Art* prep = nullptr);

// Round and many-sided shapes

/// A reversed ellipse runs counter-clockwise, as the inner border of a ring must.
std::unique_ptr<Art> ellipse(const ArtboardPoint& center, double width, double height, bool reversed,
                             const Art* prep = nullptr);
std::unique_ptr<Art> ellipse(const ArtboardPoint& center, double width, double height, bool reversed,
                             const PathStyle& style, const Art* prep = nullptr);
/// Equilateral, with a corner at the top; `size` is the length of a side.
std::unique_ptr<Art> triangle(const ArtboardPoint& center, double size, const Art* prep = nullptr);
std::unique_ptr<Art> triangle(const ArtboardPoint& center, double size, const PathStyle& style,
                              const Art* prep = nullptr);
/// From two points on, the first at the top; `radius` is that of the tips, `innerRadius` that of the notches.
std::unique_ptr<Art> star(const ArtboardPoint& center, std::uint16_t points, double radius, double innerRadius,
                          const Art* prep = nullptr);
std::unique_ptr<Art> star(const ArtboardPoint& center, std::uint16_t points, double radius, double innerRadius,
                          const PathStyle& style, const Art* prep = nullptr);
/// Closed, through at least two points.
std::unique_ptr<Art> polygon(const std::vector<ArtboardPoint>& points, const Art* prep = nullptr);
std::unique_ptr<Art> polygon(const std::vector<ArtboardPoint>& points, const PathStyle& style,
                             const Art* prep = nullptr);
/// From three sides on. With a radius the first corner is at the top.
std::unique_ptr<Art> regularPolygon(const ArtboardPoint& center, const ArtboardPoint& corner, std::int16_t sides,
                                    const Art* prep = nullptr);
std::unique_ptr<Art> regularPolygon(const ArtboardPoint& center, const ArtboardPoint& corner, std::int16_t sides,
                                    const PathStyle& style, const Art* prep = nullptr);
std::unique_ptr<Art> regularPolygon(const ArtboardPoint& center, double radius, std::int16_t sides,
                                    const Art* prep = nullptr);
std::unique_ptr<Art> regularPolygon(const ArtboardPoint& center, double radius, std::int16_t sides,
                                    const PathStyle& style, const Art* prep = nullptr);

// Text

/// Point text: one line whose baseline starts, has its middle or ends at `position`, as the justification says. The
/// font is taken by its name, empty for the host's default one, and the size, which is positive, from `size`. A style
/// paints the glyphs in place of the color.
std::unique_ptr<Art> text(const std::string& text, const ArtboardPoint& position, const std::string& fontName,
                          double size, ParagraphJustification justification, const ArtColor& color,
                          const Art* prep = nullptr);
std::unique_ptr<Art> text(const std::string& text, const ArtboardPoint& position, const std::string& fontName,
                          double size, ParagraphJustification justification, const ArtColor& color,
                          const PathStyle& style, const Art* prep = nullptr);
std::unique_ptr<Art> text(const std::string& text, const ArtboardPoint& position, const Font& font, double size,
                          ParagraphJustification justification, const ArtColor& color, const Art* prep = nullptr);
std::unique_ptr<Art> text(const std::string& text, const ArtboardPoint& position, const Font& font, double size,
                          ParagraphJustification justification, const ArtColor& color, const PathStyle& style,
                          const Art* prep = nullptr);

} // namespace kzo::core::draw
