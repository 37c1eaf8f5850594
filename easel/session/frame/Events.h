// Notifiers for what has changed in the session: compares it with a snapshot taken last time, so that whoever changes
// something need not know. Events of a moment, such as a document about to close, are raised where they happen
// (Notifiers::raise).
#pragma once

#include <bitset>
#include <cstdint>

#include "hostapi/SPTypes.h"
#include "session/documents/Documents.h"
#include "session/frame/Held.h"
#include "session/frame/Menus.h"
#include "session/frame/Notifiers.h"
#include "session/frame/Toolbox.h"

namespace easel::session {

class Events {
  public:
    static constexpr std::size_t kMaxTypes = 32;
    using Notified = std::bitset<kMaxTypes>;

    Events(Documents& documents, const Toolbox& toolbox, const Menus& menus, const Held& held, Notifiers& notifiers)
        : documents_(documents), toolbox_(toolbox), menus_(menus), held_(held), notifiers_(notifiers) {}

    /// Raises each event that is due and not in `notified`, and adds it there. Returns whether there was any. Raises
    /// none while a mouse button is down, nor while the application is not running.
    bool notify(Notified& notified);

    bool running = false; ///< the application has started and not ended

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

    Documents& documents_;
    const Toolbox& toolbox_;
    const Menus& menus_;
    const Held& held_;
    Notifiers& notifiers_;
    Snapshot previous_;
};

} // namespace easel::session
