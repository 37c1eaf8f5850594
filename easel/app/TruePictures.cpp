// One thread that talks to the renderer's process.
#include "app/TruePictures.h"

#include <cmath>
#include <cstring>
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
    if (!thread_.joinable()) thread_ = std::thread([this] { work(); });
    woken_.notify_one();
}

void TruePictures::work() {
    std::unique_ptr<svg::RenderProcess> renderer;
    std::shared_ptr<const std::string> loaded;
    const auto stopWhenEnding = [this](int /*seconds*/) {
        const std::lock_guard lock(mutex_);
        if (ends_) throw Ended();
    };
    while (true) {
        std::unique_lock lock(mutex_);
        woken_.wait(lock, [this] { return ends_ || next_; });
        if (ends_) return;
        const Order order = std::move(*next_);
        next_.reset();
        lock.unlock();
        try {
            if (!renderer) renderer = std::make_unique<svg::RenderProcess>(stopWhenEnding);
            if (loaded != order.svg) {
                loaded = nullptr;
                renderer->ask(render::Request::Load, *order.svg);
                loaded = order.svg;
            }
            const render::ViewRequest view{.width = order.pageWidth,
                                           .height = order.pageHeight,
                                           .scale = order.port.pixels,
                                           .left = order.port.origin.x * order.port.pixels,
                                           .top = order.port.origin.y * order.port.pixels,
                                           .columns = static_cast<std::uint32_t>(order.port.size.width()),
                                           .rows = static_cast<std::uint32_t>(order.port.size.height())};
            render::Packer packed;
            packed << view;
            const QImage image = imageOf(renderer->ask(render::Request::View, packed.bytes), order.port.size);
            QMetaObject::invokeMethod(
                &receiver_, [this, image, order = order.number, port = order.port] { ready_(order, image, port); });
        } catch (const Ended&) {
            return;
        } catch (const std::exception& error) {
            renderer.reset(); // it takes no more requests
            loaded = nullptr;
            QMetaObject::invokeMethod(
                &receiver_, [this, order = order.number, why = std::string(error.what())] { failed_(order, why); });
        }
    }
}

} // namespace easel::app
