// Art: its views, and forwarding to the implementation.
#include "core/document/Art.h"

#include "core/Forward.h"
#include "core/document/Artboard.h"
#include "core/document/Dictionary.h"
#include "core/document/Layer.h"
#include "plugin/document/Art.h"
#include "plugin/host/RefCountMap.h"

namespace kzo::core {

using Impl = plugin::Art;
template class Handle<Impl>;

/// The typed views, each with its way back to the handle.
class __IntArtData {
  public:
    explicit __IntArtData(const Art* owner)
        : custom(owner), mask(owner), mesh(owner), path(owner), placed(owner), raster(owner), text(owner) {}
    virtual ~__IntArtData() = default;
    __IntArtData(const __IntArtData&) = delete;
    __IntArtData& operator=(const __IntArtData&) = delete;

    CustomArt custom;
    MaskArt mask;
    MeshArt mesh;
    PathArt path;
    PlacedArt placed;
    RasterArt raster;
    TextArt text;
};

// Construction

Art::Art() : Art(nullptr) {}
Art::Art(ArtObject* handle) : Handle(plugin::share<Impl>(handle)), data_(std::make_unique<__IntArtData>(this)) {}
Art::Art(ArtType type, PaintOrder order, const Art* prep)
    : Art(Impl::create(type, order, prep ? prep->aiArtHandle() : nullptr)) {}
Art::Art(const Art& other) : Handle(other), data_(std::make_unique<__IntArtData>(this)) {}
Art& Art::operator=(const Art& other) {
    Handle::operator=(other);
    return *this;
}
Art::~Art() = default;

// Identity

ArtObject* Art::aiArtHandle() const { return ask(impl(), &Impl::handle); }
bool Art::valid() const { return ask(impl(), &Impl::valid); }
ArtType Art::artType() const { return ask(impl(), &Impl::artType); }
std::string Art::uid() const { return ask(impl(), &Impl::uid); }
bool Art::isLayerGroup() const { return ask(impl(), &Impl::isLayerGroup); }

// Views by type

PathArt* Art::path() const { return &data_->path; }
CustomArt* Art::customArt() const { return &data_->custom; }
MaskArt* Art::mask() const { return &data_->mask; }
MeshArt* Art::mesh() const { return &data_->mesh; }
PlacedArt* Art::placed() const { return &data_->placed; }
RasterArt* Art::raster() const { return &data_->raster; }
TextArt* Art::text() const { return &data_->text; }

// Attributes

bool Art::attribute(ArtAttribute which) const { return ask(impl(), &Impl::attribute, which); }
bool Art::setAttribute(ArtAttribute which, bool on) { return ask(impl(), &Impl::setAttribute, which, on); }
ArtAttribute Art::allAttributes() const { return ask(impl(), &Impl::allAttributes); }
bool Art::setAllAttributes(ArtAttribute attributes) { return ask(impl(), &Impl::setAllAttributes, attributes); }
bool Art::selected() const { return attribute(ArtAttribute::Selected); }
bool Art::fullySelected() const { return attribute(ArtAttribute::FullySelected); }
bool Art::anyAncestorSelected() const { return ask(impl(), &Impl::anyAncestor, ArtAttribute::Selected); }
bool Art::setSelected(bool selected) {
    return setAttribute(ArtAttribute::Selected | ArtAttribute::FullySelected, selected);
}
void Art::select() { setSelected(true); }
void Art::deselect() { setSelected(false); }
bool Art::locked() const { return attribute(ArtAttribute::Locked); }
bool Art::anyAncestorLocked() const { return ask(impl(), &Impl::anyAncestor, ArtAttribute::Locked); }
bool Art::setLocked(bool locked) { return setAttribute(ArtAttribute::Locked, locked); }
bool Art::hidden() const { return attribute(ArtAttribute::Hidden); }
bool Art::anyAncestorHidden() const { return ask(impl(), &Impl::anyAncestor, ArtAttribute::Hidden); }
bool Art::setHidden(bool hidden) { return setAttribute(ArtAttribute::Hidden, hidden); }
bool Art::editable() const { return ask(impl(), &Impl::editable); }
bool Art::setEditable(bool editable) { return setLocked(!editable); }

// Tree

std::unique_ptr<Layer> Art::layer() const { return newHandle<Layer>(ask(impl(), &Impl::layer)); }
std::unique_ptr<Art> Art::parent() const { return newHandle<Art>(ask(impl(), &Impl::parent)); }
std::unique_ptr<Art> Art::firstChild() const { return newHandle<Art>(ask(impl(), &Impl::firstChild)); }
std::unique_ptr<Art> Art::lastChild() const { return newHandle<Art>(ask(impl(), &Impl::lastChild)); }
std::unique_ptr<Art> Art::sibling() const { return newHandle<Art>(ask(impl(), &Impl::sibling)); }
std::unique_ptr<Art> Art::priorSibling() const { return newHandle<Art>(ask(impl(), &Impl::priorSibling)); }
std::int32_t Art::childCount() const { return ask(impl(), &Impl::childCount); }
std::unique_ptr<std::vector<Art>> Art::matchingChildren(const std::vector<MatchArtSpec>& kinds) const {
    const std::vector<ArtObject*> found = ask(impl(), &Impl::matchingChildren, kinds);
    return std::make_unique<std::vector<Art>>(found.begin(), found.end());
}
std::unique_ptr<Artboard> Art::artboard() const { return newHandle<Artboard>(ask(impl(), &Impl::artboard)); }
std::vector<Artboard> Art::allArtboards() const {
    const std::vector<AIArtboard*> found = ask(impl(), &Impl::allArtboards);
    return {found.begin(), found.end()};
}
Art::Iterator Art::begin() const { return Iterator(firstChild()); }

std::unique_ptr<Art> Art::Iterator::art() const { return child_ ? std::make_unique<Art>(*child_) : nullptr; }

Art::Iterator& Art::Iterator::operator++() {
    if (child_) child_ = child_->sibling();
    return *this;
}

Art::Iterator& Art::Iterator::operator--() {
    if (child_) child_ = child_->priorSibling();
    return *this;
}

// Copies and places

std::unique_ptr<Art> Art::duplicate(PaintOrder order, const Art* prep) const {
    return newHandle<Art>(ask(impl(), &Impl::duplicate, order, prep ? prep->aiArtHandle() : nullptr));
}
bool Art::reorder(PaintOrder order, const Art* prep) {
    return ask(impl(), &Impl::reorder, order, prep ? prep->aiArtHandle() : nullptr);
}

// Isolation

bool Art::canIsolate() const { return ask(impl(), &Impl::canIsolate); }
bool Art::isIsolated() const { return ask(impl(), &Impl::isIsolated); }
bool Art::isolate() { return ask(impl(), &Impl::isolate); }

// Look

ArtStyle Art::style() const { return ask(impl(), &Impl::style); }
bool Art::setStyle(const ArtStyle& style) { return ask(impl(), &Impl::setStyle, style); }
bool Art::isStyled() const { return ask(impl(), &Impl::isStyled); }
bool Art::hasFill() const { return ask(impl(), &Impl::hasFill); }
bool Art::hasStroke() const { return ask(impl(), &Impl::hasStroke); }
bool Art::isClipGroup() const { return ask(impl(), &Impl::isClipGroup); }
bool Art::setIsClipGroup(bool clipped) { return ask(impl(), &Impl::setIsClipGroup, clipped); }
double Art::opacity() const { return ask(impl(), &Impl::opacity); }
bool Art::setOpacity(double opacity) { return ask(impl(), &Impl::setOpacity, opacity); }
BlendMode Art::blendMode() const { return ask(impl(), &Impl::blendMode); }
bool Art::setBlendMode(BlendMode mode) { return ask(impl(), &Impl::setBlendMode, mode); }
BlendKnockout Art::knockout() const { return ask(impl(), &Impl::knockout); }
BlendKnockout Art::inheritedKnockout() const { return ask(impl(), &Impl::inheritedKnockout); }
bool Art::setKnockout(BlendKnockout knockout) { return ask(impl(), &Impl::setKnockout, knockout); }
bool Art::centerPointVisible() const { return ask(impl(), &Impl::centerPointVisible); }
bool Art::setCenterPointVisible(bool visible) { return ask(impl(), &Impl::setCenterPointVisible, visible); }

// What plug-ins keep with it

Dictionary Art::dictionary() const { return Dictionary(*this); }

bool Art::expand(ExpandOptions options, std::int32_t steps) { return ask(impl(), &Impl::expand, options, steps); }

// What it refers to

std::string Art::symbol() const { return ask(impl(), &Impl::symbol); }
bool Art::setSymbol(const std::string& name) { return ask(impl(), &Impl::setSymbol, name); }
bool Art::updateLinks() { return ask(impl(), &Impl::updateLinks); }
bool Art::updateBounds() { return ask(impl(), &Impl::updateBounds); }

// Removal

bool Art::disposeChildren() { return ask(impl(), &Impl::disposeChildren); }
bool Art::dispose() { return ask(impl(), &Impl::dispose); }

} // namespace kzo::core
