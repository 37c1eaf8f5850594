// What lengths are measured by: the viewport, for percentages, and the size of the font.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string_view>

namespace easel::svg {

/// A length in units that are not known here. What it measures could be anywhere.
class UnknownUnit : public std::range_error {
  public:
    UnknownUnit() : std::range_error("a length in units that are not known here") {}
};

/// Which way a length goes, hence what it is a percentage of.
enum class Along : std::uint8_t { X, Y, Diagonal };

class Units {
  public:
    Units() = default;
    Units(double width, double height) : width_(width), height_(height) {}

    /// A length in user units (1/96 inch where it has a unit); none where there is no length. Throws UnknownUnit.
    [[nodiscard]] std::optional<double> length(std::string_view text, Along along) const;

    void setFontSize(std::string_view value, const Units& around);
    [[nodiscard]] double fontSize() const { return fontSize_; } ///< not a number when it is not known
    void forgetFontSize();                                      ///< lengths by it are in an unknown unit from then on

  private:
    [[nodiscard]] double diagonal() const;
    [[nodiscard]] double sizeOf(std::string_view unit, Along along) const;

    double width_ = 300; ///< of a drawing without any size, as in browsers
    double height_ = 150;
    double fontSize_ = 12; // as the renderer begins; not a number when it is not known
};

} // namespace easel::svg
