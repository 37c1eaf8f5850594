// Path data against another library's reading of it, and what is kept of damaged data.
#include "svg/PathScanner.h"

#include <2geom/bezier-curve.h>
#include <2geom/elliptical-arc.h>
#include <2geom/pathvector.h>
#include <2geom/svg-path-parser.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace easel::svg {
namespace {

using model::PathData;
using model::PathPoint;
using model::Point;

/// Data of all commands, with numbers in all spellings, that means something.
class RandomData {
  public:
    explicit RandomData(std::uint32_t seed) : engine_(seed) {}

    std::string path() {
        std::string data = below(2) ? "M" : " m ";
        number(data), number(data);
        for (std::size_t i = 1 + below(12); i > 0; --i) segment(data);
        return data;
    }

  private:
    std::size_t below(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(engine_); }

    void segment(std::string& data) {
        static constexpr std::pair<char, int> commands[] = {{'m', 2}, {'l', 2}, {'h', 1}, {'v', 1}, {'c', 6},
                                                            {'s', 4}, {'q', 4}, {'t', 2}, {'a', 7}, {'z', 0}};
        const auto [letter, count] = commands[below(std::size(commands))];
        data += static_cast<char>(below(2) ? letter : letter - 'a' + 'A');
        for (std::size_t repeat = count > 0 ? 1 + below(3) : 0; repeat > 0; --repeat) {
            for (int i = 0; i < count; ++i) {
                if (letter == 'a' && (i == 3 || i == 4))
                    data += below(2) && i == 4 ? "0" : " 1,";
                else
                    number(data);
            }
        }
    }

    void number(std::string& data) {
        static constexpr const char* formats[] = {" %.0f", " %.3f", "\n%+.17g", " %.2e", " %.20f", "\t%.12E"};
        char text[64];
        const double value = std::uniform_real_distribution<double>(-100, 100)(engine_);
        std::snprintf(text, sizeof text, formats[below(std::size(formats))], value);
        const std::size_t last = data.find_last_of(" ,\n\tMmLlHhVvCcSsQqTtAaZz");
        const bool inNumber = data.back() >= '0' && data.back() <= '9';
        if (inNumber && below(4) == 0) data += " ,";
        const bool hadPoint = inNumber && data.find('.', last) != std::string::npos;
        data += hadPoint && below(4) == 0 ? ".5" : text; // the point begins the next number
    }

    std::mt19937 engine_;
};

void expectNear(Point ours, const Geom::Point& theirs) {
    const double tolerance = 1e-9 * (1 + theirs.length());
    EXPECT_NEAR(ours.x, theirs.x(), tolerance);
    EXPECT_NEAR(ours.y, theirs.y(), tolerance);
}

/// Their curves, with quadratic ones raised, against ours; arcs by where they pass.
void expectSame(const PathData& ours, const Geom::Path& theirs) {
    EXPECT_EQ(ours.closed, theirs.closed());
    ASSERT_FALSE(ours.points.empty());
    std::size_t at = 0;
    const auto next = [&] { return at + 1 == ours.points.size() ? 0 : at + 1; };
    expectNear(ours.points[0].anchor, theirs.initialPoint());
    for (const Geom::Curve& curve : theirs) {
        if (&curve == &theirs.back_closed() && curve.isDegenerate()) continue; // ours ends at the first anchor anyway
        const auto* const arc = dynamic_cast<const Geom::EllipticalArc*>(&curve);
        const std::size_t first = at;
        do {
            at = next();
        } while (arc &&
                 Geom::distance(Geom::Point(ours.points[at].anchor.x, ours.points[at].anchor.y), curve.finalPoint()) >
                     1e-6 &&
                 at != first);
        const PathPoint& start = ours.points[first];
        const PathPoint& end = ours.points[at];
        expectNear(end.anchor, curve.finalPoint());
        if (arc && !arc->isChord()) {
            const PathPoint& second = ours.points[first + 1 == ours.points.size() ? 0 : first + 1];
            const auto middle = [&](double a, double b, double c, double d) { return (a + 3 * b + 3 * c + d) / 8; };
            const Geom::Point half(middle(start.anchor.x, start.out.x, second.in.x, second.anchor.x),
                                   middle(start.anchor.y, start.out.y, second.in.y, second.anchor.y));
            EXPECT_LT(Geom::distance(curve.pointAt(curve.nearestTime(half)), half),
                      1e-3 * (1 + std::max(arc->ray(Geom::X), arc->ray(Geom::Y))));
            continue;
        }
        const auto* const bezier = dynamic_cast<const Geom::BezierCurve*>(&curve);
        if (!bezier || bezier->order() == 1) {
            EXPECT_EQ(start.out, start.anchor);
            EXPECT_EQ(end.in, end.anchor);
            continue;
        }
        std::vector<Geom::Point> controls = bezier->controlPoints();
        if (bezier->order() == 2) {
            const Geom::Point control = controls[1];
            controls = {controls[0], controls[0] + (control - controls[0]) * (2.0 / 3),
                        controls[2] + (control - controls[2]) * (2.0 / 3), controls[2]};
        }
        expectNear(start.out, controls[1]);
        expectNear(end.in, controls[2]);
    }
    EXPECT_TRUE(at + 1 == ours.points.size() || (ours.closed && at == 0)) << at;
}

TEST(PathScanner, ReadsWhatAnotherLibraryReads) {
    for (std::uint32_t seed = 1; seed <= 400; ++seed) {
        const std::string data = RandomData(seed).path();
        SCOPED_TRACE(data);
        const Outline outline = scanPath(data);
        EXPECT_FALSE(outline.damaged);
        const Geom::PathVector theirs = Geom::parse_svg_path(data.c_str());
        ASSERT_EQ(outline.subpaths.size(), theirs.size());
        for (std::size_t i = 0; i < theirs.size(); ++i) expectSame(outline.subpaths[i], theirs[i]);
        if (testing::Test::HasFailure()) return;
    }
}

TEST(PathScanner, KeepsEveryCompleteSegmentBeforeDamage) {
    const struct {
        const char* data;
        std::size_t anchors;
        bool damaged;
    } rows[] = {
        {"M0 0 C1 1 2 2 3 3 4 4 5 5 L 6 6", 2, true}, // the rest of a group of six is missing
        {"M0 0 C1 1 2 2 3 3 4 4 5 5 6 6 7", 3, true},
        {"M0 0 L1 1,", 2, true},
        {"M0 0 L1 1, L 2 2", 2, true},
        {"M0 0 1 1 2", 2, true},
        {"M0 0 A5 5 0 0 1 5 5 5 5 0 2 1 9 9", 2, true}, // a flag is 0 or 1
        {"M0 0 A5 5 0 015 5 5 5 0 1110 10", 5, false},  // and needs no space
        {"M0 0 A5 5 0 1 1 1e-17 0", 5, false},          // all but a whole turn
        {"M0 0 A1e-170 1e-171 9 0 1 10 0", 3, false},   // grows until it reaches
        {"M0 0 A1e-320 1e-320 9 0 1 10 0 L 1 1", 1, true},
        {"M0 0 L1 1 B 5", 2, true},
        {"M0 0 L1 1 1e999 0", 2, true},
        {"M0 0 L1 1 2e100 0", 2, true},
        {"M 5 5", 1, false},
        {"L 5 5", 0, true},
        {"M 0 0 H 1 2 V 3 4 Z", 5, false},
        {"M-.5.5-1-.5e1+2", 2, true},
        {" none ", 0, false},
    };
    for (const auto& row : rows) {
        const Outline outline = scanPath(row.data);
        EXPECT_EQ(outline.damaged, row.damaged) << row.data;
        EXPECT_EQ(outline.subpaths.empty() ? 0 : outline.subpaths[0].points.size(), row.anchors) << row.data;
    }
}

// Half a turn was once cut into three, for rounding had made it slightly more than that.
TEST(PathScanner, ArcsAreCutIntoAsFewPiecesAsKeepToThem) {
    for (int degrees = 0; degrees < 360; degrees += 7) {
        const double angle = degrees * M_PI / 180;
        const double radius = 1 + degrees / 10.0;
        const auto at = [&](double turn) {
            return std::to_string(radius * std::cos(angle + turn)) + ' ' +
                   std::to_string(radius * std::sin(angle + turn));
        };
        const std::string start =
            "M" + at(0) + " A" + std::to_string(radius) + ' ' + std::to_string(radius) + " 0 0 1 ";
        for (const auto& [turn, pieces] : {std::pair{M_PI, 2}, {M_PI / 2, 1}, {M_PI * 0.51, 2}}) {
            const Outline outline = scanPath(start + at(turn));
            ASSERT_EQ(outline.subpaths[0].points.size(), static_cast<std::size_t>(pieces) + 1) << start << at(turn);
        }
    }
}

} // namespace
} // namespace easel::svg
