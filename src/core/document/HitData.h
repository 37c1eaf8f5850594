// What a hit test found under a point.
#pragma once

#include <cstdint>
#include <memory>

#include "core/values/ArtboardPoint.h"
#include "core/values/DocumentEnumerations.h"

struct AITextRange;

namespace kzo::plugin {
class HitData;
}

namespace kzo::core {

class Art;
class Bezier;

/// A snapshot: later edits of the document do not change it, though its art may go. Copies share it. Empty handles
/// return false, None, -1, 0 or null.
class HitData {
  public:
    HitData() = default; ///< empty
    /// Tests a point against `art`, or against every layer from the topmost down when it is null. The tolerance's sign
    /// is dropped; it is in points, or in screen units when `inViewUnits`. Empty when no document is open, or for an
    /// empty handle as `art`.
    HitData(const Art* art, const ArtboardPoint& point, HitRequest request, double tolerance, bool inViewUnits);
    explicit HitData(std::unique_ptr<plugin::HitData> impl);

    [[nodiscard]] bool isEmpty() const; ///< no test was made
    [[nodiscard]] bool hit() const;
    [[nodiscard]] HitType hitType() const;
    [[nodiscard]] HitRequest request() const;
    [[nodiscard]] ArtboardPoint point() const;        ///< the point tested
    [[nodiscard]] std::unique_ptr<Art> art() const;   ///< the owner of the feature, never a group around it
    [[nodiscard]] bool inGroup() const;               ///< the art is in a group other than its layer's
    [[nodiscard]] std::int16_t segPointIndex() const; ///< of the point hit, or of the one that starts the segment
    [[nodiscard]] std::int16_t segIndex() const; ///< of the segment; for the last point of an open path the one before
    /// Curve parameter on the segment hit. At the ends of an open path just inside of it, so that a split there leaves
    /// no empty piece.
    [[nodiscard]] double tValue() const;

    [[nodiscard]] AITextRange* textRange() const; ///< null unless text was hit

    [[nodiscard]] std::unique_ptr<Bezier> bezier() const; ///< the segment of segIndex, or null
    /// Moves `point` onto the feature that was hit. False, and the point stays, without a hit.
    bool snapForHit(ArtboardPoint& point) const;
    bool snapForHitType(HitType type, ArtboardPoint& point) const; ///< only when the hit is of this type

    [[nodiscard]] const plugin::HitData* impl() const { return impl_.get(); } ///< null when empty

  private:
    std::shared_ptr<const plugin::HitData> impl_;
};

} // namespace kzo::core
