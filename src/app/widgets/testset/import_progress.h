#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>
#include <memory>

#include "texts/catalogue_texts.h"

namespace zentab::app {

/// The progress bar of a long import, with a button to stop it. It comes up after a third of a
/// second and keeps the rest of the window alive but out of reach.
class ImportProgress {
 public:
  ImportProgress(QWidget* parent, const texts::ProgramTexts& texts);

  /// How far the import is, 0 to 1; false once the user wants to stop it.
  [[nodiscard]] bool Report(double fraction);

 private:
  void Show();

  QWidget* parent_;
  const texts::ProgramTexts& texts_;
  QElapsedTimer begun_;
  QElapsedTimer shown_;  // since the bar was last drawn
  std::unique_ptr<QProgressDialog> dialog_;
};

}  // namespace zentab::app
