// What the screen shows besides documents: the cursor, how dense pixels are, how bright the interface is.
#pragma once

#include "hostapi/Stage.h"
#include "session/frame/Notifiers.h"

namespace easel::session {

class Screen {
  public:
    explicit Screen(Notifiers& notifiers) : notifiers_(notifiers) {}

    StageCursor cursor{};
    double displayScale = 1; ///< pixels for a screen unit

    [[nodiscard]] double brightness() const { return brightness_; } ///< 0 dark to 1 light
    void setBrightness(double brightness) {
        if (brightness == brightness_) return;
        brightness_ = brightness;
        notifiers_.raise(kAIUIBrightnessChangedNotifier);
    }

  private:
    Notifiers& notifiers_;
    double brightness_ = 1;
};

} // namespace easel::session
