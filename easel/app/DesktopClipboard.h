// What is copied, from and to other programs.
#pragma once

#include <optional>
#include <string>

#include "session/documents/Clipboard.h"

namespace easel::app {

void offerToOthers(const session::Clipboard& clipboard);
/// A drawing that another program has copied since.
[[nodiscard]] std::optional<std::string> copiedByOthers(const session::Clipboard& clipboard);

} // namespace easel::app
