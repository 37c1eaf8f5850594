// What an element passes on to those inside it.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/Types.h"
#include "svg/Attributes.h"

namespace easel::svg {

/// A property that elements pass on to those inside them.
struct Inherited {
    std::string_view name;
    std::string_view initial; ///< with what the renderer begins; empty where the document knows
    bool ofOutlines = false;  ///< outlines look otherwise by it
    bool isPaint = false;     ///< the document knows of it: it is in styles, or in what a container passes on
};
inline constexpr Inherited kInherited[] = {{"font", ""},
                                           {"font-family", "Times New Roman"},
                                           {"font-size", "12px"},
                                           {"font-style", "normal"},
                                           {"font-variant", "normal"},
                                           {"font-weight", "normal"},
                                           {"font-stretch", "normal"},
                                           {"letter-spacing", "normal"},
                                           {"word-spacing", "normal"},
                                           {"text-anchor", "start"},
                                           {"text-rendering", "auto"},
                                           {"direction", "ltr"},
                                           {"writing-mode", "lr-tb"},
                                           {"xml:space", "default"},
                                           {"color", "black", true},
                                           {"clip-rule", "nonzero", true},
                                           {"shape-rendering", "auto", true},
                                           {"image-rendering", "auto"},
                                           {"color-interpolation", "sRGB", true},
                                           {"color-interpolation-filters", "linearRGB", true},
                                           {"fill", "", true, true},
                                           {"fill-rule", "", true, true},
                                           {"fill-opacity", "", true, true},
                                           {"stroke", "", true, true},
                                           {"stroke-width", "", true, true},
                                           {"stroke-miterlimit", "", true, true},
                                           {"stroke-linecap", "", true, true},
                                           {"stroke-linejoin", "", true, true},
                                           {"stroke-dasharray", "", true, true},
                                           {"stroke-dashoffset", "", true, true},
                                           {"stroke-opacity", "", true, true},
                                           {"marker-start", "", true, true},
                                           {"marker-mid", "", true, true},
                                           {"marker-end", "", true, true},
                                           {"paint-order", "", true, true},
                                           {"visibility", "", true, true}};

/// The style of an element around which `style` holds. Properties that go wrong count as absent.
[[nodiscard]] model::Style styleOf(const Attributes& attributes, model::Style style, const Units& units);

/// Adds what an element passes on and no style of the model can say.
void inherit(std::vector<std::pair<Name, std::string>>& inherited, const Attributes& attributes);

} // namespace easel::svg
