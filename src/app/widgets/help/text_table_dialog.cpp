#include "app/widgets/help/text_table_dialog.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace zentab::app {
namespace {

constexpr QSize kTableSize(620, 520);

}  // namespace

TextTableDialog::TextTableDialog(const TextTable& table, const Session& session, QWidget* parent)
    : QDialog(parent), rows_(new QTableWidget(this)) {
  setObjectName(QStringLiteral("FormHelp"));
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowModality(Qt::WindowModal);
  setFont(parent->font());
  setWindowTitle(table.title);
  Fill(table);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(rows_, 1);
  if (!table.note.isEmpty()) {
    auto* const note = new QLabel(table.note, this);
    note->setObjectName(QStringLiteral("LabelNote"));
    note->setWordWrap(true);
    layout->addWidget(note);
  }
  layout->addWidget(MakeButtons(session.texts.help));
  resize(kTableSize);
}

void TextTableDialog::Fill(const TextTable& table) {
  rows_->setObjectName(QStringLiteral("TableHelp"));
  rows_->setAccessibleName(table.title);
  rows_->setColumnCount(static_cast<int>(table.headings.size()));
  rows_->setHorizontalHeaderLabels(table.headings);
  rows_->setRowCount(static_cast<int>(table.rows.size()));
  rows_->verticalHeader()->hide();
  rows_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  rows_->setSelectionBehavior(QAbstractItemView::SelectRows);
  rows_->setTabKeyNavigation(false);
  rows_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  rows_->horizontalHeader()->setStretchLastSection(true);
  lines_ = QStringList(table.headings.join('\t'));
  for (int row = 0; row < rows_->rowCount(); ++row) {
    const QStringList& texts = table.rows[static_cast<std::size_t>(row)];
    for (int column = 0; column < texts.size(); ++column) {
      rows_->setItem(row, column, new QTableWidgetItem(texts[column]));
    }
    lines_ += texts.join('\t');
  }
  rows_->resizeColumnsToContents();
  // The newest line of a log is the last one.
  if (table.headings.size() == 1) rows_->scrollToBottom();
}

QWidget* TextTableDialog::MakeButtons(const texts::HelpTexts& texts) {
  auto* const strip = new QWidget(this);
  auto* const layout = new QHBoxLayout(strip);
  layout->setContentsMargins(0, 0, 0, 0);
  const auto add = [&](const char* name, const std::string& caption) {
    auto* const button = new QPushButton(QString::fromStdString(caption), strip);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    layout->addWidget(button);
    return button;
  };
  connect(add("CommandCopyAll", texts.copyAll), &QPushButton::clicked, this,
          &TextTableDialog::Copy);
  connect(add("CommandGuide", texts.guide), &QPushButton::clicked, this,
          &TextTableDialog::GuideWanted);
  layout->addStretch(1);
  QPushButton* const close = add("CommandClose", texts.close);
  close->setDefault(true);
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  return strip;
}

void TextTableDialog::Copy() const {
  QGuiApplication::clipboard()->setText(lines_.join('\n') + '\n');
}

}  // namespace zentab::app
