// An angle as a plain value, with the arithmetic, the ways to normalise it and the comparisons that wrap around.
// It says nothing of screens: which way a positive angle turns is settled by those who turn it into a direction.
#pragma once

namespace kzo::geo {

/// An angle in radians. Nothing normalises it but the operations that say so; an angle that is not finite normalises
/// to NaN.
class Angle {
  public:
    enum class Units { Radians = 1, Degrees = 2, Gradians = 3, Turns = 4 };

    // Construction
    constexpr Angle() = default;
    /// Takes any unit it does not know for radians.
    constexpr Angle(double value, Units units) { setValueInUnits(value, units); }
    [[nodiscard]] static constexpr Angle Zero() { return {}; }
    [[nodiscard]] static constexpr Angle Pi() { return {kPi, Units::Radians}; }
    [[nodiscard]] static constexpr Angle TwoPi() { return {2.0 * kPi, Units::Radians}; }

    // Values
    [[nodiscard]] constexpr double asRadians() const { return radians_; }
    [[nodiscard]] constexpr double asDegrees() const { return valueInUnits(Units::Degrees); }
    [[nodiscard]] constexpr double asGradians() const { return valueInUnits(Units::Gradians); }
    [[nodiscard]] constexpr double asTurns() const { return valueInUnits(Units::Turns); }
    [[nodiscard]] constexpr double valueInUnits(Units units) const { return radians_ * (1.0 / radiansPer(units)); }
    constexpr void setValueInUnits(double value, Units units) { radians_ = value * radiansPer(units); }

    // Arithmetic, on the radians as they are
    constexpr Angle operator-() const { return radians(-radians_); }
    constexpr Angle& operator+=(Angle other) { return *this = radians(radians_ + other.radians_); }
    constexpr Angle& operator-=(Angle other) { return *this = radians(radians_ - other.radians_); }
    constexpr Angle& operator*=(Angle other) { return *this = radians(radians_ * other.radians_); }
    constexpr Angle& operator/=(Angle other) { return *this = radians(radians_ / other.radians_); }
    constexpr Angle& operator*=(double factor) { return *this = radians(radians_ * factor); }
    constexpr Angle& operator/=(double divisor) { return *this = radians(radians_ / divisor); }
    friend constexpr Angle operator+(Angle a, Angle b) { return a += b; }
    friend constexpr Angle operator-(Angle a, Angle b) { return a -= b; }
    friend constexpr Angle operator*(Angle a, Angle b) { return a *= b; }
    friend constexpr Angle operator/(Angle a, Angle b) { return a /= b; }
    friend constexpr Angle operator*(Angle a, double factor) { return a *= factor; }
    friend constexpr Angle operator*(double factor, Angle a) { return a *= factor; }
    friend constexpr Angle operator/(Angle a, double divisor) { return a /= divisor; }

    // Comparison, of the angles normalised to one turn
    /// Equal but for rounding; 0 and a full turn are equal too.
    [[nodiscard]] bool operator==(Angle other) const;
    [[nodiscard]] bool operator<(Angle other) const;
    [[nodiscard]] bool operator<=(Angle other) const;
    [[nodiscard]] bool operator>(Angle other) const;
    [[nodiscard]] bool operator>=(Angle other) const;
    /// Strictly within `tol` of each other, across the full turn too.
    [[nodiscard]] bool equalWithinTol(Angle other, Angle tol) const;

    // Normalisation
    /// In [0, 2π]. What rounding cannot tell from a full turn stays a full turn.
    [[nodiscard]] Angle range0To2Pi() const;
    /// In [−π, π].
    [[nodiscard]] Angle rangeNegPiToPi() const;
    /// The nearest multiple of π/4, from −3π/4 to π. Halfway between two, the one nearer to 0.
    [[nodiscard]] Angle nearest45() const;
    // The direction of the same line that lies in the half turn.
    [[nodiscard]] Angle constrain0ToPi() const;
    [[nodiscard]] Angle constrainPiOver2To3PiOver2() const;
    [[nodiscard]] Angle constrainPiTo2Pi() const;
    [[nodiscard]] Angle constrainNegPiOver2ToPiOver2() const;

    // Relations
    /// The smallest difference, without sign, in [0, π].
    [[nodiscard]] Angle delta(Angle other) const;
    /// The middle of the smaller angle between the two, in [0, 3π].
    [[nodiscard]] Angle bisect(Angle other) const;
    [[nodiscard]] bool firstQuadrant() const;  // [0, π/2), and what is within 1e-4 of 0
    [[nodiscard]] bool secondQuadrant() const; // [π/2, π)
    [[nodiscard]] bool thirdQuadrant() const;  // [π, 3π/2)
    [[nodiscard]] bool fourthQuadrant() const; // [3π/2, 2π]
    /// 1 to 4, the first that holds; 0 when none does.
    [[nodiscard]] int quadrantNumber() const;

    // Trigonometry. A result within `tol` of 0 is exactly 0. An infinite argument counts as the largest finite number;
    // NaN returns NaN.
    [[nodiscard]] double sin(double tol) const;
    [[nodiscard]] double cos(double tol) const;
    [[nodiscard]] double tan(double tol) const;
    [[nodiscard]] static Angle asin(double value, double tol);
    [[nodiscard]] static Angle acos(double value, double tol);
    [[nodiscard]] static Angle atan(double value, double tol);

  private:
    static constexpr double kPi = 3.141592653589793;

    static constexpr Angle radians(double value) { return {value, Units::Radians}; }

    static constexpr double radiansPer(Units units) {
        switch (units) {
        case Units::Degrees: return kPi / 180.0;
        case Units::Gradians: return kPi / 200.0;
        case Units::Turns: return 2.0 * kPi;
        case Units::Radians: break;
        }
        return 1.0;
    }

    [[nodiscard]] Angle _constrainCustom(double lo, double hi) const;

    double radians_ = 0.0;
};

} // namespace kzo::geo
