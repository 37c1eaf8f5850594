// The window: menus, toolbox, rulers, canvas, panels and status bar around one document.
#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QFileSystemWatcher>
#include <QLabel>
#include <QMainWindow>
#include <QToolBar>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "app/Actions.h"
#include "app/Canvas.h"
#include "app/Fields.h"
#include "app/FileReading.h"
#include "app/LayersPanel.h"
#include "app/Recovery.h"
#include "app/Ruler.h"
#include "app/SelectionPanel.h"
#include "app/Settings.h"

class QActionGroup;
class QMessageBox;
class QProgressBar;

namespace easel::app {

class Window final : public QMainWindow {
  public:
    Window(Actions& actions, Recovery& recovery, Settings& settings);
    ~Window() override;

    /// Begins to read the file; it is shown when that is done.
    void open(const std::string& path);
    [[nodiscard]] bool isReading() const { return reading_ != nullptr; }
    void newDocument(double width, double height);
    /// Offers what an earlier run left unsaved.
    void offerRecovered();
    /// Writes the recovery copy now, if there is unsaved work.
    void keepWork(bool atOnce = false); ///< else after the running gesture, if one is
    /// What went wrong, to be shown.
    void tell(const QString& why);
    [[nodiscard]] Canvas& canvas() { return canvas_; }

  protected:
    void closeEvent(QCloseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    // Making
    void makeFileMenu();
    void makeEditMenu();
    void makeObjectMenu();
    void makeViewMenu();
    void makePluginMenu();
    void makeToolbox();
    void makePanels(QWidget& drawing);
    void makeStatusBar();
    QAction& add(QMenu& menu, const QString& text, const QKeySequence& keys, std::function<void()> what);
    void addKey(QMenu& menu, const QString& text, const char* keys, const char* name, session::Modifiers held);
    void addSwitch(QMenu& menu, const QString& text, const QKeySequence& keys, bool on,
                   std::function<void(bool)> change);
    void addGridItems(QMenu& menu);

    // Files
    bool saveAs();
    bool save();
    bool saveTo(const std::string& path);
    void openAsked();
    [[nodiscard]] QString askWhere(const QString& title, const QString& proposed, const QString& kinds,
                                   const QStringList& ends);
    void exportAs(const QString& end); ///< of the file's name, such as ".png"
    enum class Losing { Front, All };
    [[nodiscard]] bool mayLose(Losing what = Losing::Front); ///< asks where there is unsaved work
    bool save(std::uint32_t number);                         ///< the document of this number
    int ask(QMessageBox& question);
    void fillRecentMenu(QMenu& menu);
    void reopen();
    void read(const std::string& path, std::function<void()> opened);
    void followReading();
    void giveUpReading();
    [[nodiscard]] bool isInUse() const;
    void showReading();
    void noteFile(); ///< the drawing has a file: watches it, and remembers it
    void noteWork();
    void dropKept();

    void refresh(); ///< after an act
    void showTitle();
    void showView();
    QAction& addTool(const QIcon& picture, const QString& title, const QStringList& keys, std::function<void()> what);
    void fillToolbox();
    void showTools();
    void fillPluginMenu(QMenu& menu);
    void setDark(bool dark);
    void startClock();

    Actions& actions_;
    Recovery& recovery_;
    Settings& settings_;
    QFileSystemWatcher files_; ///< the drawing's own
    Canvas canvas_;
    Ruler across_{canvas_, Qt::Horizontal};
    Ruler down_{canvas_, Qt::Vertical};
    LayersPanel* layers_ = nullptr;
    SelectionPanel* selection_ = nullptr;
    QToolBar toolbox_;
    QActionGroup* tools_ = nullptr;
    std::map<AIToolHandle, QAction*> toolActions_;
    unsigned shownTools_ = ~0U; ///< the toolbox's count of changes when it was shown
    QLabel place_;
    QLabel hint_;
    ZoomField* zoom_ = nullptr;
    session::Modifiers toggled_ = 0;
    std::size_t reportsShown_ = 0;
    bool tells_ = false;      ///< a box with a failure is open
    std::uint32_t shown_ = 0; ///< number of the document
    std::string shownPath_;   ///< in the title
    // What is being read
    std::unique_ptr<FileReading> reading_;
    std::function<void()> opened_;     ///< what follows
    std::uint64_t stateWhenAsked_ = 0; ///< of the drawing in front, when the user agreed to lose its changes
    std::vector<std::unique_ptr<FileReading>> givenUp_;
    QAction* stopReading_ = nullptr;
    QProgressBar* progress_ = nullptr;
    QBasicTimer readingTimer_;

    QBasicTimer clockTimer_;
    QElapsedTimer clock_; ///< for the timers of plug-ins
    QBasicTimer keepTimer_;
    std::vector<std::uint64_t> notedWork_; ///< as in Actions::unsavedWork
};

} // namespace easel::app
