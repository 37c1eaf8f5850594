// One path of the host's document: the calls behind core::PathArt. Does not check that the art is a path (Art::path
// does).
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "core/values/ArtboardSegPoint.h"
#include "core/values/Bezier.h"
#include "core/values/PathStyle.h"
#include "plugin/host/Object.h"

struct ArtObject;

namespace kzo::plugin {

/// Counts and indices are the host's 16-bit numbers; those out of range are clamped as core::PathArt says.
class PathArt : public host::Object<ArtObject> {
  public:
    using SegPoints = std::vector<core::ArtboardSegPoint>;

    using Object::Object;

    // Counts
    [[nodiscard]] std::int16_t segPointCount() const;
    void setSegPointCount(std::int16_t count);
    [[nodiscard]] std::int16_t segCount() const;
    void setSegCount(std::int16_t count);
    [[nodiscard]] bool closed() const;
    void setClosed(bool closed);

    // Points
    [[nodiscard]] SegPoints segPoints(std::int16_t index, std::int16_t count) const;
    void setSegPoints(std::int16_t index, const SegPoints& points);
    void setSegs(std::int16_t index, const SegPoints& points);
    void reverseSegs();
    [[nodiscard]] std::int16_t segPointClosestToPoint(const core::ArtboardPoint& point) const;
    void endPoints(core::ArtboardPoint& first, core::ArtboardPoint& last) const;

    // Shape and style
    [[nodiscard]] double length() const;
    [[nodiscard]] std::optional<core::Bezier> bezier(std::int16_t index) const; ///< none on a path without segments
    bool setStyle(const core::PathStyle& style);

  private:
    [[nodiscard]] SegPoints read(std::int16_t index, std::int16_t count) const;
    void write(std::int16_t index, std::int16_t count, const SegPoints& points);
};

} // namespace kzo::plugin
