// The annotator suite's calls.
#include "plugin/frame/Annotator.h"

#include <cmath>

#include "hostapi/AIAnnotatorSuite.h"
#include "hostapi/AIDocumentViewSuite.h"
#include "plugin/document/Convert.h"
#include "plugin/frame/Messages.h"

namespace kzo::plugin {

namespace {

constexpr double kViewTolerance = 0.1;
constexpr double kCursorTolerance = 0.001;

/// Not the opposite of `closeTo`: a difference of exactly `tol` is neither.
bool isFurtherThan(double tol, const core::ArtboardPoint& a, const core::ArtboardPoint& b) {
    return std::abs(a.x() - b.x()) > tol || std::abs(a.y() - b.y()) > tol;
}

/// Of all annotators, since the host tells no single one's apart.
void invalidateMarks() { host::call<&AIAnnotatorSuite::InvalAnnotationRect>(AIDocumentViewHandle{}, nullptr); }

} // namespace

Annotator::Annotator(SPPlugin* plugin, const std::string& name, const core::CallbackSlot& callback)
    : Object(host::get<&AIAnnotatorSuite::AddAnnotator>(plugin, name)), callback_(callback) {}

std::string Annotator::name() const { return get<&AIAnnotatorSuite::GetAnnotatorName>(); }
bool Annotator::active() const { return get<&AIAnnotatorSuite::GetAnnotatorActive>(); }
void Annotator::setActive(bool active) { call<&AIAnnotatorSuite::SetAnnotatorActive>(active); }
std::int32_t Annotator::options() const { return get<&AIAnnotatorSuite::GetAnnotatorOptions>(); }
void Annotator::setOptions(std::int32_t options) { call<&AIAnnotatorSuite::SetAnnotatorOptions>(options); }

void Annotator::invalidate() const {
    if (handle()) invalidateMarks();
}

void Annotator::destroy() { remove<&AIAnnotatorSuite::RemoveAnnotator>(); }

// Invalidation

void MarkFollower::follow(const ToolMessage* message) {
    followView();
    if (message) followTool(*message);
}

void MarkFollower::followView() {
    const auto bounds =
        host::find<&AIDocumentViewSuite::GetDocumentViewBounds, core::ArtboardRect>(AIDocumentViewHandle{});
    if (!bounds || (!isFurtherThan(kViewTolerance, bounds->topLeft(), viewBounds_.topLeft()) &&
                    !isFurtherThan(kViewTolerance, bounds->bottomRight(), viewBounds_.bottomRight())))
        return;
    viewBounds_ = *bounds;
    invalidateMarks();
}

void MarkFollower::followTool(const ToolMessage& message) {
    if (message.tool != tool_) {
        tool_ = message.tool;
    } else if (isFurtherThan(kCursorTolerance, message.cursor, cursor_)) {
        cursor_ = message.cursor;
    } else {
        return;
    }
    invalidateMarks();
}

} // namespace kzo::plugin
