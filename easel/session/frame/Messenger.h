// The way of every message to a plug-in: head filled in, a transaction around it, exceptions stopped, and a trace.
#pragma once

#include <functional>
#include <vector>

#include "hostapi/SPMessages.h"
#include "session/base/Reports.h"
#include "session/documents/Documents.h"
#include "session/frame/Plugins.h"

namespace easel::session {

class Events;

class Messenger {
  public:
    /// Plug-ins that reply to every message with another one end here.
    static constexpr int kMaxDepth = 100;

    /// `basic` is the suite that comes with every message; `events` notices what has changed when a batch ends.
    Messenger(Documents& documents, Reports& reports, const SPBasicSuite& basic, Events& events)
        : documents_(documents), reports_(reports), basic_(basic), events_(events) {}

    /// Sends a message and returns what the plug-in's entry returned. The document's changes are one transaction; a
    /// nested message joins the outer one. kRefusedErr: the plug-in is broken, or messages are nested too deep.
    SPErr send(Plugin& plugin, const char* caller, const char* selector, SPMessageData& message);

    /// Passes on what another plug-in sends: as `send`, but `globals` in the head is between sender and receiver.
    SPErr pass(Plugin& plugin, const char* caller, const char* selector, SPMessageData& message);
    /// Fills in the head of a message to `plugin`.
    void address(const Plugin& plugin, SPMessageData& message) const;

    /// Runs `body` as one batch. Deferred actions run, and changes are notified, when the outermost batch ends. Every
    /// message is a batch.
    template <class Body> void batch(Body body) {
        const BatchScope scope(batches_);
        body();
        if (batches_ == 1) runDeferred();
    }
    /// Runs deferred actions and notifies after a change made outside any message.
    void flush() {
        batch([] {});
    }
    /// Runs `action` when the outermost batch ends. Actions may defer others; `kMaxDeferred` of them run in one go, so
    /// that plug-ins which reply to every action with another come to an end, and the rest is dropped.
    void defer(std::function<void()> action) { deferred_.push_back(std::move(action)); }
    static constexpr int kMaxDeferred = 1000;

    /// How many messages are being handled, nested ones counted.
    [[nodiscard]] int depth() const { return depth_; }

    bool trace = false; ///< every message and suite call on standard error

  private:
    class BatchScope {
      public:
        explicit BatchScope(int& count) : count_(count) { ++count_; }
        ~BatchScope() { --count_; }
        BatchScope(const BatchScope&) = delete;
        BatchScope& operator=(const BatchScope&) = delete;

      private:
        int& count_;
    };

    SPErr call(Plugin& plugin, const char* caller, const char* selector, SPMessageData& message);
    void runDeferred();

    Documents& documents_;
    Reports& reports_;
    const SPBasicSuite& basic_;
    Events& events_;
    int depth_ = 0;
    int batches_ = 0;
    std::vector<std::function<void()>> deferred_;
};

} // namespace easel::session
