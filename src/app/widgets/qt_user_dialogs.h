#pragma once

#include <QFileDialog>
#include <QMessageBox>

#include "app/session.h"
#include "app/widgets/user_dialogs.h"

namespace zentab::app {

/// The dialogs as windows in front of the main window.
class QtUserDialogs : public UserDialogs {
 public:
  /// `session` gives the texts and the installation folder, in which files are looked for.
  explicit QtUserDialogs(const Session& session) : session_(session) {}

  void SetParent(QWidget* parent) { parent_ = parent; }

  bool Confirm(const texts::MessageText& message) override;
  void Inform(const texts::MessageText& message) override;
  void ReportError(const texts::MessageText& message) override;
  std::optional<double> AskNumber(const NumberQuestion& question) override;
  std::optional<std::vector<std::size_t>> Choose(const ChoiceQuestion& question) override;
  std::optional<AxisLimits> AskLimits(const LimitsQuestion& question) override;
  std::optional<PictureSize> AskPictureSize(const PictureSizeQuestion& question) override;
  QString ChooseTableFile() override;
  QString ChooseGraphFile() override;
  std::vector<std::size_t> ChooseEntries(const QString& title,
                                         const std::vector<std::string>& names) override;
  QString ChooseFileToRead(const QString& filters) override;
  QString ChooseTargetFile() override;
  QString ChooseNewTableFile() override;
  void OpenFolder(const QString& folder) override;
  bool OpenPage(const QString& page) override;
  bool StartProgram(const QString& program, const QStringList& arguments) override;
  QString ChooseFileToWrite(const WriteQuestion& question) override;
  bool ChoosePrinter(QPrinter& printer) override;
  void ShowPreview(QPrinter& printer, const PagePainter& paint) override;

 private:
  [[nodiscard]] bool Show(QMessageBox::Icon icon, QMessageBox::StandardButtons buttons,
                          const texts::MessageText& message);
  [[nodiscard]] QWidget* WindowInFront() const;
  [[nodiscard]] QString ChooseFile(const QString& folder, const QString& filter,
                                   QFileDialog::AcceptMode mode, bool replaces = false) const;

  const Session& session_;
  QWidget* parent_ = nullptr;
  QString written_;  // the folder of the last file that was written
  QString read_;     // and of the last one of another program that was read
};

}  // namespace zentab::app
