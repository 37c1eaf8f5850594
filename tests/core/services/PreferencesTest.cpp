// The store: what it makes of files, what it writes, and how handles stay with
// their keys.
#include "core/services/Preferences.h"

#include <gtest/gtest.h>

#include "support/Folder.h"

namespace {

using namespace kzo::core;

class PreferencesTest : public testing::Test {
  protected:
    /// The store of a file with that text.
    Preferences loaded(const std::string& text) {
        folder.write("Preferences", text);
        Preferences store;
        EXPECT_TRUE(Preferences::load(path, store));
        return store;
    }
    [[nodiscard]] std::string written() const { return folder.content("Preferences"); }

    desk::Folder folder;
    std::string path = folder.path("Preferences");
};

const std::string kEmptySavedOnce = "{\n\t\"Prefs\":\n\t{\n\t\t\"SaveCount\":1,\n\t\t\"__vn\":0,\n\t\t\"__vs\":"
                                    "\"\"\n\t}\n}";

TEST_F(PreferencesTest, TakeWhatIsNoPreferencesForAnEmptyStore) {
    const std::string deep = "{\"Prefs\":{\"a\":" + std::string(63, '[') + std::string(63, ']') + "}}";
    for (const std::string text :
         {"", "{}", "garbage", "[]", "{\"Prefs\":3}", "{\"Prefs\":{},}", "{\"prefs\":{}}", deep.c_str()}) {
        Preferences store = loaded(text);
        EXPECT_EQ(store.count(), 3U) << text;
        EXPECT_TRUE(store.save(path));
        EXPECT_EQ(written(), kEmptySavedOnce) << text;
        EXPECT_TRUE(store.save(path));
        EXPECT_EQ(store.saveCount(), 2);
    }
    std::filesystem::remove(path);
    Preferences missing;
    EXPECT_TRUE(missing.isEmpty());
    EXPECT_FALSE(missing.save(path) || missing.reload(path) || missing.addPref(BoolPref("a", true)));
    EXPECT_TRUE(Preferences::load(path, missing));
    EXPECT_FALSE(missing.reload(path)) << "nothing to read";
    EXPECT_TRUE(missing.save(path));
    EXPECT_EQ(written(), kEmptySavedOnce);
}

TEST_F(PreferencesTest, WritesTheFileOfTheExample) {
    Preferences store = loaded(R"({"Prefs":{"SaveCount":2,"__vn":"x"}})");
    NumberPref axis;
    BoolPref check;
    EXPECT_TRUE(store.getOrCreateFloatPref("zAxis", 30.0, axis));
    EXPECT_TRUE(store.getOrCreateBoolPref("autoVCheck", true, check));
    EXPECT_EQ(axis.floatValue(), 30.0);
    EXPECT_TRUE(store.save(path));
    EXPECT_EQ(written(), "{\n\t\"Prefs\":\n\t{\n\t\t\"SaveCount\":3,\n\t\t\"__"
                         "vn\":0,\n\t\t\"__vs\":\"\",\n"
                         "\t\t\"autoVCheck\":true,\n\t\t\"zAxis\":30\n\t}\n}");
    store.setVersionNumber(7);
    store.setVersionString("16.2\\");
    EXPECT_TRUE(axis.setIntValue(45) && check.setBoolValue(false));
    EXPECT_TRUE(store.save(path));
    Preferences again = loaded(written());
    EXPECT_EQ(again.versionNumber(), 7);
    EXPECT_EQ(again.versionString(), "16.2");
    EXPECT_EQ(again.saveCount(), 4);
    EXPECT_TRUE(again.getNumberPref("zAxis", axis));
    EXPECT_EQ(axis.floatValue(), 45.0);
    EXPECT_EQ(axis.intValue(), 45);
}

/// Creates a value, changes it, and finds it in the file again, as its own kind
/// and no other.
template <class Kind, class Get, class Create>
void keeps(Preferences& store, const std::string& path, Get get, Create create, const Kind& first, const Kind& second) {
    const std::string key = "key " + std::to_string(static_cast<int>(kPrefType<Kind>));
    Pref<Kind> pref;
    EXPECT_TRUE(store.addPref(StringPref(key, "of another kind")));
    EXPECT_FALSE((store.*get)(key, pref));
    EXPECT_TRUE((store.*create)(key, first, pref)) << key;
    EXPECT_EQ(pref.value(), first) << key;
    EXPECT_TRUE(pref.setValue(second));
    EXPECT_TRUE(store.save(path));
    Preferences again;
    Preferences::load(path, again);
    EXPECT_TRUE((again.*create)(key, first, pref));
    EXPECT_EQ(pref.value(), second) << key << " was kept";
    PrefData any;
    EXPECT_TRUE(again.getPref(key, any));
    EXPECT_EQ(any.type(), kPrefType<Kind>) << key;
    EXPECT_EQ(Pref<Kind>(any), pref);
    DictionaryPref dictionary;
    EXPECT_TRUE(again.getDictPref(key, dictionary)) << "an object is a dictionary too";
    EXPECT_TRUE(dictionary.addPref(BoolPref("one more", true)));
    EXPECT_FALSE((again.*get)(key, pref)) << key << " has a member too many";
}

TEST_F(PreferencesTest, KeepsEveryCompoundKind) {
    using P = Preferences;
    Preferences store = loaded("");
    const DashStyle dash{.lengths = {3, 1.5}, .count = 2, .offset = 0.5};
    keeps<ArtboardPoint>(store, path, &P::getArtboardPointPref, &P::getOrCreateArtboardPointPref, {}, {1.5, -2});
    keeps<ArtboardRect>(store, path, &P::getArtboardRectPref, &P::getOrCreateArtboardRectPref, {}, {1, 2, 3, 4.25});
    keeps<ArtColor>(store, path, &P::getArtColorPref, &P::getOrCreateArtColorPref, {},
                    {.red = 1, .green = 0.5, .blue = 0});
    keeps<Color>(store, path, &P::getColorPref, &P::getOrCreateColorPref, {},
                 {.red = 1, .green = 0.5, .blue = 0, .alpha = 0.25});
    keeps<Point>(store, path, &P::getPointPref, &P::getOrCreatePointPref, {}, {1, -2});
    keeps<Rect>(store, path, &P::getRectPref, &P::getOrCreateRectPref, {}, {1, 2, 3, 4});
    keeps<Size>(store, path, &P::getSizePref, &P::getOrCreateSizePref, {}, {3, 4});
    keeps<Font>(store, path, &P::getFontPref, &P::getOrCreateFontPref, {}, {.name = "Sans \"Bold\"", .size = 9.5});
    keeps<TransformMatrix>(store, path, &P::getTransformMatrixPref, &P::getOrCreateTransformMatrixPref, {},
                           {1, 2, 3, 4, 5, 6});
    keeps<DashStyle>(store, path, &P::getDashStylePref, &P::getOrCreateDashStylePref, {}, dash);
    keeps<FillStyle>(store, path, &P::getFillStylePref, &P::getOrCreateFillStylePref, {},
                     {.painted = true, .color = {.red = 1}, .overprint = true});
    keeps<StrokeStyle>(store, path, &P::getStrokeStylePref, &P::getOrCreateStrokeStylePref, {},
                       {.painted = false,
                        .color = {.blue = 1},
                        .width = 0.5,
                        .miterLimit = 4,
                        .cap = StrokeCap::Round,
                        .join = StrokeJoin::Bevel,
                        .dash = dash,
                        .overprint = true});
    keeps<DashStyleMap>(store, path, &P::getDashStyleMapPref, &P::getOrCreateDashStyleMapPref, {}, {.lengths = true});
    keeps<FillStyleMap>(store, path, &P::getFillStyleMapPref, &P::getOrCreateFillStyleMapPref, {}, {.color = true});
    keeps<StrokeStyleMap>(store, path, &P::getStrokeStyleMapPref, &P::getOrCreateStrokeStyleMapPref, {},
                          {.width = true, .dash = {.offset = true}});
    EXPECT_EQ(store.count(), 3U + 15U);
}

TEST_F(PreferencesTest, KeepsArraysAndDictionariesWithinEachOther) {
    Preferences store = loaded("");
    ArrayPref list;
    DictionaryPref inner("");
    StringPref text("text", "a");
    EXPECT_TRUE(inner.addPref(text));
    EXPECT_TRUE(store.getOrCreateArrayPref("list", ArrayPref("default"), list));
    EXPECT_TRUE(list.add(NumberPref("dropped key", 1.5)) && list.add(inner) && list.add(PointPref("", {1, 2})));
    EXPECT_FALSE(list.add(inner)) << "it has a place";
    EXPECT_TRUE(text.setStringValue("later"));
    EXPECT_TRUE(store.save(path));
    Preferences again = loaded(written());
    NumberPref number;
    PointPref point;
    EXPECT_TRUE(again.getArrayPref("list", list));
    EXPECT_EQ(list.count(), 3U);
    EXPECT_TRUE(list.get(0, number) && list.get(1, inner) && list.get(2, point) && inner.getStringPref("text", text));
    EXPECT_EQ(number.floatValue(), 1.5);
    EXPECT_EQ(text.stringValue(), "later");
    EXPECT_FALSE(list.get(3, number) || list.get(1, number));
    EXPECT_TRUE(number.isEmpty());
    EXPECT_TRUE(list.remove(1));
    EXPECT_EQ(list.count(), 2U);
    DictionaryPref copy;
    EXPECT_TRUE(again.getOrCreateDictPref("copy", inner, copy));
    EXPECT_TRUE(copy.getStringPref("text", text));
    EXPECT_EQ(copy.key(), "copy");
}

TEST_F(PreferencesTest, HandlesStayWithTheirKeysAfterAReload) {
    Preferences store = loaded(R"({"Prefs":{"a":1,"b":2,"d":{"x":true},"l":[5,6]}})");
    NumberPref a, b, second;
    BoolPref x;
    DictionaryPref d;
    ArrayPref l;
    EXPECT_TRUE(store.getNumberPref("a", a) && store.getNumberPref("b", b) && store.getDictPref("d", d) &&
                d.getBoolPref("x", x));
    EXPECT_TRUE(store.getArrayPref("l", l) && l.get(1, second));
    for (const char* bad : {"", "{\"Prefs\"", "[1]"}) {
        folder.write("Preferences", bad);
        EXPECT_FALSE(store.reload(path)) << bad;
        EXPECT_EQ(a.intValue(), 1);
    }
    folder.write("Preferences", R"({"Prefs":{"a":10,"b":"text","d":{"x":false},"l":[7,8]}})");
    EXPECT_TRUE(store.reload(path));
    EXPECT_EQ(a.intValue(), 10);
    EXPECT_TRUE(b.isEmpty());
    EXPECT_FALSE(b.setIntValue(3));
    folder.write("Preferences", R"({"Prefs":{"l":[1]}})");
    EXPECT_TRUE(store.reload(path));
    EXPECT_TRUE(a.isEmpty() && b.isEmpty() && x.isEmpty() && second.isEmpty());
    EXPECT_TRUE(store.addPref(NumberPref("b", 20)));
    EXPECT_EQ(b.intValue(), 20) << "the key is there again";
    folder.write("Preferences", R"({"Prefs":{"a":10,"d":{"x":false},"l":[7,8]}})");
    EXPECT_TRUE(store.reload(path));
    EXPECT_FALSE(x.isEmpty() || x.boolValue());
    EXPECT_EQ(second.intValue(), 8);
    NumberPref count;
    EXPECT_TRUE(store.getNumberPref("SaveCount", count) && store.removePref(count));
    EXPECT_TRUE(a.setIntValue(11) && store.save(path));
    EXPECT_EQ(store.saveCount(), 1) << "there again";
    EXPECT_NE(written().find("\"a\":11"), std::string::npos);
    EXPECT_TRUE(store.removePref(a));
    EXPECT_FALSE(store.removePref(a));
    EXPECT_EQ(a.intValue(), 11) << "its own again";
    EXPECT_TRUE(store.addPref(a));
}

TEST_F(PreferencesTest, RefusesWhatCouldNotBeReadBack) {
    Preferences store = loaded("");
    StringPref text;
    EXPECT_FALSE(store.addPref(BoolPref("a\"b", true)));
    EXPECT_FALSE(store.addPref(BoolPref("a\\", true)));
    EXPECT_FALSE(store.addPref(StringPref("a", "b\\")));
    EXPECT_FALSE(store.getOrCreateStringPref("a\"b", "", text) || store.getOrCreateStringPref("a", "b\\", text));
    EXPECT_TRUE(text.isEmpty());
    EXPECT_TRUE(store.getOrCreateStringPref("a", "", text));
    EXPECT_TRUE(text.setStringValue("C:\\\\"));
    EXPECT_EQ(text.stringValue(), "C:");
    EXPECT_TRUE(text.setStringValue("\\n \"quoted\" \\\" "));
    // 62 dictionaries within the store are as many as a reader takes.
    for (const int depth : {62, 63}) {
        DictionaryPref outer("inner");
        for (int i = 1; i < depth; ++i) {
            DictionaryPref next("inner");
            EXPECT_TRUE(next.addPref(outer));
            outer = next;
        }
        EXPECT_EQ(store.addPref(outer), depth == 62) << depth;
        EXPECT_TRUE(store.save(path) && store.reload(path));
        PrefData left;
        if (store.getPref("inner", left)) store.removePref(left);
    }
    EXPECT_EQ(text.stringValue(), "\\n \"quoted\" \\\" ");
}

TEST_F(PreferencesTest, LosesNothingElseToWhatCouldNotBeReadBack) {
    Preferences store = loaded("{\"beside\":1,\"Prefs\":{\"a\\\"b\":1,\"ab\":2,\"c\\\\\"\":3,"
                               "\"d\":[{\"e\\\"\":4}]},\"Other\":{}}");
    FontPref font;
    EXPECT_TRUE(store.getOrCreateFontPref("font", {.name = "Sans", .size = 9}, font));
    EXPECT_TRUE(font.setValue({.name = "Mono\\", .size = 10}));
    EXPECT_TRUE(store.save(path));
    EXPECT_EQ(font.value().name, "Mono");
    EXPECT_EQ(written(), "{\n\t\"Prefs\":\n\t{\n\t\t\"SaveCount\":1,\n\t\t\"__vn\":0,\n\t\t\"__vs\":\"\","
                         "\n\t\t\"ab\":2,\n\t\t\"c\":3,\n\t\t\"d\":\n\t\t[\n\t\t\t\n\t\t\t{\n\t\t\t\t"
                         "\"e\":4\n\t\t\t}\n\t\t],\n\t\t\"font\":\n\t\t{\n\t\t\t\"fontName\":\"Mono\","
                         "\n\t\t\t\"fontSize\":10\n\t\t}\n\t}\n}");
    EXPECT_TRUE(store.reload(path));
}

TEST_F(PreferencesTest, SurvivesEveryCutAndEveryFlippedBit) {
    const std::string whole = "{\n\t\"Prefs\":\n\t{\n\t\t\"SaveCount\":3,\n\t\t\"__vn\":0,\n\t\t\"__"
                              "vs\":\"a\\\"b\",\n"
                              "\t\t\"autoVCheck\":true,\n\t\t\"origin\":\n\t\t{\n\t\t\t\"h\":1.5,"
                              "\n\t\t\t\"v\":-2\n\t\t},\n\t\t\"zAxis\":45\n\t}\n}";
    int kept = 0;
    const auto read = [&](bool save) {
        Preferences store;
        NumberPref axis;
        ASSERT_TRUE(Preferences::load(path, store) && store.getOrCreateFloatPref("zAxis", 30, axis));
        kept += axis.floatValue() == 45 ? 1 : 0;
        if (!save) return;
        ASSERT_TRUE(store.save(path) && store.reload(path));
        ASSERT_FALSE(axis.isEmpty());
        folder.write("Preferences", whole);
    };
    for (std::size_t length = 0; length < whole.size(); ++length) {
        folder.write("Preferences", whole.substr(0, length));
        read(length % 8 == 0);
    }
    EXPECT_EQ(kept, 4) << "all that is missing are brackets and line ends";
    folder.write("Preferences", whole);
    for (std::size_t bit = 0; bit < 8 * whole.size(); ++bit) {
        std::string text = whole;
        text[bit / 8] = static_cast<char>(text[bit / 8] ^ (1 << bit % 8));
        std::fstream(path, std::ios::in | std::ios::out | std::ios::binary) << text;
        read(bit % 64 == 0);
    }
}

TEST_F(PreferencesTest, LeavesAloneWhatItCouldNotRead) {
    std::filesystem::create_directories(path + "/kept");
    Preferences store;
    BoolPref pref;
    EXPECT_TRUE(Preferences::load(path, store));
    EXPECT_TRUE(store.unreadable());
    EXPECT_TRUE(store.getOrCreateBoolPref("a", true, pref));
    EXPECT_FALSE(store.save(path));
    EXPECT_EQ(store.saveCount(), 0);
    EXPECT_TRUE(std::filesystem::exists(path + "/kept"));
    EXPECT_TRUE(store.save(folder.path("elsewhere")));
    std::filesystem::remove_all(path);
    EXPECT_FALSE(store.save(path)) << "what may have come instead is not known either";
    folder.write("Preferences", kEmptySavedOnce);
    EXPECT_TRUE(store.reload(path) && store.save(path));
    EXPECT_TRUE(pref.isEmpty());
}

} // namespace
