// Art by its type: the calls behind the views of core::Art. None checks the type (Art::as does).
#pragma once

#include <cstdint>
#include <string>

#include "core/values/ArtboardPoint.h"
#include "core/values/ArtboardRect.h"
#include "core/values/DocumentEnumerations.h"
#include "core/values/Font.h"
#include "core/values/PathStyle.h"
#include "geo/Size.h"
#include "geo/TransformMatrix.h"
#include "plugin/host/Object.h"

struct ArtObject;

namespace kzo::plugin {

class CustomArt : public host::Object<ArtObject> {
  public:
    static constexpr core::ArtType kType = core::ArtType::PluginGroup;
    using Object::Object;

    [[nodiscard]] std::string pluginName() const;
    [[nodiscard]] std::string name() const;
    bool setName(const std::string& name);
    [[nodiscard]] ArtObject* editArt() const;
    [[nodiscard]] ArtObject* resultArt() const;
};

/// Art of any type.
class MaskArt : public host::Object<ArtObject> {
  public:
    using Object::Object;

    [[nodiscard]] bool exists() const;
    [[nodiscard]] bool disabled() const;
    bool setDisabled(bool disabled);
    bool create(ArtObject* by);
    bool copyFrom(ArtObject* other);
    bool dispose();
};

class MeshArt : public host::Object<ArtObject> {
  public:
    static constexpr core::ArtType kType = core::ArtType::Mesh;
    using Object::Object;

    [[nodiscard]] std::int32_t rowCount() const;
    [[nodiscard]] std::int32_t columnCount() const;
    bool init(std::int32_t rows, std::int32_t columns, const core::ArtboardRect& bounds);
    [[nodiscard]] core::ArtColor color(std::int32_t row, std::int32_t column) const;
    bool setColor(std::int32_t row, std::int32_t column, const core::ArtColor& color);
};

class RasterArt : public host::Object<ArtObject> {
  public:
    static constexpr core::ArtType kType = core::ArtType::Raster;
    using Object::Object;

    [[nodiscard]] geo::Size pixelSize() const;
    [[nodiscard]] geo::TransformMatrix matrix() const;
    bool setMatrix(const geo::TransformMatrix& matrix);
};

class PlacedArt : public host::Object<ArtObject> {
  public:
    static constexpr core::ArtType kType = core::ArtType::Placed;
    using Object::Object;

    [[nodiscard]] std::string filePath() const;
    bool setFilePath(const std::string& path);
    [[nodiscard]] geo::Size pixelSize() const;
    [[nodiscard]] geo::TransformMatrix matrix() const;
    bool setMatrix(const geo::TransformMatrix& matrix);
    bool embed();
};

class TextArt : public host::Object<ArtObject> {
  public:
    static constexpr core::ArtType kType = core::ArtType::TextFrame;
    using Object::Object;

    [[nodiscard]] bool canChange() const;
    [[nodiscard]] std::string contents() const;
    bool setContents(const std::string& contents);
    [[nodiscard]] core::Font font() const;
    bool setFont(const core::Font& font);
    [[nodiscard]] core::ParagraphJustification justification() const;
    bool setJustification(core::ParagraphJustification justification);
    [[nodiscard]] core::TextOrientation orientation() const;
    bool setOrientation(core::TextOrientation orientation);
    [[nodiscard]] core::PathStyle paint() const;
    bool setPaint(const core::PathStyle& paint);
    [[nodiscard]] core::ArtboardPoint anchor() const;
};

} // namespace kzo::plugin
