#include "app/widgets/interchange/reading_fields.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <array>

#include "app/session_texts.h"
#include "app/widgets/curve/form_fields.h"
#include "app/widgets/library/entry_list_model.h"

namespace zentab::app {
namespace {

using interchange::Encoding;
using interchange::TimeUnit;

constexpr int kTextCharacters = 16;  // characters

// By the identifiers of the choices, in the order of the kinds.
constexpr std::array kEncodings = {"utf8", "utf16", "single"};
constexpr std::array kLoadUnits = {"multiple", "a", "v", "ka"};
constexpr std::array kTimeUnits = {"s", "ms", "cycles50", "cycles60"};
constexpr const char* kYes = "yes";
constexpr const char* kNo = "no";
constexpr const char* kThin = "thin";
constexpr const char* kCut = "cut";
// Each field that is only there for rows of text.
constexpr std::array kTextFields = {"encoding", "separator", "decimal",  "header",
                                    "load",     "time",      "loadunit", "timeunit"};

template <class Kind, class Ids>
std::optional<Kind> KindOf(const Ids& ids, const std::string& id) {
  for (std::size_t at = 0; at < ids.size(); ++at) {
    if (id == ids[at]) return static_cast<Kind>(at);
  }
  return std::nullopt;
}

template <class Kind, class Ids>
std::string IdOf(const Ids& ids, Kind kind) {
  return ids[static_cast<std::size_t>(kind)];
}

}  // namespace

ReadingFields::ReadingFields(const Session& session, QHBoxLayout& layout, QWidget* parent)
    : QObject(parent), session_(session) {
  const auto add = [&] {
    auto* const form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    layout.addLayout(form, 1);
    auto* const fields = new FormFields(*form, parent);
    connect(fields, &FormFields::Changed, this, &ReadingFields::Changed);
    return fields;
  };
  file_ = add();
  columns_ = add();
  AddFileFields();
  AddColumnFields();
}

void ReadingFields::AddFileFields() {
  const texts::CurveImportTexts& texts = session_.texts.curveImport;
  AddField(*file_, "encoding", texts.encoding,
           {{"utf8", "UTF-8"}, {"utf16", "UTF-16"}, {"single", "Windows-1252"}});
  AddField(*file_, "separator", texts.separator,
           {{",", texts.comma},
            {";", texts.semicolon},
            {"\t", texts.tab},
            {"|", texts.bar},
            {" ", texts.blanks}});
  AddField(*file_, "decimal", texts.decimalSign, {{".", texts.point}, {",", texts.comma}});
  AddField(*file_, "header", texts.header, {{kYes, texts.yes}, {kNo, texts.no}});
  QComboBox* const surplus =
      file_->AddChoice("surplus", texts.surplus, {{kThin, texts.thin}, {kCut, texts.cut}});
  surplus->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  surplus->setMinimumContentsLength(kTextCharacters);
}

void ReadingFields::AddColumnFields() {
  const texts::CurveImportTexts& texts = session_.texts.curveImport;
  const texts::CurveDialogTexts& units = session_.texts.curveDialogs;
  AddField(*columns_, "load", texts.loadColumn, {});
  AddField(*columns_, "loadunit", texts.loadUnit,
           {{"multiple", units.multiples}, {"a", units.amperes}, {"v", units.volts}, {"ka", "kA"}});
  AddField(*columns_, "time", texts.timeColumn, {});
  AddField(*columns_, "timeunit", texts.timeUnit,
           {{"s", "s"}, {"ms", "ms"}, {"cycles50", texts.cycles50}, {"cycles60", texts.cycles60}});
}

QComboBox* ReadingFields::AddField(FormFields& fields, const char* name, const std::string& label,
                                   const std::vector<Choice>& choices) {
  FormFields::Choices all = {{"", session_.texts.curveImport.detect}};
  all.insert(all.end(), choices.begin(), choices.end());
  QComboBox* const field = fields.AddChoice(name, label, all);
  // Headings of columns may have any length.
  field->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  field->setMinimumContentsLength(kTextCharacters);
  return field;
}

QComboBox* ReadingFields::Box(const char* name) const {
  QWidget* const field = file_->Field(name);
  return qobject_cast<QComboBox*>(field != nullptr ? field : columns_->Field(name));
}

std::string ReadingFields::ValueOf(const char* name) const {
  return Box(name)->currentData().toString().toStdString();
}

interchange::ImportChoices ReadingFields::Choices() const {
  interchange::ImportChoices choices;
  const std::string separator = ValueOf("separator");
  const std::string decimal = ValueOf("decimal");
  const std::string header = ValueOf("header");
  choices.encoding = KindOf<Encoding>(kEncodings, ValueOf("encoding"));
  if (!separator.empty()) choices.separator = separator.front();
  if (!decimal.empty()) choices.decimalSign = decimal.front();
  if (!header.empty()) choices.hasHeader = header == kYes;
  choices.load = ValueOf("load");
  choices.time = ValueOf("time");
  choices.loadUnit = KindOf<interchange::LoadUnit>(kLoadUnits, ValueOf("loadunit"));
  choices.timeUnit = KindOf<TimeUnit>(kTimeUnits, ValueOf("timeunit"));
  return choices;
}

interchange::Surplus ReadingFields::Surplus() const {
  return ValueOf("surplus") == kCut ? interchange::Surplus::Cut : interchange::Surplus::Thin;
}

void ReadingFields::ShowGuessText(const char* name, const std::string& text) {
  const texts::CurveImportTexts& texts = session_.texts.curveImport;
  const std::string shown = text.empty() ? texts.detect : Expanded(session_, texts.guessed, {text});
  Box(name)->setItemText(0, ShownName(shown));
}

void ReadingFields::ShowGuess(const char* name, const std::string& id) {
  const QComboBox* const field = Box(name);
  const int at = field->findData(QString::fromStdString(id));
  ShowGuessText(name, at > 0 ? field->itemText(at).toStdString() : id);
}

std::string ReadingFields::ColumnText(const interchange::ImportedText& text,
                                      std::size_t column) const {
  const std::string number = std::to_string(column + 1);
  const std::string& heading = text.headings[column];
  if (heading.empty()) return Expanded(session_, session_.texts.curveImport.column, {number});
  return number + ": " + heading;
}

void ReadingFields::OfferColumns(const char* name, const interchange::ImportedText& text) {
  QComboBox* const field = Box(name);
  const QString chosen = field->currentData().toString();
  while (field->count() > 1) field->removeItem(1);
  for (std::size_t at = 0; at < text.headings.size(); ++at) {
    field->addItem(ShownName(ColumnText(text, at)), QString::number(at + 1));
  }
  field->setCurrentIndex(std::max(field->findData(chosen), 0));
}

void ReadingFields::Show(const CurveReading& reading) {
  const interchange::ImportedText& text = reading.text;
  for (const char* const name : kTextFields) {
    QComboBox* const field = Box(name);
    field->setEnabled(!text.isJson);
    const QSignalBlocker quiet(field);
    if (text.isJson || reading.fault) ShowGuessText(name, {});
  }
  // Of what was not read the columns stay that were offered before.
  if (text.isJson || reading.fault) return;
  for (const char* const name : {"load", "time"}) {
    const QSignalBlocker quiet(Box(name));
    OfferColumns(name, text);
  }
  const bool areAll = reading.found.size() > 1 && text.headings.size() > 2;
  ShowGuess("encoding", IdOf(kEncodings, text.encoding));
  ShowGuess("separator", std::string(1, text.separator));
  ShowGuess("decimal", std::string(1, text.decimalSign));
  ShowGuess("header", text.hasHeader ? kYes : kNo);
  ShowGuessText("load", ColumnText(text, text.load));
  ShowGuessText("time", areAll ? session_.texts.curveImport.allTimes : ColumnText(text, text.time));
  const interchange::ImportedCurve& first = reading.found.front().curve;
  ShowGuess("loadunit", IdOf(kLoadUnits, first.loadUnit));
  ShowGuess("timeunit", IdOf(kTimeUnits, first.timeUnit));
}

}  // namespace zentab::app
