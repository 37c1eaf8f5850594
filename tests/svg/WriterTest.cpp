// What is written: readable text that reads back as the same document; files that are whole or untouched.
#include "svg/Writer.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/Drawing.h"
#include "support/Folder.h"
#include "svg/Limits.h"
#include "svg/Reader.h"

namespace easel::svg {
namespace {

using model::addLine;
using model::addPath;
using model::corner;
using model::Document;
using model::Node;
using model::NodeType;
using model::Placement;
using model::Style;

class DrawingFiles : public testing::Test {
  protected:
    [[nodiscard]] std::string path(const std::string& name) const { return folder.path(name); }
    static std::string errorOf(const std::function<void()>& work) { return desk::errorOf<FileError>(work); }

    desk::Folder folder;
};

// Text

TEST(Writer, WritesPlainSvg) {
    Document document(200, 100.5);
    Node& layer = document.currentLayer();
    document.setName(layer, "A & \"B\"");
    Node& group = document.create(NodeType::Group, Placement::OnTopInside, layer);
    document.setLocked(group, true);
    Node& path = addPath(document, group, {corner(0, 0), {{10.1, 0}, {5, 5}, {10.1, 0}}}, true);
    document.setName(path, "edge");
    document.setStyle(path, {.fill = true,
                             .fillColor = {1, 0.2, 0},
                             .strokeColor = {},
                             .dash = model::Shared(model::Dashes{2, 0, {4, 1.5}})});
    Node& line = addLine(document, layer, {1e-7, 2}, {3, 1e6});
    document.setHidden(line, true);
    EXPECT_EQ(write(document), R"(<?xml version="1.0" encoding="UTF-8"?>
<svg xmlns="http://www.w3.org/2000/svg" xmlns:inkscape="http://www.inkscape.org/namespaces/inkscape" xmlns:sodipodi="http://sodipodi.sourceforge.net/DTD/sodipodi-0.dtd" xmlns:easel="urn:easel:drawing" width="200pt" height="100.5pt" viewBox="0 0 200 100.5">
  <g inkscape:groupmode="layer" inkscape:label="A &amp; &quot;B&quot;">
    <g sodipodi:insensitive="true">
      <path id="edge" d="M0 0 C0 0 5 5 10.1 0 Z" fill="#ff3300" stroke="#000000" stroke-miterlimit="10" stroke-dasharray="4 1.5"/>
    </g>
    <path style="display:none" d="M1e-07 2 L3 1e+06" fill="none" stroke="#000000" stroke-miterlimit="10"/>
  </g>
</svg>
)");
}

TEST(Writer, WhatIsReadIsWhatWasWritten) {
    for (std::uint32_t seed = 1; seed <= 30; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        model::RandomEditor random(seed);
        random.compounds = false;
        Document document(200, 100);
        for (int i = 0; i < 150; ++i) random.edit(document);
        const std::string text = write(document);
        const auto again = read(text, "t.svg");
        ASSERT_TRUE(Document::sameContent(document, *again)) << text;
        ASSERT_EQ(write(*again), text);
    }
}

TEST(Writer, OddCasesReadBackToo) {
    Document document(200, 100);
    Node& layer = document.currentLayer();
    addPath(document, layer, {corner(1, 1)}, true);
    addPath(document, layer, {{{1, 1}, {0, 0}, {2, 3}}}, true);
    addPath(document, layer, {corner(1, 1), corner(5, 5), corner(1, 1)}, true);
    addPath(document, layer, {corner(1, 1), corner(1, 1)});
    addPath(document, layer, {corner(1, 1), corner(1, 1)}, true);
    document.setCorners(addPath(document, layer, {{{1, 1}, {0, 1}, {2, 1}}, {{9, 1}, {8, 1}, {10, 1}}}), 0, {false});
    document.setName(addLine(document, layer, {0.1 + 0.2, 1 / 3.0}, {-0.0, 1e-300}), "two\nlines <&> \t end");
    document.setName(addLine(document, layer, {0, 0}, {1, 1}), "same");
    document.setName(addLine(document, layer, {0, 0}, {1, 1}), "same");
    document.create(NodeType::Group, Placement::OnTopInside, layer);
    document.addLayer("");
    model::Style style{.fill = true, .stroke = true, .evenOdd = true, .fillColor = {0.1, 0.5, 0.7}, .strokeColor = {}};
    style.strokeWidth = 0;
    style.cap = model::Cap::Projecting;
    style.join = model::Join::Bevel;
    style.alignment = model::Alignment::Outside;
    style.setDashes({6, -2.5, {1, 2, 3, 4, 5, 6}});
    document.setStyle(*layer.firstChild()->next(), style);
    const std::string text = write(document);
    EXPECT_TRUE(Document::sameContent(document, *read(text, "t.svg"))) << text;
}

// Files

TEST_F(DrawingFiles, SavingReplacesTheWholeFileAndNothingElse) {
    Document document(20, 10);
    folder.write("drawing.svg", std::string(100000, 'x'));
    std::filesystem::permissions(path("drawing.svg"), std::filesystem::perms(0640));
    std::filesystem::create_symlink("drawing.svg", path("link.svg"));
    save(document, path("link.svg"));
    EXPECT_EQ(folder.content("drawing.svg"), write(document));
    EXPECT_TRUE(std::filesystem::is_symlink(path("link.svg")));
    EXPECT_EQ(static_cast<int>(std::filesystem::status(path("drawing.svg")).permissions()), 0640);
    EXPECT_EQ(folder.fileCount(), 2);
    // Where the link leads there need be nothing yet.
    std::filesystem::remove(path("drawing.svg"));
    save(document, path("link.svg"));
    EXPECT_TRUE(std::filesystem::is_symlink(path("link.svg")));
    EXPECT_EQ(folder.content("drawing.svg"), write(document));
    std::filesystem::create_symlink("round.svg", path("round.svg"));
    EXPECT_EQ(errorOf([&] { save(document, path("round.svg")); }),
              path("round.svg") + ": Too many levels of symbolic links");
}

TEST_F(DrawingFiles, CompressedDrawingsStayCompressed) {
    Document document(20, 10);
    save(document, path("drawing.svgz"));
    const std::string packed = folder.content("drawing.svgz");
    EXPECT_EQ(packed.substr(0, 2), "\x1f\x8b");
    const auto again = open(path("drawing.svgz"));
    EXPECT_TRUE(Document::sameContent(document, *again));
    addLine(*again, again->currentLayer(), {0, 0}, {1, 1});
    save(*again, path("drawing.svgz"));
    EXPECT_EQ(open(path("drawing.svgz"))->currentLayer().childCount(), 1U);
    while (again->journal().undo()) {
    }
    save(*again, path("drawing.svgz"));
    EXPECT_EQ(folder.content("drawing.svgz"), packed);
    save(*again, path("plain.svg"));
    EXPECT_EQ(folder.content("plain.svg"), write(document));
}

TEST_F(DrawingFiles, WhatCouldNotBeReadAgainIsNotSaved) {
    const struct {
        std::function<void(Document&, Node&)> edit;
        const char* reason;
    } rows[] = {
        {[](Document& d, Node& line) { d.offset(line, 1e308, 0); },
         "a path that reaches beyond 1e9 points cannot be saved"},
        {[](Document& d, Node& line) {
             d.setPath(line, {{corner(0, std::nan(""))}, false});
         },
         "a path that reaches beyond 1e9 points cannot be saved"},
        {[](Document& d, Node& line) { d.setStyle(line, model::painted(false, 1e200)); },
         "a stroke with lengths beyond 1e9 points cannot be saved"},
    };
    for (const auto& row : rows) {
        for (const bool wasRead : {false, true}) {
            Document made(20, 10);
            addLine(made, made.currentLayer(), {0, 0}, {1, 1});
            save(made, path("drawing.svg"));
            const std::string before = folder.content("drawing.svg");
            const auto opened = open(path("drawing.svg"));
            Document& document = wasRead ? *opened : made;
            row.edit(document, *document.currentLayer().firstChild());
            EXPECT_EQ(errorOf([&] { save(document, path("drawing.svg")); }), path("drawing.svg") + ": " + row.reason);
            EXPECT_EQ(folder.content("drawing.svg"), before);
        }
    }
}

TEST_F(DrawingFiles, RefusedSavingLeavesTheFileAsItWas) {
    Document document(20, 10);
    save(document, path("drawing.svg"));
    const std::string nowhere = path("missing/drawing.svg");
    EXPECT_EQ(errorOf([&] { save(document, nowhere); }), nowhere + ": No such file or directory");
    EXPECT_EQ(errorOf([&] { save(document, folder.path()); }), folder.path() + ": Is a directory");

    Node* innermost = &document.currentLayer();
    for (std::size_t depth = 2; depth < kDeepestElement; ++depth) {
        innermost = &document.create(NodeType::Group, Placement::OnTopInside, *innermost);
    }
    save(document, path("drawing.svg"));
    const std::string before = folder.content("drawing.svg");
    EXPECT_TRUE(Document::sameContent(document, *open(path("drawing.svg"))));
    document.create(NodeType::Group, Placement::OnTopInside, *innermost);
    EXPECT_EQ(errorOf([&] { save(document, path("drawing.svg")); }),
              path("drawing.svg") + ": groups nest too deeply to be saved");
    EXPECT_EQ(folder.content("drawing.svg"), before);
    EXPECT_EQ(folder.fileCount(), 1);
}

} // namespace
} // namespace easel::svg
