#pragma once

#include <QFrame>
#include <filesystem>

#include "app/session.h"
#include "app/widgets/user_dialogs.h"

namespace zentab::app {

class ChartPanel;
class LibraryController;
class LibraryFilesController;

/// What a first start shows in the place of the chart, where no installation of the suite is
/// known and as long as no table file is: three ways to begin. It is gone for good once a table
/// file is open or a curve is shown.
class Welcome : public QFrame {
  Q_OBJECT

 public:
  struct Parts {
    const Session& session;
    UserDialogs& dialogs;
    LibraryController& library;
    LibraryFilesController& files;
    ChartPanel& chart;
    QWidget& form;
    std::filesystem::path executable;  // started once more for the demo
  };

  explicit Welcome(const Parts& parts);

  /// The library or the chart may show something else.
  void Refresh();

 private:
  void AddButtons(const Parts& parts);
  void OpenDemo();

  const Session& session_;
  UserDialogs& dialogs_;
  ChartPanel& chart_;
  QWidget& form_;
  std::filesystem::path executable_;
  bool isOver_ = false;
};

}  // namespace zentab::app
