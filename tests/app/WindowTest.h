// A window with a new drawing in it.
#pragma once

#include <QAction>
#include <QDoubleSpinBox>

#include <filesystem>
#include <functional>
#include <sstream>
#include <string>

#include "script/Script.h"
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
    /// Plays a recording that saved a file of this name, and expects the same file. Ends the window.
    void expectReplayed(const std::string& script, const char* name,
                        const std::function<void(easel::session::Session&)>& start) {
        const std::string drawn = folder.content(name);
        EXPECT_THAT(drawn, testing::HasSubstr("<path"));
        end();
        easel::session::Session again;
        again.profile.use(folder.path("profile"));
        again.plugins.load(ORTHOLINE_BUNDLE);
        start(again);
        std::filesystem::remove(folder.path(name));
        std::ostringstream said;
        easel::script::run(again, script, said);
        EXPECT_EQ(folder.content(name), drawn);
        EXPECT_EQ(again.documents.count(), 1U);
    }
    void enter(const char* field, double value) { window->findChild<QDoubleSpinBox*>(field)->setValue(value); }
};

} // namespace desk
