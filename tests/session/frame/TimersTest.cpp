// Timers under a clock that is told how much time passes.
#include <gmock/gmock.h>

#include "session/app/Session.h"
#include "session/base/HostError.h"

namespace {

using namespace easel::session;

/// What the plug-in of these tests got: the timers' names, in order.
std::vector<std::string> fired;
std::function<void(Timer&)> whenFired;

SPErr entry(const char* caller, const char*, void* message) {
    if (std::string(caller) != kCallerAITimer) return kNoErr;
    Timer* const timer = Session::current().timers.find(static_cast<AITimerMessage*>(message)->timer);
    if (!timer) return kBadParameterErr;
    fired.push_back(timer->name);
    if (whenFired) whenFired(*timer);
    return kNoErr;
}

class TimersTest : public testing::Test {
  protected:
    TimersTest() {
        fired.clear();
        whenFired = nullptr;
        session.start();
    }

    std::vector<std::string> firedIn(double seconds) {
        fired.clear();
        session.timers.runFor(seconds);
        return fired;
    }

    Session session;
    Plugin& plugin = session.plugins.attach("Test", entry);
};

TEST_F(TimersTest, FireInTheOrderInWhichTheyFallDue) {
    session.timers.add(plugin, "three", 3);
    session.timers.add(plugin, "two", 2);
    // Ticks 2, 3, 4 and 6; at 6 "three" was added first.
    EXPECT_THAT(firedIn(0.1), testing::ElementsAre("two", "three", "two", "three", "two"));
    EXPECT_EQ(session.timers.now(), 6);
    EXPECT_THAT(firedIn(1.0 / 60), testing::IsEmpty());
    EXPECT_THAT(firedIn(1.0 / 60), testing::ElementsAre("two"));
    EXPECT_EQ(firedIn(3600).size(), 60u * 3600 / 2 + 60u * 3600 / 3);
}

TEST_F(TimersTest, TreatAPeriodOfNothingAsOneTickAndRefuseANegativeOne) {
    Timer& timer = session.timers.add(plugin, "idle", 0);
    EXPECT_EQ(firedIn(1).size(), 60u);
    EXPECT_EQ(timer.period, 0);
    session.timers.setPeriod(timer, 60);
    EXPECT_EQ(firedIn(59.0 / 60).size(), 0u);
    EXPECT_THROW(session.timers.setPeriod(timer, -1), HostError);
    EXPECT_THROW(session.timers.add(plugin, "no", -1), HostError);
    EXPECT_EQ(firedIn(1.0 / 60).size(), 1u);
    EXPECT_EQ(session.timers.all().size(), 1u);
}

TEST_F(TimersTest, WaitAWholePeriodWhenMadeActiveAgain) {
    Timer& timer = session.timers.add(plugin, "on and off", 30);
    session.timers.setActive(timer, false);
    EXPECT_EQ(firedIn(10).size(), 0u);
    session.timers.setActive(timer, true);
    EXPECT_EQ(firedIn(29.0 / 60).size(), 0u);
    session.timers.setActive(timer, true); // no news
    EXPECT_EQ(firedIn(1.0 / 60).size(), 1u);
}

TEST_F(TimersTest, FireOnceAfterAGestureWhatFellDueDuringIt) {
    Tool tool;
    tool.owner = &plugin;
    session.input.selectTool(session.toolbox.add(std::move(tool)));
    session.newDocument(100, 100);
    session.timers.add(plugin, "late", 6);
    session.pointer.press({10, 10}, 0);
    EXPECT_THAT(firedIn(10), testing::IsEmpty());
    session.pointer.release({10, 10}, 0);
    EXPECT_THAT(firedIn(1.0 / 60), testing::ElementsAre("late"));
    EXPECT_THAT(firedIn(6.0 / 60), testing::ElementsAre("late"));
}

TEST_F(TimersTest, MayBeRemovedAndAddedWhileOneFires) {
    session.timers.add(plugin, "once", 6);
    session.timers.add(plugin, "victim", 7);
    whenFired = [&](Timer& timer) {
        if (timer.name != "once") return;
        for (Timer* const known : session.timers.all()) session.timers.remove(*known);
        session.timers.add(plugin, "new", 6);
    };
    EXPECT_THAT(firedIn(0.2), testing::ElementsAre("once", "new")); // at ticks 6 and 12
    session.quit();
    EXPECT_TRUE(session.timers.all().empty());
    EXPECT_THAT(firedIn(1), testing::IsEmpty());
}

} // namespace
