// The tools that the host brings itself.
#pragma once

namespace kzo::core {

/// A host may lack some of them.
enum class BuiltinTool {
    Selection = 10,
    DirectSelection = 20,
    Pen = 30,
    Type = 40,
    LineSegment = 50,
    Rectangle = 60,
    Ellipse = 70,
    Pencil = 80,
    Rotate = 90,
    Scale = 100,
    Scissors = 110,
    Eyedropper = 120,
    Hand = 130,
    Zoom = 140
};

} // namespace kzo::core
