// The one comparison with a tolerance that geometry uses everywhere.
// It knows nothing of units: both values and the tolerance are in the caller's unit.
#pragma once

namespace kzo::utils {

/// Compares strictly: `b` is nearer to `a` than the size of `tol`. A tolerance of 0 (or NaN) asks for exact equality.
[[nodiscard]] constexpr bool equalWithinTol(double a, double b, double tol) {
    const double limit = tol < 0.0 ? -tol : tol;
    if (!(limit > 0.0)) return a == b;
    const double difference = b < a ? a - b : b - a;
    return difference < limit;
}

} // namespace kzo::utils
