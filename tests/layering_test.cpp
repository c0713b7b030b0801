// Reads every file of the source and watches the order of the layers: nothing outside widgets/
// knows Qt, no layer knows one above it, and no file grows beyond reading.
#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "support/cases.h"

namespace zentab::test {
namespace {

namespace fs = std::filesystem;
using std::string;

constexpr int kMostLines = 400;

using LayerSet = std::set<string>;

// Whose headers a layer may include besides its own. Windows have their own table.
const std::map<string, LayerSet> kAllowed = {
    {"platform", {}},
    {"mathparser", {}},
    {"texts", {"platform"}},
    {"tables", {"platform", "texts"}},
    {"curves", {"platform", "texts", "tables", "mathparser"}},
    {"editor", {"platform", "texts", "tables"}},
    {"timetest", {"platform", "texts", "tables", "mathparser"}},
    {"testset", {"platform", "texts", "tables", "editor"}},
    {"exchange", {"platform", "texts", "tables", "editor"}},
    {"interchange", {"platform", "texts", "tables", "curves"}},
    {"app",
     {"platform", "texts", "tables", "mathparser", "curves", "editor", "timetest", "testset",
      "exchange", "interchange"}},
    {"cli",
     {"platform", "texts", "tables", "mathparser", "curves", "editor", "timetest", "testset",
      "exchange", "interchange", "app"}},
};
const std::map<string, LayerSet> kAllowedWindows = {
    {"app/widgets", {"editor/widgets", "exchange/widgets", "cli"}},
};

// "editor/widgets" of "editor/widgets/grid.h", "platform" of "platform/posix/access_list.h".
string LayerOf(const fs::path& file) {
  auto part = file.begin();
  string layer = part->string();
  if (++part != file.end() && *part == "widgets") layer += "/widgets";
  return layer;
}

bool MayInclude(const string& from, const string& to) {
  if (from == to) return true;
  const bool isWindow = from.ends_with("/widgets");
  const string base = from.substr(0, from.find('/'));
  const auto& table = isWindow ? kAllowedWindows : kAllowed;
  const auto row = table.find(from);
  if (row != table.end() && row->second.contains(to)) return true;
  if (!isWindow) return false;
  const auto baseRow = kAllowed.find(base);
  return to == base || (baseRow != kAllowed.end() && baseRow->second.contains(to));
}

struct Include {
  bool quoted;
  string header;
};

std::optional<Include> IncludeOf(string line) {
  std::erase_if(line, [](char c) { return c == ' ' || c == '\t'; });
  constexpr std::string_view kDirective = "#include";
  const std::size_t begin = kDirective.size() + 1;
  if (!line.starts_with(kDirective) || line.size() < begin) return std::nullopt;
  const bool quoted = line[begin - 1] == '"';
  return Include{quoted, line.substr(begin, line.find(quoted ? '"' : '>', begin) - begin)};
}

// <QWidget>, <QtWidgets/QWidget>, <qwidget.h>, <qcustomplot.h>
bool IsQt(const string& header) {
  const bool capital = header.size() > 1 && header[0] == 'Q' && std::isalpha(header[1]) != 0;
  return capital || (header.starts_with('q') && header.ends_with(".h"));
}

// What is wrong with a line of `file` (below src/), or nothing.
std::optional<string> FaultOf(const fs::path& file, const string& line) {
  const std::optional<Include> include = IncludeOf(line);
  if (!include) return std::nullopt;
  const auto& [quoted, header] = *include;
  const string from = LayerOf(file);
  if (IsQt(header)) {
    if (from.ends_with("/widgets")) return std::nullopt;
    return "Qt outside widgets/";
  }
  const string to = LayerOf(header);
  const bool isOurs = kAllowed.contains(to.substr(0, to.find('/')));
  if (!isOurs) return quoted ? std::optional("no path from src/") : std::nullopt;
  if (!MayInclude(from, to)) return from + " may not know " + to;
  for (const string system : {"platform/posix", "platform/windows"}) {
    const fs::path folder = file.parent_path();
    const bool isPlatform = folder == "platform" || folder == system;
    if (header.starts_with(system + "/") && !isPlatform) return "a system's own header";
  }
  return std::nullopt;
}

TEST(Layering, TheCheckFindsFaults) {
  for (const auto& row : Cases("includes.txt", "includes")) {
    EXPECT_EQ(FaultOf(row[0], row[1]).has_value(), row[2] == "fault") << row[0] << ": " << row[1];
  }
}

TEST(Layering, TheSourceKeepsToTheOrder) {
  const fs::path source = SOURCE_FOLDER;
  int files = 0;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(source)) {
    const fs::path extension = entry.path().extension();
    if (!entry.is_regular_file() || (extension != ".cpp" && extension != ".h")) continue;
    ++files;
    const fs::path file = entry.path().lexically_relative(source);
    std::ifstream stream(entry.path());
    int number = 0;
    for (string line; std::getline(stream, line);) {
      const std::optional<string> fault = FaultOf(file, line);
      ++number;
      EXPECT_FALSE(fault) << file << ':' << number << ": " << *fault << "\n  " << line;
    }
    EXPECT_LE(number, kMostLines) << file << " is too long to read";
  }
  EXPECT_GT(files, 40);
}

}  // namespace
}  // namespace zentab::test
