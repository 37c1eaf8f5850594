// What a preference can hold beside plain values, and the tag of every kind.
#pragma once

#include <array>
#include <string>

#include "core/values/ArtboardPoint.h"
#include "core/values/ArtboardRect.h"
#include "core/values/Font.h"
#include "core/values/PathStyle.h"
#include "core/values/Point.h"
#include "core/values/Rect.h"
#include "core/values/Size.h"
#include "core/values/TransformMatrix.h"

namespace kzo::core {

/// A color of the user interface: red, green, blue and opacity, 0 to 1.
struct Color {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    bool operator==(const Color&) const = default;
};

// Which parts of a style are known: what several objects have in common, or what a change is to leave alone.

struct DashStyleMap {
    bool lengths = false;
    bool offset = false;

    bool operator==(const DashStyleMap&) const = default;
};

struct FillStyleMap {
    bool painted = false;
    bool color = false;
    bool overprint = false;

    bool operator==(const FillStyleMap&) const = default;
};

struct StrokeStyleMap {
    bool painted = false;
    bool color = false;
    bool width = false;
    bool miterLimit = false;
    bool cap = false;
    bool join = false;
    DashStyleMap dash;
    bool overprint = false;

    bool operator==(const StrokeStyleMap&) const = default;
};

enum class PrefType {
    None = 0,
    Bool = 100,
    Number = 110,
    String = 120,
    Array = 130,
    Dictionary = 140,
    ArtboardPoint = 200,
    ArtboardRect = 210,
    ArtColor = 220,
    Color = 230,
    Point = 240,
    Rect = 250,
    Size = 260,
    Font = 270,
    TransformMatrix = 280,
    DashStyle = 290,
    FillStyle = 300,
    StrokeStyle = 310,
    DashStyleMap = 320,
    FillStyleMap = 330,
    StrokeStyleMap = 340,
    Preferences = 1000 ///< the dictionary that a file holds
};

/// The tag of each kind of value.
template <class Kind> inline constexpr PrefType kPrefType = PrefType::None;
template <> inline constexpr PrefType kPrefType<bool> = PrefType::Bool;
template <> inline constexpr PrefType kPrefType<double> = PrefType::Number;
template <> inline constexpr PrefType kPrefType<std::string> = PrefType::String;
template <> inline constexpr PrefType kPrefType<ArtboardPoint> = PrefType::ArtboardPoint;
template <> inline constexpr PrefType kPrefType<ArtboardRect> = PrefType::ArtboardRect;
template <> inline constexpr PrefType kPrefType<ArtColor> = PrefType::ArtColor;
template <> inline constexpr PrefType kPrefType<Color> = PrefType::Color;
template <> inline constexpr PrefType kPrefType<Point> = PrefType::Point;
template <> inline constexpr PrefType kPrefType<Rect> = PrefType::Rect;
template <> inline constexpr PrefType kPrefType<Size> = PrefType::Size;
template <> inline constexpr PrefType kPrefType<Font> = PrefType::Font;
template <> inline constexpr PrefType kPrefType<TransformMatrix> = PrefType::TransformMatrix;
template <> inline constexpr PrefType kPrefType<DashStyle> = PrefType::DashStyle;
template <> inline constexpr PrefType kPrefType<FillStyle> = PrefType::FillStyle;
template <> inline constexpr PrefType kPrefType<StrokeStyle> = PrefType::StrokeStyle;
template <> inline constexpr PrefType kPrefType<DashStyleMap> = PrefType::DashStyleMap;
template <> inline constexpr PrefType kPrefType<FillStyleMap> = PrefType::FillStyleMap;
template <> inline constexpr PrefType kPrefType<StrokeStyleMap> = PrefType::StrokeStyleMap;

} // namespace kzo::core
