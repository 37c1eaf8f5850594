// Invalidation and redrawing of annotators' marks.
#include "session/frame/Annotations.h"

#include <utility>

namespace easel::session {

namespace {

/// A plug-in may go on invalidating although nothing is drawn.
constexpr std::size_t kMaxPlaces = 64;

void include(Places& places, const model::Box& place) {
    places.boxes.push_back(place);
    if (places.boxes.size() <= kMaxPlaces) return;
    model::Box together;
    for (const model::Box& box : places.boxes) together.include(box);
    places.boxes = {together};
}

} // namespace

Annotator& Annotations::add(Plugin& owner, std::string_view name) {
    auto made = std::make_unique<Annotator>();
    made->owner = &owner;
    made->name = name;
    return annotators_.add(std::move(made));
}

void Annotations::setActive(Annotator& annotator, bool active) {
    if (annotator.active == active) return;
    annotator.active = active;
    annotator.marks.clear();
    annotator.invalid.all = true;
}

// What is to be drawn anew

void Annotations::invalidate(const model::Box& place) {
    for (Annotator* annotator : annotators_.all()) include(annotator->invalid, place);
}

void Annotations::invalidateAll() {
    for (Annotator* annotator : annotators_.all()) annotator->invalid.all = true;
}

void Annotations::setView(const ViewState& view) {
    const bool another = view.document != std::exchange(view_, view).document;
    if (!another) return;
    for (Annotator* annotator : annotators_.all()) annotator->marks.clear();
    invalidateAll();
}

// Drawing

void Annotations::update() {
    if (drawing_) return;
    model::Document* const front = documents_.front();
    const ViewState before = view_;
    const ViewState now =
        front ? ViewState{documents_.numberOf(*front), front->journal().changeCount(), front->view} : ViewState{};
    setView(now);
    if (!front) return;
    messenger_.batch([&] {
        const model::Journal::ReadOnly whileDrawn(front->journal());
        AIAnnotatorMessage message{};
        message.view = documents_.viewOf(*front);
        message.triggeredByDragScroll = held_.button && now.document == before.document &&
                                        now.view.zoom == before.view.zoom && now.view.center != before.view.center;
        message.showEdges = 1;
        // Annotators may come and go while others draw.
        std::vector<AIAnnotatorHandle> handles;
        for (const Annotator* annotator : all()) handles.push_back(annotator->handle);
        if (now != before)
            for (const AIAnnotatorHandle handle : handles) askInvalid(handle, message);
        for (const AIAnnotatorHandle handle : handles) draw(handle, message, front->visibleBox());
    });
}

Annotator* Annotations::findActive(AIAnnotatorHandle handle) const {
    Annotator* const annotator = find(handle);
    return annotator && annotator->active ? annotator : nullptr;
}

void Annotations::askInvalid(AIAnnotatorHandle handle, AIAnnotatorMessage message) {
    const Annotator* const annotator = findActive(handle);
    if (!annotator) return;
    message.annotator = handle;
    messenger_.send(*annotator->owner, kCallerAIAnnotation, kSelectorAIInvalAnnotation, message.d);
}

void Annotations::draw(AIAnnotatorHandle handle, AIAnnotatorMessage message, const model::Box& visible) {
    Annotator* const annotator = findActive(handle);
    if (!annotator || annotator->invalid.isEmpty()) return;
    Plugin& owner = *annotator->owner;
    begin(*annotator, visible);
    std::vector<AIRealRect> places;
    for (const model::Box& box : drawing_->places) places.push_back({box.left, box.top, box.right, box.bottom});
    message.annotator = handle;
    message.context = drawing_->handle;
    message.invalidationRectCount = static_cast<std::int32_t>(places.size());
    message.invalidationRects = places.data();
    messenger_.send(owner, kCallerAIAnnotation, kSelectorAIDrawAnnotation, message.d);
    end(handle);
}

void Annotations::begin(Annotator& annotator, const model::Box& visible) {
    Places invalid = std::exchange(annotator.invalid, {});
    if (invalid.all) invalid.boxes = {visible};
    for (const model::Mark& mark : std::exchange(annotator.marks, {}))
        invalid.boxes.push_back(mark.bounds(view_.view.zoom));
    lastDrawing_ = (lastDrawing_ + 1) % (1U << HandleParts::kGenerationBits);
    drawing_.emplace();
    drawing_->handle = makeHandle<AIDrawingContextHandle>(0, lastDrawing_, 0);
    drawing_->places = std::move(invalid.boxes);
}

void Annotations::end(AIAnnotatorHandle annotator) {
    Drawing drawn = std::move(*std::exchange(drawing_, std::nullopt));
    if (Annotator* const drawer = findActive(annotator)) drawer->marks = std::move(drawn.marks);
}

Drawing* Annotations::findDrawing(AIDrawingContextHandle handle) {
    return drawing_ && drawing_->handle == handle ? &*drawing_ : nullptr;
}

} // namespace easel::session
