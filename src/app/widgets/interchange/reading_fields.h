#pragma once

#include <QObject>

#include "app/curve_text.h"

class QComboBox;
class QHBoxLayout;
class QWidget;

namespace zentab::app {

class FormFields;

/// How a text of another program is read: a field for each guess, which tells what was guessed and
/// lets it be changed.
class ReadingFields : public QObject {
  Q_OBJECT

 public:
  /// Adds the fields, in two columns, to a layout; `parent` owns them.
  ReadingFields(const Session& session, QHBoxLayout& layout, QWidget* parent);

  /// What is not to be guessed.
  [[nodiscard]] interchange::ImportChoices Choices() const;
  [[nodiscard]] interchange::Surplus Surplus() const;

  /// Tells what was guessed, and offers the text's columns.
  void Show(const CurveReading& reading);

 Q_SIGNALS:
  void Changed();

 private:
  using Choice = std::pair<std::string, std::string>;

  void AddFileFields();
  void AddColumnFields();
  QComboBox* AddField(FormFields& fields, const char* name, const std::string& label,
                      const std::vector<Choice>& choices);
  [[nodiscard]] QComboBox* Box(const char* name) const;
  [[nodiscard]] std::string ValueOf(const char* name) const;
  /// Says in a field what was guessed, by its identifier; empty where nothing was.
  void ShowGuess(const char* name, const std::string& id);
  void ShowGuessText(const char* name, const std::string& text);
  void OfferColumns(const char* name, const interchange::ImportedText& text);
  [[nodiscard]] std::string ColumnText(const interchange::ImportedText& text,
                                       std::size_t column) const;

  const Session& session_;
  FormFields* file_;
  FormFields* columns_;
};

}  // namespace zentab::app
