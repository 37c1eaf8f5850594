// Invalidation and redrawing of annotators' marks.
#include "session/Annotations.h"

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
    if (Annotator* const drawer = find(annotator); drawer && drawer->active) drawer->marks = std::move(drawn.marks);
}

Drawing* Annotations::findDrawing(AIDrawingContextHandle handle) {
    return drawing_ && drawing_->handle == handle ? &*drawing_ : nullptr;
}

} // namespace easel::session
