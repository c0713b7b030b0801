#pragma once

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "mathparser/function_catalogue.h"

namespace zentab::mathparser {

/// One line of special_reference.txt.
struct ReferenceValue {
  std::string keyword;
  std::vector<double> arguments;
  long double value = 0.0L;

  [[nodiscard]] std::string Text() const {
    std::ostringstream text;
    text.precision(17);
    text << keyword;
    for (const double a : arguments) text << ' ' << a;
    return text.str();
  }
};

inline std::vector<ReferenceValue> ReadReferenceValues(const std::string& path) {
  std::vector<ReferenceValue> values;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream words(line);
    ReferenceValue value;
    words >> value.keyword;
    std::string last;
    words >> last;
    for (std::string word; words >> word; last = word) {
      value.arguments.push_back(std::strtod(last.c_str(), nullptr));
    }
    value.value = std::strtold(last.c_str(), nullptr);
    values.push_back(value);
  }
  return values;
}

inline double Computed(const ReferenceValue& reference) {
  const FunctionEntry* entry = StandardCatalogue().Find(reference.keyword);
  CallContext context;
  return entry == nullptr ? std::numeric_limits<double>::quiet_NaN()
                          : entry->kernel(reference.arguments.data(), context);
}

/// Near a zero of a function that has them on its way, only the absolute error counts.
inline bool MayCancel(const ReferenceValue& reference) {
  constexpr std::string_view kWithZeros =
      " gammaln digamma ei j0 y0 besselj bessely airya airyb ci polyle polych polyla polyhe "
      "hypgeom ";
  return (reference.value == 0.0L || std::abs(reference.value) > 1e-5L) &&
         kWithZeros.find(" " + reference.keyword + " ") != std::string_view::npos;
}

/// The error in units of the accuracy aimed at: 1e-13 of the value, 1e-14 absolute near zeros.
inline double ErrorInTolerances(const ReferenceValue& reference, double value) {
  const long double error = std::abs(static_cast<long double>(value) - reference.value);
  const long double tolerance =
      1e-13L * std::abs(reference.value) + (MayCancel(reference) ? 1e-14L : 0.0L);
  if (error == 0.0L) return 0.0;
  return std::isnan(value) ? std::numeric_limits<double>::infinity()
                           : static_cast<double>(error / tolerance);
}

}  // namespace zentab::mathparser
