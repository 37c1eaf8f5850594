// Arc length of a cubic, and its inverse.
// Gauss-Legendre panels integrate the speed. The speed is smooth except near the complex parameters at which the
// derivative vanishes; they are known in closed form, so panels are made short near them, and nowhere else, in advance.
#include "geo/Bezier.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <limits>
#include <optional>
#include <utility>

#include "geo/Cubic.h"
#include "geo/Vector.h"

namespace kzo::geo {

namespace {

struct Node {
    double place;
    double weight;
};

// The positive half of the 16-point rule on [-1, 1].
constexpr Node kNodes[] = {{0.09501250983763744, 0.1894506104550685},  {0.2816035507792589, 0.18260341504492358},
                           {0.45801677765722737, 0.16915651939500254}, {0.6178762444026438, 0.14959598881657674},
                           {0.755404408355003, 0.12462897125553388},   {0.8656312023878318, 0.09515851168249279},
                           {0.9445750230732326, 0.062253523938647894}, {0.9894009349916499, 0.027152459411754096}};

class ArcLength {
  public:
    explicit ArcLength(const Bezier& b)
        : constant_(scaled(b.p1 - b.p0, 3.0)),
          linear_(scaled((b.p2 - b.p1) - (b.p1 - b.p0), 6.0)),
          square_(scaled(((b.p3 - b.p2) - (b.p2 - b.p1)) - ((b.p2 - b.p1) - (b.p1 - b.p0)), 3.0)) {
        findStops();
    }

    [[nodiscard]] Point velocity(double t) const {
        return {constant_.x + t * (linear_.x + t * square_.x), constant_.y + t * (linear_.y + t * square_.y)};
    }

    [[nodiscard]] Point acceleration(double t) const { return linear_ + scaled(square_, 2.0 * t); }

    /// The length from t1 to t2 by one panel: good where the speed is smooth.
    [[nodiscard]] double panel(double t1, double t2) const {
        const double half = 0.5 * (t2 - t1);
        const double middle = 0.5 * (t1 + t2);
        double sum = 0.0;
        for (const Node& node : kNodes) {
            const double reach = half * node.place;
            sum += node.weight * (speed(middle - reach) + speed(middle + reach));
        }
        return half * sum;
    }

    /// Calls `visit(t1, t2)` for panels that are good enough, in order, while it returns true.
    template <typename Visit> void walk(double t1, double t2, Visit&& visit) const {
        // A stop this near to the real axis is a cusp: the speed changes sign there, so to say, and is smooth on both
        // sides. What that leaves out is of the order of the square.
        constexpr double kCusp = 1e-7;
        split(t1, t2, kCusp * (t2 - t1), visit);
    }

  private:
    /// Where the curve would stop, at a complex parameter: its real part and its distance from the real axis.
    struct Stop {
        double at;
        double off;
    };

    [[nodiscard]] static double apart(const Stop& stop, double t) {
        // Squares of short distances vanish, and a stop at no distance at all would be cut off for ever.
        return std::hypot(stop.at - t, stop.off);
    }

    [[nodiscard]] double speed(double t) const {
        const Point v = velocity(t);
        return std::sqrt(v.x * v.x + v.y * v.y);
    }

    /// With points as complex numbers the derivative is a complex quadratic, and the squared speed its product with the
    /// conjugate. A root that does not exist comes out infinite or NaN, which is near to nothing.
    void findStops() {
        using Complex = std::complex<double>;
        const Complex a(square_.x, square_.y);
        const Complex b(linear_.x, linear_.y);
        const Complex c(constant_.x, constant_.y);
        const Complex root = std::sqrt(b * b - 4.0 * a * c);
        const bool along = b.real() * root.real() + b.imag() * root.imag() >= 0.0;
        const Complex q = -0.5 * (along ? b + root : b - root);
        const Complex first = q / a;
        const Complex second = c / q;
        stops_ = {{{first.real(), std::abs(first.imag())}, {second.real(), std::abs(second.imag())}}};
    }

    /// Where to cut a panel that is too long for its distance from a stop.
    [[nodiscard]] std::optional<double> cut(double t1, double t2, double cusp) const {
        // The rule's error falls with the 32nd power of the sum of the axes of the ellipse that has its foci at the
        // panel's ends and passes through the stop. This many times the panel keeps it well below 1e-9.
        constexpr double kReach = 1.2;
        for (const Stop& stop : stops_) {
            const bool inside = t1 < stop.at && stop.at < t2;
            if (stop.off <= cusp) {
                if (inside) return stop.at;
            } else if (apart(stop, t1) + apart(stop, t2) < kReach * (t2 - t1)) {
                const double middle = 0.5 * (t1 + t2);
                if (inside) return stop.at;
                if (t1 < middle && middle < t2) return middle;
            }
        }
        return std::nullopt;
    }

    template <typename Visit> bool split(double t1, double t2, double cusp, Visit& visit) const {
        const auto at = cut(t1, t2, cusp);
        return at ? split(t1, *at, cusp, visit) && split(*at, t2, cusp, visit) : visit(t1, t2);
    }

    // The derivative by powers of t.
    Point constant_;
    Point linear_;
    Point square_;
    std::array<Stop, 2> stops_{};
};

/// The t between t1 and t2 at which the panel from t1, which has `whole`, reaches `target`: Halley's method, held
/// within the bracket because the speed may vanish at an end.
double solve(const ArcLength& arc, double t1, double t2, double whole, double target) {
    constexpr int kMostSteps = 60;
    // A step of this part of the way to the nearer end is the last: what remains is of the order of its cube.
    constexpr double kLastStep = 1e-5;
    constexpr double kExact = 4.0 * std::numeric_limits<double>::epsilon();
    double lo = t1;
    double hi = t2;
    double t = t1 + (t2 - t1) * (target / whole);
    for (int i = 0; i < kMostSteps; ++i) {
        const double excess = arc.panel(t1, t) - target;
        if (std::abs(excess) <= kExact * whole) break;
        (excess > 0.0 ? hi : lo) = t;
        const Point velocity = arc.velocity(t);
        const double speed = norm(velocity);
        const double gain = dot(velocity, arc.acceleration(t)) / speed;
        const double next = t - 2.0 * excess * speed / (2.0 * speed * speed - excess * gain);
        const bool stray = !(next > lo && next < hi);
        const double step = next - t;
        t = stray ? 0.5 * (lo + hi) : next;
        if (!stray && std::abs(step) <= kLastStep * std::min(t - t1, t2 - t)) break;
    }
    return t;
}

} // namespace

double Bezier::sublength(double t1, double t2) const {
    if (t1 > t2) std::swap(t1, t2);
    const auto [curve, size] = usableSize(*this);
    const ArcLength arc(curve);
    double sum = 0.0;
    arc.walk(t1, t2, [&](double from, double to) {
        sum += arc.panel(from, to);
        return true;
    });
    return sum * size;
}

double Bezier::tAtLength(double length) const {
    if (!(length > 0.0)) return 0.0;
    const auto [curve, size] = usableSize(*this);
    const ArcLength arc(curve);
    double t = 1.0;
    double left = length / size;
    arc.walk(0.0, 1.0, [&](double from, double to) {
        const double panel = arc.panel(from, to);
        if (left > panel) {
            left -= panel;
            return true;
        }
        t = solve(arc, from, to, panel, left);
        return false;
    });
    return t;
}

} // namespace kzo::geo
