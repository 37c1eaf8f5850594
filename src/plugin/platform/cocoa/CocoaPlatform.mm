// The platform whose windows are AppKit's, for hosts that show no dialogs themselves. Everything else is done by the
// platform that would be chosen without it.
#include <algorithm>
#include <cmath>

#include "hostapi/StageSuite.h"
#include "plugin/host/HostCall.h"
#include "plugin/platform/Platform.h"
#include "plugin/platform/cocoa/Application.h"
#include "plugin/platform/cocoa/CocoaWindow.h"

namespace kzo::plugin::cocoa {

namespace {

class CocoaWindows final : public Windows {
  public:
    explicit CocoaWindows(const Platform& platform) : platform_(platform) {}

    [[nodiscard]] std::unique_ptr<Window> make(WindowOwner& owner) override {
        std::unique_ptr<Window> made;
        guarded([&] { made = std::make_unique<CocoaWindow>(owner); });
        return made;
    }

    [[nodiscard]] geo::Size fittingSize(const WidgetState& state) const override {
        using core::WidgetType;
        geo::Size text;
        NSSize picture = NSZeroSize;
        guarded([&] {
            text = textSize(state);
            if (NSImage* const image = imageOf(state)) picture = [image size];
        });
        if (picture.width > 0) return {picture.width, picture.height};
        switch (state.type) {
        case WidgetType::TextField: return {text.width + 8, 22};
        case WidgetType::Checkbox: return {text.width + 24, 18};
        case WidgetType::Button: return {text.width + 32, 26};
        default: return {text.width, std::max(17., text.height)};
        }
    }

    [[nodiscard]] double brightness() const override { return platform_.following().windows().brightness(); }

  private:
    static geo::Size textSize(const WidgetState& state) {
        constexpr double kMost = 100000;
        constexpr double kInset = 4; // of a label's text on either side, and a bit
        NSDictionary* const looks = [NSDictionary dictionaryWithObject:fontOf(state) forKey:NSFontAttributeName];
        NSAttributedString* const text = [[[NSAttributedString alloc] initWithString:toCocoa(state.text)
                                                                          attributes:looks] autorelease];
        const NSSize line = [text size];
        const double room = state.frame.size.width - 2 * kInset;
        if (state.type != core::WidgetType::Label || room <= 0)
            return {std::ceil(line.width) + 2 * kInset, line.height};
        const NSRect wrapped = [text boundingRectWithSize:NSMakeSize(room, kMost)
                                                  options:NSStringDrawingUsesLineFragmentOrigin];
        return {std::ceil(line.width) + 2 * kInset, std::ceil(wrapped.size.height)};
    }

    const Platform& platform_;
};

/// An alert, as a window with a label and buttons.
class CocoaAlert final : private WindowOwner {
  public:
    CocoaAlert(const Alert& alert, Windows& windows) : alert_(alert), windows_(windows), window_(windows.make(*this)) {}

    std::size_t show() {
        if (!window_) return alert_.buttons.size() - 1;
        setUp();
        window_->run();
        return chosen_.value_or(alert_.buttons.size() - 1);
    }

  private:
    static constexpr double kMargin = 16;
    static constexpr double kWidth = 360;
    static constexpr double kButtonWidth = 80;
    static constexpr double kButtonHeight = 26;
    static constexpr WidgetId kText = 1; // the buttons follow

    void setUp() {
        WidgetState text;
        text.type = core::WidgetType::Label;
        text.text = alert_.text;
        text.frame = {{kMargin, kMargin}, {kWidth - 2 * kMargin, 0}};
        text.frame.size.height = windows_.fittingSize(text).height;
        const double top = text.frame.box().max.y + kMargin;
        window_->setFrame(alert_.kind == Alert::Kind::Error ? "Error" : "Note",
                          {kWidth, top + kButtonHeight + kMargin});
        window_->setWidget(kText, text);
        window_->setBrightness(windows_.brightness());
        double right = kWidth - kMargin;
        for (std::size_t i = 0; i < alert_.buttons.size(); ++i) {
            WidgetState button;
            button.type = core::WidgetType::Button;
            button.text = alert_.buttons[i];
            button.style = i == 0 ? core::ButtonStyle::Default : core::ButtonStyle::Plain;
            const double width = std::max(kButtonWidth, windows_.fittingSize(button).width);
            button.frame = {{right - width, top}, {width, kButtonHeight}};
            window_->setWidget(kText + 1 + static_cast<WidgetId>(i), button);
            right -= width + kMargin / 2;
        }
    }

    void handle(const WindowEvent& event) override {
        using Kind = WindowEvent::Kind;
        const bool returns = event.kind == Kind::Key && event.key == WindowEvent::Key::Return;
        const bool escapes = event.kind == Kind::Key && event.key == WindowEvent::Key::Escape;
        if (event.kind == Kind::Click && event.widget > kText)
            chosen_ = static_cast<std::size_t>(event.widget - kText - 1);
        else if (returns)
            chosen_ = 0;
        else if (event.kind == Kind::Close || escapes)
            chosen_ = alert_.buttons.size() - 1;
        if (chosen_) window_->stop();
    }

    const Alert& alert_;
    Windows& windows_;
    std::optional<std::size_t> chosen_;
    std::unique_ptr<Window> window_;
};

class CocoaAlerts final : public Alerts {
  public:
    explicit CocoaAlerts(Windows& windows) : windows_(windows) {}

    [[nodiscard]] std::size_t show(const Alert& alert) override { return CocoaAlert(alert, windows_).show(); }
    void beep() override { NSBeep(); }

  private:
    Windows& windows_;
};

class CocoaPlatform final : public Platform {
  public:
    CocoaPlatform() : Platform(-1) {}

    [[nodiscard]] bool usable() const override {
        return !host::get<&StageSuite::ShowsDialogs>() && ensureApplication();
    }
    [[nodiscard]] Log& log() override { return following().log(); }
    [[nodiscard]] Keys& keys() override { return following().keys(); }
    [[nodiscard]] Cursors& cursors() override { return following().cursors(); }
    [[nodiscard]] Mouse& mouse() override { return following().mouse(); }
    [[nodiscard]] Folders& folders() override { return following().folders(); }
    [[nodiscard]] Alerts& alerts() override { return alerts_; }
    [[nodiscard]] Windows& windows() override { return windows_; }

  private:
    CocoaWindows windows_{*this};
    CocoaAlerts alerts_{windows_};
};

CocoaPlatform cocoa;

} // namespace

} // namespace kzo::plugin::cocoa
