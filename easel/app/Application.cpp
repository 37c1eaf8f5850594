// The last resort for what is thrown.
#include "app/Application.h"

#include <cstdio>

namespace easel::app {

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
        tell(error);
    }
    return true;
}

void Application::tell(const std::exception& error) const {
    if (failed)
        failed(QString::fromUtf8(error.what()));
    else
        std::fprintf(stderr, "easel-window: %s\n", error.what());
}

} // namespace easel::app
