// The choice of an image, and the numbers of cursors.
#include "plugin/frame/Cursor.h"

#include "plugin/host/RefCountMap.h"

namespace kzo::plugin {

namespace {

// Displays tell their scale with some noise, so one of exactly 1 or 2 stays on its own side.
constexpr double kMoreThanNormal = 1.01;
constexpr double kMoreThanDouble = 2.01;

/// The number of the first living cursor that fits; 0 when none does.
template <class Predicate> unsigned findLiving(Predicate fits) {
    unsigned number = 0;
    MapOf<__CursorContainerID>::each([&](const auto& shared) {
        const bool first = number == 0 || shared.key < number;
        if (first && fits(shared.impl.cursor())) number = shared.key;
    });
    return number;
}

} // namespace

CursorImage Cursor::imageAt(int scale) const {
    const std::int16_t resource = scale == 3 ? images_.tripled : scale == 2 ? images_.doubled : images_.normal;
    return {.plugin = plugin_, .resource = resource, .hotSpot = hotSpot_, .scale = scale};
}

void Cursor::enable() const {
    Cursors& cursors = platform().cursors();
    if (hostNumber_ != 0) return cursors.show(hostNumber_);
    const double display = cursors.displayScale().value_or(1.0);
    int scale = 1;
    if (display > kMoreThanDouble && images_.tripled != 0)
        scale = 3;
    else if (display > kMoreThanNormal && images_.doubled != 0)
        scale = 2;
    const CursorImage image = imageAt(scale);
    if (image.resource != 0) cursors.show(image);
}

bool Cursor::has(const CursorImage& image) const {
    return image.resource != 0 && (image == imageAt(1) || image == imageAt(2) || image == imageAt(3));
}

unsigned numberFor(const Cursor& cursor) {
    unsigned number = findLiving([&](const Cursor& other) { return other == cursor; });
    if (number != 0) return number;
    number = kFirstImageCursor;
    while (MapOf<__CursorContainerID>::find(number)) ++number;
    return number;
}

unsigned shownCursorNumber() {
    const ShownCursor shown = platform().cursors().shown();
    if (shown.number != 0) return shown.number < kFirstImageCursor ? shown.number : 0;
    return findLiving([&](const Cursor& cursor) { return cursor.has(shown.image); });
}

} // namespace kzo::plugin
