// Layers, looking up, the tree of art, its attributes and its selection.
#include "model/Document.h"

#include <algorithm>
#include <cassert>

#include "model/Clip.h"
#include "model/DocumentImpl.h"
#include "model/OrderLabels.h"

namespace easel::model {

namespace {

Shared<std::string> sharedText(std::string_view text) {
    return text.empty() ? Shared<std::string>() : Shared(std::string(text));
}

/// What cannot be seen does not count: colours that paint nothing, dashes of a solid line.
Style visiblePart(Style style) {
    if (!style.fill) style.fillColor = {};
    if (!style.stroke) style.strokeColor = {};
    Dashes dashes = style.dashes();
    if (dashes.count == 0) dashes.offset = 0;
    std::fill(dashes.lengths.begin() + dashes.count, dashes.lengths.end(), 0);
    style.setDashes(dashes);
    return style;
}

/// The content as far as it shows. How a group has been transformed shows in what it holds, and of a path in its
/// points.
Content visiblePart(const Node& node) {
    Content content = node.content();
    if (node.type() != NodeType::Opaque) content.opaque = {};
    if (content.style) content.style = Shared(visiblePart(*content.style));
    if (content.extras && content.extras->hasOtherClip) { // which files have in another form
        Extras extras = *content.extras;
        extras.hasOtherClip = false;
        extras.clip = {};
        content.extras = extras == Extras() ? Shared<Extras>() : Shared(std::move(extras));
    }
    if (content.path && content.path->points.empty()) content.path = Shared(PathData{});
    return content;
}

/// What is locked and hidden as one with the node.
Node& wholeOf(Node& node) { return node.isSubpath() ? *node.parent() : node; }

bool looksSame(const Node& a, const Node& b) {
    return a.type() == b.type() && a.childCount() == b.childCount() && visiblePart(a) == visiblePart(b);
}

int depthOf(const Node& node) {
    int depth = 0;
    for (const Node* at = node.parent(); at; at = at->parent()) ++depth;
    return depth;
}

/// A place in the tree: the parent, and the neighbours to be.
struct Spot {
    Node* parent;
    Node* above;
    Node* below;
};

Spot spotOf(Placement placement, Node& anchor) {
    switch (placement) {
    case Placement::Above: return {anchor.parent(), anchor.previous(), &anchor};
    case Placement::Below: return {anchor.parent(), &anchor, anchor.next()};
    case Placement::OnTopInside: return {&anchor, nullptr, anchor.firstChild()};
    case Placement::AtBottomInside: break;
    }
    return {&anchor, anchor.lastChild(), nullptr};
}

} // namespace

Document::Document(double width, double height) : impl_(std::make_unique<Impl>()) {
    impl_->width = width;
    impl_->height = height;
    view.center = {width / 2, height / 2};
    impl_->journal.begin();
    impl_->journal.setKind(UndoKind::Silent);
    addLayer("Layer 1");
    impl_->journal.end();
}

Document::~Document() = default;

// Page and view

double Document::width() const { return impl_->width; }

double Document::height() const { return impl_->height; }

Box Document::visibleBox() const {
    const double halfWidth = (view.windowWidth > 0 ? view.windowWidth : width()) / 2 / view.zoom;
    const double halfHeight = (view.windowHeight > 0 ? view.windowHeight : height()) / 2 / view.zoom;
    return {view.center.x - halfWidth, view.center.y - halfHeight, view.center.x + halfWidth,
            view.center.y + halfHeight};
}

Point Document::toScreen(Point point) const {
    const Box shown = visibleBox();
    return {(point.x - shown.left) * view.zoom, (point.y - shown.top) * view.zoom};
}

Point Document::fromScreen(Point place) const {
    const Box shown = visibleBox();
    return {shown.left + place.x / view.zoom, shown.top + place.y / view.zoom};
}

// Artboards

std::vector<Artboard> Document::artboards() {
    const std::vector<Artboard>& known = root().extras().artboards;
    return known.empty() ? std::vector{Artboard{.id = 1, .title = "Artboard 1", .place = {}}} : known;
}

void Document::setArtboards(std::vector<Artboard> artboards) {
    Extras extras = root().extras();
    extras.artboards = std::move(artboards);
    for (const Artboard& artboard : extras.artboards)
        settings.lastArtboard = std::max(settings.lastArtboard, artboard.id);
    setExtras(root(), std::move(extras));
}

Box Document::placeOf(const Artboard& artboard) const { return artboard.place.value_or(Box{0, 0, width(), height()}); }

// Layers

Node& Document::reach() {
    Node* const isolated = find(settings.isolated);
    return isolated ? *isolated : root();
}

Node& Document::root() { return impl_->tree.root(); }

std::size_t Document::layerCount() const { return impl_->tree.root().childCount(); }

Node* Document::layerAt(std::size_t index) {
    if (index >= layerCount()) return nullptr;
    auto& last = impl_->lastLayer;
    const bool fromThere = last.layer && last.arrangement == arrangement() && last.index <= 2 * index;
    if (!fromThere) last = {arrangement(), 0, root().firstChild()};
    for (; last.index < index; ++last.index) last.layer = last.layer->next();
    for (; last.index > index; --last.index) last.layer = last.layer->previous();
    return last.layer;
}

std::uint64_t Document::arrangement() const { return impl_->tree.linkCount(); }

Node& Document::currentLayer() {
    Node* const current = find(impl_->currentLayer);
    return current ? *current : *root().firstChild();
}

void Document::setCurrentLayer(Node& layer) {
    journal().requireWritable();
    impl_->currentLayer = layer.id();
}

Node& Document::addLayer(std::string_view title) {
    const Transaction transaction(journal());
    Node& layer = create(NodeType::Layer, Placement::OnTopInside, root());
    impl_->change(layer).name = sharedText(title);
    setCurrentLayer(layer);
    return layer;
}

// Looking up

Node* Document::find(NodeId id) { return impl_->tree.find(id); }

Node* Document::findByName(std::string_view name) {
    if (name.empty()) return nullptr;
    Node* node = &root();
    while (node && node->name() != name) node = nextWithin(root(), *node);
    return node;
}

int Document::comparePaintOrder(const Node& a, const Node& b) {
    const Node* left = &a;
    const Node* right = &b;
    const int leftDepth = depthOf(a);
    const int rightDepth = depthOf(b);
    for (int i = rightDepth; i < leftDepth; ++i) left = left->parent();
    for (int i = leftDepth; i < rightDepth; ++i) right = right->parent();
    if (left == right) return leftDepth - rightDepth;
    while (left->parent() != right->parent()) {
        left = left->parent();
        right = right->parent();
    }
    return left->state_.order < right->state_.order ? -1 : 1;
}

std::vector<Node*> Document::selection() {
    std::vector<Node*> nodes;
    if (impl_->tree.mostAreSelected()) {
        for (Node* at = &root(); at; at = nextWithin(root(), *at))
            if (at->selected()) nodes.push_back(at);
        return nodes;
    }
    nodes = impl_->tree.selected();
    std::sort(nodes.begin(), nodes.end(), [](const Node* a, const Node* b) { return comparePaintOrder(*a, *b) < 0; });
    return nodes;
}

bool Document::hasSelection(const Node& within) const {
    const std::vector<Node*>& selected = impl_->tree.selected();
    return std::any_of(selected.begin(), selected.end(), [&](const Node* node) { return node->isWithin(within); });
}

bool Document::sameContent(const Document& a, const Document& b) {
    if (a.width() != b.width() || a.height() != b.height()) return false;
    Node& rootA = a.impl_->tree.root();
    Node& rootB = b.impl_->tree.root();
    const Node* left = &rootA;
    const Node* right = &rootB;
    while (left && right) {
        if (!looksSame(*left, *right)) return false;
        left = nextWithin(rootA, *left);
        right = nextWithin(rootB, *right);
    }
    return left == right;
}

// Art

Node& Document::create(NodeType type, Placement placement, Node& anchor) {
    const Transaction transaction(journal());
    const Spot spot = spotOf(placement, anchor);
    const std::uint64_t order = OrderLabels::between(spot.above, spot.below, journal());
    Node& node = impl_->tree.make(type);
    journal().note(node);
    node.state_.parent = spot.parent;
    node.state_.order = order;
    node.state_.content = impl_->newContent(type, settings.pathStyle);
    if (node.isSubpath()) node.state_.content.style = spot.parent->state_.content.style;
    impl_->tree.attachNew(node, spot.below);
    return node;
}

Node& Document::duplicate(const Node& node, Placement placement, Node& anchor) {
    return make(snapshotOf(node), placement, anchor);
}

Snapshot Document::snapshotOf(const Node& node) const {
    Snapshot snapshot;
    std::vector<const Node*> open; // containers around the next part
    for (const Node* at = &node; at; at = nextWithin(node, *at)) {
        while (!open.empty() && open.back() != at->parent()) open.pop_back();
        Snapshot::Part part{at->type(), open.size(), at->content(), at->kept_, at->hasOwnUnits_};
        open.push_back(at);
        part.content.name = {};
        if (at->origin_ != 0) {
            Copied copied{at->origin_, original(*at)};
            copied.was.name = {};
            part.kept = Shared(Kept{at->kept_ ? at->kept_->clip : Shared<Clip>(), Shared(std::move(copied))});
        }
        snapshot.parts_.push_back(std::move(part));
    }
    return snapshot;
}

Node& Document::make(const Snapshot& snapshot, Placement placement, Node& anchor) {
    const Transaction transaction(journal());
    std::vector<Node*> open; // containers around the next part
    for (const Snapshot::Part& part : snapshot.parts_) {
        open.resize(part.depth);
        open.push_back(open.empty() ? &Impl::make(*this, part, placement, anchor)
                                    : &Impl::make(*this, part, Placement::AtBottomInside, *open.back()));
    }
    return *open.front();
}

/// A subpath is painted, hidden and locked as one with the others, and the file has no place for its name or its mask.
void Document::Impl::becomePartOf(Node& subpath, const Node& compound) {
    Content& content = subpath.state_.content;
    content.style = compound.content().style;
    content.extras = {};
    content.opaque = {};
    content.locked = content.hidden = false;
    content.name = {};
}

Node& Document::Impl::make(Document& document, const Snapshot::Part& part, Placement placement, Node& anchor) {
    Node& made = document.create(part.type, placement, anchor);
    made.state_.content = part.content;
    if (made.isSubpath()) {
        becomePartOf(made, *made.parent());
        return made;
    }
    made.kept_ = part.kept;
    made.hasOwnUnits_ = part.hasOwnUnits;
    return made;
}

namespace {

/// What the document's origin calls art, or what it is a duplicate of.
std::uint32_t originOf(const Node& art) { return art.copied() ? art.copied()->origin : art.origin(); }

} // namespace

Node& Document::createPart(NodeType type, Placement placement, Node& anchor, const Node& art) {
    const Transaction transaction(journal());
    Node& part = create(type, placement, anchor);
    const std::uint32_t units = art.units() ? art.units() : art.keepsPlace() ? originOf(art) : 0;
    if (units == 0 || part.isSubpath()) return part;
    part.kept_ = Shared(Kept{.clip = {}, .copied = {}, .units = units});
    part.hasOwnUnits_ = true;
    impl_->setPlace(part, art.placed());
    return part;
}

Node& Document::createInPlaceOf(Node& art, NodeType type) {
    const Transaction transaction(journal());
    Node& made = createPart(type, Placement::Below, art, art);
    Kept kept{.clip = art.kept_ ? art.kept_->clip : Shared<Clip>(), .copied = {}, .units = made.units()};
    kept.taken = art.units() ? art.taken() : originOf(art);
    made.kept_ = Shared(std::move(kept));
    Extras extras = art.extras();
    if (art.clip() && art.clip()->fitsBox) { // that of the art, not that of what takes its place
        extras.hasOtherClip = true;
        extras.clip = Shared(clipOnPage(made, maskOnPage(art)));
    }
    if (extras.ownMask) {
        made.hasOwnUnits_ = true;
        Affine& toArt = extras.ownMask.writable().toArt;
        toArt = toArt * art.placed() * inverse(made.placed());
    }
    setExtras(made, std::move(extras));
    setLocked(made, art.locked());
    setHidden(made, art.hidden());
    const std::string name = art.name();
    setName(art, {});
    setName(made, name);
    impl_->setSelected(made, art.selected(), {});
    return made;
}

void Document::removeChildren(Node& node) {
    const Transaction transaction(journal());
    while (Node* const child = node.firstChild()) remove(*child);
}

void Document::remove(Node& node) {
    if (node.type() == NodeType::Layer && layerCount() == 1) return;
    const Transaction transaction(journal());
    journal().note(node);
    impl_->tree.detach(node);
    node.state_.parent = nullptr;
    impl_->tree.updateAlive(node);
}

void Document::place(Node& node, Placement placement, Node& anchor) {
    const Spot spot = spotOf(placement, anchor);
    assert(!spot.parent->isWithin(node) && "nothing can be put into itself");
    assert(spot.parent->mayHold(node.type()));
    if (spot.above == &node || spot.below == &node) return;
    const Transaction transaction(journal());
    journal().note(node);
    impl_->tree.detach(node);
    node.state_.parent = spot.parent;
    node.state_.order = OrderLabels::between(spot.above, spot.below, journal());
    impl_->tree.attach(node);
    if (!node.isSubpath()) return;
    impl_->change(node);
    Impl::becomePartOf(node, *node.parent());
}

void Document::setName(Node& node, std::string_view name) {
    if (node.name() == name || node.isSubpath()) return;
    const Transaction transaction(journal());
    impl_->change(node).name = sharedText(name);
}

void Document::setLocked(Node& node, bool locked) {
    Node& whole = wholeOf(node);
    if (whole.locked() == locked) return;
    const Transaction transaction(journal());
    impl_->change(whole).locked = locked;
    if (locked && hasSelection(whole)) deselectAll(whole);
}

void Document::setHidden(Node& node, bool hidden) {
    Node& whole = wholeOf(node);
    if (whole.hidden() == hidden) return;
    const Transaction transaction(journal());
    impl_->change(whole).hidden = hidden;
    if (hidden && hasSelection(whole)) deselectAll(whole);
}

void Document::setExtras(Node& node, Extras extras) {
    if (node.isSubpath() || node.extras() == extras) return;
    const Transaction transaction(journal());
    impl_->change(node).extras = extras == Extras() ? Shared<Extras>() : Shared(std::move(extras));
}

void Document::setOpacity(Node& node, double opacity) {
    Node& whole = wholeOf(node);
    Extras extras = whole.extras();
    extras.opacity = opacity;
    setExtras(whole, std::move(extras));
}

// Selection

void Document::select(Node& node, bool selected) {
    const Transaction transaction(journal());
    for (Node* at = &node; at; at = nextWithin(node, *at)) impl_->setSelected(*at, selected, {});
    if (!selected) impl_->deselectAround(node);
}

void Document::selectPoints(Node& path, PointSelection points) {
    points.resize(path.path().points.size());
    const bool any = std::any_of(points.begin(), points.end(), [](std::uint8_t parts) { return parts != 0; });
    const bool all = std::all_of(points.begin(), points.end(), [](std::uint8_t parts) { return parts == kAnchorPart; });
    const Transaction transaction(journal());
    impl_->setSelected(path, any, any && !all ? Shared(std::move(points)) : Shared<PointSelection>());
    if (!any || !all) impl_->deselectAround(path);
}

void Document::deselectAll() { deselectAll(root()); }

void Document::deselectAll(Node& within) {
    const Transaction transaction(journal());
    // Backwards, because a deselected node's place in the list is taken by the last one.
    for (std::size_t i = impl_->tree.selected().size(); i-- > 0;) {
        Node& node = *impl_->tree.selected()[i];
        if (!node.isWithin(within)) continue;
        impl_->setSelected(node, false, {});
    }
    impl_->deselectAround(within);
}

void Document::Impl::setSelected(Node& node, bool selected, Shared<PointSelection> points) {
    NodeState& state = node.state_;
    if (node.type_ == NodeType::Root || node.type_ == NodeType::Layer) return;
    if (state.selected == selected && state.pointSelection.isSameAs(points)) return;
    journal.note(node);
    state.selected = selected;
    state.pointSelection = std::move(points);
    tree.updateSelected(node);
}

void Document::Impl::deselectAround(const Node& node) {
    for (Node* at = node.parent(); at; at = at->parent()) setSelected(*at, false, {});
}

Content Document::Impl::newContent(NodeType type, const Style& pathStyle) {
    Content content;
    if (type == NodeType::Path) content.path = emptyPath;
    if (type == NodeType::Path || type == NodeType::Compound) {
        if (!(*newStyle == pathStyle)) newStyle = styles.get(pathStyle);
        content.style = newStyle;
    }
    if (type == NodeType::Opaque) content.opaque = emptyOpaque;
    return content;
}

Content& Document::Impl::change(Node& node) {
    journal.note(node);
    if (node.origin_ != 0 && journal.isRecording()) originals.try_emplace(node.origin_, node.state_.content);
    return node.state_.content;
}

const Content& Document::original(const Node& node) const {
    const auto found = impl_->originals.find(node.origin_);
    return found == impl_->originals.end() ? node.state_.content : found->second;
}

void Document::setOrigin(Node& node, std::uint32_t number) { node.origin_ = number; }

void Document::setHasOwnUnits(Node& node) { node.hasOwnUnits_ = true; }

void Document::setClip(Node& node, Shared<Clip> clip) {
    if (!node.kept_) node.kept_ = Shared(Kept());
    node.kept_.writable().clip = std::move(clip);
    setHasOwnUnits(node);
}

Journal& Document::journal() { return impl_->journal; }

} // namespace easel::model
