// The last resort for what is thrown.
#include "app/Application.h"

#include <cstdio>
#include <exception>
#include <string>

namespace easel::app {

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        tellOfThrown();
    }
    return true;
}

void Application::tellOfThrown() const {
    std::string why = "something was thrown that says nothing of itself";
    try {
        throw;
    } catch (const std::exception& error) {
        why = error.what();
    } catch (...) { // no words of its own
    }
    if (failed)
        failed(QString::fromStdString(why));
    else
        std::fprintf(stderr, "easel-window: %s\n", why.c_str());
}

} // namespace easel::app
