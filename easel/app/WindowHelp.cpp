// The menu Help. Its dialogs are made when they are asked for.
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QMenuBar>
#include <QMessageBox>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/Application.h"
#include "app/Look.h"
#include "app/Recovery.h"
#include "app/Window.h"

namespace easel::app {

namespace {

QString keysOf(const QAction& action) {
    QStringList keys;
    for (const QKeySequence& each : action.shortcuts()) keys << each.toString(QKeySequence::NativeText);
    return keys.join(" or ");
}

QString withoutMark(QString text) { return text.remove('&').remove("..."); }

/// The items that have keys, those of inner menus too.
void addKeys(QTreeWidgetItem& section, const QList<QAction*>& actions) {
    for (const QAction* const action : actions) {
        if (action->menu()) addKeys(section, action->menu()->actions());
        if (!action->shortcuts().isEmpty())
            new QTreeWidgetItem(&section, {withoutMark(action->text()), keysOf(*action)});
    }
}

struct Gesture {
    const char* what;
    const char* with;
};
constexpr Gesture kGestures[] = {
    {"Exact length", "digits, a point or comma; Backspace corrects, Return ends the gesture"},
    {"Take the gesture back", "Escape"},
    {"Constrain, add", "Shift"},
    {"Copy, free of the axes", "Alt"},
    {"Move the view", "Space or the middle button held, or the wheel"},
    {"Zoom about the pointer", "Ctrl and the wheel"},
    {"Move the selection by 1, by 10 points", "arrows, with Shift"},
    {"Delete the selection", "Delete or Backspace"},
    {"From the drawing to the panels and back", "Tab, Shift+Tab"},
    {"Dialog of a tool", "double click on it"},
};

} // namespace

void Window::makeHelpMenu() {
    QMenu& menu = *menuBar()->addMenu("&Help");
    add(menu, "&Keys...", {}, [this] { showKeys(); });
    add(menu, "&About Easel...", {}, [this] {
        QMessageBox about(QMessageBox::NoIcon, "About Easel",
                          "Easel " + QApplication::applicationVersion() +
                              "\nA drawing application for axonometric views",
                          QMessageBox::Ok, this);
        about.setObjectName("about");
        about.setIconPixmap(icon(Symbol::Easel).pixmap(QSize(48, 48), devicePixelRatio()));
        about.setTextFormat(Qt::PlainText);
        about.setInformativeText("Settings: " + QString::fromStdString(actions_.session().profile.folder()) +
                                 "\nUnsaved work: " + QString::fromStdString(Recovery::defaultFolder()));
        about.exec();
        activateWindow();
    });
}

void Window::showKeys() {
    QDialog dialog(this);
    dialog.setObjectName("keys");
    dialog.setWindowTitle("Keys");
    auto* const column = new QVBoxLayout(&dialog);
    auto* const list = new QTreeWidget(&dialog);
    list->setAccessibleName("Keys");
    list->setHeaderHidden(true);
    list->setColumnCount(2);
    list->setRootIsDecorated(false);
    list->setFrameShape(QFrame::NoFrame);
    list->setSelectionMode(QAbstractItemView::NoSelection);
    column->addWidget(list);
    const auto addSection = [&](const QString& title) -> QTreeWidgetItem& {
        auto* const section = new QTreeWidgetItem(list, {title});
        QFont font = list->font();
        font.setBold(true);
        section->setFont(0, font);
        section->setExpanded(true);
        return *section;
    };
    addKeys(addSection("Tools"), toolbox_.actions());
    QTreeWidgetItem& gestures = addSection("Drawing");
    for (const Gesture& each : kGestures) new QTreeWidgetItem(&gestures, {each.what, each.with});
    for (const QAction* const menu : menuBar()->actions()) {
        QTreeWidgetItem& section = addSection(withoutMark(menu->text()));
        addKeys(section, menu->menu()->actions());
        if (section.childCount() == 0) delete &section;
    }
    list->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, &dialog);
    connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    column->addWidget(buttons);
    dialog.resize(QSize(700, 600).boundedTo(size())); // which fits the screen
    dialog.exec();
    activateWindow();
}

} // namespace easel::app
