// Document and view objects: looking up, selecting, editing, history. Each editing call is one undo step.
#include "script/ArtList.h"
#include "script/Step.h"

#include <array>
#include <sstream>

#include "session/input/Editing.h"

namespace easel::script {

namespace {

struct PathOptions {
    bool closed = false;
    std::optional<Layer> layer;
};

void read(const Value& value, PathOptions& slot) {
    static constexpr std::array<std::string_view, 2> kNames{"closed", "layer"};
    if (!duk_is_object(value.engine(), value.index())) value.fail("an object like {closed: true}");
    value.mustHaveOnly(kNames);
    slot.closed = value.member<std::optional<bool>>("closed").value_or(false);
    slot.layer = value.member<std::optional<Layer>>("layer");
}

using ThisDocument = This<Document>;

// Looking up

NodeList layers(Host& /*host*/, const ThisDocument& doc) {
    const auto collect = [](model::Document& document) {
        std::vector<model::Node*> nodes;
        for (model::Node* layer = document.root().firstChild(); layer; layer = layer->next()) nodes.push_back(layer);
        return nodes;
    };
    return {doc.open, collect, "doc.layers"};
}

NodeList paths(Host& /*host*/, const ThisDocument& doc) {
    const auto collect = [](model::Document& document) {
        std::vector<model::Node*> nodes;
        for (model::Node* node = &document.root(); node; node = model::nextWithin(document.root(), *node))
            if (node->type() == model::NodeType::Path) nodes.push_back(node);
        return nodes;
    };
    return {doc.open, collect, "doc.paths"};
}

std::optional<Object> find(Host& /*host*/, const ThisDocument& doc, const std::string& id) {
    auto* const node = doc->findByName(id);
    return node ? std::optional(Object{doc.open, node}) : std::nullopt;
}

double width(Host& /*host*/, const ThisDocument& doc) { return doc->width(); }

double height(Host& /*host*/, const ThisDocument& doc) { return doc->height(); }

// Selection

std::vector<Object> selection(Host& /*host*/, const ThisDocument& doc) { return objects(doc, doc->selection()); }

void select(Host& host, const ThisDocument& doc, const ArtList& list) {
    const auto nodes = outermost(list, doc);
    edit(host, *doc, [&] {
        for (auto* node : nodes) doc->select(*node, true);
    });
}

void selectPoints(Host& host, const ThisDocument& doc, const Art& path, const std::vector<std::size_t>& indices) {
    mustBelong(path, doc, "argument 1 (path)");
    if (path->type() != model::NodeType::Path) throw BadArgument("argument 1 (path) is no path and has no points");
    model::PointSelection points(path->path().points.size(), false);
    for (const std::size_t index : indices) {
        if (index >= points.size())
            throw BadArgument("argument 2 (indices): the path has no point " + std::to_string(index));
        points[index] = true;
    }
    edit(host, *doc, [&] { doc->selectPoints(*path.node, points); });
}

void deselectAll(Host& host, const ThisDocument& doc) {
    edit(host, *doc, [&] { doc->deselectAll(); });
}

// Layers

Object addLayer(Host& host, const ThisDocument& doc, const std::string& title) {
    Object layer{doc.open, nullptr};
    edit(host, *doc, [&] { layer.node = &doc->addLayer(title); });
    return layer;
}

Object currentLayer(Host& /*host*/, const ThisDocument& doc) { return {doc.open, &doc->currentLayer()}; }

void setCurrentLayer(Host& /*host*/, const ThisDocument& doc, const Layer& layer) {
    mustBelong(layer, doc, "argument 1 (value)");
    doc->setCurrentLayer(*layer.node);
}

// Editing

Object addPath(Host& host, const ThisDocument& doc, const std::vector<PointRecord>& records,
               const std::optional<PathOptions>& options) {
    if (records.empty()) throw BadArgument("argument 1 (points) must have a point");
    const PathOptions how = options.value_or(PathOptions{});
    if (how.layer) mustBelong(*how.layer, doc, "argument 2 (options), layer,");
    model::PathData data{.points = {}, .closed = how.closed, .smooth = {}};
    model::PointFlags corners;
    for (const PointRecord& record : records) {
        data.points.push_back(record.point);
        corners.push_back(record.corner);
    }
    data.setCorners(0, corners);
    Object path{doc.open, nullptr};
    edit(host, *doc, [&] {
        auto& layer = how.layer ? *how.layer->node : doc->currentLayer();
        path.node = &doc->create(model::NodeType::Path, model::Placement::OnTopInside, layer);
        doc->setPath(*path.node, std::move(data));
    });
    return path;
}

void move(Host& host, const ThisDocument& doc, const ArtList& list, double dx, double dy) {
    const auto nodes = outermost(list, doc);
    edit(host, *doc, [&] {
        for (auto* node : nodes)
            if (!doc->offset(*node, dx, dy)) throw session::Error("that is too far");
    });
}

void scale(Host& host, const ThisDocument& doc, const ArtList& list, double across, double down, double x, double y) {
    if (across == 0 || down == 0) throw BadArgument("neither factor may be 0");
    const auto nodes = outermost(list, doc);
    const model::Affine by{across, 0, 0, down, x - across * x, y - down * y};
    edit(host, *doc, [&] {
        for (auto* node : nodes)
            if (!doc->transform(*node, by)) throw session::Error("that is too large or too small");
    });
}

void setOpacity(Host& host, const ThisDocument& doc, const ArtList& list, double opacity) {
    if (opacity < 0 || opacity > 1) throw BadArgument("argument 2 (opacity) must be from 0 to 1");
    const auto nodes = outermost(list, doc);
    edit(host, *doc, [&] {
        for (auto* node : nodes) doc->setOpacity(*node, opacity);
    });
}

void remove(Host& host, const ThisDocument& doc, const ArtList& list) {
    const auto nodes = outermost(list, doc);
    edit(host, *doc, [&] {
        for (auto* node : nodes) doc->remove(*node);
    });
}

void setStyle(Host& host, const ThisDocument& doc, const ArtList& list, const StyleRecord& says) {
    const auto nodes = outermost(list, doc);
    edit(host, *doc, [&] {
        for (auto* node : nodes) restyle(*doc, *node, says);
    });
}

// History

model::Document& outsideGestures(Host& host, const ThisDocument& doc) {
    if (host.session.pointer.pressed()) throw session::Error("a gesture is running");
    return *doc;
}

bool undo(Host& host, const ThisDocument& doc) { return outsideGestures(host, doc).journal().undo(); }

bool redo(Host& host, const ThisDocument& doc) { return session::redo(outsideGestures(host, doc)); }

std::size_t undoDepth(Host& /*host*/, const ThisDocument& doc) { return doc->journal().undoDepth(); }

// View

View view(Host& /*host*/, const ThisDocument& doc) { return {doc.open}; }

double zoom(Host& /*host*/, const This<View>& view) { return view.document->view.zoom; }

void setZoom(Host& /*host*/, const This<View>& view, Positive zoom) { view.document->view.zoom = zoom.value; }

model::Point center(Host& /*host*/, const This<View>& view) { return view.document->view.center; }

void setCenter(Host& /*host*/, const This<View>& view, model::Point center) { view.document->view.center = center; }

// In words

std::string inPoints(double length) {
    std::ostringstream text;
    text << length;
    return text.str();
}

std::string documentText(Host& /*host*/, const ThisDocument& doc) {
    return "document of " + inPoints(doc->width()) + " x " + inPoints(doc->height()) + " points";
}

std::string viewText(Host& /*host*/, const This<View>& view) {
    return "view at zoom " + inPoints(view.document->view.zoom);
}

constexpr Row kDocumentCalls[] = {
    property<layers>("doc.layers"),
    property<paths>("doc.paths"),
    method<find>("doc.find", "id"),
    property<width>("doc.width"),
    property<height>("doc.height"),
    property<selection>("doc.selection"),
    method<select>("doc.select", "objects"),
    method<selectPoints>("doc.selectPoints", "path, indices"),
    method<deselectAll>("doc.deselectAll", ""),
    method<addLayer>("doc.addLayer", "title"),
    property<currentLayer, setCurrentLayer>("doc.currentLayer"),
    method<addPath>("doc.addPath", "points, options"),
    method<move>("doc.move", "objects, dx, dy"),
    method<setOpacity>("doc.setOpacity", "objects, opacity"),
    method<scale>("doc.scale", "objects, across, down, x, y"),
    method<remove>("doc.remove", "objects"),
    method<setStyle>("doc.setStyle", "objects, style"),
    method<undo>("doc.undo", ""),
    method<redo>("doc.redo", ""),
    property<undoDepth>("doc.undoDepth"),
    property<view>("doc.view"),
    method<documentText>("doc.toString", ""),
};

constexpr Row kViewCalls[] = {
    property<zoom, setZoom>("view.zoom"),
    property<center, setCenter>("view.center"),
    method<viewText>("view.toString", ""),
};

} // namespace

std::span<const Row> documentRows() { return kDocumentCalls; }

std::span<const Row> viewRows() { return kViewCalls; }

} // namespace easel::script
