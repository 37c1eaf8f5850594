// The way of every message to a plug-in: head filled in, a transaction around it, exceptions stopped, and a trace.
#pragma once

#include <functional>
#include <vector>

#include "hostapi/SPMessages.h"
#include "session/Plugins.h"

namespace easel::session {

class Session;

class Messenger {
  public:
    explicit Messenger(Session& session) : session_(session) {}

    /// Sends a message and answers what the plug-in's entry answered. The document's changes are one transaction; a
    /// nested message joins the outer one. A broken plug-in is not called and answers kRefusedErr.
    SPErr send(Plugin& plugin, const char* caller, const char* selector, SPMessageData& message);

    /// Runs `action` once no message is being handled any more.
    void afterwards(std::function<void()> action);

    /// How many messages are being handled, nested ones counted.
    [[nodiscard]] int depth() const { return depth_; }

  private:
    SPErr call(Plugin& plugin, const char* caller, const char* selector, SPMessageData& message);

    Session& session_;
    int depth_ = 0;
    std::vector<std::function<void()>> afterwards_;
};

} // namespace easel::session
