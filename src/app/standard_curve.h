#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "app/form_values.h"
#include "app/session.h"
#include "curves/characteristic.h"
#include "curves/sampling.h"
#include "texts/curve_dialog_texts.h"

namespace zentab::app {

/// A field of the dialog for standard curves that takes a text.
struct CurveFieldRow {
  std::string_view name;   // in FormValues
  std::string_view first;  // what it holds at first, with "."
  std::string texts::CurveDialogTexts::*label;
};

/// All of them, in the order in which they are shown.
[[nodiscard]] std::span<const CurveFieldRow> CurveFields();

/// Whether a family with loads chosen in that way has a field.
[[nodiscard]] bool HasField(std::string_view name, curves::Family family, std::string_view spacing);

/// The ways to choose the loads, as the dialog keeps them.
inline constexpr std::string_view kSpacings[] = {"log", "linear", "best", "given"};

/// The values at first for a family, in the session's modes.
[[nodiscard]] FormValues FirstCurveValues(curves::Family family, const Session& session);

/// What is wrong with the values of a form: the field, empty for the whole, and the words.
struct FormFault {
  std::string field;
  std::string text;
};

/// Points for the grid, in the session's modes.
struct CurveProposal {
  std::vector<curves::Point> points;
  std::optional<double> deviation;  // the largest of the lines between them, as a ratio
};

/// The family that a form has chosen.
[[nodiscard]] curves::Family FamilyIn(const FormValues& values);

/// The characteristic that a form describes, with loads in the session's modes.
[[nodiscard]] std::variant<curves::CharacteristicCurve, FormFault> CharacteristicIn(
    const FormValues& values, const Session& session);

/// The table that a form describes.
[[nodiscard]] std::variant<CurveProposal, FormFault> ProposeCurve(const FormValues& values,
                                                                  const Session& session);

/// The loads that a form gives or spaces.
[[nodiscard]] std::variant<std::vector<double>, FormFault> LoadsIn(const FormValues& values,
                                                                   const Session& session);

/// A short name for a characteristic: the family's, with its multiplier.
[[nodiscard]] std::string NameOf(const curves::Characteristic& characteristic,
                                 const Session& session);

/// The unit of the grid's loads.
[[nodiscard]] const std::string& LoadUnit(const Session& session);

/// A label of the dialogs without the mark of its key, the unit of the loads filled in.
[[nodiscard]] std::string PlainLabel(std::string label, const Session& session);

/// The user's own constants, under names of his.
struct OwnConstants {
  std::string name;
  curves::Constants constants;

  friend bool operator==(const OwnConstants&, const OwnConstants&) = default;
};
/// Those kept in a form, in the order of their names, and such a form.
[[nodiscard]] std::vector<OwnConstants> OwnConstantsIn(const FormValues& kept);
void KeepOwnConstants(const OwnConstants& own, FormValues& kept);
/// The fields of the dialog for such constants.
[[nodiscard]] FormValues ConstantValues(const curves::Constants& constants, const Session& session);

}  // namespace zentab::app
