#pragma once

#include <CLI/CLI.hpp>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "cli/console.h"
#include "cli/entries.h"
#include "cli/input_file.h"
#include "curves/characteristic.h"
#include "curves/entry_points.h"

namespace zentab::cli {

/// The settings of a characteristic as texts of options; empty ones were not given.
struct CharacteristicOptions {
  std::string family;
  std::string multiplier;
  std::string k;
  std::string alpha;
  std::string c;
  std::string pickup;
  std::string constant;
  std::string tau;
  std::string previous;
  std::string factor;
  std::string equation;
  std::string minimumTime;
  std::string maximumTime;
  std::string step;
  std::string start;
};

/// Declares them, but neither the family nor the pickup value, which commands name differently.
std::vector<CLI::Option*> DeclareCharacteristic(CLI::App& command, CharacteristicOptions& options);

/// The characteristic of options. On false the command ends: what is wrong with them was said.
[[nodiscard]] bool TakeCharacteristic(const CharacteristicOptions& options, bool absoluteLoads,
                                      const std::string& command, const Console& console,
                                      curves::Characteristic& result);

/// The identifiers of the families; of those that can be fitted alone.
[[nodiscard]] std::vector<std::string> FamilyIds(bool onlyFitted);

/// Numbers with "," between them, each a whole decimal number; nothing when one is none.
[[nodiscard]] std::optional<std::vector<double>> NumberList(const std::string& text);
extern const CLI::Validator kNumberList;
/// A number of points that a table can have, from 2.
extern const CLI::Validator kPointCount;

/// An entry's numbers, with its name.
struct NamedPoints : curves::EntryPoints {
  std::string name;
};

/// The same of an entry's line.
[[nodiscard]] NamedPoints PointsOf(const EntryLine& entry);

/// Reads an entry; nothing when it cannot, which was said.
[[nodiscard]] std::optional<NamedPoints> TakeEntry(const InputFile& file, const std::string& entry,
                                                   const Console& console);

/// What a fault says, in English, to go behind a name.
[[nodiscard]] std::string Sentence(const curves::Fault& fault);

/// A number as show prints it.
[[nodiscard]] std::string Shown(double number);
/// Points a line each: LOAD, tab, TIME; the remark that states a deviation.
void WritePoints(const std::vector<curves::Point>& points, double timeFactor, Console& console);
void WriteDeviation(double ratio, Console& console);

}  // namespace zentab::cli
