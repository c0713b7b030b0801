#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace zentab::test {

/// The rows of one "[section]" of a file in tests/data/, split into fields at tabs. In a field \t,
/// \r, \n, \0 and \\ stand for themselves; lines beginning with "#" are remarks.
[[nodiscard]] std::vector<std::vector<std::string>> Cases(std::string_view file,
                                                          std::string_view section);

}  // namespace zentab::test
