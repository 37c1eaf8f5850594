// An editing call of a script as one undo step.
#pragma once

#include "script/Calls.h"

namespace easel::script {

/// A transaction of the document's journal: taken back when it goes out of scope without keep().
class Step {
  public:
    /// Throws while the mouse button is down: the gesture's roll-backs would take the edit with them.
    Step(Host& host, model::Document& document) : journal_(document.journal()) {
        if (host.session.pointer.pressed()) throw session::Error("a gesture is running");
        journal_.begin();
    }
    ~Step() {
        if (!kept_) journal_.abandon();
    }
    Step(const Step&) = delete;
    Step& operator=(const Step&) = delete;

    void keep() {
        kept_ = true;
        journal_.end();
    }

  private:
    model::Journal& journal_;
    bool kept_ = false;
};

/// Runs one edit as a step.
template <class Edit> void edit(Host& host, model::Document& document, Edit change) {
    Step step(host, document);
    change();
    step.keep();
}

} // namespace easel::script
