// The Qt application with one guard around everything that Qt calls, nested loops included: what is thrown is shown and
// the window goes on.
#pragma once

#include <QApplication>

#include <functional>
#include <utility>

namespace easel::app {

class Application final : public QApplication {
  public:
    using QApplication::QApplication;

    /// Told of what was thrown, in words.
    std::function<void(const QString& why)> failed;

    bool notify(QObject* receiver, QEvent* event) override;
    void tellOfThrown() const; ///< to be called where something was caught
    [[nodiscard]] static Application& instance() { return *static_cast<Application*>(qApp); }
};

/// Signals may say more than a handler wants to hear.
template <class Handler, class... Arguments> void hand(const Handler& handler, Arguments&&... arguments) {
    if constexpr (std::is_invocable_v<const Handler&, Arguments...>)
        handler(std::forward<Arguments>(arguments)...);
    else
        handler();
}

/// A handler for a signal: what it throws must not cross Qt, which would lose memory.
template <class Handler> auto guarded(Handler handler) {
    return [handler = std::move(handler)](auto&&... arguments) -> void {
        try {
            hand(handler, std::forward<decltype(arguments)>(arguments)...);
        } catch (...) {
            Application::instance().tellOfThrown();
        }
    };
}

} // namespace easel::app
