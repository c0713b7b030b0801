#pragma once

#include <QDialog>
#include <QStringList>
#include <vector>

#include "app/session.h"

class QTableWidget;

namespace zentab::app {

/// What a window of the help menu shows.
struct TextTable {
  QString title;
  QString note;  // below the table; none where it is empty
  QStringList headings;
  std::vector<QStringList> rows;  // a text a column
};

/// A table to be read, searched by typing and copied.
class TextTableDialog : public QDialog {
  Q_OBJECT

 public:
  TextTableDialog(const TextTable& table, const Session& session, QWidget* parent);

 Q_SIGNALS:
  void GuideWanted();

 private:
  void Fill(const TextTable& table);
  [[nodiscard]] QWidget* MakeButtons(const texts::HelpTexts& texts);
  void Copy() const;

  QStringList lines_;  // with tabs, as they are copied
  QTableWidget* rows_;
};

}  // namespace zentab::app
