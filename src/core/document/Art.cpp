// Art: sharing of the implementation object, and forwarding to it.
#include "core/document/Art.h"

#include "core/Forward.h"
#include "plugin/document/Art.h"

namespace kzo::core {

/// What an Art holds: its part in the shared object, and the typed views.
class __IntArtData {
  public:
    __IntArtData(const Art* owner, plugin::ArtWrapper* shared) : wrapper(shared), path(owner) {}
    virtual ~__IntArtData() {
        if (wrapper) plugin::ArtMap::release(wrapper->key);
    }
    __IntArtData(const __IntArtData&) = delete;
    __IntArtData& operator=(const __IntArtData&) = delete;

    plugin::ArtWrapper* wrapper; // null for an empty handle
    PathArt path;
};

// Construction

Art::Art() { share(nullptr); }

Art::Art(ArtObject* handle) {
    share(handle);
    // Undo may have brought back what was disposed of while some handle still held the emptied object.
    if (handle && isEmpty()) data_->wrapper->impl = plugin::Art(handle);
}

Art::Art(ArtType type, PaintOrder order, const Art* prep) {
    share(plugin::Art::create(type, order, prep ? prep->aiArtHandle() : nullptr));
}
Art::Art(const Art& other) { *this = other; }

Art& Art::operator=(const Art& other) {
    // By key: what was disposed of is shared further on, so that all stay empty together.
    const plugin::ArtWrapper* const wrapper = other.data_->wrapper;
    share(wrapper ? wrapper->key : nullptr);
    return *this;
}

Art::~Art() = default;

void Art::share(ArtObject* handle) {
    // Acquired before the old part is let go of: they may be one.
    plugin::ArtWrapper* const wrapper =
        handle ? plugin::ArtMap::acquire(handle, [&] { return plugin::Art(handle); }) : nullptr;
    data_ = std::make_unique<__IntArtData>(this, wrapper);
}

// Identity

plugin::Art* Art::impl() const {
    return data_->wrapper && data_->wrapper->impl.handle() ? &data_->wrapper->impl : nullptr;
}
bool Art::isEmpty() const { return !impl(); }
bool Art::operator==(const Art& other) const { return aiArtHandle() == other.aiArtHandle(); }
ArtObject* Art::aiArtHandle() const { return ask(impl(), &plugin::Art::handle); }
bool Art::valid() const { return ask(impl(), &plugin::Art::valid); }
ArtType Art::artType() const { return ask(impl(), &plugin::Art::artType); }

// Views by type

PathArt* Art::path() const { return &data_->path; }

// Attributes

bool Art::attribute(ArtAttribute which) const { return ask(impl(), &plugin::Art::attribute, which); }
bool Art::selected() const { return ask(impl(), &plugin::Art::selected); }
bool Art::locked() const { return ask(impl(), &plugin::Art::locked); }
bool Art::hidden() const { return ask(impl(), &plugin::Art::hidden); }
void Art::select() { ask(impl(), &plugin::Art::select); }
void Art::deselect() { ask(impl(), &plugin::Art::deselect); }

// Tree

std::unique_ptr<Art> Art::parent() const { return newHandle<Art>(ask(impl(), &plugin::Art::parent)); }
std::unique_ptr<Art> Art::firstChild() const { return newHandle<Art>(ask(impl(), &plugin::Art::firstChild)); }
std::unique_ptr<Art> Art::sibling() const { return newHandle<Art>(ask(impl(), &plugin::Art::sibling)); }
std::unique_ptr<Art> Art::priorSibling() const { return newHandle<Art>(ask(impl(), &plugin::Art::priorSibling)); }
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

bool Art::dispose() { return ask(impl(), &plugin::Art::dispose); }

} // namespace kzo::core
