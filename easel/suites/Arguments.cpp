// Look-up of documents and art by their handles.
#include "suites/Arguments.h"

#include "session/documents/Documents.h"
#include "session/frame/Plugins.h"
#include "suites/Host.h"

namespace easel::suites {

namespace {

using session::Documents;

// Art and layer handles name the same nodes, each kind only what it should.
Art resolveNode(const session::HandleParts& parts, unsigned kind) {
    model::Document* document = parts.kind == kind ? host<Documents>().byNumber(parts.document) : nullptr;
    return {found(document), found(found(document).find({.slot = parts.slot, .generation = parts.generation}))};
}

template <session::Handle H> H nodeHandle(const model::Document& document, const model::Node* node) {
    if (!node) return nullptr;
    const model::NodeId id = node->id();
    return session::makeHandle<H>(host<Documents>().numberOf(document), id.generation, id.slot);
}

} // namespace

Art resolveArt(AIArtHandle handle) { return resolveNode(session::partsOf(handle), session::kKindOf<AIArtHandle>); }

Layer resolveLayer(AILayerHandle handle) {
    const Art art = resolveNode(session::partsOf(handle), session::kKindOf<AILayerHandle>);
    require(art.node.type() == model::NodeType::Layer, kUnknownHandleErr);
    return {art};
}

model::Document& currentDocument() {
    model::Document* document = host<Documents>().front();
    require(document, kNoDocumentErr);
    return *document;
}

model::Document& documentOfView(AIDocumentViewHandle view) {
    if (!view) return currentDocument();
    const session::HandleParts parts = session::partsOf(view);
    require(parts.kind == session::kKindOf<AIDocumentViewHandle>, kUnknownHandleErr);
    return found(host<Documents>().byNumber(parts.document));
}

AIArtHandle artHandle(const model::Document& document, const model::Node* node) {
    return nodeHandle<AIArtHandle>(document, node);
}

AILayerHandle layerHandle(const model::Document& document, const model::Node* node) {
    return nodeHandle<AILayerHandle>(document, node);
}

session::Plugin& Argument<session::Plugin&>::from(SPPluginRef handle) {
    return found(host<session::Plugins>().find(handle));
}

} // namespace easel::suites
