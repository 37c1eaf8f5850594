// Pictures of drawings: what they show, how large they are, and what becomes of those that the renderer dies of.
#include "svg/Picture.h"

#include <cairo.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cmath>
#include <cstdlib>
#include <memory>

#include "support/Drawing.h"
#include "support/Folder.h"
#include "svg/Definitions.h"
#include "svg/Reader.h"
#include "svg/Writer.h"

namespace easel::svg {
namespace {

using desk::errorOf;
using model::addPath;
using model::corner;
using model::Document;
using model::Mark;
using model::Node;

struct Image {
    int width = 0;
    std::vector<std::uint32_t> pixels;
};

Image imageOf(const std::string& path) {
    const std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface(
        cairo_image_surface_create_from_png(path.c_str()), cairo_surface_destroy);
    EXPECT_EQ(cairo_surface_status(surface.get()), CAIRO_STATUS_SUCCESS);
    const auto* const first = reinterpret_cast<const std::uint32_t*>(cairo_image_surface_get_data(surface.get()));
    const int width = cairo_image_surface_get_width(surface.get());
    EXPECT_EQ(cairo_image_surface_get_stride(surface.get()), 4 * width);
    return {width, {first, first + std::ptrdiff_t{width} * cairo_image_surface_get_height(surface.get())}};
}

/// Red, green and blue, a byte each, of a picture that is read back.
std::uint32_t pixelOf(const std::string& path, int x, int y) {
    const Image image = imageOf(path);
    return image.pixels[static_cast<std::size_t>(y * image.width + x)] & 0xFFFFFF;
}

class Pictures : public testing::Test {
  protected:
    [[nodiscard]] std::string path(const std::string& name) const { return folder.path(name); }

    desk::Folder folder;
};

/// The paint of a path that covers the page in <g id='g' class='k'>, with what is said in its tag.
void expectPaintAsPictured(const std::string& folder, const std::string& sheets, const std::string& said,
                           const std::string& behind = "") {
    const std::string svg = "<svg viewBox='0 0 4 4'>" + sheets + "<g id='g' class='k'><path id='p' d='M0 0h4v4h-4z' " +
                            said + "/></g>" + behind + "</svg>";
    SCOPED_TRACE(svg);
    const auto document = read(svg, "t.svg");
    exportPicture(*document, PictureFormat::Png, {}, folder);
    const std::uint32_t pixel = pixelOf(folder, 2, 2);
    const model::Style& style = document->findByName("p")->style();
    const model::Color color =
        document->findByName("p")->hidden() || !style.fill ? model::Color{1, 1, 1} : style.fillColor;
    const auto byte = [](double part) { return static_cast<std::uint32_t>(std::lround(part * 255)); };
    EXPECT_EQ(byte(color.red) << 16 | byte(color.green) << 8 | byte(color.blue), pixel);
}

TEST_F(Pictures, PathsHaveThePaintOfStyleSheetsThatPicturesShow) {
    const struct {
        const char* rules;
        const char* said;
    } rows[] = {
        {"path{fill:red}", ""},
        {"path{fill:red}", "fill='lime'"},
        {"path{fill:red}", "style='fill:lime'"},
        {"path{fill:red !important}", "style='fill:lime'"},
        {"path{fill:red ! important}", "style='fill:lime!important'"},
        {"path{fill:red !important} path{fill:blue}", "fill='lime'"},
        {".a{fill:red}", "class=' b\ta '"},
        {".a{fill:red}", "class='aa'"},
        {"#p{fill:red} path.a{fill:lime}", "class='a'"},
        {".a{fill:red} .a{fill:blue} path{fill:lime}", "class='a'"},
        {"path.a.b{fill:red} .a{fill:blue}", "class='b a'"},
        {"g path{fill:red}", ""},
        {"svg>path{fill:red} *{fill:lime}", ""},
        {"svg > g.k>path , rect{fill:red}", ""},
        {"svg #g path, .b { fill : red ; stroke:none }", ""},
        {"rect,.k{fill:red}", ""},
        {"g g path{fill:red}", ""},
        {".none path{fill:red}", ""},
        {"/* path{fill:red} */ path/**/{/*;*/fill:/* */blue}", ""},
        {"@media print { path{fill:red} } path{stroke:none}", ""},
        {"@charset 'x;{'; path{fill:red}", ""},
        {"path{fill:red;;oops;fill:}", ""},
        {"path{font-family:'a;b}';fill:red}", ""},
        {"<![CDATA[ g > path{fill:red} ]]>", ""},
        {"path{fill:r&#101;d", ""},
        {"path{display:none}", ""},
        {"path{fill:none;stroke-width:2}", ""},
        {"PATH{fill:red}", ""},
        {".\xC3\xA4{fill:red}", "class='\xC3\xA4'"},
        {"path{fill:red} svg{fill:lime} g{fill:blue}", "fill='inherit'"},
    };
    const std::string picture = path("p.png");
    for (const auto& row : rows)
        expectPaintAsPictured(picture, "<style>" + std::string(row.rules) + "</style>", row.said);
    expectPaintAsPictured(picture, "<style>path{fill:red}</style><style type='text/css'>path{fill:blue}</style>", "");
    expectPaintAsPictured(picture, "<style>path{fill:red}</style><style type='text/x'>path{fill:blue}</style>", "");
    expectPaintAsPictured(picture, "<rect/>", "",
                          "<style>path{fill:red}</style><defs><style>g path{fill:blue}</style></defs>");
}

/// The box of what is not white.
model::Box shownBox(const Image& image, double scale) {
    model::Box box;
    for (std::size_t i = 0; i < image.pixels.size(); ++i) {
        if ((image.pixels[i] & 0xFFFFFF) == 0xFFFFFF) continue;
        const double x = static_cast<double>(i % static_cast<std::size_t>(image.width));
        const double y = static_cast<double>(i / static_cast<std::size_t>(image.width));
        box.include(model::Box{x / scale, y / scale, (x + 1) / scale, (y + 1) / scale});
    }
    return box;
}

TEST_F(Pictures, ShowOpaqueArtWhereItIsHit) {
    const std::string head = "<!DOCTYPE svg [<!ENTITY e '<rect x=\"20\" y=\"30\" width=\"30\" height=\"9\"/>'>]>"
                             "<svg xmlns='http://www.w3.org/2000/svg' xmlns:h='http://www.w3.org/1999/xlink' "
                             "viewBox='-10 -10 200 100'><defs><path id='d' d='M0 0h30v9h-30z'/>"
                             "<symbol id='s' viewBox='0 0 2 1'><path d='M0 0h1v1z'/></symbol></defs>";
    const char* const kinds[] = {
        "<text x='20' y='50' font-size='40'>Ham</text>",
        "<g transform='translate(5 6) scale(1.5 2)'><text id='t' x='20' y='20'>Hamburg</text></g>",
        "<text id='t'/><text id='t' x='80' y='30'>Two of one id</text>",
        "<use id='u' h:href='#d' x='50' y='60' transform='scale(.5)'/>",
        "<use h:href='#s' x='50' y='30' width='40' height='30'/>",
        "<svg x='30' y='20' width='50' height='50' viewBox='0 0 10 10'><path d='M2 2h3v4z'/></svg>",
        "<a><text x='20' y='20'>link</text><path d='M70 70h9v9z'/></a>",
        "<g style='transform:translate(20px,30px)'><path d='M0 0h20v9z'/></g>",
        "<g><g>&e;</g></g>",
        "<rect x='2em' y='1em' width='4em' height='2ex'/>",
        "<rect x='1em' y='1em' width='1em' height='1em' font-size='large'/>",
    };
    for (const char* const kind : kinds) {
        SCOPED_TRACE(kind);
        const auto document = read(head + kind + "</svg>", "t.svg");
        exportPicture(*document, PictureFormat::Png, {.scale = 4}, path("p.png"));
        const model::Box shown = shownBox(imageOf(path("p.png")), 4);
        const auto expectSame = [&](double dx) {
            model::Box hit;
            for (const Node* art : document->touching({-1e6, -1e6, 1e6, 1e6})) hit.include(art->hull());
            EXPECT_NEAR(hit.left, shown.left + dx, 1.5);
            EXPECT_NEAR(hit.right, shown.right + dx, 1.5);
            EXPECT_NEAR(hit.top, shown.top, 1.5);
            EXPECT_NEAR(hit.bottom, shown.bottom, 1.5);
        };
        model::Document& moved = *document;
        moved.offset(moved.currentLayer(), 3, 0); // before anybody asks, and undone afterwards
        expectSame(3);
        moved.journal().undo();
        expectSame(0);
    }
}

// The box of a new text was made of letters half as wide as high.
TEST_F(Pictures, HoldTheirNewTextsInTheirBounds) {
    const model::TextData texts[] = {
        {.contents = "WWWWW", .font = "sans-serif", .size = 30, .anchor = {20, 50}},
        {.contents = "iiii gjpq", .font = "serif", .size = 20, .anchor = {20, 50}},
        {.contents = "a < b & \xC3\xBC", .size = 25, .justification = model::Justification::Center, .anchor = {90, 40}},
        {.contents = "Ham", .justification = model::Justification::Right, .anchor = {90, 40}, .turned = {2, 1, -1, 2}},
    };
    const auto expectHolds = [](const model::Box& bounds, const model::Box& shown, double most) {
        for (const auto edge : {&model::Box::left, &model::Box::top}) {
            EXPECT_LE(bounds.*edge, shown.*edge + 0.3);
            EXPECT_GE(bounds.*edge, shown.*edge - most);
        }
        for (const auto edge : {&model::Box::right, &model::Box::bottom}) {
            EXPECT_GE(bounds.*edge, shown.*edge - 0.3);
            EXPECT_LE(bounds.*edge, shown.*edge + most);
        }
    };
    const auto blank = read("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 200 100' style='font-weight: bold'>"
                            "<g font-style='italic'><path d='M0 0'/></g></svg>",
                            "t.svg");
    Document& document = *blank;
    Node& group = *document.currentLayer().firstChild();
    document.removeChildren(group);
    Node& node = document.create(model::NodeType::Opaque, model::Placement::OnTopInside, group);
    for (const model::TextData& text : texts) {
        SCOPED_TRACE(text.contents);
        model::TextData painted = text;
        painted.paint = {.fill = true, .stroke = false, .fillColor = {}, .strokeColor = {}};
        document.setText(node, painted);
        document.measure();
        exportPicture(document, PictureFormat::Png, {.scale = 4}, path("p.png"));
        const model::Box shown = shownBox(imageOf(path("p.png")), 4);
        const bool isTurned = text.turned[1] != 0; // and a box around a box then
        expectHolds(node.hull(), shown, isTurned ? 20 : 3);
        const auto again = read(write(document), "t.svg");
        again->measure();
        expectHolds(again->currentLayer().firstChild()->firstChild()->hull(), shown, isTurned ? 40 : 3);
    }
}

TEST_F(Pictures, ShowCopiesOfOpaqueArtWhereItWas) {
    const std::string head = "<svg xmlns='http://www.w3.org/2000/svg' viewBox='-10 -10 200 100'><defs>"
                             "<symbol id='s' viewBox='1 1 2 1'><path d='M1 1h1v1z'/></symbol><symbol id='plain'>"
                             "<path d='M0 0h30v9h-30z'/><path d='M-9-9h30v9z'/></symbol></defs>"
                             "<g id='to' transform='rotate(20) scale(2 1)'/>";
    const char* const kinds[] = {
        "<text x='20' y='20' font-size='20'>Ham</text>",
        "<text x='20' y='20' transform='rotate(30 20 20)'>Hamburg</text>",
        "<text x='40' y='9' text-anchor='end' font-size='1.5em' transform='skewX(20)'>Ham</text>",
        "<use href='#plain' x='20' y='10'/>",
        "<use href='#plain' x='20' y='10' width='20' height='5' transform='rotate(15)'/>",
        "<use href='#s' x='20' y='10' width='40' height='10'/>",
        "<use href='#s' height='20'/>",
    };
    const auto redefined = [](Document& document, Node& art) {
        const auto name = define(document, "symbol", art);
        Node& instance = document.create(model::NodeType::Opaque, model::Placement::Above, art);
        setSymbol(document, instance, *name);
        document.remove(art);
        return instance.hull();
    };
    const auto duplicated = [](Document& document, Node& art) {
        const Node& copy = document.duplicate(art, model::Placement::OnTopInside, *document.findByName("to"));
        document.remove(art);
        return copy.hull();
    };
    const auto grouped = [](Document& document, Node& art) {
        Node& group = document.create(model::NodeType::Group, model::Placement::Above, *art.parent());
        document.place(art, model::Placement::OnTopInside, group);
        return art.hull();
    };
    const auto moved = [](Document& document, Node& art) {
        document.place(art, model::Placement::OnTopInside, *document.findByName("to"));
        return art.hull();
    };
    using Work = std::function<model::Box(Document&, Node&)>;
    const auto expectHolds = [](const model::Box& hull, const model::Box& shown) {
        EXPECT_LE(hull.left, shown.left + 0.3);
        EXPECT_LE(hull.top, shown.top + 0.3);
        EXPECT_GE(hull.right, shown.right - 0.3);
        EXPECT_GE(hull.bottom, shown.bottom - 0.3);
    };
    for (const char* const kind : kinds) {
        std::string svg = head + "<g id='from' transform='translate(5 6) scale(1.5 2)'>" + kind + "</g></svg>";
        const auto shown = [&](Document& document) {
            exportPicture(document, PictureFormat::Png, {.scale = 4}, path("p.png"));
            return shownBox(imageOf(path("p.png")), 4);
        };
        const model::Box before = shown(*read(svg, "t.svg"));
        int number = 0;
        for (const Work& work : {Work(redefined), Work(duplicated), Work(grouped), Work(moved)}) {
            SCOPED_TRACE(kind + std::to_string(number++));
            const auto document = read(svg, "t.svg");
            document->measure();
            const model::Box hull = work(*document, *document->findByName("from")->firstChild());
            const auto again = read(write(*document), "t.svg");
            const model::Box after = shown(*again);
            for (const auto side : {&model::Box::left, &model::Box::top, &model::Box::right, &model::Box::bottom})
                EXPECT_NEAR(after.*side, before.*side, 0.26); // a pixel
            model::Box now;
            for (const Node* art : again->touching({-1e6, -1e6, 1e6, 1e6})) now.include(art->hull());
            expectHolds(now, before);
            expectHolds(hull, before);
        }
    }
}

TEST_F(Pictures, TellWhereArtLiesOfWhichThereIsMuch) {
    const std::string head =
        "<s:svg xmlns:s='http://www.w3.org/2000/svg' width='900' height='900'><s:g transform='scale(2)'>";
    std::string text;
    for (int i = 0; i < 300; ++i) {
        const std::string place = "x='" + std::to_string(i % 20 * 10) + "' y='" + std::to_string(i / 20 * 10) + "'";
        const std::string id = i == 30 ? "aria-label=\"an id = 'z' here\" id = 'u' " : "";
        text += i % 3 == 0 ? "<s:use " + id + place + " href='#r'/>" : "<s:path id='p' d='M0 0'/>";
        if (i % 100 == 50) text += "<s:defs><s:rect id='r' width='5' height='4'/></s:defs>";
    }
    // Groups that the renderer is helped with are seen by no selector.
    for (const char* const sheet :
         {"", "rect { fill: red }", "g g use { display: none }", "a use, g g use { display: none }",
          "g > g > use, a > use { display: none }", "* :nth-child(2n) > use { display: none }"}) {
        const auto document = read(head + "<s:style>" + sheet + "</s:style>" + text + "</s:g></s:svg>", "t.svg");
        document->measure();
        int i = 299;
        for (const Node* art = document->currentLayer().firstChild()->firstChild(); art; art = art->next(), --i) {
            const model::Box box = art->hull();
            if (i % 3 != 0) continue;
            EXPECT_NEAR(box.left, i % 20 * 20, 0.02) << i << sheet;
            EXPECT_NEAR(box.top, i / 20 * 20, 0.02) << i << sheet;
            EXPECT_NEAR(box.right - box.left, 10, 0.02) << i << sheet;
        }
        EXPECT_EQ(i, -1);
    }
}

TEST_F(Pictures, ShowsTheDrawingOnWhiteAndMarksOverIt) {
    Document document(50, 25);
    Node& square = addPath(document, document.currentLayer(),
                           {corner(30, 20), corner(40, 20), corner(40, 25), corner(30, 25)}, true);
    document.setStyle(square, {.fill = true, .stroke = false, .fillColor = {1, 1, 0}, .strokeColor = {}});
    const easel::model::Pen thick{.color = {1, 0, 0}, .lineWidth = 6};
    const easel::model::Pen faint{.color = {0, 0, 1}, .opacity = 0.2};
    const easel::model::Pen dashed{.color = {0, 1, 0}, .lineWidth = 4, .dash = 10};
    using Kind = Mark::Kind;
    const std::vector<Mark> marks{
        {.kind = Kind::Text, .points = {{25, 14}}, .pen = thick, .filled = true, .text = "no \xff text"},
        {.kind = Kind::Line, .points = {{0, 5}, {20, 5}}, .pen = thick, .filled = false, .text = {}},
        {.kind = Kind::Line, .points = {{0, 22}, {25, 22}}, .pen = dashed, .filled = false, .text = {}},
        {.kind = Kind::Rectangle, .points = {{10, 10}, {2, 0}}, .pen = faint, .filled = true, .text = {}},
        {.kind = Kind::Ellipse, .points = {{30, 0}, {50, 20}}, .pen = thick, .filled = true, .text = {}},
        {.kind = Kind::Polygon, .points = {{10, 12}, {20, 12}, {10, 20}}, .pen = dashed, .filled = true, .text = {}},
        // Far away, except that the line passes through the page.
        {.kind = Kind::Rectangle, .points = {{1e7, -1e7}, {2e7, 1e7}}, .pen = dashed, .filled = true, .text = {}},
        {.kind = Kind::Line, .points = {{-1e7, 1e7 + 68}, {1e7 + 68, -1e7}}, .pen = thick, .filled = false, .text = {}},
    };
    const std::uint32_t white = 0xFFFFFF, red = 0xFF0000, green = 0x00FF00, yellow = 0xFFFF00;
    const struct {
        double scale;
        int x, y;
        std::uint32_t color;
    } rows[] = {
        // The line keeps its 6 pixels at any scale: 17 to 22 of the rows, since it runs along 5 * 4.
        {4, 70, 16, white},    {4, 70, 17, red},      {4, 70, 22, red},    {4, 70, 23, white},
        {2, 35, 6, white},     {2, 35, 7, red},       {2, 35, 12, red},    {2, 35, 13, white},
        {4, 20, 30, 0xCCCCFF}, {4, 20, 20, 0xCC0033}, // 0.2 of blue on white, and on red
        {4, 160, 40, red},     {4, 123, 3, white},    // the ellipse, and a corner of its box
        {4, 45, 52, green},    {4, 75, 75, white},    // in the triangle, and beyond its long side
        {4, 5, 88, green},     {4, 15, 88, white},    // a dash and a gap
        {4, 190, 82, red},     {4, 190, 90, white},   // the line, on which x + y is 68 * 4
        {4, 140, 90, yellow},  {4, 140, 79, white},   {4, 119, 90, white}, {4, 160, 90, white} // the square
    };
    for (const auto& [scale, x, y, color] : rows) {
        exportPicture(document, PictureFormat::Png, {.scale = scale, .marks = marks}, path("picture.png"));
        EXPECT_EQ(pixelOf(path("picture.png"), x, y), color) << x << ' ' << y;
    }
}

/// The page of a PDF in points, as the file says it.
std::string pageOf(const std::string& pdf) {
    const std::size_t box = pdf.find("/MediaBox [ 0 0 ");
    return box == pdf.npos ? "" : pdf.substr(box + 16, pdf.find(" ]", box) - box - 16);
}

TEST_F(Pictures, HaveTheSizeThatTheFileTells) {
    const struct {
        const char* root;
        const char* page; // of the PDF, points
        int width;        // of a PNG of 144 pixels an inch
    } rows[] = {
        {"width='210mm' height='297mm' viewBox='0 0 70 99'", "595.275591 841.889764", 1191}, // 8.27 by 11.69 inches
        {"width='100mm' viewBox='0 0 20 10'", "283.464567 141.732283", 567},
        {"height='1in' viewBox='0 0 20 10'", "144 72", 288},
        {"width='96' height='48'", "72 36", 144}, // 96 units an inch
        {"viewBox='0 0 20 10'", "20 10", 40},     // does not tell
        {"width='100%' height='100%' viewBox='0 0 20 10'", "20 10", 40},
    };
    for (const auto& row : rows) {
        const std::string name = folder.write("d.svg", std::string("<svg xmlns='http://www.w3.org/2000/svg' ") +
                                                           row.root + "><rect width='3' height='3'/></svg>");
        const auto document = open(name);
        EXPECT_EQ(pageOf(picture(*document, PictureFormat::Pdf, {}, "")), row.page) << row.root;
        exportPicture(*document, PictureFormat::Png, {.dpi = 144}, path("P.PNG"));
        EXPECT_EQ(imageOf(path("P.PNG")).width, row.width) << row.root;
    }
}

TEST_F(Pictures, ThatCannotBeMadeAreErrors) {
    Document document(20, 10);
    const std::string name = path("picture.png");
    const auto failure = [&](double scale, const std::string& to) {
        return errorOf<FileError>([&] { exportPicture(document, PictureFormat::Png, {.scale = scale}, to); });
    };
    const std::string limit = ": a picture has 1 to 16384 pixels along each side, not ";
    EXPECT_EQ(failure(0, name), name + limit + "0 x 0");
    EXPECT_EQ(failure(1000, name), name + limit + "20000 x 10000");
    EXPECT_EQ(failure(1, path("missing/p.png")), path("missing/p.png") + ": No such file or directory");
    EXPECT_EQ(failure(1, path("p.pdf")), path("p.pdf") + ": the name of such a picture ends in .png");
    EXPECT_EQ(folder.fileCount(), 0);
}

/// Sets a variable of the environment until the end of the scope.
class Environment {
  public:
    Environment(const char* name, const char* value) : name_(name) { ::setenv(name, value, 1); }
    ~Environment() { ::unsetenv(name_); }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

  private:
    const char* name_;
};

// The renderer asserts that a tile is no empty one, draws a noise of a hundred million layers for hours, and has no
// memory for a page and its filters of a gigabyte. Each takes its own process along and nothing else.
TEST_F(Pictures, RendererThatDiesHarmsNobody) {
    const auto filesOpen = [] { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}); };
    const auto failure = [&](const std::string& filter, double scale = 0.1) {
        const std::string name =
            folder.write("d.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='5000' height='5000'><filter id='f'>" +
                                      filter + "</filter><rect width='5000' height='5000' filter='url(#f)'/></svg>");
        const auto document = open(name);
        const std::string error =
            errorOf<FileError>([&] { exportPicture(*document, PictureFormat::Png, {.scale = scale}, path("p.png")); });
        EXPECT_EQ(error.rfind(name + ": cannot be drawn: ", 0), 0U) << error;
        return error.substr(std::min(error.size(), name.size() + 19));
    };
    const auto before = filesOpen();
    EXPECT_EQ(failure("<feFlood width='0' height='0'/><feTile/>"),
              "the renderer gave up: assertion failed: width > 0 && height > 0");
    {
        const Environment hurry("EASEL_RENDER_SECONDS", "1");
        EXPECT_EQ(failure("<feTurbulence baseFrequency='0.1' numOctaves='100000000'/>"),
                  "that takes longer than 1 s (EASEL_RENDER_SECONDS)");
    }
    {
        const Environment wrong("EASEL_RENDER_SECONDS", "soon");
        EXPECT_EQ(failure(""), "EASEL_RENDER_SECONDS must be a whole number from 1 to 1000000, not \"soon\"");
    }
#ifndef __SANITIZE_ADDRESS__ // under which no process is limited
    const Environment small("EASEL_RENDER_MEGABYTES", "300");
    EXPECT_EQ(failure("", 3.2), "that takes more than 300 MB of memory (EASEL_RENDER_MEGABYTES)"); // a gigabyte
#endif
    EXPECT_EQ(filesOpen(), before);
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1); // no process is left, not even a dead one
    EXPECT_EQ(folder.fileCount(), 1);
}

} // namespace
} // namespace easel::svg
