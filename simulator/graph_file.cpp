#include "graph_file.h"

#include <algorithm>
#include <cctype>
#include <fstream>
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

bool IsDigits(const std::string& text) {
  return !text.empty() && std::all_of(text.begin(), text.end(),
                                      [](unsigned char c) { return std::isdigit(c) != 0; });
}

// -12.500000
bool IsCoordinate(std::string text) {
  if (text.starts_with('-')) text.erase(0, 1);
  const std::size_t point = text.find('.');
  if (point == std::string::npos || text.size() != point + 7) return false;
  return IsDigits(text.substr(0, point)) && IsDigits(text.substr(point + 1));
}

bool IsSegment(const std::string& line) {
  std::istringstream fields(line);
  std::string rebuilt;
  std::string field;
  for (int coordinate = 0; coordinate < 4 && fields >> field; ++coordinate) {
    if (!IsCoordinate(field)) return false;
    rebuilt += field + ' ';
  }
  return line == rebuilt + "0.000000 0.000000 0.000000";
}

bool IsCount(const std::string& line) {
  constexpr std::size_t kMostDigits = 5;
  return IsDigits(line) && line.size() <= kMostDigits && (line[0] != '0' || line == "0");
}

bool IsGraph(const std::string& bytes) {
  std::istringstream text(bytes);
  const auto next = [&text] { return TakeLine(text).value_or("(missing)"); };
  const std::string first = next();
  if (!first.starts_with("@A ") || !first.ends_with(" 1")) return false;
  const std::string segments = next();
  if (!IsCount(segments)) return false;
  for (int left = std::stoi(segments); left > 0; --left) {
    if (!IsSegment(next()) || next() != "0 0") return false;
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
