// Opening of drawings, beside everything else: the drawing in front stays in use until the next has been read.
#include <QApplication>
#include <QProgressBar>
#include <QStatusBar>

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
        recovery_.drop();
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
    // A gesture or a dialog of the drawing in front ends first.
    if (actions_.session().pointer.pressed() || QApplication::activeModalWidget()) return;
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
    progress_->setFormat("Reading " + name + ": %p %. Escape stops it");
    progress_->setAccessibleName("Reading " + name);
    progress_->setValue(static_cast<int>(reading_->share() * 100));
}

} // namespace easel::app
