// The product's dialogs, played by scripts: what they show, what each of the user's actions does, and what is in the
// file afterwards.
#include <cstdlib>
#include <sstream>

#include "core/dialogs/Alerts.h"
#include "core/services/Date.h"
#include "script/Script.h"
#include "session/app/Session.h"
#include "support/Desk.h"
#include "support/Folder.h"
#include "support/WebServer.h"

extern "C" SPErr PluginMain(const char* caller, const char* selector, void* message);

namespace {

using easel::session::HostPreferences;
using kzo::core::Date;
using kzo::core::Duration;

constexpr const char* kQuiet = R"({"Prefs":{"autoVCheck":false}})";

/// `user` is what the user does to the next dialog; alerts are printed and answered with Return.
constexpr const char* kUser =
    "var user = function (d) { print('unexpected: ' + d.title); d.close(); };\n"
    "app.onDialog(function (d) {\n"
    "  if (d.kind === 'dialog') return user(d);\n"
    "  print(d.text); d.press('Return'); });\n"
    "function show(d) { print(d.title, d.focused);\n"
    "  d.widgets.forEach(function (w) { print(w.kind, w.text, w.frame.slice(0, 3), w.style, w.enabled, w.tooltip); "
    "});\n"
    "  d.close(); }\n"
    "function prefs(does) { user = does; app.chooseMenu('Ortholine...', 'Velloran Plugins'); }\n"
    "function about(does) { user = does; app.chooseMenu('Ortholine...', 'About Velloran Plugins'); }\n"
    "function check(does) { user = function (a) { user = does; a.click('Check for updates'); };\n"
    "  app.chooseMenu('Ortholine...', 'About Velloran Plugins');\n"
    "  for (var i = 0; i < 100 && user === does; i += 1) app.runFor(0.02); }\n";

std::string inDays(long days) { return (Date::Current() + Duration::Days(days)).format("Y-m-d"); }

class ProductDialogs : public testing::Test {
  protected:
    static void SetUpTestSuite() { server = new desk::WebServer; }
    static void TearDownTestSuite() { delete server; }
    void SetUp() override {
        ASSERT_TRUE(server->running());
        web = std::getenv("VELLORAN_WEB");
        setenv("VELLORAN_WEB", server->url("").c_str(), 1);
    }
    void TearDown() override { setenv("VELLORAN_WEB", web.c_str(), 1); }

    /// A session of the product with that file, and a script in it; returns what was printed, at start and end too.
    std::string played(const std::string& prefs, const std::string& script) {
        easel::session::Session session;
        std::ostringstream out;
        session.plugins.attach("Ortholine", PluginMain);
        session.profile.use(folder.path());
        session.identity = {.userName = userName, .userOrganization = ""};
        if (!prefs.empty()) folder.write(kFile, prefs);
        easel::script::showWithoutAsking(session, out);
        EXPECT_TRUE(session.start().empty());
        const std::string error = desk::errorOf<easel::script::ScriptError>(
            [&] { easel::script::runSource(session, kUser + script, "s", out); });
        session.quit();
        EXPECT_EQ(error, "");
        return out.str();
    }
    /// The value of a key in the file.
    [[nodiscard]] std::string kept(const std::string& key) const {
        const std::string text = folder.content(kFile);
        const std::size_t at = text.find('"' + key + "\":");
        return at == std::string::npos
                   ? ""
                   : text.substr(at + key.size() + 3, text.find_first_of(",\n", at) - at - key.size() - 3);
    }

    static constexpr const char* kFile = "Velloran/Ortholine 16/Preferences";
    static desk::WebServer* server;
    desk::Folder folder;
    std::string web;
    std::string userName = "Ada";
};

desk::WebServer* ProductDialogs::server = nullptr;

TEST_F(ProductDialogs, LookAsDesigned) {
    server->setNewest("16.3");
    EXPECT_EQ(played(kQuiet, "prefs(show);\n app.editTool('Isometric Line Tool');\n app.userOrganization = 'Umbra';\n"
                             "about(show); check(show);"),
              std::string("Ortholine Preferences X (left) axis angle:\n"
                          "label X (left) axis angle: 16,18,120 plain true \n"
                          "field -30 136,16,80 plain true \n"
                          "label Z (right) axis angle: 16,42,120 plain true \n"
                          "field 30 136,40,80 plain true \n"
                          "checkbox Use Plotwise settings 16,66,208 plain true "
                          "If you use Plotwise, check this to import Plotaxonometric settings.\n"
                          "checkbox Automatically concatenate lines 16,90,208 plain true "
                          "To override this setting, press Command before releasing the mouse.\n"
                          "button OK 148,120,80 default true \n"
                          "button Cancel 56,120,80 cancel true \n")
                  .append("Ortholine Preferences X (left) axis angle:\n"
                          "label X (left) axis angle: 16,18,120 plain true \n"
                          "field -30 136,16,80 plain true \n"
                          "label Z (right) axis angle: 16,42,120 plain true \n"
                          "field 30 136,40,80 plain true \n"
                          "checkbox Use Plotwise settings 16,66,208 plain true "
                          "If you use Plotwise, check this to import Plotaxonometric settings.\n"
                          "checkbox Automatically concatenate lines 16,90,208 plain true "
                          "To override this setting, press Command before releasing the mouse.\n"
                          "button OK 148,120,80 default true \n"
                          "button Cancel 56,120,80 cancel true \n"
                          "About Ortholine null\n"
                          "label Version 16.2.1 20,116,260 plain true \n"
                          "label \xc2\xa9 Velloran. All rights reserved. 20,130,260 plain true \n"
                          "label Ada - Umbra 20,154,260 plain true \n"
                          "button Close 310,0,95 cancel true \n"
                          "button Check for updates 20,196,150 plain true \n"
                          "button Web site 185,196,95 plain true \n"
                          "button Acknowledgements 20,230,150 plain true \n"
                          "button OK 185,230,95 default true \n"
                          "Update Ortholine null\n"
                          "label An update to version 16.3 for Ortholine plugin is available. 20,20,270 plain true \n"
                          "checkbox Check for updates every 20,76,165 plain true \n"
                          "field 7 184,74,40 plain false \n"
                          "label days 228,76,36 plain true \n"
                          "button Not Now 20,108,135 cancel true \n"
                          "button Get Update 165,108,135 default true \n"));
}

TEST_F(ProductDialogs, ShowScriptsAllOfAWidget) {
    server->setNewest("16.3");
    EXPECT_EQ(played(kQuiet,
                     "check(function (d) { d.widgets.forEach(function (w) {\n"
                     "  print(w.bold, w.italic, w.alignment, w.selection, w.linked, w.tabPlace, w.images); });\n"
                     "  d.close(); });"),
              "true false left null null null null\nfalse false left null null null null\n"
              "false false right 1,1 null 1 null\nfalse false left null null null null\n"
              "false false left null null null null\nfalse false left null null null null\n");
}

TEST_F(ProductDialogs, TakeAxesAndSwitches) {
    constexpr const char* kX = "X (left) axis angle:";
    constexpr const char* kZ = "Z (right) axis angle:";
    const auto typed = [](const std::string& label, const std::string& text) {
        return "d.type('" + label + "', '" + text + "'); ";
    };
    const auto commit = [](const std::string& label) { return "d.commit('" + label + "'); "; };
    const std::string fields = "print(d.field('X (left) axis angle:'), d.field('Z (right) axis angle:')); ";
    const std::string ok = "d.click('OK');";
    constexpr const char* kZMessage = "Z axis must be in the range 0 to 90\n";
    constexpr const char* kXMessage = "X axis must be in the range 0 to -90.\n";
    const struct {
        std::string does, printed, x, z;
    } rows[] = {
        {typed(kX, "-45") + typed(kZ, "20") + "d.press('Return');", "", "135", "20"},
        {typed(kX, "-45") + "d.press('Escape');", "", "150", "30"},
        {typed(kX, "") + commit(kX) + typed(kZ, "") + commit(kZ) + fields + ok, "-30 30\n", "150", "30"},
        {typed(kZ, "95") + commit(kZ) + "print(d.focused); " + typed(kZ, "5") + ok, std::string(kZMessage) + kZ + "\n",
         "150", "5"},
        {typed(kZ, "95") + ok, kZMessage, "150", "95"}, // warned of, and taken
        {typed(kX, "30") + "d.press('Return'); ", kXMessage, "210", "30"},
        // Sent back to X, the user gets to Z at the second try.
        {typed(kX, "30") + typed(kZ, "-1") + typed(kZ, "-1") + ok, std::string(kXMessage) + kZMessage, "210", "-1"},
        {typed(kX, "left") + typed(kZ, "right") + ok, "", "180", "0"},       // nothing can be read
        {typed(kX, "left") + typed(kZ, "inf") + ok, kZMessage, "180", "30"}, // and along this nothing be drawn
        {typed(kX, "1e999") + ok, kXMessage, "150", "30"},
        {typed(kZ, "nan") + ok, kZMessage, "150", "30"},
        {typed(kX, "-12.5 degrees") + ok, "", "167.5", "30"},
        {"d.clickLabel('" + std::string(kZ) + "'); print(d.focused); d.press('Tab'); print(d.focused); d.close();",
         std::string(kZ) + "\n" + kX + "\n", "150", "30"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(played(kQuiet, "prefs(function (d) { " + row.does + " });"), row.printed) << row.does;
        EXPECT_EQ(kept("xAxis") + " " + kept("zAxis"), row.x + " " + row.z) << row.does;
    }
    // The host hears of them at the start, and when they change.
    const std::string axes = "print(app.axes.map(Math.round)); ";
    const std::string other = "prefs(function (d) { " + typed(kX, "-45") + typed(kZ, "20") + "d.press('Return'); }); ";
    EXPECT_EQ(played(kQuiet, axes + other + axes), "30,150,90\n20,135,90\n");
    // The switches count at once, whatever becomes of the dialog; a double-click shows it too, and never stale.
    EXPECT_EQ(played(kQuiet,
                     "prefs(function (d) { d.check('Automatically concatenate lines');\n"
                     "  d.check('Use Plotwise settings'); d.check('Use Plotwise settings'); d.press('Escape'); });\n"
                     "user = function (d) { print(d.widgets[5].checked, d.widgets[4].checked); d.close(); };\n"
                     "app.editTool('Isometric Mover Tool');"),
              "true false\n");
    EXPECT_EQ(kept("autoConcat") + kept("usePlotwiseSettings"), "truefalse");
}

TEST_F(ProductDialogs, SayWhatComesOfAnUpdateCheck) {
    const std::string failed =
        "Software update check for Ortholine plugin failed. Please check www.velloran.example web "
        "site for a product update, then contact support@velloran.example if this problem "
        "persists.\n";
    const std::string current = "Your Ortholine plugin is up to date.\n";
    const auto newer = [](const std::string& version) {
        return "An update to version " + version + " for Ortholine plugin is available.\n";
    };
    const struct {
        std::string reply, manual, automatic;
    } rows[] = {
        {"16.3", newer("16.3"), newer("16.3")},
        {"16.21", current, ""},
        {"16.210001", newer("16.210001"), newer("16.210001")},
        {"nonsense", current, ""},
        {"nan", current, ""},
        {"1e400", newer("1e400"), newer("1e400")},
        {"", failed, ""},
        {"9", failed, ""},
        {"17\x01\xff\n", newer("17 \xef\xbf\xbd\n"), newer("17 \xef\xbf\xbd\n")},
    };
    const std::string say = "function (d) { print(d.widgets[0].text); d.close(); }";
    const std::string due = R"({"Prefs":{"vCheckDue":"2020-01-01"}})";
    for (const auto& row : rows) {
        server->setNewest(row.reply);
        EXPECT_EQ(played(kQuiet, "check(" + say + "); app.runFor(0.5);"), row.manual) << row.reply;
        EXPECT_EQ(played(due, "user = " + say + "; app.runFor(1);"), row.automatic) << row.reply;
        EXPECT_EQ(kept("vCheckDue") == "\"2020-01-01\"", row.automatic.empty()) << "shown, and so not due for a while";
    }
    // Asked for while one runs by itself: it becomes the user's.
    server->setNewest("1.0");
    EXPECT_EQ(played(due, "check(" + say + ");"), current);
    // The user hears of no failure but that he is offline.
    EXPECT_EQ(played(due, "app.quit();"), "") << "under way at the end";
    setenv("VELLORAN_WEB", "http://127.0.0.1:1", 1);
    EXPECT_EQ(played(kQuiet, "check(" + say + ");"), "");
    setenv("VELLORAN_WEB", "", 1);
    EXPECT_EQ(played(due, "app.runFor(1);"), "");
    EXPECT_EQ(
        played(kQuiet, "check(" + say + ");"),
        "Unable to establish internet connection to check for Ortholine plugin update: The Internet appears to be "
        "offline.\n");
}

TEST_F(ProductDialogs, KeepTheScheduleOfUpdateChecks) {
    server->setNewest("16.3");
    const std::string advice = "Update checks to this version of Ortholine are recommended at least every 7 days.\n";
    const auto days = [](const std::string& text) { return "d.type('days', '" + text + "'); "; };
    const std::string get = "d.click('Get Update');";
    const std::string notNow = "d.click('Not Now');";
    const struct {
        std::string does, printed, interval;
        bool automatic = true;
        bool opened = false;
    } rows[] = {
        {get, "", "7", true, true},
        {notNow, "", "7"},
        {"d.press('Escape');", "", "7"},
        {days("30") + get, advice, "30", true, true},
        {days("30") + notNow, advice, "30"},
        {days("0") + notNow, "", "1"},
        {days("365") + get, advice, "90", true, true},
        {days("99999999999999999999") + notNow, advice, "90"},
        {days("") + notNow, "", "7"},
        {days("3x4") + "print(d.field('days')); " + notNow, "34\n" + advice, "34"},
        {days("12") +
             "d.press('Home'); d.press('Delete'); print(d.field('days')); d.press('End'); d.press('Delete'); " + notNow,
         "12\n", "1"},
        {days("5") + "d.commit('days'); print(d.focused); " + notNow, "null\n", "5"},
        {"d.check('Check for updates every'); print(d.widgets[2].enabled, d.focused); " + notNow,
         "Are you sure you want to disable this? " + advice + "false null\n", "7", false},
        {"d.check('Check for updates every'); d.check('Check for updates every'); print(d.focused); " + notNow,
         "Are you sure you want to disable this? " + advice + "Check for updates every\n", "7"},
    };
    for (const auto& row : rows) {
        const std::string opened = "print(app.openedURLs);";
        const std::string address = server->url("/software/plugins/mac/Ortholine16-21Mac.zip");
        EXPECT_EQ(played(R"({"Prefs":{"vCheckDue":"2999-01-01"}})",
                         "app.hostVersion = 21; check(function (d) { " + row.does + " }); " + opened),
                  row.printed + (row.opened ? address : "") + "\n")
            << row.does;
        EXPECT_EQ(kept("vCheckFreq"), row.interval) << row.does;
        EXPECT_EQ(kept("autoVCheck"), row.automatic ? "true" : "false") << row.does;
        EXPECT_EQ(kept("vCheckDue"), '"' + inDays(std::stol(row.interval)) + '"') << row.does;
    }
}

TEST_F(ProductDialogs, AboutLeadsToTheMaker) {
    const std::string thanks = "This plugin is built on the kzo plug-in framework, with thanks to its authors.\n";
    EXPECT_EQ(played(kQuiet,
                     "about(function (d) { print(d.widgets[2].text); d.doubleClick('Acknowledgements');\n"
                     "  d.click('Web site'); d.press('Return'); }); about(function (d) { d.press('Escape'); });\n"
                     "print(app.openedURLs);"),
              "Ada\n" + thanks + thanks + server->url("/\n"));
    EXPECT_EQ(played(kQuiet,
                     "app.userOrganization = 'Umbra'; user = function (d) { print(d.widgets[2].text); d.close(); };\n"
                     "app.sendMessage('Ortholine', 'SP Interface', 'About');"),
              "Ada - Umbra\n")
        << "asked for by the host";
    // The host ends under each of the dialogs.
    server->setNewest("16.3");
    for (const char* opens : {"prefs", "about", "check"})
        EXPECT_EQ(played(kQuiet, std::string(opens) + "(function (d) { app.quit(); });"), "") << opens;
    // And in alerts that their buttons show: what a button is for is done all the same.
    const std::string ends = "app.onDialog(function (d) {\n"
                             "  if (d.kind === 'dialog') return user(d);\n"
                             "  app.quit(); d.press('Return'); });\n";
    const std::array<std::string, 4> rows[] = {
        {"prefs", "d.type('Z (right) axis angle:', '95'); d.click('OK');", "zAxis", "95"},
        {"check", "d.type('days', '30'); d.click('Get Update');", "vCheckFreq", "30"},
        {"check", "d.type('days', '30'); d.click('Not Now');", "vCheckFreq", "30"},
        {"check", "d.check('Check for updates every');", "autoVCheck", "false"},
        {"about", "d.click('Acknowledgements');", "autoVCheck", "true"},
    };
    for (const auto& [opens, does, key, value] : rows) {
        EXPECT_EQ(played(R"({"Prefs":{"vCheckDue":"2999-01-01"}})", ends + opens + "(function (d) { " + does + " });"),
                  "");
        EXPECT_EQ(kept(key), value) << does;
    }
    {
        easel::session::Session first; // in the welcome
        desk::Folder fresh;
        first.plugins.attach("Ortholine", PluginMain);
        first.profile.use(fresh.path());
        first.alerts.handler = [&](const auto&) {
            first.quit();
            return std::size_t{0};
        };
        first.start();
        EXPECT_TRUE(std::filesystem::exists(fresh.path(kFile)));
    }
    // A user's name of any bytes and length is cut and cleaned.
    userName.clear();
    for (int i = 0; i < 10000; ++i) userName += "\x07x\xff";
    const std::string shown = played(kQuiet, "about(function (d) { print(d.widgets[2].text); d.close(); });");
    EXPECT_EQ(shown.substr(0, 10), " x\xef\xbf\xbd x\xef\xbf\xbd");
    EXPECT_LT(shown.size(), userName.size() / 2);
}

TEST_F(ProductDialogs, GroupsAreSharedAmongTheMakersPlugins) {
    easel::session::Session session;
    std::ostringstream out;
    auto& other = session.plugins.attach("Another", [](const char*, const char*, void*) -> SPErr { return 0; });
    session.menus.addGroup(other, "KZO Velloran Plugins", "Velloran Plugins", "Preferences", 0);
    session.plugins.attach("Ortholine", PluginMain);
    session.profile.use(folder.path());
    easel::script::showWithoutAsking(session, out);
    session.start();
    int shared = 0;
    for (const auto* group : session.menus.groups()) shared += group->text == "Velloran Plugins" ? 1 : 0;
    EXPECT_EQ(shared, 1);
    EXPECT_NE(session.menus.findItem("Ortholine...", "Velloran Plugins"), nullptr);
}

TEST_F(ProductDialogs, AskOnceBeforeLoadingIntoAnotherHost) {
    const std::string question =
        "This Ortholine plugin was built for Illustrator CC 2015 and is not recommended for this version. You can "
        "download the correct version at\n\n" +
        server->url("/downloads/plugins") + "\n\nWould you like to load this plugin anyway?";
    const auto started = [&](std::int32_t version, std::size_t answer, bool declines) {
        std::vector<std::string> said;
        easel::session::Session session;
        session.plugins.attach("Ortholine", PluginMain);
        session.profile.use(folder.path());
        session.identity.majorVersion = version;
        session.alerts.handler = [&](const easel::session::Alert& alert) {
            if (alert.buttons.size() > 1)
                said.push_back(alert.text + " [" + alert.buttons[0] + "|" + alert.buttons[1] + "]");
            return answer;
        };
        EXPECT_EQ(session.start().size(), declines ? 1U : 0U) << version;
        EXPECT_EQ(session.toolbox.findByTitle("Isometric Line Tool") == nullptr, declines);
        return said;
    };
    const std::vector<std::string> asked{question + " [Yes, load it|No, don't load it]"};
    const std::vector<std::string> none;
    EXPECT_EQ(started(19, 1, false), none);
    EXPECT_FALSE(std::filesystem::exists(folder.path(HostPreferences::kFile)));
    kzo::core::alerts::setState(false);
    EXPECT_EQ(started(20, 0, true), none);
    kzo::core::alerts::setState(true);
    {
        easel::session::Session session;
        session.plugins.attach("Ortholine", PluginMain);
        session.profile.use(folder.path());
        session.identity.majorVersion = 20;
        const desk::Refusing mute(easel::suites::Tables::of(*session.suites), &StageSuite::ShowAlert);
        EXPECT_EQ(session.start().size(), 1U);
    }
    {
        std::ostringstream out;
        easel::session::Session session;
        session.plugins.attach("Ortholine", PluginMain);
        session.profile.use(folder.path());
        session.identity.majorVersion = 20;
        easel::script::showWithoutAsking(session, out);
        EXPECT_TRUE(session.start().empty()) << "loaded for this once";
        EXPECT_NE(out.str().find("[Yes, load it]"), std::string::npos);
    }
    EXPECT_FALSE(std::filesystem::exists(folder.path(HostPreferences::kFile))) << "nobody was asked";
    EXPECT_EQ(started(20, 0, false), asked);
    EXPECT_EQ(started(20, 1, false), none) << "the answer is kept";
    std::filesystem::remove(folder.path(HostPreferences::kFile));
    EXPECT_EQ(started(18, 1, true), asked);
    EXPECT_EQ(started(21, 0, true), none) << "and holds for every other version";
    EXPECT_EQ(started(19, 0, false), none);
}

} // namespace
