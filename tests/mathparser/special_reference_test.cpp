#include "special_reference.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

#include "mathparser/integer_math.h"
#include "mathparser/special/double_double.h"

namespace zentab::mathparser {
namespace {

// The error bounds that the function reference states: the last but one cell of a keyword's row.
std::map<std::string, double> StatedBounds() {
  std::map<std::string, double> bounds;
  std::ifstream file(SPECIAL_FUNCTIONS_REFERENCE);
  for (std::string line; std::getline(file, line);) {
    if (!line.starts_with("| ") || !line.ends_with("` |")) continue;
    const std::size_t last = line.rfind(" | ");
    const std::size_t start = line.rfind(" | ", last - 1) + 3;
    bounds[line.substr(2, line.find(' ', 2) - 2)] = std::strtod(line.c_str() + start, nullptr);
  }
  return bounds;
}

TEST(SpecialFunctions, AgreeWithTheReferenceValuesAsStated) {
  // What long double carries costs digits where it is no wider than double.
  const double least = std::numeric_limits<long double>::digits > 53 ? 0.0 : 1e-12;
  const std::map<std::string, double> bounds = StatedBounds();
  std::map<std::string, int> counts;
  for (const ReferenceValue& reference :
       ReadReferenceValues(MATHPARSER_DATA "special_reference.txt")) {
    ++counts[reference.keyword];
    const auto bound = bounds.find(reference.keyword);
    ASSERT_NE(bound, bounds.end()) << reference.keyword;
    EXPECT_LE(bound->second, 1e-13) << reference.keyword;
    const double value = Computed(reference);
    EXPECT_LE(1e-13 * ErrorInTolerances(reference, value), std::max(bound->second, least))
        << reference.Text() << " is " << static_cast<double>(reference.value) << ", not " << value;
  }
  EXPECT_EQ(counts.size(), 39U);
}

#ifndef _WIN32  // where the C library rounds fma twice
// What the longest phases and logarithms rest on: one digit less here is seven there.
TEST(DoubleDouble, ProductsKeepWhatTheyRoundAway) {
  std::mt19937_64 random(20240229);
  for (int i = 0; i < 100000; ++i) {
    const auto draw = [&random] {
      const auto bits = static_cast<double>(random() >> 11U) * (random() % 2 == 0 ? 1.0 : -1.0);
      return std::ldexp(bits, static_cast<int>(random() % 400) - 250);
    };
    const double a = draw();
    const double b = draw();
    const DoubleDouble product = ProductOf(a, b);
    ASSERT_EQ(product.low, std::fma(a, b, -product.high)) << a << " * " << b;
  }
}
#endif

TEST(SpecialFunctions, CountExactlyBelowTwoToThePowerOf53) {
  constexpr double kLimit = 9007199254740992.0;
  std::vector<double> row = {1.0};  // of Pascal's triangle
  for (double n = 0.0; n <= 200.0; ++n) {
    double arrangements = 1.0;
    for (std::size_t k = 0; k < row.size(); ++k) {
      const auto drawn = static_cast<double>(k);
      if (row[k] < kLimit) {
        EXPECT_EQ(Combinations(n, drawn), row[k]) << n << ' ' << k;
      }
      if (arrangements < kLimit) {
        EXPECT_EQ(Permutations(n, drawn), arrangements) << n << ' ' << k;
      }
      arrangements *= n - drawn;
    }
    row.push_back(0.0);
    for (std::size_t k = row.size() - 1; k > 0; --k) row[k] += row[k - 1];
  }
}

}  // namespace
}  // namespace zentab::mathparser
