// Preferences under keys: a dictionary, and what the whole store is.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "core/services/Pref.h"

namespace kzo::core {

/// Keys are any texts without double quotes and without a backslash at the end. Nothing is added that a file could not
/// be read back with: such keys and texts, and more than 64 dictionaries and arrays within each other.
class DictionaryPref : public PrefData {
  public:
    static constexpr PrefType kType = PrefType::Dictionary;
    using Key = const std::string&;

    DictionaryPref() = default;
    explicit DictionaryPref(const std::string& key); ///< without members
    explicit DictionaryPref(const PrefData& other) : PrefData(other, kType) {}

    // Members
    [[nodiscard]] std::size_t count() const;
    /// The handle stands for the member from then on. Refused when its key is taken or it has another place already.
    bool addPref(const PrefData& pref);
    bool removePref(const PrefData& pref); ///< the handle keeps the value
    /// The member as the kind that its shape shows.
    bool getPref(const std::string& key, PrefData& out) const { return get(key, out); }

    // Members of one kind. False and an empty handle when there is none, or one of another kind.
    bool getBoolPref(Key key, BoolPref& out) const { return get(key, out); }
    bool getNumberPref(Key key, NumberPref& out) const { return get(key, out); }
    bool getStringPref(Key key, StringPref& out) const { return get(key, out); }
    bool getArrayPref(Key key, ArrayPref& out) const { return get(key, out); }
    bool getDictPref(Key key, DictionaryPref& out) const { return get(key, out); }
    bool getArtboardPointPref(Key key, ArtboardPointPref& out) const { return get(key, out); }
    bool getArtboardRectPref(Key key, ArtboardRectPref& out) const { return get(key, out); }
    bool getArtColorPref(Key key, ArtColorPref& out) const { return get(key, out); }
    bool getColorPref(Key key, ColorPref& out) const { return get(key, out); }
    bool getPointPref(Key key, PointPref& out) const { return get(key, out); }
    bool getRectPref(Key key, RectPref& out) const { return get(key, out); }
    bool getSizePref(Key key, SizePref& out) const { return get(key, out); }
    bool getFontPref(Key key, FontPref& out) const { return get(key, out); }
    bool getTransformMatrixPref(Key key, TransformMatrixPref& out) const { return get(key, out); }
    bool getDashStylePref(Key key, DashStylePref& out) const { return get(key, out); }
    bool getFillStylePref(Key key, FillStylePref& out) const { return get(key, out); }
    bool getStrokeStylePref(Key key, StrokeStylePref& out) const { return get(key, out); }
    bool getDashStyleMapPref(Key key, DashStyleMapPref& out) const { return get(key, out); }
    bool getFillStyleMapPref(Key key, FillStyleMapPref& out) const { return get(key, out); }
    bool getStrokeStyleMapPref(Key key, StrokeStyleMapPref& out) const { return get(key, out); }

    // Members of one kind, made with the value when there is none; one of another kind is replaced.
    bool getOrCreateBoolPref(Key key, bool value, BoolPref& out) { return getOrCreate(key, value, out); }
    bool getOrCreateIntPref(Key key, long long value, NumberPref& out);
    bool getOrCreateFloatPref(Key key, double value, NumberPref& out) { return getOrCreate(key, value, out); }
    bool getOrCreateStringPref(Key key, const std::string& value, StringPref& out) {
        return getOrCreate(key, value, out);
    }
    bool getOrCreateArrayPref(Key key, const ArrayPref& value, ArrayPref& out);
    bool getOrCreateDictPref(Key key, const DictionaryPref& value, DictionaryPref& out);
    bool getOrCreateArtboardPointPref(Key key, const ArtboardPoint& value, ArtboardPointPref& out) {
        return getOrCreate(key, value, out);
    }
    bool getOrCreateArtboardRectPref(Key key, const ArtboardRect& value, ArtboardRectPref& out) {
        return getOrCreate(key, value, out);
    }
    bool getOrCreateArtColorPref(Key key, const ArtColor& value, ArtColorPref& out) {
        return getOrCreate(key, value, out);
    }
    bool getOrCreateColorPref(Key key, const Color& value, ColorPref& out) { return getOrCreate(key, value, out); }
    bool getOrCreatePointPref(Key key, const Point& value, PointPref& out) { return getOrCreate(key, value, out); }
    bool getOrCreateRectPref(Key key, const Rect& value, RectPref& out) { return getOrCreate(key, value, out); }
    bool getOrCreateSizePref(Key key, const Size& value, SizePref& out) { return getOrCreate(key, value, out); }
    bool getOrCreateFontPref(Key key, const Font& value, FontPref& out) { return getOrCreate(key, value, out); }
    bool getOrCreateTransformMatrixPref(Key key, const TransformMatrix& value, TransformMatrixPref& out) {
        return getOrCreate(key, value, out);
    }
    bool getOrCreateDashStylePref(Key key, const DashStyle& value, DashStylePref& out) {
        return getOrCreate(key, value, out);
    }
    bool getOrCreateFillStylePref(Key key, const FillStyle& value, FillStylePref& out) {
        return getOrCreate(key, value, out);
    }
    bool getOrCreateStrokeStylePref(Key key, const StrokeStyle& value, StrokeStylePref& out) {
        return getOrCreate(key, value, out);
    }
    bool getOrCreateDashStyleMapPref(Key key, const DashStyleMap& value, DashStyleMapPref& out) {
        return getOrCreate(key, value, out);
    }
    bool getOrCreateFillStyleMapPref(Key key, const FillStyleMap& value, FillStyleMapPref& out) {
        return getOrCreate(key, value, out);
    }
    bool getOrCreateStrokeStyleMapPref(Key key, const StrokeStyleMap& value, StrokeStyleMapPref& out) {
        return getOrCreate(key, value, out);
    }

  protected:
    explicit DictionaryPref(std::shared_ptr<plugin::PersistentData> impl) : PrefData(std::move(impl)) {}

  private:
    template <class Member> bool get(const std::string& key, Member& out) const {
        out = Member(fetch(key, Member::kType));
        return !out.isEmpty();
    }
    template <class Kind> bool getOrCreate(const std::string& key, const Kind& value, Pref<Kind>& out) {
        return get(key, out) || put(Pref<Kind>(key, value), out);
    }
    /// Adds the made one in place of whatever has its key.
    template <class Member> bool put(const Member& made, Member& out) {
        out = replaceBy(made) ? made : Member();
        return !out.isEmpty();
    }
    [[nodiscard]] PrefData fetch(const std::string& key, PrefType type) const;
    bool replaceBy(const PrefData& made);
};

} // namespace kzo::core
