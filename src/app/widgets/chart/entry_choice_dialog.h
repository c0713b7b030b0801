#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "app/session.h"

class QListView;

namespace zentab::app {

class EntryListModel;

/// Lets the user choose some of the entries of a file.
class EntryChoiceDialog : public QDialog {
  Q_OBJECT

 public:
  /// `names` outlives the dialog.
  EntryChoiceDialog(const QString& title, const std::vector<std::string>& names,
                    const Session& session, QWidget* parent);

  /// The places of the chosen names, in their order.
  [[nodiscard]] std::vector<std::size_t> Chosen() const;

 private:
  EntryListModel* model_;
  QListView* list_;
};

}  // namespace zentab::app
