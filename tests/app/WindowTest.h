// A window with a new drawing in it.
#pragma once

#include <QAction>
#include <QDoubleSpinBox>

#include "support/Shown.h"

namespace desk {

class WindowTest : public Shown {
  protected:
    WindowTest() { window->files().newDocument(300, 200); }

    const easel::model::PathData& topPath() { return document().currentLayer().firstChild()->path(); }
    std::size_t paths() { return document().currentLayer().childCount(); }
    /// An item of a menu, by its text.
    void choose(const char* text) {
        for (QAction* const action : window->findChildren<QAction*>())
            if (action->text() == text) return action->trigger();
        ADD_FAILURE() << "no item " << text;
    }
    void enter(const char* field, double value) { window->findChild<QDoubleSpinBox*>(field)->setValue(value); }
};

} // namespace desk
