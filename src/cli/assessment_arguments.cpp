#include "cli/assessment_arguments.h"

#include "cli/argument_checks.h"

namespace zentab::cli {
namespace {

void DeclareLimits(CLI::App& command, AssessmentOptions& options) {
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

std::optional<double> Given(const std::string& text) {
  return text.empty() ? std::nullopt : std::optional(NumberOf(text));
}

// The other entry as a reference for loads in this one's unit.
Exit TakeAssessed(const AssessmentOptions& options, const std::string& command,
                  const NamedPoints& entry, const NamedPoints& other, const Console& console,
                  curves::Reference& reference) {
  const auto pickup = Given(options.characteristic.pickup);
  auto made = curves::ReferenceOf(other, entry.absolute, pickup);
  const curves::Fault* const fault = curves::FaultOf(made);
  if (fault == nullptr) {
    reference = std::get<curves::Reference>(std::move(made));
    return Exit::Done;
  }
  if (fault->kind == curves::FaultKind::PickupNeeded) {
    return console.Misused(command + ": absolute loads against multiples need --pickup");
  }
  const bool isPickup = fault->kind == curves::FaultKind::BadSetting;
  return console.Fail((isPickup ? command : other.name) + ": " + Sentence(*fault));
}

Exit TakeReference(const AssessmentOptions& options, const std::string& command,
                   const InputFile& file, const NamedPoints& entry, const Console& console,
                   curves::Reference& reference) {
  if (!options.against.empty()) {
    // Standard input can be read once, for both.
    const std::string& name = options.against.front();
    const bool isSame = name == "-" && file.Name() == InputFile::kStandardInput;
    const auto other = isSame ? TakeEntry(file, options.against.back(), console)
                              : TakeEntry(InputFile(name), options.against.back(), console);
    return other ? TakeAssessed(options, command, entry, *other, console, reference) : Exit::Failed;
  }
  curves::Characteristic characteristic;
  if (!TakeCharacteristic(options.characteristic, entry.absolute, command, console,
                          characteristic)) {
    return Exit::WrongUsage;
  }
  const auto curve = curves::CharacteristicCurve::Of(characteristic);
  if (const curves::Fault* const fault = curves::FaultOf(curve)) {
    return console.Fail(command + ": " + Sentence(*fault));
  }
  reference = curves::ReferenceOf(std::get<curves::CharacteristicCurve>(curve));
  return Exit::Done;
}

}  // namespace

void DeclareAssessment(CLI::App& command, AssessmentOptions& options) {
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
}

curves::Limits LimitsOf(const AssessmentOptions& options) {
  curves::Limits limits;
  limits.percent = NumberOf(options.percent);
  limits.milliseconds = NumberOf(options.milliseconds);
  limits.assignedError = NumberOf(options.assignedError);
  limits.loadPercent = NumberOf(options.loadPercent);
  return limits;
}

Exit AssessEntry(const AssessmentOptions& options, const std::string& command,
                 const InputFile& file, const NamedPoints& entry, const Console& console,
                 curves::Assessment& assessment) {
  curves::Reference reference;
  const Exit taken = TakeReference(options, command, file, entry, console, reference);
  if (taken != Exit::Done) return taken;
  if (!options.assignedError.empty() && !reference.pickup) {
    return console.Misused(command + ": absolute loads need --pickup with --class");
  }
  auto assessed = curves::Assess(entry.InSeconds(), reference, LimitsOf(options));
  if (const curves::Fault* const fault = curves::FaultOf(assessed)) {
    return console.Fail(entry.name + ": " + Sentence(*fault));
  }
  assessment = std::get<curves::Assessment>(std::move(assessed));
  return Exit::Done;
}

}  // namespace zentab::cli
