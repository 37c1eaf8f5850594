// Opening of drawings, beside everything else: the drawing in front stays in use until the next has been read.
#include <QApplication>
#include <QProgressBar>
#include <QStatusBar>

#include <algorithm>
#include <filesystem>
#include <utility>

#include "app/Files.h"

namespace easel::app {

namespace {

constexpr int kWorthWaitingFor = 20; // milliseconds: what is read by then comes without a word about it
constexpr int kFollowMilliseconds = 20;

} // namespace

void Files::newDocument(double width, double height) {
    giveUpReading();
    actions_.newDocument(width, height);
}

void Files::open(const std::string& path) {
    const auto show = [this, path](std::unique_ptr<model::Document> document) {
        actions_.open(std::move(document), path);
    };
    read({std::make_unique<FileReading>(path, actions_.session().reports), show, {}});
}

void Files::read(Reading reading) {
    giveUpReading();
    reading_ = std::move(reading);
    stateWhenAsked_ = stateInFront();
    const bool isDone = reading_->file->isDone(kWorthWaitingFor);
    if (!isDone) showReading();
    readingTimer_.start(isDone ? 0 : kFollowMilliseconds, this);
}

std::pair<std::uint32_t, std::uint64_t> Files::stateInFront() const {
    model::Document* const front = actions_.document();
    return {actions_.documentNumber(), front ? front->journal().state() : 0};
}

/// The thread ends when it notices; nobody waits for that.
void Files::giveUpReading() {
    if (!reading_) return;
    reading_->file->giveUp();
    givenUp_.push_back(std::move(reading_->file));
    reading_.reset();
    showReading();
}

void Files::followReading() {
    std::erase_if(givenUp_, [](const auto& reading) { return reading->isDone(); });
    if (!reading_ && givenUp_.empty()) return readingTimer_.stop();
    if (!reading_) return;
    if (!reading_->file->isDone()) return showReading();
    if (isInUse()) {
        readingTimer_.start(kFollowMilliseconds, this);
        return showReading();
    }
    const Reading done = std::exchange(reading_, std::nullopt).value();
    showReading();
    // What was done meanwhile is not covered by the answer from before.
    const bool isSame = actions_.document() && stateInFront() == stateWhenAsked_;
    if (!isSame && !mayLose()) return;
    std::unique_ptr<model::Document> document;
    try {
        document = done.file->take();
    } catch (const session::Error&) {
        if (!done.other.empty()) open(done.other);
        throw;
    }
    canvas_.expectReach(done.file->reach());
    done.show(std::move(document));
}

/// Whether the user is about something with the drawing in front, which must not change under it.
bool Files::isInUse() const {
    if (actions_.session().pointer.pressed() || QApplication::mouseButtons() != Qt::NoButton) return true;
    return QApplication::activeModalWidget() || QApplication::activePopupWidget() || isTyping();
}

void Files::showReading() {
    if (readingChanged) readingChanged();
    const std::string path = reading_ ? reading_->file->path() : std::string();
    const QString name = QString::fromStdString(std::filesystem::path(path).filename().string());
    canvas_.setNotice(reading_ ? "Reading " + name + "..." : QString());
    if (reading_ && !progress_) {
        progress_ = new QProgressBar(&window_);
        progress_->setObjectName("reading");
        progress_->setFixedWidth(400);
        window_.statusBar()->insertWidget(0, progress_);
    }
    if (!progress_) return;
    progress_->setVisible(reading_.has_value());
    if (!reading_) return;
    const bool isDone = reading_->file->isDone();
    constexpr int kMostName = 140; // pixels
    const QString shortName = progress_->fontMetrics().elidedText(name, Qt::ElideMiddle, kMostName);
    progress_->setFormat(isDone ? shortName + " is read, and shows when what you began is done"
                                : "Reading " + shortName + ": %p %. Escape stops it");
    progress_->setAccessibleName("Reading " + name);
    constexpr int kWhole = 100;
    progress_->setValue(isDone ? kWhole : std::min(static_cast<int>(reading_->file->share() * kWhole), kWhole - 1));
}

} // namespace easel::app
