// A cursor image that a tool shows.
#pragma once

#include "core/Enumerations.h"

namespace kzo::core {

/// Compares by the host's cursor behind it.
class Cursor {
  public:
    Cursor() = default; ///< empty; enabling it does nothing
    explicit Cursor(AdobeCursor cursor) : number_(static_cast<unsigned>(cursor)) {}

    [[nodiscard]] bool isEmpty() const { return number_ == 0; }
    [[nodiscard]] bool operator==(const Cursor&) const = default;
    void enable() const; ///< makes it the current cursor

  private:
    unsigned number_ = 0;
};

} // namespace kzo::core
