#pragma once

#include <QObject>
#include <QPointer>
#include <QPushButton>
#include <filesystem>
#include <string>
#include <vector>

#include "app/session.h"
#include "app/site_equations.h"
#include "app/widgets/files/kept_forms.h"

namespace zentab::editor {
class PointCloud;
class PreviewCurve;
}  // namespace zentab::editor

namespace zentab::app {

class ChartPanel;
class ResponsiveFiles;
class TimeTestController;
class WorkbenchDialog;

/// What the import with preview works with.
struct WorkbenchParts {
  Session& session;
  ResponsiveFiles& files;
  KeptForms forms;
  const std::vector<std::filesystem::path>& catalogues;  // in the order of their application
  TimeTestController& timeTest;
  ChartPanel& panel;
};

/// The import of a time test with preview: opens the workbench, writes its equations, and imports
/// by the command's own way. It can be given when the command can.
class WorkbenchController : public QObject {
  Q_OBJECT

 public:
  explicit WorkbenchController(WorkbenchParts parts);

  void Open();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Read();
  void Write(EquationId equation, const std::string& text);
  void Import();
  void RememberResult();
  void KeepDrafts();

  WorkbenchParts parts_;
  editor::PreviewCurve* preview_;
  editor::PointCloud* cloud_;
  QPointer<QPushButton> commandPreview_;
  QPointer<WorkbenchDialog> dialog_;
  FormValues drafts_;  // as they were when it opened
};

}  // namespace zentab::app
