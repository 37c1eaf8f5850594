// The platform as a host plays it that runs without a display: everything through its stage suite, the log to standard
// error. Where the host has no such suite, no key is held and cursors stay as they are.
#include <cstdio>

#include "plugin/HostCall.h"
#include "plugin/Platform.h"

namespace kzo::plugin {

namespace {

class StagePlatform : public Platform {
  public:
    [[nodiscard]] core::ModifierKeys modifierKeys() const override {
        return core::ModifierKeys(host::ask<&StageSuite::GetModifiers>(std::uint32_t{0}));
    }

    void showCursor(unsigned number) override { host::call<&StageSuite::SetCursor>(static_cast<std::int32_t>(number)); }

    void log(std::string_view line) override {
        std::fprintf(stderr, "%.*s\n", static_cast<int>(line.size()), line.data());
    }
};

} // namespace

Platform& platform() {
    static StagePlatform stage;
    return stage;
}

} // namespace kzo::plugin
