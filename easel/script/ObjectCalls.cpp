// Layer and art objects: what they are, and the few things of a layer that can be set.
#include <algorithm>

#include "script/ArtList.h"
#include "script/Step.h"

namespace easel::script {

namespace {

// Layers

using ThisLayer = This<Layer>;

std::string title(Host& /*host*/, const ThisLayer& layer) { return layer->name(); }

void setTitle(Host& host, const ThisLayer& layer, const std::string& title) {
    edit(host, *layer.document, [&] { layer.document->setName(*layer.node, title); });
}

bool layerLocked(Host& /*host*/, const ThisLayer& layer) { return layer->locked(); }

void setLocked(Host& host, const ThisLayer& layer, bool locked) {
    edit(host, *layer.document, [&] { layer.document->setLocked(*layer.node, locked); });
}

bool visible(Host& /*host*/, const ThisLayer& layer) { return !layer->hidden(); }

void setVisible(Host& host, const ThisLayer& layer, bool visible) {
    edit(host, *layer.document, [&] { layer.document->setHidden(*layer.node, !visible); });
}

// Art; what only a path has is null for a group

using ThisArt = This<Art>;

bool isPath(const Art& art) { return art->type() == model::NodeType::Path; }

std::optional<std::string> id(Host& /*host*/, const ThisArt& art) {
    return art->name().empty() ? std::nullopt : std::optional(art->name());
}

std::string_view type(Host& /*host*/, const ThisArt& art) {
    if (art->text()) return "text";
    if (art->symbol()) return "symbol";
    if (art->image()) return art->image()->isEmbedded ? "raster" : "placed";
    if (art->type() == model::NodeType::Opaque) return "opaque";
    if (art->extras().groupKind == model::GroupKind::Mesh) return "mesh";
    if (art->extras().groupKind == model::GroupKind::Plugin) return "plug-in group";
    if (art->type() == model::NodeType::Compound) return "compound";
    return isPath(art) ? "path" : "group";
}

std::optional<bool> closed(Host& /*host*/, const ThisArt& art) {
    return isPath(art) ? std::optional(art->path().closed) : std::nullopt;
}

std::optional<std::vector<PointRecord>> points(Host& /*host*/, const ThisArt& art) {
    if (!isPath(art)) return std::nullopt;
    std::vector<PointRecord> records;
    for (std::size_t i = 0; i < art->path().points.size(); ++i)
        records.push_back({art->path().points[i], art->path().isCorner(i), art->pointSelected(i)});
    return records;
}

Object layer(Host& /*host*/, const ThisArt& art) { return {art.document, art.document->find(art->layer().id())}; }

/// What holds it, unless that is the layer.
std::optional<Object> parent(Host& /*host*/, const ThisArt& art) {
    model::Node* const holder = art->parent();
    const bool isArt = holder && holder->type() != model::NodeType::Layer;
    return isArt ? std::optional(Object{art.document, holder}) : std::nullopt;
}

std::optional<std::vector<Object>> children(Host& /*host*/, const ThisArt& art) {
    if (!art->isContainer()) return std::nullopt;
    std::vector<Object> objects;
    for (model::Node* child = art->firstChild(); child; child = child->next()) objects.push_back({art.document, child});
    return objects;
}

bool selected(Host& /*host*/, const ThisArt& art) { return art->selected(); }

bool artLocked(Host& /*host*/, const ThisArt& art) { return art->locked(); }

void setArtLocked(Host& host, const ThisArt& art, bool locked) {
    edit(host, *art.document, [&] { art.document->setLocked(*art.node, locked); });
}

bool hidden(Host& /*host*/, const ThisArt& art) { return art->hidden(); }

void setArtHidden(Host& host, const ThisArt& art, bool hidden) {
    edit(host, *art.document, [&] { art.document->setHidden(*art.node, hidden); });
}

double opacity(Host& /*host*/, const ThisArt& art) {
    return (art->isSubpath() ? *art->parent() : *art.node).extras().opacity;
}

void setOpacity(Host& host, const ThisArt& art, double opacity) {
    if (opacity < 0 || opacity > 1) throw BadArgument("argument 1 (value) must be from 0 to 1");
    edit(host, *art.document, [&] { art.document->setOpacity(*art.node, opacity); });
}

std::optional<std::string> contents(Host& /*host*/, const ThisArt& art) {
    return art->text() ? std::optional(art->text()->contents) : std::nullopt;
}

void setContents(Host& host, const ThisArt& art, const std::string& contents) {
    if (!art->text()) throw BadArgument("the object is no text");
    if (art->text()->isRich) throw BadArgument("the text has parts that look or lie otherwise than the rest");
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20; };
    if (contents.empty() || std::any_of(contents.begin(), contents.end(), isControl))
        throw BadArgument("argument 1 (value) must be one line of text");
    model::TextData text = *art->text();
    text.contents = contents;
    edit(host, *art.document, [&] { art.document->setText(*art.node, std::move(text)); });
}

std::optional<std::string> symbol(Host& /*host*/, const ThisArt& art) {
    return art->symbol() ? std::optional(art->symbol()->symbol) : std::nullopt;
}

void setSymbol(Host& host, const ThisArt& art, const std::string& name) {
    if (!art->symbol()) throw BadArgument("the object is no instance of a symbol");
    const auto known = session::Documents::definitions(*art.document, "symbol");
    if (std::find(known.begin(), known.end(), name) == known.end())
        throw BadArgument("argument 1 (value): there is no symbol \"" + name + '"');
    edit(host, *art.document, [&] { session::Documents::setSymbol(*art.document, *art.node, name); });
}

/// As the drawing says it; null for what is no picture, or one in the drawing itself.
std::optional<std::string> link(Host& /*host*/, const ThisArt& art) {
    return art->image() && !art->image()->isEmbedded ? std::optional(art->image()->link) : std::nullopt;
}

bool clipped(Host& /*host*/, const ThisArt& art) { return art->clip(); }

std::optional<model::Style> style(Host& /*host*/, const ThisArt& art) {
    return art->content().style ? std::optional(art->style()) : std::nullopt;
}

/// Of a group, every path in it.
void setStyle(Host& host, const ThisArt& art, const StyleRecord& says) {
    edit(host, *art.document, [&] { restyle(*art.document, *art.node, says); });
}

// In words

std::string counted(std::size_t count, const char* noun) {
    return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}

std::string state(const Object& object) {
    return std::string(object->locked() ? ", locked" : "") + (object->hidden() ? ", hidden" : "");
}

std::string layerText(Host& /*host*/, const ThisLayer& layer) {
    return "layer \"" + layer->name() + "\" of " + counted(layer->childCount(), "object") + state(layer);
}

std::string artText(Host& host, const ThisArt& art) {
    std::string text(type(host, art));
    if (isPath(art) && art->path().closed) text = "closed path";
    if (art->type() == model::NodeType::Compound) text = "compound path";
    if (!art->name().empty()) text += " \"" + art->name() + '"';
    if (isPath(art)) text += " of " + counted(art->path().points.size(), "point");
    if (art->type() == model::NodeType::Compound) text += " of " + counted(art->childCount(), "subpath");
    if (art->type() == model::NodeType::Group) text += " of " + counted(art->childCount(), "object");
    return text + state(art);
}

constexpr Row kLayerCalls[] = {
    property<title, setTitle>("layer.title"),
    property<layerLocked, setLocked>("layer.locked"),
    property<visible, setVisible>("layer.visible"),
    method<layerText>("layer.toString", ""),
};

constexpr Row kArtCalls[] = {
    property<id>("path.id"),
    property<type>("path.type"),
    property<closed>("path.closed"),
    property<points>("path.points"),
    property<layer>("path.layer"),
    property<parent>("path.parent"),
    property<children>("path.children"),
    property<selected>("path.selected"),
    property<artLocked, setArtLocked>("path.locked"),
    property<hidden, setArtHidden>("path.hidden"),
    property<clipped>("path.clipped"),
    property<style, setStyle>("path.style"),
    property<opacity, setOpacity>("path.opacity"),
    property<contents, setContents>("path.text"),
    property<symbol, setSymbol>("path.symbol"),
    property<link>("path.link"),
    method<artText>("path.toString", ""),
};

} // namespace

std::span<const Row> layerRows() { return kLayerCalls; }

std::span<const Row> artRows() { return kArtCalls; }

} // namespace easel::script
