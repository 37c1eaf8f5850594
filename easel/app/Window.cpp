// Putting the window together, and keeping it true to the session.
#include "app/Window.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QFile>
#include <QGridLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScreen>
#include <QSplitter>
#include <QStatusBar>
#include <QTimer>
#include <QToolButton>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <functional>
#include <tuple>
#include <utility>

#include "app/Application.h"
#include "app/Look.h"
#include "app/Question.h"
#include "hostapi/AIToolNames.h"
#include "session/base/HostError.h"

namespace easel::app {

namespace {

constexpr int kClockMilliseconds = 20;
constexpr int kReportMilliseconds = 10'000;

/// In place of an icon that is not there.
QIcon letterIcon(const QString& letter) {
    QIcon icon;
    constexpr int kDense = 2;
    for (const auto& [state, color] :
         {std::pair(QIcon::Off, look().colors.text), {QIcon::On, look().colors.accentText}}) {
        QPixmap picture(kToolIcon * kDense);
        picture.setDevicePixelRatio(kDense);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        QFont font = painter.font();
        font.setBold(true);
        painter.setFont(font);
        painter.setPen(color);
        painter.drawText(QRect({}, kToolIcon), Qt::AlignCenter, letter);
        icon.addPixmap(picture, QIcon::Normal, state);
    }
    return icon;
}

/// The icon of a plug-in's tool, from its bundle; sharp on dense screens too.
QIcon toolIcon(const session::Tool& tool) {
    const auto fileOf = [&](int number) {
        const std::string file = tool.owner->filePath + "/Contents/Resources/" + std::to_string(number) + ".png";
        return QString::fromStdString(file); // Qt finds the one of double resolution beside it
    };
    if (!QFile::exists(fileOf(tool.lightIcon))) return letterIcon(QString::fromStdString(tool.title).left(1));
    const bool dark = look().colors.dark;
    QIcon icon(fileOf(dark ? tool.darkIcon : tool.lightIcon));
    // The chosen tool's icon lies on the accent colour.
    icon.addFile(fileOf(dark ? tool.lightIcon : tool.darkIcon), {}, QIcon::Normal, QIcon::On);
    return icon;
}

/// What the tool does with which keys. Those of plug-ins have it in their bundle, beside the icon.
QString hintFor(const session::Tool& tool, bool dragging) {
    if (dragging) return "Digits: exact length.  Backspace: correct.  Return: done.  Esc: take back";
    if (tool.builtin && tool.name == kAISelectionTool)
        return "Click or drag to select, drag what is selected to move it.  Shift: add, eight ways.  Alt: copy";
    if (tool.builtin)
        return "Click or drag to select anchors, drag them or their handles.  Shift: add, eight ways.  Alt: copy, "
               "corner";
    try {
        return QString::fromStdString(session::resource(*tool.owner, "txt", tool.lightIcon)).trimmed();
    } catch (const session::HostError&) {
        return QString::fromStdString(tool.tip.empty() ? tool.title : tool.tip) + ": drag";
    }
}

/// A letter of the tool's title that no other tool has, first of its last words: what tells tools of a family apart.
QString letterFor(const session::Tool& tool, QString& taken) {
    QStringList words = QString::fromStdString(tool.title).toUpper().split(' ', Qt::SkipEmptyParts);
    if (words.size() > 1) words.removeAll("TOOL");
    for (auto word = words.crbegin(); word != words.crend(); ++word) {
        for (const QChar letter : *word) {
            if (letter < 'A' || letter > 'Z' || taken.contains(letter)) continue;
            taken += letter;
            return letter;
        }
    }
    return {};
}

/// A report without the word for whose fault it is, unless it is a plug-in's.
QString forUsers(const std::string& report) {
    QString text = QString::fromStdString(report);
    for (const QString& blame : {QString("user data: "), QString("host: ")})
        if (text.startsWith(blame)) return text.mid(blame.size());
    return text;
}

} // namespace

Window::Window(Actions& actions, Recovery& recovery, Settings& settings)
    : actions_(actions), settings_(settings), canvas_(actions), files_(actions, recovery, settings, canvas_, *this) {
    setObjectName("window");
    auto* const middle = new QWidget(this);
    auto* const grid = new QGridLayout(middle);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    grid->addWidget(&notices_, 0, 0, 1, 2);
    grid->addWidget(&across_, 1, 1);
    grid->addWidget(&down_, 2, 0);
    grid->addWidget(&canvas_, 2, 1);
    makeFileMenu();
    makeEditMenu();
    makeObjectMenu();
    makeViewMenu();
    makePluginMenu();
    makeHelpMenu();
    makeToolbox();
    awaitFonts(); // what follows measures its texts
    makePanels(*middle);
    makeStatusBar();
    actions_.done = [this] { refresh(); };
    actions_.session().documents.goes = [this](const model::Document& document) {
        if (actions_.session().documents.numberOf(document) != shown_) return;
        canvas_.leaveDocument();
        shown_ = 0;
    };
    makeConnections();
    fitScreen();
    if (settings_.maximized()) setWindowState(Qt::WindowMaximized);
    showTools();
    showTitle();
    startClock();
    canvas_.setFocus();
}

void Window::makeConnections() {
    canvas_.viewChanged = [this] { showView(); };
    canvas_.remark = [this](const std::string& text) {
        remark_ = QString::fromStdString(text);
        showHint();
    };
    canvas_.tell = [this](const std::string& text) { notices_.tell(Notices::Picture, QString::fromStdString(text)); };
    canvas_.heldByToggles = [this] { return toggled_; };
    canvas_.keys = settings_.keys();
    files_.noticed = [this](Files::Notice about, const QString& text) { tellLasting(about, text); };
    files_.isTyping = [this] { return isTyping(); };
    files_.readingChanged = [this] { stopReading_->setEnabled(files_.isReading()); };
}

/// The size of a screen in points depends on its density, and the frame needs some of it.
void Window::fitScreen() {
    constexpr QSize kFrame(16, 48);
    const QSize wanted = settings_.windowSize();
    const QSize room = screen()->availableSize();
    resize(wanted.boundedTo(room) == wanted ? wanted : wanted.boundedTo(room - kFrame));
}

/// Documents may end after it.
Window::~Window() {
    hide(); // a title that is half typed counts as long as there is a list of layers
    actions_.session().documents.goes = {};
}

// Making

void Window::makeToolbox() {
    toolbox_.setObjectName("toolbox");
    toolbox_.setMovable(false);
    toolbox_.setOrientation(Qt::Vertical);
    toolbox_.setIconSize(kToolIcon);
    toolbox_.setWindowTitle("Tools");
    addToolBar(Qt::LeftToolBarArea, &toolbox_);
}

QAction& Window::addTool(const QIcon& picture, const QString& title, const QStringList& keys,
                         std::function<void()> what) {
    QAction* const action = toolbox_.addAction(picture, title);
    action->setCheckable(true);
    action->setToolTip(title + (keys.isEmpty() ? QString() : " (" + keys.join(" or ") + ')'));
    action->setShortcuts(QList<QKeySequence>(keys.begin(), keys.end()));
    tools_->addAction(action);
    connect(action, &QAction::triggered, this, guarded([this, what = std::move(what)] {
                commitEntry();
                what();
                canvas_.setFocus();
            }));
    return *action;
}

/// The host's tools, those of plug-ins, then the window's own.
void Window::fillToolbox() {
    for (QAction* const action : toolbox_.actions()) action->deleteLater(); // one of them may be under way
    toolbox_.clear();
    toolActions_.clear();
    delete tools_;
    tools_ = new QActionGroup(this);
    int number = 0;
    QString taken = "VAHZ";
    for (const session::Tool* const tool : actions_.session().toolbox.all()) {
        const bool isFirst = toolActions_.empty();
        if (tool->owner && number == 0) toolbox_.addSeparator();
        constexpr int kMostKeys = 9;
        QStringList keys;
        if (tool->builtin)
            keys << (isFirst ? "V" : "A");
        else
            keys << letterFor(*tool, taken);
        if (!tool->builtin && ++number <= kMostKeys) keys << QString::number(number);
        keys.removeAll(QString());
        const QIcon picture = tool->builtin ? icon(isFirst ? Symbol::Select : Symbol::DirectSelect) : toolIcon(*tool);
        QAction& action = addTool(picture, QString::fromStdString(tool->title), keys, [this, handle = tool->handle] {
            canvas_.setHandling(Handling::Tool);
            session::Tool* const chosen = actions_.session().toolbox.find(handle);
            if (chosen) actions_.selectTool(*chosen);
        });
        toolActions_[tool->handle] = &action;
        toolbox_.widgetForAction(&action)->installEventFilter(this);
    }
    toolbox_.addSeparator();
    const auto handle = [this](Handling which) {
        return [this, which] {
            canvas_.setHandling(which);
            showTools();
        };
    };
    addTool(icon(Symbol::Hand), "Hand", {"H"}, handle(Handling::Hand));
    addTool(icon(Symbol::Zoom), "Zoom", {"Z"}, handle(Handling::Zoom));
}

void Window::showTools() {
    const session::ToolChanges& changes = actions_.session().toolbox.changes();
    const unsigned count = changes.members + changes.titles + changes.tips + changes.looks;
    if (std::exchange(shownTools_, count) != count) fillToolbox();
    const session::Tool& current = *actions_.session().toolbox.current();
    if (canvas_.handling() == Handling::Tool) toolActions_.at(current.handle)->setChecked(true);
    showHint();
}

void Window::showHint() {
    const session::Session& session = actions_.session();
    if (!remark_.isEmpty() || !canvas_.hasDocument()) return hint_.setText(remark_);
    switch (canvas_.handling()) {
    case Handling::Hand: return hint_.setText("Drag to move the view");
    case Handling::Zoom: return hint_.setText("Click to zoom in, Alt-click to zoom out");
    default: hint_.setText(hintFor(*session.toolbox.current(), session.pointer.pressed()));
    }
}

/// Items of menus have nothing to say in the status bar, which keeps what stands there.
bool Window::event(QEvent* event) { return event->type() == QEvent::StatusTip || QMainWindow::event(event); }

/// A double click on a tool asks it for its dialog.
bool Window::eventFilter(QObject* object, QEvent* event) {
    if (event->type() != QEvent::MouseButtonDblClick) return false;
    for (const auto& [handle, action] : toolActions_) {
        if (toolbox_.widgetForAction(action) != object) continue;
        session::Tool* const tool = actions_.session().toolbox.find(handle);
        if (!tool) return false;
        // When the click itself is through: the dialog would take the release of the button.
        QTimer::singleShot(0, this, guarded([this, which = handle] {
                               session::Tool* const asked = actions_.session().toolbox.find(which);
                               if (asked) actions_.editTool(*asked);
                           }));
        return true;
    }
    return false;
}

/// Right of the drawing, as wide as the user makes them.
void Window::makePanels(QWidget& drawing) {
    layers_ = new LayersPanel(actions_);
    layers_->acts = [this] { commitEntry(); };
    layers_->passedOn = [this](QKeyEvent& event) {
        canvas_.setFocus();
        QApplication::sendEvent(&canvas_, &event);
    };
    selection_ = new SelectionPanel(actions_);
    selection_->entered = [this] { canvas_.setFocus(); };
    selection_->refused = [this](const QString& why) { statusBar()->showMessage(why, kReportMilliseconds); };
    selection_->refresh(); // nothing is selected before there is a drawing
    auto* const panels = new QWidget(this);
    auto* const column = new QVBoxLayout(panels);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(layers_, 1);
    column->addWidget(selection_);
    panels->setMinimumWidth(230);
    auto* const split = new QSplitter(this);
    split->addWidget(&drawing);
    split->addWidget(panels);
    split->setStretchFactor(0, 1);
    split->setChildrenCollapsible(false);
    split->setHandleWidth(1);
    setCentralWidget(split);
}

void Window::makeStatusBar() {
    statusBar()->setSizeGripEnabled(false);
    statusBar()->setContentsMargins(0, 0, 8, 0);
    hint_.setContentsMargins(8, 0, 0, 0);
    hint_.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a long one makes no window wider
    statusBar()->addWidget(&hint_, 1);
    // Many window managers keep Alt and the mouse to themselves.
    struct Toggle {
        const char* text;
        session::Modifiers bit;
    };
    for (const Toggle& toggle : {Toggle{"Shift", kAIShiftKey}, {"Option", kAIOptionKey}, {"Command", kAICommandKey}}) {
        auto* const button = new QToolButton(this);
        button->setText(toggle.text);
        button->setObjectName(QString("hold") + toggle.text);
        button->setCheckable(true);
        button->setFocusPolicy(Qt::NoFocus);
        button->setAccessibleName(QString("Hold ") + toggle.text);
        button->setToolTip(QString("Hold ") + toggle.text + " for every gesture, as if the key were down");
        connect(button, &QToolButton::toggled, this,
                guarded([this, bit = toggle.bit](bool on) { toggled_ = on ? toggled_ | bit : toggled_ & ~bit; }));
        statusBar()->addPermanentWidget(button);
    }
    place_.setMinimumWidth(150);
    statusBar()->addPermanentWidget(&place_);
    zoom_ = new ZoomField(this);
    zoom_->setObjectName("zoom");
    zoom_->entered = [this](std::optional<double> zoom) {
        canvas_.setFocus(); // first: the field shows no zoom while it is typed into
        if (zoom) canvas_.zoomTo(*zoom);
        showView();
    };
    zoom_->wheeled = [this](double notches) {
        constexpr double kStep = 1.2; // as the wheel does over the drawing
        canvas_.zoomBy(std::pow(kStep, notches));
    };
    statusBar()->addPermanentWidget(zoom_);
}

// Keeping true

void Window::refresh() {
    const bool isAnother = shown_ != actions_.documentNumber();
    if (isAnother) {
        shown_ = actions_.documentNumber();
        notices_.drop(Notices::Picture);
        canvas_.showDocument();
        canvas_.fitPage();
    }
    canvas_.refresh();
    if (!actions_.session().pointer.pressed()) files_.follow();
    const std::vector<std::string>& said = actions_.session().reports.lines();
    if (std::exchange(reportsShown_, said.size()) < said.size())
        statusBar()->showMessage(forUsers(said.back()), kReportMilliseconds);
    showTools();
    // Panels wait for the gesture's end: they would cost more than the drag.
    if (!actions_.session().pointer.pressed()) {
        layers_->refresh();
        selection_->refresh();
        showTitle();
    }
    showView();
}

void Window::showTitle() {
    const std::string& path = actions_.path();
    const std::string name = path.empty() ? "Untitled" : std::filesystem::path(path).filename().string();
    setWindowTitle(actions_.document() ? QString::fromStdString(name) + "[*] — Easel" : QString("Easel[*]"));
    setWindowModified(actions_.isModified());
}

void Window::showView() {
    across_.update();
    down_.update();
    const auto mouse = canvas_.mouse();
    place_.setText(mouse ? "X " + QString::number(mouse->x, 'f', 2) + "  Y " + QString::number(mouse->y, 'f', 2) + " pt"
                         : QString());
    zoom_->showZoom(canvas_.zoom());
}

void Window::setDark(bool dark) {
    applyLook(dark);
    actions_.session().screen.setBrightness(dark ? 0 : 1);
    settings_.setDark(dark);
    shownTools_ = ~0U;
    refresh();
}

// Files

/// Plug-ins may have brought tools.
void Window::open(const std::string& path) {
    files_.open(path);
    showTools();
}

void Window::closeEvent(QCloseEvent* event) {
    event->ignore(); // also when saving fails
    commitEntry();
    if (!files_.end()) return;
    settings_.setWindow(normalGeometry().size(), isMaximized());
    event->accept();
}

void Window::tellLasting(Files::Notice about, const QString& text) {
    const bool isOfFile = about == Files::Notice::FileChanged;
    const auto kind = isOfFile ? Notices::FileChanged : Notices::NotKept;
    if (text.isEmpty()) return notices_.drop(kind);
    if (!isOfFile || !std::filesystem::exists(actions_.path())) return notices_.tell(kind, text);
    notices_.tell(kind, text, "Reopen", [this] {
        commitEntry();
        files_.reopen();
    });
}

/// The field of the window that has the keys, where it is for text.
bool Window::isTyping() const {
    const QWidget* const focus = focusWidget();
    if (!focus) return false;
    const auto* field = qobject_cast<const QLineEdit*>(focus);
    if (field && layers_->isAncestorOf(field)) return true; // a title that is edited
    if (!field) field = focus->findChild<QLineEdit*>();     // of a field for numbers
    return field && field->isModified();
}

/// What is half typed counts before a command acts.
void Window::commitEntry() {
    QWidget* const focus = focusWidget();
    if (auto* const number = qobject_cast<QAbstractSpinBox*>(focus)) return number->interpretText();
    if (qobject_cast<QLineEdit*>(focus) && layers_->isAncestorOf(focus)) canvas_.setFocus();
}

// Time

void Window::startClock() {
    clock_.start();
    clockTimer_.start(kClockMilliseconds, this);
}

void Window::timerEvent(QTimerEvent* event) {
    if (event->timerId() != clockTimer_.timerId()) return QMainWindow::timerEvent(event);
    // Begun anew before plug-ins are called: a timer does not fire in a dialog that its own handler has opened.
    clockTimer_.start(kClockMilliseconds, this);
    actions_.passTime(static_cast<int>(clock_.restart()));
}

void Window::tell(const QString& why) {
    if (tells_)
        return statusBar()->showMessage(why, kReportMilliseconds); // what fails again and again shall not pile up boxes
    const QScopedValueRollback<bool> telling(tells_, true);
    canvas_.cancelGesture();
    ask(*this, {.text = why, .more = {}, .choices = {{"OK", QMessageBox::AcceptRole}}, .name = "failure"});
}

} // namespace easel::app
