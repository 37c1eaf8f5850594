// The plain values that a drawing is made of: points, path data, styles. No document, no identity.
// Lengths are points (1/72 inch), x right, y down.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "model/Shared.h"

namespace easel::model {

struct Point {
    double x = 0;
    double y = 0;

    bool operator==(const Point&) const = default;
};

/// An upright rectangle; top is the smaller y. A default box is empty and grows by `include`.
struct Box {
    double left = 1e300;
    double top = 1e300;
    double right = -1e300;
    double bottom = -1e300;

    [[nodiscard]] bool isEmpty() const { return left > right || top > bottom; }
    [[nodiscard]] bool meets(const Box& other) const;
    void include(Point point);
    void include(const Box& other);

    bool operator==(const Box&) const = default;
};

/// x' = a x + c y + e, y' = b x + d y + f.
struct Affine {
    double a = 1;
    double b = 0;
    double c = 0;
    double d = 1;
    double e = 0;
    double f = 0;

    [[nodiscard]] Point operator()(Point point) const {
        return {a * point.x + c * point.y + e, b * point.x + d * point.y + f};
    }
    [[nodiscard]] bool isMove() const { return a == 1 && b == 0 && c == 0 && d == 1; }

    bool operator==(const Affine&) const = default;
};
/// Both in one, `first` before `second`.
[[nodiscard]] Affine operator*(const Affine& first, const Affine& second);
[[nodiscard]] Affine inverse(const Affine& affine);              ///< of one that has one
[[nodiscard]] Box transformed(const Box& box, const Affine& by); ///< what contains it then

/// One anchor with its control points towards the previous (`in`) and the next anchor (`out`).
struct PathPoint {
    Point anchor;
    Point in;
    Point out;

    bool operator==(const PathPoint&) const = default;
};

/// A point whose handles are retracted.
[[nodiscard]] constexpr PathPoint cornerAt(Point anchor) { return {anchor, anchor, anchor}; }

/// One flag a point.
using PointFlags = std::vector<bool>;

/// Which points of a path are smooth. Most paths have few points: those of the first 64 cost no memory of their own.
class SmoothPoints {
  public:
    SmoothPoints() = default;
    explicit SmoothPoints(const PointFlags& flags);

    [[nodiscard]] explicit operator bool() const { return first_ != 0 || rest_; } ///< whether any is
    [[nodiscard]] bool operator[](std::size_t index) const {
        return index < kFirst ? (first_ >> index & 1U) != 0 : rest_ && (*rest_)[index - kFirst];
    }
    [[nodiscard]] PointFlags flags(std::size_t count) const; ///< of the first `count` points

    bool operator==(const SmoothPoints&) const = default;

  private:
    static constexpr std::size_t kFirst = 64;

    std::uint64_t first_ = 0;
    Shared<PointFlags> rest_; // nothing where none of them is smooth
};

/// A curve between two anchors, which are the first and the last of its control points. It is straight when the other
/// two lie on the anchors next to them.
using Cubic = std::array<Point, 4>;

[[nodiscard]] constexpr bool isStraight(const Cubic& curve) { return curve[1] == curve[0] && curve[2] == curve[3]; }

/// Where inside of the curve it turns back, in x or in y.
struct Turns {
    std::array<double, 4> t{};
    std::size_t count = 0;

    [[nodiscard]] const double* begin() const { return t.data(); }
    [[nodiscard]] const double* end() const { return t.data() + count; }
};
[[nodiscard]] Turns turnsOf(const Cubic& curve);
[[nodiscard]] Point pointAt(const Cubic& curve, double t);

/// Every point is a corner at first, one whose handles move apart from one another.
struct PathData {
    std::vector<PathPoint> points;
    bool closed = false;
    SmoothPoints smooth{}; ///< the points that are no corners

    [[nodiscard]] bool isCorner(std::size_t index) const { return !smooth[index]; }
    void setCorners(std::size_t index, const PointFlags& corners); ///< of as many points, beginning at `index`
    void resize(std::size_t count); ///< cuts off at the end, or appends corners at the origin
    void insert(std::size_t index, const PathPoint* first, std::size_t count); ///< corners
    void erase(std::size_t index, std::size_t count);
    void reverse();

    /// Number of curve pieces: one per pair of neighbours, and the closing one.
    [[nodiscard]] std::size_t segmentCount() const;
    [[nodiscard]] Cubic segment(std::size_t index) const;
    /// Contains all anchors and control points, hence the whole curve.
    [[nodiscard]] Box hull() const;
    /// Of the curve itself, without its control points.
    [[nodiscard]] Box bounds() const;

    bool operator==(const PathData&) const = default;
};

/// What is drawn as one: a path, or the pieces of a compound path in the order of drawing.
using OutlineList = std::vector<Shared<PathData>>;

/// How far all points have been moved together, if that is all that has happened to them; none where there are none.
[[nodiscard]] std::optional<Point> commonMove(const OutlineList& was, const OutlineList& is);

/// Red, green, blue, 0 to 1.
struct Color {
    double red = 0;
    double green = 0;
    double blue = 0;

    bool operator==(const Color&) const = default;
};

enum class Alignment : std::uint8_t { Center, Inside, Outside };
enum class Cap : std::uint8_t { Butt, Round, Projecting };
enum class Join : std::uint8_t { Miter, Round, Bevel };

/// Of a dashed line: the lengths of dashes and gaps in turn, and where in them it begins.
struct Dashes {
    std::uint8_t count = 0; ///< how many of the lengths count; 0 is a solid line
    double offset = 0;
    std::array<double, 6> lengths{};

    bool operator==(const Dashes&) const = default;
};

/// Gradients and patterns that paint a path, as the drawing refers to them; empty where there is none.
struct Servers {
    std::string fill;
    std::string stroke;

    bool operator==(const Servers&) const = default;
};

/// Paint of a path. The default is what a new path gets: no fill, a solid black stroke of 1 point.
struct Style {
    // Side by side, since there may be as many styles as paths.
    bool fill = false;
    bool stroke = true;
    bool evenOdd = false; ///< the rule that tells what is filled, else nonzero
    Cap cap = Cap::Butt;
    Join join = Join::Miter;
    Alignment alignment = Alignment::Center; ///< of a closed path's stroke; drawn on the center wherever it lies
    bool overprintFill : 1 = false;          ///< printed over what lies below, not in place of it
    bool overprintStroke : 1 = false;
    Color fillColor;
    Color strokeColor;
    double strokeWidth = 1;
    double miterLimit = 10;
    Shared<Dashes> dash{};     ///< nothing in most styles
    Shared<Servers> servers{}; ///< nor here; where one is not found, it is painted as `fill` and `stroke` say

    [[nodiscard]] bool isFilled() const { return fill || !fillServer().empty(); }
    [[nodiscard]] bool isStroked() const { return stroke || !strokeServer().empty(); }
    [[nodiscard]] const std::string& fillServer() const;
    [[nodiscard]] const std::string& strokeServer() const;
    void setServers(Servers served);
    void setFill(const std::optional<Color>& color); ///< plain, or none at all
    void setStroke(const std::optional<Color>& color);

    [[nodiscard]] const Dashes& dashes() const;
    void setDashes(const Dashes& dashes);
    /// Calls `change` with each length of the stroke: its width, and those of its dashes.
    template <class Change> void changeLengths(const Change& change) {
        change(strokeWidth);
        if (!dash) return;
        change(dash.writable().offset);
        for (double& length : dash.writable().lengths) change(length);
    }

    bool operator==(const Style&) const = default;
};

enum class Justification : std::uint8_t { Left, Center, Right };
enum class Orientation : std::uint8_t { Horizontal, Vertical };

/// One line of text at a point of its baseline.
struct TextData {
    std::string contents{}; ///< UTF-8
    std::string font{};     ///< a family's name; empty for the default
    double size = 12;
    Justification justification = Justification::Left;
    Orientation orientation = Orientation::Horizontal;
    bool isRich = false; ///< has parts that look or lie otherwise than the rest; nothing of it can be changed then
    Point anchor{};      ///< where it was at first, as in OpaqueData
    std::array<double, 4> turned{1, 0, 0, 1}; ///< how its letters lay about it then: a to d of an Affine
    Style paint{};

    /// An estimate, for want of the font's measures: most fonts' letters are half as wide as high.
    [[nodiscard]] Box bounds() const;

    bool operator==(const TextData&) const = default;
};

/// A picture, in the drawing itself or in a file.
struct ImageData {
    bool isEmbedded = false;
    std::string link{};        ///< where it is, as the drawing says it; of one that was read with the drawing: nothing
    std::uint32_t columns = 0; ///< pixels; 0: not known
    std::uint32_t rows = 0;
    std::string fit = "none"; ///< how it is fitted where its size is not known, as the drawing says it; else stretched
    Affine place{};           ///< from the square from 0 to 1 to where it was at first, as in OpaqueData

    bool operator==(const ImageData&) const = default;
};

/// A use of something that the document keeps under a name.
struct SymbolData {
    std::string symbol;
    Affine place{};              ///< from its units to where it was at first, as in OpaqueData
    std::optional<Point> size{}; ///< in its units there, of one that is fitted into a box

    bool operator==(const SymbolData&) const = default;
};

/// What opaque art is, as far as Easel knows kinds of it.
using Special = std::variant<TextData, ImageData, SymbolData>;

/// Art that is shown and moved as a whole, never edited: a text, an image.
struct OpaqueData {
    Shared<Box> bounds;                       ///< where it lay at first; nothing, or empty, as long as nobody knows
    Point moved;                              ///< how far it has been moved since
    std::array<double, 4> turned{1, 0, 0, 1}; ///< and turned or scaled before that: a to d of an Affine
    Shared<Special> special{};                ///< of a kind that is known

    [[nodiscard]] Box hull() const; ///< where it lies now
    void place(const Affine& at) {
        moved = {at.e, at.f};
        turned = {at.a, at.b, at.c, at.d};
    }
    [[nodiscard]] Affine placed() const { return {turned[0], turned[1], turned[2], turned[3], moved.x, moved.y}; }

    bool operator==(const OpaqueData&) const = default;
};

} // namespace easel::model
