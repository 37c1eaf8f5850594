// Art: its views, and forwarding to the implementation.
#include "core/document/Art.h"

#include "core/Forward.h"
#include "core/document/Layer.h"
#include "core/document/PathArt.h"
#include "plugin/document/Art.h"
#include "plugin/host/RefCountMap.h"

namespace kzo::core {

using Impl = plugin::Art;
template class Handle<Impl>;

/// The typed views, each with its way back to the handle.
class __IntArtData {
  public:
    explicit __IntArtData(const Art* owner) : path(owner) {}
    virtual ~__IntArtData() = default;
    __IntArtData(const __IntArtData&) = delete;
    __IntArtData& operator=(const __IntArtData&) = delete;

    PathArt path;
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
bool Art::isLayerGroup() const { return ask(impl(), &Impl::isLayerGroup); }

// Views by type

PathArt* Art::path() const { return &data_->path; }

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

// Removal

bool Art::dispose() { return ask(impl(), &Impl::dispose); }

} // namespace kzo::core
