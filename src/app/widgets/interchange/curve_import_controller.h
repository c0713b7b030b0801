#pragma once

#include <QObject>
#include <memory>

#include "app/curve_text.h"
#include "app/widgets/interchange/interchange_parts.h"
#include "editor/edit_step.h"

namespace zentab::app {

class CurveImportDialog;

/// Takes curves of other programs into the grid or the library: from a file or from the clipboard,
/// after the user has seen what they are read as.
class CurveImportController : public QObject {
  Q_OBJECT

 public:
  explicit CurveImportController(const InterchangeParts& parts);

 public Q_SLOTS:
  /// From a file that the user chooses.
  void Import();
  void ImportFrom(const QString& file);
  /// From the clipboard.
  void Paste();

 Q_SIGNALS:
  /// What was said of the command before is over.
  void CommandBegun();
  /// Table or library are about to change, in one step of the user's.
  void AboutToChange(zentab::editor::EditStep step);
  /// The grid holds another table, and the session its settings.
  void TableTaken();
  /// The active table file has got entries.
  void EntriesAdded();
  /// What was done, or why nothing was, in one line.
  void Told(const QString& text);

 private:
  /// One text from its file to the end of its dialog.
  struct Job {
    std::filesystem::path file;                 // empty: from the clipboard
    std::shared_ptr<const CurveSource> source;  // once it was read
    bool isReading = false;
    bool isOutdated = false;  // the choices have changed while it was being read
  };
  struct Result;

  void Open(const QString& name, Job begun);
  void Read(CurveImportDialog& dialog, const std::shared_ptr<Job>& job);
  void Show(CurveImportDialog& dialog, const std::shared_ptr<Job>& job, const Result& result);
  void TakeIntoGrid(CurveImportDialog& dialog);
  void AddToLibrary(CurveImportDialog& dialog, const Job& job);

  InterchangeParts parts_;
  editor::PreviewCurve* preview_;
};

}  // namespace zentab::app
