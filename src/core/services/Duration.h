// A span of whole days.
#pragma once

#include <compare>

namespace kzo::core {

class Duration {
  public:
    [[nodiscard]] static Duration Days(long days) { return Duration(days); } ///< may be negative
    [[nodiscard]] long days() const { return days_; }
    [[nodiscard]] auto operator<=>(const Duration&) const = default;

  private:
    explicit Duration(long days) : days_(days) {}
    long days_;
};

} // namespace kzo::core
