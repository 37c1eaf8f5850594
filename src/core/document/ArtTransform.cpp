// Art: bounds and transforms.
#include "core/Forward.h"
#include "core/document/Art.h"
#include "core/values/Angle.h"
#include "core/values/TransformMatrix.h"
#include "plugin/document/Art.h"

namespace kzo::core {

using Impl = plugin::Art;

// Bounds

ArtboardRect Art::bounds(BoundsOptions options) const { return ask(impl(), &Impl::bounds, options); }
ArtboardRect Art::strokeBounds() const { return bounds(BoundsOptions::Strokes); }
ArtboardRect Art::noStrokeBounds() const { return bounds(BoundsOptions::None); }
ArtboardRect Art::transformBounds(const TransformMatrix& matrix, BoundsOptions options) const {
    return ask(impl(), &Impl::transformBounds, matrix.impl(), options);
}
double Art::x() const { return noStrokeBounds().left; }
double Art::y() const { return noStrokeBounds().top; }
double Art::width() const { return noStrokeBounds().width(); }
double Art::height() const { return noStrokeBounds().height(); }
double Art::area() const { return ask(impl(), &Impl::area); }
double Art::perimeter() const { return ask(impl(), &Impl::perimeter); }

// Transforms

bool Art::offset(double dx, double dy, bool patterns) { return ask(impl(), &Impl::offset, dx, dy, patterns); }
bool Art::move(const ArtboardPoint& to) { return move(BoundsPinPointType::TopLeft, to); }
bool Art::move(BoundsPinPointType pin, const ArtboardPoint& to) { return ask(impl(), &Impl::move, pin, to); }

bool Art::rotate(const Angle& angle) { return rotate(angle, BoundsPinPointType::MidCenter); }
bool Art::rotate(const Angle& angle, const ArtboardPoint& about) {
    return ask(impl(), &Impl::rotate, angle.impl(), about);
}
bool Art::rotate(const Angle& angle, BoundsPinPointType about) {
    return ask(impl(), &Impl::rotateAtPin, angle.impl(), about);
}

bool Art::scale(double factor) { return scale(factor, factor); }
bool Art::scale(double factor, const ArtboardPoint& about) { return scale(factor, factor, about); }
bool Art::scale(double factor, BoundsPinPointType about) { return scale(factor, factor, about); }
bool Art::scale(double factorX, double factorY) { return scale(factorX, factorY, BoundsPinPointType::MidCenter); }
bool Art::scale(double factorX, double factorY, const ArtboardPoint& about) {
    return ask(impl(), &Impl::scale, factorX, factorY, about);
}
bool Art::scale(double factorX, double factorY, BoundsPinPointType about) {
    return ask(impl(), &Impl::scaleAtPin, factorX, factorY, about);
}

bool Art::transform(const TransformMatrix& matrix, bool patterns) {
    return ask(impl(), &Impl::transform, matrix.impl(), patterns);
}
bool Art::transformWithOptions(const TransformMatrix& matrix, double lineScale, TransformOptions options) {
    return ask(impl(), &Impl::transformWithOptions, matrix.impl(), lineScale, options);
}
bool Art::transformStrokes(double lineScale) { return ask(impl(), &Impl::transformStrokes, lineScale); }

} // namespace kzo::core
