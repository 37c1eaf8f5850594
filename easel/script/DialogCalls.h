// Dialogs as a script meets them: each is given to the script's handler, which plays the user.
#pragma once

#include "script/Calls.h"

namespace easel::script {

/// A dialog or an alert while it is shown; the other is null.
struct OpenDialog {
    const session::Alert* alert;
    session::Dialog* dialog;
    unsigned number = 0;                              ///< of all that the script has seen
    std::optional<std::size_t> chosen = std::nullopt; ///< of an alert's buttons

    [[nodiscard]] bool closed() const { return alert ? chosen.has_value() : dialog->ended; }
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

/// Who shows alerts and dialogs, back in their places at the end.
class KeptFaces {
  public:
    explicit KeptFaces(session::Session& session)
        : session_(session), alerts_(session.alerts.handler), dialogs_(session.dialogs.face) {}
    ~KeptFaces() {
        session_.alerts.handler = alerts_;
        session_.dialogs.face = dialogs_;
    }
    KeptFaces(const KeptFaces&) = delete;
    KeptFaces& operator=(const KeptFaces&) = delete;

  private:
    session::Session& session_;
    session::Alerts::Handler alerts_;
    session::Dialogs::Face dialogs_;
};

[[nodiscard]] std::span<const Row> dialogAppRows(); ///< of the app object
[[nodiscard]] std::span<const Row> dialogRows();

} // namespace easel::script
