// The tree of art, order, attributes, paths and selection.
#include "model/Document.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "support/Drawing.h"

namespace easel::model {
namespace {

class DocumentTest : public testing::Test {
  protected:
    std::vector<Node*> childrenOf(const Node& node) {
        std::vector<Node*> children;
        for (Node* child = node.firstChild(); child; child = child->next()) children.push_back(child);
        return children;
    }

    Document document{200, 100};
    Node& layer = document.currentLayer();
};

// Page and layers

TEST_F(DocumentTest, VisibleBoxFollowsTheView) {
    EXPECT_EQ(document.visibleBox(), (Box{0, 0, 200, 100}));
    document.view = {4, {10, 20}};
    EXPECT_EQ(document.visibleBox(), (Box{-15, 7.5, 35, 32.5}));
    EXPECT_EQ(document.toScreen({-14, 10}), (Point{4, 10}));
    EXPECT_EQ(document.fromScreen({4, 10}), (Point{-14, 10}));
}

// Tree and order

TEST_F(DocumentTest, PlacementsPutArtWhereTheySay) {
    Node& middle = addLine(document, layer, {0, 0}, {1, 1});
    Node& above = document.create(NodeType::Path, Placement::Above, middle);
    Node& below = document.create(NodeType::Group, Placement::Below, middle);
    Node& bottom = document.create(NodeType::Path, Placement::AtBottomInside, layer);
    Node& top = document.create(NodeType::Path, Placement::OnTopInside, layer);
    EXPECT_EQ(childrenOf(layer), (std::vector{&top, &above, &middle, &below, &bottom}));
    document.place(top, Placement::AtBottomInside, below);
    document.place(bottom, Placement::OnTopInside, below);
    document.place(middle, Placement::Above, above);
    EXPECT_EQ(childrenOf(layer), (std::vector{&middle, &above, &below}));
    EXPECT_EQ(childrenOf(below), (std::vector{&bottom, &top}));
    EXPECT_EQ(&top.layer(), &layer);
    EXPECT_TRUE(top.isWithin(below));
    EXPECT_FALSE(above.isWithin(below));
}

TEST_F(DocumentTest, OrderHoldsUnderManyInsertionsAtOnePlace) {
    Node& fixed = addLine(document, layer, {0, 0}, {1, 1});
    std::vector<Node*> expected{&fixed};
    document.journal().begin();
    for (int i = 0; i < 3000; ++i) {
        // Halves the same gap again and again: above the fixed line, and below the newest one above it.
        expected.insert(expected.end() - 1, &document.create(NodeType::Path, Placement::Above, fixed));
    }
    document.journal().end();
    const Listing beforeLast = listing(document);
    for (int i = 0; i < 100; ++i) {
        Node& node = document.create(NodeType::Path, Placement::Below, *expected.front());
        expected.insert(expected.begin() + 1, &node);
    }
    EXPECT_EQ(childrenOf(layer), expected);
    EXPECT_TRUE(std::is_sorted(expected.begin(), expected.end(),
                               [](const Node* a, const Node* b) { return Document::comparePaintOrder(*a, *b) < 0; }));
    for (int i = 0; i < 100; ++i) document.journal().undo();
    EXPECT_EQ(listing(document), beforeLast);
}

TEST_F(DocumentTest, PaintOrderIsThatOfAWalk) {
    RandomEditor random(7);
    for (int i = 0; i < 300; ++i) random.edit(document);
    const std::vector<Node*> nodes = allNodes(document);
    for (std::size_t a = 0; a < nodes.size(); ++a) {
        for (std::size_t b = 0; b < nodes.size(); ++b) {
            const int order = Document::comparePaintOrder(*nodes[a], *nodes[b]);
            ASSERT_EQ(a < b, order < 0);
            ASSERT_EQ(a == b, order == 0);
        }
    }
}

TEST_F(DocumentTest, DeepNestingNeedsNoStack) {
    Node* innermost = &layer;
    for (int i = 0; i < 100000; ++i) innermost = &document.create(NodeType::Group, Placement::OnTopInside, *innermost);
    Node& line = addPath(document, *innermost, {{{1, 1}, {0, 1}, {2, 1}}});
    Node& outermost = *layer.firstChild();
    Node& apart = addLine(document, layer, {0, 0}, {1, 1});
    document.offset(outermost, 5, -1);
    document.select(outermost, true);
    document.remove(outermost);
    EXPECT_FALSE(line.alive());
    EXPECT_TRUE(document.selection().empty());
    document.journal().undo();
    EXPECT_TRUE(line.alive());
    EXPECT_EQ(line.path().points[0], (PathPoint{{6, 0}, {5, 0}, {7, 0}}));
    EXPECT_EQ(apart.path().points[0], corner(0, 0));
    EXPECT_EQ(document.selection().size(), 100001U);
}

// Selection

TEST_F(DocumentTest, SelectingReachesDownAndDeselectingUp) {
    Node& group = document.create(NodeType::Group, Placement::OnTopInside, layer);
    Node& line = addLine(document, group, {0, 0}, {1, 1});
    Node& other = addLine(document, group, {0, 0}, {2, 2});
    document.select(layer, true);
    EXPECT_EQ(document.selection(), (std::vector{&group, &other, &line}));
    document.select(line, false);
    EXPECT_EQ(document.selection(), (std::vector{&other}));
    EXPECT_TRUE(document.hasSelection(layer));
    EXPECT_FALSE(document.hasSelection(line));
    Node& second = document.addLayer("second");
    EXPECT_FALSE(document.hasSelection(second));
    document.select(addLine(document, second, {0, 0}, {1, 1}), true);
    document.deselectAll(layer);
    EXPECT_EQ(document.selection(), (std::vector{second.firstChild()}));
    document.deselectAll();
    EXPECT_TRUE(document.selection().empty());
}

TEST_F(DocumentTest, PointSelectionFollowsThePoints) {
    Node& path = addPath(document, layer, {corner(0, 0), corner(1, 0), corner(2, 0)});
    const auto selected = [&] {
        std::string flags;
        for (std::size_t i = 0; i < path.path().points.size(); ++i) flags += path.pointSelected(i) ? 'x' : '-';
        return flags;
    };
    const std::pair<std::function<void()>, const char*> rows[] = {
        {[&] { document.select(path, true); }, "xxx"},
        {[&] { document.selectPoints(path, {true, false, false}); }, "x--"},
        {[&] { document.reverse(path); }, "--x"},
        {[&] { document.setPointCount(path, 4); }, "--x-"},
        {[&] { document.setPointCount(path, 2); }, "--"},
        {[&] { document.selectPoints(path, {true, true}); }, "xx"},
        {[&] { document.selectPoints(path, {}); }, "--"},
    };
    for (const auto& [change, flags] : rows) {
        change();
        EXPECT_EQ(selected(), flags);
        EXPECT_EQ(path.selected(), selected().find('x') != std::string::npos) << flags;
        EXPECT_EQ(path.allPointsSelected(), selected().find('-') == std::string::npos) << flags;
    }
}

TEST_F(DocumentTest, CornersFollowThePoints) {
    Node& path = addPath(document, layer, {corner(0, 0), corner(1, 0), corner(2, 0)});
    const auto types = [&] {
        std::string letters;
        for (std::size_t i = 0; i < path.path().points.size(); ++i) letters += path.path().isCorner(i) ? 'c' : 's';
        return letters;
    };
    const std::string many(70, 'c'); // more than one word has bits
    const PathPoint point = corner(9, 9);
    const std::pair<std::function<void()>, std::string> rows[] = {
        {[&] {
             document.setCorners(path, 1, {true, true});
         },
         "ccc"},
        {[&] { document.setCorners(path, 0, {false}); }, "scc"},
        {[&] { document.reverse(path); }, "ccs"},
        {[&] { document.setPointCount(path, 4); }, "ccsc"},
        {[&] { document.setPoints(path, 2, path.path().points.data(), 1); }, "ccsc"},
        {[&] { document.setPointCount(path, 2); }, "cc"},
        {[&] { document.setPointCount(path, 3); }, "ccc"},
        {[&] {
             document.setCorners(path, 1, {false, false});
         },
         "css"},
        {[&] { document.setPointCount(path, 70); }, "css" + many.substr(3)},
        {[&] { document.reverse(path); }, many.substr(3) + "ssc"},
        {[&] { document.insertPoints(path, 0, &point, 1); }, many.substr(2) + "ssc"},
        {[&] { document.removePoints(path, 0, 6); }, many.substr(8) + "ssc"},
        {[&] { document.setPointCount(path, 63); }, many.substr(8) + 's'},
        {[&] { document.setPointCount(path, 70); }, many.substr(8) + "sccccccc"},
        {[&] { document.setCorners(path, 0, PointFlags(70, true)); }, many},
    };
    for (const auto& [change, expected] : rows) {
        change();
        EXPECT_EQ(types(), expected);
        // Paths without smooth points are equal, whatever they had.
        EXPECT_EQ(path.path() == (PathData{path.path().points, false}), types().find('s') == std::string::npos);
    }
}

// Attributes

TEST_F(DocumentTest, EveryAttributeIsComparedUndoneAndKeptAsItWasRead) {
    Node& path = addLine(document, layer, {0, 0}, {1, 1});
    Node& opaque = document.create(NodeType::Opaque, Placement::OnTopInside, layer);
    const std::pair<Node*, std::function<void()>> rows[] = {
        {&path, [&] { document.setName(path, "n"); }},     {&path, [&] { document.setLocked(path, true); }},
        {&path, [&] { document.setHidden(path, true); }},  {&path, [&] { document.setStyle(path, painted(true, 1)); }},
        {&path, [&] { document.setClosed(path, true); }},  {&path, [&] { document.setCorners(path, 0, {false}); }},
        {&path, [&] { document.offset(path, 1, 0); }},     {&opaque, [&] { document.setBounds(opaque, {0, 0, 1, 1}); }},
        {&opaque, [&] { document.offset(opaque, 1, 0); }},
    };
    std::uint32_t origin = 0;
    for (const auto& [node, change] : rows) {
        SCOPED_TRACE(++origin);
        Document::setOrigin(*node, origin);
        const Listing before = listing(document);
        const Content was = node->content();
        change();
        change();
        EXPECT_FALSE(listing(document) == before);
        EXPECT_TRUE(document.original(*node) == was);
        while (listing(document) != before) ASSERT_TRUE(document.journal().undo());
        EXPECT_TRUE(node->content() == was);
    }
}

TEST_F(DocumentTest, ADuplicateInACompoundPathIsPartOfIt) {
    Node& compound = document.create(NodeType::Compound, Placement::OnTopInside, layer);
    Node& first = addLine(document, compound, {0, 0}, {1, 1});
    document.setStyle(compound, painted(true, 7));
    Node& other = addLine(document, layer, {5, 5}, {6, 6});
    document.setHidden(other, true);
    Node& copy = document.duplicate(other, Placement::Below, first);
    EXPECT_TRUE(copy.isSubpath() && !copy.hidden() && copy.path() == other.path());
    EXPECT_TRUE(copy.content().style.isSameAs(compound.content().style));
}

TEST_F(DocumentTest, RefusesTransformsThatLeadOutOfAllNumbers) {
    Node& group = document.create(NodeType::Group, Placement::OnTopInside, layer);
    addLine(document, group, {1e9, 0}, {1, 1});
    document.setBounds(document.create(NodeType::Opaque, Placement::OnTopInside, group), {0, 0, 1e9, 1});
    const Listing before = listing(document);
    const std::size_t steps = document.journal().undoDepth();
    for (const Affine& by :
         {Affine{.a = 1e300}, Affine{.b = 1e300}, Affine{.d = 1e308, .f = 1e308}, Affine{.a = 1e-9, .d = 1e-9}})
        EXPECT_FALSE(document.transform(group, by));
    EXPECT_FALSE(document.transform(group, {}, std::numeric_limits<double>::infinity()));
    EXPECT_TRUE(listing(document) == before && document.journal().undoDepth() == steps);
    EXPECT_TRUE(document.transform(group, {.a = 1e200}, 1e200));
}

TEST_F(DocumentTest, PathsThatLookAlikeShareOneStyle) {
    Node& first = addLine(document, layer, {0, 0}, {1, 1});
    Node& second = addLine(document, layer, {0, 0}, {1, 1});
    document.setStyle(first, painted(true, 7));
    for (int i = 0; i < 1000; ++i) document.setStyle(second, painted(false, i)); // many that nobody has any more
    document.setStyle(second, painted(true, 7));
    EXPECT_TRUE(first.content().style.isSameAs(second.content().style));
}

// Comparing

TEST_F(DocumentTest, SameContentIgnoresSelectionAndIdentity) {
    const auto draw = [](Document& into) -> Node& {
        return addLine(into, into.create(NodeType::Group, Placement::OnTopInside, into.currentLayer()), {0, 0}, {1, 1});
    };
    Document other(200, 100);
    document.remove(draw(document));
    document.remove(*layer.firstChild());
    Node& line = draw(document);
    Node& twin = draw(other);
    document.select(line, true);
    EXPECT_TRUE(Document::sameContent(document, other));
    document.place(line, Placement::Above, *line.parent());
    EXPECT_FALSE(Document::sameContent(document, other));
    document.journal().undo();
    for (const auto& change : std::initializer_list<std::function<void()>>{
             [&] { other.setStyle(twin, painted(false, 2)); }, [&] { other.setHidden(twin, true); },
             [&] { other.setCorners(twin, 0, {false}); }, [&] { other.setName(*twin.parent(), "n"); }}) {
        EXPECT_TRUE(Document::sameContent(document, other));
        change();
        EXPECT_FALSE(Document::sameContent(document, other));
        other.journal().undo();
    }
    // What cannot be seen: the colour of no fill.
    Style style;
    style.fillColor = {1, 0, 0};
    other.setStyle(twin, style);
    EXPECT_TRUE(Document::sameContent(document, other));
}

} // namespace
} // namespace easel::model
