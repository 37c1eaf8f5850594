// Handles on single preferences: values that a store keeps under a key.
#pragma once

#include <cstddef>
#include <string>
#include <type_traits>

#include "core/Handle.h"
#include "core/values/PrefValues.h"

namespace kzo::plugin {
class PersistentData;
}

namespace kzo::core {

extern template class Handle<plugin::PersistentData>;

/// A value of any kind. Copies denote the same value. A handle made with a key and a value is its own until a store or
/// a dictionary takes it; one that was fetched stands for its key, also after the store was reloaded, and is empty when
/// nothing of its kind is there. Operations on an empty handle return false, 0 or an empty value.
class PrefData : public Handle<plugin::PersistentData> {
  public:
    static constexpr PrefType kType = PrefType::None; ///< any

    PrefData() = default; ///< empty
    using Handle::Handle;

    [[nodiscard]] PrefType type() const; ///< None when empty
    [[nodiscard]] std::string key() const;
    [[nodiscard]] bool operator==(const PrefData& other) const; ///< the same value in the same place

  protected:
    PrefData(const PrefData& other, PrefType type); ///< empty when the other is of another type
};

/// A value of one kind. A change stays in memory until the store is saved.
template <class Kind> class Pref : public PrefData {
  public:
    static constexpr PrefType kType = kPrefType<Kind>;

    Pref() = default;
    Pref(const std::string& key, const Kind& value);
    explicit Pref(const PrefData& other) : PrefData(other, kType) {} ///< empty when the other is of another kind

    [[nodiscard]] Kind value() const;
    bool setValue(const Kind& value);

    // Switches
    [[nodiscard]] bool boolValue() const requires std::is_same_v<Kind, bool> { return value(); }
    bool setBoolValue(bool on) requires std::is_same_v<Kind, bool> { return setValue(on); }

    // Numbers. Whole ones and fractions are one kind; a fraction is read as a whole number by rounding.
    [[nodiscard]] double floatValue() const requires std::is_same_v<Kind, double> { return value(); }
    bool setFloatValue(double number) requires std::is_same_v<Kind, double> { return setValue(number); }
    [[nodiscard]] long long intValue() const requires std::is_same_v<Kind, double>;
    bool setIntValue(long long number) requires std::is_same_v<Kind, double>;

    // Texts. Backslashes at the end are left out, since the file could not be read with them.
    [[nodiscard]] std::string stringValue() const requires std::is_same_v<Kind, std::string> { return value(); }
    bool setStringValue(const std::string& text) requires std::is_same_v<Kind, std::string> { return setValue(text); }
};

using BoolPref = Pref<bool>;
using NumberPref = Pref<double>;
using StringPref = Pref<std::string>;

// Kinds of several values. Each is an object with exactly these members; they are numbers where nothing else is said.
using ArtboardPointPref = Pref<ArtboardPoint>;     // h, v
using ArtboardRectPref = Pref<ArtboardRect>;       // left, top, right, bottom
using ArtColorPref = Pref<ArtColor>;               // r, g, b, each 0 to 1
using ColorPref = Pref<Color>;                     // red, green, blue, alpha, each 0 to 1
using PointPref = Pref<Point>;                     // x, y
using RectPref = Pref<Rect>;                       // x, y, width, height
using SizePref = Pref<Size>;                       // width, height
using FontPref = Pref<Font>;                       // fontName (a text), fontSize
using TransformMatrixPref = Pref<TransformMatrix>; // a, b, c, d, tx, ty
using DashStylePref = Pref<DashStyle>;             // dashes (an array of at most 6), dashOffset
using FillStylePref = Pref<FillStyle>;             // fillPainted (a switch), fillColor (as ArtColorPref),
                                                   // fillOverprint (a switch)
using StrokeStylePref = Pref<StrokeStyle>;         // strokePainted (a switch), strokeColor (as ArtColorPref),
                                                   // strokeWidth, miterLimit, cap (110 butt, 120 round,
                                                   // 130 projecting), join (110 miter, 120 round, 130 bevel),
                                                   // dash (as DashStylePref), strokeOverprint (a switch)
using DashStyleMapPref = Pref<DashStyleMap>;       // dashes, dashOffset, both switches
using FillStyleMapPref = Pref<FillStyleMap>;       // the members of FillStylePref as switches
using StrokeStyleMapPref = Pref<StrokeStyleMap>;   // the members of StrokeStylePref as switches, dash as
                                                   // DashStyleMapPref

/// Values of any kind in a row.
class ArrayPref : public PrefData {
  public:
    static constexpr PrefType kType = PrefType::Array;

    ArrayPref() = default;
    explicit ArrayPref(const std::string& key); ///< without elements
    explicit ArrayPref(const PrefData& other) : PrefData(other, kType) {}

    [[nodiscard]] std::size_t count() const;
    /// The element; false and an empty handle past the end, and where it is of
    /// another kind than the handle's. A plain `PrefData` takes any.
    template <class Element> bool get(std::size_t index, Element& out) const {
        out = Element(fetch(index, Element::kType));
        return !out.isEmpty();
    }
    /// The handle stands for the element from then on, which has no key. Refused when it has another place already.
    bool add(const PrefData& value);
    bool remove(std::size_t index);

  private:
    [[nodiscard]] PrefData fetch(std::size_t index, PrefType type) const;
};

} // namespace kzo::core
