// Texts, pictures, uses of symbols and groups that are more than groups: told from their elements, written back alone.
#include <gtest/gtest.h>

#include <algorithm>

#include "model/Clip.h"
#include "model/Journal.h"
#include "svg/Definitions.h"
#include "svg/Pixels.h"
#include "svg/Reader.h"
#include "svg/Writer.h"

namespace easel::svg {
namespace {

using model::Document;
using model::Node;

/// A PNG of 3 by 2 pixels, as far as that is told.
constexpr const char* kPicture = "data:image/png;base64,iVBORw0KGgoAAAANSUhEUgAAAAMAAAACCAIAAAASFvFN";

std::string drawing(const std::string& content) {
    return "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
           "xmlns:easel='urn:easel:drawing' viewBox='0 0 99 99'><defs><symbol id='s'><path id='in' d='M0 0 1 1'/>"
           "</symbol><symbol id='t'/><path id='p' d='M0 0'/></defs>" +
           content + "</svg>";
}

Node& first(Document& document) { return *document.currentLayer().firstChild(); }

template <class Kind, class Change> void change(Document& document, Change change) {
    Node& node = first(document);
    Kind kind = std::get<Kind>(*node.content().special());
    change(kind);
    document.setSpecial(node, kind);
}

TEST(Specials, AreToldFromTheirElements) {
    const auto document = read(drawing(std::string("<g font-family='Serif, x' font-size='5' text-anchor='middle'>") +
                                       "<text x='1' y='2' transform='scale(2)'> a\n  b </text><text>c<tspan/></text>"
                                       "</g><image xlink:href='" +
                                       kPicture +
                                       "' x='9' width='9' height='9'/><image href='a.png'/>"
                                       "<use href='#s'/><use href='#p'/>"
                                       "<g easel:kind='mesh 2'/><g easel:kind='plug-in-group P Q'/>"),
                               "t.svg");
    const Node* node = document->currentLayer().lastChild(); // the bottommost
    const model::TextData& text = *node->lastChild()->text();
    EXPECT_EQ(text.contents, "a b");
    EXPECT_EQ(text.font, "Serif");
    EXPECT_EQ(text.size, 10);
    EXPECT_EQ(text.justification, model::Justification::Center);
    EXPECT_EQ(text.anchor, (model::Point{2, 4}));
    EXPECT_FALSE(text.isRich);
    EXPECT_TRUE(node->firstChild()->text()->isRich);
    node = node->previous();
    EXPECT_TRUE(node->image()->isEmbedded);
    EXPECT_EQ(node->image()->columns, 3U);
    EXPECT_EQ(node->image()->rows, 2U);
    EXPECT_EQ(node->image()->place, (model::Affine{9, 0, 0, 6, 9, 1.5})); // in the middle of its box
    node = node->previous();
    EXPECT_EQ(node->image()->link, "a.png");
    node = node->previous();
    EXPECT_EQ(node->symbol()->symbol, "s");
    node = node->previous();
    EXPECT_FALSE(node->content().special());
    node = node->previous();
    EXPECT_EQ(node->extras().groupKind, model::GroupKind::Mesh);
    EXPECT_EQ(node->extras().columns, 2U);
    EXPECT_EQ(node->previous()->extras().plugin, "P Q");
}

TEST(Specials, ChangesAreWrittenIntoTheirElementAlone) {
    using Text = model::TextData;
    using Image = model::ImageData;
    using Use = model::SymbolData;
    const auto link = [](Document& d) { change<Image>(d, [](Image& i) { i.link = "b c.png"; }); };
    const auto contents = [](Document& d) { change<Text>(d, [](Text& t) { t.contents = "c & d"; }); };
    const auto look = [](Document& d) {
        change<Text>(d, [](Text& t) {
            t.size *= 2;
            t.justification = model::Justification::Right;
            t.orientation = model::Orientation::Vertical;
            t.paint.fillColor = {1, 0, 0};
        });
    };
    const auto use = [](Document& d) { change<Use>(d, [](Use& u) { u.symbol = "t"; }); };
    const auto mask = [](Document& d) {
        model::Extras extras = first(d).extras();
        extras.maskDisabled = !extras.maskDisabled;
        d.setExtras(first(d), extras);
    };
    const struct {
        std::string before;
        std::function<void(Document&)> change;
        std::string after;
    } rows[] = {
        {"<text  x='1'>a</text>", contents, "<text  x='1' xml:space=\"preserve\">c &amp; d</text>"},
        {"<text x='1' />", contents, "<text x='1' xml:space=\"preserve\" >c &amp; d</text>"},
        {"<text font-size='4' transform='scale(3)'>a</text>", look,
         "<text font-size='8' transform='scale(3)' text-anchor=\"end\" writing-mode=\"vertical-rl\" "
         "fill=\"#ff0000\">a</text>"},
        {"<image href='a.png' width='5'/>", link, "<image href='b c.png' width='5'/>"},
        {"<image xlink:href='a.png'/>", link, "<image xlink:href='b c.png'/>"},
        {"<use  xlink:href='#s'/>", use, "<use  xlink:href='#t'/>"},
        {"<rect width='1' height='1' mask='url(#m)'/>", mask,
         "<rect width='1' height='1' mask='none' easel:disabled-mask=\"url(#m)\"/>"},
        {"<rect width='1' height='1' easel:disabled-mask='url(#m)'/>", mask,
         "<rect width='1' height='1' mask=\"url(#m)\"/>"},
    };
    for (const auto& row : rows) {
        const std::string before = drawing("<path d='M1 1'/>" + row.before);
        const auto document = read(before, "t.svg");
        EXPECT_EQ(write(*document), before);
        row.change(*document);
        EXPECT_EQ(write(*document), drawing("<path d='M1 1'/>" + row.after));
        EXPECT_TRUE(document->journal().undo());
        EXPECT_EQ(write(*document), before);
    }
}

TEST(Specials, DefinitionsAreEditedAsDrawings) {
    const std::string before = drawing("<use href='#s'/>");
    const auto document = read(before, "t.svg");
    EXPECT_EQ(definitionNames(*document, "symbol"), (std::vector<std::string>{"s", "t"}));
    EXPECT_EQ(readDefinition(*document, "symbol", "u"), nullptr);
    const auto edited = readDefinition(*document, "symbol", "s");
    redefine(*document, "symbol", "s", *edited);
    EXPECT_EQ(document->journal().undoDepth(), 0U); // nothing has changed
    edited->setClosed(*edited->findByName("in"), true);
    redefine(*document, "symbol", "s", *edited);
    const std::string written = write(*document);
    EXPECT_EQ(readDefinition(*document, "symbol", "s")->findByName("in")->path().closed, true);
    EXPECT_EQ(written.size() - before.size(), written.find("</symbol>") - before.find("</symbol>")); // nothing else
    redefine(*document, "symbol", "t", *edited);
    const auto again = read(write(*document), "t.svg");
    EXPECT_EQ(readDefinition(*again, "symbol", "t")->currentLayer().childCount(), 1U);
    EXPECT_TRUE(document->journal().undo() && document->journal().undo());
    EXPECT_EQ(write(*document), before);
}

TEST(Specials, NewDefinitionsAndUsesAreReadAgain) {
    Document document(99, 99);
    Node& path = document.create(model::NodeType::Path, model::Placement::OnTopInside, document.currentLayer());
    document.setPath(path, {{model::cornerAt({1, 2}), model::cornerAt({5, 9})}, false});
    EXPECT_EQ(define(document, "symbol", path), "symbol-1");
    EXPECT_EQ(define(document, "pattern", path), "pattern-1");
    Node& use = document.create(model::NodeType::Opaque, model::Placement::OnTopInside, document.currentLayer());
    document.setSpecial(use, model::SymbolData{.symbol = "symbol-1"});
    const auto again = read(write(document), "t.svg");
    EXPECT_EQ(first(*again).symbol()->symbol, "symbol-1");
    const auto held = readDefinition(*again, "symbol", "symbol-1");
    EXPECT_EQ(first(*held).path(), path.path());
    const auto tile = readDefinition(*again, "pattern", "pattern-1");
    EXPECT_EQ(first(*tile).path().points[1].anchor, (model::Point{4, 7})); // from the tile's corner
    EXPECT_EQ(tile->width(), 4);
    EXPECT_TRUE(document.journal().undo() && document.journal().undo() && document.journal().undo());
    EXPECT_TRUE(definitionNames(document, "pattern").empty());
}

// An instance kept the bounds of the symbol before, and the box of a symbol was no matter.
TEST(Specials, InstancesLieWhereTheirSymbolShows) {
    const struct {
        const char* symbol;
        const char* use; ///< empty: a new one
        model::Box bounds;
    } rows[] = {
        {"<symbol id='n' viewBox='10 20 4 2'><path d='M10 20h4v2z'/></symbol>", "", {10, 20, 14, 22}},
        {"<symbol id='n' viewBox='10 20 4 2'><path d='M10 20h4v2z'/></symbol>",
         "<use href='#s' x='50' y='40' width='40' height='40'/>",
         {50, 50, 90, 70}}, // ten times as large, in the middle
        {"<symbol id='n' viewBox='10 20 4 2'><path d='M10 20h4v2z'/></symbol>", "<use href='#s'/>", {0, 0, 4, 2}},
        {"<symbol id='n' viewBox='0 0 4 2' preserveAspectRatio='xMinYMax'><path d='M0 0h4v2z'/></symbol>",
         "<use href='#s' x='50' y='40' width='40' height='40'/>",
         {50, 60, 90, 80}},
        {"<symbol id='n' viewBox='0 0 4 2' preserveAspectRatio='none'><path d='M0 0h4v2z'/></symbol>",
         "<use href='#s' y='40' width='40' height='40' transform='scale(2 1)'/>",
         {0, 40, 80, 80}},
        {"<symbol id='n' overflow='visible'><path d='M-5-5h9v9z'/></symbol>", "<use href='#s' x='9'/>", {4, -5, 13, 4}},
        {"<symbol id='n'><path d='M-5-5h9v9h-9z'/></symbol>", "<use href='#s' x='9'/>", {4, -5, 13, 4}},
    };
    const auto expectNear = [](const model::Box& is, const model::Box& was) {
        for (const auto side : {&model::Box::left, &model::Box::top, &model::Box::right, &model::Box::bottom})
            EXPECT_NEAR(is.*side, was.*side, 1e-3);
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.symbol) + row.use);
        const auto document = read(drawing(std::string("<defs>") + row.symbol + "</defs>" + row.use), "t.svg");
        Node& instance = *row.use ? first(*document)
                                  : document->create(model::NodeType::Opaque, model::Placement::OnTopInside,
                                                     document->currentLayer());
        document->measure();
        setSymbol(*document, instance, "n");
        expectNear(instance.hull(), row.bounds);
        const auto again = read(write(*document), "t.svg");
        again->measure();
        expectNear(first(*again).hull(), row.bounds);
        const auto edited = readDefinition(*document, "symbol", "n");
        edited->removeChildren(edited->currentLayer());
        redefine(*document, "symbol", "n", *edited);
        EXPECT_TRUE(instance.hull().isEmpty());
        EXPECT_TRUE(document->journal().undo());
        expectNear(instance.hull(), row.bounds);
    }
}

TEST(Specials, CopiesOfPicturesLieAsTheyDid) {
    for (const char* const attributes :
         {"x='5' y='6' width='7' height='8'", "width='9' height='5' transform='rotate(30) skewX(10)'",
          "width='9' height='5' transform='scale(-1 2)' preserveAspectRatio='xMinYMin slice'"}) {
        const auto document =
            read(drawing(std::string("<g transform='translate(3 4)'><image href='a.png' ") + attributes + "/></g>"),
                 "t.svg");
        const auto name = define(*document, "symbol", *first(*document).firstChild());
        const auto again = readDefinition(*read(write(*document), "t.svg"), "symbol", *name);
        const model::ImageData& is = *first(*again).image();
        const model::ImageData& was = *first(*document).firstChild()->image();
        for (const auto part : {&model::Affine::a, &model::Affine::b, &model::Affine::c, &model::Affine::d,
                                &model::Affine::e, &model::Affine::f})
            EXPECT_NEAR(is.place.*part, was.place.*part, 1e-6) << attributes;
        EXPECT_EQ(is.fit, was.fit);
    }
}

TEST(Specials, NewDefinitionsHoldInEveryEncoding) {
    for (const std::string encoding : {"UTF-8", "ISO-8859-1", "US-ASCII"}) {
        const auto document =
            read("<?xml version='1.0' encoding='" + encoding + "'?><svg><text>&#228;</text></svg>", "t.svg");
        EXPECT_EQ(define(*document, "symbol", first(*document)), "symbol-1");
        const auto again = read(write(*document), "t.svg");
        EXPECT_EQ(first(*readDefinition(*again, "symbol", "symbol-1")).text()->contents, "\xC3\xA4") << encoding;
    }
}

// What was made of a pattern was lost when the symbol around it was edited, and nothing could be saved.
TEST(Specials, DefinitionsInOthersAreEditedWithThem) {
    const std::string before =
        drawing("<g><symbol id='o'><pattern id='i'><path id='a' d='M0 0'/></pattern><path id='b' d='M0 0'/></symbol>"
                "</g>");
    const auto placeIn = [](Document& d, const char* kind, const char* name, const char* path) {
        return readDefinition(d, kind, name)->findByName(path)->path().points[0].anchor.x;
    };
    const auto move = [](Document& d, const char* kind, const char* name, const char* path) {
        const auto edited = readDefinition(d, kind, name);
        edited->offset(*edited->findByName(path), 1, 0);
        redefine(d, kind, name, *edited);
    };
    for (const std::string order : {"i", "o", "io", "oi", "ioi", "oioi"}) {
        const auto document = read(before, "t.svg");
        for (const char edited : order)
            edited == 'i' ? move(*document, "pattern", "i", "a") : move(*document, "symbol", "o", "b");
        document->remove(first(*document)); // the group around them
        const auto again = read(write(*document), "t.svg");
        for (Document* const each : {&*document, &*again}) {
            EXPECT_EQ(placeIn(*each, "pattern", "i", "a"), std::count(order.begin(), order.end(), 'i')) << order;
            EXPECT_EQ(placeIn(*each, "symbol", "o", "b"), std::count(order.begin(), order.end(), 'o')) << order;
        }
        EXPECT_EQ(document->journal().undoDepth(), order.size() + 1);
        while (document->journal().undo()) continue;
        EXPECT_EQ(write(*document), before);
    }
}

// Strokes stayed thin, hidden layers showed, and clips and paint from outside were lost.
TEST(Specials, InstancesExpandIntoWhatTheyShowOrNotAtAll) {
    const std::string layer = "<g xmlns:i='http://www.inkscape.org/namespaces/inkscape' i:groupmode='layer'";
    const std::string path = "<path stroke='red' stroke-width='2' d='M0 0 1 1'/>";
    const struct {
        std::string symbol;
        std::string use;
        bool expands, hidden;
    } rows[] = {
        {path, "<use href='#o' transform='scale(3)'/>", true, false},
        {layer + " display='none'>" + path + "</g>", "<use href='#o' transform='scale(3)'/>", true, true},
        {layer + " opacity='.5'>" + path + "</g>", "<use href='#o'/>", false, false},
        {path, "<use href='#o' fill='red'/>", false, false},
        {path, "<g stroke-linecap='round'><use href='#o'/></g>", false, false},
        {"<clipPath id='c'><path d='M0 0h1v1z'/></clipPath><image href='a.png' width='9' height='9' "
         "clip-path='url(#c)'/>",
         "<use href='#o'/>", false, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.symbol + row.use);
        const auto document = read(drawing("<symbol id='o'>" + row.symbol + "</symbol>" + row.use), "t.svg");
        Node* const use = first(*document).symbol() ? &first(*document) : first(*document).firstChild();
        ASSERT_EQ(expandInstance(*document, *use), row.expands);
        if (!row.expands) continue;
        const Node& expanded = *first(*document).firstChild();
        EXPECT_EQ(expanded.style().strokeWidth, 6);
        EXPECT_EQ(expanded.hidden(), row.hidden);
    }
}

TEST(Specials, StyleSheetsHoldInDefinitionsToo) {
    const auto document = read(drawing("<style>.a{fill:#f00}path{stroke:#00f}</style><symbol id='o'><path id='x' "
                                       "class='a' d='M0 0 1 1 2 0'/></symbol><path id='y' style='stroke:none'/>"),
                               "t.svg");
    const auto name = define(*document, "symbol", *document->findByName("y"));
    const auto edited = readDefinition(*document, "symbol", "o");
    model::Style style = edited->findByName("x")->style();
    EXPECT_EQ(style.fillColor, (model::Color{1, 0, 0}));
    style.fillColor = {0, 1, 0};
    edited->setStyle(*edited->findByName("x"), style);
    redefine(*document, "symbol", "o", *edited);
    const auto again = read(write(*document), "t.svg");
    EXPECT_EQ(readDefinition(*again, "symbol", "o")->findByName("x")->style(), style);
    EXPECT_EQ(first(*readDefinition(*again, "symbol", *name)).style(), document->findByName("y")->style());
}

TEST(Specials, MasksOfGroupsAreWrittenIntoThem) {
    const std::string before = drawing("<g transform='scale(2)'><path d='M1 1 9 9'/></g>");
    const auto document = read(before, "t.svg");
    Node& group = first(*document);
    model::Extras extras;
    extras.hasOtherClip = true;
    const model::PathData square{{model::cornerAt({2, 2}), model::cornerAt({8, 2}), model::cornerAt({8, 8})}, true};
    extras.clip = model::Shared(clipOnPage(group, {{{square}, true}}));
    document->setExtras(group, extras);
    EXPECT_EQ(write(*document),
              drawing("<g transform='scale(2)' clip-path=\"url(#clip-1)\"><clipPath id=\"clip-1\"><path "
                      "d=\"M1 1 L4 1 L4 4 Z\" clip-rule=\"evenodd\"/></clipPath><path d='M1 1 9 9'/></g>"));
    const auto again = read(write(*document), "t.svg");
    EXPECT_EQ(maskOnPage(first(*again)).front().subpaths.front(), square);
    document->offset(group, 10, 0);
    EXPECT_EQ(maskOnPage(first(*read(write(*document), "t.svg"))).front().subpaths.front().points[0].anchor.x, 12);
    EXPECT_TRUE(document->journal().undo() && document->journal().undo());
    EXPECT_EQ(write(*document), before);
}

TEST(Pixels, AreToldFromTheFirstBytes) {
    const std::string jpeg("\xff\xd8\xff\xe0\0\4ab\xff\xc2\0\x0b\x08\0\7\0\5\1\0\0", 20); // an unknown segment, a frame
    const std::string gif("GIF89a\2\1\3\0", 10);
    EXPECT_EQ(pixelSize(jpeg)->columns, 5U);
    EXPECT_EQ(pixelSize(jpeg)->rows, 7U);
    EXPECT_EQ(pixelSize(gif)->columns, 258U);
    EXPECT_EQ(pixelSizeInside(*dataAddress(gif))->rows, 3U);
    EXPECT_EQ(*dataAddress(gif), "data:image/gif;base64,R0lGODlhAgEDAA==");
    for (const std::string& bytes : {std::string("\xff\xd8\xff"), jpeg.substr(0, 12), std::string("BM"), std::string()})
        EXPECT_FALSE(pixelSize(bytes)) << bytes.size();
}

} // namespace
} // namespace easel::svg
