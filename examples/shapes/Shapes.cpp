// Shapes: a plug-in in one source, to start one's own from.
//
// It adds two submenus. "Draw" has an item for every drawing function, each of which puts its shape into a cell of its
// own of the current document. "Path" has an item for every operation on paths that leaves something to see; it works
// on the selected paths and marks in red what it finds. Each item is one undo step.
//
//   kzo_add_plugin(NAME Shapes SOURCES examples/shapes/Shapes.cpp)
//   easel run examples/shapes.js --plugin build/release/Shapes.aip
#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/app/Illustrator.h"
#include "core/app/Plugin.h"
#include "core/document/Art.h"
#include "core/document/CurrentDocument.h"
#include "core/document/Draw.h"
#include "core/document/HitData.h"
#include "core/frame/MenuGroup.h"
#include "core/frame/MenuItem.h"
#include "core/values/ArtboardRect.h"

using namespace kzo::core;

namespace {

// Styles

PathStyle filled(double red, double green, double blue) {
    PathStyle style;
    style.fill = {true, {red, green, blue}};
    style.stroke.width = 1.5;
    return style;
}

/// Of marks: what an operation found.
PathStyle marked() {
    PathStyle style;
    style.stroke.color = {0.85, 0.1, 0.1};
    style.stroke.width = 1.5;
    return style;
}

void mark(const ArtboardPoint& point) { draw::ellipse(point, 7, 7, false, marked()); }

// Drawing. Each shape has its place in a grid of four columns, the first as the document's default style paints it.

constexpr double kCellWidth = 90;
constexpr double kCellHeight = 80;

ArtboardPoint cell(int index) { return {60 + kCellWidth * (index % 4), 50 + kCellHeight * (index / 4)}; }

ArtboardRect around(const ArtboardPoint& center) {
    return {center.x() - 30, center.y() - 20, center.x() + 30, center.y() + 20};
}

struct Command {
    const char* text;
    void (*run)();
};

const Command kDrawing[] = {
    {"Point",
     [] {
         draw::point(cell(0));
         mark(cell(0)); // for nothing shows of a single point but when it is selected
     }},
    {"Line", [] { draw::line(cell(1).offset(-30, 20), cell(1).offset(30, -20)); }},
    {"Rectangle", [] { draw::rect(around(cell(2)), filled(0.98, 0.85, 0.55)); }},
    {"Rounded Rectangle", [] { draw::roundedRect(around(cell(3)), 10, filled(0.95, 0.75, 0.6)); }},
    {"Chamfered Rectangle", [] { draw::chamferedRect(around(cell(4)), 10, filled(0.9, 0.7, 0.75)); }},
    {"Ellipse", [] { draw::ellipse(cell(5), 60, 40, false, filled(0.8, 0.72, 0.88)); }},
    {"Arc", [] { draw::arc(cell(6).offset(-30, 15), cell(6).offset(0, -20), cell(6).offset(30, 15)); }},
    {"Triangle", [] { draw::triangle(cell(7), 45, filled(0.68, 0.76, 0.92)); }},
    {"Star", [] { draw::star(cell(8), 5, 28, 12, filled(0.62, 0.82, 0.9)); }},
    {"Polygon",
     [] {
         const ArtboardPoint c = cell(9);
         draw::polygon({c.offset(-30, -20), c.offset(10, -20), c.offset(30, 0), c.offset(10, 20), c.offset(-30, 20),
                        c.offset(-10, 0)},
                       filled(0.65, 0.88, 0.8));
     }},
    {"Regular Polygon",
     [] {
         draw::regularPolygon(cell(10).offset(-18, 0), 22, 6, filled(0.72, 0.9, 0.68));
         draw::regularPolygon(cell(10).offset(24, 0), cell(10).offset(24 + 12, -12), 4, filled(0.85, 0.92, 0.62));
     }},
    {"Text",
     [] {
         draw::text("Shapes", cell(11).offset(0, 6), "serif", 20, ParagraphJustification::Center, {0.2, 0.3, 0.5});
     }},
};

// Work on the selected paths

void forEachSelectedPath(const std::function<void(Art&)>& work) {
    CurrentDocument* const document = Illustrator::instance()->currentDocument();
    if (!document) return;
    const auto selected = document->selectedArt();
    for (Art& art : *selected)
        if (art.artType() == ArtType::Path) work(art);
}

/// Writes a finding below a path, in a line of its own.
void note(const Art& art, const std::string& text, int line = 1) {
    const PathArt& path = *art.path();
    double left = path.midPoint().x();
    double bottom = path.midPoint().y();
    for (const ArtboardSegPoint& point : path.segPoints(0, path.segPointCount())) {
        left = std::min(left, point.p.x());
        bottom = std::max(bottom, point.p.y());
    }
    draw::text(text, {left, bottom + 9 * line}, "sans-serif", 7, ParagraphJustification::Left, {0.85, 0.1, 0.1});
}

std::string withUnit(double value, const char* unit) {
    char text[40];
    std::snprintf(text, sizeof text, "%.1f %s", value, unit);
    return text;
}

ArtboardSegPoint moved(const ArtboardSegPoint& point, double dx, double dy) {
    return {point.p.offset(dx, dy), point.in.offset(dx, dy), point.out.offset(dx, dy), point.corner};
}

/// What a click on a segment of the path, at `t`, would have hit.
HitData hitOn(const Art& art, std::int16_t seg, double t) {
    const auto bezier = art.path()->bezier(seg);
    return bezier ? HitData(&art, bezier->evaluate(t), HitRequest::AnchorsAndSegments, 1, false) : HitData();
}

const Command kOnPaths[] = {
    // The outline
    {"Close", [] { forEachSelectedPath([](Art& art) { art.path()->setClosed(true); }); }},
    {"Open", [] { forEachSelectedPath([](Art& art) { art.path()->setClosed(false); }); }},
    {"Keep Three Points", [] { forEachSelectedPath([](Art& art) { art.path()->setSegPointCount(3); }); }},
    {"Keep One Segment", [] { forEachSelectedPath([](Art& art) { art.path()->setSegCount(1); }); }},
    {"Raise Second Point",
     [] {
         forEachSelectedPath([](Art& art) {
             PathArt& path = *art.path();
             for (const ArtboardSegPoint& point : path.segPoints(1, 1)) path.setSegPoints(1, {moved(point, 0, -10)});
         });
     }},
    {"Raise Last Segment",
     [] {
         forEachSelectedPath([](Art& art) {
             PathArt& path = *art.path();
             const auto last = static_cast<std::int16_t>(path.segCount() - 1);
             PathArt::SegPoints points = path.segs(last, 1);
             for (ArtboardSegPoint& point : points) point = moved(point, 0, -10);
             path.setSegs(last, points);
         });
     }},
    {"Insert Point Above the First",
     [] {
         forEachSelectedPath([](Art& art) {
             PathArt& path = *art.path();
             for (const ArtboardSegPoint& point : path.segPoints(0, 1)) path.insertSegPoints(1, {moved(point, 0, -15)});
         });
     }},
    {"Insert Segment Below the First",
     [] {
         forEachSelectedPath([](Art& art) {
             PathArt& path = *art.path();
             for (const ArtboardSegPoint& point : path.segPoints(0, 1)) path.insertSegs(1, {moved(point, 0, 15)});
         });
     }},
    {"Insert Point in First Segment",
     [] {
         forEachSelectedPath([](Art& art) {
             art.path()->insertSegPointAtT(0, 0.5);
             for (const ArtboardSegPoint& point : art.path()->segPoints(1, 1)) mark(point.p);
         });
     }},
    {"Delete Second Point", [] { forEachSelectedPath([](Art& art) { art.path()->deleteSegPoints(1, 1); }); }},
    {"Delete First Segment", [] { forEachSelectedPath([](Art& art) { art.path()->deleteSegs(0, 1); }); }},
    {"Start at the Second Point",
     [] {
         forEachSelectedPath([](Art& art) {
             art.path()->rotateSegPoints(1);
             for (const ArtboardSegPoint& point : art.path()->segPoints(0, 1)) mark(point.p);
         });
     }},
    {"Reverse",
     [] {
         forEachSelectedPath([](Art& art) {
             art.path()->reverseSegs();
             for (const ArtboardSegPoint& point : art.path()->segPoints(0, 1)) mark(point.p);
         });
     }},
    {"Wind Clockwise",
     [] {
         forEachSelectedPath([](Art& art) {
             art.path()->setWindingOrder(WindingOrderType::Clockwise);
             if (art.path()->windingOrder() == WindingOrderType::Clockwise) note(art, "clockwise");
         });
     }},
    {"Trim First Segment",
     [] {
         using enum TrimDirectionType;
         forEachSelectedPath([](Art& art) { art.path()->trim(hitOn(art, 0, 0.5), TowardsStart | TowardsEnd); });
     }},
    {"Extend First to Second",
     [] {
         // The end of the upper path grows until it meets the lower one.
         std::vector<Art> paths;
         forEachSelectedPath([&](Art& art) { paths.push_back(art); });
         if (paths.size() == 2) paths[0].path()->extend(hitOn(paths[0], 0, 0.9), hitOn(paths[1], 0, 0.5));
     }},

    // Paint and selection
    {"Paint Like a Mark", [] { forEachSelectedPath([](Art& art) { art.path()->setStyle(marked()); }); }},
    {"Double the Stroke",
     [] {
         forEachSelectedPath([](Art& art) {
             PathStyle style = art.path()->style();
             style.stroke.width *= 2;
             art.path()->setStyle(style);
         });
     }},
    {"Stroke Inside",
     [] { forEachSelectedPath([](Art& art) { art.path()->setStrokeAlignment(StrokeAlignment::Inside); }); }},
    {"Select First Point Only",
     [] {
         forEachSelectedPath([](Art& art) {
             for (std::int16_t i = 1; i < art.path()->segPointCount(); ++i)
                 art.path()->setSegPointSelected(i, SegPointSelectionState::None);
             for (std::int16_t i = 0; i < art.path()->segPointCount(); ++i)
                 if (art.path()->segPointSelected(i) != SegPointSelectionState::None)
                     mark(art.path()->segPoints(i, 1).front().p);
         });
     }},

    // Measures and shape
    {"Mark Ends",
     [] {
         forEachSelectedPath([](Art& art) {
             ArtboardPoint first;
             ArtboardPoint last;
             art.path()->endPoints(first, last);
             mark(first);
             mark(last);
         });
     }},
    {"Mark Phantom Points",
     [] {
         forEachSelectedPath([](Art& art) {
             for (const std::int16_t index : art.path()->phantomSegPoints())
                 for (const ArtboardSegPoint& point : art.path()->segPoints(index, 1)) mark(point.p);
         });
     }},
    {"Mark Segments That Show",
     [] {
         forEachSelectedPath([](Art& art) {
             for (std::int16_t i = 0; i < art.path()->segCount(); ++i)
                 if (!art.path()->phantomSeg(i)) mark(art.path()->bezier(i)->evaluate(0.5));
         });
     }},
    {"Mark Selected Segments",
     [] {
         forEachSelectedPath([](Art& art) {
             for (std::int16_t i = 0; i < art.path()->segCount(); ++i)
                 if (art.path()->segSelected(i)) mark(art.path()->bezier(i)->evaluate(0.5));
         });
     }},
    {"Mark Middle", [] { forEachSelectedPath([](Art& art) { mark(art.path()->midPoint()); }); }},
    {"Mark Point Nearest to the Origin",
     [] {
         forEachSelectedPath([](Art& art) {
             const std::int16_t nearest = art.path()->segPointClosestToPoint({0, 0});
             for (const ArtboardSegPoint& point : art.path()->segPoints(nearest, 1)) mark(point.p);
         });
     }},
    {"Mark Every Quarter of the First Segment",
     [] {
         forEachSelectedPath([](Art& art) {
             const auto bezier = art.path()->bezier(0);
             if (!bezier) return;
             for (const double part : {0.25, 0.5, 0.75})
                 mark(bezier->evaluate(art.path()->tAtLength(0, part * art.path()->sublength(0, 0, 0, 1))));
         });
     }},
    {"Mark Intersections",
     [] {
         std::vector<Art> paths;
         forEachSelectedPath([&](Art& art) { paths.push_back(art); });
         for (std::size_t i = 0; i < paths.size(); ++i) {
             for (const PathIntersection& found : paths[i].path()->getIntersections()) mark(found.point);
             for (std::size_t k = i + 1; k < paths.size(); ++k)
                 for (const PathIntersection& found : paths[i].path()->getIntersections(paths[k])) mark(found.point);
         }
     }},
    {"Mark Points Within",
     [] {
         forEachSelectedPath([](Art& art) {
             ArtboardPoint first;
             ArtboardPoint last;
             art.path()->endPoints(first, last);
             for (int i = -3; i <= 3; ++i)
                 for (int k = -3; k <= 3; ++k)
                     if (art.path()->containsPoint(first.offset(10 * i, 10 * k))) mark(first.offset(10 * i, 10 * k));
         });
     }},
    {"Write Counts",
     [] {
         forEachSelectedPath([](Art& art) {
             const PathArt& path = *art.path();
             note(art, std::to_string(path.segPointCount()) + (path.closed() ? " points, closed" : " points, open"));
             note(art, std::to_string(path.segCount()) + " segments", 2);
         });
     }},
    {"Write Selection",
     [] {
         forEachSelectedPath([](Art& art) {
             const PathArt& path = *art.path();
             int anchors = 0;
             for (std::int16_t i = 0; i < path.segPointCount(); ++i)
                 anchors += path.segPointSelected(i) == SegPointSelectionState::Anchor ? 1 : 0;
             note(art, path.allSegPointsSelected() ? "all selected" : std::to_string(anchors) + " selected");
         });
     }},
    {"Write Length",
     [] {
         forEachSelectedPath(
             [](Art& art) { note(art, art.path()->hasLength() ? withUnit(art.path()->length(), "pt") : "no length"); });
     }},
    {"Write Area", [] { forEachSelectedPath([](Art& art) { note(art, withUnit(art.path()->area(), "pt²")); }); }},
    {"Write Angle",
     [] {
         forEachSelectedPath([](Art& art) {
             Angle angle;
             if (art.path()->angle(angle)) note(art, withUnit(angle.asDegrees(), "°"));
         });
     }},
    {"Write What It Is",
     [] {
         forEachSelectedPath([](Art& art) {
             const PathArt& path = *art.path();
             note(art, path.isGuide()           ? "a guide"
                       : path.isCircular()      ? "a circle"
                       : path.isRectangular()   ? "a rectangle"
                       : path.isStraight()      ? "a straight line"
                       : path.hasStraightSegs() ? "a shape with straight sides"
                                                : "something else");
         });
     }},
};

// The plug-in

/// A menu item's callback: the framework keeps a copy of it as long as the item lives.
class Run : public Callback {
  public:
    explicit Run(const Command& command) : command_(&command) {}
    void execute() override { command_->run(); }
    [[nodiscard]] std::unique_ptr<Callback> clone() const override { return std::make_unique<Run>(*this); }

  private:
    const Command* command_;
};

class Shapes {
  public:
    explicit Shapes(Plugin* plugin) { plugin->setStartupCallback(__Callback<Shapes>(this, &Shapes::startup)); }

  private:
    void startup() {
        const MenuGroup drawing(BuiltinMenuGroup::SelectObject, "Draw", false, true, true, false);
        for (const Command& command : kDrawing) items_.emplace_back(drawing, command.text, Run(command));
        const MenuGroup paths(BuiltinMenuGroup::SelectObject, "Path", false, true, true, false);
        for (const Command& command : kOnPaths) items_.emplace_back(paths, command.text, Run(command));
    }

    std::vector<MenuItem> items_;
};

std::unique_ptr<Shapes> shapes;

} // namespace

bool kzo::core::pluginSetup(Plugin* plugin) {
    plugin->setName("Shapes");
    shapes = std::make_unique<Shapes>(plugin);
    return true;
}

void kzo::core::pluginDestroy(Plugin*) { shapes.reset(); }
