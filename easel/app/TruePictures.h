// Pictures of a view by the renderer's process, which draws what cairo alone cannot: gradients, filters, text, images.
// They are made beside the window: of the whole drawing for the newest request, and of its pieces for the newest
// gesture.
#pragma once

#include <QImage>
#include <QObject>

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "app/Pieces.h"

namespace easel::app {

class TruePictures {
  public:
    struct Order {
        std::shared_ptr<const std::string> svg;
        double pageWidth = 0;
        double pageHeight = 0;
        Piece piece;
        std::uint64_t number = 0; ///< of what is asked for together
    };
    using Ready = std::function<void(const Order& order, const QImage& image)>;
    using Failed = std::function<void(const Order& order, const std::string& why)>;

    /// Both are called in the thread of `receiver`, as long as that lives.
    TruePictures(QObject& receiver, Ready ready, Failed failed);
    ~TruePictures();
    TruePictures(const TruePictures&) = delete;
    TruePictures& operator=(const TruePictures&) = delete;

    void ask(Order order);
    /// In this order, instead of those that are not made yet.
    void askPieces(std::vector<Order> orders);

  private:
    void work();
    void start();
    [[nodiscard]] std::optional<Order> take();

    QObject& receiver_;
    Ready ready_;
    Failed failed_;
    std::mutex mutex_;
    std::condition_variable woken_;
    std::optional<Order> next_;
    std::deque<Order> pieces_;
    bool ends_ = false;
    std::thread thread_;
};

} // namespace easel::app
