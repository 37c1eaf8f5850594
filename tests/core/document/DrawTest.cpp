// The drawing functions: what each puts into the document, and that nothing stays behind when it cannot.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>

#include "core/document/Art.h"
#include "core/document/Draw.h"
#include "plugin/host/HostCall.h"
#include "support/Desk.h"

namespace {

using namespace kzo::core;
using desk::Desk;
using enum ParagraphJustification;

using Maker = std::function<std::unique_ptr<Art>(const ArtboardPoint& at, const PathStyle* style, const Art* prep)>;

/// Both forms of a function as one.
template <class Draw> Maker both(Draw draw) {
    return [draw](const ArtboardPoint& at, const PathStyle* style, const Art* prep) {
        return style ? draw(at, *style, prep) : draw(at, prep);
    };
}

const struct Row {
    const char* name;
    Maker make;
    int points;
    bool closed;
    double area; ///< by hand
} kRows[] = {
    {"point", both([](auto at, auto... rest) { return draw::point(at, rest...); }), 1, false, 0},
    {"line", both([](auto at, auto... rest) {
         return draw::line({0, 0}, at, rest...);
     }),
     2, false, 0},
    {"arc", both([](auto at, auto... rest) {
         return draw::arc(at, {10, 10}, {20, 0}, rest...);
     }),
     3, false, M_PI * 50}, // half a circle of radius 10
    {"rect", both([](auto at, auto... rest) {
         return draw::rect({at.x(), at.y(), 30, 20}, rest...);
     }),
     4, true, 600},
    {"roundedRect", both([](auto at, auto... rest) {
         return draw::roundedRect({at.x(), at.y(), 30, 20}, 5, rest...);
     }),
     8, true, 600 - (4 - M_PI) * 25},
    {"chamferedRect", both([](auto at, auto... rest) {
         return draw::chamferedRect({at.x(), at.y(), 30, 20}, 5, rest...);
     }),
     8, true, 550},
    {"ellipse", both([](auto at, auto... rest) { return draw::ellipse(at, 20, 10, false, rest...); }), 4, true,
     M_PI * 50},
    {"reversed ellipse", both([](auto at, auto... rest) { return draw::ellipse(at, 20, 10, true, rest...); }), 4, true,
     M_PI * 50},
    {"triangle", both([](auto at, auto... rest) { return draw::triangle(at, 10, rest...); }), 3, true,
     25 * std::sqrt(3)},
    {"star", both([](auto at, auto... rest) { return draw::star(at, 5, 10, 4, rest...); }), 10, true,
     5 * 40 * std::sin(M_PI / 5)},
    {"polygon", both([](auto at, auto... rest) {
         return draw::polygon({at, {10, 0}, {10, 10}, {0, 10}}, rest...);
     }),
     4, true, 100},
    {"regularPolygon to a corner",
     both([](auto at, auto... rest) { return draw::regularPolygon(at, ArtboardPoint(10, 0), 4, rest...); }), 4, true,
     200},
    {"regularPolygon with a radius",
     both([](auto at, auto... rest) { return draw::regularPolygon(at, 10.0, 6, rest...); }), 6, true,
     150 * std::sqrt(3)},
};

const Maker kText = both([](auto at, auto... rest) {
    return draw::text("a < b & ‘c’", at, "serif", 12, Center, ArtColor{1, 0, 0}, rest...);
});

class DrawTest : public testing::Test {
  protected:
    Desk desk;
};

TEST_F(DrawTest, EachShapeIsAPathOfItsOwn) {
    PathStyle style;
    style.stroke.width = 3;
    desk.inMessage([&] {
        const Art group(ArtType::Group, PaintOrder::AboveAll);
        for (const Row& row : kRows) {
            const auto plain = row.make({0, 0}, nullptr, nullptr);
            const auto styled = row.make({0, 0}, &style, &group);
            ASSERT_TRUE(plain && styled) << row.name;
            EXPECT_EQ(*group.firstChild(), *styled) << row.name << ": on top inside";
            EXPECT_EQ(*group.parent()->firstChild(), *plain) << row.name << ": above all";
            EXPECT_EQ(styled->path()->style(), style) << row.name;
            EXPECT_EQ(plain->path()->style(), PathStyle()) << row.name;
            for (const auto* art : {plain.get(), styled.get()}) {
                const PathArt& path = *art->path();
                EXPECT_EQ(path.segPointCount(), row.points) << row.name;
                EXPECT_EQ(path.closed(), row.closed) << row.name;
                EXPECT_NEAR(path.area(), row.area, 1e-3 * row.area) << row.name;
                using enum WindingOrderType;
                const bool reversed = std::string(row.name) == "reversed ellipse";
                const auto winding = !row.closed ? path.windingOrder() : reversed ? CounterClockwise : Clockwise;
                EXPECT_EQ(path.windingOrder(), winding) << row.name;
            }
        }
        const auto line = draw::line({1, 2}, {3, 4});
        EXPECT_EQ(line->path()->segPoints(0, 9),
                  (PathArt::SegPoints{{ArtboardPoint(1, 2), true}, {ArtboardPoint(3, 4), true}}));
    });
}

TEST_F(DrawTest, NothingStaysBehindOfWhatCannotBeDrawn) {
    const std::string before = desk.svg();
    PathStyle wrong;
    wrong.stroke.width = -1;
    desk.inMessage([&] {
        const ArtboardPoint odd[] = {{std::nan(""), 0}, {HUGE_VAL, 1}};
        for (const Row& row : kRows) {
            for (const ArtboardPoint& at : odd) EXPECT_FALSE(row.make(at, nullptr, nullptr)) << row.name;
            EXPECT_FALSE(row.make({0, 0}, &wrong, nullptr)) << row.name;
            const Art none;
            for (std::uint64_t nth = 1; nth < 20; ++nth) {
                kzo::plugin::host::monitor().reset(nth);
                const auto art = row.make({0, 0}, nullptr, nullptr);
                const bool refused = kzo::plugin::host::monitor().calls() >= nth;
                kzo::plugin::host::monitor().reset();
                EXPECT_NE(art != nullptr, refused) << row.name << ", call " << nth;
                if (art) art->dispose();
            }
        }
        EXPECT_FALSE(draw::star({0, 0}, 1, 5, 2) || draw::star({0, 0}, 65535, 5, 2));
        EXPECT_FALSE(draw::regularPolygon({0, 0}, 5.0, -32768) || draw::regularPolygon({0, 0}, 5.0, 2));
        EXPECT_FALSE(draw::polygon({}) || draw::polygon({{1, 1}}) ||
                     draw::polygon(std::vector<ArtboardPoint>(32768, {1, 1})));
        EXPECT_FALSE(draw::arc({0, 0}, {0, 0}, {1, 1}) || draw::arc({0, 0}, {5, 5}, {0, 0}));
        EXPECT_FALSE(kText({0, std::nan("")}, nullptr, nullptr) || kText({0, 0}, &wrong, nullptr));
        for (const char* const text : {"", "two\nlines", "\xC3", "\xED\xA0\x80"})
            EXPECT_FALSE(draw::text(text, {0, 0}, "", 12, Left, {})) << text;
        EXPECT_FALSE(draw::text(std::string("a\0b", 3), {0, 0}, "", 12, Left, {}));
        EXPECT_FALSE(draw::text("a", {0, 0}, "", 0, Left, {}) || draw::text("a", {0, 0}, "", NAN, Left, {}));
        EXPECT_FALSE(draw::text("a", {0, 0}, "", 12, ParagraphJustification(7), ArtColor{2, 0, 0}));
        const auto shut = draw::line({0, 0}, {1, 1});
        EXPECT_FALSE(draw::line({0, 0}, {1, 1}, shut.get())) << "a line holds nothing";
        shut->dispose();
    });
    EXPECT_EQ(desk.svg(), before);
    desk.expectReports();
}

TEST_F(DrawTest, TextIsInTheFileAndUndone) {
    const std::string before = desk.svg();
    ArtObject* handle = nullptr;
    desk.inMessage([&] {
        const auto art = kText({40, 50}, nullptr, nullptr);
        ASSERT_TRUE(art);
        handle = art->aiArtHandle();
        EXPECT_EQ(art->artType(), ArtType::TextFrame);
        EXPECT_EQ(art->path()->segPointCount(), 0);
    });
    const std::string after = desk.svg();
    for (const char* const part : {"<text x=\"40\" y=\"50\" ", " fill=\"#ff0000\" ",
                                   " font-family=\"serif\" font-size=\"12\" text-anchor=\"middle\" "})
        EXPECT_NE(after.find(part), std::string::npos) << after;
    EXPECT_NE(after.find(">a &lt; b &amp; ‘c’</text>"), std::string::npos) << after;
    EXPECT_TRUE(desk.document().journal().undo());
    EXPECT_EQ(desk.svg(), before);
    EXPECT_TRUE(desk.document().journal().redo());
    EXPECT_EQ(desk.svg(), after);
    desk.document().offset(*desk.document().root().firstChild()->firstChild(), 5, -5);
    EXPECT_NE(desk.svg().find("<text x=\"45\" y=\"45\""), std::string::npos);
    desk.inMessage([&] { EXPECT_TRUE(Art(handle).dispose()); });
    EXPECT_EQ(desk.svg(), before);
}

} // namespace
