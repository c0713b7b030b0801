#include "timetest/point_equation.h"

namespace zentab::timetest {
namespace {

constexpr std::array<std::string_view, 8> kNames = {"z", "y", "t0", "t1", "t2", "v0", "v1", "v2"};

}  // namespace

bool PointEquation::Compile(std::string_view text, const Extremes& extremes) {
  if (!parser_.StoreExpression(text)) return false;
  for (std::size_t at = 0; at < kNames.size(); ++at) {
    variables_[at] = static_cast<int>(parser_.VarSymb(kNames[at]));
  }
  parser_.VarSymb("tMin", extremes.tMin);
  parser_.VarSymb("tMax", extremes.tMax);
  parser_.VarSymb("vMin", extremes.vMin);
  parser_.VarSymb("vMax", extremes.vMax);
  return true;
}

std::optional<double> PointEquation::Evaluate(const EquationPlace& place) {
  const std::array<double, kChanging> values = {static_cast<double>(place.count),
                                                static_cast<double>(place.index),
                                                place.point0.time,
                                                place.point1.time,
                                                place.point2.time,
                                                place.point0.load,
                                                place.point1.load,
                                                place.point2.load};
  for (std::size_t at = 0; at < kChanging; ++at) parser_.VarValue(variables_[at], values[at]);
  const std::optional<double> value = parser_.TryEval();
  if (!value) ++failures_;
  return value;
}

}  // namespace zentab::timetest
