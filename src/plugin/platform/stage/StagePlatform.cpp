// The platform as a host plays it that runs without a display: everything through its stage suite. Where the host has
// no such suite, lines go to standard error, no key is held and cursors stay as they are.
#include <cstdio>
#include <string>

#include "hostapi/StageSuite.h"
#include "plugin/platform/Convert.h"
#include "plugin/platform/Platform.h"
#include "plugin/platform/UserFolders.h"
#include "plugin/platform/stage/StageWindows.h"

namespace kzo::plugin {

namespace {

class StageLog final : public Log {
  public:
    void write(SPPlugin* plugin, std::string_view name, std::string_view line) override {
        const std::string text(line);
        if (host::call<&StageSuite::Log>(plugin, text)) return;
        const std::string prefix = name.empty() ? "" : std::string(name) + ": ";
        std::fprintf(stderr, "%s%s\n", prefix.c_str(), text.c_str());
    }
};

class StageKeys final : public Keys {
  public:
    [[nodiscard]] core::ModifierKeys held() const override {
        return host::get<&StageSuite::GetModifiers, core::ModifierKeys>();
    }

    bool monitorInput(SPPlugin* plugin, bool monitor) override {
        return host::call<&StageSuite::MonitorInput>(plugin, monitor);
    }
};

class StageCursors final : public Cursors {
  public:
    void show(unsigned number) override { host::call<&StageSuite::SetCursor>(static_cast<std::int32_t>(number)); }

    void show(const CursorImage& image) override {
        host::call<&StageSuite::SetCursorImage>(image.plugin, image.resource, image.hotSpot, AIReal(image.scale));
    }

    [[nodiscard]] ShownCursor shown() const override {
        const auto shown = host::get<&StageSuite::GetCursor>();
        return {.number = static_cast<unsigned>(shown.number),
                .image = {.plugin = shown.plugin,
                          .resource = shown.resource,
                          .hotSpot = host::fromHost<geo::Point>(shown.hotSpot),
                          .scale = static_cast<int>(shown.scale)}};
    }

    [[nodiscard]] std::optional<double> displayScale() const override {
        return host::find<&StageSuite::GetDisplayScale>();
    }
};

class StageMouse final : public Mouse {
  public:
    [[nodiscard]] geo::Point location() const override {
        return host::get<&StageSuite::GetPointerLocation, geo::Point>();
    }

    void press(const geo::Point& at) override { post(kStageMouseDown, at); }
    void release(const geo::Point& at) override { post(kStageMouseUp, at); }

  private:
    static void post(std::int32_t event, const geo::Point& at) { host::call<&StageSuite::PostMouseEvent>(event, at); }
};

class StageAlerts final : public Alerts {
  public:
    [[nodiscard]] std::size_t show(const Alert& alert) override {
        std::vector<const char*> titles;
        for (const std::string& title : alert.buttons) titles.push_back(title.c_str());
        const auto count = static_cast<std::int32_t>(titles.size());
        std::int32_t chosen = 0;
        AIBoolean seen = 0;
        if (host::call<&StageSuite::ShowAlert>(alert.kind, alert.text.c_str(), titles.data(), count, &chosen, &seen) &&
            chosen >= 0 && chosen < count) {
            asked = host::fromHost<bool>(seen);
            return static_cast<std::size_t>(chosen);
        }
        asked = false;
        std::fprintf(stderr, "%s\n", alert.text.c_str());
        return titles.size() - 1;
    }

    void beep() override { host::call<&StageSuite::Beep>(); }
};

/// The host's folder for preferences; the user's own only where there is no stage suite, not where the host refuses.
class StageFolders final : public Folders {
  public:
    [[nodiscard]] std::string preferences() const override {
        if (!host::acquire<StageSuite>()) return userPreferences();
        return host::get<&StageSuite::GetPreferencesFolder>();
    }
};

class StagePlatform final : public Platform {
  public:
    StagePlatform() : Platform(0) {}

    [[nodiscard]] bool usable() const override { return host::acquire<StageSuite>() != nullptr; }
    [[nodiscard]] Log& log() override { return log_; }
    [[nodiscard]] Keys& keys() override { return keys_; }
    [[nodiscard]] Cursors& cursors() override { return cursors_; }
    [[nodiscard]] Mouse& mouse() override { return mouse_; }
    [[nodiscard]] Alerts& alerts() override { return alerts_; }
    [[nodiscard]] Windows& windows() override { return windows_; }
    [[nodiscard]] Folders& folders() override { return folders_; }

  private:
    StageLog log_;
    StageKeys keys_;
    StageCursors cursors_;
    StageMouse mouse_;
    StageAlerts alerts_;
    StageWindows windows_;
    StageFolders folders_;
};

StagePlatform stage;

} // namespace

} // namespace kzo::plugin
