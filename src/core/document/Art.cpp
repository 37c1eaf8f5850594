// Art: its views, and forwarding to the implementation.
#include "core/document/Art.h"

#include "core/Forward.h"
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

// Views by type

PathArt* Art::path() const { return &data_->path; }

// Attributes

bool Art::attribute(ArtAttribute which) const { return ask(impl(), &Impl::attribute, which); }
bool Art::selected() const { return ask(impl(), &Impl::selected); }
bool Art::locked() const { return ask(impl(), &Impl::locked); }
bool Art::hidden() const { return ask(impl(), &Impl::hidden); }
void Art::select() { ask(impl(), &Impl::select); }
void Art::deselect() { ask(impl(), &Impl::deselect); }

// Tree

std::unique_ptr<Art> Art::parent() const { return newHandle<Art>(ask(impl(), &Impl::parent)); }
std::unique_ptr<Art> Art::firstChild() const { return newHandle<Art>(ask(impl(), &Impl::firstChild)); }
std::unique_ptr<Art> Art::sibling() const { return newHandle<Art>(ask(impl(), &Impl::sibling)); }
std::unique_ptr<Art> Art::priorSibling() const { return newHandle<Art>(ask(impl(), &Impl::priorSibling)); }
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

// Whole objects moved

bool Art::offset(double dx, double dy, bool patterns) { return ask(impl(), &Impl::offset, dx, dy, patterns); }

// Removal

bool Art::dispose() { return ask(impl(), &Impl::dispose); }

} // namespace kzo::core
