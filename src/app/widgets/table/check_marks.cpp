#include "app/widgets/table/check_marks.h"

#include <QAbstractItemModel>
#include <QStatusBar>
#include <QToolButton>
#include <algorithm>
#include <set>

#include "editor/widgets/curve_grid_view.h"
#include "texts/template_text.h"

namespace zentab::app {
namespace {

constexpr int kShown = 15000;  // milliseconds

using Place = std::pair<int, int>;  // row and column, in the order in which they are visited

Place PlaceOf(const editor::CellFault& fault) { return {fault.row, fault.column}; }

}  // namespace

CheckMarks::CheckMarks(const Session& session, editor::CurveGridView& grid, QStatusBar& bar)
    : QObject(&bar), session_(session), grid_(grid), bar_(bar), button_(new QToolButton(&bar)) {
  button_->setObjectName(QStringLiteral("StatusCheck"));
  button_->setAutoRaise(true);
  button_->setToolTip(QStringLiteral("Go to the next cell with a mark (F8)"));
  button_->hide();
  bar.addPermanentWidget(button_);
  connect(button_, &QToolButton::clicked, this, &CheckMarks::GoToNext);
  grid.SetWords(session.texts.points);
  connect(grid.model(), &QAbstractItemModel::dataChanged, this,
          [this](const QModelIndex&, const QModelIndex&, const QList<int>& roles) {
            if (roles.contains(Qt::DisplayRole)) Refresh();
          });
}

void CheckMarks::Refresh() {
  faults_ = editor::FaultsOf(session_.table.grid, session_.localeDecimalSeparator);
  grid_.ShowFaults(faults_);
  std::set<Place> cells;
  for (const editor::CellFault& fault : faults_) cells.insert(PlaceOf(fault));
  button_->setVisible(!cells.empty());
  if (cells.empty()) return;
  const texts::PointTexts& words = session_.texts.points;
  const std::string count = std::to_string(cells.size());
  const std::string& text = texts::ForCount(cells.size(), words.oneFault, words.faults);
  const QString said = QString::fromStdString(texts::ExpandTemplate(text, {}, {count}));
  button_->setText(QStringLiteral("▲ ") + said);
  button_->setAccessibleName(said);
}

void CheckMarks::GoToNext() {
  if (faults_.empty()) return;
  grid_.CloseEditor();
  const Place current{session_.table.grid.Row(), session_.table.grid.Col()};
  const auto nextAfter = [&](const Place& place) {
    auto next = faults_.end();
    for (auto fault = faults_.begin(); fault != faults_.end(); ++fault) {
      if (PlaceOf(*fault) <= place) continue;
      if (next == faults_.end() || PlaceOf(*fault) < PlaceOf(*next)) next = fault;
    }
    return next;
  };
  auto next = nextAfter(current);
  if (next == faults_.end()) next = nextAfter({0, 0});
  const editor::CellFault fault = *next;
  const QModelIndex index =
      grid_.model()->index(fault.row - editor::kFirstRow, fault.column - editor::kLoadColumn);
  grid_.setCurrentIndex(index);
  grid_.scrollTo(index);
  grid_.setFocus();
  const std::string what = index.data(Qt::ToolTipRole).toString().toStdString();
  const std::string row = std::to_string(fault.row);
  QString said = QString::fromStdString(
      texts::ExpandTemplate(session_.texts.points.faultInRow, {}, {row, what}));
  bar_.showMessage(said.replace('\n', QStringLiteral("; ")), kShown);
}

}  // namespace zentab::app
