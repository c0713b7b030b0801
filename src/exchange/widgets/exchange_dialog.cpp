#include "exchange/widgets/exchange_dialog.h"

#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

namespace zentab::exchange {
namespace {

constexpr int kMargin = 9;
constexpr int kSpareWidth = 7;  // right of the list: 100 twips
constexpr QSize kSmallest(320, 240);

QPushButton* Button(const char* name, const QString& caption, QWidget* parent) {
  auto* const button = new QPushButton(caption, parent);
  button->setObjectName(QLatin1String(name));
  button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  return button;
}

}  // namespace

ExchangeDialog::ExchangeDialog(QAbstractItemModel& entries, QWidget* parent)
    : QDialog(parent),
      list1(new QListView(this)),
      command1(Button("Command1", QStringLiteral("Execute"), this)),
      outcome(new QLabel(this)),
      fileButton(Button("CommandFile", QStringLiteral("Choose file…"), this)),
      closeButton(Button("CommandClose", QStringLiteral("Close"), this)) {
  setObjectName(QStringLiteral("Form2"));
  setWindowTitle(QStringLiteral("Import/Export"));
  setMinimumSize(kSmallest);
  list1->setObjectName(QStringLiteral("List1"));
  list1->setModel(&entries);
  list1->setSelectionMode(QAbstractItemView::ExtendedSelection);
  list1->setUniformItemSizes(true);
  list1->setTextElideMode(Qt::ElideRight);
  list1->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  outcome->setObjectName(QStringLiteral("LabelOutcome"));
  outcome->setWordWrap(true);
  command1->setEnabled(false);
  command1->setDefault(true);
  fileButton->setAutoDefault(false);
  closeButton->setAutoDefault(false);
  connect(closeButton, &QPushButton::clicked, this, &QDialog::reject);
  connect(list1->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &ExchangeDialog::SelectionChanged);

  auto* const bottom = new QHBoxLayout;
  bottom->addWidget(fileButton);
  bottom->addStretch(1);
  bottom->addWidget(command1);
  bottom->addWidget(closeButton);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(kMargin, kMargin, kMargin + kSpareWidth, kMargin);
  layout->addWidget(list1, 1);
  layout->addWidget(outcome);
  layout->addLayout(bottom);
}

std::vector<bool> ExchangeDialog::SelectedRows() const {
  std::vector<bool> rows(static_cast<std::size_t>(list1->model()->rowCount()));
  for (const QItemSelectionRange& range : list1->selectionModel()->selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row) {
      rows[static_cast<std::size_t>(row)] = true;
    }
  }
  return rows;
}

int ExchangeDialog::SelectedCount() const {
  int count = 0;
  for (const QItemSelectionRange& range : list1->selectionModel()->selection()) {
    count += range.height();
  }
  return count;
}

void ExchangeDialog::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (opened_) return;
  opened_ = true;
  // The question for the file waits until this window stands behind it.
  QMetaObject::invokeMethod(this, "Opened", Qt::QueuedConnection);
}

void ExchangeDialog::done(int result) {
  if (isAtWork) return;
  Q_EMIT Closing();
  QDialog::done(result);
}

}  // namespace zentab::exchange
