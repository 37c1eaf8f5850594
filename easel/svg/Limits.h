// How much a drawing may ask for. The first two are those of the renderer, so that what can be read can be drawn.
#pragma once

#include <cmath>
#include <cstddef>

namespace easel::svg {

constexpr std::size_t kMostElements = 1'000'000;
constexpr std::size_t kDeepestElement = 256;
constexpr std::size_t kMostBytes = std::size_t{1} << 30;
constexpr std::size_t kMostUnpackedBytes = std::size_t{256} << 20;
constexpr std::size_t kMostAnchors = 32'000;           ///< of one path; plug-ins count them in 16 bits
constexpr std::size_t kMostAnchorsInFile = 20'000'000; ///< of all outlines together
constexpr double kFarthestCoordinate = 1e9;            ///< points
constexpr int kMostPixels = 16'384;                    ///< of a picture, along each side
constexpr int kMostPdfPoints = 14'400;                 ///< of a PDF page, along each side; readers refuse larger ones

/// Whether a coordinate, or a length, is one that can be computed with. False for what is no number.
[[nodiscard]] inline bool withinReach(double value) { return std::fabs(value) <= kFarthestCoordinate; }

} // namespace easel::svg
