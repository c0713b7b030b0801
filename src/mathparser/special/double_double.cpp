#include "mathparser/special/double_double.h"

#include <array>
#include <bit>
#include <cstdint>

namespace zentab::mathparser {
namespace {

// The mantissa in [1,2) is multiplied by that n/512 which brings it nearest to 1, by its first
// seven bits; ln(512/n) comes from the table. Nine bits of a factor keep the product exact.
constexpr int kTableBits = 7;
constexpr std::size_t kTableSize = 1 << kTableBits;

struct TableEntry {
  double factor = 1.0;
  DoubleDouble logarithm;  // of 1/factor
};

// ln(a / b) by the series of the inverse hyperbolic tangent (DLMF 4.6.4).
constexpr DoubleDouble LogOfRatio(double a, double b) {
  const DoubleDouble y = DoubleDouble(a - b) / DoubleDouble(a + b);
  const DoubleDouble square = y * y;
  DoubleDouble sum = 0.0;
  for (int k = 35; k >= 0; --k)
    sum = sum * square + DoubleDouble(1.0) / DoubleDouble(2.0 * k + 1.0);
  return DoubleDouble(2.0) * y * sum;
}

constexpr std::array<TableEntry, kTableSize> MakeTable() {
  std::array<TableEntry, kTableSize> table{};
  for (std::size_t i = 0; i < kTableSize; ++i) {
    const double middle = 1.0 + (static_cast<double>(i) + 0.5) / static_cast<double>(kTableSize);
    // NOLINTNEXTLINE(bugprone-incorrect-roundings): lround is no constant expression.
    const auto n = static_cast<double>(static_cast<int>(512.0 / middle + 0.5));
    table[i] = {n / 512.0, LogOfRatio(512.0, n)};
  }
  return table;
}
constexpr std::array<TableEntry, kTableSize> kTable = MakeTable();

// ln 2 in a part of 42 bits, whose multiples are exact, and the rest.
constexpr double kLn2Upper = 0x1.62e42fefa38p-1;
constexpr double kLn2Lower = 5.497923018708371e-14;

// r^3/3 - r^4/4 + ... for |r| < 2^-7.
double HigherTerms(double r, double square) {
  const double even = 1.0 / 3 + square * (1.0 / 5 + square * (1.0 / 7 + square * (1.0 / 9)));
  const double odd = 1.0 / 4 + square * (1.0 / 6 + square * (1.0 / 8 + square * (1.0 / 10)));
  return r * square * (even - r * odd);
}

}  // namespace

DoubleDouble Log(DoubleDouble a) {
  if (!(a.high > 0.0 && std::isfinite(a.high))) return std::log(a.high);
  int exponent = 0;
  auto bits = std::bit_cast<std::uint64_t>(a.high);
  if (bits >> 52U == 0) {  // subnormal
    bits = std::bit_cast<std::uint64_t>(a.high * 0x1p64);
    exponent = -64;
  }
  exponent += static_cast<int>(bits >> 52U) - 1023;
  constexpr std::uint64_t kFraction = (std::uint64_t{1} << 52U) - 1;
  const auto mantissa =
      std::bit_cast<double>((bits & kFraction) | std::bit_cast<std::uint64_t>(1.0));
  const TableEntry& entry = kTable[(bits & kFraction) >> (52U - kTableBits)];

  const double upper = UpperHalf(mantissa);
  const DoubleDouble r = SumOf(upper * entry.factor - 1.0, (mantissa - upper) * entry.factor);
  const DoubleDouble square = ProductOf(r.high, r.high);
  const DoubleDouble powers = SumOf(exponent * kLn2Upper, entry.logarithm.high);
  const DoubleDouble near = SumOf(r.high, -0.5 * square.high);
  const DoubleDouble sum = SumOf(powers.high, near.high);
  // What is below the last place of a changes the logarithm by its share of it.
  const double rest = HigherTerms(r.high, square.high) - 0.5 * square.low + a.low / a.high +
                      r.low * (1.0 - r.high) + exponent * kLn2Lower + entry.logarithm.low;
  return SumOf(sum.high, rest + (powers.low + near.low + sum.low));
}

DoubleDouble LogOnePlus(DoubleDouble a) {
  if (std::abs(a.high) > 0x1p-8) return Log(a + 1.0);
  const DoubleDouble square = a * a;
  const DoubleDouble head = SumOf(a.high, -0.5 * square.high);
  const double rest = HigherTerms(a.high, square.high) - 0.5 * square.low + a.low + head.low;
  return OrderedSumOf(head.high, rest);
}

}  // namespace zentab::mathparser
