#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace zentab::mathparser {

struct Forms;

/// The random numbers of "rnd": uniform in [0,1), seeded anew by the system at the first draw. A
/// copy has a sequence of its own.
class RandomSource {
 public:
  RandomSource() = default;
  /// A sequence that is the same every time.
  explicit RandomSource(std::uint64_t seed) : state_(seed) {}
  RandomSource(const RandomSource&) noexcept {}
  RandomSource& operator=(const RandomSource&) noexcept { return *this; }
  ~RandomSource() = default;

  [[nodiscard]] double Next();

 private:
  std::optional<std::uint64_t> state_;
};

/// What a function may need beside its arguments.
struct CallContext {
  double angleFactor = 1.0;        // radians in one angle unit: 1, pi/180 or pi/200
  RandomSource* random = nullptr;  // never null while the function of an isRandom entry runs
  std::string_view message{};      // a failing function may set a text of its own, static storage
};

/// Computes a function of as many arguments as its entry says; all of them are finite. A NaN or an
/// infinity as the result says that the function has failed. Must not throw and must come back
/// within milliseconds for any arguments.
using Kernel = double (*)(const double* arguments, CallContext& context);

/// One keyword of the vocabulary (or an operator, whose sign is its keyword).
struct FunctionEntry {
  std::string_view keyword;      // lower case; at most kLongestKeyword characters
  int code = -1;                 // below 201 for one and two arguments, 201 and up for more
  int arguments = 1;             // 1 to 6
  Kernel kernel = nullptr;       // null: known, but every evaluation fails with "missing?"
  const Forms* forms = nullptr;  // ready-made instructions; null: called through the kernel
  bool isRandom = false;         // two calls with the same arguments may differ
};

inline constexpr std::size_t kLongestKeyword = 16;

}  // namespace zentab::mathparser
