// The view of an Art as a plug-in group: art that a plug-in looks after.
#pragma once

#include <memory>
#include <string>

#include "core/document/ArtView.h"

namespace kzo::core {

/// Such art holds two groups: what is edited, which is hidden, and what shows in its place.
class CustomArt : public ArtView {
  public:
    using ArtView::ArtView;

    [[nodiscard]] std::string pluginName() const; ///< of the plug-in that looks after it
    [[nodiscard]] std::string name() const;
    bool setName(const std::string& name);
    [[nodiscard]] std::unique_ptr<Art> editArt() const; ///< the group; null when it has been removed
    [[nodiscard]] std::unique_ptr<Art> resultArt() const;
};

} // namespace kzo::core
