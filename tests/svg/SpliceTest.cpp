// Drawings that were read, changed and written: nothing but what was changed differs, byte for byte.
#include <gtest/gtest.h>

#include <filesystem>

#include "support/Drawing.h"
#include "support/Folder.h"
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
using model::Style;

namespace fs = std::filesystem;

std::vector<fs::path> icons() {
    std::vector<fs::path> found;
    for (const auto& entry : fs::recursive_directory_iterator("/usr/share/icons/Tango")) {
        if (entry.path().extension() == ".svg" && !entry.is_symlink()) found.push_back(entry.path());
    }
    EXPECT_GT(found.size(), 100U);
    return found;
}

constexpr const char* kDrawing = R"x(<?xml version="1.0"?>
<!-- a house -->
<svg xmlns="http://www.w3.org/2000/svg" xmlns:i='http://www.inkscape.org/namespaces/inkscape' viewBox="0 0 100 100">
    <defs><linearGradient id="sky"/></defs>
    <g i:groupmode="layer"
       i:label='Ground' style="fill:#0f0">
        <rect  x='1' y="2"   width="10" height="20" class='wall' />
        <path id="roof" d="M 0,0 10,10" style="stroke:red; stroke-width:2 ;fill:none"/>

        <!-- the door -->
        <g transform="scale(2)">
            <path id="door" d="m1,1 4,4"></path> <path id="knob" d="M9 9 L8 8"/>
        </g>
        <text x="5">Home</text>
    </g>
    <g i:groupmode="layer" i:label="Sky"/>
</svg>
)x";

struct Edited {
    std::unique_ptr<Document> document = read(kDrawing, "t.svg");
    Node& ground = *document->layerAt(1);
    [[nodiscard]] Node& named(const char* name) const { return *document->findByName(name); }
    [[nodiscard]] Node& wall() const { return *ground.lastChild(); }
    [[nodiscard]] Node& text() const { return *ground.firstChild(); }
};

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

TEST(Splice, EachChangeTouchesItsOwnElement) {
    const struct {
        const char* what;
        std::function<void(Edited&)> edit;
        const char* from;
        const char* to;
    } rows[] = {
        {"nothing", [](Edited&) {}, "house", "house"},
        {"a path moved", [](Edited& e) { e.document->offset(e.named("roof"), 1, 0); }, "M 0,0 10,10", "M1 0 L11 10"},
        {"a shape moved", [](Edited& e) { e.document->offset(e.wall(), 0, 3); }, "class='wall' />",
         "class='wall' transform=\"translate(0 3)\" />"},
        {"a shape edited", [](Edited& e) { e.document->setClosed(e.wall(), false); },
         "<rect  x='1' y=\"2\"   width=\"10\" height=\"20\" class='wall' />",
         "<path class='wall' d=\"M1 2 L11 2 L11 22 L1 22\" />"},
        {"below a transform", [](Edited& e) { e.document->offset(e.named("door"), 2, 0); }, "m1,1 4,4", "M2 1 L6 5"},
        {"a text moved", [](Edited& e) { e.document->offset(e.text(), 1.5, 2); }, "<text x=\"5\">",
         "<text x=\"5\" transform=\"translate(1.5 2)\">"},
        {"a text removed", [](Edited& e) { e.document->remove(e.text()); }, "        <text x=\"5\">Home</text>\n", ""},
        {"one of two on a line", [](Edited& e) { e.document->remove(e.named("knob")); },
         "<path id=\"knob\" d=\"M9 9 L8 8\"/>", ""},
        {"a stroke changed",
         [](Edited& e) {
             Style style = e.named("roof").style();
             style.strokeWidth = 3;
             style.cap = model::Cap::Round;
             e.document->setStyle(e.named("roof"), style);
         },
         "stroke-width:2 ;fill:none", "stroke-width:3 ;fill:none;stroke-linecap:round"},
        {"a layer renamed", [](Edited& e) { e.document->setName(e.ground, "it's & this"); }, "'Ground'",
         "'it&apos;s &amp; this'"},
        {"a layer hidden", [](Edited& e) { e.document->setHidden(e.ground, true); }, "fill:#0f0",
         "fill:#0f0;display:none"},
        {"a layer locked", [](Edited& e) { e.document->setLocked(*e.document->layerAt(0), true); }, "\"Sky\"/>",
         "\"Sky\" xmlns:sodipodi=\"http://sodipodi.sourceforge.net/DTD/sodipodi-0.dtd\" "
         "sodipodi:insensitive=\"true\"/>"},
        {"order changed",
         [](Edited& e) { e.document->place(e.named("roof"), Placement::OnTopInside, *e.named("door").parent()); },
         "        <path id=\"roof\" d=\"M 0,0 10,10\" style=\"stroke:red; stroke-width:2 ;fill:none\"/>\n", ""},
        {"a path on top",
         [](Edited& e) {
             addLine(*e.document, e.ground, {0, 0}, {1, 2});
         },
         "Home</text>\n",
         "Home</text>\n        <path d=\"M0 0 L1 2\" fill=\"none\" stroke=\"#000000\" stroke-miterlimit=\"10\"/>\n"},
        {"a named path at the bottom",
         [](Edited& e) {
             Node& path = e.document->create(NodeType::Path, Placement::AtBottomInside, e.ground);
             e.document->setPath(path, {{corner(5, 5)}, false});
             e.document->setName(path, "sky"); // taken
         },
         "        <rect",
         "        <path i:label=\"sky\" d=\"M5 5\" fill=\"none\" stroke=\"#000000\" "
         "stroke-miterlimit=\"10\"/>\n        <rect"},
        {"a path in an empty layer",
         [](Edited& e) {
             e.document->setName(addLine(*e.document, *e.document->layerAt(0), {0, 0}, {1, 2}), "new");
         },
         "i:label=\"Sky\"/>",
         "i:label=\"Sky\">\n      <path id=\"new\" d=\"M0 0 L1 2\" fill=\"none\" stroke=\"#000000\" "
         "stroke-miterlimit=\"10\"/>\n    </g>"},
        {"a layer between",
         [](Edited& e) {
             Node& layer = e.document->create(NodeType::Layer, Placement::Above, e.ground);
             addLine(*e.document, layer, {0, 0}, {1, 2});
         },
         "    </g>\n    <g i:groupmode=\"layer\" i:label=\"Sky\"",
         "    </g>\n    <g i:groupmode=\"layer\" i:label=\"\">\n      <path d=\"M0 0 L1 2\" fill=\"none\" "
         "stroke=\"#000000\" stroke-miterlimit=\"10\"/>\n    </g>\n    <g i:groupmode=\"layer\" i:label=\"Sky\""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Edited edited;
        row.edit(edited);
        std::string expected = replaced(kDrawing, row.from, row.to);
        if (std::string(row.what) == "order changed") {
            expected =
                replaced(expected, "d=\"M9 9 L8 8\"/>\n",
                         "d=\"M9 9 L8 8\"/>\n            <path id=\"roof\" d=\"M 0,0 10,10\" style=\"stroke:red; "
                         "stroke-width:2 ;fill:none\" transform=\"matrix(0.5 0 0 0.5 0 0)\"/>\n");
        }
        const std::string text = write(*edited.document);
        EXPECT_EQ(text, expected);
        EXPECT_TRUE(Document::sameContent(*read(text, "t.svg"), *read(write(*read(text, "t.svg")), "t.svg")));
        while (edited.document->journal().undo()) continue;
        EXPECT_EQ(write(*edited.document), kDrawing);
    }
}

TEST(Splice, WhatIsReadAgainIsWhatWasEdited) {
    const std::string drawing = replaced(kDrawing, "<text x=\"5\">Home</text>", "");
    for (std::uint32_t seed = 1; seed <= 60; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const auto document = read(drawing, "t.svg");
        model::RandomEditor random(seed);
        random.compounds = false;
        for (int i = 0; i < 40; ++i) random.edit(*document);
        const std::string text = write(*document);
        const auto again = read(text, "t.svg");
        ASSERT_EQ(model::allNodes(*document).size(), model::allNodes(*again).size()) << text;
        ASSERT_EQ(write(*again), text);
        while (document->journal().undo()) continue;
        ASSERT_EQ(write(*document), drawing);
    }
}

// Others may be painted, clipped or styled with what once went with a group.
TEST(Splice, WhatDrawsNothingStaysWhenItsGroupGoes) {
    const std::string defs = "<defs><linearGradient id='a'/></defs>";
    const std::string style = "<style>.z{fill:url(#a)}</style>";
    const std::string inner = "<g id='h'><path id='p'/><clipPath id='c'/></g>";
    const std::string rest = "\n  <path id='q' fill='url(#a)'/>\n</svg>\n";
    const std::string bytes = "<svg>\n  <g id='g'>\n    " + defs + style + "\n    " + inner + "\n  </g>" + rest;
    const struct {
        const char* what;
        std::function<void(Document&, Node&, Node&)> edit; // the groups
        std::string after;
    } rows[] = {
        {"all removed", [](Document& d, Node& g, Node&) { d.remove(g); },
         "<svg>\n  " + defs + "\n  " + style + "\n  <clipPath id='c'/>" + rest},
        {"ungrouped",
         [](Document& d, Node& g, Node& h) {
             d.place(h, Placement::Above, g);
             d.remove(g);
         },
         "<svg>\n  " + defs + "\n  " + style + "\n  " + inner + rest},
        {"a part removed", [](Document& d, Node&, Node& h) { d.remove(h); },
         "<svg>\n  <g id='g'>\n    " + defs + style + "\n    <clipPath id='c'/>\n  </g>" + rest},
        {"taken out and emptied",
         [](Document& d, Node& g, Node& h) {
             d.place(h, Placement::Above, g);
             d.remove(*h.firstChild());
             d.remove(g);
         },
         "<svg>\n  " + defs + "\n  " + style + "\n  <g id='h'><clipPath id='c'/></g>" + rest},
    };
    for (const auto& row : rows) {
        const auto document = read(bytes, "t.svg");
        row.edit(*document, *document->findByName("g"), *document->findByName("h"));
        EXPECT_EQ(write(*document), row.after) << row.what;
        while (document->journal().undo()) continue;
        EXPECT_EQ(write(*document), bytes);
    }
}

// Art that takes no attributes got a group around it, which cannot show what hides itself.
TEST(Splice, WhatHidesItselfCanBeShown) {
    const std::string entity = "<!DOCTYPE svg [<!ENTITY e '<path display=\"none\"/>'>]>";
    const std::string sodipodi = "xmlns:s='http://sodipodi.sourceforge.net/DTD/sodipodi-0.dtd' s:insensitive='true'";
    for (const std::string& content : {"<svg id='n' display='none' " + sodipodi + "/>",
                                       "<path id='n' style='display:none;transform:scale(2)' " + sodipodi + "/>"}) {
        const auto document = read("<svg>" + content + "</svg>", "t.svg");
        Node& node = *document->findByName("n");
        document->setHidden(node, false);
        document->setLocked(node, false);
        document->setName(node, "m");
        const auto again = read(write(*document), "t.svg");
        ASSERT_NE(again->findByName("m"), nullptr) << write(*document);
        EXPECT_FALSE(again->findByName("m")->hidden() || again->findByName("m")->locked()) << write(*document);
        EXPECT_EQ(again->currentLayer().firstChild()->type(), NodeType::Opaque); // without a group
    }
    const auto document = read(entity + "<svg>&e;</svg>", "t.svg");
    document->setHidden(*document->currentLayer().firstChild(), false);
    EXPECT_THROW(static_cast<void>(write(*document)), UnsavableError);
}

TEST(Splice, DeclarationsAreReplacedWhereTheyCount) {
    const std::pair<const char*, const char*> rows[] = {
        {"/* a:b; */fill:#f00", "/* a:b; */fill:#0000ff"},
        {"fill:#f00/* c */;stroke:none", "fill:#0000ff/* c */;stroke:none"},
        {"font-family:&quot;A;fill:B&quot;;fill:#f00", "font-family:&quot;A;fill:B&quot;;fill:#0000ff"},
        {"fill:#f00;font-family:&#39;A;fill:B&#x27;", "fill:#0000ff;font-family:&#39;A;fill:B&#x27;"},
        {"font-family:&quot;A&quot;", "font-family:&quot;A&quot;;fill:#0000ff"},
        {"fill:red !important;fill:lime", "fill:#0000ff !important;fill:lime"},
    };
    for (const auto& [before, after] : rows) {
        const auto document = read("<svg><path style='" + std::string(before) + "'/></svg>", "t.svg");
        Node& path = *document->currentLayer().firstChild();
        EXPECT_EQ(path.style().fillColor.red, std::string(before).starts_with("font-family:&quot;A&quot;") ? 0 : 1);
        Style style = path.style();
        style.fillColor = {0, 0, 1};
        document->setStyle(path, style);
        EXPECT_EQ(write(*document), "<svg><path style='" + std::string(after) + "'/></svg>");
    }
}

// Compound paths

constexpr const char* kRing =
    "<svg><g transform='scale(2)'><path id='ring'  d='M0,0 h9 v9 h-9 z m3 3 v3 h3 v-3 z' fill-rule='evenodd'/>"
    "<path id='dot' d='M20,20h1'/></g></svg>";

TEST(Splice, CompoundPathsAreEditedByTheirSubpaths) {
    const struct {
        const char* what;
        std::function<void(Document&, Node&)> edit; // the second is the ring: its last child is the outer square
        const char* from;
        const char* to;
    } rows[] = {
        {"nothing", [](Document&, Node&) {}, "ring", "ring"},
        {"a subpath moved", [](Document& d, Node& ring) { d.offset(*ring.firstChild(), 2, 0); },
         "M0,0 h9 v9 h-9 z m3 3 v3 h3 v-3 z", "M0 0 L9 0 L9 9 L0 9 Z M4 3 L4 6 L7 6 L7 3 Z"},
        {"all moved", [](Document& d, Node& ring) { d.offset(ring, 0, 2); }, "M0,0 h9 v9 h-9 z m3 3 v3 h3 v-3 z",
         "M0 1 L9 1 L9 10 L0 10 Z M3 4 L3 7 L6 7 L6 4 Z"},
        {"all around moved", [](Document& d, Node& ring) { d.offset(*ring.parent(), 0, 2); },
         "<g transform='scale(2)'>", "<g transform='translate(0 2) scale(2)'>"},
        {"a subpath removed", [](Document& d, Node& ring) { d.remove(*ring.lastChild()); },
         "M0,0 h9 v9 h-9 z m3 3 v3 h3 v-3 z", "M3 3 L3 6 L6 6 L6 3 Z"},
        {"a subpath added",
         [](Document& d, Node& ring) {
             addLine(d, ring, {2, 4}, {6, 8});
         },
         "m3 3 v3 h3 v-3 z", nullptr},
        {"a path put in", [](Document& d, Node& ring) { d.place(*d.findByName("dot"), Placement::OnTopInside, ring); },
         "<path id='dot' d='M20,20h1'/>", nullptr},
        {"one taken out",
         [](Document& d, Node& ring) { d.place(*ring.firstChild(), Placement::Above, *d.findByName("dot")); },
         "M0,0 h9 v9 h-9 z m3 3 v3 h3 v-3 z", nullptr},
        {"a subpath painted",
         [](Document& d, Node& ring) {
             Style style = ring.style();
             style.evenOdd = false;
             d.setStyle(*ring.firstChild(), style);
         },
         "evenodd", "nonzero"},
        {"a subpath hidden", [](Document& d, Node& ring) { d.setHidden(*ring.firstChild(), true); },
         "fill-rule='evenodd'", "fill-rule='evenodd' style=\"display:none\""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const auto document = read(kRing, "t.svg");
        Node& ring = *document->findByName("ring");
        ASSERT_EQ(ring.type(), NodeType::Compound);
        ASSERT_EQ(ring.childCount(), 2U);
        row.edit(*document, ring);
        const std::string text = write(*document);
        if (row.to)
            EXPECT_EQ(text, replaced(kRing, row.from, row.to));
        else
            EXPECT_EQ(text.find(row.from), std::string::npos);
        const auto again = read(text, "t.svg");
        EXPECT_TRUE(ring.childCount() < 2 || Document::sameContent(*document, *again)) << text;
        EXPECT_EQ(write(*again), text);
        while (document->journal().undo()) continue;
        EXPECT_EQ(write(*document), kRing);
        while (document->journal().redo()) continue;
        EXPECT_EQ(write(*document), text);
    }
}

TEST(Splice, CornersAndOuterHandlesOfCompoundPathsAreKept) {
    Document document(20, 20);
    Node& ring = document.create(NodeType::Compound, Placement::OnTopInside, document.currentLayer());
    document.setCorners(addPath(document, ring, {corner(1, 1), corner(2, 1), corner(2, 2)}, true), 1, {false});
    addPath(document, ring, {{{3, 3}, {2, 3}, {3, 3}}, corner(4, 4)});
    document.setCorners(addPath(document, ring, {corner(5, 5), corner(6, 6)}), 0, {false, false});
    const std::string text = write(document);
    EXPECT_TRUE(Document::sameContent(document, *read(text, "t.svg"))) << text;
}

TEST(Splice, DamageInTheThirdSubpathKeepsTheFirstTwo) {
    std::string warning;
    const std::string bytes = "<svg><path d='M0 0h5 M1 1h5 M2 2 L3 oops M4 4h5'/></svg>";
    const auto document = read(bytes, "t.svg", [&](const std::string& line) { warning = line; });
    EXPECT_EQ(warning, "t.svg:1:6: the outline is damaged; what comes before that is kept");
    Node& path = *document->currentLayer().firstChild();
    EXPECT_EQ(path.outlines().size(), 3U); // of the third its beginning
    document->offset(path, 1, 0);
    EXPECT_EQ(write(*document), replaced(bytes, "oops M4 4h5'", "oops M4 4h5' transform=\"translate(1 0)\""));
}

// Its handles were once left out, and all that was left was a dot.
TEST(Splice, LoopOfOneAnchorKeepsItsHandles) {
    const auto document = read("<svg><path d='M50 50 C90 10 90 90 50 50 Z'/></svg>", "t.svg");
    document->offset(*document->currentLayer().firstChild(), 1, 0);
    EXPECT_EQ(write(*document), "<svg><path d='M51 50 C91 10 91 90 51 50 Z'/></svg>");
}

// They were once written in the element's units and read in the page's.
TEST(Splice, OuterHandlesStayUnderATransform) {
    const auto document = read("<svg><g transform='translate(30 5) scale(2)'><path id='p'/></g></svg>", "t.svg");
    const model::PathData path{{{{1, 2}, {3, 4}, {5, 6}}, {{7, 8}, {9, 10}, {11, 12}}}, false};
    document->setPath(*document->findByName("p"), path);
    EXPECT_EQ(read(write(*document), "t.svg")->findByName("p")->path(), path);
}

// Art in no layer was once all one layer, and pictures of what was saved had it in the wrong order.
TEST(Splice, ArtInNoLayerKeepsItsPlaceInPaintOrder) {
    const std::string i = "xmlns:i='http://www.inkscape.org/namespaces/inkscape' i:groupmode='layer'";
    const std::string bytes = "<svg><path id='a'/><path id='b'/><g " + i +
                              " id='L'><path id='c'/></g><path id='d'/><g " + i + " id='M'/><path id='e'/></svg>";
    const auto order = [](Document& document) {
        std::string ids;
        for (const Node* node : model::allNodes(document)) {
            if (node->type() == NodeType::Layer)
                ids += '|' + node->name() + ':';
            else
                ids += node->name();
        }
        return ids;
    };
    const struct {
        const char* what;
        std::function<void(Document&)> edit;
        const char* order; // from the top, as it is when the drawing is read again
    } rows[] = {
        {"nothing", [](Document&) {}, "|Layer 3:e|M:|Layer 2:d|L:c|Layer 1:ba"},
        {"new art below", [](Document& d) { d.setName(addLine(d, *d.layerAt(4), {}, {}), "n"); },
         "|Layer 3:e|M:|Layer 2:d|L:c|Layer 1:nba"},
        {"the layer between goes", [](Document& d) { d.remove(*d.layerAt(3)); }, "|Layer 2:e|M:|Layer 2:d|Layer 1:ba"},
        {"art moves between", [](Document& d) { d.place(*d.findByName("a"), Placement::Above, *d.findByName("e")); },
         "|Layer 3:ae|M:|Layer 2:d|L:c|Layer 1:b"},
        {"a layer moves to the top", [](Document& d) { d.place(*d.layerAt(4), Placement::Above, *d.layerAt(1)); },
         "|Layer 3:e|Layer 2:ba|M:|Layer 1:d|L:c"},
        {"one is made faint", [](Document& d) { d.setExtras(*d.layerAt(2), {.opacity = 0.5}); },
         "|Layer 2:e|M:|Layer 2:d|L:c|Layer 1:ba"},
        {"one is renamed", [](Document& d) { d.setName(*d.layerAt(2), "D"); }, "|Layer 2:e|M:|D:d|L:c|Layer 1:ba"},
    };
    for (const auto& row : rows) {
        const auto document = read(bytes, "t.svg");
        row.edit(*document);
        const std::string text = write(*document);
        EXPECT_EQ(order(*read(text, "t.svg")), row.order) << row.what << '\n' << text;
        while (document->journal().undo()) continue;
        EXPECT_EQ(write(*document), bytes) << row.what;
    }
}

// A layer in the place of one that is forgotten was once taken for it where their titles are the same.
TEST(Splice, LayersOfStrayArtAreNotTakenForNewOnes) {
    const auto document = read("<svg><path id='a'/></svg>", "t.svg");
    document->addLayer("Other");
    document->journal().setHistoryLimit(0);
    const model::NodeId gone = document->layerAt(1)->id();
    document->remove(*document->layerAt(1));
    document->setName(*document->layerAt(0), "x");
    Node& layer = document->addLayer("Layer 1");
    const bool isReused = layer.id().slot == gone.slot || document->addLayer("Layer 1").id().slot == gone.slot;
    ASSERT_TRUE(isReused);
    EXPECT_EQ(read(write(*document), "t.svg")->layerCount(), document->layerCount());
}

TEST(Splice, OtherEncodingsAreKept) {
    const std::string latin = "<?xml version='1.0' encoding='ISO-8859-1'?>\n<svg><!-- \xE9 --></svg>";
    auto document = read(latin, "t.svg");
    EXPECT_EQ(write(*document), latin);
    document->addLayer("\xC3\xA9\xF0\x9F\x98\x80"); // as UTF-8
    EXPECT_EQ(read(write(*document), "t.svg")->layerAt(0)->name(), "\xC3\xA9\xF0\x9F\x98\x80");

    document = read("<?xml version='1.0' encoding='US-ASCII'?><svg/>", "t.svg");
    document->addLayer("\xC3\xA9");
    EXPECT_EQ(read(write(*document), "t.svg")->layerAt(0)->name(), "\xC3\xA9");

    std::string wide("\xFF\xFE", 2);
    for (const char c : std::string("<svg><g id='a'/></svg>\r\n")) wide.append({c, '\0'});
    document = read(wide, "t.svg");
    EXPECT_EQ(write(*document), wide);
    document->setName(*document->currentLayer().firstChild(), "bc");
    EXPECT_EQ(write(*document).size(), wide.size() + 2);
    EXPECT_EQ(read(write(*document), "t.svg")->currentLayer().firstChild()->name(), "bc");
}

// Icons drawn by others

TEST(Icons, TakeANewPathAsOneElement) {
    for (const fs::path& icon : icons()) {
        SCOPED_TRACE(icon);
        const std::string bytes = desk::contents(icon);
        const auto document = open(icon);
        addLine(*document, document->currentLayer(), {1, 2}, {3, 4});
        const std::string text = write(*document);
        const std::string element = R"(<path d="M1 2 L3 4" fill="none" stroke="#000000" stroke-miterlimit="10"/>)";
        const std::size_t at = text.find(element);
        ASSERT_NE(at, std::string::npos);
        const std::string before = text.substr(0, text.find_last_not_of(" \n\r\t", at - 1) + 1);
        const std::string after = text.substr(at + element.size());
        const bool alone = bytes == before + after;
        // An empty layer that ends itself has to be opened up.
        const bool opened = before.back() == '>' && bytes.substr(before.size() - 1, 2) == "/>" &&
                            bytes.substr(before.size() + 1) == after.substr(after.find('>') + 1);
        EXPECT_TRUE(alone || opened) << text.substr(at - 20, element.size() + 40);
    }
}

TEST(Icons, ComeBackByteForByteAndChangeInsideOfWhatWasMoved) {
    std::size_t count = 0;
    for (const fs::path& icon : icons()) {
        SCOPED_TRACE(icon);
        const std::string bytes = desk::contents(icon);
        const auto document = open(icon);
        EXPECT_TRUE(write(*document) == bytes);
        for (Node* const node : model::allNodes(*document)) {
            if (node->isContainer() || ++count % 5 != 0) continue; // in all the icons together these are of every kind
            if (node->type() == NodeType::Path && node->path().points.empty()) continue;
            document->offset(*node, 3, 5);
            const std::string moved = write(*document);
            ASSERT_NE(moved, bytes) << node->name();
            const auto first = std::mismatch(bytes.begin(), bytes.end(), moved.begin(), moved.end()).first;
            const auto last = std::mismatch(bytes.rbegin(), bytes.rend(), moved.rbegin(), moved.rend()).first.base();
            // All of it between the brackets of one start tag.
            EXPECT_TRUE(first >= last || std::find(first + 1, last, '<') == last) << node->name();
            document->journal().undo();
        }
        EXPECT_TRUE(write(*document) == bytes);
    }
}

} // namespace
} // namespace easel::svg
