// The annotator suite's calls.
#include "plugin/frame/Annotator.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "hostapi/AIAnnotatorSuite.h"
#include "hostapi/AIDocumentViewSuite.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin {

namespace {

constexpr double viewTolerance = 0.1;
constexpr double cursorTolerance = 0.001;

/// Not the opposite of `closeTo`: a difference of exactly `tol` is neither.
bool isFurtherThan(double tol, const ArtboardPoint& a, const ArtboardPoint& b) {
    return std::abs(a.x - b.x) > tol || std::abs(a.y - b.y) > tol;
}

/// Of all annotators, since the host tells no single one's apart.
void invalidateMarks() {
    host::call<&AIAnnotatorSuite::InvalAnnotationRect>(AIDocumentViewHandle{}, static_cast<const AIRealRect*>(nullptr));
}

} // namespace

Annotator::Annotator(SPPlugin* plugin, const std::string& name, const core::CallbackSlot& callback)
    : handle_(host::ask<&AIAnnotatorSuite::AddAnnotator>(AIAnnotatorHandle{}, plugin, name.c_str())),
      callback_(callback) {}

std::string Annotator::name() const { return host::ask<&AIAnnotatorSuite::GetAnnotatorName>("", handle_); }

bool Annotator::active() const { return host::ask<&AIAnnotatorSuite::GetAnnotatorActive>(AIBoolean{0}, handle_) != 0; }

void Annotator::setActive(bool active) {
    host::call<&AIAnnotatorSuite::SetAnnotatorActive>(handle_, AIBoolean{active});
}

std::int32_t Annotator::options() const {
    return host::ask<&AIAnnotatorSuite::GetAnnotatorOptions>(std::int32_t{0}, handle_);
}

void Annotator::setOptions(std::int32_t options) {
    host::call<&AIAnnotatorSuite::SetAnnotatorOptions>(handle_, options);
}

void Annotator::invalidate() const {
    if (handle_) invalidateMarks();
}

void Annotator::destroy() {
    if (AIAnnotator* const handle = std::exchange(handle_, nullptr))
        host::call<&AIAnnotatorSuite::RemoveAnnotator>(handle);
}

// Registry

void AnnotatorRegistry::remove(const Annotator& annotator) {
    std::erase_if(annotators_, [&](const std::shared_ptr<Annotator>& known) { return known.get() == &annotator; });
}

void AnnotatorRegistry::clear() {
    for (const std::shared_ptr<Annotator>& annotator : std::exchange(annotators_, {})) annotator->destroy();
}

std::shared_ptr<Annotator> AnnotatorRegistry::find(AIAnnotator* handle) const {
    const auto known = std::find_if(annotators_.begin(), annotators_.end(),
                                    [&](const auto& annotator) { return handle && annotator->handle() == handle; });
    return known != annotators_.end() ? *known : nullptr;
}

bool AnnotatorRegistry::run(AIAnnotator* handle) const {
    // Held while it works: a callback may destroy its own annotator.
    const std::shared_ptr<Annotator> annotator = find(handle);
    if (!annotator || !annotator->registered()) return false;
    annotator->callback().run();
    return true;
}

// Invalidation

void AnnotatorRegistry::invalidateAll() const {
    if (!annotators_.empty()) invalidateMarks();
}

void AnnotatorRegistry::follow(const ToolMessage* message) {
    if (annotators_.empty()) return;
    followView();
    if (message) followTool(*message);
}

void AnnotatorRegistry::followView() {
    AIRealRect seen{};
    if (!host::call<&AIDocumentViewSuite::GetDocumentViewBounds>(AIDocumentViewHandle{}, &seen)) return;
    const ArtboardRect bounds(seen);
    if (!isFurtherThan(viewTolerance, bounds.at(0, 0), viewBounds_.at(0, 0)) &&
        !isFurtherThan(viewTolerance, bounds.at(1, 1), viewBounds_.at(1, 1)))
        return;
    viewBounds_ = bounds;
    invalidateAll();
}

void AnnotatorRegistry::followTool(const ToolMessage& message) {
    if (message.tool != tool_) {
        tool_ = message.tool;
    } else if (isFurtherThan(cursorTolerance, message.cursor, cursor_)) {
        cursor_ = message.cursor;
    } else {
        return;
    }
    invalidateAll();
}

} // namespace kzo::plugin
