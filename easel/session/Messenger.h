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
    /// Plug-ins that keep answering a message with another one end here.
    static constexpr int maxDepth = 100;

    explicit Messenger(Session& session) : session_(session) {}

    /// Sends a message and answers what the plug-in's entry answered. The document's changes are one transaction; a
    /// nested message joins the outer one. kRefusedErr: the plug-in is broken, or messages are
    /// nested too deep.
    SPErr send(Plugin& plugin, const char* caller, const char* selector, SPMessageData& message);

    /// Passes on what another plug-in sends: as `send`, but `globals` in the head is between sender and receiver.
    SPErr pass(Plugin& plugin, const char* caller, const char* selector, SPMessageData& message);
    /// Fills in the head of a message to `plugin`.
    void address(const Plugin& plugin, SPMessageData& message) const;

    /// Does several things that belong together, such as a press with what surrounds its message. Actions that are put
    /// off meanwhile wait for the end of the outermost whole, and then the plug-ins hear what has changed; every
    /// message is one.
    template <class Body> void whole(Body body) {
        const Whole counted(wholes_);
        body();
        if (wholes_ == 1) runPutOff();
    }
    /// Ends what the user did with no message around it.
    void settle() {
        whole([] {});
    }
    /// Runs `action` once nothing is under way any more. Actions may put off others; `mostPutOff` of them are run in
    /// one go, so that plug-ins which answer every action with another come to an end, and the rest is dropped.
    void afterwards(std::function<void()> action) { putOff_.push_back(std::move(action)); }
    static constexpr int mostPutOff = 1000;

    /// How many messages are being handled, nested ones counted.
    [[nodiscard]] int depth() const { return depth_; }

  private:
    class Whole {
      public:
        explicit Whole(int& count) : count_(count) { ++count_; }
        ~Whole() { --count_; }
        Whole(const Whole&) = delete;
        Whole& operator=(const Whole&) = delete;

      private:
        int& count_;
    };

    SPErr call(Plugin& plugin, const char* caller, const char* selector, SPMessageData& message);
    void runPutOff();

    Session& session_;
    int depth_ = 0;
    int wholes_ = 0;
    std::vector<std::function<void()>> putOff_;
};

} // namespace easel::session
