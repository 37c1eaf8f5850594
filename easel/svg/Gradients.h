// Gradients that a drawing keeps under names, as it says them, those that it says by reference to others included.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/Document.h"

namespace easel::svg {

struct Gradient {
    /// A colour at a place between the gradient's begin, 0, and its end, 1.
    struct Stop {
        double offset = 0;
        model::Color color{};
        double opacity = 1;
    };
    enum class Spread : std::uint8_t { Pad, Reflect, Repeat };

    bool isRadial = false;
    bool fitsBox = true; ///< its units are such that the box of what it paints goes from 0 to 1
    Spread spread = Spread::Pad;
    model::Point from{};   ///< of a radial one, the middle of the smallest circle
    model::Point to{1, 0}; ///< and of the largest
    double fromRadius = 0;
    double toRadius = 0;
    model::Affine transform = model::Affine{}; ///< from its units to those of what it paints
    std::vector<Stop> stops{};                 ///< by their offsets

    [[nodiscard]] Stop at(double place) const; ///< there are stops; the place counts as its offset
};

/// None where there is no gradient of this name, or one that cannot be told.
[[nodiscard]] std::optional<Gradient> gradientNamed(model::Document& document, std::string_view name);

/// Keeps it in the document under a new name, which is returned, in the units of what it paints.
[[nodiscard]] std::string keepGradient(model::Document& document, const Gradient& gradient);

} // namespace easel::svg
