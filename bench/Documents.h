// Documents of many paths, of equal density whatever their number, so that only the cost of looking something up may
// grow.
#pragma once

#include <cmath>
#include <cstdint>
#include <random>

#include "model/Document.h"

namespace documents {

constexpr double kCell = 20; // points; one path a cell

[[nodiscard]] inline std::int64_t columns(std::int64_t count) {
    return static_cast<std::int64_t>(std::ceil(std::sqrt(static_cast<double>(count))));
}

/// Points to each side of a page for so many paths.
[[nodiscard]] inline double side(std::int64_t count) { return kCell * static_cast<double>(columns(count)); }

inline void fill(easel::model::Document& document, std::int64_t count) {
    using namespace easel::model;
    std::mt19937 random(1);
    std::uniform_real_distribution<double> inCell(0, kCell);
    document.journal().begin();
    for (std::int64_t i = 0; i < count; ++i) {
        const std::int64_t row = i / columns(count);
        const double left = kCell * static_cast<double>(i - row * columns(count));
        const double top = kCell * static_cast<double>(row);
        PathData data;
        for (int k = 0; k < 3; ++k) {
            const Point point{left + inCell(random), top + inCell(random)};
            data.points.push_back({point, point, point});
        }
        Node& path = document.create(NodeType::Path, Placement::OnTopInside, document.currentLayer());
        document.setPath(path, std::move(data));
    }
    document.journal().end();
}

} // namespace documents
