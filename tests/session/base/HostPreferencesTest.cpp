// The application's own preferences: kept across runs, and whatever stands in their file.
#include "session/base/HostPreferences.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "support/Folder.h"

namespace {

using easel::session::HostPreferences;

struct Launch {
    explicit Launch(const desk::Folder& folder) { profile.use(folder.path()); }
    easel::session::Profile profile;
    easel::session::Reports reports;
    HostPreferences preferences{profile, reports};
};

TEST(HostPreferences, AreKeptWithTheirKinds) {
    const desk::Folder folder;
    using Value = HostPreferences::Value;
    const Value values[] = {true, std::int32_t{-7}, 2.0, std::string("a\"\n\xc3\xa9")};
    {
        Launch launch(folder);
        for (const Value& value : values) launch.preferences.put("S", std::to_string(value.index()), value);
        launch.preferences.put("S", "gone", 1);
        EXPECT_TRUE(launch.preferences.remove("S", "gone"));
        EXPECT_FALSE(launch.preferences.remove("S", "gone"));
    }
    Launch again(folder);
    for (const Value& value : values) {
        const Value* const found = again.preferences.find("S", std::to_string(value.index()));
        ASSERT_NE(found, nullptr) << value.index();
        EXPECT_EQ(*found, value);
    }
    EXPECT_EQ(again.preferences.find("S", "gone"), nullptr);
    EXPECT_EQ(folder.fileCount(), 1);
}

TEST(HostPreferences, OutliveADamagedFile) {
    for (const char* text : {"", "[", "{}", "[1]", R"([{"section":1}])", R"([{"section":"","key":"","value":[]}])"}) {
        const desk::Folder folder;
        folder.write(HostPreferences::kFile, text);
        Launch launch(folder);
        EXPECT_EQ(launch.preferences.find("", ""), nullptr);
        EXPECT_EQ(launch.reports.lines().size(), 1U) << text;
        launch.preferences.put("", "a", true);
        EXPECT_EQ(folder.content(std::string(HostPreferences::kFile) + ".damaged"), text);
    }
}

} // namespace
