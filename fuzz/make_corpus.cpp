// Makes the first inputs of all targets from the data of the tests, the demo installation and the
// catalogues, and the dictionary of expressions: make_corpus PROJECT FOLDER

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "interchange/library_json.h"
#include "mathparser/function_catalogue.h"
#include "tables/entry_line.h"
#include "testset/reference_graph_writer.h"

namespace zentab::fuzz {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

Lines LinesOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  Lines lines;
  for (std::string line; std::getline(stream, line);) lines.push_back(line + '\n');
  if (lines.empty()) throw fs::filesystem_error("nothing to read", file, {});
  return lines;
}

std::string Joined(const Lines& lines, std::size_t begin, std::size_t count) {
  std::string text;
  for (std::size_t at = begin; at < lines.size() && at < begin + count; ++at) text += lines[at];
  return text;
}

// A row of a data file of the tests, split at tabs, with its escapes replaced.
Lines FieldsOf(std::string_view row) {
  Lines fields(1);
  if (row.ends_with('\n')) row.remove_suffix(1);
  for (std::size_t at = 0; at < row.size(); ++at) {
    if (row[at] == '\t') {
      fields.emplace_back();
    } else if (row[at] == '\\' && at + 1 < row.size()) {
      const std::size_t escape = std::string_view("trn0").find(row[++at]);
      fields.back() += escape < 4 ? std::string_view("\t\r\n\0", 4)[escape] : row[at];
    } else {
      fields.back() += row[at];
    }
  }
  return fields;
}

class Corpus {
 public:
  Corpus(fs::path project, fs::path folder)
      : project_(std::move(project)), folder_(std::move(folder)) {}

  void Make() {
    MakeTableLines();
    MakeCatalogues();
    MakeTimeTests();
    MakeGraphs();
    MakeClipboardTexts();
    MakeExpressions();
    MakeSettings();
    MakeInterchange();
  }

 private:
  void Add(const std::string& target, std::string_view bytes) {
    const fs::path folder = folder_ / target;
    fs::create_directories(folder);
    std::ofstream file(folder / ("seed" + std::to_string(++counts_[target])), std::ios::binary);
    file << bytes;
    if (!file.flush()) throw fs::filesystem_error("cannot be written", folder, {});
  }
  // The rows of a data file of the tests.
  [[nodiscard]] std::vector<Lines> Rows(std::string_view file) const {
    std::vector<Lines> rows;
    for (const std::string& line : LinesOf(project_ / "tests/data" / file)) {
      if (!line.starts_with("# ") && !line.starts_with('\n') && !line.starts_with("[")) {
        rows.push_back(FieldsOf(line));
      }
    }
    return rows;
  }

  void MakeTableLines() {
    for (const Lines& row : Rows("entry_lines.txt")) {
      Add("table_lines", row.back().starts_with("{") ? row.back() : row.front());
    }
    for (const std::string& line : LinesOf(Installed("relayTables.dat"))) Add("table_lines", line);
  }

  void MakeCatalogues() {
    constexpr std::size_t kPiece = 12;
    for (const fs::path& file :
         {project_ / "catalogues/Zentab.txt", project_ / "catalogues/Zentab.de.txt",
          project_ / "catalogues/Zentab.zh_CN.txt", Installed("Zentab1.txt"),
          Installed("fo.txt")}) {
      const Lines lines = LinesOf(file);
      for (std::size_t at = 0; at < lines.size(); at += kPiece) {
        Add("catalogue", Joined(lines, at, kPiece));
      }
    }
  }

  void MakeTimeTests() {
    constexpr std::size_t kPoints = 60;
    for (const Lines& row : Rows("result_entries.txt")) {
      if (row.size() < 4) continue;
      Add("result_reader", row[1] + '\n' + row[2] + '\t' + row[3] + '\n' + row[0]);
    }
    const Lines equations = {"\n\n\n", "(t2-t1)/(v2-v1)\n\n\n", "\nt0*2\n(t1<tMax)*t1\n",
                             "mod(y,int(z/24)+1)=0\n\nmax(min(t0,t1),t2)-vMin\n"};
    for (const char* const kind : {"current", "voltage"}) {
      Lines lines = LinesOf(Installed("data") / kind / "result.txt");
      std::string heading;
      std::size_t first = 0;
      while (!lines[first].starts_with("1\t")) heading = lines[first++];
      Add("result_reader", heading + "1\t\n" + Joined(lines, 0, first + kPoints));
      const std::string points = Joined(lines, first, kPoints);
      int number = 0;
      for (const std::string& equation : equations) {
        for (const char* const mean : {"0 1.5 ", "3 2 0.9", "11  5"}) {
          const int filter = number++ % 8;
          const std::string numbers = std::to_string(number % 3) + ' ' + std::to_string(filter);
          Add("time_test_import", numbers + ' ' + mean + '\n' + equation + points);
        }
      }
    }
  }

  void MakeGraphs() {
    const Lines headers = {"0\t0,5\t\t\t\t\t\n", "1\t\t2\t0.5\t\t\t100\n", "2\t110.25\t\t\t\t9\t\n",
                           "3\t1E-3\t1,1\t1\t1\t1\t1\n"};
    std::size_t number = 0;
    for (const std::string& line : LinesOf(Installed("relayTables.dat"))) {
      editor::CurveGrid grid;
      int row = editor::kFirstRow;
      for (const auto& [load, time] : tables::ParseEntryLine(line).points) {
        grid.SetCell(row, editor::kLoadColumn, load);
        grid.SetCell(row++, editor::kTimeColumn, time);
      }
      const auto segments = testset::SegmentsOf(grid, {false, false, "1.5", ""}, {}, ".");
      if (!segments) continue;
      Add("reference_graph", headers[number++ % headers.size()] +
                                 testset::FormatReferenceGraph(*segments, {"Nov", 21, 2026}));
    }
    for (const Lines& row : Rows("graphs.txt")) {
      if (row.size() < 8) continue;
      const std::vector<testset::GraphSegment> segments = {{{1, 2}, {std::stod(row[6]), 3}}};
      Add("reference_graph", "0\t" + row[2] + '\t' + row[3] + '\t' + row[4] + '\t' + row[5] + '\n' +
                                 testset::FormatReferenceGraph(segments, {"Nov", 21, 2026}));
    }
  }

  void MakeClipboardTexts() {
    for (const char* const file : {"clipboard.txt", "tidy.txt", "numbers.txt"}) {
      for (const Lines& row : Rows(file)) {
        const std::string& text = row.size() > 2 ? row[1] : row[0];
        Add("clipboard_text", (row.front() == "." ? "0000.\n" : "0101,\n") + text);
      }
    }
  }

  void MakeExpressions() {
    for (const char* const file : {"mathparser/values.txt", "mathparser/errors.txt"}) {
      for (const Lines& row : Rows(file)) Add("expression", row[0] + "\n1.5\n-2\n0\n30\nDEG\n");
    }
    for (const std::string& line : LinesOf(project_ / "docs/special-functions.md")) {
      const std::size_t begin = line.find("| `");
      const std::size_t end = line.find(" = ", begin);
      if (end == std::string::npos) continue;
      Add("expression", line.substr(begin + 3, end - begin - 3) + "\n");
    }
    std::ofstream dictionary(folder_ / "expression.dict");
    for (const mathparser::FunctionEntry* const entry : mathparser::StandardCatalogue().Entries()) {
      std::string call(entry->keyword);
      call += '(';
      for (int argument = 0; argument < entry->arguments; ++argument) {
        call += (argument == 0 ? "" : ",") + std::string(1, static_cast<char>('x' + argument % 3));
      }
      dictionary << '"' << call << ")\"\n";
    }
    for (const char* const sign : {"(x>0)*", "<=", "<>", "1E-300", "1E300", "pi", "-|x|", "[{x}]",
                                   "^2", "!", "%", "\\\\", "30d5m", "'", "\\xC2\\xB0"}) {
      dictionary << '"' << sign << "\"\n";
    }
  }

  void MakeSettings() {
    const Lines files = {
        "[Settings]\nTableName=relayTables.dat\nNomLoad1=1,5\nAbsValues=1\nF1Left=-150\n",
        "; note\n[ settings ]\r\n NomLoad1 = old\r\nF1Width=9999999\r\n[F2Settings]\nLeft=0",
        "[HKEY_LOCAL_MACHINE\\SOFTWARE\\HALDOR\\MIRAXWIN]\nMIRAX=C:\\MIRAX\n",
        "\xEF\xBB\xBF[HKEY_LOCAL_MACHINE\\SOFTWARE\\HALDOR\\MIRAXWIN]\nmirax=dword:0000001f\n",
        "\n]=[x\n=\n[Settings\nTableName=no\n\r\r[]\n"};
    for (const std::string& file : files) {
      Add("settings_files", "other.dat\t2\t300\t1,5\n" + file);
      Add("settings_files", " a=b \t]\t\t[x]\n" + file);
    }
  }

  void MakeInterchange() {
    const Lines texts = {
        "Load,Time [s]\n1.5,3.44\n2,2.006\n5,0.856\n",
        "sep=;\r\nStrom (kA);Abgang 12 [ms];Abgang 14 [cycles]\r\n1,5;3440;\r\n2;2.006,5;7\r\n",
        "\"Load \"\"A\"\"\"\tt in s\n1\t2\n\nBlock\n3\t4\n5\t6\n",
        "No | I/In | t\n1 | 1.5 | 2\n2 | 3 | 1\n", " 1  10 2e1\n 2  5 1e1\n 3 , 4\n"};
    for (const std::string& text : texts) {
      for (const char* const letters : {"??????\n", "u?;???\n", "s,\ty12\n", "w. n21\n"}) {
        Add("delimited_text", letters + text);
      }
    }
    std::string wide = "??????\n\xFF\xFE";
    for (const char c : texts.front()) wide += {c, '\0'};
    Add("delimited_text", wide);
    for (const std::string& line : LinesOf(Installed("relayTables.dat"))) {
      const std::size_t end = line.find_last_not_of("\r\n") + 1;
      const std::string object = interchange::JsonOfLine(line.substr(0, end), line.substr(end));
      Add("library_json", interchange::JsonBegin(false) + object + interchange::JsonEnd());
    }
    for (const Lines& row : Rows("entry_lines.txt")) {
      const std::string object = interchange::JsonOfLine(row.front(), "");
      Add("library_json", interchange::JsonBegin(true) + object + interchange::JsonEnd());
    }
  }

  [[nodiscard]] fs::path Installed(std::string_view name) const {
    return project_ / "examples/installation" / name;
  }

  fs::path project_;
  fs::path folder_;
  std::map<std::string, int> counts_;
};

}  // namespace
}  // namespace zentab::fuzz

int main(int count, char** arguments) {
  if (count != 3) {
    std::fputs("make_corpus PROJECT FOLDER\n", stderr);
    return 2;
  }
  zentab::fuzz::Corpus(arguments[1], arguments[2]).Make();
}
