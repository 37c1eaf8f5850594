// The platform as a host plays it that runs without a display: everything through its stage suite, the log to standard
// error. Where the host has no such suite, no key is held and cursors stay as they are.
#include <cstdio>

#include "hostapi/StageSuite.h"
#include "plugin/host/HostCall.h"
#include "plugin/platform/Platform.h"

namespace kzo::plugin {

namespace {

AIRealPoint toHost(const geo::Point& point) { return {point.x, point.y}; }

class StagePlatform : public Platform {
  public:
    [[nodiscard]] core::ModifierKeys modifierKeys() const override {
        return core::ModifierKeys(host::ask<&StageSuite::GetModifiers>(std::uint32_t{0}));
    }

    bool monitorInput(SPPlugin* plugin, bool monitor) override {
        return host::call<&StageSuite::MonitorInput>(plugin, AIBoolean{monitor});
    }

    void log(std::string_view line) override {
        std::fprintf(stderr, "%.*s\n", static_cast<int>(line.size()), line.data());
    }

    // Cursors

    void showCursor(unsigned number) override { host::call<&StageSuite::SetCursor>(static_cast<std::int32_t>(number)); }

    void showCursor(const CursorImage& image) override {
        const AIRealPoint hotSpot = toHost(image.hotSpot);
        host::call<&StageSuite::SetCursorImage>(image.plugin, image.resource, &hotSpot, AIReal(image.scale));
    }

    [[nodiscard]] ShownCursor shownCursor() const override {
        const auto shown = host::ask<&StageSuite::GetCursor>(StageCursor{});
        return {.number = static_cast<unsigned>(shown.number),
                .image = {.plugin = shown.plugin,
                          .resource = shown.resource,
                          .hotSpot = {shown.hotSpot.h, shown.hotSpot.v},
                          .scale = static_cast<int>(shown.scale)}};
    }

    [[nodiscard]] std::optional<double> displayScale() const override {
        AIReal scale = 0;
        return host::call<&StageSuite::GetDisplayScale>(&scale) ? std::optional(scale) : std::nullopt;
    }

    // The mouse

    [[nodiscard]] geo::Point pointerLocation() const override {
        const auto location = host::ask<&StageSuite::GetPointerLocation>(AIRealPoint{});
        return {location.h, location.v};
    }

    void pressMouse(const geo::Point& at) override { post(kStageMouseDown, at); }
    void releaseMouse(const geo::Point& at) override { post(kStageMouseUp, at); }

  private:
    static void post(std::int32_t event, const geo::Point& at) {
        const AIRealPoint place = toHost(at);
        host::call<&StageSuite::PostMouseEvent>(event, &place);
    }
};

} // namespace

Platform& platform() {
    static StagePlatform stage;
    return stage;
}

} // namespace kzo::plugin
