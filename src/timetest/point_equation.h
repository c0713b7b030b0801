#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "mathparser/math_parser.h"
#include "timetest/measured_points.h"

namespace zentab::timetest {

/// What an equation is evaluated for: a point of the list and the two before it.
struct EquationPlace {
  std::size_t count;  // z, of the points in the list
  std::size_t index;  // y, of the point, from 1
  const MeasuredPoint& point0;
  const MeasuredPoint& point1;
  const MeasuredPoint& point2;
};

/// One of the user's equations, compiled once. Its variables, each known by its name: z, y; t0,
/// t1, t2 and v0, v1, v2, the times and loads of the point and the two before it; tMin, tMax,
/// vMin, vMax. Any other name is a variable that is always 0.
class PointEquation {
 public:
  /// False when the text is no expression.
  [[nodiscard]] bool Compile(std::string_view text, const Extremes& extremes);

  /// The value; nothing where the evaluation fails, as in a division by zero.
  [[nodiscard]] std::optional<double> Evaluate(const EquationPlace& place);

  /// At how many places the evaluation failed.
  [[nodiscard]] std::size_t Failures() const { return failures_; }

 private:
  static constexpr std::size_t kChanging = 8;

  mathparser::MathParser parser_;
  std::size_t failures_ = 0;
  std::array<int, kChanging> variables_{};  // their numbers in the parser, 0: not in the text
};

}  // namespace zentab::timetest
