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
    const auto n = static_cast<double>(static_cast<int>(512.0 / middle + 0.5));
    table[i] = {n / 512.0, LogOfRatio(512.0, n)};
  }
  return table;
}
constexpr std::array<TableEntry, kTableSize> kTable = MakeTable();

// ln(1 + r) for |r| < 2^-6 (DLMF 4.6.1).
DoubleDouble LogNearOne(DoubleDouble r) {
  const double x = r.high;
  const double cubic =
      1.0 / 3 -
      x * (1.0 / 4 -
           x * (1.0 / 5 -
                x * (1.0 / 6 -
                     x * (1.0 / 7 -
                          x * (1.0 / 8 - x * (1.0 / 9 - x * (1.0 / 10 - x * (1.0 / 11))))))));
  const DoubleDouble square = r * r;
  const DoubleDouble head = SumOf(x, -0.5 * square.high);
  const double rest = x * square.high * cubic - 0.5 * square.low + r.low + head.low;
  return OrderedSumOf(head.high, rest);
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
  // What is below the last place of a changes the logarithm by its share of it.
  const DoubleDouble near = LogNearOne({r.high, r.low});
  const DoubleDouble powers = DoubleDouble(exponent) * kLn2 + entry.logarithm;
  return powers + near + DoubleDouble(a.low / a.high);
}

DoubleDouble LogOnePlus(DoubleDouble a) {
  if (std::abs(a.high) < 0x1p-7) return LogNearOne(a);
  return Log(DoubleDouble(1.0) + a);
}

}  // namespace zentab::mathparser
