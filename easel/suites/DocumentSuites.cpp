// The document, view, layer and undo suites on the document in front.
#include "model/Journal.h"
#include "session/documents/Documents.h"
#include "suites/Suites.h"
#include "suites/Thunk.h"

namespace easel::suites {

namespace {

// Document

void getDocument(AIDocumentHandle& handle) {
    handle = session::makeHandle<AIDocumentHandle>(host<session::Documents>().numberOf(currentDocument()), 1, 0);
}

// Views; a document has one

void countViews(std::int32_t& count) {
    static_cast<void>(currentDocument());
    count = 1;
}

void getNthView(std::int32_t index, AIDocumentViewHandle& view) {
    require(index == 0);
    view = host<session::Documents>().viewOf(currentDocument());
}

void getBounds(AIDocumentViewHandle view, AIRealRect& bounds) {
    const model::Box box = documentOfView(view).visibleBox();
    bounds = {box.left, box.top, box.right, box.bottom};
}

void getZoom(AIDocumentViewHandle view, AIReal& zoom) { zoom = documentOfView(view).view.zoom; }

// Layers

void countLayers(std::int32_t& count) { count = static_cast<std::int32_t>(currentDocument().layerCount()); }

void getNthLayer(std::int32_t index, AILayerHandle& layer) {
    model::Document& document = currentDocument();
    const model::Node* node = index < 0 ? nullptr : document.layerAt(static_cast<std::size_t>(index));
    require(node);
    layer = layerHandle(document, node);
}

void getNextLayer(Layer layer, AILayerHandle& next) { next = layerHandle(layer.document, layer.node.next()); }

void getCurrentLayer(AILayerHandle& layer) {
    model::Document& document = currentDocument();
    layer = layerHandle(document, &document.currentLayer());
}

void setCurrentLayer(Layer layer) { layer.document.setCurrentLayer(layer.node); }
void getTitle(Layer layer, const char*& title) { title = layer.node.name().c_str(); }
void getVisible(Layer layer, AIBoolean& visible) { visible = !layer.node.hidden(); }
void getEditable(Layer layer, AIBoolean& editable) { editable = !layer.node.locked(); }
void hasSelectedArt(Layer layer, AIBoolean& any) { any = layer.document.hasSelection(layer.node); }
void deselectArt(Layer layer) { layer.document.deselectAll(layer.node); }

// Undo

void setKind(std::int32_t kind) {
    require(kind >= kAIStandardUndoContext && kind <= kAIAppendUndoContext);
    static constexpr model::UndoKind kKinds[] = {model::UndoKind::Standard, model::UndoKind::Silent,
                                                 model::UndoKind::Append};
    currentDocument().journal().setKind(kKinds[kind]);
}

void undoChanges() { currentDocument().journal().rollBackTransaction(); }

} // namespace

void fill(AIDocumentSuite& suite) { enter<&AIDocumentSuite::GetDocument, getDocument>(suite); }

void fill(AIDocumentViewSuite& suite) {
    enter<&AIDocumentViewSuite::CountDocumentViews, countViews>(suite);
    enter<&AIDocumentViewSuite::GetNthDocumentView, getNthView>(suite);
    enter<&AIDocumentViewSuite::GetDocumentViewBounds, getBounds>(suite);
    enter<&AIDocumentViewSuite::GetDocumentViewZoom, getZoom>(suite);
}

void fill(AILayerSuite& suite) {
    enter<&AILayerSuite::CountLayers, countLayers>(suite);
    enter<&AILayerSuite::GetNthLayer, getNthLayer>(suite);
    enter<&AILayerSuite::GetNextLayer, getNextLayer>(suite);
    enter<&AILayerSuite::GetCurrentLayer, getCurrentLayer>(suite);
    enter<&AILayerSuite::SetCurrentLayer, setCurrentLayer>(suite);
    enter<&AILayerSuite::GetLayerTitle, getTitle>(suite);
    enter<&AILayerSuite::GetLayerVisible, getVisible>(suite);
    enter<&AILayerSuite::GetLayerEditable, getEditable>(suite);
    enter<&AILayerSuite::LayerHasSelectedArt, hasSelectedArt>(suite);
    enter<&AILayerSuite::DeselectLayerArt, deselectArt>(suite);
}

void fill(AIUndoSuite& suite) {
    enter<&AIUndoSuite::SetKind, setKind>(suite);
    enter<&AIUndoSuite::UndoChanges, undoChanges>(suite);
}

} // namespace easel::suites
