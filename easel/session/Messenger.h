// The way of every message to a plug-in: head filled in, a transaction around it, exceptions stopped, and a trace.
#pragma once

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

    /// How many messages are being handled, nested ones counted.
    [[nodiscard]] int depth() const { return depth_; }

  private:
    Session& session_;
    int depth_ = 0;
};

} // namespace easel::session
