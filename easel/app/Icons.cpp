// Icons as small drawings, painted at the size and density asked for by what paints the art of documents.
#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>

#include <array>
#include <string>
#include <utility>

#include "app/Look.h"
#include "app/PathPainter.h"
#include "app/Port.h"
#include "svg/Reader.h"

namespace easel::app {

namespace {

constexpr double kSide = 24; // units of each drawing

struct Drawing {
    const char* text; ///< strokes take the text's colour
    double opacity = 1;
};
constexpr std::array<Drawing, 24> kDrawings{{
    {R"(<path d="M6 3 L6 19 L10 15.2 L12.6 21 L15 20 L12.4 14.2 L18 14 Z"/>)"},
    {R"(<path fill="COLOR" d="M6 3 L6 19 L10 15.2 L12.6 21 L15 20 L12.4 14.2 L18 14 Z"/>)"},
    {R"(<path d="M8 12.5V6a1.5 1.5 0 0 1 3 0v5-7a1.5 1.5 0 0 1 3 0v7-5.5a1.5 1.5 0 0 1 3 0V14c0 4-2 7-5.5 7C8 21 7 19 5 15.500c-.7-1.4 1.2-2.6 2.2-1.400Z"/>)"},
    {R"(<circle cx="10" cy="10" r="6"/><path d="M14.5 14.5 L20.5 20.5 M7.5 10 H12.5 M10 7.5 V12.5"/>)"},
    {R"(<path d="M2.5 12 C6 6 18 6 21.5 12 C18 18 6 18 2.5 12 Z"/><circle cx="12" cy="12" r="2.8"/>)"},
    {R"(<path d="M4 4 L20 20"/>)", 0.45},
    {R"(<rect x="5.5" y="11" width="13" height="9" rx="1.5"/><path d="M8.5 11 V8 a3.5 3.5 0 0 1 7 0 V11"/>)"},
    {R"(<rect x="5.5" y="11" width="13" height="9" rx="1.5"/><path d="M8.5 11 V8 a3.5 3.5 0 0 1 7 0"/>)", 0.22},
    {R"(<path d="M12 5 V19 M5 12 H19"/>)"},
    {R"(<path d="M4.5 6.5 H19.5 M9 6.5 V4 H15 V6.5 M6.5 6.5 L7.5 20.5 H16.5 L17.5 6.5 M10 10 V17 M14 10 V17"/>)"},
    {R"(<path d="M12 20 V5 M6 11 L12 5 L18 11"/>)"},
    {R"(<path d="M12 4 V19 M6 13 L12 19 L18 13"/>)"},
    {R"(<path d="M6 6 L12 12 L6 18 M12 6 L18 12 L12 18"/>)"},
    {R"(<circle cx="12" cy="12" r="10" fill="#176ad1" stroke="none"/><path stroke="#fff" stroke-width="2" d="M12 11 V17 M12 7 V7.1"/>)"},
    {R"(<circle cx="12" cy="12" r="10" fill="#176ad1" stroke="none"/><path stroke="#fff" stroke-width="2" d="M9 9.500a3 3 0 1 1 4.500 2.600c-1 .6-1.500 1-1.500 2.100 M12 17.500 V17.600"/>)"},
    {R"(<path fill="#e8a317" stroke="#e8a317" d="M12 3 L22 20.500 H2 Z"/><path stroke="#2b2200" stroke-width="2" d="M12 9.500 V14 M12 17.300 V17.400"/>)"},
    {R"(<circle cx="12" cy="12" r="10" fill="#c0392b" stroke="none"/><path stroke="#fff" stroke-width="2" d="M8.500 8.500 L15.500 15.500 M15.500 8.500 L8.500 15.500"/>)"},
    {R"(<g stroke="#fff" stroke-width="0.800"><path fill="#6fb1f7" d="M12 1.500 L21.500 7 L12 12.500 L2.500 7 Z"/><path fill="#176ad1" d="M2.500 7 L12 12.500 V22.500 L2.500 17 Z"/><path fill="#0f4a94" d="M21.500 7 L12 12.500 V22.500 L21.500 17 Z"/></g>)"},
    {R"(<path d="M6.500 6.500 L17.500 17.500 M17.500 6.500 L6.500 17.500"/>)"},
    {R"(<path d="M3 6.500 a1.500 1.500 0 0 1 1.500 -1.500 H9.500 L11.500 7.500 H19.500 a1.500 1.500 0 0 1 1.500 1.500 V17.500 a1.500 1.500 0 0 1 -1.500 1.500 H4.500 a1.500 1.500 0 0 1 -1.500 -1.500 Z"/>)"},
    {R"(<path d="M3 6.500 a1.500 1.500 0 0 1 1.500 -1.500 H9.500 L11.500 7.500 H19.500 a1.500 1.500 0 0 1 1.500 1.500 V17.500 a1.500 1.500 0 0 1 -1.500 1.500 H4.500 a1.500 1.500 0 0 1 -1.500 -1.500 Z M12 10 V16 M9 13 H15"/>)"},
    {R"(<path d="M6 3 H14 L18.500 7.500 V21 H6 Z M14 3 V7.500 H18.500"/>)"},
    {R"(<path d="M20 12 H5 M11 6 L5 12 L11 18"/>)"},
    {R"(<path d="M4 12 H19 M13 6 L19 12 L13 18"/>)"},
}};

constexpr const char* kFrame =
    R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 24 24"><g fill="none" stroke="COLOR" )"
    R"(stroke-width="1.6" stroke-linejoin="round" stroke-linecap="round">)";

std::string textOf(const Drawing& drawing, const QColor& color) {
    std::string text = std::string(kFrame) + drawing.text + "</g></svg>";
    const std::string name = color.name().toStdString();
    for (std::size_t at = text.find("COLOR"); at != text.npos; at = text.find("COLOR")) text.replace(at, 5, name);
    return text;
}

QPixmap draw(const Drawing& drawing, const QColor& color, QSize pixels) {
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    const Port port{.origin = {}, .pixels = pixels.width() / kSide, .size = pixels};
    const Cairo cairo = painterOn(image, QRect(QPoint(0, 0), pixels), port);
    const auto document = svg::read(textOf(drawing, color), "icon");
    cairo_push_group(cairo.get());
    for (const model::Node* const node : document->shownIn({0, 0, kSide, kSide}))
        paint(cairo.get(), *node, 1 / port.pixels);
    cairo_pop_group_to_source(cairo.get());
    cairo_paint_with_alpha(cairo.get(), drawing.opacity);
    return QPixmap::fromImage(image);
}

class Engine final : public QIconEngine {
  public:
    explicit Engine(Symbol symbol) : symbol_(symbol) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        const double scale = painter->device()->devicePixelRatioF();
        QPixmap drawn = pixmap((QSizeF(rect.size()) * scale).toSize(), mode, state);
        drawn.setDevicePixelRatio(scale);
        painter->drawPixmap(rect.topLeft(), drawn);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        const Colors& colors = look().colors;
        const QColor color = mode == QIcon::Disabled ? colors.faint
                             : state == QIcon::On    ? colors.accentText
                                                     : colors.text;
        const auto index = static_cast<std::size_t>(symbol_);
        const QString key =
            QString("easel-icon-%1-%2-%3x%4").arg(index).arg(color.name()).arg(size.width()).arg(size.height());
        QPixmap drawn;
        if (!QPixmapCache::find(key, &drawn)) QPixmapCache::insert(key, drawn = draw(kDrawings[index], color, size));
        return drawn;
    }
    QIconEngine* clone() const override { return new Engine(symbol_); }

  private:
    Symbol symbol_;
};

class PaintedEngine final : public QIconEngine {
  public:
    using Paint = std::function<void(QPainter& painter, const QRect& rect, QIcon::Mode mode)>;
    explicit PaintedEngine(Paint paint) : paint_(std::move(paint)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        paint_(*painter, rect, mode);
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return picture;
    }
    QIconEngine* clone() const override { return new PaintedEngine(paint_); }

  private:
    Paint paint_;
};

} // namespace

QIcon icon(Symbol symbol) { return QIcon(new Engine(symbol)); }

QIcon painted(std::function<void(QPainter& painter, const QRect& rect, QIcon::Mode mode)> paint) {
    return QIcon(new PaintedEngine(std::move(paint)));
}

void paintIcons() {
    const qreal dense = qApp->devicePixelRatio();
    static_cast<void>(icon(Symbol::Select).pixmap(kToolIcon, dense, QIcon::Normal, QIcon::On)); // the first chosen
    for (const Symbol tool : {Symbol::DirectSelect, Symbol::Hand, Symbol::Zoom})
        static_cast<void>(icon(tool).pixmap(kToolIcon, dense));
    for (const Symbol button : {Symbol::Plus, Symbol::Up, Symbol::Down, Symbol::Trash})
        static_cast<void>(icon(button).pixmap(kButtonIcon, dense));
}

} // namespace easel::app
