// Changes of paths: points, style, place.
#include <algorithm>

#include "model/DocumentImpl.h"
#include "model/Flat.h"

namespace easel::model {

/// Adds up nothing but 0, unless something is not finite.
bool Document::staysFinite(const Node& top, const Affine& by, double lineScale) {
    double sum = 0;
    const auto add = [&](double number) { sum += 0 * number; };
    const auto addPoint = [&](Point point) {
        add(point.x);
        add(point.y);
    };
    for (const Node* at = &top; at; at = nextWithin(top, *at)) {
        if (at->type() == NodeType::Path)
            for (const PathPoint& point : at->path().points)
                for (const Point place : {point.anchor, point.in, point.out}) addPoint(by(place));
        if (at->isOutlined() && lineScale != 1) {
            Style style = at->style();
            style.changeLengths([&](double& length) { add(length * lineScale); });
        }
        const Affine placed = at->placed() * by;
        for (const double number : {placed.a, placed.b, placed.c, placed.d, placed.e, placed.f}) add(number);
        if (at->type() != NodeType::Opaque || at->hull().isEmpty()) continue;
        OpaqueData data = at->opaque();
        data.place(placed);
        const Box hull = data.hull();
        addPoint({hull.left, hull.top});
        addPoint({hull.right, hull.bottom});
    }
    return sum == 0;
}

PathData& Document::Impl::writablePath(Node& path) {
    tree.index.markDirty(path);
    return change(path).path.writable();
}

void Document::setPath(Node& path, PathData data) {
    if (path.path() == data) return;
    const Transaction transaction(journal());
    const std::size_t count = data.points.size();
    impl_->tree.index.markDirty(path);
    impl_->change(path).path = Shared(std::move(data));
    impl_->fitPointSelection(path, count);
}

void Document::setPoints(Node& path, std::size_t index, const PathPoint* points, std::size_t count) {
    if (std::equal(points, points + count, path.path().points.begin() + static_cast<std::ptrdiff_t>(index))) return;
    const Transaction transaction(journal());
    PathData& data = impl_->writablePath(path);
    std::copy(points, points + count, data.points.begin() + static_cast<std::ptrdiff_t>(index));
}

void Document::setCorners(Node& path, std::size_t index, const PointFlags& corners) {
    std::size_t same = 0;
    while (same < corners.size() && path.path().isCorner(index + same) == corners[same]) ++same;
    if (same == corners.size()) return;
    const Transaction transaction(journal());
    impl_->writablePath(path).setCorners(index, corners);
}

void Document::setPointCount(Node& path, std::size_t count) {
    if (path.path().points.size() == count) return;
    const Transaction transaction(journal());
    impl_->writablePath(path).resize(count);
    impl_->fitPointSelection(path, count);
}

void Document::insertPoints(Node& path, std::size_t index, const PathPoint* points, std::size_t count) {
    if (count == 0) return;
    const Transaction transaction(journal());
    PointSelection parts(path.path().points.size());
    for (std::size_t i = 0; i < parts.size(); ++i) parts[i] = path.selectedParts(i);
    parts.insert(parts.begin() + static_cast<std::ptrdiff_t>(index), count, 0);
    impl_->writablePath(path).insert(index, points, count);
    if (path.selected()) selectPoints(path, std::move(parts));
}

void Document::removePoints(Node& path, std::size_t index, std::size_t count) {
    if (count == 0) return;
    const Transaction transaction(journal());
    PointSelection parts(path.path().points.size());
    for (std::size_t i = 0; i < parts.size(); ++i) parts[i] = path.selectedParts(i);
    const auto at = parts.begin() + static_cast<std::ptrdiff_t>(index);
    parts.erase(at, at + static_cast<std::ptrdiff_t>(count));
    impl_->writablePath(path).erase(index, count);
    if (path.selected()) selectPoints(path, std::move(parts));
}

void Document::setClosed(Node& path, bool closed) {
    if (path.path().closed == closed) return;
    const Transaction transaction(journal());
    impl_->writablePath(path).closed = closed;
}

void Document::reverse(Node& path) {
    const Transaction transaction(journal());
    impl_->writablePath(path).reverse();
    if (!path.state_.pointSelection) return;
    PointSelection flags = *path.state_.pointSelection;
    std::reverse(flags.begin(), flags.end());
    for (std::uint8_t& parts : flags) {
        const int in = (parts & kOutPart) != 0 ? kInPart : 0;
        const int out = (parts & kInPart) != 0 ? kOutPart : 0;
        parts = static_cast<std::uint8_t>((parts & kAnchorPart) | in | out);
    }
    path.state_.pointSelection = Shared(std::move(flags));
}

void Document::setStyle(Node& path, const Style& style) {
    if (path.style() == style) return;
    const Transaction transaction(journal());
    const Shared<Style> shared = impl_->styles.get(style);
    Node& whole = path.isSubpath() ? *path.parent() : path;
    for (Node* at = &whole; at; at = nextWithin(whole, *at)) impl_->change(*at).style = shared;
}

bool Document::offset(Node& node, double dx, double dy) { return transform(node, {.e = dx, .f = dy}); }

bool Document::transform(Node& node, const Affine& by, double lineScale) {
    if (by == Affine{} && lineScale == 1) return true;
    if (isFlat(by) || !staysFinite(node, by, lineScale)) return false;
    const Transaction transaction(journal());
    if (!(by == Affine{}))
        for (Node* at = &node; at; at = nextWithin(node, *at)) impl_->transform(*at, by);
    if (lineScale != 1) scaleLines(node, lineScale);
    return true;
}

void Document::scaleLines(Node& node, double scale) {
    const Transaction transaction(journal());
    for (Node* at = &node; at; at = nextWithin(node, *at)) {
        if (!at->isOutlined()) continue;
        Style style = at->style();
        style.changeLengths([&](double& length) { length *= scale; });
        setStyle(*at, style);
    }
}

void Document::Impl::setPlace(Node& node, const Affine& placed) {
    if (node.type() == NodeType::Opaque) return setOpaque(node, [&](OpaqueData& data) { data.place(placed); });
    OpaqueData data;
    data.place(placed);
    change(node).opaque = placed == Affine{} ? Shared<OpaqueData>{} : Shared(std::move(data));
}

void Document::Impl::transform(Node& node, const Affine& by) {
    if (node.keepsPlace()) setPlace(node, node.placed() * by);
    if (node.type() != NodeType::Path || node.path().points.empty()) return;
    for (PathPoint& point : writablePath(node).points)
        for (Point* const place : {&point.anchor, &point.in, &point.out}) *place = by(*place);
}

void Document::setBounds(Node& opaque, const Box& bounds) {
    if (opaque.opaque().bounds && *opaque.opaque().bounds == bounds) return;
    const Transaction transaction(journal());
    impl_->setOpaque(opaque, [&](OpaqueData& data) { data.bounds = Shared(bounds); });
}

void Document::measure() {
    if (origin) origin->measure(*this);
}

void Document::setMeasured(NodeId art, Shared<Box> known, const Box& bounds) {
    if (Node* const node = find(art)) impl_->tree.index.markDirty(*node);
    known.setForAll(bounds);
    if (!journal().running()) impl_->tree.index.reindex();
}

void Document::setText(Node& opaque, TextData text) {
    const Transaction transaction(journal());
    setBounds(opaque, text.bounds());
    setSpecial(opaque, std::move(text));
    if (impl_->guessed.empty() || impl_->guessed.back() != opaque.id()) impl_->guessed.push_back(opaque.id());
}

std::vector<NodeId> Document::takeGuessed() { return std::exchange(impl_->guessed, {}); }

void Document::setSpecial(Node& opaque, Special special) {
    const Special* const known = opaque.content().special();
    if (known && *known == special) return;
    const Transaction transaction(journal());
    impl_->setOpaque(opaque, [&](OpaqueData& data) { data.special = Shared(std::move(special)); });
}

/// Keeps the flags of the points that are left; points that are added are not selected.
void Document::Impl::fitPointSelection(Node& path, std::size_t count) {
    if (!path.state_.pointSelection) return;
    PointSelection flags = *path.state_.pointSelection;
    flags.resize(count);
    if (std::all_of(flags.begin(), flags.end(), [](std::uint8_t parts) { return parts == 0; })) {
        setSelected(path, false, {});
    } else {
        path.state_.pointSelection = Shared(std::move(flags));
    }
}

} // namespace easel::model
