// The axes that the companion CAD plug-in tells, with a stand-in for it in a bundle of its own.
#include <gmock/gmock.h>

#include <limits>

#include "core/app/Illustrator.h"
#include "core/app/Plugin.h"
#include "maker/Globals.h"
#include "places/Places.h"
#include "plugins/Plotwise.h"
#include "support/Desk.h"

namespace {

using plotwise::Told;

class Companion : public testing::Test {
  protected:
    easel::session::Plugin& load(const std::string& bundle, Told& tells) {
        auto& plugin = desk.session().plugins.load(std::string(TEST_BUILD_DIR) + "/" + bundle + ".aip");
        desk.session().start();
        plotwise::TellMessage message{{}, &tells};
        desk.session().messenger.send(plugin, plotwise::caller, plotwise::selector, message.d);
        vlGlobals::instance()->usePlotwiseSettings = true;
        return plugin;
    }
    /// What the tools draw along once one of them has been taken: the axes to the right and to the left, in degrees.
    testing::AssertionResult drawsAlong(double right, double left) {
        vlGlobals& globals = *vlGlobals::instance();
        globals.zAxisAngle = globals.xAxisAngle = globals.verticalAxisAngle = kzo::core::Angle();
        desk.selectTool("Isometric Mover Tool");
        const double z = globals.zAxisAngle.asDegrees(), x = globals.xAxisAngle.asDegrees();
        const bool as = std::abs(z - right) < 1e-9 && std::abs(x - left) < 1e-9 &&
                        std::abs(globals.verticalAxisAngle.asDegrees() - 90) < 1e-9;
        return (as ? testing::AssertionSuccess() : testing::AssertionFailure()) << z << " and " << x;
    }

    desk::Desk desk;
    Told told;
};

TEST_F(Companion, TellsTheAxesWhenItAnswersAllThreeMessages) {
    load("Plotwise", told);
    EXPECT_TRUE(drawsAlong(15, 140));
    using testing::DoubleNear;
    EXPECT_THAT(desk.session().toolbox.axes(), // as the host knows them
                testing::ElementsAre(DoubleNear(15, 1e-9), DoubleNear(140, 1e-9), DoubleNear(90, 1e-9)));
    EXPECT_THAT(told.heard,
                testing::ElementsAre("PUB_MSG_GET_VERSION", "PUB_MSG_GET_CURR_SCALE", "PUB_MSG_GET_CURR_AXO_VIEW"));
    const auto documentLayer = told.layer;
    desk.inMessage([&] {
        EXPECT_EQ(told.sender, kzo::core::Plugin::instance()->spPluginRef());
        EXPECT_EQ(documentLayer,
                  kzo::core::Illustrator::instance()->currentDocument()->currentLayer()->aiLayerHandle());
    });
    const vlCompanionData& kept = vlGlobals::instance()->companion;
    EXPECT_TRUE(kept.found);
    EXPECT_EQ(kept.scaleName + kept.viewName, "1 : 50Workshop");
    EXPECT_EQ(kept.scale, 50);
    EXPECT_THAT(kept.viewValues, testing::ElementsAre(1.5, 2.5, 0));
    EXPECT_EQ(kept.viewFlag, 7);
    EXPECT_EQ(desk.session().memory.blocksInUse(), 0u);
}

TEST_F(Companion, LeavesTheStandardAxesWhereItFails) {
    auto& plugin = load("Plotwise", told);
    auto& allocate = desk.tables().basicSuite.AllocateBlock;
    const auto allocates = allocate;
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    const struct {
        const char* what;
        std::size_t heard; // messages; later ones are not sent
        std::function<void()> fail;
    } rows[] = {
        {"a version too old", 1, [&] { told.version[2] = 1; }},
        {"an older one with a high patch", 1,
         [&] {
             told.version[0] = 10;
             told.version[2] = 9999;
         }},
        {"no version", 1, [&] { told.notOkAt = 1; }},
        {"no scale", 2, [&] { told.notOkAt = 2; }},
        {"no view", 3, [&] { told.notOkAt = 3; }},
        {"an error at the version", 1, [&] { told.errorAt = 1; }},
        {"an error at the scale", 2, [&] { told.errorAt = 2; }},
        {"an error at the view", 3, [&] { told.errorAt = 3; }},
        {"no name of the scale", 2, [&] { told.scaleName.clear(); }},
        {"no name of the view", 3, [&] { told.viewName.clear(); }},
        {"a name of the scale without an end", 2, [&] { told.endsScaleName = false; }},
        {"a name of the view without an end", 3, [&] { told.endsViewName = false; }},
        {"an angle that is no number", 3, [&] { told.angles[0] = kNaN; }},
        {"an endless angle", 3, [&] { told.angles[1] = std::numeric_limits<double>::infinity(); }},
        {"an angle below the horizontal", 3, [&] { told.angles[0] = -1; }},
        {"an angle beyond the vertical", 3, [&] { told.angles[1] = 90.5; }},
        {"its end before the first", 0, [&] { plugin.broken = true; }},
        {"no memory for the record", 0,
         [&] { allocate = [](std::size_t, void**) -> SPErr { return kOutOfMemoryErr; }; }},
        {"its end between two messages", 1, [&] { told.before = [&](int) { plugin.started = false; }; }},
    };
    EXPECT_TRUE(drawsAlong(15, 140));
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        told = Told();
        plugin.started = true;
        plugin.broken = false;
        allocate = allocates;
        row.fail();
        EXPECT_TRUE(drawsAlong(30, 150));
        EXPECT_EQ(told.heard.size(), row.heard);
        EXPECT_FALSE(vlGlobals::instance()->companion.found);
        EXPECT_EQ(vlGlobals::instance()->companion.viewName, "Workshop"); // what was kept stays
        EXPECT_EQ(desk.session().memory.blocksInUse(), 0u);
    }
    plugin.started = true;
}

TEST_F(Companion, IsFoundUnderItsOlderNameToo) {
    vlGlobals::instance()->usePlotwiseSettings = true;
    EXPECT_TRUE(drawsAlong(30, 150)); // nobody is there
    Told older;
    older.angles[0] = 20;
    load("KZOPlotwise", older);
    EXPECT_TRUE(drawsAlong(20, 140));
    load("Plotwise", told);
    EXPECT_TRUE(drawsAlong(15, 140)); // both are
    told.angles[0] = 0;
    told.angles[1] = 90;
    EXPECT_TRUE(drawsAlong(0, 90)); // as far as they go
}

TEST_F(Companion, IsNotAskedWithoutADocumentOrWhenTheSettingIsOff) {
    load("Plotwise", told);
    vlGlobals::instance()->companion.found = true;
    desk.session().close();
    EXPECT_TRUE(drawsAlong(30, 150));
    EXPECT_FALSE(vlGlobals::instance()->companion.found); // what it told was of another document
    desk.session().newDocument(10, 10);
    vlGlobals::instance()->usePlotwiseSettings = false;
    desk.selectTool();
    EXPECT_EQ(vlGlobals::instance()->zAxisAngle, kzo::core::Angle(30, kzo::core::Angle::Units::Degrees));
    EXPECT_THAT(told.heard, testing::IsEmpty());
}

} // namespace
