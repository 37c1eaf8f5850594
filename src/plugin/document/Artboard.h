// One artboard of the host's current document: the calls behind core::Artboard.
#pragma once

#include <string>
#include <vector>

#include "core/values/ArtboardRect.h"
#include "plugin/host/Object.h"

struct AIArtboard;

namespace kzo::plugin {

class Artboard : public host::Object<AIArtboard> {
  public:
    using Object::Object;

    [[nodiscard]] static std::vector<AIArtboard*> all(); ///< of the current document

    [[nodiscard]] int index() const; ///< -1 when the host refuses
    [[nodiscard]] std::string title() const;
    bool setTitle(const std::string& title);
    [[nodiscard]] core::ArtboardRect bounds() const;
    bool setBounds(const core::ArtboardRect& bounds);
    bool dispose();
};

} // namespace kzo::plugin
