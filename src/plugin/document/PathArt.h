// One path of the host's document: the calls behind core::PathArt. Does not check that the art is a path (Art::path
// does).
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "core/values/ArtboardSegPoint.h"
#include "core/values/Bezier.h"
#include "core/values/DocumentEnumerations.h"
#include "core/values/PathIntersection.h"
#include "core/values/PathStyle.h"
#include "geo/Angle.h"
#include "geo/Path.h"
#include "plugin/host/Object.h"

struct AIPathSegment;
struct ArtObject;

namespace kzo::plugin {

class HitData;

/// Counts and indices are the host's 16-bit numbers; those out of range are clamped as core::PathArt says. Operations
/// that change the path return whether the host did all of it; when it refused a part, the path is as it was.
class PathArt : public host::Object<ArtObject> {
  public:
    using SegPoints = std::vector<core::ArtboardSegPoint>;

    using Object::Object;

    // Counts
    [[nodiscard]] std::int16_t segPointCount() const;
    bool setSegPointCount(std::int16_t count);
    [[nodiscard]] std::int16_t segCount() const;
    bool setSegCount(std::int16_t count);
    [[nodiscard]] bool closed() const;
    bool setClosed(bool closed);

    // Points
    [[nodiscard]] SegPoints segPoints(std::int16_t index, std::int16_t count) const;
    bool setSegPoints(std::int16_t index, const SegPoints& points);
    bool insertSegPoints(std::int16_t index, const SegPoints& points);
    bool insertSegPointAtT(std::int16_t seg, double t);
    bool deleteSegPoints(std::int16_t index, std::int16_t count);
    bool rotateSegPoints(std::int16_t by);
    [[nodiscard]] std::int16_t segPointClosestToPoint(const core::ArtboardPoint& point) const;
    void endPoints(core::ArtboardPoint& first, core::ArtboardPoint& last) const;
    [[nodiscard]] std::vector<std::int16_t> phantomSegPoints() const;

    // Segments
    [[nodiscard]] SegPoints segs(std::int16_t index, std::int16_t count) const;
    bool setSegs(std::int16_t index, const SegPoints& points);
    bool insertSegs(std::int16_t index, const SegPoints& points);
    bool deleteSegs(std::int16_t index, std::int16_t count);
    bool reverseSegs();
    [[nodiscard]] bool phantomSeg(std::int16_t index) const;
    [[nodiscard]] std::optional<core::Bezier> bezier(std::int16_t index) const; ///< none on a path without segments

    // Selection
    [[nodiscard]] core::SegPointSelectionState segPointSelected(std::int16_t index) const;
    bool setSegPointSelected(std::int16_t index, core::SegPointSelectionState state);
    [[nodiscard]] bool allSegPointsSelected() const;
    [[nodiscard]] bool segSelected(std::int16_t index) const;

    // Measures
    [[nodiscard]] bool hasLength() const;
    [[nodiscard]] double length() const;
    [[nodiscard]] double sublength(std::int16_t fromSeg, double fromT, std::int16_t toSeg, double toT) const;
    [[nodiscard]] double tAtLength(std::int16_t seg, double length) const;
    [[nodiscard]] core::ArtboardPoint midPoint() const;
    [[nodiscard]] double area() const;
    [[nodiscard]] core::WindingOrderType windingOrder() const;
    bool setWindingOrder(core::WindingOrderType order);
    [[nodiscard]] bool containsPoint(const core::ArtboardPoint& point) const;

    // Shape
    [[nodiscard]] std::optional<geo::Angle> angle() const; ///< none unless the path is straight
    [[nodiscard]] bool isStraight() const;
    [[nodiscard]] bool hasStraightSegs() const;
    [[nodiscard]] bool isCircular() const;
    [[nodiscard]] bool isRectangular() const;

    // Meeting other paths
    [[nodiscard]] std::vector<core::PathIntersection> getIntersections() const;
    [[nodiscard]] std::vector<core::PathIntersection> getIntersections(const PathArt& other) const;
    bool trim(const HitData& hit, core::TrimDirectionType directions);
    bool extend(const HitData& end, const HitData& target);

    // Style
    [[nodiscard]] bool isGuide() const;
    [[nodiscard]] core::PathStyle style() const;
    bool setStyle(const core::PathStyle& style);
    bool setStrokeAlignment(core::StrokeAlignment alignment);

  private:
    /// How many points and segments there are. What is done by these numbers is not done by guesses, so there are none
    /// when the host refuses to tell.
    struct Extent {
        int points = 0;
        bool closed = false;

        [[nodiscard]] int segs() const { return closed || points == 0 ? points : points - 1; }
        [[nodiscard]] int segStart(int index) const; ///< clamped; -1 is the closing one of a closed path
        [[nodiscard]] int segIndex(int index) const; ///< the same, from 0 on
    };

    [[nodiscard]] std::optional<Extent> extent() const;
    [[nodiscard]] static Extent extent(const geo::Path& path) {
        return {static_cast<int>(path.anchors.size()), path.closed};
    }
    [[nodiscard]] geo::Path shape() const; // empty when the host refuses
    /// Which anchor each one of another path was; -1 for a new one.
    using Origins = std::vector<int>;
    /// Gives the path the anchors and the openness of `to`; when the host refuses a part, those of `from` again.
    bool reshape(const geo::Path& from, const geo::Path& to, const Origins& origins);
    /// Makes of a copy of `whole`, which is like `path`, the rest of it.
    bool becomeRestOf(const PathArt& whole, const geo::Path& path, const geo::Path& rest);
    /// What the host calls selected of each point; nothing where it is the same of all.
    using Parts = std::vector<std::int16_t>;
    [[nodiscard]] std::optional<Parts> selectedParts(int count) const; ///< none when the host refuses to tell
    [[nodiscard]] static Parts partsOf(const Origins& origins, const Parts& parts);
    bool select(const Parts& parts);
    [[nodiscard]] std::vector<AIPathSegment> read(int index, int count) const;
    bool write(int index, int count, const AIPathSegment* records);
    [[nodiscard]] static geo::Place place(std::int16_t seg, double t, const geo::Path& path); // clamped
};

} // namespace kzo::plugin
