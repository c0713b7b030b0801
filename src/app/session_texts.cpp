#include "app/session_texts.h"

#include "platform/file_errors.h"

#include "texts/number_text.h"

namespace zentab::app {
namespace {

// The load levels of the points, as they stand in files.
std::string LoadLevels(const editor::CurveGrid& grid, std::string_view separator) {
  std::string levels;
  for (int row = editor::kFirstRow; row <= editor::kLastRow; ++row) {
    const std::string& cell = grid.Cell(row, editor::kLoadColumn);
    if (cell.empty()) break;
    if (!levels.empty()) levels += ';';
    levels += texts::FileNumber(cell, separator);
  }
  return levels;
}

// Without an instrument, or with one that has no unit, the brackets around the unit hold nothing.
std::string WithoutEmptyUnit(const Session& session, std::string text) {
  if (!InstrumentInUse(session).unit.empty()) return text;
  for (const std::string_view brackets : {"(%V)", "[%V]", "（%V）"}) {
    const std::size_t at = text.find(brackets);
    if (at == std::string::npos) continue;
    const std::size_t before = text.find_last_not_of(' ', at - 1);
    const std::size_t begin = at == 0 || before == std::string::npos ? 0 : before + 1;
    text.erase(begin, at + brackets.size() - begin);
  }
  return text;
}

std::string LoadLabel(const Session& session, bool absolute) {
  const texts::LabelTexts& labels = session.texts.labels;
  return Expanded(session,
                  WithoutEmptyUnit(session, absolute ? labels.loadAbsolute : labels.loadRelative));
}

std::string TimeLabel(const Session& session) {
  const texts::LabelTexts& labels = session.texts.labels;
  return Expanded(session,
                  session.modes.milliseconds ? labels.timeMilliseconds : labels.timeSeconds);
}

}  // namespace

std::tm LocalTime() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
#ifdef _WIN32
  localtime_s(&local, &now);
#else
  localtime_r(&now, &local);
#endif
  return local;
}

std::string Expanded(const Session& session, std::string_view text,
                     const texts::TemplateArguments& arguments) {
  if (text.find('%') == std::string_view::npos) return std::string(text);
  const texts::InstrumentTexts instrument = InstrumentInUse(session);
  texts::TemplateFields fields;
  fields.now = LocalTime();
  fields.tablePath = session.tablePath;
  fields.exchangeFile = session.exchangeFile;
  fields.timeUnit = session.modes.TimeUnitText();
  fields.loadLevels = LoadLevels(session.table.grid, session.localeDecimalSeparator);
  fields.instrumentName = instrument.name;
  fields.instrumentUnit = instrument.unit;
  return texts::ExpandTemplate(text, fields, arguments);
}

std::string ReasonText(const texts::ProgramTexts& texts, std::error_code error) {
  using platform::FileError;
  if (error.category() != platform::FileErrors()) return error.message();
  switch (static_cast<FileError>(error.value())) {
    case FileError::GroupNotKept:
      return texts.groupNotKept;
    case FileError::OwnerNotKept:
      return texts.ownerNotKept;
    case FileError::AccessListNotKept:
      return texts.accessListNotKept;
    case FileError::HardLinked:
      return texts.hardLinked;
    case FileError::LockedByOther:
      return texts.lockedByOther;
    case FileError::OpenElsewhere:
      return texts.openElsewhere;
    case FileError::NoRegularFile:
      return texts.noRegularFile;
    case FileError::LineTooLong:
      return texts.lineTooLong;
    case FileError::GivenUp:
      return texts.givenUp;
  }
  return error.message();
}

texts::MessageText MessageFor(const Session& session, MessageBox box, std::string_view entryName) {
  const texts::MessageText& message = session.texts.messages.at(static_cast<std::size_t>(box));
  return {message.title, Expanded(session, message.text, {entryName})};
}

texts::MessageText OpenFailedMessage(const Session& session) {
  const texts::MessageText& message =
      session.texts.messages.at(static_cast<std::size_t>(MessageBox::OpenFailed));
  return {Expanded(session, message.title), Expanded(session, message.text)};
}

editor::ValueModes ModesInFiles(const Session& session) {
  editor::ValueModes modes = session.modes;
  for (std::string* const text : {&modes.pickup, &modes.multiplier}) {
    *text = texts::FileNumber(*text, session.localeDecimalSeparator);
  }
  return modes;
}

texts::InstrumentTexts InstrumentInUse(const Session& session) {
  if (session.instrument == tables::Instrument::None) return {};
  texts::InstrumentTexts used =
      session.texts.instruments.at(static_cast<std::size_t>(session.instrument));
  const texts::InstrumentTexts& current = session.texts.instruments[1];
  for (std::string texts::InstrumentTexts::*const field :
       {&texts::InstrumentTexts::setGraphCaption, &texts::InstrumentTexts::setGraphTip,
        &texts::InstrumentTexts::pickupLabel, &texts::InstrumentTexts::pickupTip}) {
    if ((used.*field).empty()) used.*field = current.*field;
  }
  return used;
}

std::string FixedNumber(double number, int decimals, const Session& session) {
  return texts::SetDecimalSeparator(texts::FixedText(number, decimals),
                                    session.localeDecimalSeparator);
}

LabelPair LabelsFor(const Session& session) {
  return {LoadLabel(session, session.modes.absoluteValues), TimeLabel(session)};
}

const std::string& LoadUnitOf(bool absoluteValues, tables::Instrument instrument,
                              const Session& session) {
  const texts::CurveDialogTexts& texts = session.texts.curveDialogs;
  if (!absoluteValues) return texts.multiples;
  switch (instrument) {
    case tables::Instrument::Current:
      return texts.amperes;
    case tables::Instrument::Voltage:
      return texts.volts;
    default:
      return texts.amperesOrVolts;
  }
}

LabelPair AxisTitlesFor(const Session& session, bool absoluteLoads) {
  const texts::ProgramTexts& texts = session.texts.program;
  return {Expanded(session, texts.loadAxis, {LoadLabel(session, absoluteLoads)}),
          Expanded(session, texts.timeAxis, {TimeLabel(session)})};
}

}  // namespace zentab::app
