// What the facade's operations on art mean: order, transforms, symbols, sharing, paths.
#include <cmath>
#include <tuple>

#include "FacadeTest.h"
#include "plugin/document/Art.h"
#include "plugin/host/HostCall.h"
#include "plugin/host/RefCountMap.h"
#include "suites/Arguments.h"
#include "svg/Reader.h"
#include "svg/Writer.h"

namespace {

using namespace facade;
using easel::model::Style;

class FacadeArt : public FacadeTest {};

// Order

// Over two overlapping paths the upper one comes first, and nothing is left behind.
TEST_F(FacadeArt, ListsAllArtUnderAPointAndLeavesTheOrder) {
    Style filled;
    filled.fill = true;
    std::vector<const Node*> stack{&desk.document().addLayer("Above").layer()};
    // The first corners lie at many distances from where all of them are near, one out of reach.
    static constexpr double kFirst[] = {299.5, 298.7, 299.8, 299.2, 292};
    for (int i = 0; i < 5; ++i) {
        Node& square = desk.addPath({{kFirst[i], kFirst[i]}, {340, 300}, {340, 340}, {300, 340}}, true,
                                    i < 3 ? &groupNode : nullptr);
        if (i == 3) { // as part of a compound path, which goes with it
            Node& whole = desk.document().create(easel::model::NodeType::Compound, easel::model::Placement::OnTopInside,
                                                 *square.parent());
            desk.document().place(square, easel::model::Placement::OnTopInside, whole);
        }
        desk.document().setStyle(square, filled);
        stack.push_back(&square);
    }
    const auto before = easel::model::listing(desk.document());
    const std::size_t steps = desk.document().journal().undoDepth();
    const auto find = [&](HitRequest request = HitRequest::Fills) {
        return CurrentDocument().artAtPoint({300, 300}, request);
    };
    auto& monitor = kzo::plugin::host::monitor();
    desk.inMessage([&] {
        for (const HitRequest request : {HitRequest::Fills, HitRequest::Everything, HitRequest::AnchorsAndSegments}) {
            const auto found = find(request);
            const bool fills = request != HitRequest::AnchorsAndSegments;
            ASSERT_EQ(found->size(), fills ? 5u : 4u);
            for (std::size_t i = 0; i < found->size(); ++i)
                EXPECT_EQ((*found)[i].uid(),
                          Art(easel::suites::artHandle(desk.document(), stack[found->size() - i])).uid());
        }
        EXPECT_TRUE(CurrentDocument().artAtPoint({700, 20}, HitRequest::Everything)->empty());
    });
    EXPECT_EQ(easel::model::listing(desk.document()).text, before.text);
    for (std::uint64_t call = 1;; ++call) {
        bool refused = false;
        desk.inMessage([&] {
            monitor.reset(call);
            find();
            refused = monitor.calls() >= call;
            monitor.reset();
        });
        if (!refused) break;
        EXPECT_EQ(easel::model::listing(desk.document()).text, before.text) << "call " << call;
    }
    EXPECT_EQ(desk.document().journal().undoDepth(), steps);
}

TEST_F(FacadeArt, PutsNothingIntoItself) {
    withHandles([&](Handles& live) {
        EXPECT_FALSE(live.group.reorder(PaintOrder::InsideOnTop, &live.on<Art>()));
        EXPECT_FALSE(live.group.reorder(PaintOrder::Above, &live.on<Art>()));
        EXPECT_FALSE(live.around.reorder(PaintOrder::InsideOnTop, &live.around));
        EXPECT_EQ(live.group.duplicate(PaintOrder::InsideOnTop, &live.group), nullptr);
        EXPECT_FALSE(live.top.reorder(PaintOrder::AboveAll));
        EXPECT_FALSE(Layer(*Illustrator::instance()->currentDocument()->layerAtIndex(0)).isEmpty());
        EXPECT_TRUE(live.on<Layer>().dispose());
        EXPECT_TRUE(live.on<Layer>().isEmpty());
        EXPECT_TRUE(live.shut.dispose());
        EXPECT_FALSE(live.lower.dispose()); // the last one
    });
}

// What was set on a subpath once was lost on saving, because a compound path is one element.
TEST_F(FacadeArt, WhatASubpathCannotKeepIsRefused) {
    using Set = std::function<bool(Art&)>;
    const std::pair<const char*, Set> sets[] = {
        {"opacity", [](Art& a) { return a.setOpacity(0.5); }},
        {"blend mode", [](Art& a) { return a.setBlendMode(BlendMode::Screen); }},
        {"knockout", [](Art& a) { return a.setKnockout(BlendKnockout::On); }},
        {"center point", [](Art& a) { return a.setCenterPointVisible(true); }},
        {"dictionary", [](Art& a) { return a.dictionary().setInt("a", 1); }},
        {"mask", [](Art& a) { return a.mask()->copyFrom(*a.parent()->priorSibling()); }},
        {"new mask", [](Art& a) { return a.mask()->create(*a.parent()->priorSibling()); }},
        {"isolation", [](Art& a) { return a.isolate(); }},
    };
    desk.inMessage([&] {
        Art whole(ArtType::CompoundPath, PaintOrder::AboveAll);
        Art masked(ArtType::Group, PaintOrder::AboveAll);
        desk.document().setExtras(*desk.document().currentLayer().firstChild(), {.mask = "url(#m)"});
        const auto hole = draw::rect({3, 3, 6, 6}, &whole);
        static_cast<void>(draw::rect({0, 0, 9, 9}, &whole));
        const auto before = easel::model::listing(desk.document());
        for (const auto& [name, set] : sets) {
            EXPECT_FALSE(set(*hole)) << name;
            EXPECT_TRUE(easel::model::listing(desk.document()) == before) << name;
        }
        ArtStyle faint;
        faint.opacity = 0.5;
        faint.paint.stroke.width = 3;
        EXPECT_TRUE(hole->setStyle(faint));
        EXPECT_EQ(hole->style().opacity, 0.5);
        const auto again = easel::svg::read(easel::svg::write(desk.document()), "t.svg");
        const Node& ring = *again->currentLayer().firstChild()->next();
        EXPECT_EQ(ring.extras().opacity, 0.5);
        EXPECT_EQ(ring.style().strokeWidth, 3);
    });
}

TEST_F(FacadeArt, ExpandsGradientsAsAskedAndTextsAsOutlines) {
    using enum Art::ExpandOptions;
    easel::model::Document& document = desk.document();
    const easel::model::Definition gradient{"linearGradient", "g", "", "<stop stop-color='red'/><stop offset='1'/>"};
    document.setExtras(document.root(), {.definitions = {easel::model::Shared(gradient)}});
    desk.inMessage([&] {
        Art group(ArtType::Group, PaintOrder::AboveAll);
        const auto art = draw::rect({0, 0, 100, 50}, &group);
        Style style = document.currentLayer().firstChild()->firstChild()->style();
        style.setStroke(std::nullopt);
        style.setServers({"url(#g)", {}});
        document.setStyle(*document.currentLayer().firstChild()->firstChild(), style);
        EXPECT_FALSE(art->expand(Strokes | Patterns | Text, 4));
        EXPECT_TRUE(art->expand(GradientsToMeshes, 4));
        EXPECT_FALSE(art->valid());
        const auto mesh = group.firstChild()->firstChild()->firstChild();
        EXPECT_EQ(mesh->artType(), ArtType::Mesh);
        EXPECT_EQ(mesh->mesh()->columnCount(), 4);
        EXPECT_EQ(mesh->mesh()->color(0, 0), (ArtColor{0.875, 0, 0}));
        EXPECT_EQ(mesh->mesh()->color(0, 3), (ArtColor{0.125, 0, 0}));
        EXPECT_TRUE(group.expand(GradientsToPaths, 4));
        EXPECT_EQ(mesh->artType(), ArtType::Group);
        const auto word = draw::text("il", {9, 90}, "", 40, ParagraphJustification::Left, {}, &group);
        const double left = word->bounds(Art::BoundsOptions::None).left;
        EXPECT_TRUE(group.expand(Text, 4));
        const auto letters = group.firstChild();
        EXPECT_EQ(letters->matchingChildren({{MatchArtType::Path}})->size(), 3U); // a dot and two strokes
        EXPECT_NEAR(letters->bounds(Art::BoundsOptions::None).left, left, 5);
    });
}

// Transforms

TEST_F(FacadeArt, TurnsCounterClockwiseAndPlacesByPins) {
    desk.inMessage([&] {
        const auto line = draw::line({10, 10}, {30, 10});
        const auto end = [&] { return line->path()->segPoints(1, 1).front().p; };
        EXPECT_TRUE(line->move(BoundsPinPointType::MidRight, {30, 10}));
        EXPECT_TRUE(end().closeTo({30, 10}, 1e-9)); // where it was
        EXPECT_TRUE(line->rotate(Angle(90, Angle::Units::Degrees), {10, 10}));
        EXPECT_TRUE(end().closeTo({10, -10}, 1e-9)); // up
        EXPECT_TRUE(line->move(BoundsPinPointType::BottomCenter, {100, 100}));
        EXPECT_TRUE(end().closeTo({100, 80}, 1e-9));
        EXPECT_TRUE(line->scale(1, 3, BoundsPinPointType::BottomLeft));
        EXPECT_TRUE(end().closeTo({100, 40}, 1e-9));
        EXPECT_FALSE(line->scale(0));
        EXPECT_FALSE(line->offset(0, HUGE_VAL));
        EXPECT_TRUE(line->transformStrokes(4));
        EXPECT_EQ(line->path()->style().stroke.width, 4);
        EXPECT_TRUE(end().closeTo({100, 40}, 1e-9));
        const ArtboardRect box = line->strokeBounds();
        EXPECT_NEAR(box.width(), 4, 1e-9);
        EXPECT_NEAR(box.height(), 60, 1e-9); // butt caps add nothing
    });
}

TEST_F(FacadeArt, LiesOnTheArtboardThatHasMostOfIt) {
    desk.inMessage([&] {
        CurrentDocument document;
        const auto page = document.artboardAtIndex(0);
        const auto beside = document.insertArtboard({-100, -100, 10, 100});
        EXPECT_EQ(*draw::rect({-50, 10, 20, 30})->artboard(), *beside);
        EXPECT_EQ(*draw::rect({-5, 10, 60, 30})->artboard(), *page);
        EXPECT_EQ(draw::rect({-300, 10, -200, 30})->artboard(), nullptr);
    });
}

// The host's own preferences and memory

TEST_F(FacadeArt, KeepsValuesOfEachKindInTheHostsPreferences) {
    desk.inMessage([&] {
        ai::Preferences& host = *Illustrator::instance()->preferences();
        double angle = 7;
        std::int32_t number = 7;
        bool flag = false;
        std::string text = "seven";
        EXPECT_FALSE(host.getFloatPref("", "constrain/angle", angle));
        EXPECT_EQ(angle, 7);
        EXPECT_TRUE(host.setFloatPref("", "constrain/angle", 0.25) && host.setIntPref("One-19", "answer", 2));
        EXPECT_TRUE(host.setBoolPref("One-19", "asked", true) && host.setStringPref("One-19", "who", "J\xc3\xb6rg"));
        EXPECT_TRUE(host.getFloatPref("", "constrain/angle", angle) && host.getIntPref("One-19", "answer", number));
        EXPECT_TRUE(host.getBoolPref("One-19", "asked", flag) && host.getStringPref("One-19", "who", text));
        EXPECT_EQ(std::tuple(angle, number, flag, text), std::tuple(0.25, 2, true, "J\xc3\xb6rg"));
        EXPECT_TRUE(host.getFloatPref("One-19", "answer", angle));
        EXPECT_EQ(angle, 2);
        EXPECT_FALSE(host.getIntPref("", "constrain/angle", number) || host.getIntPref("Two-19", "answer", number));
        EXPECT_FALSE(host.setFloatPref("", "x", HUGE_VAL) || host.setIntPref("One-19", "", 1));
        EXPECT_TRUE(host.exists("One-19", "answer") && host.remove("One-19", "answer"));
        EXPECT_FALSE(host.exists("One-19", "answer") || host.remove("One-19", "answer"));
        void* const block = Illustrator::instance()->alloc(100);
        EXPECT_EQ(desk.session().memory.blocksInUse(), 1u);
        EXPECT_TRUE(Illustrator::instance()->free(block));
        kzo::plugin::host::monitor().reset(1);
        EXPECT_EQ(Illustrator::instance()->alloc(100), nullptr);
        kzo::plugin::host::monitor().reset();
    });
    EXPECT_EQ(desk.session().memory.blocksInUse(), 0u);
}

// Symbols and patterns

TEST_F(FacadeArt, EditsSymbolsAndPatternsAsDocumentsOfTheirOwn) {
    std::string symbol;
    std::string pattern;
    desk.inMessage([&] {
        CurrentDocument document;
        EXPECT_FALSE(document.exitSymbolEditingMode() || document.exitPatternEditingMode());
        EXPECT_FALSE(document.enterSymbolEditingMode("none") || document.enterPatternEditingMode("none"));
        symbol = document.newSymbol(*draw::line({1, 2}, {3, 4}));
        pattern = document.newPattern(*draw::line({1, 2}, {3, 4}));
        kzo::plugin::host::monitor().reset(1);
        EXPECT_FALSE(document.enterSymbolEditingMode(symbol));
        kzo::plugin::host::monitor().reset();
        EXPECT_TRUE(document.enterSymbolEditingMode(symbol));
        EXPECT_FALSE(document.inSymbolEditingMode()); // after the message
    });
    easel::model::Document* const owner = desk.session().documents.at(1);
    ASSERT_TRUE(owner);
    const std::string before = easel::svg::write(*owner);
    const std::size_t steps = owner->journal().undoDepth();
    const auto edit = [&](auto exits) {
        desk.inMessage([&] {
            CurrentDocument document;
            EXPECT_EQ(document.artOfType(MatchArtType::Path)->size(), 1U);
            draw::line({5, 6}, {7, 8});
            exits(document);
        });
        EXPECT_EQ(&desk.document(), owner);
    };
    edit([&](CurrentDocument& document) {
        EXPECT_EQ(document.editedSymbol(), symbol);
        EXPECT_FALSE(document.inPatternEditingMode() || document.exitPatternEditingMode());
        EXPECT_TRUE(document.exitSymbolEditingMode());
    });
    EXPECT_EQ(owner->journal().undoDepth(), steps + 1);
    EXPECT_NE(easel::svg::write(*owner), before);
    EXPECT_TRUE(owner->journal().undo());
    EXPECT_EQ(easel::svg::write(*owner), before);
    desk.inMessage([&] { EXPECT_TRUE(CurrentDocument().enterPatternEditingMode(pattern)); });
    edit([&](CurrentDocument& document) {
        EXPECT_EQ(document.editedPattern(), pattern);
        EXPECT_TRUE(document.exitPatternEditingMode());
    });
    EXPECT_EQ(owner->journal().undoDepth(), steps + 1);
}

// Sharing

TEST_F(FacadeArt, HandlesOfOneObjectAreOneUntilItIsDisposedOf) {
    using Map = kzo::plugin::MapOf<kzo::plugin::Art>;
    EXPECT_FALSE(Map::exists());
    desk.inMessage([&] {
        EXPECT_EQ(Art(), Art());
        const auto line = draw::line({0, 0}, {10, 0});
        Art copy = *line;
        const Art separate(line->aiArtHandle());
        EXPECT_EQ(separate, copy);
        EXPECT_FALSE(copy == Art());
        copy = copy; // NOLINT(clang-diagnostic-self-assign-overloaded): sharing must survive it
        EXPECT_FALSE(copy.isEmpty());
        EXPECT_TRUE(copy.dispose());
        EXPECT_TRUE(line->isEmpty());
        EXPECT_TRUE(separate.isEmpty());
        EXPECT_FALSE(separate.valid());
        EXPECT_FALSE(copy.dispose());
        const Art later = *line; // shares the emptied object
        EXPECT_TRUE(later.isEmpty());
        EXPECT_EQ(later, Art());
        EXPECT_FALSE(Map::exists()); // which is no longer known by its key
    });
    EXPECT_FALSE(Map::exists()); // the last handle took the map along
    desk.inMessage([&] { EXPECT_FALSE(draw::line({0, 0}, {10, 0})->isEmpty()); });
}

// A handle came alive again when another was made of the handle that the host gave out anew.
TEST_F(FacadeArt, ADisposedHandleStaysEmptyThoughUndoBringsTheObjectBack) {
    ArtObject* handle = nullptr;
    Art kept;
    desk.inMessage([&] {
        kept = *draw::line({0, 0}, {10, 0});
        handle = kept.aiArtHandle();
    });
    desk.inMessage([&] { kept.dispose(); });
    EXPECT_TRUE(desk.document().journal().undo());
    desk.inMessage([&] {
        const Art again(handle);
        EXPECT_EQ(again.path()->segPointCount(), 2);
        EXPECT_TRUE(kept.isEmpty());
        EXPECT_FALSE(kept == again);
        Art copy = again;
        copy = kept;
        EXPECT_TRUE(copy.isEmpty());
    });
}

TEST_F(FacadeArt, ListsSelectionAndChildrenInOrder) {
    desk.inMessage([&] {
        CurrentDocument& document = *Illustrator::instance()->currentDocument();
        EXPECT_TRUE(document.selectedArt()->empty());
        const auto group = document.firstLayer()->group()->firstChild();
        std::vector<ArtObject*> children;
        for (auto at = group->begin(); !at.atEnd(); ++at) children.push_back(at.art()->aiArtHandle());
        ASSERT_EQ(children.size(), 3u);
        Art(children[2]).select();
        Art(children[0]).select();
        EXPECT_TRUE(document.anyArtSelected());
        const auto selected = document.selectedArt();
        ASSERT_EQ(selected->size(), 2u);
        EXPECT_EQ((*selected)[0].aiArtHandle(), children[0]);
        EXPECT_EQ((*selected)[1].aiArtHandle(), children[2]);
        document.deselectAllArt();
        EXPECT_FALSE(document.anyArtSelected());
    });
    EXPECT_EQ(desk.session().memory.blocksInUse(), 0u);
}

// Paths

TEST_F(FacadeArt, CountsSegmentsAndClampsIndices) {
    withHandles([&](Handles& live) {
        PathArt* const closed = live.on<Art>().path();
        EXPECT_EQ(closed->segPointCount(), 3);
        EXPECT_EQ(closed->segCount(), 3);
        EXPECT_EQ(closed->segPoints(-5, 2).front().p, ArtboardPoint(100, 20));
        EXPECT_EQ(closed->segPoints(9, 9).size(), 1u); // the last point, and no more than there is
        EXPECT_EQ(closed->segPoints(0, -1).size(), 0u);
        EXPECT_EQ(closed->bezier(99)->endPoint(), ArtboardPoint(100, 20)); // the closing segment
        closed->setSegCount(4);
        EXPECT_EQ(closed->segPointCount(), 4);
        closed->setClosed(false);
        EXPECT_EQ(closed->segCount(), 3);
        closed->setSegCount(4);
        EXPECT_EQ(closed->segPointCount(), 5);
        closed->setSegPointCount(1);
        EXPECT_EQ(closed->segCount(), 0);
        EXPECT_EQ(closed->bezier(0), nullptr);
        closed->setSegPointCount(0);
        EXPECT_EQ(closed->segCount(), 0);
        // Equally near: the lower index
        const auto tie = draw::line({0, 0}, {20, 0});
        EXPECT_EQ(tie->path()->segPointClosestToPoint({10, 3}), 0);
        ArtboardPoint first;
        ArtboardPoint last;
        tie->path()->endPoints(first, last);
        EXPECT_EQ(last, ArtboardPoint(20, 0));
        // A group is no path, whatever is asked of it
        live.group.path()->setSegPointCount(3);
        live.group.path()->reverseSegs();
        EXPECT_EQ(live.group.path()->segPointCount(), 0);
    });
}

} // namespace
