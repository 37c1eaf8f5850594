// One thread that talks to the renderer's process.
#include "app/TruePictures.h"

#include <cmath>
#include <cstring>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "svg/RenderProcess.h"

namespace easel::app {

namespace {

class Ended : public std::exception {};

QImage imageOf(const std::string& pixels, QSize size) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    const std::size_t stride = static_cast<std::size_t>(size.width()) * 4;
    if (pixels.size() != stride * static_cast<std::size_t>(size.height()))
        throw svg::RenderError("the renderer sent a picture of another size");
    for (int row = 0; row < size.height(); ++row)
        std::memcpy(image.scanLine(row), pixels.data() + stride * static_cast<std::size_t>(row), stride);
    return image;
}

/// The drawing that was asked for last, and the renderer with what of it was drawn last.
class Drawing {
  public:
    explicit Drawing(svg::Waiting waiting) : waiting_(std::move(waiting)) {}

    QImage picture(const TruePictures::Order& order) {
        const Piece& piece = order.piece;
        if (svg_ != order.svg) cutter_.reset();
        if (!renderer_) renderer_ = std::make_unique<svg::RenderProcess>(waiting_);
        if (svg_ != order.svg || !isWhole_ || !piece.shown.empty()) {
            svg_ = nullptr; // in case of failure
            if (!piece.shown.empty() && !cutter_) cutter_.emplace(*order.svg);
            renderer_->ask(render::Request::Load, piece.shown.empty() ? *order.svg : cutter_->cut(piece.shown));
            svg_ = order.svg;
            isWhole_ = piece.shown.empty();
        }
        const Port& port = piece.port;
        const render::ViewRequest view{.width = order.pageWidth,
                                       .height = order.pageHeight,
                                       .scale = port.pixels,
                                       .left = port.origin.x * port.pixels,
                                       .top = port.origin.y * port.pixels,
                                       .columns = static_cast<std::uint32_t>(port.size.width()),
                                       .rows = static_cast<std::uint32_t>(port.size.height())};
        render::Packer packed;
        packed << view;
        return imageOf(renderer_->ask(render::Request::View, packed.bytes), port.size);
    }

    /// After a failure: the renderer takes no more requests.
    void end() {
        renderer_.reset();
        svg_ = nullptr;
    }

  private:
    svg::Waiting waiting_;
    std::unique_ptr<svg::RenderProcess> renderer_;
    std::shared_ptr<const std::string> svg_;
    std::optional<Cutter> cutter_; ///< of that
    bool isWhole_ = false;         ///< what the renderer has
};

} // namespace

TruePictures::TruePictures(QObject& receiver, Ready ready, Failed failed)
    : receiver_(receiver), ready_(std::move(ready)), failed_(std::move(failed)) {}

TruePictures::~TruePictures() {
    {
        const std::lock_guard lock(mutex_);
        ends_ = true;
    }
    woken_.notify_one();
    if (thread_.joinable()) thread_.join();
}

void TruePictures::ask(Order order) {
    {
        const std::lock_guard lock(mutex_);
        next_ = std::move(order);
    }
    start();
}

void TruePictures::askPieces(std::vector<Order> orders) {
    {
        const std::lock_guard lock(mutex_);
        pieces_.assign(std::make_move_iterator(orders.begin()), std::make_move_iterator(orders.end()));
        if (pieces_.empty()) return;
    }
    start();
}

void TruePictures::start() {
    if (!thread_.joinable()) thread_ = std::thread([this] { work(); });
    woken_.notify_one();
}

/// Waits for the next order, those of a gesture first. None at the end.
std::optional<TruePictures::Order> TruePictures::take() {
    std::unique_lock lock(mutex_);
    woken_.wait(lock, [this] { return ends_ || next_ || !pieces_.empty(); });
    if (ends_) return std::nullopt;
    if (pieces_.empty()) return std::exchange(next_, std::nullopt);
    Order order = std::move(pieces_.front());
    pieces_.pop_front();
    return order;
}

void TruePictures::work() {
    Drawing drawing([this](int /*seconds*/) {
        const std::lock_guard lock(mutex_);
        if (ends_) throw Ended();
    });
    while (auto order = take()) {
        try {
            const QImage image = drawing.picture(*order);
            QMetaObject::invokeMethod(&receiver_, [this, image, order = *std::move(order)] { ready_(order, image); });
        } catch (const Ended&) {
            return;
        } catch (const std::exception& error) {
            drawing.end();
            QMetaObject::invokeMethod(&receiver_, [this, order = *std::move(order), why = std::string(error.what())] {
                failed_(order, why);
            });
        }
    }
}

} // namespace easel::app
