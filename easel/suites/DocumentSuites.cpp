// The document, view, layer and undo suites on the document in front.
#include "hostapi/AIDocumentSuite.h"
#include "hostapi/AIDocumentViewSuite.h"
#include "hostapi/AILayerSuite.h"
#include "hostapi/AIUndoSuite.h"
#include "model/Journal.h"
#include "session/documents/Documents.h"
#include "suites/Enter.h"

namespace easel::suites {

namespace {

using model::Document;
using session::Documents;

AIDocumentHandle getDocument() {
    return session::makeHandle<AIDocumentHandle>(host<Documents>().numberOf(currentDocument()), 1, 0);
}

// Views; a document has one

std::int32_t countViews() {
    static_cast<void>(currentDocument());
    return 1;
}

AIDocumentViewHandle getNthView(std::int32_t index) {
    require(index == 0);
    return host<Documents>().viewOf(currentDocument());
}

AIRealRect getBounds(Document& document) {
    const model::Box box = document.visibleBox();
    return {box.left, box.top, box.right, box.bottom};
}

// Layers

AILayerHandle getNthLayer(std::int32_t index) {
    Document& document = currentDocument();
    const model::Node* node = index < 0 ? nullptr : document.layerAt(static_cast<std::size_t>(index));
    require(node);
    return layerHandle(document, node);
}

AILayerHandle getCurrentLayer() {
    Document& document = currentDocument();
    return layerHandle(document, &document.currentLayer());
}

// Undo

void setKind(std::int32_t kind) {
    require(kind >= kAIStandardUndoContext && kind <= kAIAppendUndoContext);
    static constexpr model::UndoKind kKinds[] = {model::UndoKind::Standard, model::UndoKind::Silent,
                                                 model::UndoKind::Append};
    currentDocument().journal().setKind(kKinds[kind]);
}

} // namespace

template <> void fill(AIDocumentSuite& suite) { enter<&AIDocumentSuite::GetDocument, getDocument>(suite); }

template <> void fill(AIDocumentViewSuite& suite) {
    enter<&AIDocumentViewSuite::CountDocumentViews, countViews>(suite);
    enter<&AIDocumentViewSuite::GetNthDocumentView, getNthView>(suite);
    enter<&AIDocumentViewSuite::GetDocumentViewBounds, getBounds>(suite);
    enter<&AIDocumentViewSuite::GetDocumentViewZoom>(suite, [](Document& document) { return document.view.zoom; });
}

template <> void fill(AILayerSuite& suite) {
    enter<&AILayerSuite::CountLayers>(suite, [] { return currentDocument().layerCount(); });
    enter<&AILayerSuite::GetNthLayer, getNthLayer>(suite);
    enter<&AILayerSuite::GetNextLayer>(suite, [](Layer l) { return layerHandle(l.document, l.node.next()); });
    enter<&AILayerSuite::GetCurrentLayer, getCurrentLayer>(suite);
    enter<&AILayerSuite::SetCurrentLayer>(suite, [](Layer l) { l.document.setCurrentLayer(l.node); });
    enter<&AILayerSuite::GetLayerTitle>(suite, [](Layer l) { return l.node.name().c_str(); });
    enter<&AILayerSuite::GetLayerVisible>(suite, [](Layer l) { return !l.node.hidden(); });
    enter<&AILayerSuite::GetLayerEditable>(suite, [](Layer l) { return !l.node.locked(); });
    enter<&AILayerSuite::LayerHasSelectedArt>(suite, [](Layer l) { return l.document.hasSelection(l.node); });
    enter<&AILayerSuite::DeselectLayerArt>(suite, [](Layer l) { l.document.deselectAll(l.node); });
    enter<&AILayerSuite::GetLayerOfArt>(suite, [](Art art) { return layerHandle(art.document, &art.node.layer()); });
}

template <> void fill(AIUndoSuite& suite) {
    enter<&AIUndoSuite::SetKind, setKind>(suite);
    enter<&AIUndoSuite::UndoChanges>(suite, [] { currentDocument().journal().rollBackTransaction(); });
}

} // namespace easel::suites
