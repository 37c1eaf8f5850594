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
    bool getBoolPref(const std::string& key, BoolPref& out) const { return get(key, out); }
    bool getNumberPref(const std::string& key, NumberPref& out) const { return get(key, out); }
    bool getStringPref(const std::string& key, StringPref& out) const { return get(key, out); }
    bool getArrayPref(const std::string& key, ArrayPref& out) const { return get(key, out); }
    bool getDictPref(const std::string& key, DictionaryPref& out) const { return get(key, out); }
    bool getArtboardPointPref(const std::string& key, ArtboardPointPref& out) const { return get(key, out); }
    bool getArtboardRectPref(const std::string& key, ArtboardRectPref& out) const { return get(key, out); }
    bool getArtColorPref(const std::string& key, ArtColorPref& out) const { return get(key, out); }
    bool getColorPref(const std::string& key, ColorPref& out) const { return get(key, out); }
    bool getPointPref(const std::string& key, PointPref& out) const { return get(key, out); }
    bool getRectPref(const std::string& key, RectPref& out) const { return get(key, out); }
    bool getSizePref(const std::string& key, SizePref& out) const { return get(key, out); }
    bool getFontPref(const std::string& key, FontPref& out) const { return get(key, out); }
    bool getTransformMatrixPref(const std::string& key, TransformMatrixPref& out) const { return get(key, out); }
    bool getDashStylePref(const std::string& key, DashStylePref& out) const { return get(key, out); }
    bool getFillStylePref(const std::string& key, FillStylePref& out) const { return get(key, out); }
    bool getStrokeStylePref(const std::string& key, StrokeStylePref& out) const { return get(key, out); }
    bool getDashStyleMapPref(const std::string& key, DashStyleMapPref& out) const { return get(key, out); }
    bool getFillStyleMapPref(const std::string& key, FillStyleMapPref& out) const { return get(key, out); }
    bool getStrokeStyleMapPref(const std::string& key, StrokeStyleMapPref& out) const { return get(key, out); }

    // Members of one kind, made with the value when there is none; one of another kind is replaced.
    bool getOrCreateBoolPref(const std::string& key, bool value, BoolPref& out) { return getOrCreate(key, value, out); }
    bool getOrCreateIntPref(const std::string& key, long long value, NumberPref& out);
    bool getOrCreateFloatPref(const std::string& key, double value, NumberPref& out) {
        return getOrCreate(key, value, out);
    }
    bool getOrCreateStringPref(const std::string& key, const std::string& value, StringPref& out) {
        return getOrCreate(key, value, out);
    }
    bool getOrCreateArrayPref(const std::string& key, const ArrayPref& value, ArrayPref& out);
    bool getOrCreateDictPref(const std::string& key, const DictionaryPref& value, DictionaryPref& out);
    bool getOrCreateArtboardPointPref(const std::string& key, const ArtboardPoint& value, ArtboardPointPref& out) {
        return getOrCreate(key, value, out);
    }
    bool getOrCreateArtboardRectPref(const std::string& key, const ArtboardRect& value, ArtboardRectPref& out) {
        return getOrCreate(key, value, out);
    }
    bool getOrCreateArtColorPref(const std::string& key, const ArtColor& value, ArtColorPref& out) {
        return getOrCreate(key, value, out);
    }
    bool getOrCreateColorPref(const std::string& key, const Color& value, ColorPref& out) {
        return getOrCreate(key, value, out);
    }
    bool getOrCreatePointPref(const std::string& key, const Point& value, PointPref& out) {
        return getOrCreate(key, value, out);
    }
    bool getOrCreateRectPref(const std::string& key, const Rect& value, RectPref& out) {
        return getOrCreate(key, value, out);
    }
    bool getOrCreateSizePref(const std::string& key, const Size& value, SizePref& out) {
        return getOrCreate(key, value, out);
    }
    bool getOrCreateFontPref(const std::string& key, const Font& value, FontPref& out) {
        return getOrCreate(key, value, out);
    }
    bool getOrCreateTransformMatrixPref(const std::string& key, const TransformMatrix& value,
                                        TransformMatrixPref& out) {
        return getOrCreate(key, value, out);
    }
    bool getOrCreateDashStylePref(const std::string& key, const DashStyle& value, DashStylePref& out) {
        return getOrCreate(key, value, out);
    }
    bool getOrCreateFillStylePref(const std::string& key, const FillStyle& value, FillStylePref& out) {
        return getOrCreate(key, value, out);
    }
    bool getOrCreateStrokeStylePref(const std::string& key, const StrokeStyle& value, StrokeStylePref& out) {
        return getOrCreate(key, value, out);
    }
    bool getOrCreateDashStyleMapPref(const std::string& key, const DashStyleMap& value, DashStyleMapPref& out) {
        return getOrCreate(key, value, out);
    }
    bool getOrCreateFillStyleMapPref(const std::string& key, const FillStyleMap& value, FillStyleMapPref& out) {
        return getOrCreate(key, value, out);
    }
    bool getOrCreateStrokeStyleMapPref(const std::string& key, const StrokeStyleMap& value, StrokeStyleMapPref& out) {
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
