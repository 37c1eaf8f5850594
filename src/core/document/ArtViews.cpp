// The views of art by type forward to the implementation of their owner.
#include <optional>

#include "core/Forward.h"
#include "core/document/Art.h"
#include "core/document/CustomArt.h"
#include "core/document/MaskArt.h"
#include "core/document/MeshArt.h"
#include "core/document/PlacedArt.h"
#include "core/document/RasterArt.h"
#include "core/document/TextArt.h"
#include "plugin/document/Art.h"
#include "plugin/document/ArtViews.h"

namespace kzo::core {

namespace {

/// The implementation, when the owner is of its type.
template <class View> std::optional<View> as(const Art* owner) {
    return ask(owner->impl(), [](plugin::Art& art) { return art.as<View>(); });
}

TransformMatrix matrixOf(const geo::TransformMatrix& matrix) { return TransformMatrix(matrix); }

} // namespace

// Custom art

using Custom = plugin::CustomArt;
std::string CustomArt::pluginName() const { return ask(as<Custom>(owner_), &Custom::pluginName); }
std::string CustomArt::name() const { return ask(as<Custom>(owner_), &Custom::name); }
bool CustomArt::setName(const std::string& name) { return ask(as<Custom>(owner_), &Custom::setName, name); }
std::unique_ptr<Art> CustomArt::editArt() const { return newHandle<Art>(ask(as<Custom>(owner_), &Custom::editArt)); }
std::unique_ptr<Art> CustomArt::resultArt() const {
    return newHandle<Art>(ask(as<Custom>(owner_), &Custom::resultArt));
}

// Masks

namespace {

std::optional<plugin::MaskArt> masked(const Art* owner) {
    return owner->isEmpty() ? std::nullopt : std::optional(plugin::MaskArt(owner->aiArtHandle()));
}

} // namespace

using Mask = plugin::MaskArt;
bool MaskArt::exists() const { return ask(masked(owner_), &Mask::exists); }
bool MaskArt::disabled() const { return ask(masked(owner_), &Mask::disabled); }
bool MaskArt::setDisabled(bool disabled) { return ask(masked(owner_), &Mask::setDisabled, disabled); }
bool MaskArt::create(Art& by) { return ask(masked(owner_), &Mask::create, by.aiArtHandle()); }
bool MaskArt::copyFrom(const Art& other) { return ask(masked(owner_), &Mask::copyFrom, other.aiArtHandle()); }
bool MaskArt::dispose() { return ask(masked(owner_), &Mask::dispose); }

// Meshes

using Mesh = plugin::MeshArt;
std::int32_t MeshArt::rowCount() const { return ask(as<Mesh>(owner_), &Mesh::rowCount); }
std::int32_t MeshArt::columnCount() const { return ask(as<Mesh>(owner_), &Mesh::columnCount); }
bool MeshArt::init(std::int32_t rows, std::int32_t columns, const ArtboardRect& bounds) {
    return ask(as<Mesh>(owner_), &Mesh::init, rows, columns, bounds);
}
ArtColor MeshArt::color(std::int32_t row, std::int32_t column) const {
    return ask(as<Mesh>(owner_), &Mesh::color, row, column);
}
bool MeshArt::setColor(std::int32_t row, std::int32_t column, const ArtColor& color) {
    return ask(as<Mesh>(owner_), &Mesh::setColor, row, column, color);
}

// Pictures

using Raster = plugin::RasterArt;
Size RasterArt::pixelSize() const { return Size(ask(as<Raster>(owner_), &Raster::pixelSize)); }
TransformMatrix RasterArt::matrix() const { return matrixOf(ask(as<Raster>(owner_), &Raster::matrix)); }
bool RasterArt::setMatrix(const TransformMatrix& matrix) {
    return ask(as<Raster>(owner_), &Raster::setMatrix, matrix.impl());
}

using Placed = plugin::PlacedArt;
std::string PlacedArt::filePath() const { return ask(as<Placed>(owner_), &Placed::filePath); }
bool PlacedArt::setFilePath(const std::string& path) { return ask(as<Placed>(owner_), &Placed::setFilePath, path); }
Size PlacedArt::pixelSize() const { return Size(ask(as<Placed>(owner_), &Placed::pixelSize)); }
TransformMatrix PlacedArt::matrix() const { return matrixOf(ask(as<Placed>(owner_), &Placed::matrix)); }
bool PlacedArt::setMatrix(const TransformMatrix& matrix) {
    return ask(as<Placed>(owner_), &Placed::setMatrix, matrix.impl());
}
bool PlacedArt::embed() { return ask(as<Placed>(owner_), &Placed::embed); }

// Text

using Text = plugin::TextArt;
bool TextArt::canChange() const { return ask(as<Text>(owner_), &Text::canChange); }
std::string TextArt::contents() const { return ask(as<Text>(owner_), &Text::contents); }
bool TextArt::setContents(const std::string& contents) { return ask(as<Text>(owner_), &Text::setContents, contents); }
Font TextArt::font() const { return as<Text>(owner_) ? as<Text>(owner_)->font() : Font{"", 0}; }
bool TextArt::setFont(const Font& font) { return ask(as<Text>(owner_), &Text::setFont, font); }
ParagraphJustification TextArt::justification() const { return ask(as<Text>(owner_), &Text::justification); }
bool TextArt::setJustification(ParagraphJustification justification) {
    return ask(as<Text>(owner_), &Text::setJustification, justification);
}
TextOrientation TextArt::orientation() const { return ask(as<Text>(owner_), &Text::orientation); }
bool TextArt::setOrientation(TextOrientation orientation) {
    return ask(as<Text>(owner_), &Text::setOrientation, orientation);
}
PathStyle TextArt::paint() const { return ask(as<Text>(owner_), &Text::paint); }
bool TextArt::setPaint(const PathStyle& paint) { return ask(as<Text>(owner_), &Text::setPaint, paint); }
ArtboardPoint TextArt::anchor() const { return ask(as<Text>(owner_), &Text::anchor); }

} // namespace kzo::core
