#pragma once

#include <QObject>

#include "app/widgets/interchange/interchange_parts.h"
#include "editor/edit_step.h"

class QMenu;

namespace zentab::app {

class ComparisonController;
class CurveImportController;

/// The commands on files of other programs and on other libraries.
class InterchangeCommands : public QObject {
  Q_OBJECT

 public:
  explicit InterchangeCommands(const InterchangeParts& parts);

  /// Adds the commands.
  void AddTo(QMenu& menu);

 public Q_SLOTS:
  /// A file of another program.
  void ImportFrom(const QString& file);

 Q_SIGNALS:
  /// What was said of the command before is over, and an open cell editor closes.
  void GridNeeded();
  /// Table or library are about to change, in one step of the user's.
  void AboutToChange(zentab::editor::EditStep step);
  /// What was done, or why nothing was, in one line.
  void Told(const QString& text);

 private:
  CurveImportController* curves_;
  ComparisonController* comparison_;
};

}  // namespace zentab::app
