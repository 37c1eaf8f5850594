// The renderer finds texts by ids: it is sent the drawing with a copy of each that has one, and without what belongs to
// the text as a whole, which what takes its place has again.
#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "model/Journal.h"
#include "svg/ElementLook.h"
#include "svg/Expanding.h"
#include "svg/FileError.h"
#include "svg/Reader.h"
#include "svg/RenderProcess.h"
#include "svg/Writer.h"

namespace easel::svg {

namespace {

using model::Document;
using model::Node;
using model::NodeType;
using model::Placement;

/// The drawing with the copies.
std::string labelled(Document& document, const std::vector<Node*>& texts, std::vector<std::string>& ids) {
    std::vector<Node*> copies;
    for (Node* const text : texts) {
        Node& copy = *copies.emplace_back(&document.duplicate(*text, Placement::Above, *text));
        ids.push_back("easel-text-" + std::to_string(ids.size()));
        document.setName(copy, ids.back());
        document.setExtras(copy, {.hasOtherClip = true});
        document.setHidden(copy, false);
    }
    std::string drawing;
    try {
        drawing = write(document);
    } catch (const FileError&) { // which is the same without them
        drawing.clear();
    }
    for (Node* const copy : copies) document.remove(*copy);
    return drawing;
}

/// A drawing of plain paths for each; empty where there is none.
std::vector<std::string> outlinesOf(const Document& document, const std::string& drawing,
                                    std::vector<std::string> ids) {
    std::vector<std::string> drawings;
    if (drawing.empty()) return drawings;
    try {
        RenderProcess renderer;
        renderer.ask(render::Request::Load, drawing);
        render::Packer packed;
        packed << render::OutlinesRequest{document.width(), document.height(), std::move(ids)};
        const std::string reply = renderer.ask(render::Request::Outlines, packed.bytes);
        render::Unpacker(reply) >> drawings;
    } catch (const RenderError&) { // nothing is taken apart then
        drawings.clear();
    }
    return drawings;
}

/// Null where there is none, or one that cannot be read.
std::unique_ptr<Document> readDrawing(const std::string& text) {
    try {
        return text.empty() ? nullptr : read(text, "text");
    } catch (const FileError&) {
        return nullptr;
    }
}

/// What the renderer draws; none at all where it takes more than paths of one colour.
std::vector<const Node*> pathsIn(Document& drawing) {
    std::vector<const Node*> paths;
    const Node& root = drawing.root();
    for (const Node* at = drawing.root().firstChild(); at; at = nextWithin(root, *at)) {
        const bool isPlain = at->type() != NodeType::Opaque && !at->clip() && !at->extras().hasMask() &&
                             at->extras().opacity == 1 && !(at->isOutlined() && at->style().servers);
        if (!isPlain) return {};
        if (at->isOutlined()) paths.push_back(at);
    }
    return paths;
}

void addPaths(Document& document, Node& group, const Document& drawing, const Node& path) {
    const ElementLook look(drawing, path);
    const auto add = [&](const model::Style& style, double opacity) {
        Node& made = document.create(NodeType::Compound, Placement::OnTopInside, group);
        document.setStyle(made, style);
        for (const auto& outline : path.outlines())
            if (outline->points.size() > 1) // the renderer ends letters with a lone point
                document.setPath(document.create(NodeType::Path, Placement::OnTopInside, made), *outline);
        document.setOpacity(made, opacity);
    };
    const double fill = look.opacity(Name::FillOpacity);
    const double stroke = look.opacity(Name::StrokeOpacity);
    model::Style style = path.style();
    if (!(style.fill && style.stroke) || fill == stroke) return add(style, style.fill ? fill : stroke);
    style.setStroke(std::nullopt);
    add(style, fill);
    style = path.style();
    style.setFill(std::nullopt);
    add(style, stroke);
}

} // namespace

bool expandTexts(Document& document, const std::vector<Node*>& texts) {
    if (texts.empty()) return false;
    const model::Journal::Scope change(document.journal());
    std::vector<std::string> ids;
    const std::string drawing = labelled(document, texts, ids);
    const std::vector<std::string> drawings = outlinesOf(document, drawing, std::move(ids));
    bool any = false;
    for (std::size_t i = 0; i < std::min(drawings.size(), texts.size()); ++i) {
        const std::unique_ptr<Document> outlines = readDrawing(drawings[i]);
        const std::vector<const Node*> paths = outlines ? pathsIn(*outlines) : std::vector<const Node*>();
        if (paths.empty()) continue;
        Node& group = document.createInPlaceOf(*texts[i], NodeType::Group);
        for (auto path = paths.rbegin(); path != paths.rend(); ++path) addPaths(document, group, *outlines, **path);
        document.remove(*texts[i]);
        any = true;
    }
    return any;
}

} // namespace easel::svg
