#pragma once

#include <QWidget>
#include <map>

#include "app/session.h"
#include "app/site_equations.h"

class QLabel;
class QListWidget;
class QPushButton;
class QTabBar;

namespace zentab::app {

class EquationField;

/// The catalogue's equations for the import, and drafts of them that are not written yet.
class EquationEditor : public QWidget {
  Q_OBJECT

 public:
  using DraftTexts = std::map<EquationId, std::string>;

  EquationEditor(const Session& session, QWidget* parent);

  /// Goes on with drafts; those that the catalogue has meanwhile are none.
  void TakeDrafts(const DraftTexts& drafts);
  [[nodiscard]] const DraftTexts& Drafts() const { return drafts_; }

  /// Shows an equation.
  void Choose(EquationId equation);
  /// All equations: the drafts where there are any that are equations, else the catalogue's.
  [[nodiscard]] texts::EquationTexts Equations() const;
  /// Whether the catalogue does not have it as it is shown here.
  [[nodiscard]] bool IsDraft(EquationId equation) const;
  /// Its stage and number, as they are called here.
  [[nodiscard]] std::string NameOf(EquationId equation) const;

  /// The catalogue has the equation: its draft is one no longer.
  void TakeWritten(EquationId equation, const std::string& told);
  /// It could not be written.
  void TellFailure(const QString& told);

 Q_SIGNALS:
  void Changed();
  /// The import is to use the equation.
  void TryWanted(zentab::app::EquationId equation);
  void WriteWanted(zentab::app::EquationId equation, const std::string& text);

 private:
  void BuildList();
  void BuildField();
  void ShowStage();
  void ShowRow(EquationId equation);
  void ShowEquation();
  void TakeText();
  void Refresh();
  void Say(const QString& text, bool isFailure);
  [[nodiscard]] EquationId Shown() const;
  [[nodiscard]] const std::string& TextOf(EquationId equation) const;

  const Session& session_;
  DraftTexts drafts_;
  QTabBar* stages_;
  QListWidget* list_;
  QLabel* caption_;
  EquationField* field_;
  QLabel* remark_;
  QPushButton* try_;
  QPushButton* write_;
  QPushButton* revert_;
};

}  // namespace zentab::app
