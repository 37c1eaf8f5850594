// What has changed in the session, told to the plug-ins that asked to hear of it. Goes by comparing how things are with
// how they were when it looked last, so that whoever changes something need not know. Events of a moment, such as a
// document about to close, are raised where they happen (Session::notify).
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
    static constexpr std::size_t most = 32;
    using Told = std::bitset<most>;

    explicit Events(Session& session) : session_(session) {}

    /// Raises each event that is due and not in `told`, and adds it there. Answers whether there was any. Nothing is
    /// told while a mouse button is down, nor before the application has started or after it has ended.
    bool tell(Told& told);

  private:
    struct Sight {
        std::uint32_t document = 0; ///< in front; 0 for none
        model::NodeId layer;        ///< current
        model::View view;
        AIToolHandle tool = nullptr; ///< current
        Modifiers modifiers = 0;
        ToolChanges tools;
        unsigned menus = 0;
    };

    [[nodiscard]] Sight look() const;

    Session& session_;
    Sight seen_;
};

} // namespace easel::session
