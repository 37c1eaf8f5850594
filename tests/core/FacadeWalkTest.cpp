// A walk at random through the facade's operations, in messages that are undone and redone in between.
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <random>

#include "FacadeRows.h"
#include "core/document/Draw.h"
#include "suites/Arguments.h"
#include "support/Desk.h"
#include "support/Drawing.h"

namespace {

using namespace facade;
using easel::model::Node;
using easel::model::NodeType;

class Walk {
  public:
    explicit Walk(std::uint32_t seed) : engine_(seed) {
        for (const auto& row : allCommands()) addIfOfTheDocument(row.name, row.run);
        for (const auto& row : allQueries())
            addIfOfTheDocument(row.name, [row](Handles& h) { static_cast<void>(row.shown(h)); });
        for (const auto& row : documentCommands()) steps_.push_back({row.name, row.run});
        for (const auto& row : documentQueries())
            steps_.push_back({row.name, [row](Handles& h) { static_cast<void>(row.shown(h)); }});
        addPathRows();
        addMakers();
        // These come with drawings.
        desk_.document().setExtras(desk_.addPath({{1, 1}, {9, 9}}), {.mask = "url(#mask)"});
        desk_.document().setExtras(
            desk_.document().root(),
            {.definitions = {easel::model::Shared(easel::model::Definition{
                 "linearGradient", "gradient", "", "<stop stop-color='red'/><stop offset='1'/>"})}});
    }

    void run(std::size_t operations) {
        while (done_ < operations && !testing::Test::HasFailure()) message();
        desk_.document().settings.isolated = {};
    }

    [[nodiscard]] std::map<std::string, std::size_t> counts() const {
        std::map<std::string, std::size_t> counts;
        for (const Step& step : steps_) counts[step.name] += step.count;
        return counts;
    }

  private:
    struct Step {
        std::string name;
        std::function<void(Handles&)> run;
        std::size_t count = 0;
    };

    std::size_t below(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(engine_); }
    double coordinate() { return std::uniform_real_distribution<double>(0, 300)(engine_); }
    ArtboardPoint point() { return {coordinate(), coordinate()}; }

    /// Tools, menus and the like belong to no document.
    void addIfOfTheDocument(const std::string& name, std::function<void(Handles&)> run) {
        const std::string kind = name.substr(0, name.find(':'));
        for (const char* known : {"Art", "PathArt", "Layer", "Artboard", "View", "Dictionary", "CurrentDocument",
                                  "TextArt", "PlacedArt", "RasterArt", "MeshArt", "CustomArt", "MaskArt"})
            if (kind == known) steps_.push_back({name, std::move(run)});
    }

    void addPathRows() {
        const auto add = [&](const char* name, auto run) {
            steps_.push_back({std::string("PathArt::") + name, [run](Handles& h) { run(h.on<PathArt>()); }});
        };
        using P = PathArt;
        add("insertSegPoints", [&](P& p) { p.insertSegPoints(1, {ArtboardSegPoint(point(), false)}); });
        add("insertSegPointAtT", [](P& p) { p.insertSegPointAtT(0, 0.25); });
        add("deleteSegPoints", [](P& p) { p.deleteSegPoints(1, 1); });
        add("rotateSegPoints", [](P& p) { p.rotateSegPoints(-1); });
        add("insertSegs", [&](P& p) { p.insertSegs(0, {ArtboardSegPoint(point(), true)}); });
        add("deleteSegs", [](P& p) { p.deleteSegs(1, 1); });
        add("setSegPointSelected", [](P& p) { p.setSegPointSelected(0, SegPointSelectionState::Anchor); });
        add("setWindingOrder", [](P& p) { p.setWindingOrder(WindingOrderType::CounterClockwise); });
        add("setStrokeAlignment", [](P& p) { p.setStrokeAlignment(StrokeAlignment::Inside); });
        add("trim", [](P& p) {
            if (const auto bezier = p.bezier(0)) p.trim(hit(bezier->evaluate(0.5)), TrimDirectionType::TowardsEnd);
        });
        add("extend", [&](P& p) { p.extend(hit(point()), hit(point())); });
        add("segs", [](P& p) { static_cast<void>(p.segs(0, 2)); });
        add("segPointSelected", [](P& p) { static_cast<void>(p.segPointSelected(0)); });
        add("allSegPointsSelected", [](P& p) { static_cast<void>(p.allSegPointsSelected()); });
        add("segSelected", [](P& p) { static_cast<void>(p.segSelected(0)); });
        add("phantomSegPoints", [](P& p) { static_cast<void>(p.phantomSegPoints()); });
        add("phantomSeg", [](P& p) { static_cast<void>(p.phantomSeg(0)); });
        add("hasLength", [](P& p) { static_cast<void>(p.hasLength()); });
        add("sublength", [](P& p) { static_cast<void>(p.sublength(0, 0.25, 1, 0.5)); });
        add("tAtLength", [](P& p) { static_cast<void>(p.tAtLength(0, 5)); });
        add("midPoint", [](P& p) { static_cast<void>(p.midPoint()); });
        add("area", [](P& p) { static_cast<void>(p.area()); });
        add("windingOrder", [](P& p) { static_cast<void>(p.windingOrder()); });
        add("containsPoint", [&](P& p) { static_cast<void>(p.containsPoint(point())); });
        add("angle", [](P& p) {
            Angle angle;
            p.angle(angle);
        });
        add("isStraight", [](P& p) { static_cast<void>(p.isStraight()); });
        add("hasStraightSegs", [](P& p) { static_cast<void>(p.hasStraightSegs()); });
        add("isCircular", [](P& p) { static_cast<void>(p.isCircular()); });
        add("isRectangular", [](P& p) { static_cast<void>(p.isRectangular()); });
        add("getIntersections", [](P& p) { static_cast<void>(p.getIntersections()); });
        add("isGuide", [](P& p) { static_cast<void>(p.isGuide()); });
        add("style", [](P& p) { static_cast<void>(p.style()); });
        add("endPoints", [](P& p) {
            ArtboardPoint first;
            ArtboardPoint last;
            p.endPoints(first, last);
        });
    }

    [[nodiscard]] static HitData hit(const ArtboardPoint& at) {
        return HitData(nullptr, at, HitRequest::AnchorsAndSegments, 2, true);
    }

    void addMakers() {
        steps_.push_back(
            {"draw::line", [&](Handles& h) { draw::line(point(), point(), h.group.isEmpty() ? nullptr : &h.group); }});
        steps_.push_back({"draw::rect", [&](Handles& h) { draw::rect({1, 2, coordinate(), 90}, &h.top); }});
        for (const ArtType type : {ArtType::Placed, ArtType::Mesh, ArtType::PluginGroup})
            steps_.push_back({"Art::Art", [type](Handles& h) { Art(type, PaintOrder::InsideOnTop, &h.top); }});
        steps_.push_back({"draw::text", [&](Handles& h) {
                              draw::text("word", point(), "", 9, ParagraphJustification::Left, {}, &h.top);
                          }});
        const auto expands = [&](auto make) {
            steps_.push_back({"Art::expand", [this, make](Handles& h) {
                                  if (expanded_.valid())
                                      expanded_.dispose(); // what comes of them would soon be most of the document
                                  expanded_ = Art(ArtType::Group, PaintOrder::InsideOnTop, &h.top);
                                  make(expanded_);
                              }});
        };
        expands([&](const Art& group) {
            const auto art = draw::rect({9, 9, coordinate(), 90}, &group);
            if (!art) return;
            Node& node = easel::suites::resolveArt(art->aiArtHandle()).node;
            easel::model::Style style = node.style();
            style.setServers({"url(#gradient)", "url(#pattern-1)"});
            desk_.document().setStyle(node, style);
            using enum Art::ExpandOptions;
            art->expand(below(2) == 0 ? GradientsToMeshes : Strokes | Patterns, 5);
        });
        expands([](const Art& group) {
            const auto text = draw::text("word", {9, 9}, "", 9, ParagraphJustification::Left, {}, &group);
            if (text) text->expand(Art::ExpandOptions::Text, 1);
        });
        steps_.push_back({"Art::duplicate", [&](Handles& h) {
                              static_cast<void>(h.on<Art>().duplicate(PaintOrder::InsideOnTop, &h.group));
                          }});
        steps_.push_back({"Art::reorder", [&](Handles& h) { h.on<Art>().reorder(PaintOrder::InsideOnTop, &h.group); }});
        steps_.push_back({"Art::dispose", [&](Handles& h) { h.within.dispose(); }});
        steps_.push_back({"Layer::dispose", [&](Handles& h) { h.lower.dispose(); }});
        steps_.push_back({"Artboard::dispose", [&](Handles& h) { h.on<Artboard>().dispose(); }});
        steps_.push_back({"CurrentDocument::setCurrentArtboard",
                          [&](Handles& h) { CurrentDocument().setCurrentArtboard(h.on<Artboard>()); }});
        steps_.push_back({"CurrentDocument::deselectAllArt", [](Handles&) { CurrentDocument().deselectAllArt(); }});
        steps_.push_back({"CurrentDocument::artAtPoint", [&](Handles&) {
                              static_cast<void>(CurrentDocument().artAtPoint(point(), HitRequest::Everything));
                          }});
    }

    /// Handles on what is there at the moment.
    [[nodiscard]] Handles pick() {
        easel::model::Document& document = desk_.document();
        std::vector<Node*> art;
        std::vector<Node*> groups;
        for (Node* const node : easel::model::allNodes(document)) {
            if (node->type() == NodeType::Group) groups.push_back(node);
            if (node->type() != NodeType::Layer) art.push_back(node);
        }
        const auto any = [&](const std::vector<Node*>& nodes) {
            return nodes.empty() ? Art() : Art(easel::suites::artHandle(document, nodes[below(nodes.size())]));
        };
        const auto layer = [&] { return *CurrentDocument().layerAtIndex(int(below(document.layerCount()))); };
        Handles h;
        h.on<Art>() = any(art);
        h.group = any(groups);
        h.around = any(groups);
        h.within = art.size() > 40 || below(4) == 0 ? any(art) : Art();
        for (Art* const view : {&h.words, &h.placed, &h.raster, &h.mesh, &h.custom, &h.instance, &h.clipped})
            *view = any(art);
        h.on<Layer>() = layer();
        h.lower = document.layerCount() > 3 ? layer() : Layer();
        h.top = *h.on<Layer>().group();
        const int boards = CurrentDocument().artboardCount();
        h.on<Artboard>() = *CurrentDocument().artboardAtIndex(int(below(std::size_t(boards))));
        h.on<View>() = *CurrentDocument().currentView();
        return h;
    }

    void message() {
        easel::model::Document& document = desk_.document();
        easel::model::Journal& journal = document.journal();
        const auto before = easel::model::listing(document);
        const std::size_t depth = journal.undoDepth();
        std::string names;
        desk_.inMessage([&] {
            for (std::size_t i = below(10) + 1; i > 0; --i) {
                Step& step = steps_[below(steps_.size())];
                names += step.name + ' ';
                Handles h = pick();
                step.run(h);
                ++step.count;
                ++done_;
            }
        });
        SCOPED_TRACE(names);
        if (journal.undoDepth() != depth + 1) return;
        const auto after = easel::model::listing(document);
        EXPECT_TRUE(journal.undo());
        EXPECT_TRUE(easel::model::listing(document) == before) << "undone";
        EXPECT_TRUE(journal.redo());
        EXPECT_TRUE(easel::model::listing(document) == after) << "redone";
        if (below(3) == 0) journal.undo();
    }

    desk::Desk desk_;
    std::mt19937 engine_;
    std::vector<Step> steps_;
    std::size_t done_ = 0;
    Art expanded_; ///< the group with what was taken apart last
};

// As many operations as FACADE_WALK says, which also prints how often each was run.
TEST(FacadeWalk, UndoAndRedoBringBackWhatWas) {
    const char* const asked = std::getenv("FACADE_WALK");
    const std::uint32_t seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    Walk walk(seed);
    walk.run(asked ? std::stoul(asked) : 10'000);
    for (const auto& [name, count] : walk.counts()) {
        EXPECT_GT(count, 0u) << name;
        if (asked) std::cout << count << ' ' << name << '\n';
    }
}

} // namespace
