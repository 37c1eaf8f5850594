// A window over a session of its own, drawn without a display, and hands that use it.
#pragma once

#include <gmock/gmock.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QKeyEvent>
#include <QMessageBox>
#include <QMouseEvent>
#include <QThread>
#include <QTimer>
#include <QWheelEvent>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <memory>

#include "app/Application.h"
#include "app/Dialogs.h"
#include "app/Window.h"
#include "places/Places.h"
#include "support/Folder.h"

namespace desk {

/// The share of pixels with a channel that differs by more than `tolerated` steps.
inline double difference(const QImage& shown, const QImage& right, int tolerated) {
    EXPECT_EQ(shown.size(), right.size());
    int off = 0;
    for (int y = 0; y < right.height(); ++y) {
        for (int x = 0; x < right.width(); ++x) {
            const QRgb a = shown.pixel(x, y);
            const QRgb b = right.pixel(x, y);
            off += std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                             std::abs(qBlue(a) - qBlue(b))}) > tolerated;
        }
    }
    return off / static_cast<double>(right.width() * right.height());
}

class Shown : public testing::Test {
  protected:
    Shown() {
        QObject::connect(&unanswered, &QTimer::timeout, &unanswered, [this] { endWhatNobodyAnswers(); });
        unanswered.start(1000);
        show();
    }
    /// A test that failed half way may hold the button still, and a window asks nothing on its way out.
    ~Shown() override {
        if (window && session && session->pointer.pressed()) canvas().leaveDocument();
        QApplication::processEvents();
    }

    void show(const std::string& record = "") {
        window.reset();
        actions.reset();
        if (!record.empty()) session->close(); // a program that records has just begun
        if (!session) {
            session = std::make_unique<easel::session::Session>();
            session->profile.use(folder.path("profile"));
            session->plugins.load(ORTHOLINE_BUNDLE);
            session->start(); // with alerts that nobody reads
        }
        recorder = std::make_unique<easel::app::Recorder>(record);
        actions = std::make_unique<easel::app::Actions>(*session, *recorder);
        window = std::make_unique<easel::app::Window>(*actions, recovery, settings);
        easel::app::connectDialogs(*actions, *window);
        easel::app::Application::instance().failed = [this](const QString& why) {
            failures.push_back(why.toStdString());
        };
        window->resize(1300, 840); // the screen that is none is smaller
        window->show();
        window->activateWindow();
        settle();
    }

    /// The window and its session, so that another one can use their files.
    void end() {
        canvas().leaveDocument();
        window.reset();
        session.reset();
    }

    /// Lets everything happen that is due, the picture included.
    static void settle() {
        for (int i = 0; i < 20; ++i) QApplication::processEvents(QEventLoop::AllEvents, 50);
    }
    template <class Done> static bool await(Done done) {
        QElapsedTimer clock;
        for (clock.start(); !done(); QThread::msleep(10)) {
            if (clock.hasExpired(60'000)) return false;
            QApplication::processEvents();
        }
        return true;
    }

    void open(const std::string& path) {
        window->open(path);
        EXPECT_TRUE(await([&] { return !window->files().isReading(); }));
    }

    easel::app::Canvas& canvas() { return window->canvas(); }
    easel::model::Document& document() { return *session->document(); }

    void chooseTool(const std::string& title) { actions->selectTool(*session->toolbox.findByTitle(title)); }

    void mouse(QEvent::Type type, easel::model::Point at, Qt::KeyboardModifiers keys = {}) {
        const QPointF place = canvas().fromDocument(at);
        const bool moves = type == QEvent::MouseMove;
        QMouseEvent event(type, place, canvas().mapToGlobal(place), moves ? Qt::NoButton : Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, keys);
        QApplication::sendEvent(&canvas(), &event);
    }
    void press(easel::model::Point at, Qt::KeyboardModifiers keys = {}) { mouse(QEvent::MouseButtonPress, at, keys); }
    void drag(easel::model::Point at, Qt::KeyboardModifiers keys = {}) { mouse(QEvent::MouseMove, at, keys); }
    void release(easel::model::Point at, Qt::KeyboardModifiers keys = {}) {
        mouse(QEvent::MouseButtonRelease, at, keys);
    }
    void wheel(easel::model::Point at, int angle, Qt::KeyboardModifiers keys = Qt::ControlModifier) {
        const QPointF place = canvas().fromDocument(at);
        QWheelEvent event(place, canvas().mapToGlobal(place), {}, {0, angle}, Qt::NoButton, keys, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(&canvas(), &event);
    }
    void stroke(const std::vector<easel::model::Point>& places) {
        press(places.front());
        for (const auto& place : places) drag(place);
        release(places.back());
    }
    static void key(QWidget& widget, int code, const QString& text = {}, Qt::KeyboardModifiers keys = {},
                    QEvent::Type type = QEvent::KeyPress) {
        QKeyEvent event(type, code, keys, text);
        QApplication::sendEvent(&widget, &event);
    }
    void type(const std::string& digits) {
        for (const char digit : digits) key(canvas(), digit, QString(QChar(digit)));
    }

    /// Answers the next dialog, which opens while something else waits for it.
    template <class Dialog> void whenAsked(std::function<void(Dialog&)> answer) {
        auto* const timer = new QTimer(window.get());
        QObject::connect(timer, &QTimer::timeout, timer, [timer, answer = std::move(answer)] {
            auto* const dialog = dynamic_cast<Dialog*>(QApplication::activeModalWidget());
            if (!dialog) return;
            timer->stop();
            timer->deleteLater();
            answer(*dialog);
        });
        timer->start(5);
    }
    void clickWhenAsked(const QString& button) {
        whenAsked<QMessageBox>([this, button](QMessageBox& box) {
            asked = (box.text() + box.informativeText()).toStdString();
            for (QAbstractButton* const each : box.buttons())
                if (each->text().remove('&') == button) return each->click();
            ADD_FAILURE() << "no button " << button.toStdString();
            box.reject();
        });
    }

    /// A dialog that no test expects would wait for ever.
    void endWhatNobodyAnswers() {
        QWidget* const dialog = QApplication::activeModalWidget();
        seconds = dialog && dialog == waiting ? seconds + 1 : 0;
        waiting = dialog;
        if (seconds < 20) return;
        ADD_FAILURE() << "nobody answers " << dialog->windowTitle().toStdString();
        dialog->close();
    }

    Folder folder;
    QTimer unanswered;
    const QWidget* waiting = nullptr; ///< the dialog that was open a second ago, for so many seconds
    int seconds = 0;
    std::unique_ptr<easel::session::Session> session;
    easel::app::Recovery recovery{folder.path("recovery")};
    easel::app::Settings settings{folder.path()};
    std::unique_ptr<easel::app::Recorder> recorder;
    std::unique_ptr<easel::app::Actions> actions;
    std::unique_ptr<easel::app::Window> window;
    std::vector<std::string> failures;
    std::string asked; ///< by the last message box
};

} // namespace desk
