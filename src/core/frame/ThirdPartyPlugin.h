// A handle on another plug-in in the same host, and messages to it.
#pragma once

#include <cstdint>
#include <string>

#include "core/Handle.h"
#include "core/values/FrameEnumerations.h"

struct SPMessageData;
struct SPPlugin;

namespace kzo::plugin {
class ThirdPartyPlugin;
}

namespace kzo::core {

extern template class Handle<plugin::ThirdPartyPlugin>;

/// After our own shut-down handles are empty. An empty handle returns an empty text, None, false or null, except where
/// it says otherwise.
///
/// A message takes these steps: see that the plug-in is `started` and not `broken`; `prepMessageData` on the record;
/// fill in the record's own fields; `message`; read the reply; `cleanMessageData`.
class ThirdPartyPlugin : public Handle<plugin::ThirdPartyPlugin> {
  public:
    using Options = PluginOptions;

    ThirdPartyPlugin() = default; ///< empty
    using Handle::Handle;
    explicit ThirdPartyPlugin(SPPlugin* plugin);

    [[nodiscard]] SPPlugin* spPluginRef() const;
    [[nodiscard]] std::string name() const;
    [[nodiscard]] std::string fileName() const; ///< of its bundle
    [[nodiscard]] std::string filePath() const; ///< of its bundle, the file name included
    [[nodiscard]] Options options() const;
    [[nodiscard]] bool started() const;
    [[nodiscard]] bool broken() const; ///< true for an empty handle

    /// Has the host fill in the head of a record for a message to this plug-in. True also for an empty handle, whose
    /// record is left as it is.
    bool prepMessageData(SPMessageData& message) const;
    /// Has the host take back what `prepMessageData` filled in. True also for an empty handle.
    bool cleanMessageData(SPMessageData& message) const;
    /// Sends a message; the reply is in the record and in `result`. Returns 0 or the host's error code. Without asking
    /// the host: "P!Fd" for an empty handle, "Parm" when caller or selector is empty.
    std::int32_t message(const std::string& caller, const std::string& selector, SPMessageData* data,
                         int& result) const;
};

} // namespace kzo::core
