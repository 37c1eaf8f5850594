// One view of the host's current document: the calls behind core::View.
#pragma once

#include "core/values/ArtboardPoint.h"
#include "core/values/ArtboardRect.h"
#include "plugin/host/Object.h"

struct AIDocumentView;

namespace kzo::plugin {

class View : public host::Object<AIDocumentView> {
  public:
    using Object::Object;

    [[nodiscard]] core::ArtboardRect bounds() const;
    [[nodiscard]] core::ArtboardPoint center() const;
    bool setCenter(const core::ArtboardPoint& center);
    [[nodiscard]] double zoom() const;
    bool setZoom(double zoom);
};

} // namespace kzo::plugin
