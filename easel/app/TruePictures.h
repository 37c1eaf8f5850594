// Pictures of a view by the renderer's process, which draws what cairo alone cannot: gradients, filters, text, images.
// They are made beside the window, the newest request first; older ones are dropped.
#pragma once

#include <QImage>
#include <QObject>

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "app/Scene.h"

namespace easel::app {

class TruePictures {
  public:
    struct Order {
        std::shared_ptr<const std::string> svg;
        double pageWidth = 0;
        double pageHeight = 0;
        Port port;
        std::uint64_t number = 0; ///< which comes back with what is made
    };
    using Ready = std::function<void(std::uint64_t order, const QImage& image, const Port& port)>;
    using Failed = std::function<void(std::uint64_t order, const std::string& why)>;

    /// Both are called in the thread of `receiver`, as long as that lives.
    TruePictures(QObject& receiver, Ready ready, Failed failed);
    ~TruePictures();
    TruePictures(const TruePictures&) = delete;
    TruePictures& operator=(const TruePictures&) = delete;

    void ask(Order order);

  private:
    void work();

    QObject& receiver_;
    Ready ready_;
    Failed failed_;
    std::mutex mutex_;
    std::condition_variable woken_;
    std::optional<Order> next_;
    bool ends_ = false;
    std::thread thread_;
};

} // namespace easel::app
