#pragma once

#include <limits>

namespace zentab::mathparser {

/// What a function returns that has no value for its arguments.
inline constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

// All of these take whole numbers of any size; NaN for others, infinity beyond a double's range.

/// a! for a >= 0, correctly rounded; infinity from 171 on, NaN for negative a.
[[nodiscard]] double Factorial(double a);

/// The number of choices of k out of n, n! / (k! (n-k)!), 0 for k > n; exact below 2^53, beyond
/// that measured up to 3.0e-16 off. NaN for negative operands.
[[nodiscard]] double Combinations(double n, double k);

/// The number of ordered choices of k out of n, n! / (n-k)!, 0 for k > n; exact below 2^53, beyond
/// that measured up to 1.9e-16 off. NaN for negative operands.
[[nodiscard]] double Permutations(double n, double k);

/// Of the absolute values; the divisor of 0 and b is b.
[[nodiscard]] double GreatestCommonDivisor(double a, double b);
[[nodiscard]] double LeastCommonMultiple(double a, double b);

}  // namespace zentab::mathparser
