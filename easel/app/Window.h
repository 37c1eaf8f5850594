// The window: menus, toolbox, rulers, canvas, panels and status bar around one document.
#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QToolBar>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "app/Actions.h"
#include "app/Canvas.h"
#include "app/Fields.h"
#include "app/Files.h"
#include "app/LayersPanel.h"
#include "app/Notices.h"
#include "app/Ruler.h"
#include "app/SelectionPanel.h"
#include "app/Settings.h"

class QActionGroup;

namespace easel::app {

class Window final : public QMainWindow {
  public:
    Window(Actions& actions, Recovery& recovery, Settings& settings);
    ~Window() override;

    void open(const std::string& path);
    [[nodiscard]] Files& files() { return files_; }
    /// What went wrong, to be shown.
    void tell(const QString& why);
    [[nodiscard]] Canvas& canvas() { return canvas_; }

  protected:
    bool event(QEvent* event) override;
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
    void makeHelpMenu();
    void showKeys();
    void makeToolbox();
    void makePanels(QWidget& drawing);
    void makeStatusBar();
    QAction& add(QMenu& menu, const QString& text, const QKeySequence& keys, std::function<void()> what);
    /// Greys the item while its menu is open and it could do nothing. Its keys are heard all the same.
    void greyUnless(QAction& action, std::function<bool()> can);
    void makeConnections();
    void fitScreen();
    QAction& addKey(QMenu& menu, const QString& text, const char* keys, const char* name, session::Modifiers held);
    void addSwitch(QMenu& menu, const QString& text, const QKeySequence& keys, bool on,
                   std::function<void(bool)> change);
    void addGridItems(QMenu& menu);
    void addKeyItems(QMenu& menu);

    [[nodiscard]] bool isTyping() const;
    void commitEntry();
    void tellLasting(Files::Notice about, const QString& text);

    void refresh(); ///< after an act
    void showTitle();
    void showView();
    QAction& addTool(const QIcon& picture, const QString& title, const QStringList& keys, std::function<void()> what);
    void fillToolbox();
    void showTools();
    void showHint();
    void fillPluginMenu(QMenu& menu);
    void setDark(bool dark);
    void startClock();

    Actions& actions_;
    Settings& settings_;
    Canvas canvas_;
    Files files_;
    Ruler across_{canvas_, Qt::Horizontal};
    Ruler down_{canvas_, Qt::Vertical};
    LayersPanel* layers_ = nullptr;
    SelectionPanel* selection_ = nullptr;
    QToolBar toolbox_;
    QActionGroup* tools_ = nullptr;
    std::map<AIToolHandle, QAction*> toolActions_;
    unsigned shownTools_ = ~0U; ///< the toolbox's count of changes when it was shown
    Notices notices_{this};
    QLabel place_;
    Hint hint_;
    QString remark_; ///< in place of the tool's hint
    ZoomField* zoom_ = nullptr;
    session::Modifiers toggled_ = 0;
    std::size_t reportsShown_ = 0;
    bool tells_ = false;      ///< a box with a failure is open
    std::uint32_t shown_ = 0; ///< number of the document
    QAction* stopReading_ = nullptr;

    QBasicTimer clockTimer_;
    QElapsedTimer clock_; ///< for the timers of plug-ins
};

} // namespace easel::app
