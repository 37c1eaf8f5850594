// What the window shows against librsvg: icons drawn by others, as they are and after one of their objects has moved.
#include <cairo.h>
#include <librsvg/rsvg.h>

#include <algorithm>
#include <filesystem>
#include <memory>

#include "support/Shown.h"
#include "svg/Files.h"
#include "svg/Writer.h"

namespace {

using desk::difference;
using easel::model::Node;

constexpr std::size_t kIcons = 50;
constexpr int kScale = 3; // pixels a point
/// Of the pixels, that may differ by more than one step in a channel. librsvg draws the window's view, in which the
/// page begins elsewhere than in its own picture, and cairo rounds places to parts of a pixel: ten pixels on edges of
/// 20,736.
constexpr double kTolerance = 0.0005;

/// librsvg's own picture of an SVG, on white.
QImage drawn(const std::string& svg, QSize size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    const std::unique_ptr<RsvgHandle, decltype(&g_object_unref)> handle(
        rsvg_handle_new_from_data(reinterpret_cast<const guint8*>(svg.data()), svg.size(), nullptr), g_object_unref);
    const std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface(
        cairo_image_surface_create_for_data(image.bits(), CAIRO_FORMAT_RGB24, size.width(), size.height(),
                                            static_cast<int>(image.bytesPerLine())),
        cairo_surface_destroy);
    const std::unique_ptr<cairo_t, decltype(&cairo_destroy)> cairo(cairo_create(surface.get()), cairo_destroy);
    const RsvgRectangle page{0, 0, static_cast<double>(size.width()), static_cast<double>(size.height())};
    EXPECT_TRUE(handle && rsvg_handle_render_document(handle.get(), cairo.get(), &page, nullptr));
    return image;
}

class IconsTest : public desk::Shown {
  protected:
    IconsTest() { canvas().restMilliseconds = 0; }

    QImage shown() {
        EXPECT_TRUE(await([&] { return canvas().isTrue(); }));
        return corner();
    }
    /// The page, as it shows at once.
    QImage corner() {
        const QPoint corner = canvas().fromDocument({0, 0}).toPoint();
        return canvas().grab().toImage().copy(QRect(corner, size()));
    }
    QSize size() { return (QSizeF(document().width(), document().height()) * kScale).toSize(); }

    /// Moves the topmost object that can be taken. Returns whether there is one.
    bool moveOne() {
        for (const Node* layer = document().root().firstChild(); layer; layer = layer->next()) {
            for (Node* art = layer->firstChild(); art; art = art->next()) {
                if (art->effectivelyLocked() || art->effectivelyHidden()) continue;
                document().select(*art, true);
                actions->nudge(3.5, 2.25);
                actions->key("A", kAICommandKey | kAIShiftKey);
                return true;
            }
        }
        return false;
    }
};

TEST_F(IconsTest, AreShownAsLibrsvgDrawsThem) {
    std::vector<std::string> icons;
    for (const auto& entry : std::filesystem::recursive_directory_iterator("/usr/share/icons/Tango/scalable"))
        if (entry.path().extension() == ".svg" && !entry.is_symlink()) icons.push_back(entry.path().string());
    ASSERT_GE(icons.size(), kIcons);
    std::sort(icons.begin(), icons.end());
    std::size_t moved = 0;
    for (std::size_t i = 0; i < kIcons; ++i) {
        const std::string& icon = icons[i * icons.size() / kIcons];
        open(icon);
        canvas().zoomTo(kScale);
        EXPECT_LE(difference(shown(), drawn(easel::svg::readFile(icon), size()), 1), kTolerance) << icon;
        if (!moveOne()) continue;
        ++moved;
        const std::string saved = easel::svg::write(document());
        EXPECT_LE(difference(shown(), drawn(saved, size()), 1), kTolerance) << icon << " after a move";
        EXPECT_NE(saved, easel::svg::readFile(icon));
    }
    EXPECT_EQ(moved, kIcons);
}

/// From the first move on, and after the gesture until all is drawn anew.
TEST_F(IconsTest, KeepTheirLooksWhileOneObjectIsDragged) {
    constexpr double kOutlines = 0.05; // of pixels, at most, that the object's own place and its outline take
    const std::string icon = "/usr/share/icons/Tango/scalable/apps/accessories-calculator.svg";
    open(icon);
    canvas().zoomTo(kScale);
    canvas().feedbackShown = false;
    chooseTool("Selection Tool");
    const QImage before = shown();
    const auto isLike = [&](const QImage& right) { return difference(corner(), right, 8) < kOutlines; };
    for (const char* const end : {"Escape", "Return"}) {
        press({26, 24});
        drag({27, 24.5});
        EXPECT_TRUE(isLike(before)) << end;
        drag({30, 26});
        ASSERT_FALSE(canvas().isTrue());
        EXPECT_LT(difference(shown(), drawn(easel::svg::write(document()), size()), 8), kOutlines) << end;
        canvas().restMilliseconds = *end == 'E' ? 0 : 1'000'000;
        actions->key(end, 0);
        if (*end == 'E') {
            EXPECT_LE(difference(shown(), before, 1), kTolerance);
            continue;
        }
        release({30, 26});
        settle();
        EXPECT_TRUE(isLike(drawn(easel::svg::write(document()), size())));
    }
}

/// Of two runs of art, one below and many above another object, Option makes copies in one: pieces of the two are void.
/// What the gesture showed is no picture by the renderer, which the next one waits for.
TEST_F(IconsTest, ComeAnewForWhatAGestureTurnsTo) {
    std::string text = "<svg xmlns='http://www.w3.org/2000/svg' width='150' height='150'><linearGradient id='a'>"
                       "<stop stop-color='red'/><stop offset='1' stop-color='blue'/></linearGradient>";
    for (int i = 0; i < 13; ++i) {
        const std::string place = "x='" + std::to_string(10 + i % 4 * 20) + "' y='" + std::to_string(10 + i / 4 * 20);
        text += "<rect width='15' height='15' " + place + "' fill='" + (i == 1 ? "#0a0'/>" : "url(#a)'/>");
    }
    open(folder.write("runs.svg", text + "</svg>"));
    canvas().zoomTo(kScale);
    canvas().feedbackShown = false;
    chooseTool("Selection Tool");
    Node& layer = document().currentLayer();
    for (Node* art = layer.firstChild(); art; art = art->next())
        if (!art->style().fillServer().empty()) document().select(*art, true);
    press({15, 15});
    drag({20, 20});
    static_cast<void>(shown()); // until its pieces are there
    drag({60, 62}, Qt::AltModifier);
    drag({61, 63}, Qt::AltModifier);
    release({61, 63}, Qt::AltModifier);
    EXPECT_EQ(layer.childCount(), 25U);
    press({2, 140}); // on empty ground, before the renderer can answer
    drag({3, 141});
    constexpr double kOutlines = 0.05;
    EXPECT_LT(difference(shown(), drawn(easel::svg::write(document()), size()), 8), kOutlines);
    release({3, 141});
}

} // namespace
