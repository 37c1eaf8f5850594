// Bounds of art and the transform suite's calls.
#include <algorithm>
#include <vector>

#include "hostapi/AIArtSuite.h"
#include "hostapi/AITransformArtSuite.h"
#include "plugin/document/Art.h"
#include "plugin/document/Artboard.h"
#include "plugin/document/Convert.h"
#include "plugin/document/ConvertArt.h"

namespace kzo::plugin {

namespace {

using core::BoundsOptions;
using core::TransformOptions;

geo::TransformMatrix moving(double dx, double dy) { return {.tx = dx, .ty = dy}; }

/// What `matrix` does at the origin, done at `about`.
geo::TransformMatrix around(const geo::TransformMatrix& matrix, const core::ArtboardPoint& about) {
    return moving(-about.x(), -about.y()) * matrix * moving(about.x(), about.y());
}

} // namespace

// Bounds

core::ArtboardRect Art::bounds(BoundsOptions options) const { return transformBounds({}, options); }

core::ArtboardRect Art::transformBounds(const geo::TransformMatrix& matrix, BoundsOptions options) const {
    return get<&AIArtSuite::GetArtTransformBounds, core::ArtboardRect>(matrix, options);
}

namespace {

/// The sum over the art, if it is a path, and all paths in it.
template <class Measure> double sumOfPaths(ArtObject* top, Measure measure) {
    double sum = 0;
    forEachArt(top, [&](const Art& art) {
        if (const auto path = art.path()) sum += measure(*path);
        return true;
    });
    return sum;
}

} // namespace

std::optional<core::ArtboardRect> Art::edges() const {
    return find<&AIArtSuite::GetArtTransformBounds, core::ArtboardRect>(geo::TransformMatrix(), BoundsOptions::None);
}

double Art::area() const {
    return sumOfPaths(handle(), [](const PathArt& path) { return path.area(); });
}

double Art::perimeter() const {
    return sumOfPaths(handle(), [](const PathArt& path) { return path.length(); });
}

AIArtboard* Art::artboard() const {
    const auto place = edges();
    if (!place) return nullptr;
    AIArtboard* best = nullptr;
    double most = -1;
    for (AIArtboard* const board : Artboard::all()) {
        const core::ArtboardRect bounds = Artboard(board).bounds();
        if (!bounds.overlaps(*place)) continue;
        const double shared = (*place - bounds).area();
        if (shared > most) best = board;
        most = std::max(most, shared);
    }
    return best;
}

std::vector<AIArtboard*> Art::allArtboards() const {
    const auto place = edges();
    if (!place) return {};
    std::vector<AIArtboard*> boards = Artboard::all();
    std::erase_if(boards, [&](AIArtboard* board) { return !Artboard(board).bounds().overlaps(*place); });
    return boards;
}

std::optional<core::ArtboardPoint> Art::pin(core::BoundsPinPointType which) const {
    const auto box = edges();
    if (!box) return std::nullopt;
    const int place = static_cast<int>(which) / 10 - 1; // the pins are numbered row by row
    const auto part = [](int third) { return third / 2.0; };
    if (place < 0 || place > 8) return std::nullopt;
    return core::ArtboardPoint(box->impl().at(part(place % 3), part(place / 3)));
}

// Transforms

bool Art::offset(double dx, double dy, bool patterns) { return transform(moving(dx, dy), patterns); }

bool Art::move(core::BoundsPinPointType which, const core::ArtboardPoint& to) {
    const auto from = pin(which);
    return from && offset(to.x() - from->x(), to.y() - from->y(), true);
}

bool Art::rotate(geo::Angle angle, const core::ArtboardPoint& about) {
    geo::TransformMatrix turn;
    turn.setRotate(-angle); // which turns clockwise on screen
    return transform(around(turn, about), true);
}

bool Art::rotateAtPin(geo::Angle angle, core::BoundsPinPointType about) {
    const auto at = pin(about);
    return at && rotate(angle, *at);
}

bool Art::scale(double factorX, double factorY, const core::ArtboardPoint& about) {
    geo::TransformMatrix scaling;
    scaling.setScale(factorX, factorY);
    return transform(around(scaling, about), true);
}

bool Art::scaleAtPin(double factorX, double factorY, core::BoundsPinPointType about) {
    const auto at = pin(about);
    return at && scale(factorX, factorY, *at);
}

bool Art::transform(const geo::TransformMatrix& matrix, bool patterns) {
    const TransformOptions options = TransformOptions::AllButPatterns;
    return transformWithOptions(matrix, 1, patterns ? options | TransformOptions::Patterns : options);
}

bool Art::transformWithOptions(const geo::TransformMatrix& matrix, double lineScale, TransformOptions options) {
    return call<&AITransformArtSuite::TransformArt>(matrix, lineScale, options);
}

bool Art::transformStrokes(double lineScale) {
    return transformWithOptions({}, lineScale, TransformOptions::Children | TransformOptions::ScaleLines);
}

} // namespace kzo::plugin
