#include "support/cases.h"

#include <gtest/gtest.h>

#include <fstream>

namespace zentab::test {

std::vector<std::vector<std::string>> Cases(std::string_view file, std::string_view section) {
  std::ifstream stream(std::string(TEST_DATA) + "/" + std::string(file));
  std::vector<std::vector<std::string>> cases;
  bool inside = false;
  for (std::string line; std::getline(stream, line);) {
    if (line.starts_with('[')) inside = line == "[" + std::string(section) + "]";
    if (!inside || line.empty() || line[0] == '[' || line[0] == '#') continue;
    std::vector<std::string> fields(1);
    for (std::size_t at = 0; at < line.size(); ++at) {
      if (line[at] == '\t') {
        fields.emplace_back();
      } else if (line[at] == '\\' && at + 1 < line.size()) {
        const std::size_t escape = std::string_view("trn0\\").find(line[++at]);
        fields.back() += std::string_view("\t\r\n\0\\", 5).at(escape);
      } else {
        fields.back() += line[at];
      }
    }
    cases.push_back(std::move(fields));
  }
  EXPECT_FALSE(cases.empty()) << file << " has no section " << section;
  return cases;
}

}  // namespace zentab::test
