// What the views of an Art by its type have in common.
#pragma once

namespace kzo::core {

class Art;

/// Belongs to its Art, made and gone with it, and cannot be copied. When the owner is of another type, operations do
/// nothing and return false, 0, an empty text or null. Operations that change something return whether the host did it.
class ArtView {
  public:
    explicit ArtView(const Art* owner) : owner_(owner) {}
    ArtView(const ArtView&) = delete;
    ArtView& operator=(const ArtView&) = delete;

  protected:
    const Art* owner_;
};

} // namespace kzo::core
