#pragma once

#include <string>
#include <variant>
#include <vector>

#include "texts/catalogue_texts.h"

namespace zentab::texts {

// What a key's text does, one type an effect.

struct Caption {  // a control's caption, or a field's text
  const char* control;
  bool shows = false;  // makes it visible, too
};
struct Tooltip {
  const char* control;
  bool shows = false;
};
struct Placeholder {
  const char* control;
};
struct SpokenName {  // by which a screen reader calls a control that has no caption
  const char* control;
};
struct FrameCaption {  // a text of blanks hides the frame, any other shows it
  const char* control;
};
struct NamesFromCaptions {};  // the instruments' names follow the captions of their choices
struct InstrumentField {
  std::size_t instrument;
  std::string InstrumentTexts::*field;
};
struct MessageField {
  std::size_t box;
  std::string MessageText::*field;
};
struct LabelField {
  std::string LabelTexts::*field;
};
struct ProgramField {
  std::string ProgramTexts::*field;
};
struct PointField {
  std::string PointTexts::*field;
};
struct ToolField {
  std::string ToolTexts::*field;
};
struct GraphField {
  std::string GraphTexts::*field;
};
struct HistoryField {
  std::string HistoryTexts::*field;
};
struct StepName {
  std::size_t step;  // as of HistoryTexts
};
struct ChartField {
  std::string ChartTexts::*field;
};
struct InterchangeField {
  std::string InterchangeTexts::*field;
};
struct CurveImportField {
  std::string CurveImportTexts::*field;
};
struct ComparisonField {
  std::string ComparisonTexts::*field;
};
struct CurveField {
  std::string CurveTexts::*field;
};
struct CurveDialogField {
  std::string CurveDialogTexts::*field;
};
struct LibraryField {
  std::string LibraryTexts::*field;
};
struct HelpField {
  std::string HelpTexts::*field;
};
struct WorkbenchField {
  std::string WorkbenchTexts::*field;
};
struct ReportField {
  std::string ReportTexts::*field;
};
struct OutputField {
  std::string OutputTexts::*field;
};
struct ExchangeField {
  ExchangeTexts CatalogueTexts::*direction;
  std::string ExchangeTexts::*field;
};
struct EquationSlot {
  EquationStage stage;
  std::size_t slot;
};
struct ImportField {  // "-" shows the field and its label; any other text is its content
  const char* field;
  const char* label;
  std::int16_t ImportSettings::*number;
  std::string ImportSettings::*text;  // where the text is kept as well
};
struct TimeoutText {};
struct SwitchOn {  // by any text
  bool CatalogueTexts::*flag;
};
struct TraceSwitch {};  // off by "0", on by any other text
struct ShownIfTrue {    // "True" or a number other than 0 shows, "False" or 0 hides
  const char* control;
  const char* label;
};
struct ShownIfAboveZero {  // a text that sorts after "0" shows, any other hides
  const char* control;
};

using TextEffect =
    std::variant<Caption, Tooltip, Placeholder, SpokenName, FrameCaption, NamesFromCaptions,
                 InstrumentField, MessageField, LabelField, ProgramField, PointField, ToolField,
                 GraphField, ChartField, CurveField, InterchangeField, CurveImportField,
                 ComparisonField, CurveDialogField, LibraryField, HelpField, WorkbenchField,
                 ReportField, OutputField, ExchangeField, EquationSlot, HistoryField, StepName,
                 ImportField, TimeoutText, SwitchOn, TraceSwitch, ShownIfTrue, ShownIfAboveZero>;

struct KeyRow {
  std::string key;  // empty: no text is looked up, the effect always takes place
  TextEffect effect;
  bool expanded = false;
};
/// For a row whose text has its pairs of "\\" and a letter replaced.
inline constexpr bool kExpanded = true;

/// The keys of the texts about characteristics and operations on curves.
[[nodiscard]] const std::vector<KeyRow>& CurveRows();
[[nodiscard]] const std::vector<KeyRow>& InterchangeRows();

/// The keys of the dialogs for curves of other programs, and for another library.
[[nodiscard]] const std::vector<KeyRow>& CurveImportRows();
[[nodiscard]] const std::vector<KeyRow>& ComparisonRows();

/// The keys of the menu for curves, its dialogs and the assessment.
[[nodiscard]] const std::vector<KeyRow>& CurveMenuRows();
[[nodiscard]] const std::vector<KeyRow>& CurveDialogRows();
/// The keys of the chart's menus and texts.
[[nodiscard]] const std::vector<KeyRow>& ChartRows();

/// The keys of the menu for the library as a whole.
[[nodiscard]] const std::vector<KeyRow>& LibraryRows();
/// The keys of the help menu, its windows and the welcome of a first start.
[[nodiscard]] const std::vector<KeyRow>& HelpRows();
/// The keys of the import with preview, and of fields for equations.
[[nodiscard]] std::vector<KeyRow> WorkbenchRows();
/// The keys of the texts on reports, and of what the window says about them.
[[nodiscard]] const std::vector<KeyRow>& ReportRows();
[[nodiscard]] const std::vector<KeyRow>& OutputRows();

/// Every key of a catalogue with its effect, in the order in which they are applied.
[[nodiscard]] const std::vector<KeyRow>& KeyTable();

}  // namespace zentab::texts
