// A handle on one artboard of the current document.
#pragma once

#include <string>

#include "core/Handle.h"
#include "core/values/ArtboardRect.h"

struct AIArtboard;

namespace kzo::plugin {
class Artboard;
}

namespace kzo::core {

extern template class Handle<plugin::Artboard>;

/// An empty handle returns -1, an empty text or an empty rectangle; what changes something returns whether the host did
/// it.
class Artboard : public Handle<plugin::Artboard> {
  public:
    Artboard() = default; ///< empty
    explicit Artboard(AIArtboard* handle);

    [[nodiscard]] AIArtboard* aiArtboardHandle() const;

    [[nodiscard]] int index() const; ///< among those of the document, from 0
    [[nodiscard]] std::string title() const;
    bool setTitle(const std::string& title);
    [[nodiscard]] ArtboardRect bounds() const;
    bool setBounds(const ArtboardRect& bounds); ///< false for one without an area

    bool dispose(); ///< takes it out of the document, unless it is the last
};

} // namespace kzo::core
