// Drawings and their files: what is saved, what is asked before it is lost, what is kept of it meanwhile.
#include <QCloseEvent>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>

#include <algorithm>
#include <filesystem>
#include <utility>

#include "app/Application.h"
#include "app/Look.h"
#include "app/Window.h"
#include "svg/Writer.h"

namespace easel::app {

namespace {

constexpr int kKeepMilliseconds = 10'000; // of unsaved work that a crash may cost
constexpr const char* kDrawings = "SVG drawings (*.svg *.svgz)";

QString nameOf(const std::string& path) {
    return path.empty() ? QString("Untitled") : QString::fromStdString(std::filesystem::path(path).filename().string());
}

} // namespace

void Window::newDocument(double width, double height) {
    giveUpReading();
    actions_.newDocument(width, height);
    dropKept();
}

void Window::openAsked() {
    if (!mayLose()) return;
    const QString path = QFileDialog::getOpenFileName(this, "Open a drawing", {}, kDrawings);
    activateWindow();
    if (!path.isEmpty()) open(path.toStdString());
}

void Window::fillRecentMenu(QMenu& menu) {
    menu.clear();
    for (const QString& path : settings_.recent()) {
        connect(menu.addAction(literal(path)), &QAction::triggered, this, guarded([this, path] {
                    if (mayLose()) open(path.toStdString());
                }));
    }
    if (menu.isEmpty()) menu.addAction("Nothing yet")->setEnabled(false);
}

void Window::reopen() {
    if (!actions_.path().empty() && mayLose()) open(std::string(actions_.path()));
}

void Window::noteFile() {
    if (actions_.path().empty()) return;
    settings_.noteRecent(actions_.path());
    if (!files_.files().isEmpty()) files_.removePaths(files_.files());
    files_.addPath(QString::fromStdString(actions_.path()));
}

bool Window::save() {
    if (!actions_.document()) return false;
    return actions_.path().empty() ? saveAs() : saveTo(std::string(actions_.path()));
}

bool Window::saveAs() {
    if (!actions_.document()) return false;
    const QString before = QString::fromStdString(actions_.path());
    const QString path =
        askWhere("Save the drawing", before.isEmpty() ? "Untitled.svg" : before, kDrawings, {".svg", ".svgz"});
    return !path.isEmpty() && saveTo(path.toStdString());
}

/// The file to be written, with the first of these ends where the user gives it none; empty if there is none.
QString Window::askWhere(const QString& title, const QString& proposed, const QString& kinds, const QStringList& ends) {
    QString path = QFileDialog::getSaveFileName(this, title, proposed, kinds);
    activateWindow();
    const auto isEnd = [&](const QString& end) { return path.endsWith(end, Qt::CaseInsensitive); };
    if (path.isEmpty() || std::any_of(ends.begin(), ends.end(), isEnd)) return path;
    path += ends.front();
    if (!std::filesystem::exists(path.toStdString())) return path;
    // The dialog has asked about another name.
    QMessageBox question(QMessageBox::Warning, "Easel", path + " is there already.", QMessageBox::Cancel, this);
    question.setTextFormat(Qt::PlainText);
    question.setDefaultButton(QMessageBox::Cancel);
    const auto* const replace = question.addButton("&Replace It", QMessageBox::DestructiveRole);
    ask(question);
    return question.clickedButton() == replace ? path : QString();
}

bool Window::saveTo(const std::string& path) {
    bool force = false;
    if (svg::isChangedByOthers(*actions_.drawing(), path)) {
        QMessageBox question(QMessageBox::Warning, "Easel",
                             QString::fromStdString(path) +
                                 " was changed by another program since it was opened.\nSaving replaces those changes.",
                             QMessageBox::Cancel, this);
        question.setTextFormat(Qt::PlainText);
        question.setDefaultButton(QMessageBox::Cancel);
        const auto* const replace = question.addButton("&Save All the Same", QMessageBox::DestructiveRole);
        ask(question);
        if (question.clickedButton() != replace) return false;
        force = true;
    }
    actions_.save(path, force);
    dropKept();
    noteFile();
    showTitle();
    statusBar()->showMessage("Saved " + QString::fromStdString(path), 3000);
    return true;
}

void Window::exportAs(const QString& end) {
    if (!actions_.document()) return;
    const std::string name = std::filesystem::path(actions_.path()).replace_extension().string();
    const QString kind = end.mid(1).toUpper();
    QString proposed = name.empty() ? QString("Untitled") : QString::fromStdString(name);
    if (end == ".svg" && !name.empty()) proposed += " copy"; // the drawing's own file is no place for one
    const QString path = askWhere("Export as " + kind, proposed + end, kind + " (*" + end + ')', {end});
    if (path.isEmpty()) return;
    constexpr double kDense = 2; // pixels a point
    actions_.exportPicture(path.toStdString(), end == ".png" ? kDense : 1);
    statusBar()->showMessage("Exported " + path, 3000);
}

bool Window::mayLose(Losing what) {
    canvas_.cancelGesture();
    const session::Documents& documents = actions_.session().documents;
    std::vector<std::uint32_t> numbers;
    QStringList names;
    for (const model::Document* const drawing : documents.unsaved()) {
        if (what == Losing::Front && drawing != actions_.drawing()) continue;
        numbers.push_back(documents.numberOf(*drawing));
        names << nameOf(documents.pathOf(*drawing));
    }
    if (numbers.empty()) return true;
    const QString changes = names.size() == 1
                                ? "Save the changes to " + names.front() + " before going on?"
                                : QString("Save the changes to these drawings before going on?\n\n") + names.join('\n');
    QMessageBox question(QMessageBox::Question, "Easel", changes,
                         QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    question.setObjectName("unsaved");
    question.setTextFormat(Qt::PlainText);
    question.setInformativeText("They are lost otherwise.");
    switch (ask(question)) {
    case QMessageBox::Save:
        return std::all_of(numbers.begin(), numbers.end(), [this](auto each) { return save(each); });
    case QMessageBox::Discard: return true;
    default: return false;
    }
}

/// One that plug-ins have closed meanwhile is none to be saved.
bool Window::save(std::uint32_t number) {
    const model::Document* const drawing = actions_.session().documents.byNumber(number);
    if (drawing && drawing != actions_.drawing()) actions_.bringToFront(*drawing);
    return !drawing || save();
}

/// A copy of what is unsaved is kept a while later. A plug-in may have saved it as well as the user.
void Window::noteWork() {
    const std::vector<std::uint64_t> work = actions_.unsavedWork();
    if (work == notedWork_) return;
    notedWork_ = work;
    if (work.empty())
        dropKept();
    else if (!keepTimer_.isActive())
        keepTimer_.start(kKeepMilliseconds, this);
}

void Window::keepWork(bool atOnce) {
    session::Documents& documents = actions_.session().documents;
    if (documents.unsaved().empty()) return;
    if (actions_.session().pointer.pressed()) {
        if (!atOnce) return keepTimer_.start(kKeepMilliseconds, this);
        actions_.session().pointer.cancel();
    }
    const std::string why = recovery_.keep(documents);
    if (!why.empty()) statusBar()->showMessage("Unsaved work is not kept: " + QString::fromStdString(why));
}

/// The work of a drawing is saved, or nobody wants it.
void Window::dropKept() {
    keepTimer_.stop();
    recovery_.drop();
    keepWork(); // that of others
}

void Window::offerRecovered() {
    for (const Recovery::Left& left : recovery_.left()) {
        QMessageBox question(QMessageBox::Question, "Easel",
                             "Easel ended without saving a drawing. Open what was kept?", QMessageBox::NoButton, this);
        question.setObjectName("recover");
        question.setTextFormat(Qt::PlainText);
        question.setInformativeText(left.path.empty() ? QString("It was never saved.")
                                                      : QString::fromStdString(left.path));
        QPushButton* const yes = question.addButton("Open It", QMessageBox::AcceptRole);
        question.setDefaultButton(yes);
        const auto* const no = question.addButton("Throw It Away", QMessageBox::DestructiveRole);
        question.addButton("Later", QMessageBox::RejectRole);
        ask(question);
        if (question.clickedButton() == no) Recovery::remove(left);
        if (question.clickedButton() != yes) continue;
        read(left.copy, [this, left] {
            actions_.disown(left.path);
            svg::noteToldOfFile(*actions_.document(), left.path, left.told);
            const std::string why = recovery_.keep(actions_.session().documents);
            if (why.empty()) Recovery::remove(left);
            showTitle();
        });
        return; // one drawing at a time; others are offered next time
    }
}

/// Without a window manager nobody else gives the window its keys back.
int Window::ask(QMessageBox& question) {
    const int answer = question.exec();
    activateWindow();
    return answer;
}

void Window::closeEvent(QCloseEvent* event) {
    event->ignore(); // also when saving fails
    if (!mayLose(Losing::All)) return;
    giveUpReading();
    recovery_.drop();
    settings_.setWindow(normalGeometry().size(), isMaximized());
    event->accept();
}

} // namespace easel::app
