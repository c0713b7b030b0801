#include "faults/write_paths.h"

#include <algorithm>
#include <fstream>
#include <sstream>

#include "exchange/entry_copy.h"
#include "platform/paths.h"
#include "support/listed.h"

namespace zentab::test {
namespace {

namespace fs = std::filesystem;
using std::string;
using std::string_view;

constexpr int kPoints = 26;
constexpr string_view kOther = "other.dat";
constexpr string_view kMade = "made.dat";
constexpr string_view kGraph = "data/currtmp.grh";
constexpr std::size_t kCopyEvery = 3;

std::vector<string> Lines(const string& bytes) {
  std::vector<string> lines;
  std::istringstream stream(bytes);
  for (string line; std::getline(stream, line); lines.push_back(line)) {
    if (line.ends_with('\r')) line.pop_back();
  }
  return lines;
}

string Library(string_view prefix, int entries) {
  string bytes;
  for (int entry = 0; entry < entries; ++entry) {
    bytes.append("{\"").append(prefix).append(std::to_string(entry));
    bytes.append(" \xDC\"\t(1.5;10)(2;4.25)(2.5;" + std::to_string(entry) + ") 011}\r\n");
  }
  return bytes.substr(0, bytes.size() - 2);
}

// A library as it stands, its last line ended.
string Ended(const Files& before, string_view file) {
  const auto found = before.find(string(file));
  if (found == before.end()) return {};
  return found->second.ends_with('\n') ? found->second : found->second + "\r\n";
}

string Replaced(const Files& before, string_view name, const string& line) {
  string bytes = before.at(string(kLibrary));
  const std::size_t begin = bytes.find("{\"" + string(name) + '"');
  return bytes.replace(begin, bytes.find('\n', begin) + 1 - begin, line);
}

string WithCopies(const Files& before, string_view source, string_view target) {
  string bytes = Ended(before, target);
  const std::vector<string> lines = Lines(before.at(string(source)));
  for (std::size_t line = 0; line < lines.size(); line += kCopyEvery) {
    bytes += lines[line] + "\r\n";
  }
  return bytes;
}

string Graph() {
  const testset::GraphDate today = app::Today();
  string bytes =
      "@A " + today.month + ' ' + std::to_string(today.day) + ' ' + std::to_string(today.year);
  bytes.resize(28, ' ');  // two print zones
  bytes += "1\r\n25\r\n";
  const auto point = [](int row) {
    return std::to_string(row) + ".000000 " + std::to_string(kGridTime + row) + ".000000 ";
  };
  for (int row = 1; row < kPoints; ++row) {
    bytes += point(row) + point(row + 1) + "0.000000 0.000000 0.000000\r\n0 0\r\n";
  }
  return bytes + "\r\n0\r\n\r\n25\r\n1 0 0\r\n2\r\n0\r\n0\r\n0 65280\r\n";
}

std::vector<bool> EveryThird() {
  constexpr std::size_t kLongest = 100'000;  // of all the libraries
  std::vector<bool> selected(kLongest);
  for (std::size_t line = 0; line < selected.size(); line += kCopyEvery) selected[line] = true;
  return selected;
}

const std::vector<bool> kEveryThird = EveryThird();

constexpr char kChanged[] = "A7 \xC3\x9C";
constexpr char kChangedBytes[] = "A7 \xDC";

}  // namespace

Workplace::Workplace(const fs::path& folder, platform::FileLayer& files)
    : log(session, platform::SystemFiles()),
      writer(files, tables::Backups::AtFirstWrite),
      folder_(folder),
      instruments_(folder, {[this](string_view line) { log.WriteLogLine(line); }, [] {}}),
      graphs_(session, files, log, instruments_) {
  session.baseName = "Zentab";
  session.installFolder = platform::ToText(folder);
  session.localeDecimalSeparator = ",";
  session.modes.absoluteValues = true;
  FillGrid(session, kGridTime);
  session.table.tableModified = true;
  // A run without one begins with an empty list.
  [[maybe_unused]] const std::error_code dropped =
      library.SetActiveTable(platform::ToText(folder / kLibrary));
}

bool Workplace::Add(string_view name) {
  std::error_code error;
  return library.EnterName(name, error) == app::NameResult::Added;
}

bool Workplace::Update(string_view name) {
  tables::EntryMark mark = session.listing.MarkOf(IndexOf(name));
  return !library.UpdateEntry(mark);
}

bool Workplace::Remove(string_view name) {
  tables::EntryMark mark = session.listing.MarkOf(IndexOf(name));
  return !library.RemoveEntry(mark);
}

// As undoing a removal does.
bool Workplace::PutBack(string_view name, string_view inFrontOf) {
  const fs::path file = folder_ / kLibrary;
  tables::LineChange change = tables::ChangeOfLine(file, session.listing, IndexOf(inFrontOf));
  change.after = CurveLine(name, kGridTime);
  return !writer.Make(change, session.listing);
}

bool Workplace::Copy(string_view source, string_view target) {
  const fs::path from = folder_ / source;
  return !exchange::CopyEntries(writer, from, Listed(from), kEveryThird, folder_ / target).error;
}

bool Workplace::WriteGraph() {
  const app::SetGraphOutcome outcome = graphs_.WriteGraph("SI");
  const bool isWritten = outcome.hasPoints && !outcome.error;
  if (isWritten) graphs_.HandOverGraph();
  return isWritten;
}

std::size_t Workplace::IndexOf(string_view name) const {
  const std::vector<string>& names = session.listing.names;
  return static_cast<std::size_t>(std::find(names.begin(), names.end(), name) - names.begin());
}

void FillGrid(app::Session& session, int firstTime) {
  for (int row = 1; row <= kPoints; ++row) {
    session.table.grid.SetCell(row, editor::kLoadColumn, std::to_string(row));
    session.table.grid.SetCell(row, editor::kTimeColumn, std::to_string(firstTime + row));
  }
}

string CurveLine(string_view name, int firstTime) {
  string line = "{\"" + string(name) + "\"\t";
  for (int row = 1; row <= kPoints; ++row) {
    line += '(' + std::to_string(row) + ';' + std::to_string(firstTime + row) + ')';
  }
  return line + " 010}\r\n";
}

string ReadFile(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary | std::ios::ate);
  string bytes(static_cast<std::size_t>(stream.tellg()), '\0');
  stream.seekg(0);
  stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return bytes;
}

Files ReadFolder(const fs::path& folder) {
  Files files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    files[fs::relative(entry.path(), folder).generic_string()] = ReadFile(entry.path());
  }
  return files;
}

void FillFolder(const fs::path& folder, const Files& files) {
  for (const auto& entry : fs::directory_iterator(folder)) fs::remove_all(entry.path());
  for (const auto& [name, bytes] : files) {
    fs::create_directories((folder / name).parent_path());
    std::ofstream(folder / name, std::ios::binary) << bytes;
  }
}

Files Installation(int entries) {
  const string library(kLibrary), other(kOther);
  return {{library, Library("A", entries)},
          {library + ".bak", Library("A", entries / 2)},
          {other, Library("B", entries)},
          {string(kGraph), "an older graph, which is another one"}};
}

const std::vector<WritePath>& WritePaths() {
  static const std::vector<WritePath> paths = {
      {"add", string(kLibrary), [](Workplace& place) { return place.Add("Added"); },
       [](const Files& before) { return Ended(before, kLibrary) + CurveLine("Added", kGridTime); }},
      {"update", string(kLibrary), [](Workplace& place) { return place.Update(kChanged); },
       [](const Files& before) {
         return Replaced(before, kChangedBytes, CurveLine(kChangedBytes, kGridTime));
       },
       true, true},
      {"remove", string(kLibrary), [](Workplace& place) { return place.Remove(kChanged); },
       [](const Files& before) { return Replaced(before, kChangedBytes, ""); }},
      {"put back", string(kLibrary),
       [](Workplace& place) { return place.PutBack("Back", kChanged); },
       [](const Files& before) {
         const string& bytes = before.at(string(kLibrary));
         const std::size_t begin = bytes.find("{\"" + string(kChangedBytes));
         return string(bytes).insert(begin, CurveLine("Back", kGridTime));
       }},
      {"import", string(kLibrary), [](Workplace& place) { return place.Copy(kOther, kLibrary); },
       [](const Files& before) { return WithCopies(before, kOther, kLibrary); }},
      {"export", string(kOther), [](Workplace& place) { return place.Copy(kLibrary, kOther); },
       [](const Files& before) { return WithCopies(before, kLibrary, kOther); }},
      {"export to a new file", string(kMade),
       [](Workplace& place) { return place.Copy(kLibrary, kMade); },
       [](const Files& before) { return WithCopies(before, kLibrary, kMade); }},
      {"reference graph", string(kGraph), [](Workplace& place) { return place.WriteGraph(); },
       [](const Files&) { return Graph(); }, false},
  };
  return paths;
}

Files Changed(const WritePath& path, const Files& before) {
  Files after = before;
  after[path.target] = path.after(before);
  if (path.isTable && before.contains(path.target)) {
    after[path.target + ".bak"] = before.at(path.target);
  }
  return after;
}

bool AreUntouched(const WritePath& path, const Files& before, Files now) {
  const std::string backup = path.target + ".bak";
  const auto old = before.find(path.target), former = before.find(backup);
  const auto kept = now.find(backup);
  if (path.isTable && old != before.end() && kept != now.end() && kept->second == old->second) {
    now.erase(kept);
    if (former != before.end()) now.insert(*former);
  }
  return now == before;
}

}  // namespace zentab::test
