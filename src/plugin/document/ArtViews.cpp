// The calls of the suites for single kinds of art.
#include "plugin/document/ArtViews.h"

#include "hostapi/AIMaskSuite.h"
#include "hostapi/AIMeshSuite.h"
#include "hostapi/AIPlacedSuite.h"
#include "hostapi/AIPluginGroupSuite.h"
#include "hostapi/AIRasterSuite.h"
#include "plugin/document/Convert.h"
#include "plugin/document/ConvertStyle.h"
#include "plugin/document/ConvertText.h"

namespace kzo::plugin {

template <> struct host::HostForm<geo::Size> {
    static geo::Size fromHost(const AIRasterSize& size) { return {double(size.columns), double(size.rows)}; }
};

namespace {

constexpr host::Pair<core::TextOrientation> kOrientations[] = {
    {core::TextOrientation::Horizontal, kAIHorizontalText},
    {core::TextOrientation::Vertical, kAIVerticalText},
};

} // namespace

template <>
struct host::HostForm<core::TextOrientation> : host::Paired<kOrientations, core::TextOrientation::None, -1> {};

// Custom art

std::string CustomArt::pluginName() const { return get<&AIPluginGroupSuite::GetPluginArtPluginName>(); }
std::string CustomArt::name() const { return get<&AIPluginGroupSuite::GetPluginArtName>(); }
bool CustomArt::setName(const std::string& name) { return call<&AIPluginGroupSuite::SetPluginArtName>(name); }
ArtObject* CustomArt::editArt() const { return get<&AIPluginGroupSuite::GetPluginArtEditArt>(); }
ArtObject* CustomArt::resultArt() const { return get<&AIPluginGroupSuite::GetPluginArtResultArt>(); }

// Masks

bool MaskArt::exists() const { return get<&AIMaskSuite::HasMask>(); }
bool MaskArt::disabled() const { return exists() && get<&AIMaskSuite::GetMaskDisabled>(); }
bool MaskArt::setDisabled(bool disabled) { return call<&AIMaskSuite::SetMaskDisabled>(disabled); }
bool MaskArt::create(ArtObject* by) { return by && call<&AIMaskSuite::NewMask>(by); }
bool MaskArt::copyFrom(ArtObject* other) {
    return other && handle() && host::call<&AIMaskSuite::CopyMask>(other, handle());
}
bool MaskArt::dispose() { return call<&AIMaskSuite::DisposeMask>(); }

// Meshes

std::int32_t MeshArt::rowCount() const { return get<&AIMeshSuite::GetMeshSize>().rows; }
std::int32_t MeshArt::columnCount() const { return get<&AIMeshSuite::GetMeshSize>().columns; }
bool MeshArt::init(std::int32_t rows, std::int32_t columns, const core::ArtboardRect& bounds) {
    return call<&AIMeshSuite::InitMesh>(rows, columns, bounds);
}
core::ArtColor MeshArt::color(std::int32_t row, std::int32_t column) const {
    return get<&AIMeshSuite::GetMeshColor, core::ArtColor>(row, column);
}
bool MeshArt::setColor(std::int32_t row, std::int32_t column, const core::ArtColor& color) {
    return call<&AIMeshSuite::SetMeshColor>(row, column, color);
}

// Pictures

geo::Size RasterArt::pixelSize() const { return get<&AIRasterSuite::GetRasterSize, geo::Size>(); }
geo::TransformMatrix RasterArt::matrix() const { return get<&AIRasterSuite::GetRasterMatrix, geo::TransformMatrix>(); }
bool RasterArt::setMatrix(const geo::TransformMatrix& matrix) { return call<&AIRasterSuite::SetRasterMatrix>(matrix); }

std::string PlacedArt::filePath() const { return get<&AIPlacedSuite::GetPlacedFilePath>(); }
bool PlacedArt::setFilePath(const std::string& path) {
    const bool isWhole = path.find('\0') == std::string::npos; // the host reads up to the first zero byte
    return isWhole && call<&AIPlacedSuite::SetPlacedFilePath>(path);
}
geo::Size PlacedArt::pixelSize() const { return get<&AIPlacedSuite::GetPlacedSize, geo::Size>(); }
geo::TransformMatrix PlacedArt::matrix() const { return get<&AIPlacedSuite::GetPlacedMatrix, geo::TransformMatrix>(); }
bool PlacedArt::setMatrix(const geo::TransformMatrix& matrix) { return call<&AIPlacedSuite::SetPlacedMatrix>(matrix); }
bool PlacedArt::embed() { return call<&AIPlacedSuite::EmbedPlaced>(); }

// Text

bool TextArt::canChange() const { return get<&AITextFrameSuite::IsTextEditable>(); }
std::string TextArt::contents() const { return get<&AITextFrameSuite::GetTextContents>(); }
bool TextArt::setContents(const std::string& contents) { return call<&AITextFrameSuite::SetTextContents>(contents); }
core::Font TextArt::font() const {
    const AITextFont font = get<&AITextFrameSuite::GetTextFont>();
    return {font.name ? font.name : "", font.size};
}
bool TextArt::setFont(const core::Font& font) {
    const AITextFont record{font.name.c_str(), font.size};
    return host::isWhole(font.name) && call<&AITextFrameSuite::SetTextFont>(&record);
}
core::ParagraphJustification TextArt::justification() const {
    return get<&AITextFrameSuite::GetTextJustification, core::ParagraphJustification>();
}
bool TextArt::setJustification(core::ParagraphJustification justification) {
    return call<&AITextFrameSuite::SetTextJustification>(justification);
}
core::TextOrientation TextArt::orientation() const {
    return get<&AITextFrameSuite::GetTextOrientation, core::TextOrientation>();
}
bool TextArt::setOrientation(core::TextOrientation orientation) {
    return call<&AITextFrameSuite::SetTextOrientation>(orientation);
}
core::PathStyle TextArt::paint() const { return get<&AITextFrameSuite::GetTextPaint, core::PathStyle>(); }
bool TextArt::setPaint(const core::PathStyle& paint) { return call<&AITextFrameSuite::SetTextPaint>(paint); }
core::ArtboardPoint TextArt::anchor() const { return get<&AITextFrameSuite::GetTextAnchor, core::ArtboardPoint>(); }

} // namespace kzo::plugin
