#include "app/widgets/testset/import_progress.h"

#include <QCoreApplication>

namespace zentab::app {
namespace {

constexpr int kShowAfter = 333;  // milliseconds
constexpr int kDrawEvery = 40;
constexpr int kSteps = 1000;

}  // namespace

ImportProgress::ImportProgress(QWidget* parent, const texts::ProgramTexts& texts)
    : parent_(parent), texts_(texts) {
  begun_.start();
}

bool ImportProgress::Report(double fraction) {
  if (!dialog_) {
    if (begun_.elapsed() < kShowAfter) return true;
    Show();
  } else if (shown_.elapsed() < kDrawEvery) {
    return true;
  }
  shown_.start();
  dialog_->setValue(static_cast<int>(fraction * kSteps));
  QCoreApplication::processEvents();
  return !dialog_->wasCanceled();
}

void ImportProgress::Show() {
  dialog_ =
      std::make_unique<QProgressDialog>(QString::fromStdString(texts_.importProgress),
                                        QString::fromStdString(texts_.cancel), 0, kSteps, parent_);
  dialog_->setObjectName(QStringLiteral("ImportProgress"));
  dialog_->setWindowTitle(parent_->window()->windowTitle());
  dialog_->setWindowModality(Qt::WindowModal);
  // It is the import that ends it.
  dialog_->setAutoClose(false);
  dialog_->setAutoReset(false);
  dialog_->setMinimumDuration(0);
  dialog_->show();
}

}  // namespace zentab::app
