// What a document is edited with: defaults, units, the group that is isolated.
#pragma once

#include <cstdint>
#include <string>

#include "model/Node.h"
#include "model/Types.h"

namespace easel::model {

enum class Units : std::uint8_t { Points, Picas, Inches, Millimeters, Centimeters, Pixels };

/// What new text gets where nothing else is asked for.
struct TextDefaults {
    std::string font; ///< a family's name; empty for the renderer's default
    double size = 12;
    Justification justification = Justification::Left;

    bool operator==(const TextDefaults&) const = default;
};

struct Grid {
    double spacing = 72; ///< points
    int subdivisions = 8;
    bool visible = false;
    bool snaps = false;

    bool operator==(const Grid&) const = default;
};

struct Settings {
    Style pathStyle; ///< of new paths
    TextDefaults text;
    Units units = Units::Points; ///< of rulers
    Grid grid;
    NodeId isolated;            ///< a group, or none: all but what it holds is out of reach for the pointer
    NodeId textFocus;           ///< the text that is being edited, or none
    std::uint32_t artboard = 1; ///< the current one, by its id; the first, if there is none of that id
    std::uint32_t lastArtboard = 1;
};

} // namespace easel::model
