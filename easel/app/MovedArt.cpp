// Compares the outlines with those that were painted.
#include "app/MovedArt.h"

#include <algorithm>
#include <utility>

#include "app/PathPainter.h"
#include "app/Watch.h"

namespace easel::app {

namespace {

using model::Node;
using model::OutlineList;
using model::PathData;

constexpr int kMargin = 256;            // pixels beyond the port that are painted too, for what is moved into it
constexpr double kSamePlace = 1.0 / 64; // of a pixel, which nobody sees

/// Where art without an outline has its box.
PathData boxOf(const Node& art) {
    const model::Box box = art.hull();
    if (box.isEmpty()) return {};
    return {{model::cornerAt({box.left, box.top}), model::cornerAt({box.right, box.bottom})}};
}

} // namespace

void MovedArt::take(const std::vector<Node*>& art, const Port& port) {
    Shape shape = shapeOf(art);
    const bool mayMove = mayMove_ && port == port_ && shape.looks == shape_.looks;
    const auto way = mayMove ? model::commonMove(shape_.outlines, shape.outlines) : std::nullopt;
    if (!way) return paintAnew(art, std::move(shape), port);
    const QPointF pixels = QPointF(way->x, way->y) * port.pixels;
    const QPoint shift = pixels.toPoint();
    const QRect shown = around_.translated(shift) & QRect(QPoint(0, 0), port.size);
    if (!shown.isEmpty() && !reach_.translated(shift).contains(shown)) return paintAnew(art, std::move(shape), port);
    shift_ = shift;
    isRounded_ = (pixels - shift).manhattanLength() > kSamePlace;
}

bool MovedArt::sharpen() {
    if (isRounded_) mayMove_ = false;
    return isRounded_;
}

void MovedArt::paintAnew(const std::vector<Node*>& art, Shape shape, const Port& port) {
    port_ = port;
    shape_ = std::move(shape);
    shift_ = {};
    isRounded_ = false;
    mayMove_ = std::none_of(art.begin(), art.end(), [](const Node* each) { return isClipped(*each); });
    around_ = {};
    for (const Node* const each : art)
        for (const Node* at = each; at; at = model::nextWithin(*each, *at))
            around_ |= port.rectangle(paintedBox(at->content()));
    reach_ = around_ & QRect(QPoint(0, 0), port.size).adjusted(-kMargin, -kMargin, kMargin, kMargin);
    image_ = QImage(reach_.size(), QImage::Format_ARGB32_Premultiplied);
    if (image_.isNull()) return;
    const Cairo cairo = painterOn(image_, image_.rect(), port.part(reach_));
    for (const Node* const each : art) app::paint(cairo.get(), *each, 1 / port.pixels);
}

MovedArt::Shape MovedArt::shapeOf(const std::vector<Node*>& art) {
    Shape shape;
    shape.looks.reserve(art.size());
    shape.outlines.reserve(art.size());
    for (const Node* const each : art) {
        const std::size_t before = shape.outlines.size();
        if (each->type() == model::NodeType::Path)
            shape.outlines.push_back(each->content().path);
        else if (each->isOutlined())
            for (const auto& outline : each->outlines()) shape.outlines.push_back(outline);
        else
            shape.outlines.emplace_back(boxOf(*each));
        shape.looks.push_back({each->content().style, each->extras().opacity, shape.outlines.size() - before});
    }
    return shape;
}

} // namespace easel::app
