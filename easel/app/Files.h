// The window's drawings and their files: what is opened and saved, what is asked before work is lost, what is kept of
// it meanwhile, and what other programs do to the file in front.
#pragma once

#include <QBasicTimer>
#include <QMainWindow>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "app/Actions.h"
#include "app/Canvas.h"
#include "app/FileReading.h"
#include "app/Recovery.h"
#include "app/Settings.h"
#include "svg/Files.h"

class QMenu;
class QProgressBar;

namespace easel::app {

/// Plug-ins may close a drawing, or bring another to the front, whenever something is asked: what was asked about is
/// known by its number. What cannot be done throws session::Error.
class Files final : public QObject {
  public:
    /// Asks over the window, and tells in its status bar what is soon over.
    Files(Actions& actions, Recovery& recovery, Settings& settings, Canvas& canvas, QMainWindow& window);
    ~Files() override;

    /// What lasts. Told in words of what is so from now on; in none when it is over.
    enum class Notice { FileChanged, NotKept };
    std::function<void(Notice about, const QString& text)> noticed;

    // Opening; the user has agreed to lose what is in front
    void newDocument(double width, double height);
    /// Begins to read the file; it is shown when that is done, and nothing is begun in the drawing in front.
    void open(const std::string& path);
    [[nodiscard]] bool isReading() const { return reading_.has_value(); }
    void giveUpReading();
    std::function<void()> readingChanged; ///< called when one begins and ends
    std::function<bool()> isTyping;       ///< whether something is half typed that the drawing must wait for

    // Opening, with that question
    void openAsked();
    void reopen();
    void fillRecentMenu(QMenu& menu);
    enum class Losing { Front, All };
    [[nodiscard]] bool mayLose(Losing what = Losing::Front); ///< asks where there is unsaved work

    // Saving, of the drawing in front; false where the user has changed his mind
    bool save();
    bool saveAs();
    void exportAs(const QString& end); ///< of the file's name, such as ".png"

    // Unsaved work, and what others do
    /// To be called after each act: notes the file and what is unsaved.
    void follow();
    /// Offers what an earlier run left unsaved.
    void offerRecovered();
    /// Writes the recovery copies now, if there is unsaved work. Returns why it could not be, if so.
    std::string keepWork(bool atOnce = false); ///< else after the running gesture, if one is
    /// Asks about all unsaved work, of which nothing is kept then; false where the window stays.
    [[nodiscard]] bool end();

  protected:
    void timerEvent(QTimerEvent* event) override;

  private:
    /// What is being read.
    struct Reading {
        std::unique_ptr<FileReading> file;
        std::function<void(std::unique_ptr<model::Document>)> show;
        std::string other; ///< what the user asked for before, opened when this cannot be
    };
    [[nodiscard]] std::pair<std::uint32_t, std::uint64_t> stateInFront() const; ///< of which drawing, too
    void read(Reading reading);
    void followReading();
    void showReading();
    [[nodiscard]] bool isInUse() const;

    [[nodiscard]] std::vector<std::uint32_t> unsaved(Losing what) const; ///< numbers
    bool save(std::uint32_t number);
    bool saveTo(const std::string& path, std::uint32_t number);
    void bringToFront(std::uint32_t number);
    [[nodiscard]] QString askWhere(const QString& title, const QString& proposed, const QString& kinds,
                                   const QStringList& ends);
    [[nodiscard]] bool mayReplace(const QString& text, const QString& button);
    void noteWork();
    void lookAtFile();
    void say(const QString& text);

    Actions& actions_;
    Recovery& recovery_;
    Settings& settings_;
    Canvas& canvas_;
    QMainWindow& window_;
    std::optional<Reading> reading_;
    std::pair<std::uint32_t, std::uint64_t> stateWhenAsked_; ///< when the user agreed to lose changes
    std::vector<std::unique_ptr<FileReading>> givenUp_;
    QProgressBar* progress_ = nullptr;
    QBasicTimer readingTimer_;
    QBasicTimer keepTimer_;
    std::vector<std::uint64_t> notedWork_; ///< as in Actions::unsavedWork
    std::string notedPath_;
    QBasicTimer lookTimer_;
    std::tuple<std::uint32_t, std::string, std::optional<svg::FileStamp>> looked_; ///< at which drawing's file
};

} // namespace easel::app
