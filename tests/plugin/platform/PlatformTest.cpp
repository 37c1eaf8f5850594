// Which platform is chosen when the plug-in starts, and where its log goes.
#include <gmock/gmock.h>

#include "core/app/Plugin.h"
#include "core/dialogs/ModalDialog.h"
#include "core/frame/Log.h"
#include "plugin/platform/Guarded.h"
#include "plugin/platform/Platform.h"
#include "support/Desk.h"

extern "C" SPErr PluginMain(const char* caller, const char* selector, void* message);

namespace {

using namespace kzo::plugin;

/// A window with an event loop of its own, in which the user presses Return.
struct OwnLoop final : Window {
    explicit OwnLoop(WindowOwner& itsOwner) : owner(itsOwner) {}
    void setFrame(const std::string&, const kzo::geo::Size&) override {}
    void setWidget(WidgetId, const WidgetState&) override {}
    void removeWidget(WidgetId) override {}
    void setFocus(WidgetId) override {}
    [[nodiscard]] kzo::core::SelectionRange selection(WidgetId) const override { return {}; }
    bool run() override {
        guardedFromLoop([this] {
            owner.handle({.kind = WindowEvent::Kind::Key, .key = WindowEvent::Key::Return, .text = {}, .typed = {}});
        });
        return true;
    }
    void stop() override {}
    void setBrightness(double) override {}

    WindowOwner& owner;
};

/// A platform that writes down what is logged, and has no keys, cursors or mouse; alerts take their first button, and
/// no folder is known.
class Notebook final : public Platform, public Log, public Alerts, public Windows, public Folders {
  public:
    explicit Notebook(int rank) : Platform(rank) {}

    [[nodiscard]] bool usable() const override { return here; }
    [[nodiscard]] Log& log() override { return *this; }
    [[nodiscard]] Keys& keys() override { throw std::logic_error("no keys"); }
    [[nodiscard]] Cursors& cursors() override { throw std::logic_error("no cursors"); }
    [[nodiscard]] Mouse& mouse() override { throw std::logic_error("no mouse"); }
    [[nodiscard]] Alerts& alerts() override { return *this; }
    [[nodiscard]] Windows& windows() override { return *this; }
    [[nodiscard]] Folders& folders() override { return *this; }
    [[nodiscard]] std::size_t show(const Alert&) override { return 0; }
    void beep() override {}
    [[nodiscard]] std::unique_ptr<Window> make(WindowOwner& owner) override { return std::make_unique<OwnLoop>(owner); }
    [[nodiscard]] kzo::geo::Size fittingSize(const WidgetState&) const override { return {}; }
    [[nodiscard]] double brightness() const override { return 1; }
    [[nodiscard]] std::string preferences() const override { return {}; }
    void write(SPPlugin*, std::string_view name, std::string_view line) override {
        lines.push_back(std::string(name) + "/" + std::string(line));
    }

    bool here = true;
    std::vector<std::string> lines;
};

TEST(Platforms, AreChosenByRankAmongThoseThatCanBeUsedHere) {
    const struct {
        const char* what;
        int rank;
        bool usable;
        bool stage; ///< the host plays one
        std::string said;
        std::vector<std::string> noted;
    } cases[] = {
        {"the stage comes first", 1, true, true, "easel: plug-in: Ortholine: a line\n", {}},
        {"unless another ranks lower", -1, true, true, "", {"Ortholine/a line"}},
        {"which must be usable", -1, false, true, "easel: plug-in: Ortholine: a line\n", {}},
        {"without a stage the other", 1, true, false, "", {"Ortholine/a line"}},
        {"without any, standard error", 1, false, false, "Ortholine: a line\n", {}},
    };
    for (const auto& each : cases) {
        Notebook notebook(each.rank);
        notebook.here = each.usable;
        easel::session::Session session;
        easel::suites::Tables::of(*session.suites).published<StageSuite>().available = each.stage;
        easel::session::Plugin& plugin = session.plugins.attach("Product", PluginMain);
        EXPECT_THAT(session.start(), testing::IsEmpty());
        testing::internal::CaptureStderr();
        kzo::core::Plugin::instance()->setPreShutdownCallback(kzo::core::callback([] { kzo::core::log("a line"); }));
        AINotifierMessage ends{.d = {}, .notifier = nullptr, .type = kAIApplicationShutdownNotifier};
        session.messenger.send(plugin, kCallerAINotify, kSelectorAINotify, ends.d);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), each.said) << each.what;
        EXPECT_EQ(notebook.lines, each.noted) << each.what;
    }
}

// Such a window had a guard of its own, which knew neither the plug-in nor the message.
TEST(Platforms, LogWhatIsThrownInAWindowsOwnLoop) {
    Notebook notebook(-1);
    desk::Desk desk({.openDocument = false});
    desk.inMessage([&] {
        const auto thrower = kzo::core::callback([] { throw std::runtime_error("odd"); });
        kzo::core::ModalDialog("Odd", {100, 100}, {true, thrower, true, ""}, {}).show();
    });
    EXPECT_THAT(notebook.lines,
                testing::ElementsAre("Ortholine/exception in a callback of a dialog (Test Desk/Run): odd"));
}

} // namespace
