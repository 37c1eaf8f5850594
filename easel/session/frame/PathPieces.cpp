// Runs of anchors, around the end of a closed path too.
#include "session/frame/PathPieces.h"

namespace easel::session {

using model::PathData;

std::vector<PathData> piecesOf(const model::Node& path, bool selected) {
    const PathData& data = path.path();
    std::size_t first = 0;
    // The runs of a closed path begin behind an anchor of none.
    if (data.closed)
        while (first < data.points.size() && path.pointSelected(first) == selected) ++first;
    std::vector<std::vector<std::size_t>> runs(1);
    for (std::size_t i = 0; i < data.points.size(); ++i) {
        const std::size_t at = (first + i) % data.points.size();
        if (path.pointSelected(at) == selected)
            runs.back().push_back(at);
        else if (!runs.back().empty())
            runs.emplace_back();
    }
    std::vector<PathData> pieces;
    for (const std::vector<std::size_t>& run : runs) {
        if (run.size() < 2) continue;
        PathData& piece = pieces.emplace_back();
        model::PointFlags corners;
        for (const std::size_t at : run) {
            piece.points.push_back(data.points[at]);
            corners.push_back(data.isCorner(at));
        }
        piece.setCorners(0, corners);
    }
    return pieces;
}

} // namespace easel::session
