#pragma once

#include <QObject>

#include "app/entry_commands.h"
#include "app/form_values.h"
#include "app/widgets/library/entry_parts.h"
#include "editor/edit_step.h"
#include "interchange/library_export.h"

class QMenu;

namespace zentab::app {

/// Entries that leave the library: as CSV or JSON, and as lines of another table file.
class LibraryExportController : public QObject {
  Q_OBJECT

 public:
  LibraryExportController(const EntryParts& parts, QObject* parent);

  /// Adds the commands.
  void AddTo(QMenu& menu);

 public Q_SLOTS:
  /// Writes the selected entries or all of them to a file, in a format that the user chooses.
  void Export();
  /// Adds the selected entries to another table file that the user chooses.
  void CopyToFile();

 Q_SIGNALS:
  void CommandBegun();
  void AboutToChange(zentab::editor::EditStep step);
  void Failed(const QString& text);
  void Told(const QString& text);

 private:
  struct Plan {
    bool takesAll;
    interchange::ExportFormat format;
    interchange::CsvNotation notation;
    bool isForSpreadsheet;  // which tells UTF-8 by its mark
  };

  [[nodiscard]] std::optional<Plan> AskPlan(std::size_t selected);
  [[nodiscard]] std::error_code Write(const QString& file, const Plan& plan,
                                      const EntryMarks& marks, std::size_t& count);

  EntryParts parts_;
};

}  // namespace zentab::app
