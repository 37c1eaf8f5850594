// Handles of every kind on real objects, for what is asked of the facade.
#pragma once

#include <gmock/gmock.h>

#include "FacadeRows.h"
#include "core/app/Illustrator.h"
#include "core/document/Draw.h"
#include "places/Places.h"
#include "support/Desk.h"
#include "support/Drawing.h"
#include "support/Receiver.h"
#include "tool/Plugin.h"

namespace facade {

using easel::model::Node;

class FacadeTest : public testing::Test {
  protected:
    FacadeTest() {
        other.options = 2 | 4 | 64; // the third has no name with us
        desk.session().start();
    }

    [[nodiscard]] static MenuGroup newGroup() {
        return {BuiltinMenuGroup::Preferences, "Group", true, true, true, false};
    }

    /// Runs `work` with handles on real objects.
    void withHandles(const std::function<void(Handles&)>& work) {
        desk.selectTool();
        desk.session().pointer.setModifiers(kAIShiftKey);
        desk.document().addLayer("Above");
        desk.document().select(pathNode, true);
        desk.inMessage([&] {
            const auto document = Illustrator::instance()->currentDocument();
            Handles live;
            live.on<Layer>() = *document->layerAtIndex(0);
            live.on<Tool>() = ortho::Plugin::instance()->lineTool();
            const auto lower = document->layerAtIndex(1)->group();
            live.group = *lower->firstChild();
            live.on<Art>() = *live.group.firstChild()->sibling();
            live.top = *lower;
            live.lower = *document->layerAtIndex(1);
            live.on<Artboard>() = *document->artboardAtIndex(0);
            live.on<View>() = *document->currentView();
            PathStyle thick;
            thick.stroke.width = 2;
            live.words = *draw::text("words", {600, 500}, "", 12, ParagraphJustification::Left, {}, thick, lower.get());
            makeViews(live, lower.get());
            live.around = Art(ArtType::Group, PaintOrder::InsideOnBottom, lower.get());
            live.within = *draw::line({500, 500}, {510, 510}, &live.around);
            live.around.setAttribute(ArtAttribute::Locked | ArtAttribute::Hidden, true);
            live.around.select(); // as a plug-in may
            live.on<HitData>() = HitData(nullptr, {100, 60}, HitRequest::Everything, 1, false);
            live.on<Tool>().setCursorLoc({100, 60});
            live.on<MenuGroup>() = newGroup();
            live.divider = MenuItem::Divider(live.on<MenuGroup>());
            live.on<MenuItem>() = MenuItem(live.on<MenuGroup>(), "Item", receiver.callback());
            live.on<MenuItem>().setChecked(true);
            live.on<Timer>() = Timer("Timer", 0.5, receiver.callback());
            live.on<Annotator>() = Annotator("Marks", receiver.callback());
            live.on<Annotator>().setOptions(Annotator::Options::Second);
            live.on<ThirdPartyPlugin>() = Illustrator::instance()->allPlugins()["Answering"];
            Node& marked = *desk.document().find(pathNode.id());
            desk.document().setLocked(marked, true);
            desk.document().setHidden(marked, true);
            desk.document().select(marked, true);
            style(live);
            // The upper layer holds a copy of nothing but a selected line and the hit's target stays below.
            const auto line = draw::line({0, 0}, {10, 10}, live.on<Layer>().group().get());
            line->select();
            work(live);
        });
    }

    /// Art of the kinds that have views of their own.
    void makeViews(Handles& live, const Art* lower) {
        using enum PaintOrder;
        live.placed = Art(ArtType::Placed, InsideOnBottom, lower);
        EXPECT_TRUE(live.placed.placed()->setFilePath(pictureFile("picture", 3, 2)));
        live.raster = Art(ArtType::Placed, InsideOnBottom, lower);
        EXPECT_TRUE(live.raster.placed()->setFilePath(pictureFile("picture", 3, 2)) && live.raster.placed()->embed());
        live.mesh = Art(ArtType::Mesh, InsideOnBottom, lower);
        EXPECT_TRUE(live.mesh.mesh()->init(2, 3, {0, 0, 30, 20}) && live.mesh.mesh()->setColor(1, 2, {1, 0, 0}));
        live.custom = Art(ArtType::PluginGroup, InsideOnBottom, lower);
        EXPECT_TRUE(live.custom.customArt()->setName("Box"));
        Node& custom = *desk.document().findByName("Box"); // masks come with drawings
        desk.document().setExtras(custom, [extras = custom.extras()]() mutable {
            extras.mask = "url(#mask)";
            extras.maskDisabled = true;
            return extras;
        }());
        live.clipped = Art(ArtType::Group, InsideOnBottom, lower);
        static_cast<void>(draw::line({900, 900}, {950, 900}, &live.clipped));
        static_cast<void>(draw::rect({910, 890, 920, 910}, &live.clipped));
        EXPECT_TRUE(live.clipped.setIsClipGroup(true));
        CurrentDocument document;
        EXPECT_EQ(document.newSymbol(live.mesh), "symbol-1");
        EXPECT_EQ(document.newSymbol(live.words), "symbol-2");
        EXPECT_EQ(document.newPattern(live.mesh), "pattern-1");
        live.instance = *document.newSymbolInstance("symbol-1", InsideOnBottom, lower);
        EXPECT_TRUE(live.placed.offset(5, 0) && live.raster.offset(5, 0)); // their matrices say something
    }

    /// Gives the art all that can be asked of it.
    void style(Handles& live) {
        Art& art = live.on<Art>();
        ArtStyle look;
        look.opacity = 0.5;
        look.blendMode = BlendMode::Multiply;
        look.knockout = BlendKnockout::On;
        look.paint.fill.painted = true;
        look.paint.stroke.width = 3;
        art.setStyle(look);
        art.setCenterPointVisible(true);
        Dictionary data = art.dictionary();
        EXPECT_TRUE(data.setBool("flag", true) && data.setInt("number", 5) && data.setFloat("length", 2.5));
        EXPECT_TRUE(data.setString("text", "words") && Dictionary().setInt("number", 6));
        live.shut = Layer(PaintOrder::BelowAll);
        EXPECT_TRUE(live.shut.setLocked(true) && CurrentDocument().setCurrentLayer(live.on<Layer>()));
        EXPECT_TRUE(live.around.isolate());
        CurrentDocument document;
        EXPECT_TRUE(document.setGrid({36, 4, true, false}) &&
                    document.setDefaultTextStyle({{"Serif", 9}, ParagraphJustification::Left}));
        PathStyle thick;
        thick.stroke.width = 2;
        EXPECT_TRUE(document.setDefaultPathStyle(thick));
        desk.document().settings.textFocus = desk.document().find(pathNode.id())->id(); // as good as any
        desk.session().documents.setPath(desk.document(), "/tmp/drawing.svg");
        document.setModified(true);
    }

    desk::Receiver receiver;
    desk::Desk desk;
    easel::session::Plugin& other = desk.session().plugins.load(std::string(TEST_BUILD_DIR) + "/Answering.aip");
    Node& groupNode = desk.document().create(easel::model::NodeType::Group, easel::model::Placement::OnTopInside,
                                             desk.document().currentLayer());
    Node& lowNode = desk.addPath({{1, 1}, {2, 2}}, false, &groupNode);
    Node& pathNode = desk.addPath({{100, 20}, {100, 60}, {140, 60}}, true, &groupNode);
    Node& topNode = desk.addPath({{100, 60}, {300, 60}}, false, &groupNode);
};

} // namespace facade
