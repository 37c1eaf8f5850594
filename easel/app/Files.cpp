// Saving, what is asked before work is lost, what is kept of it, and what other programs do to the file.
#include "app/Files.h"

#include <QDateTime>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QStatusBar>
#include <QTimerEvent>

#include <algorithm>
#include <filesystem>
#include <utility>

#include "app/Application.h"
#include "app/Look.h"
#include "app/Question.h"
#include "session/base/Error.h"
#include "svg/Writer.h"

namespace easel::app {

namespace {

constexpr int kKeepMilliseconds = 10'000; // of unsaved work that a crash may cost
constexpr int kLookMilliseconds = 1000;
constexpr const char* kDrawings = "SVG drawings (*.svg *.svgz)";

QString nameOf(const std::string& path) {
    return path.empty() ? QString("Untitled") : QString::fromStdString(std::filesystem::path(path).filename().string());
}

} // namespace

Files::Files(Actions& actions, Recovery& recovery, Settings& settings, Canvas& canvas, QMainWindow& window)
    : actions_(actions), recovery_(recovery), settings_(settings), canvas_(canvas), window_(window) {
    lookTimer_.start(kLookMilliseconds, this);
}

Files::~Files() = default;

void Files::timerEvent(QTimerEvent* event) {
    if (event->timerId() == readingTimer_.timerId()) return followReading();
    if (event->timerId() == lookTimer_.timerId()) return lookAtFile();
    keepTimer_.stop();
    keepWork();
}

void Files::say(const QString& text) {
    constexpr int kMilliseconds = 3000;
    window_.statusBar()->showMessage(text, kMilliseconds);
}

// Opening, with a question

void Files::openAsked() {
    if (!mayLose()) return;
    const QString path = QFileDialog::getOpenFileName(&window_, "Open a drawing", {}, kDrawings);
    window_.activateWindow();
    if (!path.isEmpty()) open(path.toStdString());
}

void Files::reopen() {
    const std::string path = actions_.path();
    if (!path.empty() && mayLose()) open(path);
}

void Files::fillRecentMenu(QMenu& menu) {
    menu.clear();
    for (const QString& path : settings_.recent()) {
        connect(menu.addAction(literal(path)), &QAction::triggered, this, guarded([this, path] {
                    if (mayLose()) open(path.toStdString());
                }));
    }
    if (menu.isEmpty()) menu.addAction("Nothing yet")->setEnabled(false);
}

std::vector<std::uint32_t> Files::unsaved(Losing what) const {
    const session::Documents& documents = actions_.session().documents;
    std::vector<std::uint32_t> numbers;
    for (const model::Document* const drawing : documents.unsaved())
        if (what == Losing::All || drawing == actions_.drawing()) numbers.push_back(documents.numberOf(*drawing));
    return numbers;
}

bool Files::mayLose(Losing what) {
    canvas_.cancelGesture();
    const std::vector<std::uint32_t> numbers = unsaved(what);
    if (numbers.empty()) return true;
    const session::Documents& documents = actions_.session().documents;
    QStringList names;
    for (const std::uint32_t each : numbers) names << nameOf(documents.pathOf(*documents.byNumber(each)));
    const QString changes = names.size() == 1
                                ? "Save the changes to " + names.front() + " before going on?"
                                : QString("Save the changes to these drawings before going on?\n\n") + names.join('\n');
    enum { Save, Discard, Cancel };
    const auto answer = ask(window_, {.text = changes,
                                      .more = "They are lost otherwise.",
                                      .choices = {{"&Save", QMessageBox::AcceptRole},
                                                  {"&Discard", QMessageBox::DestructiveRole},
                                                  {"Cancel", QMessageBox::RejectRole}},
                                      .name = "unsaved",
                                      .icon = QMessageBox::Question});
    if (answer == Cancel) return false;
    if (answer == Save && !std::all_of(numbers.begin(), numbers.end(), [this](auto each) { return save(each); }))
        return false;
    const std::vector<std::uint32_t> now = unsaved(what);
    const bool isAllAsked = std::all_of(now.begin(), now.end(), [&](std::uint32_t each) {
        return std::find(numbers.begin(), numbers.end(), each) != numbers.end();
    });
    return isAllAsked || mayLose(what);
}

// Saving

bool Files::save() {
    const model::Document* const drawing = actions_.drawing();
    return drawing && save(actions_.session().documents.numberOf(*drawing));
}

/// One that plug-ins have closed meanwhile is none to be saved.
bool Files::save(std::uint32_t number) {
    if (!actions_.session().documents.byNumber(number)) return true;
    bringToFront(number);
    return actions_.path().empty() ? saveAs() : saveTo(std::string(actions_.path()), number);
}

bool Files::saveAs() {
    const model::Document* const drawing = actions_.drawing();
    if (!drawing) return false;
    const std::uint32_t number = actions_.session().documents.numberOf(*drawing);
    const QString before = QString::fromStdString(actions_.path());
    const QString path =
        askWhere("Save the drawing", before.isEmpty() ? "Untitled.svg" : before, kDrawings, {".svg", ".svgz"});
    return !path.isEmpty() && saveTo(path.toStdString(), number);
}

/// The one that was asked about.
void Files::bringToFront(std::uint32_t number) {
    const session::Documents& documents = actions_.session().documents;
    model::Document* const open = documents.byNumber(number);
    if (!open) throw session::Error("the drawing was closed before it had a name, and nothing is written");
    const model::Document& drawing = documents.wholeOf(*open);
    if (&drawing != actions_.drawing()) actions_.bringToFront(drawing);
}

/// The file to be written, with the first of these ends where the user gives it none; empty if there is none.
QString Files::askWhere(const QString& title, const QString& proposed, const QString& kinds, const QStringList& ends) {
    QString path = QFileDialog::getSaveFileName(&window_, title, proposed, kinds);
    window_.activateWindow();
    const auto isEnd = [&](const QString& end) { return path.endsWith(end, Qt::CaseInsensitive); };
    if (path.isEmpty() || std::any_of(ends.begin(), ends.end(), isEnd)) return path;
    path += ends.front();
    if (!std::filesystem::exists(path.toStdString())) return path;
    // The dialog has asked about another name.
    return mayReplace(path + " is there already.", "&Replace It") ? path : QString();
}

bool Files::mayReplace(const QString& text, const QString& button) {
    return ask(window_, {.text = text,
                         .more = {},
                         .choices = {{button, QMessageBox::DestructiveRole}, {"Cancel", QMessageBox::RejectRole}},
                         .usual = 1}) == 0;
}

bool Files::saveTo(const std::string& path, std::uint32_t number) {
    bringToFront(number);
    const QString file = QString::fromStdString(path);
    const bool force = svg::isChangedByOthers(*actions_.drawing(), path);
    if (force) {
        if (!mayReplace(file + " was changed by another program since it was opened.\nSaving replaces those changes.",
                        "&Save All the Same"))
            return false;
        bringToFront(number);
    }
    actions_.save(path, force);
    say("Saved " + file);
    return true;
}

void Files::exportAs(const QString& end) {
    const std::uint32_t number = actions_.documentNumber();
    if (number == 0) return;
    const std::string name = std::filesystem::path(actions_.path()).replace_extension().string();
    const QString kind = end.mid(1).toUpper();
    QString proposed = name.empty() ? QString("Untitled") : QString::fromStdString(name);
    if (end == ".svg" && !name.empty()) proposed += " copy"; // the drawing's own file is no place for one
    const QString path = askWhere("Export as " + kind, proposed + end, kind + " (*" + end + ')', {end});
    if (path.isEmpty()) return;
    bringToFront(number);
    constexpr double kDense = 2; // pixels a point
    actions_.exportPicture(path.toStdString(), end == ".png" ? kDense : 1);
    say("Exported " + path);
}

// Unsaved work

void Files::follow() {
    noteWork();
    if (std::exchange(notedPath_, actions_.path()) != actions_.path() && !notedPath_.empty())
        settings_.noteRecent(notedPath_);
    lookAtFile();
}

/// A copy of what is unsaved is kept a while later. A plug-in may have saved it as well as the user.
void Files::noteWork() {
    std::vector<std::uint64_t> work = actions_.unsavedWork();
    if (work == notedWork_) return;
    notedWork_ = std::move(work);
    recovery_.dropSaved(actions_.session().documents);
    if (notedWork_.empty()) noticed(Notice::NotKept, {});
    if (!notedWork_.empty() && !keepTimer_.isActive()) keepTimer_.start(kKeepMilliseconds, this);
}

std::string Files::keepWork(bool atOnce) {
    session::Documents& documents = actions_.session().documents;
    if (actions_.session().pointer.pressed() && !documents.unsaved().empty()) {
        if (!atOnce) {
            keepTimer_.start(kKeepMilliseconds, this);
            return {};
        }
        actions_.session().pointer.cancel();
    }
    std::string why = recovery_.keep(documents);
    noticed(Notice::NotKept, why.empty() ? QString() : "Unsaved work is not kept: " + QString::fromStdString(why));
    if (!why.empty()) keepTimer_.start(kKeepMilliseconds, this); // there may be room by then
    return why;
}

void Files::offerRecovered() {
    for (const Recovery::Left& left : recovery_.left()) {
        enum { Open, ThrowAway };
        const auto answer = ask(
            window_, {.text = "Easel ended without saving a drawing. Open what was kept?",
                      .more = (left.path.empty() ? QString("It was never saved.") : QString::fromStdString(left.path)) +
                              "\nKept on " +
                              QFileInfo(QString::fromStdString(left.copy)).lastModified().toString("yyyy-MM-dd, hh:mm"),
                      .choices = {{"Open It", QMessageBox::AcceptRole},
                                  {"Throw It Away", QMessageBox::DestructiveRole},
                                  {"Later", QMessageBox::RejectRole}},
                      .name = "recover",
                      .icon = QMessageBox::Question});
        if (answer == ThrowAway) Recovery::remove(left);
        if (answer != Open) continue;
        const std::string other = reading_ ? reading_->file->path() : std::string();
        const auto show = [this, left, other](std::unique_ptr<model::Document> document) {
            svg::noteToldOfFile(*document, left.path, left.told);
            actions_.openRecovered(std::move(document), left.copy, left.path);
            recovery_.adopt(left, actions_.documentNumber());
            constexpr int kSeen = 10'000; // milliseconds
            if (!other.empty() && other != left.path)
                window_.statusBar()->showMessage(
                    QString::fromStdString(other) + " was not opened: what was kept shows in its place", kSeen);
        };
        return read({std::make_unique<FileReading>(left.copy, actions_.session().reports), show, other});
        // One drawing at a time; others are offered next time.
    }
}

bool Files::end() {
    if (!mayLose(Losing::All)) return false;
    giveUpReading();
    recovery_.drop();
    return true;
}

// Other programs

/// A look now and then sees what no notice of the system tells: a file that was made anew, or its folder, and what was
/// done from another computer.
void Files::lookAtFile() {
    const model::Document* const drawing = actions_.drawing();
    if (actions_.session().pointer.pressed()) return; // a file that was changed is read, which takes its time
    const std::string& path = actions_.path();
    const std::optional<svg::FileStamp> stamp = path.empty() ? std::nullopt : svg::stampOf(path);
    const std::uint32_t number = drawing ? actions_.session().documents.numberOf(*drawing) : 0;
    const std::tuple now(number, path, stamp);
    if (std::exchange(looked_, now) == now) return;
    const QString file = QString::fromStdString(path);
    QString text;
    if (!path.empty() && !stamp)
        text = "Another program has removed " + file + ". File > Save writes it anew";
    else if (drawing && svg::isChangedByOthers(*drawing, path))
        text = "Another program has changed " + file + ". File > Reopen shows what it is now";
    noticed(Notice::FileChanged, text);
}

} // namespace easel::app
