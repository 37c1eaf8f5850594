// A handle on another plug-in in the same host, and messages to it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "core/values/FrameEnumerations.h"

struct SPMessageData;
struct SPPlugin;

namespace kzo::core {

class __IntThirdPartyPluginData;

/// All handles on one plug-in share its implementation. After our own shut-down they are empty. An empty handle answers
/// an empty text, None, false or null, except where it says otherwise.
///
/// A message takes these steps: see that the plug-in is `started` and not `broken`; `prepMessageData` on the record;
/// fill in the record's own fields; `message`; read the reply; `cleanMessageData`.
class ThirdPartyPlugin {
  public:
    using Options = PluginOptions;

    ThirdPartyPlugin() = default; ///< empty
    explicit ThirdPartyPlugin(SPPlugin* plugin);

    [[nodiscard]] bool isEmpty() const;
    [[nodiscard]] bool operator==(const ThirdPartyPlugin& other) const { return spPluginRef() == other.spPluginRef(); }
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
    /// Sends a message; the reply is in the record and in `result`. Answers 0 or the host's error code. Without asking
    /// the host: "P!Fd" for an empty handle, "Parm" when caller or selector is empty.
    std::int32_t message(const std::string& caller, const std::string& selector, SPMessageData* data,
                         int& result) const;

  private:
    std::shared_ptr<__IntThirdPartyPluginData> data_;
};

} // namespace kzo::core
