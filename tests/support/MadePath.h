// Paths made through the facade, for tests of what works on host handles. Only while a message is handled.
#pragma once

#include <memory>
#include <vector>

#include "core/app/Illustrator.h"
#include "core/document/Art.h"

namespace desk {

/// An open path of these points on top of the current layer.
inline ArtObject* madePath(const std::vector<kzo::core::ArtboardSegPoint>& points) {
    const auto layer = kzo::core::Illustrator::instance()->currentDocument()->currentLayer();
    const kzo::core::Art art(kzo::core::ArtType::Path, kzo::core::PaintOrder::InsideOnTop, layer->group().get());
    art.path()->setClosed(false);
    art.path()->setSegPointCount(static_cast<std::int16_t>(points.size()));
    art.path()->setSegPoints(0, points);
    return art.aiArtHandle();
}

/// The same of corners.
inline ArtObject* madePath(const std::vector<kzo::core::ArtboardPoint>& corners) {
    std::vector<kzo::core::ArtboardSegPoint> points;
    points.reserve(corners.size());
    for (const kzo::core::ArtboardPoint& corner : corners) points.emplace_back(corner, true);
    return madePath(points);
}

inline std::vector<kzo::core::ArtboardPoint> anchorsOf(ArtObject* art) {
    std::vector<kzo::core::ArtboardPoint> anchors;
    const kzo::core::Art handle(art);
    for (const kzo::core::ArtboardSegPoint& point : handle.path()->segPoints(0, handle.path()->segPointCount()))
        anchors.push_back(point.p);
    return anchors;
}

} // namespace desk
