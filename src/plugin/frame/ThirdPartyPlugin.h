// A plug-in as the host lists it: the calls behind core::ThirdPartyPlugin, and behind what our own plug-in object tells
// of itself.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/values/FrameEnumerations.h"
#include "plugin/host/Object.h"

struct SPMessageData;
struct SPPlugin;

namespace kzo::plugin {

class ThirdPartyPlugin : public host::Object<SPPlugin> {
  public:
    using Object::Object;

    /// All plug-ins that the host has loaded, ours among them.
    [[nodiscard]] static std::vector<SPPlugin*> all();

    [[nodiscard]] std::string name() const;
    [[nodiscard]] std::string fileName() const;
    [[nodiscard]] std::string filePath() const;
    [[nodiscard]] core::PluginOptions options() const;
    void setOptions(core::PluginOptions options) const;
    [[nodiscard]] bool started() const;
    [[nodiscard]] bool broken() const;

    [[nodiscard]] void* platformPlugin() const;
    /// The bytes of a resource of its bundle, none when there is no such resource.
    [[nodiscard]] std::vector<std::uint8_t> resourceData(const std::string& type, std::int16_t number) const;

    bool prepMessageData(SPMessageData& message) const;
    bool cleanMessageData(SPMessageData& message) const;
    /// 0 or the host's error code.
    std::int32_t message(const std::string& caller, const std::string& selector, SPMessageData* data,
                         std::int32_t& result) const;
};

} // namespace kzo::plugin
