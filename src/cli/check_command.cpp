#include <unordered_map>

#include "cli/command.h"
#include "cli/input_file.h"
#include "editor/point_checks.h"
#include "platform/character_case.h"
#include "platform/line_reader.h"
#include "tables/entry_line.h"
#include "texts/line_encoding.h"
#include "texts/number_text.h"

namespace zentab::cli {
namespace {

struct CheckOptions {
  std::vector<std::string> files;
};

void DeclareCheck(CLI::App& command, CheckOptions& options) {
  command.add_option("FILE", options.files, "Table files, - for standard input")->required();
}

// One after the other, what makes a line another one than it was meant to be.
class LineCheck {
 public:
  // What is wrong with a line; `number` counts from 1.
  std::vector<std::string> Findings(std::string_view bytes, std::size_t number) {
    findings_.clear();
    const std::string line = texts::DecodeLine(bytes);
    const std::optional<std::string> name = tables::ParseEntryName(bytes);
    if (!name || name->empty()) {
      Find(name ? "the name is empty" : "no entry: the line has no name");
      if (!name) return findings_;
    }
    CheckName(*name, number);
    CheckMarks(line, *name);
    CheckPoints(tables::ParseEntryLine(line));
    return findings_;
  }

 private:
  void Find(std::string text) { findings_.push_back(std::move(text)); }

  void CheckName(const std::string& name, std::size_t number) {
    if (name.find('(') != std::string::npos) {
      Find("the name holds '(', which is taken for the first point");
    }
    const auto [first, isNew] = lineOf_.try_emplace(platform::LowerCase(name), number);
    if (!isNew) {
      Find("the name '" + name + "' is that of line " + std::to_string(first->second) + " as well");
    }
  }

  void CheckMarks(const std::string& line, const std::string& name) {
    if (line.find('\0') != std::string::npos) Find("the line holds a NUL character");
    if (!line.starts_with("{\"")) Find("the line does not begin with {\"");
    const std::string_view rest = std::string_view(line).substr(
        std::min(line.size(), line.find(name + '"', 2) + name.size() + 1));
    if (!rest.starts_with('\t')) Find("no tab follows the name: it may hold a '\"' itself");
    if (!texts::TrimBlanks(rest).ends_with('}')) Find("the line does not end with }");
  }

  void CheckPoints(const tables::ParsedEntry& entry) {
    if (entry.pointCount > tables::kMaxPoints) {
      Find(std::to_string(entry.pointCount) + " points, of which only " +
           std::to_string(tables::kMaxPoints) + " are read");
    }
    if (!entry.points.empty() && (!entry.milliseconds || !entry.absoluteValues)) {
      Find("the settings behind the points cannot be read");
    }
    for (const editor::CellFault& fault : editor::FaultsOf(entry.points)) {
      const tables::CurvePoint& point = entry.points[static_cast<std::size_t>(fault.row) - 1];
      const bool isLoad = fault.column == editor::kLoadColumn;
      Find("point " + std::to_string(fault.row) + ": " +
           editor::FaultText(words_, fault, isLoad ? point.load : point.time));
    }
  }

  texts::PointTexts words_;
  std::unordered_map<std::string, std::size_t> lineOf_;  // by folded name, its first line
  std::vector<std::string> findings_;
};

Exit Check(const CheckOptions& options, Console& console) {
  bool clean = true;
  for (const std::string& name : options.files) {
    const InputFile file(name);
    if (file.Error()) {
      console.Warn(file.Name() + ": " + file.Error().message());
      clean = false;
      continue;
    }
    LineCheck check;
    std::size_t number = 0;
    const auto take = [&](const platform::RawLine& line) {
      ++number;
      for (const std::string& finding : check.Findings(line.text, number)) {
        console.WriteLine(file.Name() + ':' + std::to_string(number) + ": " + finding);
        clean = false;
      }
      return true;
    };
    if (const auto error = platform::ReadLines(platform::SystemFiles(), file.Path(), take)) {
      console.Warn(file.Name() + ':' + std::to_string(number + 1) + ": " + error.message());
      clean = false;
    }
  }
  return clean ? Exit::Done : Exit::Failed;
}

}  // namespace

void AddCheckCommand(Commands& commands) {
  AddCommand(commands, "check",
             "Looks for what is wrong in table files: one finding a line, FILE:LINE: TEXT with "
             "lines counted from 1; exit code 1 when there are any",
             DeclareCheck, Check);
}

}  // namespace zentab::cli
