// The modifier keys.
#pragma once

#include "core/values/FrameEnumerations.h"

namespace kzo::core {

/// The keys of the message being handled; outside of tool messages those held now.
[[nodiscard]] ModifierKeys modifierKeysPressed();

} // namespace kzo::core
