// Namespaces of what is read and written.
#pragma once

#include <string_view>

namespace easel::svg {

constexpr std::string_view kSvgNamespace = "http://www.w3.org/2000/svg";
constexpr std::string_view kInkscapeNamespace = "http://www.inkscape.org/namespaces/inkscape";
constexpr std::string_view kSodipodiNamespace = "http://sodipodi.sourceforge.net/DTD/sodipodi-0.dtd";
constexpr std::string_view kEaselNamespace = "urn:easel:drawing";

constexpr std::string_view kFirstLayerTitle = "Layer 1"; ///< of art that is in no layer

} // namespace easel::svg
