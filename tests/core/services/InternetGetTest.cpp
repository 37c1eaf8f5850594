// Requests: what comes of every kind of reply, and of objects that go while a request is under way.
#include "core/services/InternetGET.h"

#include <chrono>
#include <vector>

#include <gtest/gtest.h>

#include "plugin/platform/Background.h"
#include "plugin/services/InternetGET.h"
#include "support/Desk.h"
#include "support/Receiver.h"
#include "support/WebServer.h"

namespace {

using kzo::core::CallbackSlot;
using kzo::core::InternetError;
using kzo::core::InternetGET;
using namespace std::chrono_literals;

class InternetGetTest : public testing::Test {
  protected:
    static void SetUpTestSuite() { server = new desk::WebServer; }
    static void TearDownTestSuite() { delete server; }
    void SetUp() override {
        ASSERT_TRUE(server->running());
        for (const char* name : {"http_proxy", "https_proxy", "all_proxy"}) unsetenv(name);
    }

    std::unique_ptr<InternetGET> started(const std::string& url) {
        std::unique_ptr<InternetGET> request;
        desk.inMessage([&] { request = InternetGET::Async(url, success.callback(), failure.callback()); });
        return request;
    }
    /// Lets time pass until so many callbacks have run.
    void wait(int callbacks = 1) {
        for (int i = 0; i < 300 && success.runs + failure.runs < callbacks; ++i) desk.session().timers.runFor(0.1);
        EXPECT_EQ(success.runs + failure.runs, callbacks);
    }
    [[nodiscard]] std::size_t timers() { return desk.session().timers.all().size(); }

    static desk::WebServer* server;
    desk::Desk desk;
    std::size_t timersBefore = timers();
    desk::Receiver success;
    desk::Receiver failure;
};

desk::WebServer* InternetGetTest::server = nullptr;

TEST_F(InternetGetTest, LoadsInTheBackground) {
    const auto request = started(server->url("/version?p=ORTL"));
    EXPECT_TRUE(request->running() && request->asynchronous());
    EXPECT_EQ(timers(), timersBefore + 1);
    EXPECT_EQ(success.runs + failure.runs, 0);
    wait();
    EXPECT_EQ(success.runs, 1);
    EXPECT_EQ(request->content(), "16.3");
    EXPECT_FALSE(request->running());
    EXPECT_EQ(request->error() + "|" + std::to_string(request->platformErrorCode()), "|0");
    EXPECT_EQ(timers(), timersBefore) << "nothing is left to wait for";
    desk.session().timers.runFor(1);
    EXPECT_EQ(success.runs, 1);
}

TEST_F(InternetGetTest, TellsRepliesApart) {
    const struct {
        std::string url;
        InternetError error;
        std::string content;
        int platformCode = 0;
    } rows[] = {
        {server->url("/query?p=ORTL"), InternetError::None, "p=ORTL"},
        {server->url("/empty"), InternetError::None, ""},
        {server->url("/bytes"), InternetError::None, std::string("\xff\0\xfe", 3)},
        {server->url("/just"), InternetError::None, std::string(1 << 20, 'x')},
        {server->url("/over"), InternetError::TooLarge, ""},
        {server->url("/hops/4"), InternetError::None, "16.3"},
        {server->url("/hops/5"), InternetError::Redirects, ""},
        {server->url("/circle"), InternetError::Redirects, ""},
        {server->url("/to-file"), InternetError::BadURL, ""},
        {server->url("/status/404"), InternetError::Status, "", 404},
        {server->url("/status/204"), InternetError::Status, "", 204},
        {server->url("/status/500"), InternetError::Status, "", 500},
        {server->rudeUrl("/cut"), InternetError::Unreachable, ""},
        {server->rudeUrl("/cut-chunk"), InternetError::Unreachable, ""},
        {server->rudeUrl("/trailer"), InternetError::None, "16.3"},
        {server->rudeUrl("/less-head"), InternetError::Unreachable, ""},
        {server->rudeUrl("/nothing"), InternetError::Unreachable, ""},
        {server->rudeUrl("/more-than-said"), InternetError::None, "16.3"},
        {server->rudeUrl("/endless"), InternetError::TooLarge, ""},
        {server->rudeUrl("/endless-head"), InternetError::Unreachable, ""},
        {server->rudeUrl("/garbage"), InternetError::Other, ""},
        {server->rudeUrl("/says-huge"), InternetError::TooLarge, ""},
        {"http://127.0.0.1:1/", InternetError::Unreachable, ""},
        {"http://nowhere.invalid/", InternetError::Offline, ""},
        {"file:///etc/hostname", InternetError::BadURL, ""},
        {"ftp://127.0.0.1/", InternetError::BadURL, ""},
        {"", InternetError::BadURL, ""},
        {"http://[", InternetError::BadURL, ""},
    };
    int count = 0;
    for (const auto& row : rows) {
        const auto request = started(row.url);
        wait(++count);
        EXPECT_EQ(request->errorCode(), row.error)
            << row.url << ' ' << request->error() << request->platformErrorCode();
        EXPECT_EQ(request->content(), row.content) << row.url;
        EXPECT_EQ(request->error().empty(), row.error == InternetError::None) << row.url;
        EXPECT_EQ(request->error() == "The Internet appears to be offline.", row.error == InternetError::Offline)
            << row.url;
        EXPECT_TRUE(row.platformCode == 0 || request->platformErrorCode() == row.platformCode) << row.url;
    }
}

TEST_F(InternetGetTest, EndsWhatNeverEnds) {
    using Request = kzo::plugin::InternetGET;
    for (const char* path : {"/hang", "/trickle"}) {
        Request request(server->rudeUrl(path), CallbackSlot(success.callback()), CallbackSlot(failure.callback()),
                        {.time = 300ms});
        const auto before = std::chrono::steady_clock::now();
        const int runs = failure.runs;
        request.run();
        EXPECT_EQ(failure.runs, runs + 1);
        EXPECT_FALSE(request.asynchronous());
        EXPECT_EQ(request.errorCode(), InternetError::TimedOut);
        EXPECT_LT(std::chrono::steady_clock::now() - before, 5s);
    }
    EXPECT_EQ(Request::Limits().time, 30s);
}

TEST_F(InternetGetTest, RunsWaitsAndCanBeRunAgain) {
    InternetGET request(server->url("/version"), success.callback(), failure.callback());
    EXPECT_FALSE(request.running());
    for (int runs = 1; runs <= 2; ++runs) {
        request.run();
        EXPECT_EQ(success.runs, runs);
        EXPECT_EQ(request.content(), "16.3");
    }
    EXPECT_EQ(timers(), timersBefore) << "waiting needs no timer";
}

TEST_F(InternetGetTest, SurvivesObjectsThatGo) {
    // Given up: no callback.
    auto given = started(server->url("/version"));
    desk.inMessage([&] { given.reset(); });
    EXPECT_EQ(timers(), timersBefore);
    desk.session().timers.runFor(0.5);
    EXPECT_EQ(success.runs + failure.runs, 0);
    // Freed in its own callback, and with it another one that runs, while a third is started.
    std::vector<std::unique_ptr<InternetGET>> requests;
    std::unique_ptr<InternetGET> third;
    desk::Receiver last;
    success.work = [&] {
        requests.clear();
        third = InternetGET::Async(server->url("/version"), last.callback(), failure.callback());
    };
    requests.push_back(started(server->url("/version")));
    requests.push_back(started(server->rudeUrl("/hang")));
    wait();
    for (int i = 0; i < 100 && last.runs == 0; ++i) desk.session().timers.runFor(0.1);
    EXPECT_EQ(last.runs, 1);
    EXPECT_EQ(third->content(), "16.3");
    EXPECT_EQ(timers(), timersBefore);
    // Under way when the host ends.
    const auto left = started(server->rudeUrl("/hang"));
    desk.quit();
    EXPECT_EQ(success.runs + failure.runs, 1);
}

TEST_F(InternetGetTest, IsWaitedForNoLongerThanItLastsOrAnyoneWaits) {
    desk.inMessage([&] {
        auto waiting = std::make_unique<InternetGET>(server->rudeUrl("/hang"), success.callback(), failure.callback());
        const auto meanwhile = [&](const std::function<void()>& work) {
            success.work = work;
            return InternetGET::Async(server->url("/version"), success.callback(), failure.callback());
        };
        auto other = meanwhile([] { throw std::runtime_error("odd"); });
        EXPECT_THROW(waiting->run(), std::runtime_error);
        EXPECT_FALSE(waiting->running());
        other = meanwhile([&] { waiting.reset(); });
        waiting->run();
        EXPECT_EQ(waiting, nullptr);
    });
    EXPECT_EQ(success.runs, 2);
    EXPECT_EQ(failure.runs, 0);
}

TEST_F(InternetGetTest, FailsOnceItsStarterIsThroughWithoutATimer) {
    desk.expectReports();
    const desk::Refusing noTimer{desk.tables(), &AITimerSuite::AddTimer};
    std::unique_ptr<InternetGET> request, given;
    desk.inMessage([&] {
        request = started(server->url("/version")); // in a nested message
        given = started(server->url("/version"));
        EXPECT_TRUE(request->running());
        EXPECT_EQ(failure.runs, 0);
        given.reset();
    });
    EXPECT_EQ(failure.runs, 1);
    EXPECT_EQ(request->errorCode(), InternetError::Other);
    EXPECT_FALSE(request->running());
}

TEST_F(InternetGetTest, IsMovedByAModalLoop) {
    EXPECT_FALSE(kzo::plugin::background::move(1s)) << "nothing is under way";
    desk.inMessage([&] {
        const auto request = InternetGET::Async(server->url("/version"), success.callback(), failure.callback());
        for (int i = 0; i < 100 && kzo::plugin::background::move(100ms); ++i) continue;
        EXPECT_EQ(request->content(), "16.3");
    });
    EXPECT_EQ(success.runs, 1);
}

} // namespace
