// Two bundles under a hundred thousand messages of every kind, sent by the host and by each other, one inside of the
// other. Every answer and every callback is compared with a table and with a model of what each plug-in has.
#include <gmock/gmock.h>

#include <algorithm>
#include <cstdio>
#include <deque>
#include <random>
#include <set>
#include <sstream>

#include "places/Places.h"
#include "plugins/Orders.h"
#include "session/Session.h"

namespace {

using namespace obeying;
using easel::session::Session;

/// The messages that hosts send. Kinds are numbered in tens, except for one that came late.
const char* const hostMessages = R"(
    Action Manager: Do Action
    AI Annotation: AI Draw, AI Invalidate
    AI Clipboard: AI Go, AI Can Copy, AI Clone, AI Dispose
    AI File Format: AI Set Parameters, AI Get Parameters, AI Go, AI Check, AI Update AI140
    AI Filter: AI Get Parameters, AI Go
    AI Layer List: AI Push Layer List, AI Pop Layer List, AI Delete Layer List
    AI Live Effect: AI Live Effect Edit Parameters, AI Live Effect Go Live, AI Live Effect Interpolate Parameters
    AI Live Effect: AI Live Effect Input Type, AI Live Effect Convert Color Space, AI Live Effect Scale Parameters
    AI Live Effect: AI Live Effect Handle Merge, AI Live Effect Get SVG Filter, AI Live Effect Adjust Colors
    AI Live Effect: AI Live Effect Is Compatible
    AI Menu: AI Go, AI Update
    AI Notifier: AI Notify
    AI Object Set: AI Object Set Dispose Contents, AI Object Set Mark Usage, AI Object Set Update Internal
    AI Object Set: AI Object Set Update External, AI Object Set Purge, AI Object Set Change
    AI Object Set: AI Object Set Change Indirect, AI Object Set Copy, AI Object Set Initialization Done
    AI Plugin Group: AI Notify Edits, AI Update, AI Show Contents, AI Interpolate Data, AI Art Replace Symbol
    AI Plugin Group: AI Plugin Group Disallow Art Type, AI Plugin Group Perform Custom Hit Test
    AI Plugin Group: AI Plugin Group Collect Paint Styles, AI Plugin Group Apply Paint Styles
    AI Plugin Group: AI Plugin Group Adjust Colors, AI Plugin Group Show Contents
    AI Preference: Init Preference Panel, Preference Dialog OK, Preference Dialog Cancel, Preference Dialog Upadate
    AI Timer: AI Go
    AI Tool: AI Edit Options, AI Track Cursor, AI Mouse Down, AI Mouse Drag, AI Mouse Up, AI Select, AI Reselect
    AI Tool: AI Deselect, AI Decrease Diameter, AI Increase Diameter, AI Alternate Selection Tool Query
    AI Tool: AI Alternate Selection Tool Activate, AI Alternate Selection Tool DeActivate
    AI Toolbox: AI Toolbox Start Toolbox, AI Toolbox End Toolbox, AI Toolbox Start Tool Group
    AI Toolbox: AI Toolbox End Tool Group, AI Toolbox Start Tool Set, AI Toolbox End Tool Set, AI Toolbox Add Tool
    AI Toolbox: AI Toolbox Add Rollover, AI Toolbox Tool Selected, AI Toolbox Alternate Tool Action Selected
    AI Toolbox: AI Toolbox Cycle Tool, AI Toolbox Soft Cycle Tool
    AI Transform Again: AI Go
    Workspace Manager: Write Workspace, Restore Workspace, Default Workspace
    SP Access: Reload
    SP Cache: Plug-in Purge
    SP Access: Unload
    SP Adapters: Start up, Shut down, Dispose info, Flush, Register plugins, Load plugin, Release plugin
    SP Adapters: Send message
    SP Properties: Acquire, Release)";

/// What a dispatcher answers 0 to, and 1 for not handled. The entry makes a 0 of both.
const char* const handled = R"(
    timer: own, timer: scheduled, item: own, item: gone, item: foreign, item: never made, item: null,
    items: update, notifier: own, tool: own, tool: gone, tool: foreign, tool: never made, tool: null,
    annotator: own, key: monitored, key: unmonitored,
    message: awaited, text: awaited, order, life: application started, life: shut-down ahead, life: access,
    life: interface, nothing: caller, nothing: selector, nothing: record)";
const char* const notHandled = R"(
    timer: inactive, timer: not registered, timer: gone, timer: foreign, timer: never made, timer: null,
    notifier: gone, notifier: foreign, notifier: never made, notifier: null, annotator: gone,
    annotator: foreign, annotator: never made, annotator: null, message: unawaited, text: unawaited)";

std::vector<std::string> split(const std::string& text, char at) {
    std::vector<std::string> parts;
    std::istringstream in(text);
    for (std::string part; std::getline(in >> std::ws, part, at);) parts.push_back(part);
    return parts;
}

struct Kind {
    int type;
    std::string caller;
    std::string selector;
};

std::vector<Kind> numbered() {
    constexpr std::size_t late = 8; // its place in the order
    std::vector<Kind> kinds;
    int number = 0;
    for (const std::string& line : split(hostMessages, '\n')) {
        const std::size_t colon = line.find(':');
        for (const std::string& selector : split(line.substr(colon + 1), ','))
            kinds.push_back({kinds.size() == late ? 81 : number += 10, line.substr(0, colon), selector});
    }
    return kinds;
}

const std::vector<Kind> kinds = numbered();
const Kind texts[places] = {{0, "Somebody", "Anything"}, {0, "Somebody", "ANYTHING"}, {0, "ai filter", "AI Go"}};

enum Sort { Timers, Items, Notifiers, Tools, Annotators };
const char* const sortNames[] = {"timer: ", "item: ", "notifier: ", "tool: ", "annotator: "};
const std::map<std::string, Sort> sorts = {{"AI Timer", Timers},
                                           {"AI Menu", Items},
                                           {"AI Notifier", Notifiers},
                                           {"AI Tool", Tools},
                                           {"AI Annotation", Annotators}};

constexpr int firstToolKind = 550;
constexpr int lastToolKind = 670;

/// A message with room for the record of any family.
struct Mail {
    Kind kind;
    void* handle = nullptr; ///< of what it is about
    SPMessageData* record = nullptr;
    AITimerMessage timer{};
    AIMenuMessage menu{};
    AINotifierMessage notifier{};
    AIToolMessage tool{};
    AIAnnotatorMessage annotator{};
    StageInputMessage key{};
    OrderMessage order{};

    [[nodiscard]] bool from(const char* whom) const { return kind.caller == whom; }
    [[nodiscard]] int toolEvent() const { return from("AI Tool") ? (kind.type - firstToolKind) / 10 : -1; }
};

/// What a plug-in has, as far as it did what it was told.
struct Model {
    struct Thing {
        void* handle = nullptr;
        bool active = true;
        bool registered = true;
    };
    Thing things[5][places];
    std::vector<void*> scheduled;
    std::set<int> awaited; ///< kinds, and numbers of texts
    bool shutdownAhead = false;
    bool monitored[places] = {}; ///< keys by their numbers
    std::vector<int> running;    ///< kinds of the messages being handled
};

class Mixed {
  public:
    explicit Mixed(std::uint32_t seed) : random_(seed) {
        session_.load(std::string(TEST_BUILD_DIR) + "/Obeying.aip");
        session_.load(std::string(TEST_BUILD_DIR) + "/Heeding.aip");
        EXPECT_THAT(session_.start(), testing::IsEmpty());
        session_.newDocument(100, 100);
        for (int to : {0, 1}) {
            slate_.names[to] = plugin(to).name.c_str();
            Mail& mail = write({0, caller, selector});
            mail.order = {.d = {}, .slate = &slate_, .plugin = to, .order = {.deed = Deed::DestroyItem}};
            EXPECT_EQ(send(to, mail), 0);
        }
        slate_.rings.clear();
    }

    /// One message with all that follows from it.
    void step() {
        mails_.clear();
        orders_.clear();
        slate_.armed.clear();
        slate_.rings.clear();
        rings_.clear();
        if (below(100) == 0) turnLayer();
        const int to = below(2);
        if (below(30) == 0) return sendNothing(to);
        Mail& mail = compose(to, 0);
        const int answer = send(to, mail);
        EXPECT_EQ(answer, enter(to, mail));
        EXPECT_TRUE(slate_.rings == rings_) << "callbacks ran that should not have, or others than should";
        for (const Order& order : orders_) EXPECT_EQ(order.done, done_.count(&order) == 1);
        done_.clear();
        EXPECT_TRUE(slate_.idle[0]() && slate_.idle[1]());
        EXPECT_FALSE(session_.document()->journal().running());
        EXPECT_THAT(session_.reports(), testing::IsEmpty());
        if (testing::Test::HasFailure()) ADD_FAILURE() << mail.kind.caller << "/" << mail.kind.selector;
    }

    /// The host has what the model has, and after the end nothing is left.
    void end() {
        for (const Model& model : models_) {
            for (const Sort sort : {Timers, Items, Notifiers, Tools, Annotators}) {
                for (const Model::Thing& thing : model.things[sort]) {
                    const void* const there[] = {
                        session_.timers.find(static_cast<AITimerHandle>(thing.handle)),
                        session_.menus.find(static_cast<AIMenuItemHandle>(thing.handle)),
                        session_.notifiers.find(static_cast<AINotifierHandle>(thing.handle)),
                        session_.toolbox.find(static_cast<AIToolHandle>(thing.handle)),
                        session_.annotations.find(static_cast<AIAnnotatorHandle>(thing.handle))};
                    EXPECT_EQ(there[sort] != nullptr, thing.handle != nullptr);
                }
            }
        }
        session_.quit();
        EXPECT_THAT(session_.reports(), testing::IsEmpty());
        EXPECT_TRUE(slate_.idle[0]() && slate_.idle[1]());
        EXPECT_EQ(send(0, write({0, "AI Filter", "AI Go"})), kRefusedErr);
    }

    static bool isHandled(const std::string& kind) {
        static const std::vector<std::string> all = split(handled, ',');
        return std::find(all.begin(), all.end(), kind) != all.end();
    }

    static inline std::map<std::string, int> counts;

  private:
    // The host's side

    easel::session::Plugin& plugin(int number) { return *session_.plugins.all()[std::size_t(number)]; }
    int send(int to, Mail& mail) {
        return session_.messenger.send(plugin(to), mail.kind.caller.c_str(), mail.kind.selector.c_str(), *mail.record);
    }

    void sendNothing(int to) {
        SPMessageData record{};
        const char* const missing[] = {"caller", "selector", "record"};
        const int which = below(3);
        EXPECT_EQ(plugin(to).entry(which == 0 ? nullptr : "AI Tool", which == 1 ? nullptr : "AI Select",
                                   which == 2 ? nullptr : &record),
                  0);
        EXPECT_TRUE(slate_.rings.empty());
        ++counts[std::string("nothing: ") + missing[which]];
    }

    void turnLayer() {
        easel::model::Document& document = session_.needDocument();
        document.journal().begin();
        document.setLocked(document.currentLayer(), locked_ = below(3) == 0);
        document.setHidden(document.currentLayer(), hidden_ = below(3) == 0);
        document.journal().end();
    }

    // Writing messages

    int below(int limit) { return static_cast<int>(random_() % std::uint32_t(limit)); }

    Mail& write(const Kind& kind) {
        Mail& mail = mails_.emplace_back();
        mail.kind = kind;
        mail.record = &mail.order.d;
        return mail;
    }

    /// Mostly of the plug-in's own, else of the other's, gone, never given out, or null.
    void* pick(Sort sort, int owner) {
        const std::vector<void*>& scheduled = models_[owner].scheduled;
        const int way = below(12);
        if (way < 7) return models_[owner].things[sort][below(places)].handle;
        if (way == 7) return models_[1 - owner].things[sort][below(places)].handle;
        if (way == 8) return &neverMade_[below(9)];
        if (way == 9 && sort == Timers && !scheduled.empty()) return scheduled.back();
        return known_[sort].empty() ? nullptr : known_[sort][std::size_t(below(int(known_[sort].size())))];
    }

    Mail& compose(int to, int depth) {
        Mail& mail = write(kinds[std::size_t(below(int(kinds.size())))]);
        const auto choose = [&](const char* from) {
            const auto fits = [&](const Kind& kind) { return kind.caller == from; };
            const auto first = std::find_if(kinds.begin(), kinds.end(), fits);
            mail.kind = first[below(int(std::count_if(first, kinds.end(), fits)))];
        };
        const int family = below(16);
        if (family < 3) choose("AI Tool");
        if (family == 8) choose("AI Annotation");
        if (family == 3) choose("AI Timer");
        if (family == 4) choose("AI Menu");
        if (family == 5) choose("AI Notifier");
        if (family == 6) mail.kind = texts[below(places)];
        if (family == 7)
            mail.kind = {0, "SP Interface", below(2) ? kSPInterfaceAboutSelector : kSPInterfaceStartupSelector};
        if (family > 8 && family < 12) mail.kind = {0, caller, selector};
        if (family == 12) {
            mail.kind = {0, kCallerStage, kSelectorStageKeyPressed};
            mail.key.code = below(places + 1);
            mail.record = &mail.key.d;
        }

        if (mail.from(caller)) mail.order = {.d = {}, .slate = &slate_, .plugin = to, .order = order(to, depth + 1)};
        const auto about = sorts.find(mail.kind.caller);
        if (about != sorts.end()) {
            static const char* const types[] = {"AI Document Saved Notifier", "", nullptr,
                                                kAIApplicationStartedNotifier, kAIApplicationShutdownNotifier};
            mail.handle = pick(about->second, to);
            mail.timer.timer = static_cast<AITimerHandle>(mail.handle);
            mail.menu.menuItem = static_cast<AIMenuItemHandle>(mail.handle);
            mail.notifier.notifier = static_cast<AINotifierHandle>(mail.handle);
            mail.notifier.type = types[below(5)];
            mail.tool.tool = static_cast<AIToolHandle>(mail.handle);
            mail.annotator.annotator = static_cast<AIAnnotatorHandle>(mail.handle);
            SPMessageData* const records[] = {&mail.timer.d, &mail.menu.d, &mail.notifier.d, &mail.tool.d,
                                              &mail.annotator.d};
            mail.record = records[about->second];
        }
        if (below(2)) arm(to, mail, depth + 1);
        return mail;
    }

    /// Puts an order down for one of the callbacks that the message may lead to.
    void arm(int to, const Mail& mail, int depth) {
        const std::vector<int> bells = hear(to, mail).bells;
        if (bells.empty()) return;
        const int bell = bells[std::size_t(below(int(bells.size())))];
        Order given = order(to, depth);
        // Whether a tool that is gone gets the event that it was to get is nobody's promise.
        while (bell >= Before && bell < After && (given.deed == Deed::AddTool || given.deed == Deed::DestroyTool))
            given = order(to, depth);
        slate_.armed.push_back({to, bell, &orders_.emplace_back(given)});
    }

    Order order(int to, int depth) {
        constexpr int deepest = 4;
        Order made{.deed = Deed(below(depth < deepest ? deedCount : int(Deed::Dispatch))), .place = below(places)};
        if (made.deed == Deed::Register || made.deed == Deed::Unregister) {
            const Kind& kind = kinds[std::size_t(below(int(kinds.size())))];
            const std::string& from = kind.caller;
            // In place of the framework's own handling a client can put its own.
            const bool text = below(3) == 0 || from == "AI Menu" || from == "AI Tool";
            made.type = text ? 0 : kind.type;
            made.caller = texts[made.place].caller.c_str();
            made.selector = texts[made.place].selector.c_str();
        } else if (made.deed == Deed::Dispatch || made.deed == Deed::Send) {
            if (made.deed == Deed::Send) made.place = below(2);
            const Mail& inner = compose(made.deed == Deed::Send ? made.place : to, depth);
            made.caller = made.deed == Deed::Send && below(10) == 0 ? "" : inner.kind.caller.c_str();
            made.selector = inner.kind.selector.c_str();
            made.type = made.deed == Deed::Dispatch && below(2) ? inner.kind.type : 0;
            made.record = inner.record;
        }
        return made;
    }

    // What is to be expected

    struct Heard {
        std::string kind;
        std::vector<int> bells;
    };

    static bool contains(const std::vector<void*>& list, void* handle) {
        return std::find(list.begin(), list.end(), handle) != list.end();
    }

    static int placeOf(const Model::Thing (&things)[places], void* handle) {
        for (int place = 0; place < places; ++place)
            if (handle && things[place].handle == handle) return place;
        return -1;
    }

    const char* strange(Sort sort, int p, void* handle) const {
        const Model& other = models_[1 - p];
        const bool foreign = placeOf(other.things[sort], handle) >= 0 || contains(other.scheduled, handle);
        return !handle ? "null" : foreign ? "foreign" : contains(known_[sort], handle) ? "gone" : "never made";
    }

    Heard hear(int p, const Mail& mail) const {
        const Model& model = models_[p];
        const auto about = sorts.find(mail.kind.caller);
        const int event = mail.toolEvent();
        if (mail.kind.caller == "AI Menu" && mail.kind.selector == "AI Update") return {"items: update", {Updating}};
        if (contains(model.scheduled, mail.handle)) return {"timer: scheduled", {Scheduled}};
        if (about != sorts.end() && event < 10) {
            const Sort sort = about->second;
            const std::string name = sortNames[sort];
            const int place = placeOf(model.things[sort], mail.handle);
            if (place < 0) return {name + strange(sort, p, mail.handle), {}};
            if (!model.things[sort][place].registered) return {name + "not registered", {}};
            if (!model.things[sort][place].active) return {name + "inactive", {}};
            const std::vector<int> bells[] = {{OfTimer + place},
                                              {OfItem + place, Selected},
                                              {OfNotifier + place},
                                              {Before + event, OfTool + 10 * place + event, After + event},
                                              {OfAnnotator + place}};
            return {name + "own", bells[sort]};
        }
        if (mail.from(caller)) return {"order", {Obeyed}};
        if (mail.from(kCallerStage) && (mail.key.code >= places || !model.monitored[mail.key.code]))
            return {"key: unmonitored", {}};
        if (mail.from(kCallerStage)) return {"key: monitored", {OfMonitor + mail.key.code}};
        const auto text = std::find_if(std::begin(texts), std::end(texts), [&](const Kind& known) {
            return known.caller == mail.kind.caller && known.selector == mail.kind.selector;
        });
        const int name = mail.kind.type ? mail.kind.type : int(text - texts);
        const std::string what = mail.kind.type ? "message: " : "text: ";
        return model.awaited.count(name) ? Heard{what + "awaited", {OfMessage + name}} : Heard{what + "unawaited", {}};
    }

    /// What the entry answers.
    int enter(int p, const Mail& mail) {
        const auto life = [&](const char* what) { return ++counts[std::string("life: ") + what], 0; };
        if (mail.from("SP Access")) return ++counts["kind " + std::to_string(mail.kind.type)], life("access");
        if (mail.from("SP Interface")) return life("interface");
        const std::string type = mail.from("AI Notifier") && mail.notifier.type ? mail.notifier.type : "";
        if (type == "AI Application Started Notifier") return life("application started");
        if (type == "AI Application Shutdown Notifier") {
            if (!std::exchange(models_[p].shutdownAhead, true)) ring(p, PreShutdown);
            return life("shut-down ahead");
        }
        int answer = 0;
        const bool whole = handle(p, mail, mail.kind.type, answer);
        return whole && mail.from("AI Tool") && answer != 1 ? answer : 0;
    }

    // These three answer false when a callback threw.

    /// What a dispatcher does; of a message with a kind there is a typed object.
    bool handle(int p, const Mail& mail, int type, int& answer) {
        const Heard heard = hear(p, mail);
        ++counts[heard.kind];
        if (type) ++counts["kind " + std::to_string(type)];
        if (heard.kind == "timer: scheduled") std::erase(models_[p].scheduled, mail.handle); // comes once
        std::vector<int>& running = models_[p].running;
        if (type) running.push_back(type);
        int said = isHandled(heard.kind) ? 0 : 1;
        // The check of the layer is made for tracking, press, drag and release.
        const int event = mail.toolEvent();
        if (heard.kind == "tool: own" && event >= 1 && event <= 4) said = locked_ ? 1000 : hidden_ ? 1001 : 0;
        bool whole = std::all_of(heard.bells.begin(), heard.bells.end(), [&](int bell) { return ring(p, bell); });
        whole = whole && (!mail.from(caller) || obey(p, mail.order.order, "deed: "));
        if (type) running.pop_back();
        if (whole) answer = said;
        return whole;
    }

    bool ring(int p, int bell) {
        const std::vector<int>& running = models_[p].running;
        const auto ofTool = [](int type) { return type >= firstToolKind && type <= lastToolKind; };
        const auto tool = std::find_if(running.rbegin(), running.rend(), ofTool);
        rings_.push_back({p, bell, running.empty() ? 0 : running.back(), tool == running.rend() ? 0 : *tool});
        for (const Slate::Armed& armed : slate_.armed)
            if (armed.plugin == p && armed.bell == bell && !done_.count(armed.order))
                return obey(p, *armed.order, "deed in a callback: ");
        return true;
    }

    bool obey(int p, const Order& order, const char* how) {
        ++counts[how + std::string(deedNames[int(order.deed)])];
        done_.insert(&order);
        Model& model = models_[p];
        const auto thing = [&](Sort sort) -> Model::Thing& { return model.things[sort][order.place]; };
        const auto make = [&](Sort sort) {
            EXPECT_NE(order.handle, nullptr);
            thing(sort) = {.handle = order.handle};
            known_[sort].push_back(order.handle);
        };
        switch (order.deed) {
        case Deed::Throw: return false;
        case Deed::AddTimer: make(Timers); break;
        case Deed::ActivateTimer: thing(Timers).active = true; break;
        case Deed::DeactivateTimer: thing(Timers).active = false; break;
        case Deed::RegisterTimer: thing(Timers).registered = true; break;
        case Deed::UnregisterTimer: thing(Timers).registered = false; break;
        case Deed::DestroyTimer: thing(Timers) = {}; break;
        case Deed::Schedule:
            for (const auto* timer : session_.timers.all()) {
                // A timer that the same message made later is not known yet either, but it has another name.
                if (timer->owner != &plugin(p) || contains(known_[Timers], timer->handle) || timer->name == "Timer")
                    continue;
                model.scheduled.push_back(timer->handle);
                known_[Timers].push_back(timer->handle);
            }
            break;
        case Deed::AddItem: make(Items); break;
        case Deed::DestroyItem: thing(Items) = {}; break;
        case Deed::AddNotifier: make(Notifiers); break;
        case Deed::DestroyNotifier: thing(Notifiers) = {}; break;
        case Deed::AddTool: make(Tools); break;
        case Deed::DestroyTool: thing(Tools) = {}; break;
        case Deed::AddAnnotator: make(Annotators); break;
        case Deed::DestroyAnnotator: thing(Annotators) = {}; break;
        case Deed::AddMonitor: model.monitored[order.place] = true; break;
        case Deed::RemoveMonitor: model.monitored[order.place] = false; break;
        case Deed::Register: model.awaited.insert(order.type ? order.type : order.place); break;
        case Deed::Unregister: model.awaited.erase(order.type ? order.type : order.place); break;
        case Deed::Dispatch: {
            int answer = -1;
            const bool whole = handle(p, mailOf(order), order.type, answer);
            EXPECT_EQ(order.answer, answer);
            return whole;
        }
        case Deed::Send:
            if (*order.caller == '\0') {
                EXPECT_EQ(order.answer, 0x5061726d); // "Parm"
                EXPECT_EQ(order.result, -1);
                break;
            }
            EXPECT_EQ(order.answer, 0);
            EXPECT_EQ(order.result, enter(order.place, mailOf(order)));
            break;
        }
        return true;
    }

    const Mail& mailOf(const Order& order) const {
        return *std::find_if(mails_.begin(), mails_.end(),
                             [&](const Mail& mail) { return mail.record == order.record; });
    }

    std::mt19937 random_;
    Slate slate_{};
    Session session_;
    Model models_[2];
    std::vector<void*> known_[5]; ///< all handles that were ever given out, by sort
    std::deque<Mail> mails_;      ///< of this step, as the next three
    std::deque<Order> orders_;    ///< those for callbacks
    std::vector<Ring> rings_;     ///< that are to be expected
    std::set<const Order*> done_;
    char neverMade_[9] = {}; ///< to be taken for handles
    bool locked_ = false;
    bool hidden_ = false;
};

TEST(MixedMessages, AreAnsweredAsTheTableSays) {
    constexpr int lives = 4;
    constexpr int steps = 25'000;
    const auto seed = static_cast<std::uint32_t>(testing::UnitTest::GetInstance()->random_seed());
    std::printf("seed %u\n", seed);
    for (int life = 0; life < lives; ++life) {
        Mixed mixed(seed + std::uint32_t(life));
        for (int i = 0; i < steps && !HasFailure(); ++i) mixed.step();
        mixed.end();
    }
    std::vector<std::string> expected = split(handled + std::string(", ") + notHandled, ',');
    for (const Kind& kind : kinds) expected.push_back("kind " + std::to_string(kind.type));
    for (const char* const deed : deedNames)
        for (const char* how : {"deed: ", "deed in a callback: "}) expected.push_back(how + std::string(deed));
    for (const std::string& what : expected) EXPECT_GT(Mixed::counts[what], 0) << what;
}

} // namespace
