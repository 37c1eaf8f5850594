// What new and moved art looks like in pictures that the renderer makes of the saved drawing.
#include <cairo.h>
#include <gtest/gtest.h>
#include <librsvg/rsvg.h>

#include <cmath>
#include <functional>
#include <sstream>

#include "model/Bounds.h"
#include "support/Drawing.h"
#include "svg/Definitions.h"
#include "svg/Expanding.h"
#include "svg/Reader.h"
#include "svg/Writer.h"

namespace easel::svg {
namespace {

using model::addLine;
using model::corner;
using model::Document;
using model::Node;
using model::NodeType;
using model::Placement;

constexpr int kSide = 100;

constexpr const char* kDefinitions = R"(<defs>
  <marker id="m" markerWidth="9" markerHeight="9"><rect width="9" height="9" fill="red"/></marker>
  <linearGradient id="u" gradientUnits="userSpaceOnUse" x2="60"><stop stop-color="red"/><stop offset="1"/></linearGradient>
  <clipPath id="c"><circle cx="30" cy="30" r="15"/></clipPath>
  <mask id="k" maskUnits="userSpaceOnUse" x="12" y="12" width="20" height="20"><rect width="99" height="99" fill="white"/></mask>
  <filter id="f" filterUnits="userSpaceOnUse" x="15" y="15" width="20" height="20"><feFlood flood-color="lime"/></filter>
</defs>)";

std::string drawing(const std::string& content, const std::string& before = "") {
    return before + R"(<svg xmlns="http://www.w3.org/2000/svg" width="100" height="100">)" + kDefinitions + content +
           "</svg>";
}

/// The bytes of a picture.
std::vector<unsigned char> pixels(const std::string& svg) {
    const auto* const data = reinterpret_cast<const guint8*>(svg.data());
    const std::unique_ptr<RsvgHandle, void (*)(void*)> handle(rsvg_handle_new_from_data(data, svg.size(), nullptr),
                                                              g_object_unref);
    const std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface(
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, kSide, kSide), cairo_surface_destroy);
    const std::unique_ptr<cairo_t, decltype(&cairo_destroy)> context(cairo_create(surface.get()), cairo_destroy);
    cairo_set_source_rgb(context.get(), 1, 1, 1);
    cairo_paint(context.get());
    const RsvgRectangle page{0, 0, kSide, kSide};
    EXPECT_TRUE(handle && rsvg_handle_render_document(handle.get(), context.get(), &page, nullptr)) << svg;
    cairo_surface_flush(surface.get());
    const unsigned char* const begin = cairo_image_surface_get_data(surface.get());
    return {begin, begin + std::ptrdiff_t{cairo_image_surface_get_stride(surface.get())} * kSide};
}

void expectSamePicture(const std::string& actual, const std::string& expected, int apart = 3, std::size_t most = 0) {
    const std::vector<unsigned char> a = pixels(actual);
    const std::vector<unsigned char> b = pixels(expected);
    std::size_t differing = 0;
    for (std::size_t i = 0; i < a.size(); ++i) differing += std::abs(a[i] - b[i]) > apart ? 1 : 0;
    EXPECT_LE(differing, most) << actual << "\nshould look like\n" << expected;
}

TEST(Looks, NewArtLooksAsItWasDrawnWhateverTheFileSays) {
    const struct {
        const char* content;
        const char* before = "";
    } rows[] = {
        {"<g id='g'/>"},
        {"<style>path{fill:red;stroke:lime;stroke-width:20;opacity:.3;marker:url(#m)}</style><g id='g'/>"},
        {"<style>path{stroke:red !important;stroke-dasharray:3}</style><g id='g'/>"},
        {"<style>g *{visibility:hidden;clip-path:url(#c);filter:url(#f);stroke-linecap:square}</style><g id='g'/>"},
        {"<style>path{display:none;mask:url(#k)}</style><g id='g' stroke='url(#u)'/>"},
        {"<g id='g' marker-start='url(#m)' style='marker:url(#m)'/>"},
        {"<g id='g' fill='url(#u)' stroke='url(#u)'/>"},
        {"<g fill='url(#u) red'><g id='g' fill-opacity='.1' stroke-opacity='.5' visibility='hidden'/></g>"},
        {"<g id='g' stroke-linecap='round' stroke-dasharray='10%' stroke='currentColor' color='red'/>"},
        {"<g id='g' transform='scale(2) rotate(20)' style='stroke-width:3'/>"},
        {"<g id='g'/>", "<!DOCTYPE svg [<!ATTLIST path transform CDATA 'scale(2)' style CDATA 'stroke:red'>]>"},
    };
    const std::string expected =
        drawing("<path d='M10 50 L80 20' stroke='#0000ff' stroke-width='4' fill='none' stroke-miterlimit='10'/>");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.content);
        const auto document = read(drawing(row.content, row.before), "t.svg");
        Node& line = addLine(*document, *document->findByName("g"), {10, 50}, {80, 20});
        document->setStyle(line, {.fill = false, .fillColor = {}, .strokeColor = {0, 0, 1}, .strokeWidth = 4});
        const std::string text = write(*document);
        expectSamePicture(text, expected);
        const auto again = read(text, "t.svg");
        EXPECT_NEAR(again->findByName("g")->firstChild()->path().points[1].anchor.x, 80, 1e-9) << text;
    }
}

// What a style sheet says of groups once came over art as soon as it was grouped.
TEST(Looks, ANewGroupChangesNothing) {
    const std::string path = "<path id='o' d='M5 5h60v40z' stroke-width='3' stroke='blue'/>";
    const std::pair<const char*, const char*> rows[] = {
        {"<style>g{opacity:.3;clip-path:url(#c);fill:lime;stroke-width:9;marker:url(#m)}</style>", ""},
        {"<style>*{opacity:.5;fill-opacity:.5 !important;fill:red}</style>", ""},
        {"<style>g:not(.x){filter:url(#f);visibility:hidden}</style>", ""},
        {"<style>@media screen{g{display:none}}</style>", ""},
        {"<style>g{text-anchor:middle;letter-spacing:5px;font-variant:small-caps}</style>"
         "<text id='t' x='50' y='80'>abc</text>",
         ""},
        {"", "<!DOCTYPE svg [<!ATTLIST g opacity CDATA '.3' fill CDATA 'lime' mask CDATA 'url(#k)'>]>"},
    };
    for (const auto& [content, before] : rows) {
        const std::string plain = drawing(content + path, before);
        const auto document = read(plain, "t.svg");
        Node& art = *document->findByName("o");
        Node* const words = document->findByName("t");
        Node& grouped = words ? *words : art;
        document->place(grouped, Placement::OnTopInside, document->create(NodeType::Group, Placement::Above, grouped));
        const std::string text = write(*document);
        expectSamePicture(text, plain);
        EXPECT_EQ(read(text, "t.svg")->findByName("o")->style(), art.style()) << text;
    }
}

// Clips, masks, filters and gradients in the units of what they are put on once stayed behind.
TEST(Looks, WhatIsMovedTakesAlongWhatItIsPaintedAndClippedWith) {
    const char* const contents[] = {
        // What is moved stands in brackets; it is called "o".
        "[<g id='o' clip-path='url(#c)'><rect width='50' height='50'/><text x='20' y='40'>A</text></g>]",
        "[<g id='o' mask='url(#k)' filter='url(#f)'><path d='M0 0h50v50h-50z'/></g>]",
        "[<g id='o' fill='url(#u)'><path d='M0 0h50v50h-50z'/><g><path d='M60 0h9v50z'/></g></g>]",
        "<g fill='url(#u)'>[<path id='o' d='M0 0h50v50h-50z'/>]</g>",
        "<g style='stroke:url(#u);stroke-width:9'>[<path id='o' d='M0 20h50'/>]</g>",
        "<style>.u{fill:url(#u)}</style>[<path id='o' class='u' d='M0 0h50v50h-50z'/>]",
        "[<path id='o' transform='none' d='M0 0h50v50h-50z' fill='url(#u)'/>]",
        "[<rect id='o' transform='upwards' width='40' height='9'/>]",
        "[<g id='o' transform='spin(20)'><g transform='scale(2)'><circle r='20'/></g></g>]",
        "<g transform='scale(.5)'>[<g id='o' transform='rotate(30)'><use href='#p'/><path id='p' d='M0 "
        "0h50v50z'/></g>]</g>",
    };
    for (const std::string content : contents) {
        SCOPED_TRACE(content);
        std::string plain = content;
        const double scale = content.find("scale(.5)") == std::string::npos ? 1 : 2;
        const std::size_t open = content.find('[');
        const std::size_t close = content.find(']');
        plain.erase(close, 1).erase(open, 1);
        for (const auto& [by, lines] : {std::pair(model::Affine{.e = 20, .f = 10}, 1.0),
                                        {{.8, .6, -.6, .8, 20, -10}, 1.0},
                                        {{-.5, 0, 0, .5, 60, 20}, .5}}) {
            std::string moved = content;
            std::ostringstream around;
            around << "<g transform='matrix(" << by.a << ' ' << by.b << ' ' << by.c << ' ' << by.d << ' '
                   << by.e * scale << ' ' << by.f * scale << ")'>";
            moved.replace(close, 1, "</g>").replace(open, 1, around.str());
            const auto document = read(drawing(plain), "t.svg");
            Node& object = *document->findByName("o");
            document->transform(object, by, lines);
            const std::string text = write(*document);
            expectSamePicture(text, drawing(moved));
            expectSamePicture(write(*read(text, "t.svg")), drawing(moved));
            // All of the change is in the one start tag.
            const std::string element = plain.substr(open, close - open - 1);
            EXPECT_NE(text.find(element.substr(element.find('>'))), std::string::npos) << text;
            if (content.find("<g id='o' fill") != std::string::npos) { // and nothing is lost without the group
                while (Node* const child = object.firstChild()) document->place(*child, Placement::Above, object);
                document->remove(object);
                expectSamePicture(write(*document), drawing(moved));
            }
            while (document->journal().undo()) continue;
            EXPECT_EQ(write(*document), drawing(plain));
        }
    }
}

// A gradient is paint too, though only the file knows its colours.
TEST(Looks, WhatIsPaintedByServersIsPainted) {
    const std::string bytes = drawing("<g fill='url(#u)'><path id='a' d='M10 10h30v30h-30z'/></g>"
                                      "<path id='b' d='M60 10h30v30z' style='fill:url(#u) red;stroke:url(#u)'/>"
                                      "<path id='c' d='M10 60h30v30z' fill='none'/>");
    const auto document = read(bytes, "t.svg");
    const model::BoundsOptions strokes{.strokes = true, .unpainted = false};
    const struct {
        const char* name;
        model::Point inside;
        bool filled, stroked;
    } rows[] = {{"a", {20, 20}, true, false}, {"b", {80, 20}, true, true}, {"c", {30, 70}, false, false}};
    for (const auto& row : rows) {
        Node& path = *document->findByName(row.name);
        EXPECT_EQ(document->topmostAt(row.inside, 1), row.filled ? &path : nullptr) << row.name;
        EXPECT_EQ(boundsOf(path, strokes).isEmpty(), !row.filled) << row.name;
        EXPECT_EQ(boundsOf(path, {.strokes = true}).top < path.hull().top, row.stroked) << row.name;
    }
    Node& path = *document->findByName("b");
    model::Style style = path.style();
    style.strokeWidth = 3;
    document->setStyle(path, style);
    EXPECT_NE(write(*document).find("fill:url(#u) red;stroke:url(#u);stroke-width:3"), std::string::npos);
    style.setStroke(std::nullopt);
    style.setFill(model::Color{0, 0, 1});
    document->setStyle(path, style);
    EXPECT_NE(write(*document).find("fill:#0000ff;stroke:none"), std::string::npos) << write(*document);
}

/// Everything that is drawn, by where it is.
std::string places(Document& document) {
    std::string text;
    for (const Node* node : model::allNodes(document)) {
        if (node->isContainer()) continue;
        const model::Box hull = node->hull();
        text += node->name();
        for (const double side : {hull.left, hull.top, hull.right, hull.bottom})
            text += ' ' + std::to_string(std::round(side * 1e6) / 1e6 + 0.0);
        if (node->content().style && node->style().stroke) text += " | " + std::to_string(node->style().strokeWidth);
        text += '\n';
    }
    return text;
}

TEST(Looks, MovedGroupsCanBeEditedFurther) {
    const std::string bytes = drawing(
        "<g id='a' transform='scale(2)'><path id='p' stroke='red' d='M1 1h5v5z'/><g id='b' transform='rotate(90)'>"
        "<rect id='r' width='4' height='2'/><image id='i' width='4' height='5'/></g></g>"
        "<g id='c'><path id='q' d='M9 9v9h2z'/></g>");
    using Edit = std::function<void(Document&)>;
    const auto move = [](const char* name, double x, double y) {
        return [=](Document& d) { d.offset(*d.findByName(name), x, y); };
    };
    const auto put = [](const char* name, const char* into) {
        return [=](Document& d) { d.place(*d.findByName(name), Placement::OnTopInside, *d.findByName(into)); };
    };
    const Edit close = [](Document& d) {
        d.setClosed(*d.findByName("p"), true), d.setClosed(*d.findByName("r"), false);
    };
    const Edit draw = [](Document& d) { d.setName(addLine(d, *d.findByName("b"), {1, 2}, {3, 4}), "n"); };
    const Edit layer = [](Document& d) { d.offset(d.currentLayer(), 7, -3); };
    const auto turn = [](const char* name) {
        return [=](Document& d) { d.transform(*d.findByName(name), {1.2, 1.6, -1.6, 1.2, 3, 4}); };
    };
    const auto stretch = [](const char* name) {
        return [=](Document& d) { d.transform(*d.findByName(name), {3, 1, 0, -2, 0, 5}, 1.5); };
    };
    const std::vector<Edit> rows[] = {
        {move("a", 10, 5)},
        {move("a", 10, 5), move("p", 1, 1), move("i", 2, 0)},
        {move("b", 3, 3), move("a", 10, 5), close},
        {move("a", 10, 5), draw, move("b", -4, 1)},
        {move("a", 10, 5), put("p", "c"), put("i", "c"), move("c", 1, 1)},
        {move("c", 10, 5), put("q", "b"), move("b", 1, 0), put("r", "c")},
        {move("b", 10, 5), put("b", "c"), move("c", 1, 0), close},
        {layer, move("a", 1, 0), put("q", "a"), layer},
        {move("p", 10, 5), move("b", 10, 5)},
        {turn("a"), close, draw},
        {turn("b"), turn("a"), move("p", 1, 1), draw, turn("c"), put("q", "b")},
        {turn("a"), put("p", "c"), put("i", "c"), turn("c"), put("r", "a")},
        {turn("b"), put("b", "c"), close, turn("c"), move("a", 2, 2)},
        {stretch("a"), move("b", 1, 2), turn("p"), close},
        {turn("a"), stretch("a"), put("b", "c"), stretch("c"), draw},
    };
    for (const std::vector<Edit>& row : rows) {
        const auto document = read(bytes, "t.svg");
        for (const Edit& edit : row) edit(*document);
        const std::string text = write(*document);
        EXPECT_EQ(places(*read(text, "t.svg")), places(*document)) << text;
        while (document->journal().undo()) continue;
        EXPECT_EQ(write(*document), bytes);
    }
}

// Duplicates are written from what they copy: the picture is the same with the copy in its place.
TEST(Looks, ADuplicateLooksLikeWhatItCopies) {
    const char* const contents[] = {
        "<rect id='p' x='10' y='10' width='50' height='30' fill='url(#u)' opacity='.5'/>",
        "<g transform='scale(.5)' stroke='blue'><path id='p' d='M9 9h60v60z' stroke-width='6' "
        "clip-path='url(#c)'/></g>",
        "<g id='p' transform='rotate(10)' fill='lime'><!-- <a id='x'> --><circle id='q' cx='40' cy='40' r='20'/><text "
        "x='50' y='40'>t</text></g>",
        "<path id='p' fill-rule='evenodd' d='M5 5h60v60h-60z m10 10h20v20h-20z' style='mix-blend-mode:multiply'/>",
        "<g fill='blue'><text id='p' font-size='20' x='10' y='40'>one &gt; <tspan id='t' "
        "fill='red'>two</tspan></text></g>",
        "<svg id='p' x='20' y='20' width='40' height='40' viewBox='0 0 10 10'><rect width='5' height='9'/></svg>",
    };
    for (const char* const content : contents) {
        for (const bool toLayer : {false, true}) {
            const std::string original = drawing(content);
            const auto document = read(original, "t.svg");
            Node& node = *document->findByName("p");
            Node& layer = document->currentLayer();
            Node& copy = toLayer ? document->duplicate(node, Placement::OnTopInside, layer)
                                 : document->duplicate(node, Placement::Above, node);
            document->remove(node);
            const std::string text = write(*document);
            expectSamePicture(text, original);
            EXPECT_EQ(text.find("id='p'"), std::string::npos);
            EXPECT_EQ(write(*read(text, "t.svg")), text);
            document->offset(copy, 11, 7);
            expectSamePicture(write(*document),
                              drawing("<g transform='translate(11 7)'>" + std::string(content) + "</g>"));
        }
    }
}

// What is inherited, or told by a style sheet, is said by the art itself once it stands elsewhere.
TEST(Looks, ArtLooksTheSameInAnotherGroup) {
    const char* const contents[] = {
        "<g font-size='20' font-family='monospace' font-weight='bold' text-anchor='end' letter-spacing='2'>"
        "<text id='p' x='90' y='40'>Word</text></g><g id='c'/>",
        "<g><text id='p' x='5' y='40'>Word</text></g><g id='c' font-size='30' font-style='italic' "
        "style='font-family:monospace'/>",
        "<g font-size='10'><g font-size='2em'><text id='p' x='5' y='40'>Word</text></g></g><g id='c' font-size='5'/>",
        "<defs><text id='t'>Word</text></defs><g font-size='30' fill='red'><use id='p' href='#t' x='5' y='50'/></g>"
        "<g id='c' fill='blue'/>",
        "<g color='red'><path id='p' d='M10 10h50v50z' fill='currentColor'/></g><g id='c' color='lime'/>",
        "<g fill='url(#u)'><path id='p' d='M10 10h50v50z'/></g><g id='c' fill='url(#u)' stroke='red'/>",
        "<style>.t{font-size:20px;fill:red} #a text{font-weight:bold} #c text{font-style:italic}</style>"
        "<g id='a' font-size='9' fill='blue'><text id='p' class='t' x='5' y='40'>Word</text></g><g id='c' "
        "fill='lime'/>",
        "<style>#p{font-size:20px;fill:red;opacity:.5} #a path{stroke:lime}</style>"
        "<g id='a'><path id='p' d='M10 10h50v50z'/></g><g id='c' stroke='red'/>",
        "<g style='font:bold 20px monospace'><text id='p' x='5' y='40'>Word</text></g><g id='c' font-weight='100'/>",
        "<g font-weight='bold'><text id='p' x='5' y='40'>Word</text></g><g id='c' style='font:italic 20px monospace'/>",
        "<g style='font-family:&quot;DejaVu Sans Mono&quot;;font-size:20px'><g id='p'><text x='5' "
        "y='40'>Word</text></g>"
        "</g><g id='c'/>",
        "<g font-size='30'><svg id='p' width='90' height='90'><text x='5' y='40'>Word</text></svg></g><g id='c'/>",
        "<g xml:space='preserve' font-size='20'><text id='p' x='5' y='40'>a    b</text></g><g id='c'/>",
        "<g font-size='20'><path id='p' d='M5 50h80' stroke='red' stroke-width='.5em'/></g><g id='c'/>",
    };
    const std::function<void(Document&, Node&)> ways[] = {
        [](Document& d, Node& node) { d.place(node, Placement::OnTopInside, *d.findByName("c")); },
        [](Document& d, Node& node) {
            d.duplicate(node, Placement::OnTopInside, *d.findByName("c"));
            d.remove(node);
        },
        [](Document& d, Node& node) {
            Node& group = d.create(NodeType::Group, Placement::Above, *node.parent());
            d.place(node, Placement::OnTopInside, group);
        },
    };
    for (const char* const content : contents) {
        for (const auto& way : ways) {
            const auto document = read(drawing(content), "t.svg");
            way(*document, *document->findByName("p"));
            const std::string text = write(*document);
            EXPECT_NE(text, drawing(content));
            expectSamePicture(text, drawing(content));
            expectSamePicture(write(*read(text, "t.svg")), drawing(content));
        }
    }
}

// A mask made of other art hides what that does not lighten, and goes along with what it is on.
TEST(Looks, AMaskOfOtherArtFadesWhereverItGoes) {
    const char* const contents[] = {
        "<path id='o' d='M5 5h60v60h-60z' fill='red'/>",
        "<g transform='scale(.5) rotate(10)'><path id='o' d='M9 9h90v60z' stroke='blue' stroke-width='9'/></g>",
        "<rect id='o' x='9' y='9' width='40' height='50' transform='translate(5 5)' fill='url(#u)'/>",
        "<g transform='scale(2)'><g id='o' transform='translate(2 3)'><circle r='30'/></g></g>",
        "<text id='o' x='5' y='50' font-size='50'>WWW</text>",
        "<svg id='o' width='60' height='60'><rect width='60' height='60'/></svg>",
    };
    const std::string by = "<path d='M20 20h30v20h-30z' fill='#ccc' stroke='white' stroke-width='4'/>";
    for (const std::string content : contents) {
        SCOPED_TRACE(content);
        const std::string plain = drawing(content + "<g transform='translate(-3 1)'>" + by + "</g>");
        const auto document = read(plain, "t.svg");
        Node& art = *document->findByName("o");
        document->offset(art, 3, 0);
        ASSERT_TRUE(makeMask(*document, art, *document->currentLayer().firstChild()->firstChild()));
        const std::string around = "<mask id='x' maskUnits='userSpaceOnUse' width='100' height='100'><g "
                                   "transform='translate(-3 1)'>" +
                                   by + "</g></mask>";
        const auto masked = [&](const std::string& transform) {
            return drawing(around + "<g transform='" + transform +
                           "'><g mask='url(#x)'><g transform='translate(3 0)'>" + content + "</g></g></g>");
        };
        expectSamePicture(write(*document), masked(""));
        document->transform(art, {.8, .6, -.6, .8, 20, -10});
        expectSamePicture(write(*document), masked("matrix(.8 .6 -.6 .8 20 -10)"));
        document->place(art, Placement::OnTopInside, document->create(NodeType::Group, Placement::Above, art));
        document->offset(*art.parent(), 5, 5);
        const std::string text = write(*document);
        expectSamePicture(text, masked("matrix(.8 .6 -.6 .8 25 -5)"));
        expectSamePicture(write(*read(text, "t.svg")), masked("matrix(.8 .6 -.6 .8 25 -5)"));
        while (document->journal().undo()) continue;
        EXPECT_EQ(write(*document), plain);
    }
    Document made(kSide, kSide); // of what has never been in a file
    Node& line = addLine(made, made.currentLayer(), {10, 10}, {90, 10});
    made.setStyle(line, {.fillColor = {}, .strokeColor = {1, 0, 0}, .strokeWidth = 6});
    Node& white = addLine(made, made.currentLayer(), {30, 10}, {70, 10});
    made.setStyle(white, {.fillColor = {}, .strokeColor = {1, 1, 1}, .strokeWidth = 9});
    made.offset(line, 0, 1);
    ASSERT_TRUE(makeMask(made, line, white));
    made.offset(line, 0, 20);
    expectSamePicture(write(made), drawing("<path d='M30 31h40' stroke='red' stroke-width='6'/>"));
}

// What belonged to the art as a whole (clips, filters, masks, opacity, its name) once was lost with its stroke.
TEST(Looks, WhatIsTakenApartLooksAsBefore) {
    const std::string definitions = R"svg(<defs>
      <linearGradient id="l"><stop stop-color="red"/><stop offset=".3" style="stop-color:lime"/><stop offset="1"/></linearGradient>
      <linearGradient id="e" href="#l" spreadMethod="reflect" x2=".3" gradientTransform="rotate(30)"/>
      <linearGradient id="n" href="#l" gradientUnits="userSpaceOnUse" x1="40" x2="60" spreadMethod="repeat"/>
      <radialGradient id="r" href="#l" fx=".3" fy=".4"/>
      <radialGradient id="s" gradientUnits="userSpaceOnUse" cx="30" cy="30" r="9" spreadMethod="reflect">
        <stop stop-color="blue" stop-opacity=".5"/><stop offset="1" stop-color="yellow"/></radialGradient>
      <pattern id="p" patternUnits="userSpaceOnUse" x="3" y="4" width="10" height="9" patternTransform="rotate(20)">
        <path d="M0 0h5v5h-5z" fill="red"/><circle cx="9" cy="5" r="3" stroke="blue"/></pattern>
      <pattern id="q" width=".25" height=".5" patternContentUnits="objectBoundingBox"><path d="M0 0h.1v.3z"/></pattern>
      <pattern id="v" patternUnits="userSpaceOnUse" width="20" height="20" viewBox="0 0 10 10"><path d="M1 1h8v5z"/></pattern>
      <filter id="b"><feGaussianBlur stdDeviation="1"/></filter></defs>)svg";
    constexpr std::size_t kEdges = 800; // the renderer does not smooth those of clips
    const model::PaintExpansion strokes{.strokes = true};
    const model::PaintExpansion gradients{.gradients = true, .steps = 64};
    const model::PaintExpansion meshes{.gradients = true, .toMeshes = true, .steps = 64};
    const model::PaintExpansion patterns{.patterns = true};
    const model::PaintExpansion all{
        .strokes = true, .gradients = true, .toMeshes = false, .patterns = true, .steps = 64};
    const struct {
        const char* attributes; // of a path, or a whole element
        model::PaintExpansion what;
    } rows[] = {
        {"fill='lime' stroke='blue' stroke-width='9' opacity='.5'", strokes},
        {"fill='lime' stroke='blue' stroke-width='9' clip-path='url(#c)' transform='rotate(10)'", strokes},
        {"fill='none' stroke='blue' stroke-width='9' style='filter:url(#b);stroke-opacity:.5'", strokes},
        {"fill='lime' fill-opacity='.5' stroke='blue' stroke-width='9' mask='url(#k)' paint-order='stroke'", strokes},
        {"stroke='url(#l)' fill='none' stroke-width='9' stroke-dasharray='20 5'", strokes},
        {"stroke='url(#p)' fill='url(#l)' stroke-width='9' transform='scale(.8)'", strokes},
        {"fill='url(#l)'", gradients},
        {"fill='url(#e)' stroke='blue' opacity='.5'", gradients},
        {"fill='url(#n)' transform='rotate(20)' clip-path='url(#c)'", meshes},
        {"fill='url(#r) red'", meshes},
        {"fill='url(#s)' fill-opacity='.7' filter='url(#b)'", gradients},
        {"fill='url(#p)'", patterns},
        {"fill='url(#q)' stroke='url(#r)' stroke-width='6' transform='translate(5 5)'", all},
        {"fill='url(#v)' stroke='red'", all},
        {"<text id='o' x='5' y='50' font-size='30' fill='red' fill-opacity='.5' stroke='blue'>W<tspan dy='9' "
         "fill='lime'>\xc3\xa9</tspan></text>",
         all},
        {"<g font-family='monospace' font-weight='bold' transform='rotate(10)'><text id='o' x='9' y='50' "
         "clip-path='url(#c)' "
         "opacity='.5' font-size='20'>Word</text></g>",
         all},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.attributes);
        const std::string content =
            definitions + (row.attributes[0] == '<' ? row.attributes
                                                    : "<path id='o' "
                                                      "d='M10 10h50l20 60l-60-10z M20 20l30 5v20z' " +
                                                          std::string(row.attributes) + "/>");
        const auto document = read(drawing(content), "t.svg");
        Node& art = *document->findByName("o");
        document->offset(art, 2, 1);
        document->setLocked(art, true);
        ASSERT_TRUE(art.text() ? expandTexts(*document, {&art}) : expandPaint(*document, art, row.what));
        const std::string moved = drawing("<g transform='translate(2 1)'>" + content + "</g>");
        const std::string text = write(*document);
        expectSamePicture(text, moved, 48, kEdges);
        const auto again = read(text, "t.svg");
        expectSamePicture(write(*again), text);
        Node& result = *again->findByName("o");
        EXPECT_TRUE(result.locked());
        EXPECT_NE(result.type(), NodeType::Path);
        for (const Node* node = &result; node; node = nextWithin(result, *node)) {
            const bool isServed =
                node->isOutlined() && node->style().servers && row.what.gradients && row.what.patterns;
            EXPECT_FALSE(isServed) << text;
            EXPECT_FALSE(node->isOutlined() && row.what.strokes && node->style().isStroked() && !art.text()) << text;
        }
        again->transform(result, {0, 1, -1, 0, 90, 0});
        expectSamePicture(write(*again),
                          drawing("<g transform='matrix(0 1 -1 0 90 0) translate(2 1)'>" + content + "</g>"), 48,
                          kEdges);
        while (document->journal().undo()) continue;
        EXPECT_EQ(write(*document), drawing(content));
    }
}

TEST(Looks, WhatCannotBeTakenApartStays) {
    const char* const contents[] = {
        "<path id='o' d='M0 0h50v50z' stroke='red' marker-start='url(#m)'/>",
        "<path id='o' d='M0 0h50v50z' fill='url(#none)'/>",
        "<linearGradient id='e'/><path id='o' d='M0 0h50v50z' fill='url(#e)'/>",
        "<pattern id='p' patternUnits='userSpaceOnUse' width='.01' height='.01'><path d='M0 0h9'/></pattern>"
        "<path id='o' d='M0 0h50v50z' fill='url(#p)'/>",
        "<text id='o' x='9' y='50' fill='url(#u)'>word</text>",
        "<text id='o' x='9' y='50' filter='url(#f)'>word</text>",
    };
    for (const char* const content : contents) {
        const auto document = read(drawing(content), "t.svg");
        Node& art = *document->findByName("o");
        const bool done =
            art.text() ? expandTexts(*document, {&art}) : expandPaint(*document, art, {true, true, false, true, 9});
        EXPECT_FALSE(done) << content;
        EXPECT_EQ(write(*document), drawing(content));
        EXPECT_EQ(document->journal().undoDepth(), 0U);
    }
}

TEST(Looks, TurnedArtLooksAsIfItsGroupWasTurned) {
    const char* const contents[] = {
        "<path id='p' d='M30 30h40v20z' fill='red' stroke='none'/>",
        "<image id='p' x='30' y='30' width='20' height='10' href='data:image/svg+xml,&lt;svg "
        "xmlns=&quot;http://www.w3.org/"
        "2000/svg&quot; width=&quot;20&quot; height=&quot;10&quot;&gt;&lt;rect width=&quot;9&quot; "
        "height=&quot;9&quot;/&gt;"
        "&lt;/svg&gt;'/>",
        "<g transform='scale(.5)'><text id='p' x='60' y='80' font-size='20'>text</text></g>",
    };
    for (const char* const content : contents) {
        const auto document = read(drawing(content), "t.svg");
        document->offset(*document->findByName("p"), -40, -40);
        document->transform(*document->findByName("p"), {0, 1, -2, 0, 40, 40});
        document->offset(*document->findByName("p"), 20, 0);
        expectSamePicture(write(*document),
                          drawing("<g transform='translate(60 40) matrix(0 1 -2 0 0 0) translate(-40 -40)'>" +
                                  std::string(content) + "</g>"));
    }
}

TEST(Looks, WhatPlugInsAddIsReadAgain) {
    Document document(100, 100);
    Node& layer = document.currentLayer();
    Node& path = addLine(document, layer, {0, 0}, {9, 9});
    model::Style style = path.style();
    style.overprintFill = true;
    document.setStyle(path, style);
    model::Extras extras{.opacity = 0.25, .blendMode = model::BlendMode::Luminosity, .knockout = model::Knockout::On};
    extras.centerPoint = true;
    extras.dictionary = {{"a \"b\" <c>", "J\xc3\xb6rg's"}, {"n", -7}, {"x", 2.0}, {"f", true}};
    document.setExtras(path, extras);
    document.setExtras(layer, {.opacity = 0.5});
    document.setArtboards(
        {{.id = 1, .title = "Page", .place = {}}, {.id = 2, .title = "&", .place = model::Box{1, 2, 3, 4}}});
    const auto again = read(write(document), "t.svg");
    EXPECT_TRUE(Document::sameContent(document, *again)) << write(document);
    const auto other = read(write(*again), "t.svg");
    other->setExtras(*other->currentLayer().firstChild(), {});
    other->setArtboards({});
    EXPECT_EQ(write(*other).find("opacity:0.25"), std::string::npos);
    EXPECT_EQ(write(*other).find("easel:data"), std::string::npos);
    EXPECT_EQ(write(*other).find("easel:artboards"), std::string::npos);
    const auto bare = read("<svg><path d='M0 0h9'/></svg>", "t.svg"); // in a layer without an element
    bare->setExtras(bare->currentLayer(), {.opacity = 0.5});
    EXPECT_EQ(read(write(*bare), "t.svg")->currentLayer().extras().opacity, 0.5);
}

} // namespace
} // namespace easel::svg
