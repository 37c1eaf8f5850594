// Opening of drawings, beside everything else: the drawing in front stays in use until the next has been read.
#include <QApplication>
#include <QLineEdit>
#include <QProgressBar>
#include <QStatusBar>

#include <algorithm>
#include <filesystem>
#include <utility>

#include "app/Window.h"

namespace easel::app {

namespace {

constexpr int kWorthWaitingFor = 20; // milliseconds: what is read by then comes without a word about it
constexpr int kLookMilliseconds = 20;

} // namespace

void Window::open(const std::string& path) {
    read(path, [this] {
        dropKept();
        noteFile();
    });
}

void Window::read(const std::string& path, std::function<void()> opened) {
    giveUpReading();
    reading_ = std::make_unique<FileReading>(path, actions_.session().reports);
    opened_ = std::move(opened);
    stateWhenAsked_ = actions_.document() ? actions_.document()->journal().state() : 0;
    const bool isDone = reading_->isDone(kWorthWaitingFor);
    showTools(); // of plug-ins that have just started
    if (!isDone) showReading();
    readingTimer_.start(isDone ? 0 : kLookMilliseconds, this);
}

/// The thread ends when it notices; nobody waits for that.
void Window::giveUpReading() {
    if (!reading_) return;
    reading_->giveUp();
    givenUp_.push_back(std::move(reading_));
    showReading();
}

void Window::followReading() {
    std::erase_if(givenUp_, [](const auto& reading) { return reading->isDone(); });
    if (!reading_ && givenUp_.empty()) return readingTimer_.stop();
    if (!reading_) return;
    if (!reading_->isDone()) return showReading();
    if (isInUse()) {
        readingTimer_.start(kLookMilliseconds, this);
        return showReading();
    }
    const auto done = std::move(reading_);
    const auto opened = std::exchange(opened_, {});
    showReading();
    // What was done meanwhile is not covered by the answer from before.
    const bool isSame = actions_.document() && actions_.document()->journal().state() == stateWhenAsked_;
    if (!isSame && !mayLose()) return;
    auto document = done->take();
    canvas_.expectReach(done->reach());
    actions_.open(std::move(document), done->path());
    opened();
}

/// Whether the user is about something with the drawing in front, which must not change under it.
bool Window::isInUse() const {
    if (actions_.session().pointer.pressed() || QApplication::mouseButtons() != Qt::NoButton) return true;
    if (QApplication::activeModalWidget() || QApplication::activePopupWidget()) return true;
    const QWidget* const focus = QApplication::focusWidget();
    if (!focus || !isAncestorOf(focus)) return false;
    const auto* field = qobject_cast<const QLineEdit*>(focus);
    if (field && layers_->isAncestorOf(field)) return true; // a title that is edited
    if (!field) field = focus->findChild<QLineEdit*>();     // of a field for numbers
    return field && field->isModified();
}

void Window::showReading() {
    stopReading_->setEnabled(reading_ != nullptr);
    const QString name =
        reading_ ? QString::fromStdString(std::filesystem::path(reading_->path()).filename().string()) : QString();
    canvas_.setNotice(reading_ ? "Reading " + name + "..." : QString());
    if (reading_ && !progress_) {
        progress_ = new QProgressBar(this);
        progress_->setObjectName("reading");
        progress_->setFixedWidth(320);
        statusBar()->insertWidget(0, progress_);
    }
    if (!progress_) return;
    progress_->setVisible(reading_ != nullptr);
    if (!reading_) return;
    const bool isDone = reading_->isDone();
    progress_->setFormat(isDone ? name + " is read, and shows when what you began is done"
                                : "Reading " + name + ": %p %. Escape stops it");
    progress_->setAccessibleName("Reading " + name);
    constexpr int kWhole = 100;
    progress_->setValue(isDone ? kWhole : std::min(static_cast<int>(reading_->share() * kWhole), kWhole - 1));
}

} // namespace easel::app
