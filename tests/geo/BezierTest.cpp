// What can be asked of a cubic, against an independent library.
#include <algorithm>
#include <cmath>
#include <memory>

#include <2geom/sbasis-geometric.h>
#include <gtest/gtest.h>

#include "Curves.h"
#include "geo/Vector.h"

namespace {

using namespace kzo::geo;
using namespace kzo::geo::test;

/// A curve, and two parameters on it.
struct Sample {
    Bezier ours;
    Geom::CubicBezier peer;
    double t1;
    double t2;
    bool smooth; ///< else the library's integral aborts the program, and its own length must be handed small pieces

    [[nodiscard]] double peerLength(double from, double to) const {
        const std::unique_ptr<Geom::Curve> part(peer.portion(from, to));
        if (smooth) {
            double length = 0;
            double error = 0;
            Geom::length_integrating(part->toSBasis(), length, error, 1e-10);
            return length;
        }
        constexpr int kPieces = 128;
        double sum = 0;
        for (int i = 0; i < kPieces; ++i) {
            const std::unique_ptr<Geom::Curve> piece(part->portion(1. * i / kPieces, (i + 1.) / kPieces));
            sum += piece->length(1e-9);
        }
        return sum;
    }
    [[nodiscard]] double size() const {
        return norm(ours.p1 - ours.p0) + norm(ours.p2 - ours.p1) + norm(ours.p3 - ours.p2);
    }
};

double apart(Point p, Geom::Point q) { return std::hypot(p.x - q.x(), p.y - q.y()); }

const struct {
    const char* name;
    double tolerance; ///< of lengths and places in parts of the control polygon, of directions in radians
    double (*difference)(const Sample&);
} kOperations[] = {
    {"evaluate", 1e-14, [](const Sample& s) { return apart(s.ours.evaluate(s.t1), s.peer.pointAt(s.t1)) / s.size(); }},
    {"section", 1e-12,
     [](const Sample& s) {
         const Bezier part = s.ours.section(s.t1, s.t2);
         const std::unique_ptr<Geom::Curve> same(s.peer.portion(s.t1, s.t2));
         const auto& p = dynamic_cast<const Geom::BezierCurve&>(*same);
         return std::max({apart(part.p0, p[0]), apart(part.p1, p[1]), apart(part.p2, p[2]), apart(part.p3, p[3])}) /
                s.size();
     }},
    {"length", 1e-8, [](const Sample& s) { return std::abs(s.ours.length() - s.peerLength(0, 1)) / s.size(); }},
    {"sublength", 1e-8,
     [](const Sample& s) {
         const auto [from, to] = std::minmax(s.t1, s.t2);
         return std::abs(s.ours.sublength(s.t1, s.t2) - s.peerLength(from, to)) / s.size();
     }},
    {"tAtLength", 1e-8,
     [](const Sample& s) {
         const double length = s.t1 * s.ours.length();
         return std::abs(s.peerLength(0, s.ours.tAtLength(length)) - length) / s.size();
     }},
    {"direction", 1e-6,
     [](const Sample& s) {
         const auto ours = s.ours.direction(s.t1);
         return ours ? std::abs(Geom::angle_between(Geom::Point(ours->x, ours->y), s.peer.unitTangentAt(s.t1))) : 9;
     }},
    {"osculatingCircle", 1e-6, // of the curvature, or that of a circle of the curve's size where it is less
     [](const Sample& s) {
         const auto v = s.peer.pointAndDerivatives(s.t1, 2);
         const double expected = std::abs(Geom::cross(v[1], v[2])) / std::pow(v[1].length(), 3);
         const auto circle = s.ours.osculatingCircle(s.t1);
         return std::abs((circle ? 1 / circle->radius : 0) - expected) / (expected + 1 / s.size());
     }},
    {"bounds", 1e-12,
     [](const Sample& s) {
         const Geom::Rect expected = s.peer.boundsExact();
         const Box bounds = s.ours.bounds();
         return std::max(apart(bounds.min, expected.min()), apart(bounds.max, expected.max())) / s.size();
     }},
};

TEST(Bezier, AgreesWithAnotherLibrary) {
    Curves curves(31);
    for (int i = 0; i < 11'000; ++i) {
        const bool nasty = i % 11 == 0;
        Bezier curve = nasty ? curves.nasty() : curves.any();
        // Now and then ever nearer to a cusp, where the speed is not zero but sharp.
        if (i % 1100 == 0) curve = {{0, 0}, {100, 100 + std::pow(10, -i / 1100)}, {0, 100}, {100, 0}};
        const Sample sample{curve, peer(curve), curves.number(0, 1), curves.number(0, 1), !nasty};
        for (const auto& row : kOperations) EXPECT_LE(row.difference(sample), row.tolerance) << row.name << ' ' << i;
    }
}

} // namespace
