// What an element says, or inherits, of properties that the model has no place for.
#pragma once

#include <string>

#include "model/Node.h"
#include "svg/Source.h"

namespace easel::svg {

/// Of art that was read, or is a copy of such; of other art it is as SVG begins.
class ElementLook {
  public:
    ElementLook(const model::Document& document, const model::Node& art);

    [[nodiscard]] std::string get(Name name) const;
    [[nodiscard]] double opacity(Name name) const; ///< 0 to 1
    [[nodiscard]] bool hasMarkers() const;

  private:
    const Source* source_;
    const Element* element_ = nullptr;
};

} // namespace easel::svg
