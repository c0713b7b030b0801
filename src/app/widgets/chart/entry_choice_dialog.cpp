#include "app/widgets/chart/entry_choice_dialog.h"

#include <QDialogButtonBox>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

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
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  QPushButton* const ok = buttons->button(QDialogButtonBox::Ok);
  ok->setText(QString::fromStdString(session.texts.program.ok));
  ok->setEnabled(false);
  buttons->button(QDialogButtonBox::Cancel)
      ->setText(QString::fromStdString(session.texts.program.cancel));
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
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
