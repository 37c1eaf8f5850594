// Texts, pictures and uses of symbols, as what their attributes say of them. What is inside of elements is for others.
#pragma once

#include <string_view>

#include "model/Types.h"
#include "svg/Attributes.h"
#include "svg/Source.h"
#include "svg/Units.h"

namespace easel::svg {

/// What text in an element looks like, where `around` holds around it.
[[nodiscard]] TextLook textLook(const Attributes& attributes, TextLook around);

/// A text without its contents; `paint` in points. Its size is in the page's units.
[[nodiscard]] model::TextData readText(const Attributes& attributes, const TextLook& look, const Units& units,
                                       model::Style paint, const model::Affine& toPage);
/// What is left of text in a drawing that does not preserve space.
[[nodiscard]] std::string collapsed(std::string_view text);

[[nodiscard]] model::ImageData readImage(const Attributes& attributes, const Units& units, const model::Affine& toPage);

/// A use of anything; the name is empty when it is not in the drawing.
[[nodiscard]] model::SymbolData readUse(const Attributes& attributes, const Units& units, const model::Affine& toPage);

} // namespace easel::svg
