#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "tables/curve_table_entry.h"
#include "texts/catalogue_texts.h"

namespace zentab::curves {

/// The families of characteristics, in the order in which they are offered.
enum class Family {
  IecA,
  IecB,
  IecC,
  IeeeModerately,
  IeeeVery,
  IeeeExtremely,
  LongTime,
  ShortTime,
  Ri,
  I2t,
  Definite,
  Overvoltage,
  Undervoltage,
  Thermal,
  Own,
  Equation,
};
inline constexpr std::size_t kFamilies = 16;

/// The formulas; M is the load as a multiple of the pickup value, T the time multiplier.
enum class Form {
  Inverse,          // T (k / (M^alpha - 1) + c), M above 1
  ElectroMechanic,  // T / (k - c / M), M above 1
  Square,           // T S / M^2, M above 1
  Constant,         // T S, M above 1
  Above,            // T k / (M^alpha - 1) + c, M above 1
  Below,            // T k / (1 - M^alpha) + c, M from 0 to below 1
  Heating,          // T tau ln((M^2 - Mp^2) / (M^2 - factor^2)), M above the factor
  Free,             // an equation
};

/// The constants of a formula.
struct Constants {
  double k = 0.0;      // s
  double alpha = 0.0;  // no unit
  double c = 0.0;      // s

  friend bool operator==(const Constants&, const Constants&) = default;
};

/// What a family is.
struct FamilyRow {
  Family family;
  std::string_view id;  // in commands and settings
  Form form;
  Constants constants;  // what the standard gives, or the first ones for the user's own
  bool hasOwnConstants;
  tables::Instrument instrument;  // None: of either kind
  std::string_view formula;
  std::string_view source;
  std::string texts::CurveTexts::*name;  // what to show
};

/// All families, in the order of Family.
[[nodiscard]] std::span<const FamilyRow> Families();
[[nodiscard]] const FamilyRow& RowOf(Family family);
/// The family of an identifier, letters compared without case.
[[nodiscard]] std::optional<Family> FamilyOf(std::string_view id);

/// Whether a family trips below its pickup value, as undervoltage does.
[[nodiscard]] inline bool TripsBelow(Family family) { return RowOf(family).form == Form::Below; }

}  // namespace zentab::curves
