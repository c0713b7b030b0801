#pragma once

#include <QObject>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/form_values.h"

class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QWidget;

namespace zentab::app {

/// Named fields of a dialog in rows with their labels, and what they hold.
class FormFields : public QObject {
  Q_OBJECT

 public:
  using Choices = std::vector<std::pair<std::string, std::string>>;  // identifier and text

  /// Adds rows to a form; `parent` owns the fields.
  FormFields(QFormLayout& form, QWidget* parent);

  QLineEdit* AddText(std::string_view name, const std::string& label);
  /// A field that was made already.
  void AddText(std::string_view name, const std::string& label, QLineEdit* field);
  QComboBox* AddChoice(std::string_view name, const std::string& label, const Choices& choices);
  /// A heading above the rows that follow.
  void AddHeading(const std::string& text);

  void ShowRow(std::string_view name, bool shown);
  [[nodiscard]] QWidget* Field(std::string_view name) const;

  [[nodiscard]] FormValues Values() const;
  /// Fills the fields that have a value; Changed is emitted once, whatever that changes.
  void Set(const FormValues& values);

 Q_SIGNALS:
  void Changed();

 private:
  void Add(std::string_view name, const std::string& label, QWidget* field);

  QFormLayout& form_;
  QWidget* parent_;
  std::map<std::string, QLineEdit*, std::less<>> texts_;
  std::map<std::string, QComboBox*, std::less<>> choices_;
};

}  // namespace zentab::app
