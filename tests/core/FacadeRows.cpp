// One table a class.
#include "FacadeRows.h"

#include "core/app/Illustrator.h"
#include "core/document/Draw.h"
#include "core/values/TransformMatrix.h"
#include "support/Folder.h"

namespace facade {

std::string pictureFile(const std::string& name, int columns, int rows) {
    static const desk::Folder folder;
    const auto byte = [](int value) { return static_cast<char>(value); };
    std::string head = "\x89PNG\r\n\x1a\n";
    head += {0, 0, 0, 13, 'I', 'H', 'D', 'R', 0, 0, 0, byte(columns), 0, 0, 0, byte(rows)};
    return folder.write(name, head);
}

namespace {

using operations::asks, operations::changes, operations::changesWith, operations::knows, operations::nothing;

/// A query that takes arguments.
template <class Ask> void asksWith(Queries& rows, const char* name, Ask ask) {
    rows.push_back({name, [ask](const Handles& h) { return operations::isNeutral<nothing>(ask(h)); },
                    [ask](const Handles& h) { return operations::shown(ask(h)); }});
}

Queries queriesOfArt() {
    Queries rows;
    knows<nothing, &Art::aiArtHandle>(rows);
    asks<nothing, &Art::valid, &Art::artType, &Art::selected, &Art::locked, &Art::hidden, &Art::parent, &Art::sibling,
         &Art::priorSibling>(rows);
    asksWith(rows, "Art::attribute",
             [](const Handles& h) { return h.on<Art>().attribute(ArtAttribute::FullySelected); });
    asksWith(rows, "Art::firstChild", [](const Handles& h) { return h.group.firstChild() != nullptr; });
    asks<nothing, &Art::allAttributes, &Art::fullySelected, &Art::layer, &Art::strokeBounds, &Art::noStrokeBounds,
         &Art::x, &Art::y, &Art::width, &Art::height>(rows);
    asks<nothing, &Art::uid, &Art::hasFill, &Art::hasStroke, &Art::opacity, &Art::blendMode, &Art::knockout,
         &Art::inheritedKnockout, &Art::isStyled, &Art::centerPointVisible, &Art::style, &Art::area, &Art::perimeter,
         &Art::artboard, &Art::allArtboards>(rows);
    asksWith(rows, "Art::matchingChildren", [](const Handles& h) { return h.group.matchingChildren({{}})->size(); });
    asksWith(rows, "Art::canIsolate", [](const Handles& h) { return h.group.canIsolate(); });
    asksWith(rows, "Art::isIsolated", [](const Handles& h) { return h.within.isIsolated(); });
    asksWith(rows, "Dictionary::keys", [](const Handles& h) { return h.on<Art>().dictionary().keys(); });
    asksWith(rows, "Dictionary::getBool", [](const Handles& h) {
        bool value = false;
        return h.on<Art>().dictionary().getBool("flag", value) && value;
    });
    asksWith(rows, "Dictionary::getInt", [](const Handles& h) {
        std::int32_t value = 0;
        return h.on<Art>().dictionary().getInt("number", value) ? value : 0;
    });
    asksWith(rows, "Dictionary::getFloat", [](const Handles& h) {
        double value = 0;
        return h.on<Art>().dictionary().getFloat("length", value) ? value : 0;
    });
    asksWith(rows, "Dictionary::getString", [](const Handles& h) {
        std::string value;
        return h.on<Art>().dictionary().getString("text", value) ? value : "";
    });
    asksWith(rows, "Art::isLayerGroup", [](const Handles& h) { return h.top.isLayerGroup(); });
    asksWith(rows, "Art::editable", [](const Handles& h) { return h.group.editable(); });
    asksWith(rows, "Art::anyAncestorSelected", [](const Handles& h) { return h.within.anyAncestorSelected(); });
    asksWith(rows, "Art::anyAncestorLocked", [](const Handles& h) { return h.within.anyAncestorLocked(); });
    asksWith(rows, "Art::anyAncestorHidden", [](const Handles& h) { return h.within.anyAncestorHidden(); });
    asksWith(rows, "Art::lastChild", [](const Handles& h) { return h.group.lastChild() != nullptr; });
    asksWith(rows, "Art::childCount", [](const Handles& h) { return h.group.childCount(); });
    asksWith(rows, "Art::bounds", [](const Handles& h) { return h.group.bounds(Art::BoundsOptions::Controls); });
    asksWith(rows, "Art::transformBounds", [](const Handles& h) {
        return h.group.transformBounds({0, 1, -1, 0, 9, 9}, Art::BoundsOptions::None);
    });
    asksWith(rows, "Art::begin", [](const Handles& h) { return !h.group.begin().atEnd(); });
    return rows;
}

Queries queriesOfPathArt() {
    Queries rows;
    asks<nothing, &PathArt::segPointCount, &PathArt::segCount, &PathArt::closed, &PathArt::length>(rows);
    asksWith(rows, "PathArt::segPoints", [](const Handles& h) { return h.on<PathArt>().segPoints(0, 4); });
    asksWith(rows, "PathArt::segPointClosestToPoint",
             [](const Handles& h) { return h.on<PathArt>().segPointClosestToPoint(ArtboardPoint(100, 60)); });
    asksWith(rows, "PathArt::bezier", [](const Handles& h) { return h.on<PathArt>().bezier(0) != nullptr; });
    return rows;
}

Queries queriesOfViews() {
    Queries rows;
    asks<nothing, &TextArt::canChange, &TextArt::contents, &TextArt::justification, &TextArt::orientation,
         &TextArt::paint, &TextArt::anchor>(rows);
    asksWith(rows, "TextArt::font", [](const Handles& h) { return h.words.text()->font().size; });
    asks<nothing, &PlacedArt::filePath, &PlacedArt::pixelSize, &PlacedArt::matrix>(rows);
    asks<nothing, &RasterArt::pixelSize, &RasterArt::matrix>(rows);
    asks<nothing, &MeshArt::rowCount, &MeshArt::columnCount>(rows);
    asksWith(rows, "MeshArt::color", [](const Handles& h) { return h.mesh.mesh()->color(1, 2).red; });
    asks<nothing, &CustomArt::pluginName, &CustomArt::name, &CustomArt::editArt, &CustomArt::resultArt>(rows);
    asks<nothing, &MaskArt::exists, &MaskArt::disabled>(rows);
    asksWith(rows, "Art::isClipGroup", [](const Handles& h) { return h.clipped.isClipGroup(); });
    asksWith(rows, "Art::symbol", [](const Handles& h) { return h.instance.symbol(); });
    const auto asksApplication = [&](const char* name, auto ask) {
        asksWith(rows, name, [ask](const Handles& h) {
            return h.group.isEmpty() ? decltype(ask(*Illustrator::instance()))() : ask(*Illustrator::instance());
        });
    };
    asksApplication("Illustrator::clearFontCache", [](Illustrator& i) { return i.clearFontCache(); });
    asksApplication("Illustrator::cacheFonts", [](Illustrator& i) { return i.cacheFonts(); });
    asksApplication("Illustrator::fonts", [](Illustrator& i) { return i.fonts(); });
    asksWith(rows, "Art::updateBounds", [](const Handles& h) { return Art(h.top).updateBounds(); });
    return rows;
}

Queries queriesOfLayer() {
    Queries rows;
    knows<nothing, &Layer::aiLayerHandle>(rows);
    asks<nothing, &Layer::title, &Layer::visible, &Layer::editable, &Layer::hasSelectedArt, &Layer::next,
         &Layer::group>(rows);
    asksWith(rows, "Layer::prior", [](const Handles& h) { return h.lower.prior() != nullptr; });
    asksWith(rows, "Layer::firstArt", [](const Handles& h) { return h.lower.firstArt() != nullptr; });
    asksWith(rows, "Layer::locked", [](const Handles& h) { return h.shut.locked(); });
    knows<nothing, &Artboard::aiArtboardHandle>(rows);
    asks<nothing, &Artboard::title, &Artboard::bounds>(rows);
    asks<-1, &Artboard::index>(rows);
    knows<nothing, &View::aiDocumentViewHandle>(rows);
    asks<nothing, &View::bounds, &View::center, &View::zoom>(rows);
    return rows;
}

Queries queriesOfTool() {
    Queries rows;
    asks<nothing, &Tool::title, &Tool::tip, &Tool::options, &Tool::selected, &Tool::shiftKeyDown>(rows);
    asks<-2, &Tool::number>(rows);
    knows<nothing, &Tool::aiToolHandle, &Tool::lightIconID, &Tool::darkIconID, &Tool::mouseDownCallback>(rows);
    asksWith(rows, "Tool::cursorHitData", [](const Handles& h) {
        const auto hit = h.on<Tool>().cursorHitData(HitRequest::Everything, 2);
        return hit && hit->hit();
    });
    return rows;
}

Queries queriesOfHitData() {
    Queries rows;
    knows<nothing, &HitData::hit, &HitData::hitType, &HitData::art, &HitData::inGroup>(rows);
    knows<-1, &HitData::segPointIndex>(rows);
    return rows;
}

Queries queriesOfMenus() {
    Queries rows;
    knows<nothing, &MenuGroup::aiMenuGroup>(rows);
    asks<nothing, &MenuGroup::aiMenuItemHandle, &MenuGroup::text, &MenuGroup::enabled, &MenuGroup::sorted,
         &MenuGroup::isPartial, &MenuGroup::parent, &MenuGroup::children>(rows);
    knows<nothing, &MenuItem::aiMenuItemHandle, &MenuItem::callback>(rows);
    asks<nothing, &MenuItem::text, &MenuItem::enabled, &MenuItem::checked, &MenuItem::parent>(rows);
    asksWith(rows, "MenuItem::isDivider", [](const Handles& h) { return h.divider.isDivider(); });
    return rows;
}

Queries queriesOfTheRest() {
    Queries rows;
    knows<nothing, &Timer::aiTimerHandle, &Timer::callback>(rows);
    asks<nothing, &Timer::name, &Timer::delay, &Timer::active>(rows);
    knows<nothing, &Annotator::aiAnnotatorHandle, &Annotator::callback>(rows);
    asks<nothing, &Annotator::name, &Annotator::options, &Annotator::active>(rows);
    knows<nothing, &ThirdPartyPlugin::spPluginRef>(rows);
    asks<nothing, &ThirdPartyPlugin::name, &ThirdPartyPlugin::fileName, &ThirdPartyPlugin::filePath,
         &ThirdPartyPlugin::options, &ThirdPartyPlugin::started>(rows);
    asks<true, &ThirdPartyPlugin::broken>(rows);
    return rows;
}

} // namespace

Queries allQueries() {
    Queries all;
    for (const auto& table : {queriesOfArt(), queriesOfPathArt(), queriesOfViews(), queriesOfLayer(), queriesOfTool(),
                              queriesOfHitData(), queriesOfMenus(), queriesOfTheRest()})
        all.insert(all.end(), table.begin(), table.end());
    return all;
}

Commands allCommands() {
    const PathArt::SegPoints points = {ArtboardSegPoint({1, 2}, true), ArtboardSegPoint({3, 4}, true)};
    PathStyle wide;
    wide.stroke.width = 7;
    Commands rows;
    changes<&Art::deselect>(rows);
    changes<&Art::select>(rows);
    changes<&Art::setAttribute>(rows, ArtAttribute::Hidden, false);
    changes<&Art::setAllAttributes>(rows, ArtAttribute::Locked);
    changes<&Art::setSelected>(rows, false);
    changes<&Art::setLocked>(rows, false);
    changes<&Art::setHidden>(rows, false);
    changes<&Art::setEditable>(rows, true);
    changes<&Art::offset>(rows, 3.0, 4.0, true);
    changes<&Art::transform>(rows, TransformMatrix(2, 0, 0.5, 1, 0, 0), true);
    changes<&Art::transformWithOptions>(rows, TransformMatrix(2, 0, 0, 2, 0, 0), 2.0,
                                        Art::TransformOptions::Objects | Art::TransformOptions::ScaleLines);
    changes<&Art::transformStrokes>(rows, 3.0);
    changes<&Art::setOpacity>(rows, 0.25);
    changes<&Art::setBlendMode>(rows, BlendMode::Screen);
    changes<&Art::setKnockout>(rows, BlendKnockout::Off);
    changes<&Art::setCenterPointVisible>(rows, false);
    ArtStyle faint;
    faint.opacity = 0.125;
    faint.paint.stroke.overprint = true;
    changes<&Art::setStyle>(rows, faint);
    changesWith(rows, "Art::disposeChildren", [](Handles& h) { h.around.disposeChildren(); });
    changesWith(rows, "Art::duplicate",
                [](Handles& h) { static_cast<void>(h.on<Art>().duplicate(PaintOrder::Above, &h.on<Art>())); });
    changesWith(rows, "Art::reorder", [](Handles& h) { h.on<Art>().reorder(PaintOrder::BelowAll, &h.group); });
    changesWith(rows, "Art::isolate", [](Handles& h) { h.group.isolate(); });
    changesWith(rows, "Dictionary::setBool", [](Handles& h) { h.on<Art>().dictionary().setBool("a", true); });
    changesWith(rows, "Dictionary::setInt", [](Handles& h) { h.on<Art>().dictionary().setInt("a", 1); });
    changesWith(rows, "Dictionary::setFloat", [](Handles& h) { h.on<Art>().dictionary().setFloat("a", 1.5); });
    changesWith(rows, "Dictionary::setString", [](Handles& h) { h.on<Art>().dictionary().setString("a", "b"); });
    changesWith(rows, "Dictionary::remove", [](Handles& h) { h.on<Art>().dictionary().remove("flag"); });
    changes<&Layer::setTitle>(rows, "Other");
    changes<&Layer::setVisible>(rows, false);
    changes<&Layer::setEditable>(rows, false);
    changes<&Layer::setLocked>(rows, true);
    changesWith(rows, "Layer::selectArt", [](Handles& h) { h.lower.selectArt(); });
    changesWith(rows, "Layer::reorder", [](Handles& h) { h.on<Layer>().reorder(PaintOrder::BelowAll); });
    changes<&Artboard::setTitle>(rows, "Other");
    changes<&Artboard::setBounds>(rows, ArtboardRect(1, 2, 30, 40));
    changes<&View::setCenter>(rows, ArtboardPoint(1, 2));
    changes<&View::setZoom>(rows, 3.0);
    using Pin = BoundsPinPointType;
    const auto quarter = Angle(90, Angle::Units::Degrees);
    changesWith(rows, "Art::move", [](Handles& h) { h.on<Art>().move({1, 1}); });
    changesWith(rows, "Art::move", [](Handles& h) { h.on<Art>().move(Pin::BottomRight, {1, 1}); });
    changesWith(rows, "Art::rotate", [=](Handles& h) { h.on<Art>().rotate(quarter); });
    changesWith(rows, "Art::rotate", [=](Handles& h) { h.on<Art>().rotate(quarter, {1, 1}); });
    changesWith(rows, "Art::rotate", [=](Handles& h) { h.on<Art>().rotate(quarter, Pin::TopRight); });
    changesWith(rows, "Art::scale", [](Handles& h) { h.on<Art>().scale(2); });
    changesWith(rows, "Art::scale", [](Handles& h) { h.on<Art>().scale(2, ArtboardPoint(1, 1)); });
    changesWith(rows, "Art::scale", [](Handles& h) { h.on<Art>().scale(2, Pin::MidLeft); });
    changesWith(rows, "Art::scale", [](Handles& h) { h.on<Art>().scale(2, 3); });
    changesWith(rows, "Art::scale", [](Handles& h) { h.on<Art>().scale(2, 3, {1, 1}); });
    changesWith(rows, "Art::scale", [](Handles& h) { h.on<Art>().scale(2, 3, Pin::TopCenter); });
    changes<&TextArt::setContents>(rows, "other words");
    changes<&TextArt::setFont>(rows, Font{"Serif", 33});
    changes<&TextArt::setJustification>(rows, ParagraphJustification::Right);
    changes<&TextArt::setOrientation>(rows, TextOrientation::Vertical);
    changes<&TextArt::setPaint>(rows, wide);
    changesWith(rows, "PlacedArt::setFilePath",
                [](Handles& h) { h.on<PlacedArt>().setFilePath(pictureFile("large picture", 7, 5)); });
    changes<&PlacedArt::setMatrix>(rows, TransformMatrix(2, 0, 1, 2, 30, 40));
    changes<&PlacedArt::embed>(rows);
    changes<&RasterArt::setMatrix>(rows, TransformMatrix(2, 0, 1, 2, 30, 40));
    changes<&MeshArt::init>(rows, 3, 2, ArtboardRect(1, 2, 30, 40));
    changes<&MeshArt::setColor>(rows, 0, 0, ArtColor{0, 1, 0});
    changes<&CustomArt::setName>(rows, "Other");
    changes<&MaskArt::setDisabled>(rows, false);
    changes<&MaskArt::dispose>(rows);
    changesWith(rows, "MaskArt::create", [](Handles& h) { h.group.mask()->create(h.words); });
    changesWith(rows, "MaskArt::copyFrom", [](Handles& h) { h.group.mask()->copyFrom(h.custom); });
    changes<&Art::expand>(rows, Art::ExpandOptions::Strokes | Art::ExpandOptions::LockedObjects, 1);
    changesWith(rows, "Art::expand", [](Handles& h) { h.custom.expand(Art::ExpandOptions::PluginArt, 1); });
    changesWith(rows, "Art::expand", [](Handles& h) { h.instance.expand(Art::ExpandOptions::SymbolInstances, 1); });
    changesWith(rows, "Art::setIsClipGroup", [](Handles& h) { h.clipped.setIsClipGroup(false); });
    changesWith(rows, "Art::setIsClipGroup", [](Handles& h) { h.group.setIsClipGroup(true); });
    changesWith(rows, "Art::setSymbol", [](Handles& h) { h.instance.setSymbol("symbol-2"); });
    changesWith(rows, "CurrentDocument::newSymbol", [](Handles& h) { CurrentDocument().newSymbol(h.words); });
    changesWith(rows, "CurrentDocument::newPattern", [](Handles& h) { CurrentDocument().newPattern(h.words); });
    changesWith(rows, "Art::updateLinks", [](Handles& h) {
        static_cast<void>(pictureFile("picture", 9, 9)); // the file that it is on
        h.placed.updateLinks();
        static_cast<void>(pictureFile("picture", 3, 2));
    });
    changes<&PathArt::reverseSegs>(rows);
    changes<&PathArt::setSegPoints>(rows, std::int16_t{1}, points);
    changes<&PathArt::setSegs>(rows, std::int16_t{0}, points);
    changes<&PathArt::setSegCount>(rows, std::int16_t{5});
    changes<&PathArt::setSegPointCount>(rows, std::int16_t{2});
    changes<&PathArt::setClosed>(rows, false);
    changes<&PathArt::setStyle>(rows, wide);
    changes<&Layer::deselectArt>(rows);
    changes<&Tool::setTitle>(rows, "Other");
    changes<&Tool::setTip>(rows, "Other");
    changes<&Tool::setLightIconID>(rows, std::int16_t{9});
    changes<&Tool::setDarkIconID>(rows, std::int16_t{9});
    changes<&Tool::setOptions>(rows, ToolOptions::TrackCursor);
    changes<&MenuGroup::setText>(rows, "Other");
    changes<&MenuGroup::setEnabled>(rows, false);
    changes<&MenuGroup::setSorted>(rows, false);
    changes<&MenuItem::setText>(rows, "Other");
    changes<&MenuItem::setChecked>(rows, false);
    changes<&MenuItem::setEnabled>(rows, false);
    changes<&Timer::setDelay>(rows, 2.0);
    changes<&Timer::setActive>(rows, false);
    changes<&Annotator::setOptions>(rows, Annotator::Options::First);
    changes<&Annotator::setActive>(rows, false);
    changesWith(rows, "CurrentDocument::setTextFocus", [](Handles& h) { CurrentDocument().setTextFocus(h.words); });
    return rows;
}

// The current document, and the application

Queries documentQueries() {
    Queries rows;
    const auto asksDocument = [&](const char* name, auto ask) {
        asksWith(rows, name, [ask](const Handles&) { return ask(CurrentDocument()); });
    };
    const auto asksAll = [&]<auto... queries>() {
        (asksDocument(operations::nameOf<queries>().c_str(), [](const CurrentDocument& d) { return (d.*queries)(); }),
         ...);
    };
    using D = CurrentDocument;
    asksAll.template operator()<&D::aiDocumentHandle, &D::layerCount, &D::firstLayer, &D::lastLayer, &D::artboardCount,
                                &D::currentArtboard, &D::anyArtSelected, &D::selectedArtPathStyle, &D::defaultPathStyle,
                                &D::defaultTextStyle, &D::viewCount, &D::currentView, &D::fileName, &D::filePath,
                                &D::modified, &D::colorModel, &D::setup, &D::maxBounds, &D::grid, &D::inIsolationMode,
                                &D::isolatedArt, &D::hasTextFocus, &D::textFocus>();
    asksDocument("CurrentDocument::currentLayer", [](const D& d) {
        const auto layer = d.currentLayer();
        return layer ? layer->title() : "";
    });
    asksDocument("CurrentDocument::layerAtIndex", [](const D& d) { return d.layerAtIndex(1) != nullptr; });
    asksDocument("CurrentDocument::layerByTitle", [](const D& d) { return d.layerByTitle("Above") != nullptr; });
    asksDocument("CurrentDocument::artboardAtIndex", [](const D& d) { return d.artboardAtIndex(0) != nullptr; });
    asksDocument("CurrentDocument::artboardByTitle",
                 [](const D& d) { return d.artboardByTitle("Artboard 1") != nullptr; });
    asksDocument("CurrentDocument::selectedArt", [](const D& d) { return d.selectedArt()->size(); });
    asksDocument("CurrentDocument::artOfType", [](const D& d) { return d.artOfType(MatchArtType::Path)->size(); });
    asksDocument("CurrentDocument::matchingArt", [](const D& d) {
        return d.matchingArt({{MatchArtType::Path, ArtAttribute::Locked, ArtAttribute::Locked}})->size();
    });
    asksDocument("CurrentDocument::viewAtIndex", [](const D& d) { return d.viewAtIndex(0) != nullptr; });
    asksDocument("CurrentDocument::dictionary", [](const D& d) { return d.dictionary().keys(); });
    asksDocument("Illustrator::documentCount", [](const D&) { return Illustrator::instance()->documentCount(); });
    asksDocument("CurrentDocument::symbols", [](const D& d) { return d.symbols().size(); });
    asksDocument("CurrentDocument::patterns", [](const D& d) { return d.patterns().size(); });
    return rows;
}

Commands documentCommands() {
    Commands rows;
    const auto does = [&](const char* name, auto work) {
        changesWith(rows, name, [work](Handles& h) {
            CurrentDocument document;
            work(document, h);
        });
    };
    using D = CurrentDocument;
    PathStyle wide;
    wide.stroke.width = 7;
    does("CurrentDocument::setCurrentLayer", [](D& d, Handles& h) { d.setCurrentLayer(h.lower); });
    does("CurrentDocument::insertArtboard", [](D& d, Handles&) { static_cast<void>(d.insertArtboard({0, 0, 9, 9})); });
    does("CurrentDocument::setSelectedArtPathStyle", [=](D& d, Handles&) { d.setSelectedArtPathStyle(wide); });
    does("CurrentDocument::setDefaultPathStyle", [=](D& d, Handles&) { d.setDefaultPathStyle(wide); });
    does("CurrentDocument::setDefaultTextStyle", [](D& d, Handles&) {
        d.setDefaultTextStyle({{"Sans", 33}, ParagraphJustification::Right});
    });
    does("CurrentDocument::setGrid", [](D& d, Handles&) { d.setGrid({5, 2, true, true}); });
    does("CurrentDocument::setModified", [](D& d, Handles&) { d.setModified(false); });
    does("CurrentDocument::exitIsolationMode", [](D& d, Handles&) { d.exitIsolationMode(); });
    does("CurrentDocument::enterIsolationMode", [](D& d, Handles& h) { d.enterIsolationMode(h.around); });
    does("CurrentDocument::loseTextFocus", [](D& d, Handles&) { d.loseTextFocus(); });
    does("CurrentDocument::newSymbolInstance",
         [](D& d, Handles&) { static_cast<void>(d.newSymbolInstance("symbol-1", PaintOrder::AboveAll)); });
    does("Dictionary::setInt", [](D& d, Handles&) { d.dictionary().setInt("a", 1); });
    does("Art::Art", [](D&, Handles&) { Art(ArtType::Group, PaintOrder::AboveAll); });
    does("Layer::Layer", [](D&, Handles&) { Layer(PaintOrder::BelowAll); });
    return rows;
}

} // namespace facade
