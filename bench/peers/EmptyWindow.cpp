// The least that a program with a window has to do: one line on standard output when its first picture shows.
#include <QApplication>
#include <QMainWindow>
#include <QTimer>

#include <cstdio>

namespace {

class Empty final : public QMainWindow {
  protected:
    void paintEvent(QPaintEvent* event) override {
        QMainWindow::paintEvent(event);
        QTimer::singleShot(0, this, [] {
            std::puts("window");
            std::fflush(stdout);
            QApplication::quit();
        });
    }
};

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    Empty window;
    window.resize(1600, 1000);
    window.show();
    return QApplication::exec();
}
