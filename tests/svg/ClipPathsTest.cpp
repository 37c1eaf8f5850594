// Masks that a drawing brings along: what is outside of them cannot be hit.
#include <gtest/gtest.h>

#include "model/Clip.h"
#include "svg/Reader.h"
#include "svg/Writer.h"

namespace easel::svg {
namespace {

using model::Document;
using model::Hit;
using model::HitKind;
using model::HitRequest;
using model::Node;

constexpr HitRequest kEverything = HitRequest::Anchors | HitRequest::Segments | HitRequest::Fills;

std::unique_ptr<Document> readInside(const std::string& content) {
    return read("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"400\" height=\"300\">" + content + "</svg>",
                "t.svg");
}

/// The id of what is hit within one point; empty for nothing.
std::string at(Document& document, double x, double y, Node* within = nullptr) {
    const Hit hit = document.hitTest(within ? *within : document.root(), {x, y}, 1, kEverything);
    return hit.kind == HitKind::None ? "" : hit.node->name();
}

// On the page: the window of w covers x from 100 to 200, y from 0 to 200; the ring is 100 to 200 by 60 to 160 with a
// hole of 140 to 160 by 90 to 110.
constexpr const char* kNested = R"svg(
  <g id="g" transform="translate(100 0)" clip-path="url(#w)">
    <path id="line" d="M -50 50 H 150"/>
    <g style="fill:red; clip-path: url('#ring')"><rect id="box" x="10" y="70" width="200" height="80"/></g>
  </g>
  <defs>
    <clipPath id="w"><title>Window</title><rect width="100" height="200"/></clipPath>
    <clipPath id="ring" transform="translate(0 60)" clip-rule="evenodd">
      <path d="M0 0 h100 v100 h-100 z M40 30 h20 v20 h-20 z"/>
    </clipPath>
    <clipPath id="w"><rect x="1000" width="1" height="1"/></clipPath>
  </defs>)svg";

TEST(ClipPaths, InUnitsOfTheBoxFitWhatTheyArePutOn) {
    // The left half, and within it no more than the lower half.
    const auto document = readInside(R"svg(
      <clipPath id="left" clipPathUnits="objectBoundingBox"><rect width="50%" height="1"/></clipPath>
      <clipPath id="low" clipPathUnits="objectBoundingBox"><path d="M0 .5h1v.5h-1z"/></clipPath>
      <g id="g" transform="scale(2)" clip-path="url(#left)">
        <rect id="a" x="10" width="20" height="20"/><rect id="b" x="40" y="10" width="10" height="10" clip-path="url(#low)"/>
      </g>
      <path id="c" d="M200 0h40v40h-40z m10 10h10v10z" clip-path="url(#low)"/>)svg");
    const auto expectHits = [&](const std::vector<std::tuple<double, double, const char*>>& rows) {
        for (const auto& [x, y, id] : rows) EXPECT_EQ(at(*document, x, y), id) << x << ' ' << y;
    };
    // The group goes from 20 to 100, so that b is hidden.
    expectHits({{40, 20, "a"}, {58, 20, "a"}, {62, 20, ""}, {90, 38, ""}, {230, 10, ""}});
    EXPECT_EQ(document->topmostAt({230, 30}, 0)->parent()->name(), "c");
    document->offset(*document->findByName("g"), 100, 0);
    expectHits({{140, 20, "a"}, {162, 20, ""}, {40, 20, ""}});
    // The mask of a path follows its shape: now the path goes from 0 to 80.
    model::Node& outer = *document->findByName("c")->lastChild();
    const model::PathPoint deep[] = {model::cornerAt({240, 80}), model::cornerAt({200, 80})};
    document->setPoints(outer, 2, deep, 2);
    EXPECT_EQ(document->topmostAt({230, 30}, 0), nullptr);
    EXPECT_EQ(document->topmostAt({230, 50}, 0), &outer);
}

TEST(ClipPaths, HideWhatLiesOutsideOfAnyMaskAround) {
    const auto document = readInside(kNested);
    Node* const group = document->findByName("g");
    ASSERT_TRUE(group);
    const struct {
        double x, y;
        const char* id;
    } rows[] = {
        {150, 50, "line"},  // inside
        {100, 50, "line"},  // a mask's outline belongs to it
        {200, 50, "line"},  //
        {50, 50, ""},       // an anchor outside
        {220, 50, ""},      // a segment outside
        {115, 75, "box"},   //
        {150, 100, ""},     // in the hole of the inner mask
        {205, 100, ""},     // in the box and, but for the outer mask, its place
        {100, 20, ""},      // the mask's outline alone is nothing, nor is its inside
        {150, 20, ""},      //
        {110.5, 150, "box"} // a corner of the box, in all masks
    };
    for (const auto& row : rows) {
        EXPECT_EQ(at(*document, row.x, row.y), row.id) << row.x << ' ' << row.y;
        const Node* const topmost = document->topmostAt({row.x, row.y}, 1);
        EXPECT_EQ(topmost ? topmost->name() : "", row.id) << row.x << ' ' << row.y;
        EXPECT_EQ(at(*document, row.x, row.y, group), row.id) << row.x << ' ' << row.y << " in the group";
    }
    EXPECT_FALSE(document->snapPoint({50, 50}, 2));               // nor does the pointer snap to what does not show
    EXPECT_TRUE(document->touching({40, 40, 60, 60}).empty());    // nor does a marquee take the end of the line
    EXPECT_TRUE(document->touching({145, 95, 155, 105}).empty()); // or the box through the hole
    EXPECT_EQ(document->touching({130, 95, 155, 105}).size(), 1U);
    // What is taken out of the group is whole.
    document->place(*document->findByName("line"), model::Placement::OnTopInside, document->currentLayer());
    EXPECT_EQ(at(*document, 220, 50), "line");
}

TEST(ClipPaths, GoWithWhatIsMovedAsAWhole) {
    const auto document = readInside(R"svg(
      <clipPath id="half"><rect width="30" height="300"/></clipPath>
      <path id="path" clip-path="url(#half)" d="M 0 50 H 60"/>
      <image id="image" clip-path="url(#half)" y="100" width="60" height="20"/>
      <g id="group" clip-path="url(#half)"><path id="inner" d="M 0 200 H 60"/></g>)svg");
    const std::string before = write(*document);
    const std::tuple<double, double, const char*> spots[] = {
        {20, 50, "path"}, {40, 50, ""}, {20, 110, "image"}, {40, 110, ""}, {20, 200, "inner"}};
    for (const auto& [x, y, id] : spots) EXPECT_EQ(at(*document, x, y), id);
    for (const model::Affine& by :
         {model::Affine{.e = 100}, {0, 1, -1, 0, 300, 10}, {1.5, 0, 0, 1.5, 0, 0}, {-1, 0, 0, 2, 200, 0}}) {
        for (const char* const id : {"path", "image", "group"}) document->transform(*document->findByName(id), by);
        // As the file will have it: see by reading it again.
        const auto again = read(write(*document), "t.svg");
        for (Document* const either : {document.get(), again.get()}) {
            for (const auto& [x, y, id] : spots) {
                const model::Point spot = by({x, y});
                EXPECT_EQ(at(*either, spot.x, spot.y), id) << x << ' ' << y << ' ' << by.a;
            }
        }
        while (document->journal().undo()) continue;
        for (const auto& [x, y, id] : spots) EXPECT_EQ(at(*document, x, y), id);
    }
    // It stays where it is when the outline is changed.
    Node& path = *document->findByName("path");
    document->offset(path, 100, 0);
    document->setPointCount(path, 3); // a third point at the origin
    for (const auto& [x, id] : {std::pair(120, "path"), {0, ""}}) {
        EXPECT_EQ(at(*document, x, x == 0 ? 0 : 50), id);
        EXPECT_EQ(at(*read(write(*document), "t.svg"), x, x == 0 ? 0 : 50), id);
    }
    while (document->journal().undo()) continue;
    EXPECT_EQ(write(*document), before);
}

TEST(ClipPaths, CountAsNoneWhenTheyAreNotUnderstoodAndHideAllWhenTheyAreEmpty) {
    const struct {
        const char* clip;
        bool shows;
    } rows[] = {
        {R"(<clipPath id="c"/>)", false},
        {R"(<clipPath id="c"><rect width="9" height="9"/></clipPath>)", false},
        {R"(<clipPath id="c"><rect width="9" height="9"/><circle cx="50" cy="50" r="9"/></clipPath>)", true},
        {R"(<clipPath id="c"><circle cx="50" cy="50" r="9" style="display:none"/></clipPath>)", false},
        {R"(<clipPath id="c"><rect width="9" height="9"/><text>A</text></clipPath>)", true},
        {R"svg(<clipPath id="c"><rect width="9" height="9" transform="scale(1e999)"/></clipPath>)svg", true},
        {R"(<clipPath id="c" clipPathUnits="objectBoundingBox"><rect width="9" height="9"/></clipPath>)", true},
        {R"(<clipPath id="other"><rect width="9" height="9"/></clipPath>)", true},
        // Nonzero winding: the inner square goes the same way round, so it is no hole.
        {R"(<clipPath id="c"><path d="M0 0h99v99h-99z M40 40h20v20h-20z"/></clipPath>)", true},
        {R"(<clipPath id="c"><path d="M0 0h99v99h-99z M40 40v20h20v-20z"/></clipPath>)", false},
    };
    for (const auto& row : rows) {
        const auto document =
            readInside(row.clip + std::string(R"svg(<path id="p" clip-path="url( #c )" d="M 50 50 H 60"/>)svg"));
        EXPECT_EQ(at(*document, 50, 50), row.shows ? "p" : "") << row.clip;
    }
}

} // namespace
} // namespace easel::svg
