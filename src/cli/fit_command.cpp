#include "cli/argument_checks.h"
#include "cli/command.h"
#include "cli/curve_arguments.h"
#include "curves/fit.h"
#include "texts/number_text.h"

namespace zentab::cli {
namespace {

struct FitOptions {
  std::string file;
  std::string entry;
  std::vector<std::string> families;
  std::vector<std::string> excluded;
  std::string pickup;
  bool pickupFree = false;
};

void DeclareFit(CLI::App& command, FitOptions& options) {
  command.add_option("FILE", options.file, "Table file, - for standard input")->required();
  command.add_option("ENTRY", options.entry, "Name, or #N for line number N from 0")->required();
  command
      .add_option("--family", options.families,
                  "A family to fit, again for more; unless given all of the entry's instrument")
      ->check(CLI::IsMember(FamilyIds(true), CLI::ignore_case))
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  command.add_flag("--pickup-free", options.pickupFree,
                   "The pickup value is fitted as well, but for i2t, definite and own");
  command
      .add_option("--exclude", options.excluded,
                  "Number of a point, from 1, that does not count; again for more")
      ->check(CLI::PositiveNumber)
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  command
      .add_option("--pickup", options.pickup,
                  "Pickup value; needed for absolute loads unless --pickup-free")
      ->check(kNumber);
}

std::string LineOf(const curves::FamilyFit& fit, double pickupUnit) {
  const curves::Characteristic& found = fit.characteristic;
  std::string line(curves::RowOf(found.family).id);
  if (found.family == curves::Family::Own) {
    const auto& [k, alpha, c] = found.constants;
    line += '\t' + Shown(k) + '\t' + Shown(alpha) + '\t' + Shown(c);
  } else {
    line += '\t' + Shown(found.multiplier);
  }
  return line + '\t' + Shown(found.pickup * pickupUnit) + '\t' +
         Shown(fit.rootMeanSquare * texts::kPercent) + '\t' + Shown(fit.largest * texts::kPercent);
}

// What the points leave open, in the words of the columns.
void WarnOf(const curves::FamilyFit& fit, const Console& console) {
  static const std::map<curves::FitParameter, std::string> names = {
      {curves::FitParameter::Multiplier, "TMS"},
      {curves::FitParameter::Pickup, "PICKUP"},
      {curves::FitParameter::K, "K"},
      {curves::FitParameter::Alpha, "ALPHA"},
      {curves::FitParameter::C, "C"}};
  std::string open;
  for (const curves::FittedValue& value : fit.values) {
    if (!value.isDetermined) open += (open.empty() ? "" : ", ") + names.at(value.parameter);
  }
  if (open.empty()) return;
  console.Warn(std::string(curves::RowOf(fit.characteristic.family).id) +
               ": the points do not determine " + open);
}

// Which point a load belongs to, to leave it out.
std::string HintOf(const NamedPoints& entry, const curves::Fault& fault) {
  if (fault.kind != curves::FaultKind::AtOrBelowPickup &&
      fault.kind != curves::FaultKind::AtOrAbovePickup) {
    return {};
  }
  for (std::size_t at = 0; at < entry.points.size(); ++at) {
    if (entry.points[at].load != fault.value) continue;
    return "; --exclude " + std::to_string(at + 1) + " leaves it out";
  }
  return {};
}

bool TakeExcluded(const FitOptions& options, const NamedPoints& entry, const Console& console,
                  std::vector<std::size_t>& excluded) {
  for (const std::string& text : options.excluded) {
    const double number = NumberOf(text);
    const auto place = static_cast<std::size_t>(std::min(number, 1e6));
    if (place < 1 || place > entry.points.size() || static_cast<double>(place) != number) {
      console.Warn(entry.name + ": has no point " + text);
      return false;
    }
    excluded.push_back(place - 1);
  }
  return true;
}

Exit Fit(const FitOptions& options, Console& console) {
  const auto entry = TakeEntry(InputFile(options.file), options.entry, console);
  if (!entry) return Exit::Failed;
  if (entry->absolute && options.pickup.empty() && !options.pickupFree) {
    return console.Misused("fit: absolute loads need --pickup or --pickup-free");
  }
  if (!options.pickup.empty() && !(NumberOf(options.pickup) > 0.0)) {
    return console.Fail("fit: " + Sentence({curves::FaultKind::BadSetting, 0.0, "pickup"}));
  }
  curves::FitOptions fitted;
  fitted.pickupFree = options.pickupFree;
  fitted.instrument = entry->instrument;
  for (const std::string& id : options.families) {
    const curves::Family family = *curves::FamilyOf(id);
    if (std::ranges::find(fitted.families, family) == fitted.families.end()) {
      fitted.families.push_back(family);
    }
  }
  double pickupUnit = 1.0;
  if (!entry->absolute) {
    if (!options.pickup.empty()) pickupUnit = NumberOf(options.pickup);
  } else {
    fitted.pickup = options.pickup.empty() ? std::nullopt : std::optional(NumberOf(options.pickup));
  }
  std::vector<std::size_t> excluded;
  if (!TakeExcluded(options, *entry, console, excluded)) return Exit::Failed;
  const curves::FitResult result = curves::Fit(entry->InSeconds(), excluded, fitted);
  if (result.fits.empty()) {
    return console.Fail(entry->name + ": " + Sentence(result.failed.front().second) +
                        HintOf(*entry, result.failed.front().second));
  }
  for (const curves::FamilyFit& fit : result.fits) {
    console.WriteLine(LineOf(fit, pickupUnit));
    WarnOf(fit, console);
  }
  if (options.families.empty() || result.failed.empty()) return Exit::Done;
  for (const auto& [family, fault] : result.failed) {
    console.Warn(std::string(curves::RowOf(family).id) + ": " + Sentence(fault));
  }
  return Exit::Failed;
}

}  // namespace

void AddFitCommand(Commands& commands) {
  AddCommand(commands, "fit",
             "Fits characteristics to an entry by least relative error, the best first: FAMILY, "
             "TMS, PICKUP, root mean square and largest error in per cent between tabs; own has K, "
             "ALPHA and C in place of TMS",
             DeclareFit, Fit);
}

}  // namespace zentab::cli
