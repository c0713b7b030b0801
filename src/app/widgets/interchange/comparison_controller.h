#pragma once

#include <QObject>
#include <memory>

#include "app/widgets/interchange/interchange_parts.h"
#include "editor/edit_step.h"
#include "interchange/library_comparison.h"

namespace zentab::editor {
class OverlayCurves;
}

namespace zentab::app {

class ComparisonDialog;

/// Compares the open library with another one, and takes over what the user chooses.
class ComparisonController : public QObject {
  Q_OBJECT

 public:
  explicit ComparisonController(const InterchangeParts& parts);

 public Q_SLOTS:
  /// With a table file that the user chooses.
  void CompareWith();

 Q_SIGNALS:
  /// What was said of the command before is over.
  void CommandBegun();
  /// The library is about to change, in one step of the user's.
  void AboutToChange(zentab::editor::EditStep step);
  /// What was done, or why nothing was, in one line.
  void Told(const QString& text);

 private:
  /// The two files, as they were compared.
  struct Comparison {
    std::error_code error;
    interchange::ComparedFile library;
    interchange::ComparedFile other;
    std::vector<interchange::EntryDifference> differences;
  };
  /// From a file to the end of its dialog.
  struct Job {
    std::filesystem::path other;
    std::shared_ptr<const Comparison> compared;
    bool isReading = false;   // the lines of an entry
    bool isOutdated = false;  // another one has become current meanwhile
    bool isTaking = false;    // what was chosen
  };
  using Shared = std::shared_ptr<Job>;

  [[nodiscard]] bool IsLibrary(const std::filesystem::path& file) const;
  void Compare(ComparisonDialog& dialog, const Shared& job, const QString& remark);
  void ReadCurrent(ComparisonDialog& dialog, const Shared& job);
  void TakeOver(ComparisonDialog& dialog, const Shared& job);
  void Change(ComparisonDialog& dialog, const Shared& job, const tables::LineChange& change,
              const std::vector<interchange::EntryDifference>& chosen);
  void ShowFailure(ComparisonDialog& dialog, const Shared& job, std::error_code error);

  InterchangeParts parts_;
  editor::OverlayCurves* own_;
  editor::PreviewCurve* other_;
};

}  // namespace zentab::app
