// Two bundles under a hundred thousand messages of every kind, sent by the host and by each other, one inside of the
// other, while both make and destroy what the messages are about. What must hold throughout is checked after each.
#include <gmock/gmock.h>

#include <algorithm>
#include <cstdio>
#include <random>

#include "places/Places.h"
#include "plugins/Orders.h"
#include "session/app/Session.h"

namespace {

using namespace obeying;
using easel::session::Session;

struct Kind {
    int type; ///< 0 for a pair that has none
    const char* caller;
    const char* selector;
};

/// Those that lead to callbacks, and some that nobody knows. Which kinds there are is seen where the dispatcher is
/// tested.
const Kind kKinds[] = {
    {0, "SP Interface", kSPInterfaceAboutSelector},
    {0, "SP Interface", kSPInterfaceStartupSelector},
    {0, "SP Access", "Unload"},
    {540, "AI Timer", "AI Go"},
    {270, "AI Menu", "AI Go"},
    {280, "AI Menu", "AI Update"},
    {290, "AI Notifier", "AI Notify"},
    {20, "AI Annotation", "AI Draw"},
    {30, "AI Annotation", "AI Invalidate"},
    {550, "AI Tool", "AI Edit Options"},
    {560, "AI Tool", "AI Track Cursor"},
    {570, "AI Tool", "AI Mouse Down"},
    {580, "AI Tool", "AI Mouse Drag"},
    {590, "AI Tool", "AI Mouse Up"},
    {600, "AI Tool", "AI Select"},
    {620, "AI Tool", "AI Deselect"},
    {650, "AI Tool", "AI Alternate Selection Tool Query"},
    {0, "AI Tool", "AI Something"},
    {130, "AI Filter", "AI Go"},
    {170, "AI Live Effect", "AI Live Effect Edit Parameters"},
    {0, "Somebody", "Anything"},
    {0, kCallerStage, kSelectorStageKeyPressed},
    {0, caller, selector},
    {0, caller, selector},
    {0, caller, selector},
};

/// A message with a record that is as long as its family's, and not longer.
struct Mail {
    Kind kind;
    std::vector<std::uint64_t> room;
    [[nodiscard]] SPMessageData* record() { return reinterpret_cast<SPMessageData*>(room.data()); }
    template <class Record> Record& as() {
        room.resize(sizeof(Record) / sizeof(std::uint64_t));
        return *reinterpret_cast<Record*>(room.data());
    }
};

class Mixed {
  public:
    explicit Mixed(std::uint32_t seed) : random_(seed) {
        session_.plugins.load(std::string(TEST_BUILD_DIR) + "/Obeying.aip");
        session_.plugins.load(std::string(TEST_BUILD_DIR) + "/Heeding.aip");
        EXPECT_THAT(session_.start(), testing::IsEmpty());
        session_.newDocument(100, 100);
        for (const int to : {0, 1}) {
            slate_.names[to] = plugin(to).name.c_str();
            Mail introduction{.kind = {0, caller, selector}, .room = {}};
            introduction.as<OrderMessage>() = {
                .d = {}, .slate = &slate_, .plugin = to, .order = {.deed = Deed::DestroyItem}};
            EXPECT_EQ(send(to, introduction), 0);
        }
    }

    /// One message with all that follows from it.
    void step() {
        mails_.clear();
        if (below(100) == 0) turnLayer();
        const int to = below(2);
        for (const int number : {0, 1}) {
            slate_.laidDown[number].clear();
            for (int i = below(4); i > 0; --i) slate_.laidDown[number].push_back(order(number, 0));
        }
        const auto reports = session_.reports.lines().size();
        const int thrown = exceptions();
        Mail& mail = compose(to, 0);
        const int answer = send(to, mail);
        const bool remark = std::string(mail.kind.caller) == "AI Tool" && answer == (locked_   ? 1000
                                                                                     : hidden_ ? 1001
                                                                                               : 0);
        EXPECT_TRUE(answer == 0 || remark) << answer;
        EXPECT_TRUE(slate_.idle[0]() && slate_.idle[1]());
        EXPECT_FALSE(session_.document()->journal().running());
        EXPECT_EQ(session_.reports.lines().size() - reports, std::size_t(exceptions() - thrown)); // each is logged once
        for (std::size_t i = reports; i < session_.reports.lines().size(); ++i)
            EXPECT_THAT(session_.reports.lines()[i],
                        testing::MatchesRegex("plug-in: (Obeying|Heeding): exception .*: as ordered"));
        if (below(100) == 0) expectSameHandles();
        if (testing::Test::HasFailure()) ADD_FAILURE() << mail.kind.caller << "/" << mail.kind.selector;
    }

    /// Nothing is left, neither of the plug-in that the host shuts down nor of the one that a message of its own does.
    void end() {
        expectSameHandles();
        slate_.laidDown[0] = {};
        Mail shutdown{.kind = {0, kSPInterfaceCaller, kSPInterfaceShutdownSelector}, .room = {}};
        shutdown.as<SPMessageData>() = {};
        Mail last{.kind = {0, caller, selector}, .room = {}};
        last.as<OrderMessage>() = {.d = {},
                                   .slate = &slate_,
                                   .plugin = 0,
                                   .order = {.deed = Deed::Send,
                                             .place = 0,
                                             .type = 0,
                                             .caller = shutdown.kind.caller,
                                             .selector = shutdown.kind.selector,
                                             .record = shutdown.record()}};
        EXPECT_EQ(send(0, last), 0);
        EXPECT_THAT(slate_.handles[0](), testing::IsEmpty());
        expectSameHandles();
        const auto reports = session_.reports.lines().size();
        slate_.laidDown[1] = {};
        session_.quit();
        EXPECT_EQ(session_.reports.lines().size(), reports);
        EXPECT_TRUE(slate_.idle[0]() && slate_.idle[1]());
        EXPECT_THAT(slate_.handles[1](), testing::IsEmpty());
        for (int& done : slate_.done[0]) counts[0][&done - slate_.done[0]] += done;
        for (int& done : slate_.done[1]) counts[1][&done - slate_.done[1]] += done;
    }

    static inline int counts[2][deedCount] = {};

  private:
    easel::session::Plugin& plugin(int number) { return *session_.plugins.all()[std::size_t(number)]; }
    int send(int to, Mail& mail) {
        return session_.messenger.send(plugin(to), mail.kind.caller, mail.kind.selector, *mail.record());
    }
    [[nodiscard]] int exceptions() const { return slate_.done[0][int(Deed::Throw)] + slate_.done[1][int(Deed::Throw)]; }

    void turnLayer() {
        easel::model::Document& document = session_.documents.needFront();
        document.journal().begin();
        document.setLocked(document.currentLayer(), locked_ = below(3) == 0);
        document.setHidden(document.currentLayer(), hidden_ = below(3) == 0);
        document.journal().end();
    }

    // What a plug-in has

    template <class Visit> void eachObject(Visit visit) {
        const auto all = [&](const auto& objects) {
            for (const auto* object : objects) visit(object->owner, object->handle, object->name);
        };
        all(session_.timers.all());
        all(session_.notifiers.all());
        all(session_.toolbox.all());
        all(session_.annotations.all());
        for (const auto* item : session_.menus.items()) visit(item->owner, item->handle, item->text);
    }

    void expectSameHandles() {
        for (const int number : {0, 1}) {
            std::set<const void*> handles;
            eachObject([&](const auto* owner, const void* handle, const std::string& name) {
                // Whose handles the framework keeps to itself
                const bool internal = name.rfind("KZO", 0) == 0 || name.find(" Scheduled") != std::string::npos;
                if (owner == &plugin(number) && !internal) handles.insert(handle);
            });
            EXPECT_EQ(slate_.handles[number](), handles);
        }
    }

    // Writing messages

    int below(int limit) { return static_cast<int>(random_() % std::uint32_t(limit)); }

    /// Of something there is, whosever it is; now and then of nothing, or of what there was.
    template <class Objects> auto pick(const Objects& objects) -> decltype(objects.front()->handle) {
        using Handle = decltype(objects.front()->handle);
        if (objects.empty() || below(10) == 0) return below(2) ? nullptr : reinterpret_cast<Handle>(former_);
        const Handle handle = objects[std::size_t(below(int(objects.size())))]->handle;
        former_ = handle;
        return handle;
    }

    Mail& compose(int to, int depth) {
        Mail& mail = mails_.emplace_back(Mail{.kind = kKinds[below(std::size(kKinds))], .room = {}});
        const std::string from = mail.kind.caller;
        if (from == "AI Timer")
            mail.as<AITimerMessage>().timer = pick(session_.timers.all());
        else if (from == "AI Menu")
            mail.as<AIMenuMessage>().menuItem = pick(session_.menus.items());
        else if (from == "AI Annotation")
            mail.as<AIAnnotatorMessage>().annotator = pick(session_.annotations.all());
        else if (from == kCallerStage)
            mail.as<StageInputMessage>().code = below(places + 1);
        else if (from == "AI Tool" && mail.kind.type != 0)
            mail.as<AIToolMessage>().tool = pick(session_.toolbox.all());
        else if (from == caller)
            mail.as<OrderMessage>() = {.d = {}, .slate = &slate_, .plugin = to, .order = order(to, depth + 1)};
        else if (from == "AI Notifier") {
            static const char* const types[] = {"AI Document Saved Notifier", "", nullptr,
                                                kAIApplicationStartedNotifier, kAIApplicationShutdownNotifier};
            auto& message = mail.as<AINotifierMessage>();
            message.notifier = pick(session_.notifiers.all());
            message.type = types[below(std::size(types))];
        } else
            mail.as<SPMessageData>() = {};
        return mail;
    }

    Order order(int to, int depth) {
        constexpr int deepest = 4;
        Order made{.deed = Deed(below(depth < deepest ? deedCount : int(Deed::Dispatch))), .place = below(places)};
        const Kind& kind = kKinds[below(std::size(kKinds))];
        made.caller = kind.caller;
        made.selector = kind.selector;
        made.type = below(2) ? kind.type : 0;
        // Who obeys is to go on hearing of orders.
        if (std::string(kind.caller) == caller) made.caller = "Somebody";
        if (made.deed == Deed::Dispatch || made.deed == Deed::Send) {
            if (made.deed == Deed::Send) made.place = below(2);
            Mail& inner = compose(made.deed == Deed::Send ? made.place : to, depth);
            made.caller = made.deed == Deed::Send && below(10) == 0 ? "" : inner.kind.caller;
            made.selector = inner.kind.selector;
            made.type = made.deed == Deed::Dispatch && below(2) ? inner.kind.type : 0;
            made.record = inner.record();
        }
        return made;
    }

    std::mt19937 random_;
    Slate slate_{};
    Session session_;
    std::deque<Mail> mails_; ///< of this step
    void* former_ = nullptr;
    bool locked_ = false;
    bool hidden_ = false;
};

TEST(MixedMessages, LeaveBothSidesAgreed) {
    constexpr int lives = 4;
    constexpr int steps = 25'000;
    const auto seed = static_cast<std::uint32_t>(testing::UnitTest::GetInstance()->random_seed());
    std::printf("seed %u\n", seed);
    testing::internal::CaptureStderr(); // what is thrown
    for (int life = 0; life < lives; ++life) {
        Mixed mixed(seed + std::uint32_t(life));
        for (int i = 0; i < steps && !HasFailure(); ++i) mixed.step();
        mixed.end();
    }
    testing::internal::GetCapturedStderr();
    for (const auto& how : Mixed::counts)
        for (int deed = 0; deed < deedCount; ++deed) EXPECT_GT(how[deed], 0) << "deed " << deed << " was not done";
}

} // namespace
