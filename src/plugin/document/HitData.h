// What a hit test found: a snapshot that does not follow later edits of the document.
#pragma once

#include <cstdint>
#include <optional>

#include "core/values/ArtboardPoint.h"
#include "core/values/Bezier.h"
#include "core/values/DocumentEnumerations.h"

struct AITextRange;
struct ArtObject;

namespace kzo::plugin {

/// What decides first between the hits of several objects.
enum class HitOrder : std::uint8_t { Kind, Paint };

class HitData {
  public:
    /// No test made.
    HitData() = default;
    /// Tests `point` against `art`, or against every layer from the topmost down when it is null. The sign of
    /// `tolerance` is dropped; it is in points, or in screen units when `inViewUnits`.
    HitData(ArtObject* art, const core::ArtboardPoint& point, core::HitRequest request, double tolerance,
            bool inViewUnits, HitOrder order = HitOrder::Kind);

    [[nodiscard]] bool tested() const { return tested_; } ///< false where no document was open
    [[nodiscard]] bool hit() const { return tested_ && type_ != core::HitType::None; }
    [[nodiscard]] core::HitType hitType() const { return type_; }
    [[nodiscard]] core::HitRequest request() const { return request_; }
    [[nodiscard]] core::ArtboardPoint point() const { return point_; } ///< the point tested
    [[nodiscard]] ArtObject* art() const { return art_; }
    [[nodiscard]] bool inGroup() const { return inGroup_; }
    [[nodiscard]] std::int16_t segPointIndex() const { return segPointIndex_; }
    [[nodiscard]] std::int16_t segIndex() const { return segIndex_; }
    [[nodiscard]] double tValue() const { return t_; }
    [[nodiscard]] AITextRange* textRange() const { return textRange_; } ///< null unless text was hit
    /// The segment that was hit; none without a path hit.
    [[nodiscard]] std::optional<core::Bezier> bezier() const { return bezier_; }
    /// The feature's point nearest to the point tested; none without a hit, or where the hit is of another type.
    [[nodiscard]] std::optional<core::ArtboardPoint> snapped() const;
    [[nodiscard]] std::optional<core::ArtboardPoint> snappedTo(core::HitType type) const;

  private:
    [[nodiscard]] bool test(ArtObject* art, double tolerance, HitOrder order);
    void noteSegPoint(std::int16_t index);

    bool tested_ = false;
    core::HitRequest request_{};
    core::HitType type_ = core::HitType::None;
    core::ArtboardPoint point_;
    ArtObject* art_ = nullptr;
    std::int16_t segPointIndex_ = -1; // of the one hit, or of the one that starts the segment
    std::int16_t segIndex_ = -1;
    double t_ = 0;
    AITextRange* textRange_ = nullptr;
    bool inGroup_ = false;
    core::ArtboardPoint featurePoint_;
    std::optional<core::Bezier> bezier_;
};

} // namespace kzo::plugin
