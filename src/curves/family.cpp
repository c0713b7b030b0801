#include "curves/family.h"

#include "platform/ascii.h"
#include "platform/character_case.h"

namespace zentab::curves {
namespace {

using tables::Instrument;
using T = texts::CurveTexts;

constexpr std::string_view kInverse = "TMS (k / (M^alpha - 1) + c)";
constexpr std::string_view kIec = "IEC 60255-151:2009, annex A";
constexpr std::string_view kIeee = "IEEE C37.112-2018, table 1; IEC 60255-151, curves D, E and F";
constexpr std::string_view kMakers = "usual among relay makers, after BS 142";
constexpr std::string_view kVoltage = "IEC 60255-127:2010, annex A";

constexpr FamilyRow kRows[] = {
    {Family::IecA,
     "iec-a",
     Form::Inverse,
     {0.14, 0.02, 0.0},
     false,
     Instrument::Current,
     kInverse,
     kIec,
     &T::iecA},
    {Family::IecB,
     "iec-b",
     Form::Inverse,
     {13.5, 1.0, 0.0},
     false,
     Instrument::Current,
     kInverse,
     kIec,
     &T::iecB},
    {Family::IecC,
     "iec-c",
     Form::Inverse,
     {80.0, 2.0, 0.0},
     false,
     Instrument::Current,
     kInverse,
     kIec,
     &T::iecC},
    {Family::IeeeModerately,
     "ieee-mi",
     Form::Inverse,
     {0.0515, 0.02, 0.114},
     false,
     Instrument::Current,
     kInverse,
     kIeee,
     &T::ieeeModerately},
    {Family::IeeeVery,
     "ieee-vi",
     Form::Inverse,
     {19.61, 2.0, 0.491},
     false,
     Instrument::Current,
     kInverse,
     kIeee,
     &T::ieeeVery},
    {Family::IeeeExtremely,
     "ieee-ei",
     Form::Inverse,
     {28.2, 2.0, 0.1217},
     false,
     Instrument::Current,
     kInverse,
     kIeee,
     &T::ieeeExtremely},
    {Family::LongTime,
     "long-time",
     Form::Inverse,
     {120.0, 1.0, 0.0},
     false,
     Instrument::Current,
     kInverse,
     kMakers,
     &T::longTime},
    {Family::ShortTime,
     "short-time",
     Form::Inverse,
     {0.05, 0.04, 0.0},
     false,
     Instrument::Current,
     kInverse,
     kMakers,
     &T::shortTime},
    {Family::Ri,
     "ri",
     Form::ElectroMechanic,
     {0.339, 1.0, 0.236},
     false,
     Instrument::Current,
     "TMS / (0.339 - 0.236 / M)",
     "usual among relay makers, after the electromechanical RI",
     &T::ri},
    {Family::I2t,
     "i2t",
     Form::Square,
     {},
     false,
     Instrument::Current,
     "TMS S / M^2",
     "heating without heat given off",
     &T::i2t},
    {Family::Definite,
     "definite",
     Form::Constant,
     {},
     false,
     Instrument::None,
     "TMS S",
     "IEC 60255-151 and IEC 60255-127, independent time",
     &T::definite},
    {Family::Overvoltage,
     "overvoltage",
     Form::Above,
     {1.0, 1.0, 0.0},
     true,
     Instrument::Voltage,
     "TMS k / (M^alpha - 1) + c",
     kVoltage,
     &T::overvoltage},
    {Family::Undervoltage,
     "undervoltage",
     Form::Below,
     {1.0, 1.0, 0.0},
     true,
     Instrument::Voltage,
     "TMS k / (1 - M^alpha) + c",
     kVoltage,
     &T::undervoltage},
    {Family::Thermal,
     "thermal",
     Form::Heating,
     {},
     false,
     Instrument::Current,
     "TMS tau ln((M^2 - Mp^2) / (M^2 - factor^2))",
     "IEC 60255-149:2013",
     &T::thermal},
    {Family::Own,
     "own",
     Form::Inverse,
     {0.14, 0.02, 0.0},
     true,
     Instrument::None,
     kInverse,
     "the user",
     &T::own},
    {Family::Equation,
     "equation",
     Form::Free,
     {},
     false,
     Instrument::None,
     "any, of v, pickup and multiplier",
     "the user",
     &T::equation},
};
static_assert(std::size(kRows) == kFamilies);

}  // namespace

std::span<const FamilyRow> Families() { return kRows; }

const FamilyRow& RowOf(Family family) { return kRows[static_cast<std::size_t>(family)]; }

std::optional<Family> FamilyOf(std::string_view id) {
  const std::string folded = platform::LowerCase(id);
  for (const FamilyRow& row : kRows) {
    if (row.id == folded) return row.family;
  }
  return std::nullopt;
}

}  // namespace zentab::curves
