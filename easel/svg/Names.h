// Names of what is read and written.
#pragma once

#include <string_view>

namespace easel::svg {

constexpr std::string_view kSvgNamespace = "http://www.w3.org/2000/svg";
constexpr std::string_view kInkscapeNamespace = "http://www.inkscape.org/namespaces/inkscape";
constexpr std::string_view kSodipodiNamespace = "http://sodipodi.sourceforge.net/DTD/sodipodi-0.dtd";
constexpr std::string_view kEaselNamespace = "urn:easel:drawing";

// As the parser tells them: the namespace, a bar, the name.
constexpr char kNamespaceEnd = '|';
constexpr std::string_view kGroupMode = "http://www.inkscape.org/namespaces/inkscape|groupmode";
constexpr std::string_view kLabel = "http://www.inkscape.org/namespaces/inkscape|label";
constexpr std::string_view kInsensitive = "http://sodipodi.sourceforge.net/DTD/sodipodi-0.dtd|insensitive";
constexpr std::string_view kNodeTypes = "http://sodipodi.sourceforge.net/DTD/sodipodi-0.dtd|nodetypes";
constexpr std::string_view kEnds = "urn:easel:drawing|ends";
constexpr std::string_view kKnockout = "urn:easel:drawing|knockout";
constexpr std::string_view kCenterPoint = "urn:easel:drawing|center-point";
constexpr std::string_view kOverprint = "urn:easel:drawing|overprint";
constexpr std::string_view kArtboards = "urn:easel:drawing|artboards";
constexpr std::string_view kKind = "urn:easel:drawing|kind";
constexpr std::string_view kDisabledMask = "urn:easel:drawing|disabled-mask";
constexpr std::string_view kSpaceAttribute = "http://www.w3.org/XML/1998/namespace|space";
constexpr std::string_view kXlinkHref = "http://www.w3.org/1999/xlink|href";
constexpr std::string_view kData = "urn:easel:drawing|data";

constexpr std::string_view kLayerTitle = "Layer "; ///< of art that is in no layer; a number follows

} // namespace easel::svg
