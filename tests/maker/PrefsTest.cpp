// The plug-in's settings, with the product in a host: the file, its keys, what is said when it cannot be had, and what
// the tools go by.
#include "maker/Prefs.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <unistd.h>

#include <gtest/gtest.h>

#include "core/dialogs/Alerts.h"
#include "core/services/Date.h"
#include "core/services/Folders.h"
#include "maker/Globals.h"
#include "maker/Web.h"
#include "support/Desk.h"
#include "support/Folder.h"

namespace {

using kzo::core::Date;
using kzo::core::Duration;

constexpr const char* kWelcome = "Welcome to Ortholine! \nPlugin successfully installed.";
constexpr const char* kNotCreated =
    "There was an error creating the preferences directory. Please report this as a bug.";
constexpr const char* kNotLoaded = "There was an error loading the preferences file. Please report this as a bug.";
constexpr const char* kNotVerified =
    "There was an error verifying the preferences location. Please report this as a bug.";
constexpr const char* kFile = "Velloran/Ortholine 16/Preferences";

std::string today() { return Date::Current().format("Y-m-d"); }

std::string fileOf(int saveCount, const std::string& date, const std::string& axes = "150 30") {
    const std::string x = axes.substr(0, axes.find(' '));
    const std::string z = axes.substr(axes.find(' ') + 1);
    return "{\n\t\"Prefs\":\n\t{\n\t\t\"SaveCount\":" + std::to_string(saveCount) +
           ",\n\t\t\"__vn\":0,\n\t\t\"__vs\":\"\",\n\t\t\"autoConcat\":false,\n\t\t\"autoVCheck\":true,\n\t\t"
           "\"usePlotwiseSettings\":false,\n\t\t\"vCheckDue\":\"" +
           date + "\",\n\t\t\"vCheckFreq\":7,\n\t\t\"xAxis\":" + x + ",\n\t\t\"zAxis\":" + z + "\n\t}\n}";
}

class PrefsTest : public testing::Test {
  protected:
    /// The product runs in a session of its own, which is asked by `ask`.
    template <class Ask> void inSession(Ask ask) {
        said.clear();
        desk::Desk desk({.profile = folder.path(), .said = &said});
        desk.inMessage([&] { ask(*vlGlobals::instance()); });
    }
    [[nodiscard]] static double degrees(const kzo::core::Angle& angle) { return angle.asDegrees(); }

    desk::Folder folder;
    std::vector<std::string> said;
};

TEST_F(PrefsTest, AreMadeAtTheFirstLaunch) {
    inSession([&](const vlGlobals& globals) {
        EXPECT_EQ(said, std::vector<std::string>{kWelcome});
        EXPECT_EQ(folder.content(kFile), fileOf(2, today()));
        EXPECT_FALSE(globals.autoConcat || globals.usePlotwiseSettings || globals.prefsFailed);
        EXPECT_DOUBLE_EQ(degrees(globals.zAxisAngle), 30);
        EXPECT_DOUBLE_EQ(degrees(globals.xAxisAngle), 150);
    });
    EXPECT_EQ(folder.content(kFile), fileOf(4, today())) << "written again at the end";
    inSession([&](const vlGlobals&) { EXPECT_TRUE(said.empty()) << said.front(); });
}

TEST_F(PrefsTest, AreWhatTheToolsGoByAndAreKept) {
    folder.write(
        kFile,
        R"({"Prefs":{"zAxis":40,"xAxis":"text","autoConcat":true,"vCheckDue":"2999-01-01","vCheckFreq":null,"mine":[1]}})");
    inSession([&](vlGlobals& globals) {
        EXPECT_TRUE(said.empty());
        EXPECT_DOUBLE_EQ(degrees(globals.zAxisAngle), 40);
        EXPECT_DOUBLE_EQ(degrees(globals.xAxisAngle), 150) << "of another kind";
        EXPECT_TRUE(globals.autoConcat);
        globals.zAxisAngle = kzo::core::Angle(45, kzo::core::Angle::Units::Degrees);
        globals.xAxisAngle = kzo::core::Angle(149.5, kzo::core::Angle::Units::Degrees);
        globals.autoConcat = false;
        globals.usePlotwiseSettings = true;
    });
    const std::string text = folder.content(kFile);
    for (const char* part :
         {"\"zAxis\":45\n", "\"xAxis\":149.5,", "\"autoConcat\":false,", "\"usePlotwiseSettings\":true,",
          "\"vCheckDue\":\"2999-01-01\",", "\"vCheckFreq\":7,", "\"mine\":\n\t\t[\n\t\t\t1\n\t\t],"})
        EXPECT_NE(text.find(part), std::string::npos) << part << text;
    inSession([&](const vlGlobals& globals) {
        EXPECT_DOUBLE_EQ(degrees(globals.zAxisAngle), 45);
        EXPECT_TRUE(globals.usePlotwiseSettings);
    });
}

/// The records by themselves, to look at the schedule.
TEST_F(PrefsTest, TellWhenAnUpdateCheckIsDue) {
    const std::string yesterday = (Date::Current() - Duration::Days(1)).format("Y-m-d");
    const std::string tomorrow = (Date::Current() + Duration::Days(1)).format("Y-m-d");
    const struct {
        std::string key;
        std::string date;
        bool due;
    } rows[] = {{"", today(), true},
                {"\"vCheckDue\":\"" + yesterday + "\"", yesterday, true},
                {"\"vCheckDue\":\"" + tomorrow + "\"", tomorrow, false},
                {"\"vCheckDue\":\"9999-12-31\"", "9999-12-31", false},
                {"\"vCheckDue\":\"soon\"", "soon", true}};
    for (const auto& row : rows) {
        folder.write(kFile, "{\"Prefs\":{" + row.key + "}}");
        inSession([&](const vlGlobals&) {
            vl::vlPrefs prefs;
            prefs.init();
            EXPECT_TRUE(prefs.checkDue() && prefs.checksAutomatically());
            EXPECT_EQ(prefs.nextCheckDate(), today());
            EXPECT_EQ(prefs.checkInterval(), 7);
            prefs.startup();
            EXPECT_EQ(prefs.nextCheckDate(), row.date);
            EXPECT_EQ(prefs.checkDue(), row.due) << row.date;
            folder.write(kFile, "{\"Prefs\":{\"vCheckFreq\":30,\"autoVCheck\":false,\"zAxis\":20}}");
            prefs.readPrefs();
            prefs.getPrefs();
            EXPECT_EQ(prefs.checkInterval(), 30);
            EXPECT_FALSE(prefs.checksAutomatically());
            EXPECT_EQ(prefs.nextCheckDate(), today());
            prefs.savePrefs();
            EXPECT_NE(folder.content(kFile).find("\"SaveCount\":1,"), std::string::npos);
        });
    }
}

TEST_F(PrefsTest, SayWhatFailsAndGoOnWithTheDefaults) {
    const auto blocked = [&](const std::string& name) { folder.write(name, "in the way"); };
    const struct {
        std::function<void()> prepare;
        std::vector<std::string> said;
    } rows[] = {
        {[&] { blocked("Velloran"); }, {}},
        {[&] { blocked("Velloran/Ortholine 16"); }, {kNotCreated, kNotVerified}},
        {[&] { blocked(std::string(kFile) + "/a file"); }, {kNotLoaded}},
        {[&] {
             std::filesystem::create_directories(folder.path("Velloran/Ortholine 16"));
             ASSERT_EQ(std::system(("mkfifo '" + folder.path(kFile) + "'").c_str()), 0);
         },
         {kNotLoaded}},
        {[&] {
             std::filesystem::create_directories(folder.path("Velloran/Ortholine 16"));
             std::filesystem::create_symlink("Preferences", folder.path(kFile));
         },
         {kNotLoaded}},
    };
    const auto listing = [&] {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path()))
            names.push_back(entry.path());
        std::sort(names.begin(), names.end());
        return names;
    };
    for (const auto& row : rows) {
        std::filesystem::remove_all(folder.path("Velloran"));
        row.prepare();
        const auto before = listing();
        inSession([&](const vlGlobals& globals) {
            EXPECT_TRUE(globals.prefsFailed);
            EXPECT_FALSE(globals.autoConcat || globals.usePlotwiseSettings);
            EXPECT_DOUBLE_EQ(degrees(globals.xAxisAngle), 150);
        });
        EXPECT_EQ(said, row.said);
        EXPECT_EQ(listing(), before);
    }
}

TEST_F(PrefsTest, WhatCannotBeWrittenIsLeftAsItIs) {
    const std::string text = fileOf(3, "2999-01-01", "140 33");
    folder.write(kFile, text);
    // Root does not care for modes.
    const auto lock = [&](const std::string& flag) {
        return std::system(("chattr " + flag + " '" + folder.path(kFile) + "'").c_str());
    };
    std::filesystem::permissions(folder.path(kFile), std::filesystem::perms::owner_read);
    ASSERT_TRUE(geteuid() != 0 || lock("+i") == 0);
    inSession([&](const vlGlobals& globals) {
        EXPECT_TRUE(said.empty());
        EXPECT_FALSE(globals.prefsFailed);
        EXPECT_DOUBLE_EQ(degrees(globals.zAxisAngle), 33);
    });
    if (geteuid() == 0) lock("-i");
    EXPECT_EQ(folder.content(kFile), text);
}

TEST_F(PrefsTest, AbsurdAxesDoNoHarm) {
    folder.write(kFile,
                 "{\"Prefs\":{\"zAxis\":" + std::string(300, '9') + ".5,\"xAxis\":-" + std::string(300, '9') + ".5}}");
    desk::Desk desk({.profile = folder.path()});
    desk.selectTool();
    desk.stroke({{10, 10}, {60, 40}});
    EXPECT_EQ(desk.paths().size(), 1U);
}

TEST(Web, IsTheMakersUnlessThisMachineIsNamed) {
    const std::string before = std::getenv("VELLORAN_WEB");
    const auto addressWith = [&](const char* other) {
        setenv("VELLORAN_WEB", other, 1);
        std::string address = vl::web::address("/check");
        setenv("VELLORAN_WEB", before.c_str(), 1);
        return address;
    };
    for (const char* other : {"http://127.0.0.1", "http://127.0.0.1:8080", "https://localhost:1"})
        EXPECT_EQ(addressWith(other), std::string(other) + "/check");
    for (const char* other :
         {"", "http://evil.example", "http://127.0.0.1@evil.example", "http://127.0.0.1.evil.example",
          "file://localhost", "http://localhost:", "http://localhost:123456", "127.0.0.1"})
        EXPECT_EQ(addressWith(other), "https://www.velloran.example/check") << other;
}

} // namespace
