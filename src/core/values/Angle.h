// The public angle: a unit-safe number with normalisation and comparisons that wrap around.
// The arithmetic is in the implementation object that every angle carries.
#pragma once

#include "utils/ValueImpl.h"

namespace kzo::geo {
class Angle;
}

namespace kzo::core {

/// An angle in radians, counter-clockwise on screen, 0 pointing right and π/2 pointing up. Nothing normalises it but
/// the operations that say so; an angle that is not finite normalises to NaN.
class Angle {
  public:
    enum class Units { Radians = 1, Degrees = 2, Gradians = 3, Turns = 4 };

    // Construction
    Angle();                          // 0
    Angle(double value, Units units); // a unit it does not know counts as radians
    explicit Angle(const geo::Angle& impl);
    [[nodiscard]] static Angle Zero();
    [[nodiscard]] static Angle Pi();
    [[nodiscard]] static Angle TwoPi();

    // Values
    [[nodiscard]] double asRadians() const;
    [[nodiscard]] double asDegrees() const;
    [[nodiscard]] double asGradians() const;
    [[nodiscard]] double asTurns() const;
    [[nodiscard]] double valueInUnits(Units units) const;
    void setValueInUnits(double value, Units units);

    // Arithmetic, on the radians as they are
    Angle operator-() const;
    Angle& operator+=(const Angle& other);
    Angle& operator-=(const Angle& other);
    Angle& operator*=(const Angle& other);
    Angle& operator/=(const Angle& other);
    Angle& operator*=(double factor);
    Angle& operator/=(double divisor);
    friend Angle operator+(Angle a, const Angle& b) { return a += b; }
    friend Angle operator-(Angle a, const Angle& b) { return a -= b; }
    friend Angle operator*(Angle a, const Angle& b) { return a *= b; }
    friend Angle operator/(Angle a, const Angle& b) { return a /= b; }
    friend Angle operator*(Angle a, double factor) { return a *= factor; }
    friend Angle operator*(double factor, Angle a) { return a *= factor; }
    friend Angle operator/(Angle a, double divisor) { return a /= divisor; }

    // Comparison, of the angles normalised to one turn
    [[nodiscard]] bool operator==(const Angle& other) const; // but for rounding; 0 equals a full turn
    [[nodiscard]] bool operator<(const Angle& other) const;
    [[nodiscard]] bool operator<=(const Angle& other) const;
    [[nodiscard]] bool operator>(const Angle& other) const;
    [[nodiscard]] bool operator>=(const Angle& other) const;
    [[nodiscard]] bool equalWithinTol(const Angle& other, const Angle& tol) const; // strictly, across the full turn too

    // Normalisation
    [[nodiscard]] Angle range0To2Pi() const;    // [0, 2π]; a full turn, but for rounding, stays a full turn
    [[nodiscard]] Angle rangeNegPiToPi() const; // [−π, π]
    [[nodiscard]] Angle nearest45() const;      // −3π/4 to π; halfway between two, the one nearer to 0
    [[nodiscard]] Angle constrain0ToPi() const; // this and the next three keep the line, not the sense along it
    [[nodiscard]] Angle constrainPiOver2To3PiOver2() const;
    [[nodiscard]] Angle constrainPiTo2Pi() const;
    [[nodiscard]] Angle constrainNegPiOver2ToPiOver2() const;

    // Relations
    [[nodiscard]] Angle delta(const Angle& other) const;  // the smallest difference, without sign, in [0, π]
    [[nodiscard]] Angle bisect(const Angle& other) const; // the middle of the smaller angle, in [0, 3π]
    [[nodiscard]] bool firstQuadrant() const;             // [0, π/2), and what is within 1e-4 of 0
    [[nodiscard]] bool secondQuadrant() const;            // [π/2, π)
    [[nodiscard]] bool thirdQuadrant() const;             // [π, 3π/2)
    [[nodiscard]] bool fourthQuadrant() const;            // [3π/2, 2π]
    [[nodiscard]] int quadrantNumber() const;             // 1 to 4, the first that holds; 0 when none does

    // Trigonometry. A result within `tol` of 0 is exactly 0; an infinite argument counts as the largest finite number.
    [[nodiscard]] double sin(double tol) const;
    [[nodiscard]] double cos(double tol) const;
    [[nodiscard]] double tan(double tol) const;
    [[nodiscard]] static Angle asin(double value, double tol);
    [[nodiscard]] static Angle acos(double value, double tol);
    [[nodiscard]] static Angle atan(double value, double tol);

    [[nodiscard]] const geo::Angle& impl() const;

  private:
    utils::ValueImpl<geo::Angle, sizeof(double)> impl_;
};

} // namespace kzo::core
