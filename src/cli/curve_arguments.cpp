#include "cli/curve_arguments.h"

#include "cli/argument_checks.h"
#include "platform/ascii.h"
#include "tables/entry_line.h"
#include "texts/number_text.h"

namespace zentab::cli {
namespace {

using curves::Family;
using curves::Form;

const CLI::Validator kPairOfNumbers(
    [](const std::string& text) {
      const auto numbers = NumberList(text);
      return numbers && numbers->size() == 2 ? std::string() : "'" + text + "' is not MULTIPLE,S";
    },
    "MULTIPLE,S");

// What a family must have for an option to mean anything.
bool HasOption(Family family, std::string_view option) {
  const curves::FamilyRow& row = curves::RowOf(family);
  if (option == "--k" || option == "--alpha" || option == "--c") return row.hasOwnConstants;
  if (option == "--constant") return row.form == Form::Square || row.form == Form::Constant;
  if (option == "--equation") return row.form == Form::Free;
  if (option == "--start") return row.form != Form::Free;
  return row.form == Form::Heating;
}

void Take(const std::string& text, double& number) {
  if (!text.empty()) number = NumberOf(text);
}

void Take(const std::string& text, std::optional<double>& number) {
  if (!text.empty()) number = NumberOf(text);
}

// What is missing or does not belong to the family; empty: nothing.
std::string Misuse(const CharacteristicOptions& options, Family family, bool absoluteLoads) {
  const std::pair<const char*, const std::string*> own[] = {
      {"--k", &options.k},           {"--alpha", &options.alpha},
      {"--c", &options.c},           {"--constant", &options.constant},
      {"--tau", &options.tau},       {"--previous", &options.previous},
      {"--factor", &options.factor}, {"--equation", &options.equation},
      {"--start", &options.start}};
  for (const auto& [option, text] : own) {
    if (!text->empty() && !HasOption(family, option)) return options.family + " has no " + option;
  }
  if (family == Family::Own && (options.k.empty() || options.alpha.empty())) {
    return "own needs --k and --alpha";
  }
  if (family == Family::Equation && options.equation.empty()) return "equation needs --equation";
  if (absoluteLoads && options.pickup.empty()) return "absolute loads need --pickup";
  return {};
}

}  // namespace

const CLI::Validator kNumberList(
    [](const std::string& text) {
      return NumberList(text) ? std::string()
                              : "'" + text + "' is no list of decimal numbers with , between them";
    },
    "L1,L2,...");

const CLI::Validator kPointCount(
    [](const std::string& text) {
      const std::optional<std::int16_t> count = texts::ShortInteger(text);
      const bool isWhole = text.find_first_not_of("0123456789") == std::string::npos;
      return isWhole && count && *count >= 2 && *count <= std::int16_t{tables::kMaxPoints}
                 ? std::string()
                 : "'" + text + "' is no number of points from 2 to " +
                       std::to_string(tables::kMaxPoints);
    },
    "N");

std::vector<std::string> FamilyIds(bool onlyFitted) {
  std::vector<std::string> ids;
  for (const curves::FamilyRow& row : curves::Families()) {
    if (!onlyFitted || row.form != Form::Free) ids.emplace_back(row.id);
  }
  return ids;
}

std::optional<std::vector<double>> NumberList(const std::string& text) {
  std::vector<double> numbers;
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find(',', begin), text.size());
    const auto number = texts::WholeNumber(std::string_view(text).substr(begin, end - begin));
    if (!number) return std::nullopt;
    numbers.push_back(*number);
    begin = end + 1;
  }
  return numbers;
}

std::vector<CLI::Option*> DeclareCharacteristic(CLI::App& command, CharacteristicOptions& options) {
  const auto number = [&](const char* name, std::string& text, const char* description) {
    return command.add_option(name, text, description)->check(kNumber);
  };
  return {
      number("--tms", options.multiplier, "Time multiplier setting or time dial; 1 unless given"),
      number("--k", options.k, "k in s, of own, overvoltage and undervoltage"),
      number("--alpha", options.alpha, "Exponent, of the same"),
      number("--c", options.c, "c in s, of the same; 0 unless given"),
      number("--constant", options.constant,
             "Time in s, of definite, and of i2t at the pickup value; 1 unless given"),
      number("--tau", options.tau, "Heating time constant in s, of thermal; 1 unless given"),
      number("--previous", options.previous,
             "Load before, of thermal, in the unit of the loads; 0, cold, unless given"),
      number("--factor", options.factor, "Multiple above which thermal trips; 1 unless given"),
      command.add_option("--equation", options.equation,
                         "Time in s, of equation: an expression of v (the load), pickup and "
                         "multiplier (--tms)"),
      number("--min-time", options.minimumTime, "Shortest operating time in s"),
      number("--max-time", options.maximumTime, "Longest operating time in s"),
      command
          .add_option("--step", options.step,
                      "Definite time of S seconds from a multiple of the pickup value upward, of "
                      "undervoltage downward")
          ->check(kPairOfNumbers),
      number("--start", options.start,
             "Multiple above which the relay picks up, 1 to 1.3; 1 unless given")};
}

bool TakeCharacteristic(const CharacteristicOptions& options, bool absoluteLoads,
                        const std::string& command, const Console& console,
                        curves::Characteristic& result) {
  result.family = curves::FamilyOf(options.family).value_or(Family::Own);
  const std::string misuse = Misuse(options, result.family, absoluteLoads);
  if (!misuse.empty()) {
    console.Warn(command + ": " + misuse);
    return false;
  }
  result.absoluteLoads = absoluteLoads;
  result.constants = curves::RowOf(result.family).constants;
  Take(options.multiplier, result.multiplier);
  Take(options.k, result.constants.k);
  Take(options.alpha, result.constants.alpha);
  Take(options.c, result.constants.c);
  Take(options.pickup, result.pickup);
  Take(options.constant, result.seconds);
  Take(options.tau, result.tau);
  Take(options.previous, result.previous);
  if (absoluteLoads) result.previous /= result.pickup;
  Take(options.factor, result.factor);
  Take(options.minimumTime, result.minimumTime);
  Take(options.maximumTime, result.maximumTime);
  Take(options.start, result.start);
  result.equation = options.equation;
  if (const auto step = NumberList(options.step); step && step->size() == 2) {
    result.step = {step->front(), step->back()};
  }
  return true;
}

std::optional<NamedPoints> TakeEntry(const InputFile& file, const std::string& entry,
                                     const Console& console) {
  std::optional<EntryLine> read;
  std::error_code error = file.Error();
  if (!error) error = ReadEntry(file.Path(), entry, read);
  if (error) {
    console.Warn(file.Name() + ": " + error.message());
    return std::nullopt;
  }
  if (!read) {
    console.Warn(file.Name() + ": no entry '" + entry + "'");
    return std::nullopt;
  }
  return PointsOf(*read);
}

NamedPoints PointsOf(const EntryLine& entry) {
  return {curves::PointsOf(tables::ParseEntryLine(entry.line)), entry.name};
}

std::string Sentence(const curves::Fault& fault) {
  std::string text = curves::FaultText(fault, {}, ".");
  if (!text.empty() && text[0] >= 'A' && text[0] <= 'Z') text[0] += 'a' - 'A';
  return text;
}

std::string Shown(double number) { return texts::NumberText(number, "."); }

void WritePoints(const std::vector<curves::Point>& points, double timeFactor, Console& console) {
  for (const curves::Point& point : points) {
    console.WriteLine(Shown(point.load) + '\t' + Shown(point.time * timeFactor));
  }
}

void WriteDeviation(double ratio, Console& console) {
  console.WriteLine("# deviation=" + Shown(ratio * texts::kPercent));
}

}  // namespace zentab::cli
