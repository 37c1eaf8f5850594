// The path and path style suites on the paths of a document.
#include <algorithm>
#include <boost/math/quadrature/gauss_kronrod.hpp>
#include <cmath>
#include <vector>

#include "hostapi/AIPathStyleSuite.h"
#include "hostapi/AIPathSuite.h"
#include "suites/Enter.h"
#include "suites/Shared.h"

namespace easel::suites {

namespace {

using model::PathPoint;

/// Art that is known to be a path.
struct PathArt : Art {
    [[nodiscard]] const model::PathData& data() const { return node.path(); }
    [[nodiscard]] std::int16_t count() const { return static_cast<std::int16_t>(data().points.size()); }
};

} // namespace

template <> struct Argument<PathArt> {
    static PathArt from(AIArtHandle handle) {
        const Art art = resolveArt(handle);
        require(art.node.type() == model::NodeType::Path);
        return {art};
    }
};

namespace {

AIRealPoint toHost(model::Point point) { return {point.x, point.y}; }

model::Point fromHost(AIRealPoint point) {
    require(std::isfinite(point.h) && std::isfinite(point.v));
    return {point.h, point.v};
}

PathPoint pointFromHost(const AIPathSegment& in) { return {fromHost(in.p), fromHost(in.in), fromHost(in.out)}; }

// Points

void setCount(PathArt path, std::int16_t count) {
    require(count >= 0);
    path.document.setPointCount(path.node, static_cast<std::size_t>(count));
}

void getSegments(PathArt path, std::int16_t index, std::int16_t count, AIPathSegment& segments) {
    require(index >= 0 && count >= 0 && index + count <= path.count());
    AIPathSegment* out = &segments;
    for (std::int16_t i = index; i < index + count; ++i) {
        const auto at = static_cast<std::size_t>(i);
        const PathPoint& point = path.data().points[at];
        *out++ = {toHost(point.anchor), toHost(point.in), toHost(point.out), path.data().isCorner(at)};
    }
}

void setSegments(PathArt path, std::int16_t index, std::int16_t count, const AIPathSegment& segments) {
    require(index >= 0 && count >= 0 && index + count <= path.count());
    // Kept between calls, since a drag comes here at every move. Converted whole first: a bad point changes nothing.
    static std::vector<PathPoint> points;
    static model::PointFlags corners;
    points.clear();
    corners.clear();
    for (const AIPathSegment* in = &segments; in != &segments + count; ++in) {
        points.push_back(pointFromHost(*in));
        corners.push_back(in->corner != 0);
    }
    path.document.setPoints(path.node, static_cast<std::size_t>(index), points.data(), points.size());
    path.document.setCorners(path.node, static_cast<std::size_t>(index), corners);
}

void insertSegments(PathArt path, std::int16_t index, std::int16_t count, const AIPathSegment& segments) {
    require(index >= 0 && index <= path.count() && count >= 0 && path.count() + count <= INT16_MAX);
    std::vector<PathPoint> points;
    model::PointFlags corners;
    for (const AIPathSegment* in = &segments; in != &segments + count; ++in) {
        points.push_back(pointFromHost(*in));
        corners.push_back(in->corner != 0);
    }
    path.document.insertPoints(path.node, static_cast<std::size_t>(index), points.data(), points.size());
    path.document.setCorners(path.node, static_cast<std::size_t>(index), corners);
}

void deleteSegments(PathArt path, std::int16_t index, std::int16_t count) {
    require(index >= 0 && count >= 0 && index + count <= path.count());
    path.document.removePoints(path.node, static_cast<std::size_t>(index), static_cast<std::size_t>(count));
}

// Selection

struct PartBit {
    std::int16_t host;
    model::PointPart part;
};
constexpr PartBit kParts[] = {{kAIAnchorSelected, model::kAnchorPart},
                              {kAIInControlSelected, model::kInPart},
                              {kAIOutControlSelected, model::kOutPart}};

std::int16_t getSelected(PathArt path, std::int16_t index) {
    require(index >= 0 && index < path.count());
    int bits = 0;
    for (const PartBit& row : kParts)
        if ((path.node.selectedParts(static_cast<std::size_t>(index)) & row.part) != 0) bits |= row.host;
    return static_cast<std::int16_t>(bits);
}

void setSelected(PathArt path, std::int16_t index, std::int16_t selected) {
    constexpr int kEvery = kAIAnchorSelected | kAIInControlSelected | kAIOutControlSelected;
    require(index >= 0 && index < path.count() && (selected & ~kEvery) == 0);
    model::PointSelection parts(path.data().points.size());
    for (std::size_t i = 0; i < parts.size(); ++i) parts[i] = path.node.selectedParts(i);
    std::uint8_t& changed = parts[static_cast<std::size_t>(index)];
    changed = 0;
    for (const PartBit& row : kParts)
        if ((selected & row.host) != 0) changed |= row.part;
    path.document.selectPoints(path.node, std::move(parts));
}

// Measures

/// Within `tolerance`, in points.
double lengthOf(const model::Cubic& c, double tolerance) {
    const auto far = [](model::Point a, model::Point b) { return std::hypot(b.x - a.x, b.y - a.y); };
    if (model::isStraight(c)) return far(c[0], c[3]);
    const double most = far(c[0], c[1]) + far(c[1], c[2]) + far(c[2], c[3]);
    const auto speed = [&c](double t) {
        const auto along = [t](double a, double b, double d, double e) {
            return 3 * ((1 - t) * (1 - t) * (b - a) + 2 * (1 - t) * t * (d - b) + t * t * (e - d));
        };
        return std::hypot(along(c[0].x, c[1].x, c[2].x, c[3].x), along(c[0].y, c[1].y, c[2].y, c[3].y));
    };
    constexpr unsigned kHalvings = 15;
    constexpr double kBest = 1e-13; // of what doubles can tell
    return boost::math::quadrature::gauss_kronrod<double, 15>::integrate(speed, 0.0, 1.0, kHalvings,
                                                                         std::max(tolerance / most, kBest));
}

void getLength(PathArt path, AIReal& length, AIReal flatness) {
    require(flatness > 0);
    AIReal sum = 0;
    for (std::size_t i = 0; i < path.data().segmentCount(); ++i) sum += lengthOf(path.data().segment(i), flatness);
    length = sum;
}

// Style

/// The topmost selected path of the current document; refuses when there is none.
model::Node& currentPath() {
    for (model::Node* const node : currentDocument().selection())
        if (node->type() == model::NodeType::Path) return *node;
    throw HostError{kRefusedErr};
}

void setCurrentStyle(const AIPathStyle& in) {
    const model::Style style = styleFromHost(in);
    static_cast<void>(currentPath());
    model::Document& document = currentDocument();
    for (model::Node* const node : document.selection())
        if (node->type() == model::NodeType::Path) paintPath({document, *node}, style);
}

void setAlignment(PathArt path, std::int16_t alignment) {
    require(alignment >= kAICenterStroke && alignment <= kAIOutsideStroke);
    model::Style style = path.node.style();
    style.alignment = static_cast<model::Alignment>(alignment);
    path.document.setStyle(path.node, style);
}

} // namespace

AIPathStyle styleToHost(const model::Style& style) {
    const auto color = [](const model::Color& c) { return AIColor{c.red, c.green, c.blue}; };
    AIPathStyle result{.fillPaint = style.fill,
                       .strokePaint = style.stroke,
                       .fillOverprint = style.overprintFill,
                       .strokeOverprint = style.overprintStroke,
                       .fillColor = color(style.fillColor),
                       .strokeColor = color(style.strokeColor),
                       .strokeWidth = style.strokeWidth,
                       .miterLimit = style.miterLimit,
                       .cap = static_cast<std::int16_t>(style.cap),
                       .join = static_cast<std::int16_t>(style.join),
                       .dash = {.length = style.dashes().count, .offset = style.dashes().offset, .array = {}}};
    std::copy(style.dashes().lengths.begin(), style.dashes().lengths.end(), result.dash.array);
    return result;
}

model::Style repainted(const model::Style& was, model::Style style) {
    style.alignment = was.alignment;
    style.evenOdd = was.evenOdd;
    // A plug-in is told what lies below a gradient, and may tell the same again.
    const bool sameFill = style.fill == was.fill && style.fillColor == was.fillColor;
    const bool sameStroke = style.stroke == was.stroke && style.strokeColor == was.strokeColor;
    style.setServers({sameFill ? was.fillServer() : "", sameStroke ? was.strokeServer() : ""});
    return style;
}

void paintPath(const Art& path, const model::Style& style) {
    path.document.setStyle(path.node, repainted(path.node.style(), style));
}

model::Style styleFromHost(const AIPathStyle& in) {
    const auto unit = [](double value) { return value >= 0 && value <= 1; };
    const auto color = [&](const AIColor& c) {
        require(unit(c.red) && unit(c.green) && unit(c.blue));
        return model::Color{c.red, c.green, c.blue};
    };
    require(in.strokeWidth >= 0 && std::isfinite(in.strokeWidth) && in.miterLimit >= 1 && std::isfinite(in.miterLimit));
    require(in.cap >= kAIButtCap && in.cap <= kAIProjectingCap && in.join >= kAIMiterJoin && in.join <= kAIBevelJoin);
    require(in.dash.length >= 0 && in.dash.length <= kMaxDashComponents && std::isfinite(in.dash.offset));
    model::Style style{.fill = in.fillPaint != 0,
                       .stroke = in.strokePaint != 0,
                       .cap = static_cast<model::Cap>(in.cap),
                       .join = static_cast<model::Join>(in.join),
                       .alignment = {},
                       .overprintFill = in.fillOverprint != 0,
                       .overprintStroke = in.strokeOverprint != 0,
                       .fillColor = color(in.fillColor),
                       .strokeColor = color(in.strokeColor),
                       .strokeWidth = in.strokeWidth,
                       .miterLimit = in.miterLimit};
    model::Dashes dashes{.count = static_cast<std::uint8_t>(in.dash.length), .offset = in.dash.offset, .lengths = {}};
    for (std::size_t i = 0; i < dashes.count; ++i) {
        require(in.dash.array[i] >= 0 && std::isfinite(in.dash.array[i]));
        dashes.lengths[i] = in.dash.array[i];
    }
    style.setDashes(dashes);
    return style;
}

template <> void fill(AIPathSuite& suite) {
    enter<&AIPathSuite::GetPathSegmentCount>(suite, [](PathArt path) { return path.count(); });
    enter<&AIPathSuite::SetPathSegmentCount, setCount>(suite);
    enter<&AIPathSuite::GetPathSegments, getSegments>(suite);
    enter<&AIPathSuite::SetPathSegments, setSegments>(suite);
    enter<&AIPathSuite::GetPathClosed>(suite, [](PathArt path) { return path.data().closed; });
    enter<&AIPathSuite::SetPathClosed>(suite, [](PathArt path, bool on) { path.document.setClosed(path.node, on); });
    enter<&AIPathSuite::ReversePathSegments>(suite, [](PathArt path) { path.document.reverse(path.node); });
    enter<&AIPathSuite::GetPathLength, getLength>(suite);
    enter<&AIPathSuite::InsertPathSegments, insertSegments>(suite);
    enter<&AIPathSuite::DeletePathSegments, deleteSegments>(suite);
    enter<&AIPathSuite::GetPathSegmentSelected, getSelected>(suite);
    enter<&AIPathSuite::SetPathSegmentSelected, setSelected>(suite);
    enter<&AIPathSuite::GetPathAllSegmentsSelected>(
        suite, [](PathArt path) { return path.count() > 0 && path.node.allPointsSelected(); });
    // Guides of Easel are lines of the page, and no path becomes one.
    enter<&AIPathSuite::GetPathGuide>(suite, [](PathArt) { return false; });
}

template <> void fill(AIPathStyleSuite& suite) {
    enter<&AIPathStyleSuite::GetPathStyle>(suite, [](PathArt path) { return styleToHost(path.node.style()); });
    enter<&AIPathStyleSuite::SetPathStyle>(
        suite, [](PathArt path, const AIPathStyle& style) { paintPath(path, styleFromHost(style)); });
    enter<&AIPathStyleSuite::GetInitialPathStyle>(suite,
                                                  [] { return styleToHost(currentDocument().settings.pathStyle); });
    enter<&AIPathStyleSuite::SetInitialPathStyle>(
        suite, [](const AIPathStyle& style) { currentDocument().settings.pathStyle = styleFromHost(style); });
    enter<&AIPathStyleSuite::GetCurrentPathStyle>(suite, [] { return styleToHost(currentPath().style()); });
    enter<&AIPathStyleSuite::SetCurrentPathStyle, setCurrentStyle>(suite);
    enter<&AIPathStyleSuite::SetStrokeAlignment, setAlignment>(suite);
}

} // namespace easel::suites
