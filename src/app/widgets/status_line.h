#pragma once

#include <QObject>
#include <string>
#include <system_error>

#include "app/session.h"
#include "app/widgets/files/responsive_files.h"

class QLabel;
class QStatusBar;
class QToolButton;

namespace zentab::app {

/// What could not be done and why, as one line.
[[nodiscard]] QString FailureText(const texts::ProgramTexts& texts, const std::string& what,
                                  std::error_code error);

/// The status bar: the active table file, the number of its entries, the modified mark, and for a
/// while what could not be done.
class StatusLine : public QObject {
  Q_OBJECT

 public:
  StatusLine(const Session& session, QStatusBar* bar);

  void Refresh();
  /// Only the modified mark, as after every key in a cell.
  void RefreshModified();
  void ShowFailure(const QString& text);
  /// What was said of a failure is over.
  void Clear();
  /// The file keeps a command waiting, or someone else who is writing it; the user may give up.
  void ShowWaiting(zentab::app::ResponsiveFiles::WaitsFor reason);
  void HideWaiting();

 Q_SIGNALS:
  /// The table file or the modified mark may be others.
  void Refreshed();
  void GivenUp();

 private:
  const Session& session_;
  QStatusBar* bar_;
  QLabel* file_;
  QLabel* count_;
  QLabel* modified_;
  QLabel* waiting_;
  QToolButton* giveUp_;
};

}  // namespace zentab::app
