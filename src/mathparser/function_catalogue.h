#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>
#include <vector>

#include "mathparser/function_entry.h"

namespace zentab::mathparser {

/// Keywords that belong together, defined in one file. The table must outlive the catalogue.
using FunctionFamily = std::span<const FunctionEntry>;

/// Every function keyword that may stand before a bracket, found by name without regard to case.
/// A new family (special/*.cpp) is a table of entries and one line in the list of families in
/// function_catalogue.cpp; nothing else needs to know of it.
class FunctionCatalogue {
 public:
  explicit FunctionCatalogue(std::initializer_list<FunctionFamily> families);

  /// The entry of a name, null for an unknown one. Takes time in proportion to the name's length,
  /// at most kLongestKeyword.
  [[nodiscard]] const FunctionEntry* Find(std::string_view name) const;

  /// All entries, in the order of their families.
  [[nodiscard]] std::span<const FunctionEntry* const> Entries() const { return entries_; }

 private:
  static constexpr std::size_t kBuckets = 512;

  std::vector<const FunctionEntry*> entries_;
  std::array<std::uint16_t, kBuckets> buckets_{};  // 1-based places in entries_, 0 for none
};

/// The vocabulary of the program.
[[nodiscard]] const FunctionCatalogue& StandardCatalogue();

/// The elementary families, each in a file of its own.
[[nodiscard]] FunctionFamily ElementaryFunctions();  // angles, exponentials, roots, signs
[[nodiscard]] FunctionFamily LogicFunctions();       // and, or, not, ...
[[nodiscard]] FunctionFamily IntegerFunctions();     // factorial, comb, perm, gcd, lcm
[[nodiscard]] FunctionFamily RoundingFunctions();    // fix, int, dec, round, mod, min, max, clip

/// What is written with a sign, or made by the compiler itself.
namespace operators {
extern const FunctionEntry kAdd;
extern const FunctionEntry kSubtract;
extern const FunctionEntry kMultiply;
extern const FunctionEntry kDivide;
extern const FunctionEntry kIntegerDivide;
extern const FunctionEntry kPower;
extern const FunctionEntry kPercent;
extern const FunctionEntry kFactorial;
extern const FunctionEntry kNegate;
extern const FunctionEntry kAbsolute;
extern const FunctionEntry kRight;  // passes its second argument through

/// The comparison written as `sign` ("<", "=<", ...), null for a combination that is none.
[[nodiscard]] const FunctionEntry* Comparison(std::string_view sign);
}  // namespace operators

/// Whether a code is that of a comparison.
[[nodiscard]] constexpr bool IsComparison(int code) { return code >= 36 && code <= 41; }

}  // namespace zentab::mathparser
