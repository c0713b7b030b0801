#include <nlohmann/json.hpp>

#include "cli/assessment_arguments.h"
#include "cli/command.h"
#include "cli/numbers.h"
#include "texts/number_text.h"

namespace zentab::cli {
namespace {

using curves::kMillisecondsPerSecond;

struct AssessOptions {
  std::string file;
  std::string entry;
  AssessmentOptions assessment;
  std::string format = "tsv";
};

void DeclareAssess(CLI::App& command, AssessOptions& options) {
  command.add_option("FILE", options.file, "Table file, - for standard input")->required();
  command.add_option("ENTRY", options.entry, "Name, or #N for line number N from 0")->required();
  DeclareAssessment(command, options.assessment);
  command
      .add_option("--format", options.format,
                  "tsv: load, multiple of the pickup value, measured and nominal time in the "
                  "entry's units, deviation in ms and per cent, limit in ms, and passed, failed or "
                  "outside; csv: the same below a title; json: one object with all digits")
      ->check(CLI::IsMember({"tsv", "csv", "json"}))
      ->capture_default_str();
}

// A point's cells in the entry's units; nothing where there is no such number.
struct Cells {
  std::optional<double> numbers[7];
  const char* verdict;
};

constexpr const char* kTitles[] = {"load",         "multiple",          "measured", "nominal",
                                   "deviation_ms", "deviation_percent", "limit_ms"};

Cells CellsOf(const curves::AssessedPoint& point, const curves::Point& stored, double timeFactor) {
  Cells cells = {{stored.load, point.multiple, stored.time}, "outside"};
  if (point.verdict == curves::Verdict::Outside) return cells;
  cells.verdict = point.verdict == curves::Verdict::Passed ? "passed" : "failed";
  cells.numbers[3] = point.nominal * timeFactor;
  cells.numbers[4] = point.deviation * kMillisecondsPerSecond;
  cells.numbers[5] = point.ratio * texts::kPercent;
  cells.numbers[6] = point.limit * kMillisecondsPerSecond;
  return cells;
}

void WriteLines(const std::vector<Cells>& rows, bool isCsv, Console& console) {
  if (isCsv) {
    std::string title;
    for (const char* const name : kTitles) title += std::string(name) + ',';
    console.WriteLine(title + "verdict");
  }
  for (const Cells& row : rows) {
    std::string line;
    for (const std::optional<double>& number : row.numbers) {
      if (number) line += isCsv ? ShortestText(*number) : Shown(*number);
      line += isCsv ? ',' : '\t';
    }
    console.WriteLine(line + row.verdict);
  }
}

void WriteJson(const NamedPoints& entry, const std::vector<Cells>& rows,
               const curves::Assessment& assessment, Console& console) {
  nlohmann::ordered_json points = nlohmann::ordered_json::array();
  for (const Cells& row : rows) {
    nlohmann::ordered_json point;
    for (std::size_t at = 0; at < std::size(kTitles); ++at) {
      point[kTitles[at]] = row.numbers[at] ? nlohmann::ordered_json(*row.numbers[at]) : nullptr;
    }
    point["verdict"] = row.verdict;
    points.push_back(point);
  }
  const nlohmann::ordered_json object = {{"name", entry.name},
                                         {"milliseconds", entry.milliseconds},
                                         {"absolute", entry.absolute},
                                         {"passed", assessment.passed},
                                         {"failed", assessment.failed},
                                         {"outside", assessment.outside},
                                         {"points", points}};
  console.WriteLine(object.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
}

Exit Assess(const AssessOptions& options, Console& console) {
  if (!options.assessment.HasReference()) {
    return console.Misused("assess: --against or --family");
  }
  const InputFile file(options.file);
  const auto entry = TakeEntry(file, options.entry, console);
  if (!entry) return Exit::Failed;
  curves::Assessment assessment;
  const Exit exit = AssessEntry(options.assessment, "assess", file, *entry, console, assessment);
  if (exit != Exit::Done) return exit;
  std::vector<Cells> rows;
  for (std::size_t at = 0; at < entry->points.size(); ++at) {
    rows.push_back(CellsOf(assessment.points[at], entry->points[at],
                           entry->milliseconds ? kMillisecondsPerSecond : 1.0));
  }
  if (options.format == "json") {
    WriteJson(*entry, rows, assessment, console);
  } else {
    WriteLines(rows, options.format == "csv", console);
  }
  if (assessment.IsPassed()) return Exit::Done;
  return console.Fail(entry->name + ": of " + std::to_string(rows.size()) +
                      (rows.size() == 1 ? " point " : " points ") +
                      std::to_string(assessment.passed) + " passed, " +
                      std::to_string(assessment.failed) + " failed, " +
                      std::to_string(assessment.outside) + " outside the reference");
}

}  // namespace

void AddAssessCommand(Commands& commands) {
  AddCommand(commands, "assess",
             "Whether the times of an entry are within limits of another one or of a "
             "characteristic; exit code 0 when all passed, 1 else",
             DeclareAssess, Assess);
}

}  // namespace zentab::cli
