#include "cli/numbers.h"

#include <array>
#include <charconv>

namespace zentab::cli {

std::string ShortestText(double number) {
  std::array<char, 32> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr;
  return {buffer.data(), end};
}

}  // namespace zentab::cli
