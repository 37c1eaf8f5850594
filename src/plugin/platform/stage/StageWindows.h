// Windows as the host shows them: handed over through its stage suite, and heard of by its messages.
#pragma once

#include "plugin/platform/Windows.h"

namespace kzo::plugin {

class StageWindows final : public Windows {
  public:
    [[nodiscard]] std::unique_ptr<Window> make(WindowOwner& owner) override;
    [[nodiscard]] geo::Size fittingSize(const WidgetState& state) const override;
    [[nodiscard]] double brightness() const override;
    void handleMessage(const void* record) override;
};

} // namespace kzo::plugin
