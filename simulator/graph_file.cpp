#include "graph_file.h"

#include <fstream>
#include <regex>
#include <sstream>

namespace simulator {
namespace {

constexpr std::size_t kLargest = 1 << 20;
constexpr std::size_t kLongestLine = 2000;  // the longest numbers fit

std::optional<std::string> Bytes(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::string bytes(kLargest + 1, '\0');
  if (!file.is_open()) return std::nullopt;
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  bytes.resize(static_cast<std::size_t>(file.gcount()));
  if (bytes.size() > kLargest) return std::nullopt;
  return bytes;
}

// Takes the next line, which must end in CR LF.
std::optional<std::string> TakeLine(std::istream& text) {
  std::string line;
  if (!std::getline(text, line) || text.eof() || !line.ends_with('\r')) return std::nullopt;
  if (line.size() > kLongestLine) return std::nullopt;
  line.pop_back();
  return line;
}

bool IsGraph(const std::string& bytes) {
  static const std::regex first("@A .+ 1");
  static const std::regex count("0|[1-9][0-9]{0,4}");
  static const std::regex segment("(-?[0-9]+\\.[0-9]{6} ){4}0\\.000000 0\\.000000 0\\.000000");
  std::istringstream text(bytes);
  const auto next = [&text] { return TakeLine(text).value_or("(missing)"); };
  if (!std::regex_match(next(), first)) return false;
  const std::string segments = next();
  if (!std::regex_match(segments, count)) return false;
  for (int left = std::stoi(segments); left > 0; --left) {
    if (!std::regex_match(next(), segment) || next() != "0 0") return false;
  }
  for (const std::string& line :
       {std::string(), std::string("0"), std::string(), segments, std::string("1 0 0"),
        std::string("2"), std::string("0"), std::string("0"), std::string("0 65280")}) {
    if (next() != line) return false;
  }
  return text.peek() == std::istringstream::traits_type::eof();
}

}  // namespace

std::optional<std::string> ReadGraphFile(const std::filesystem::path& path) {
  std::optional<std::string> bytes = Bytes(path);
  if (bytes && !IsGraph(*bytes)) bytes.reset();
  return bytes;
}

}  // namespace simulator
