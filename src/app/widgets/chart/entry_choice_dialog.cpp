#include "app/widgets/chart/entry_choice_dialog.h"

#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "app/widgets/dialog_buttons.h"
#include "app/widgets/library/entry_list_model.h"

namespace zentab::app {

EntryChoiceDialog::EntryChoiceDialog(const QString& title, const std::vector<std::string>& names,
                                     const Session& session, QWidget* parent)
    : QDialog(parent), model_(new EntryListModel(names, this)), list_(new QListView(this)) {
  setObjectName(QStringLiteral("FormEntries"));
  setWindowTitle(title);
  list_->setObjectName(QStringLiteral("ListEntries"));
  list_->setAccessibleName(title);
  list_->setAccessibleDescription(title);
  list_->setUniformItemSizes(true);
  list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  model_->Reload();
  list_->setModel(model_);
  QDialogButtonBox* const buttons = MakeDialogButtons(session, *this);
  QPushButton* const ok = buttons->button(QDialogButtonBox::Ok);
  ok->setEnabled(false);
  connect(list_, &QListView::doubleClicked, this, &QDialog::accept);
  connect(list_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this, ok] { ok->setEnabled(list_->selectionModel()->hasSelection()); });
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(list_);
  layout->addWidget(buttons);
}

std::vector<std::size_t> EntryChoiceDialog::Chosen() const {
  std::vector<std::size_t> chosen;
  for (const QModelIndex& index : list_->selectionModel()->selectedRows()) {
    chosen.push_back(model_->EntryOf(index.row()));
  }
  std::sort(chosen.begin(), chosen.end());
  return chosen;
}

}  // namespace zentab::app
