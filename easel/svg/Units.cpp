// An "ex" is half an "em", as renderers take it that look at no font.
#include "svg/Units.h"

#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "svg/Values.h"

namespace easel::svg {

namespace {

using Sizes = std::pair<std::string_view, double>;

constexpr std::array kAbsolute{Sizes{"", 1},           Sizes{"px", 1},         Sizes{"pt", 96.0 / 72}, Sizes{"pc", 16},
                               Sizes{"mm", 96 / 25.4}, Sizes{"cm", 96 / 2.54}, Sizes{"in", 96}};
constexpr double kStep = 1.2; ///< from one size of fonts that has a name to the next
constexpr std::array kFontSizes{Sizes{"xx-small", 16 / kStep / kStep / kStep},
                                Sizes{"x-small", 16 / kStep / kStep},
                                Sizes{"small", 16 / kStep},
                                Sizes{"medium", 16},
                                Sizes{"large", 16 * kStep},
                                Sizes{"x-large", 16 * kStep* kStep},
                                Sizes{"xx-large", 16 * kStep* kStep* kStep}};

} // namespace

double Units::sizeOf(std::string_view unit, Along along) const {
    for (const auto& [name, size] : kAbsolute)
        if (name == unit) return size;
    double size = std::numeric_limits<double>::quiet_NaN();
    if (unit == "em") size = fontSize_;
    if (unit == "ex") size = fontSize_ / 2;
    if (unit == "%") size = (along == Along::X ? width_ : along == Along::Y ? height_ : diagonal()) / 100;
    if (!std::isfinite(size)) throw UnknownUnit();
    return size;
}

std::optional<double> Units::length(std::string_view text, Along along) const {
    Scanner scanner(trimmed(text));
    const std::optional<double> value = scanner.number();
    if (!value) return std::nullopt;
    const std::string_view unit = scanner.take('%') ? "%" : scanner.word();
    if (!scanner.atEnd()) return std::nullopt;
    return *value * sizeOf(unit, along);
}

void Units::setFontSize(std::string_view value, const Units& around) {
    Units byFont = around;
    byFont.width_ = around.fontSize_; // a percentage is one of the font around
    for (const auto& [name, size] : kFontSizes)
        if (name == value) fontSize_ = size;
    if (value == "smaller") fontSize_ = around.fontSize_ / kStep;
    if (value == "larger") fontSize_ = around.fontSize_ * kStep;
    try {
        const std::optional<double> size = byFont.length(value, Along::X);
        if (size && *size >= 0) fontSize_ = *size;
    } catch (const std::range_error&) { // in units that are not known, or too large to be a number
        forgetFontSize();
    }
}

void Units::forgetFontSize() { fontSize_ = std::numeric_limits<double>::quiet_NaN(); }

double Units::diagonal() const { return std::sqrt((width_ * width_ + height_ * height_) / 2); }

} // namespace easel::svg
