// A path against others: where they meet, and what is cut off or grown there.
#include <algorithm>
#include <cmath>
#include <numeric>

#include "geo/Crossings.h"
#include "geo/PathCuts.h"
#include "hostapi/AIPathSuite.h"
#include "plugin/document/Art.h"
#include "plugin/document/CurrentDocument.h"
#include "plugin/document/HitData.h"
#include "plugin/document/Layer.h"
#include "plugin/document/PathArt.h"
#include "plugin/document/PathRecords.h"
#include "plugin/host/HostCall.h"
#include "plugin/values/ArtboardPoint.h"

namespace kzo::plugin {

namespace {

std::vector<core::PathIntersection> asIntersections(const geo::Path& path, const geo::Path& other,
                                                    const std::vector<geo::Crossing>& crossings) {
    std::vector<core::PathIntersection> made;
    made.reserve(crossings.size());
    for (const geo::Crossing& crossing : crossings) {
        const geo::SegPlace a = path.split(crossing.first);
        const geo::SegPlace b = other.split(crossing.second);
        const geo::Point point = path.at(crossing.first);
        made.push_back(
            {{point.x, point.y}, asIndex(static_cast<int>(a.seg)), a.t, asIndex(static_cast<int>(b.seg)), b.t});
    }
    return made;
}

/// Which anchors of `from` those of a piece of it are: they follow one another, and its ends may be new.
std::vector<int> originsOf(const geo::Path& piece, const geo::Path& from) {
    const std::size_t count = from.anchors.size();
    std::vector<int> best(piece.anchors.size(), -1);
    std::size_t most = 0;
    const std::size_t begin = piece.anchors.size() > 2 ? 1 : 0; // what lies inside is never new
    for (std::size_t first = 0; first < count && most < piece.anchors.size(); ++first) {
        std::vector<int> origins(piece.anchors.size(), -1);
        std::size_t met = 0;
        for (std::size_t i = 0; i < piece.anchors.size(); ++i) {
            const std::size_t at = (first + count + i - begin) % count;
            if (piece.anchors[i].p == from.anchors[at].p) {
                origins[i] = static_cast<int>(at);
                ++met;
            } else if (i == begin && begin == 1) {
                break;
            }
        }
        if (met <= most) continue;
        most = met;
        best = std::move(origins);
    }
    return best;
}

/// Calls `visit` for every path of the document that shows.
template <class Visit> void forEachPath(const Visit& visit) {
    const CurrentDocument document;
    for (AILayer* layer = document.firstLayer(); layer; layer = Layer(layer).next()) {
        if (!Layer(layer).visible()) continue;
        forEachArt(Layer(layer).group(), [&](const Art& art) {
            const bool shows = !art.attribute(core::ArtAttribute::Hidden);
            if (const auto path = shows ? art.path() : std::nullopt) visit(art.handle(), *path);
            return shows;
        });
    }
}

} // namespace

std::vector<core::PathIntersection> PathArt::getIntersections() const {
    const geo::Path path = shape();
    return asIntersections(path, path, geo::selfCrossings(path));
}

std::vector<core::PathIntersection> PathArt::getIntersections(const PathArt& other) const {
    if (other.handle() == handle()) return getIntersections();
    const geo::Path path = shape();
    const geo::Path with = other.shape();
    return asIntersections(path, with, geo::crossings(path, with));
}

bool PathArt::trim(const HitData& hit, core::TrimDirectionType directions) {
    using enum core::TrimDirectionType;
    const geo::Path path = shape();
    if (hit.art() != handle() || hit.segIndex() < 0 || path.segCount() == 0) return false;
    std::vector<geo::Place> edges;
    geo::Patience patience; // with all the document
    for (const geo::Crossing& crossing : geo::selfCrossings(path, patience)) {
        edges.push_back(crossing.first);
        edges.push_back(crossing.second);
    }
    forEachPath([&](ArtObject* art, const PathArt& other) {
        if (art == handle()) return;
        for (const geo::Crossing& crossing : geo::crossings(path, other.shape(), patience))
            edges.push_back(crossing.first);
    });
    const auto left = geo::trimmed(path, place(hit.segIndex(), hit.tValue(), path), std::move(edges),
                                   any(directions & TowardsStart), any(directions & TowardsEnd));
    if (left.empty()) return false;
    const Origins origins = originsOf(left[0], path);
    if (left.size() == 1) return reshape(path, left[0], origins);
    // What lies behind the gap becomes a path of its own, next to this one and looking like it.
    ArtObject* const made = Art(handle()).duplicate(core::PaintOrder::Above, handle());
    if (!made) return false;
    if (PathArt(made).becomeRestOf(*this, path, left[1]) && reshape(path, left[0], origins)) return true;
    Art(made).dispose();
    return false;
}

bool PathArt::becomeRestOf(const PathArt& whole, const geo::Path& path, const geo::Path& rest) {
    const int count = static_cast<int>(path.anchors.size());
    AIBoolean all = 0;
    const auto parts = whole.selectedParts(count);
    if (!parts || !whole.call<&AIPathSuite::GetPathAllSegmentsSelected>(&all)) return false;
    const Origins origins = originsOf(rest, path);
    if (!reshape(path, rest, origins)) return false;
    if (!parts->empty()) return select(partsOf(origins, *parts));
    return all == 0 || Art(handle()).setAttribute(core::ArtAttribute::Selected, true);
}

bool PathArt::extend(const HitData& end, const HitData& target) {
    const geo::Path path = shape();
    if (end.art() != handle() || end.segIndex() < 0 || !target.art() || target.segIndex() < 0) return false;
    const auto other = Art(target.art()).path();
    if (!other || target.art() == handle()) return false;
    const double half = 0.5 * path.length();
    const bool atStart = path.sublength(0.0, place(end.segIndex(), end.tValue(), path)) < half;
    const auto longer = geo::extended(path, atStart, other->shape(), target.point().impl().plain());
    if (!longer) return false;
    Origins origins(longer->anchors.size(), -1); // of the new one, if any, at the end that grew
    const bool grewAtStart = atStart && origins.size() > path.anchors.size();
    std::iota(origins.begin() + (grewAtStart ? 1 : 0),
              origins.end() - (origins.size() > path.anchors.size() && !atStart ? 1 : 0), 0);
    return reshape(path, *longer, origins);
}

} // namespace kzo::plugin
