#pragma once

#include <string>

#include "formulas.h"

namespace zentab::mathparser::bench {

/// Adds the benchmarks of muParser for a formula, where that is installed.
void RegisterMuParser(const Formula& formula, const std::string& number);

}  // namespace zentab::mathparser::bench
