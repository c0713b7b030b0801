#pragma once

#include <QWidget>
#include <array>

#include "app/session.h"
#include "app/site_equations.h"
#include "app/time_test_commands.h"
#include "timetest/import_pipeline.h"

class QGridLayout;
class QLabel;
class QLineEdit;
class QSpinBox;

namespace zentab::app {

/// The tips of the fields that the main window has as well.
struct StageTips {
  QString difference;
  QString filter;
  QString mean;
};

/// The stages of an import, one a row: the parameter of each, and what the stage does to the
/// points.
class StageFields : public QWidget {
  Q_OBJECT

 public:
  StageFields(const Session& session, const timetest::ImportOptions& first, const StageTips& tips,
              QWidget* parent);

  /// What the fields say; the timeout is empty where its field holds no number from 0 up.
  [[nodiscard]] timetest::ImportOptions Options() const;
  /// The same as the fields of the main window have it.
  [[nodiscard]] ImportFields Fields() const;
  /// The number of a stage's equation, or of its built-in rule.
  [[nodiscard]] int NumberOf(texts::EquationStage stage) const;
  void SetNumber(EquationId equation);

  void ShowCount(std::size_t points);
  void ShowEffects(const timetest::ImportEffects& effects);

 Q_SIGNALS:
  void Changed();
  /// The user has chosen another number for a stage.
  void NumberChosen(zentab::texts::EquationStage stage, int number);

 private:
  enum Row { Measured, Timeouts, Difference, Filter, Mean, Rows };

  void AddRow(Row row, const std::string& caption, QWidget* field);
  QSpinBox* AddNumber(Row row, const std::string& caption, int number, const QString& tip,
                      texts::EquationStage stage);
  void BuildLegend();
  void Say(Row row, const std::vector<std::string>& parts);
  [[nodiscard]] std::string Counted(const std::string& text, std::size_t count) const;

  const Session& session_;
  timetest::ImportOptions first_;
  QGridLayout* grid_;
  QLineEdit* timeout_;
  std::array<QSpinBox*, texts::kEquationStages> numbers_{};
  std::array<QLabel*, Rows> effects_{};
};

}  // namespace zentab::app
