// What is read from SVG, and what is refused.
#include "svg/Reader.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/Folder.h"
#include "svg/Limits.h"
#include "svg/Packing.h"
#include "svg/Writer.h"

namespace easel::svg {
namespace {

using model::Alignment;
using model::Cap;
using model::Color;
using model::Document;
using model::Join;
using model::Node;
using model::NodeType;
using model::PathData;
using model::PathPoint;
using model::Point;
using model::Style;

constexpr const char* kOpen = R"(<svg xmlns="http://www.w3.org/2000/svg" width="200" height="100"
 xmlns:inkscape="http://www.inkscape.org/namespaces/inkscape"
 xmlns:sodipodi="http://sodipodi.sourceforge.net/DTD/sodipodi-0.dtd">)";

std::unique_ptr<Document> readInside(const std::string& content) { return read(kOpen + content + "</svg>", "t.svg"); }

std::string errorOf(const std::string& bytes) {
    return desk::errorOf<FileError>([&] { static_cast<void>(read(bytes, "t.svg")); });
}

PathPoint corner(double x, double y) { return model::cornerAt({x, y}); }

/// Anchors and handles of the topmost path, as far as they can be told from each other.
void expectNear(const PathData& path, const std::vector<PathPoint>& points, bool closed) {
    EXPECT_EQ(path.closed, closed);
    ASSERT_EQ(path.points.size(), points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        for (const auto part : {&PathPoint::anchor, &PathPoint::in, &PathPoint::out}) {
            EXPECT_NEAR((path.points[i].*part).x, (points[i].*part).x, 1e-9) << i;
            EXPECT_NEAR((path.points[i].*part).y, (points[i].*part).y, 1e-9) << i;
        }
    }
}

// Tree

TEST(Reader, LayersGroupsAndStrayArtFindTheirPlace) {
    const auto document = readInside(R"(
        <g inkscape:groupmode="layer" inkscape:label="Back" sodipodi:insensitive="true">
          <g id="pair" style="display:none"><path id="a" d="M0 0 L1 1"/><path id="b" d="M0 0 L1 1"/></g>
        </g>
        <path id="stray" d="M0 0 L1 1"/>
        <text>nothing <tspan>for</tspan> us</text><defs><path id="no" d="M0 0"/></defs>
        <g inkscape:groupmode="layer" inkscape:label="Front" display="none"/>
        <path id="stray too" d="M0 0 L1 1"/>)");
    ASSERT_EQ(document->layerCount(), 4U); // art in no layer lies above and below real ones, as it did in the file
    const auto told = [](const Node& node) {
        return node.name() + (node.hidden() ? " hidden" : "") + (node.locked() ? " locked" : "") + " of " +
               std::to_string(node.childCount());
    };
    EXPECT_EQ(told(*document->layerAt(0)), "Layer 2 of 1");
    EXPECT_EQ(document->layerAt(0)->firstChild()->name(), "stray too");
    EXPECT_EQ(told(*document->layerAt(1)), "Front hidden of 0");
    EXPECT_EQ(told(*document->layerAt(2)), "Layer 1 of 2"); // the text among them
    EXPECT_EQ(told(*document->layerAt(3)), "Back locked of 1");
    const Node* const pair = document->layerAt(3)->firstChild();
    EXPECT_EQ(pair->type(), NodeType::Group);
    EXPECT_EQ(told(*pair), "pair hidden of 2");
    EXPECT_EQ(pair->firstChild()->name(), "b");
    EXPECT_EQ(document->findByName("no"), nullptr);
    EXPECT_EQ(document->journal().undoDepth(), 0U);
    EXPECT_FALSE(document->journal().running());
}

TEST(Reader, PageIsTheViewBoxOrElseTheSize) {
    const struct {
        const char* attributes;
        double width, height;
        Point origin; // where the drawing's (10, 10) comes to lie
    } rows[] = {
        {R"(width="10cm" height="5in" viewBox="0 0 200 100")", 200, 100, {10, 10}},
        {R"(viewBox="-5,5 40 30")", 40, 30, {15, 5}},
        {R"(width="2in" height="72pt")", 192, 96, {10, 10}},
        {R"(width="25.4mm" height="6pc")", 96, 96, {10, 10}},
        {R"(width="120px" height="100%")", 120, 150, {10, 10}},
        {R"(width="100%" height="50%")", 300, 75, {10, 10}},
        {R"(width="10em" height="20ex" style="font-size:10px")", 100, 100, {10, 10}},
        {R"(width="10vw")", 300, 150, {10, 10}},
        {"", 300, 150, {10, 10}},
    };
    for (const auto& row : rows) {
        const auto document = read(std::string("<svg ") + row.attributes + "><path d='M10 10'/></svg>", "t.svg");
        EXPECT_DOUBLE_EQ(document->width(), row.width) << row.attributes;
        EXPECT_DOUBLE_EQ(document->height(), row.height) << row.attributes;
        EXPECT_EQ(document->currentLayer().firstChild()->path().points[0].anchor, row.origin) << row.attributes;
    }
}

// Outlines

TEST(Reader, OutlinesOfPathsAndShapes) {
    const double k = 4.0 / 3 * (std::sqrt(2.0) - 1); // the customary handle of a quarter circle
    const struct {
        const char* element;
        std::vector<PathPoint> points;
        bool closed;
        const char* types; // of the anchors: corner or smooth
    } rows[] = {
        {R"(<path d="M1 2 L3 4 h5 v-1"/>)", {corner(1, 2), corner(3, 4), corner(8, 4), corner(8, 3)}, false, "cccc"},
        {R"(<path d="m1 2 c1 0 2 1 2 2 s1 2 2 2"/>)",
         {{{1, 2}, {1, 2}, {2, 2}}, {{3, 4}, {3, 3}, {3, 5}}, {{5, 6}, {4, 6}, {5, 6}}},
         false,
         "csc"},
        {R"(<path d="M0 0 Q3 3 6 0"/>)", {{{0, 0}, {0, 0}, {2, 2}}, {{6, 0}, {4, 2}, {6, 0}}}, false, "cc"},
        {R"(<path d="M1 0 A1 1 0 0 1 0 1"/>)", {{{1, 0}, {1, 0}, {1, k}}, {{0, 1}, {k, 1}, {0, 1}}}, false, "cc"},
        {R"(<path d="M0 0 L5 0 L5 5 L0 0 Z"/>)", {corner(0, 0), corner(5, 0), corner(5, 5)}, true, "ccc"},
        {R"(<path d="nonsense"/>)", {}, false, ""},
        {R"(<line x1="1" y1="2" x2="3"/>)", {corner(1, 2), corner(3, 0)}, false, "cc"},
        {R"(<polyline points="0,0 1,2, 3"/>)", {corner(0, 0), corner(1, 2)}, false, "cc"},
        {R"(<polygon points="0,0 1,2 3,4"/>)", {corner(0, 0), corner(1, 2), corner(3, 4)}, true, "ccc"},
        {R"(<rect x="1" y="2" width="3" height="4"/>)",
         {corner(1, 2), corner(4, 2), corner(4, 6), corner(1, 6)},
         true,
         "cccc"},
        {R"(<circle cx="5" cy="5" r="1"/>)",
         {{{6, 5}, {6, 5 - k}, {6, 5 + k}},
          {{5, 6}, {5 + k, 6}, {5 - k, 6}},
          {{4, 5}, {4, 5 + k}, {4, 5 - k}},
          {{5, 4}, {5 - k, 4}, {5 + k, 4}}},
         true,
         "ssss"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.element);
        const auto document = readInside(row.element);
        ASSERT_EQ(document->currentLayer().childCount(), 1U);
        const PathData& path = document->currentLayer().firstChild()->path();
        expectNear(path, row.points, row.closed);
        std::string types;
        for (std::size_t i = 0; i < path.points.size(); ++i) types += path.isCorner(i) ? 'c' : 's';
        EXPECT_EQ(types, row.types);
    }
}

// Such lengths once counted as 0.
TEST(Reader, LengthsAreMeasuredByTheViewportAndTheFont) {
    const double diagonal = std::sqrt((200. * 200 + 100 * 100) / 2);
    const struct {
        const char* element;
        model::Box bounds;
    } rows[] = {
        {R"(<rect x="10%" y="10%" width="50%" height="50%"/>)", {20, 10, 120, 60}},
        {R"(<circle cx="50%" cy="50%" r="10%"/>)",
         {100 - diagonal / 10, 50 - diagonal / 10, 100 + diagonal / 10, 50 + diagonal / 10}},
        {R"(<g font-size="20px"><line x1="1em" y1="1ex" x2="2em" style="font-size:50%"/></g>)", {10, 0, 20, 5}},
        {R"(<g font-size="large"><rect width="1em" height="1em" font-size="larger"/></g>)",
         {0, 0, 16 * 1.44, 16 * 1.44}},
        {R"(<g font-size="2em"><rect width="1em" height="1mm"/></g>)", {0, 0, 24, 96 / 25.4}},
    };
    for (const auto& row : rows) {
        const auto document = readInside(row.element);
        const Node* node = document->currentLayer().firstChild();
        if (node->isContainer()) node = node->firstChild();
        ASSERT_EQ(node->type(), NodeType::Path) << row.element;
        const model::Box hull = node->hull();
        EXPECT_NEAR(hull.left, row.bounds.left, 1e-9) << row.element;
        EXPECT_NEAR(hull.top, row.bounds.top, 1e-9) << row.element;
        EXPECT_NEAR(hull.right, row.bounds.right, 1e-9) << row.element;
        EXPECT_NEAR(hull.bottom, row.bounds.bottom, 1e-9) << row.element;
    }
    const auto document =
        readInside("<path d='M0 0' font-size='10' style='stroke-width:.5em;stroke-dasharray:1em, 10% 2'/>");
    const Style& style = document->currentLayer().firstChild()->style();
    EXPECT_EQ(style.strokeWidth, 5);
    EXPECT_EQ(style.dashes().lengths, (std::array<double, 6>{10, diagonal / 10, 2, 10, diagonal / 10, 2}));
}

TEST(Reader, RoundedRectangleTouchesItsSidesAtTheRadii) {
    const auto document = readInside(R"(<rect x="0" y="0" width="40" height="20" rx="4" ry="100"/>)");
    const PathData& path = document->currentLayer().firstChild()->path();
    ASSERT_EQ(path.points.size(), 8U);
    model::Box anchors;
    for (const PathPoint& point : path.points) anchors.include(point.anchor);
    EXPECT_EQ(anchors, (model::Box{0, 0, 40, 20}));
    EXPECT_EQ(path.hull(), anchors);
    EXPECT_EQ(path.points[0].anchor, (Point{36, 0}));
    EXPECT_EQ(path.points[1].anchor, (Point{40, 10}));
}

TEST(Reader, ShapesWithoutExtentAreNone) {
    const auto document = readInside(R"(<rect width="0" height="5"/><circle r="-1"/><ellipse rx="2" ry="0"/>
        <polyline points=""/><g transform='scale(0)'><line x2="5"/></g>)");
    EXPECT_EQ(document->currentLayer().childCount(), 1U); // the group alone
    EXPECT_EQ(document->currentLayer().firstChild()->childCount(), 0U);
}

TEST(Reader, WhatADocumentCannotHoldIsOpaque) {
    const struct {
        const char* element;
        model::Box bounds;
    } rows[] = {
        {R"x(<text x="5" y="5">words<tspan>more</tspan></text>)x", {}},
        {R"x(<use href="#a" x="3"/>)x", {}},
        {R"x(<image x="1" y="2" width="3" height="4" transform="scale(2)"/>)x", {2, 4, 8, 12}},
        {R"x(<a><g transform="translate(10)"><rect width="2" height="3"/><defs><line x2="99"/></defs></g></a>)x",
         {10, 0, 12, 3}},
        {R"x(<g transform="scale(0)"><path d="M0 0 L1 1"/></g>)x", {}},
        {R"x(<path d="M0 0 L1 1" transform="matrix(1 1 1 1 0 0)"/>)x", {0, 0, 2, 2}},
        {R"x(<path d="M0 0 L1 1" style="transform:rotate(10deg)"/>)x", {0, 0, 1, 1}},
        {R"x(<path d="M0 0 L1e20 0"/>)x", {}},
        {R"x(<rect width="1e999" height="1"/>)x", {}},
        {R"x(<rect width="3vmin" height="1"/>)x", {}},
        {R"x(<rect width="3em" height="1" style="font:12px sans"/>)x", {}},
        {R"x(<image width="50%" height="1em"/>)x", {0, 0, 100, 12}},
    };
    for (const auto& row : rows) {
        const auto document = readInside(row.element);
        ASSERT_EQ(document->currentLayer().childCount(), 1U) << row.element;
        const Node& node = *document->currentLayer().firstChild();
        ASSERT_EQ(node.type(), NodeType::Opaque) << row.element;
        EXPECT_EQ(node.hull(), row.bounds) << row.element;
    }
}

// What came behind such art was once lost, and saving never ended; a group that says it was there twice.
TEST(Reader, NumbersOutOfRangeCostNothingElse) {
    for (const std::string element :
         {"<text x='1e999'>a</text>", "<text font-size='1e999'>a</text>", "<use x='1e999' href='#p'/>",
          "<image width='1e999'/>", "<rect width='1' height='1' font-size='1e999'/>",
          "<g font-size='1e999'><path/></g>", "<g inkscape:groupmode='layer' fill='rgb(1e999,0,0)'><path/></g>"}) {
        const bool isLayer = element.find("groupmode") != element.npos;
        for (const bool atRoot : {false, true}) {
            if (atRoot && isLayer) continue;
            const std::string bytes = atRoot ? "<svg font-size='1e999'>" + element + "<path id='p'/></svg>"
                                             : kOpen + element + "<path id='p'/></svg>";
            const auto document = read(bytes, "t.svg");
            Node* const path = document->findByName("p");
            ASSERT_NE(path, nullptr) << element;
            EXPECT_EQ(document->layerCount(), isLayer ? 2U : 1U) << element;
            EXPECT_EQ(path->parent()->childCount(), isLayer ? 1U : 2U) << element;
            EXPECT_EQ(write(*document), bytes);
            document->remove(*path);
            EXPECT_EQ(write(*document).size(), bytes.size() - std::string("<path id='p'/>").size()) << element;
        }
    }
}

TEST(Reader, ArtOfOneEntityIsOnePiece) {
    const auto document = read("<!DOCTYPE svg [<!ENTITY c 'red'><!ENTITY e '<path d=\"M0 0\"/><g><path/></g>'>]>"
                               "<svg><g>&e;</g>&e;<path d='M1 1' fill='&c;'/></svg>",
                               "t.svg");
    Node& layer = document->currentLayer();
    ASSERT_EQ(layer.childCount(), 3U);
    EXPECT_EQ(layer.firstChild()->style().fillColor, (Color{1, 0, 0}));
    EXPECT_EQ(layer.firstChild()->next()->type(), NodeType::Opaque);
    EXPECT_EQ(layer.lastChild()->childCount(), 1U);
}

TEST(Reader, DamagedOutlinesKeepWhatIsCompleteAndWarnOnce) {
    for (const char* data :
         {"M0 0 L5 0 L1e999 0", "M0 0 L5 0 L1e300 0", "M0 0 L5 0 L", "M0 0 L5 0 5", "M0 0 L5 0 C 1 2 3 4 Z nonsense"}) {
        std::vector<std::string> warnings;
        const auto document = read(std::string("<svg>\n <path d='") + data + "'/></svg>", "t.svg",
                                   [&](const std::string& line) { warnings.push_back(line); });
        expectNear(document->currentLayer().firstChild()->path(), {corner(0, 0), corner(5, 0)}, false);
        EXPECT_EQ(warnings,
                  std::vector<std::string>{"t.svg:2:2: the outline is damaged; what comes before that is kept"});
    }
}

TEST(Reader, TransformsNestAndScaleStrokes) {
    const struct {
        const char* transform;
        Point point; // of (1, 2)
        double strokeWidth;
    } rows[] = {
        {"translate(10)", {11, 2}, 1}, {"translate(10, 20) scale(2)", {12, 24}, 2},
        {"scale(2 8)", {2, 16}, 4},    {"rotate(90)", {-2, 1}, 1},
        {"rotate(90 1 1)", {0, 1}, 1}, {"matrix(0 3 -3 0 1 1)", {-5, 4}, 3},
        {"skewX(45)", {3, 2}, 1},      {"skewY(45),translate(1 0)", {2, 4}, 1},
        {"rotate(90", {1, 2}, 1},      {"turn(90)", {1, 2}, 1},
    };
    for (const auto& row : rows) {
        const auto document = readInside("<g transform='translate(100 0)'><g transform='" + std::string(row.transform) +
                                         "'><path d='M1 2'/></g></g>");
        const Node& path = *document->currentLayer().firstChild()->firstChild()->firstChild();
        EXPECT_NEAR(path.path().points[0].anchor.x, row.point.x + 100, 1e-12) << row.transform;
        EXPECT_NEAR(path.path().points[0].anchor.y, row.point.y, 1e-12) << row.transform;
        EXPECT_NEAR(path.style().strokeWidth, row.strokeWidth, 1e-12) << row.transform;
    }
}

// Styles

TEST(Reader, StylesAreInheritedAndOverridden) {
    const auto styleOf = [](const std::string& attributes, const std::string& around = "") {
        const auto document = readInside("<g " + around + "><path d='M0 0' " + attributes + "/></g>");
        return document->currentLayer().firstChild()->firstChild()->style();
    };
    EXPECT_EQ(styleOf(""), (Style{.fill = true, .stroke = false, .fillColor = {}, .strokeColor = {}, .miterLimit = 4}));
    const Style full = styleOf("style='stroke-linecap:square; stroke-linejoin: round;stroke-miterlimit:7;"
                               "stroke-dasharray:1,2 3;stroke-dashoffset:.5; fill:none !important' stroke-width='3px'",
                               "stroke='#0f0' fill='blue' stroke-width='9'");
    const model::Shared<model::Dashes> dash(model::Dashes{6, 0.5, {1, 2, 3, 1, 2, 3}});
    EXPECT_EQ(full, (Style{.fill = false,
                           .cap = Cap::Projecting,
                           .join = Join::Round,
                           .fillColor = {0, 0, 1},
                           .strokeColor = {0, 1, 0},
                           .strokeWidth = 3,
                           .miterLimit = 7,
                           .dash = dash}));

    const struct {
        const char* value;
        Color color;
    } colors[] = {
        {"#336699", {0.2, 0.4, 0.6}},
        {"#369", {0.2, 0.4, 0.6}},
        {"rgb(51, 102, 153)", {0.2, 0.4, 0.6}},
        {"rgb(20% 40% 60%)", {0.2, 0.4, 0.6}},
        {"Aqua", {0, 1, 1}},
        {"yellowgreen", {154 / 255., 205 / 255., 50 / 255.}},
        {"rgb(300,-5,0)", {1, 0, 0}},
        {"#12", {1, 0, 1}},
        {"url(#a) #00f", {0, 0, 1}},
        {"rgba(51,102,153,.5)", {0.2, 0.4, 0.6}},
    };
    for (const auto& row : colors) {
        const Style style = styleOf(std::string("fill='") + row.value + "'", "fill='magenta'");
        EXPECT_TRUE(style.fill) << row.value;
        EXPECT_EQ(style.fillColor, row.color) << row.value;
    }
    for (const char* const none : {"url(#gradient)", "none", "transparent"})
        EXPECT_FALSE(styleOf("fill='" + std::string(none) + "'").fill) << none;
    EXPECT_EQ(styleOf("stroke-miterlimit='1'").miterLimit, 1);
    EXPECT_EQ(styleOf("stroke-miterlimit='0.99'").miterLimit, 4);
}

// Errors

TEST(Reader, UnpackedTextHasALimit) {
    constexpr std::size_t kPiece = std::size_t{1} << 20;
    const std::string piece = pack(std::string(kPiece, ' '));
    std::string packed;
    for (std::size_t size = 0; size < kMostUnpackedBytes; size += kPiece) packed += piece;
    EXPECT_EQ(unpack(packed).size(), kMostUnpackedBytes);
    EXPECT_EQ(errorOf(packed + pack(" ")), "t.svg: more than 268435456 bytes when unpacked");
}

TEST(Reader, ErrorsNameThePlaceAndTheReason) {
    const std::string start = "<svg>\n";
    const struct {
        std::string bytes;
        const char* text;
    } rows[] = {
        {"", "t.svg:1:1: no element found"},
        {"no drawing", "t.svg:1:1: syntax error"},
        {"<html/>", "t.svg:1:1: not an SVG drawing"},
        {"<svg xmlns='urn:other'/>", "t.svg:1:1: not an SVG drawing"},
        {start + "  <g>\n", "t.svg:3:1: no element found"},
        {start + "  <g></svg>", "t.svg:2:8: mismatched tag"},
        {std::string(start).append(1, '\xFF') + "</svg>", "t.svg:2:1: not well-formed (invalid token)"},
        {"<?xml version='1.0' encoding='klingon'?><svg/>", "t.svg:1:31: unknown encoding"},
        {std::string("\xFE\xFF\0<\xDC\0", 6), "t.svg: half of a surrogate pair stands alone"},
        {"\x1f\x8b\x08 and no more", "t.svg: the compressed data is damaged"},
        {"<svg width='0' height='10'/>", "t.svg:1:1: the drawing's width is no usable size"},
        {"<svg viewBox='0 0 10 -1'/>", "t.svg:1:1: the drawing's height is no usable size"},
    };
    for (const auto& row : rows) EXPECT_EQ(errorOf(row.bytes), row.text) << row.bytes;
}

TEST(Reader, LimitsAreErrors) {
    const auto nested = [](std::size_t depth) {
        std::string bytes = "<svg>";
        for (std::size_t i = 1; i < depth; ++i) bytes += "<g>";
        for (std::size_t i = 1; i < depth; ++i) bytes += "</g>";
        return bytes + "</svg>";
    };
    EXPECT_EQ(errorOf(nested(kDeepestElement)), "");
    EXPECT_EQ(errorOf(nested(kDeepestElement + 1)), "t.svg:1:771: elements nest deeper than 256"); // 6 + 255 * 3

    std::string many = "<svg>";
    for (std::size_t i = 1; i < kMostElements; ++i) many += "<a/>";
    EXPECT_EQ(errorOf(many + "</svg>"), "");
    EXPECT_EQ(errorOf(many + "<a/></svg>"), "t.svg:1:4000002: more than 1000000 elements");

    // A hundred million characters from a few: the parser's own guard steps in.
    std::string bomb = "<!DOCTYPE svg [<!ENTITY a0 '0123456789'>";
    for (int i = 1; i < 8; ++i) {
        bomb += "<!ENTITY a" + std::to_string(i) + " '";
        for (int j = 0; j < 10; ++j) bomb += "&a" + std::to_string(i - 1) + ";";
        bomb += "'>";
    }
    EXPECT_NE(errorOf(bomb + "]><svg>&a7;</svg>").find("amplification"), std::string::npos);
}

TEST(Reader, PathOfTooManyAnchorsIsOpaque) {
    std::string data = "M0 0";
    for (std::size_t i = 1; i < kMostAnchors; ++i) data += " 1 1";
    const auto typeOf = [](const std::string& path) {
        return readInside("<path d='" + path + "'/>")->currentLayer().firstChild()->type();
    };
    EXPECT_EQ(typeOf(data), NodeType::Path);
    EXPECT_EQ(typeOf(data + " 2 2"), NodeType::Opaque);
}

TEST(Reader, ExternalEntitiesStayClosed) {
    const desk::Folder folder;
    const std::string secret = folder.write("secret.txt", "<path xmlns='http://www.w3.org/2000/svg' d='M0 0'/>");
    const auto document = read("<!DOCTYPE svg [<!ENTITY e SYSTEM 'file://" + secret + "'>]><svg>&e;</svg>", "t.svg");
    EXPECT_EQ(document->currentLayer().childCount(), 0U);
    EXPECT_EQ(document->currentLayer().name(), "Layer 1"); // an empty drawing has a layer
}

} // namespace
} // namespace easel::svg
