#include <nlohmann/json.hpp>

#include "cli/argument_checks.h"
#include "cli/command.h"
#include "cli/curve_arguments.h"
#include "cli/numbers.h"
#include "curves/assessment.h"

namespace zentab::cli {
namespace {

constexpr double kPercent = 100.0;
using curves::kMillisecondsPerSecond;

struct AssessOptions {
  std::string file;
  std::string entry;
  std::vector<std::string> against;
  CharacteristicOptions characteristic;
  std::string percent;
  std::string milliseconds;
  std::string assignedError;
  std::string loadPercent;
  std::string format = "tsv";
};

void DeclareLimits(CLI::App& command, AssessOptions& options) {
  CLI::Option* const percent =
      command.add_option("--percent", options.percent, "Limit in per cent of the nominal time")
          ->check(kNumber);
  command
      .add_option("--ms-limit", options.milliseconds,
                  "Limit in ms; the greater limit counts, 0 when there is none")
      ->check(kNumber);
  command
      .add_option("--class", options.assignedError,
                  "Accuracy class after IEC 60255-151 in place of --percent: the assigned error in "
                  "per cent, 2.5 times of it below 5 times the pickup value, 1.5 times below 10")
      ->check(kNumber)
      ->excludes(percent);
  command
      .add_option("--load-percent", options.loadPercent,
                  "Tolerance of the load in per cent; how much the nominal time changes within it "
                  "is added to the limit")
      ->check(kNumber);
}

void DeclareAssess(CLI::App& command, AssessOptions& options) {
  command.add_option("FILE", options.file, "Table file, - for standard input")->required();
  command.add_option("ENTRY", options.entry, "Name, or #N for line number N from 0")->required();
  CLI::Option* const against =
      command.add_option("--against", options.against, "Table file and entry to assess against")
          ->expected(2)
          ->type_name("FILE ENTRY");
  CLI::Option* const family =
      command
          .add_option("--family", options.characteristic.family,
                      "Characteristic to assess against, with its options as for curve")
          ->check(CLI::IsMember(FamilyIds(false), CLI::ignore_case))
          ->excludes(against);
  for (CLI::Option* const option : DeclareCharacteristic(command, options.characteristic)) {
    option->needs(family);
  }
  command
      .add_option("--pickup", options.characteristic.pickup,
                  "Pickup value, amperes or volts; needed for absolute loads against a "
                  "characteristic, multiples, or with --class")
      ->check(kNumber);
  DeclareLimits(command, options);
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
  cells.numbers[5] = point.ratio * kPercent;
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

std::optional<double> Given(const std::string& text) {
  return text.empty() ? std::nullopt : std::optional(NumberOf(text));
}

// The other entry as a reference for loads in this one's unit.
Exit TakeTable(const AssessOptions& options, const NamedPoints& entry, const NamedPoints& other,
               const Console& console, curves::Reference& reference) {
  const auto pickup = Given(options.characteristic.pickup);
  auto made = curves::ReferenceOf(other, entry.absolute, pickup);
  const curves::Fault* const fault = curves::FaultOf(made);
  if (fault == nullptr) {
    reference = std::get<curves::Reference>(std::move(made));
    return Exit::Done;
  }
  if (fault->kind == curves::FaultKind::PickupNeeded) {
    return console.Misused("assess: absolute loads against multiples need --pickup");
  }
  const bool isPickup = fault->kind == curves::FaultKind::BadSetting;
  return console.Fail((isPickup ? "assess" : other.name) + ": " + Sentence(*fault));
}

Exit TakeReference(const AssessOptions& options, const InputFile& file, const NamedPoints& entry,
                   const Console& console, curves::Reference& reference) {
  if (!options.against.empty()) {
    // Standard input can be read once, for both.
    const std::string& name = options.against.front();
    const bool isSame = name == "-" && options.file == "-";
    const auto other = isSame ? TakeEntry(file, options.against.back(), console)
                              : TakeEntry(InputFile(name), options.against.back(), console);
    return other ? TakeTable(options, entry, *other, console, reference) : Exit::Failed;
  }
  curves::Characteristic characteristic;
  if (!TakeCharacteristic(options.characteristic, entry.absolute, "assess", console,
                          characteristic)) {
    return Exit::WrongUsage;
  }
  const auto curve = curves::CharacteristicCurve::Of(characteristic);
  if (const curves::Fault* const fault = curves::FaultOf(curve)) {
    return console.Fail("assess: " + Sentence(*fault));
  }
  reference = curves::ReferenceOf(std::get<curves::CharacteristicCurve>(curve));
  return Exit::Done;
}

Exit Assess(const AssessOptions& options, Console& console) {
  if (options.against.empty() && options.characteristic.family.empty()) {
    return console.Misused("assess: --against or --family");
  }
  const InputFile file(options.file);
  const auto entry = TakeEntry(file, options.entry, console);
  if (!entry) return Exit::Failed;
  curves::Reference reference;
  const Exit taken = TakeReference(options, file, *entry, console, reference);
  if (taken != Exit::Done) return taken;
  if (!options.assignedError.empty() && !reference.pickup) {
    return console.Misused("assess: absolute loads need --pickup with --class");
  }
  curves::Limits limits;
  limits.percent = NumberOf(options.percent);
  limits.milliseconds = NumberOf(options.milliseconds);
  limits.assignedError = NumberOf(options.assignedError);
  limits.loadPercent = NumberOf(options.loadPercent);
  const auto assessed = curves::Assess(entry->InSeconds(), reference, limits);
  if (const curves::Fault* const fault = curves::FaultOf(assessed)) {
    return console.Fail(entry->name + ": " + Sentence(*fault));
  }
  const auto& assessment = std::get<curves::Assessment>(assessed);
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
  return console.Fail(entry->name + ": of " + std::to_string(rows.size()) + " points " +
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
