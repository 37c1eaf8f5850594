// Dialogs as a script meets them: each is given to the script's handler, which chooses a button.
#pragma once

#include "script/Calls.h"

namespace easel::script {

/// A dialog while it is shown.
struct OpenDialog {
    const session::Alert& alert;
    unsigned number; ///< of all that the script has seen
    std::optional<std::size_t> chosen = std::nullopt;
};

struct Dialog {
    OpenDialog* open = nullptr;
    OpenDialog* operator->() const { return open; }
};

/// A function of the script, kept by its engine; none without an engine.
struct DialogHandler {
    duk_context* engine = nullptr;
};

void read(const Value& value, Dialog& slot);
void read(const Value& value, DialogHandler& slot);

[[nodiscard]] std::span<const Row> dialogAppRows(); ///< of the app object
[[nodiscard]] std::span<const Row> dialogRows();

} // namespace easel::script
