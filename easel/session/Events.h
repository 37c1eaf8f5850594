// Notifiers for what has changed in the session: compares it with a snapshot taken last time, so that whoever changes
// something need not know. Events of a moment, such as a document about to close, are raised where they happen
// (Session::notify).
#pragma once

#include <bitset>
#include <cstdint>

#include "hostapi/SPTypes.h"
#include "model/Document.h"
#include "session/BuiltinTools.h"
#include "session/Toolbox.h"

namespace easel::session {

class Session;

class Events {
  public:
    static constexpr std::size_t kMaxTypes = 32;
    using Notified = std::bitset<kMaxTypes>;

    explicit Events(Session& session) : session_(session) {}

    /// Raises each event that is due and not in `notified`, and adds it there. Returns whether there was any. Raises
    /// none while a mouse button is down, nor before the application has started or after it has ended.
    bool notify(Notified& notified);

  private:
    struct Snapshot {
        std::uint32_t document = 0; ///< in front; 0 for none
        model::NodeId layer;        ///< current
        model::View view;
        AIToolHandle tool = nullptr; ///< current
        Modifiers modifiers = 0;
        ToolChanges tools;
        unsigned menus = 0;
    };

    [[nodiscard]] Snapshot take() const;

    Session& session_;
    Snapshot previous_;
};

} // namespace easel::session
