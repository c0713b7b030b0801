#include "app/widgets/table/point_tools_menu.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <array>

#include "app/widgets/accessible_names.h"
#include "app/widgets/table/check_marks.h"
#include "app/widgets/table/point_tools_controller.h"

namespace zentab::app {
namespace {

using editor::CellCommand;
using editor::EditStep;

struct ClipboardRow {
  const char* name;
  const char* caption;
  CellCommand command;
  QKeySequence::StandardKey key;
};

constexpr std::array<ClipboardRow, 4> kClipboard = {{
    {"m_cut", "Cu&t", CellCommand::Cut, QKeySequence::Cut},
    {"m_copy", "&Copy", CellCommand::Copy, QKeySequence::Copy},
    {"m_paste", "&Paste", CellCommand::Paste, QKeySequence::Paste},
    {"m_clear", "Cl&ear", CellCommand::Clear, QKeySequence::Delete},
}};

struct ToolRow {
  const char* name;
  const char* caption;
  EditStep tool;
  QKeyCombination key = Qt::Key_unknown;
};

constexpr std::array<ToolRow, 7> kRowTools = {{
    {"m_ins", "&Insert row", EditStep::InsertRow, Qt::CTRL | Qt::Key_Plus},
    {"m_del", "&Delete rows", EditStep::DeleteRows, Qt::CTRL | Qt::Key_Minus},
    {"m_up", "&Move up", EditStep::MoveRowsUp, Qt::ALT | Qt::Key_Up},
    {"m_down", "Move d&own", EditStep::MoveRowsDown, Qt::ALT | Qt::Key_Down},
    {"m_fill", "&Fill between two points…", EditStep::FillBetween, Qt::CTRL | Qt::Key_B},
    {"m_sort", "&Sort by load", EditStep::SortByLoad},
    {"m_rev", "Re&verse the order", EditStep::Reverse},
}};

constexpr std::array<ToolRow, 5> kNumberTools = {{
    {"m_scl", "&Scale loads…", EditStep::ScaleLoads},
    {"m_sct", "S&cale times…", EditStep::ScaleTimes},
    {"m_shl", "S&hift loads…", EditStep::ShiftLoads},
    {"m_sht", "Sh&ift times…", EditStep::ShiftTimes},
    {"m_rnd", "&Round…", EditStep::RoundNumbers},
}};

// The field outside the grid that the user is writing into.
QLineEdit* OtherField(const QWidget& grid) {
  auto* const field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  return field != nullptr && !grid.isAncestorOf(field) ? field : nullptr;
}

}  // namespace

PointToolsMenu::PointToolsMenu(const Session& session, QMenuBar& bar, editor::CurveGridView& grid,
                               PointToolsController& tools, CheckMarks& checks)
    : QObject(&bar),
      session_(session),
      grid_(grid),
      tools_(tools),
      menu_(bar.addMenu(QStringLiteral("E&dit"))) {
  menu_->setObjectName(QStringLiteral("m_edit"));
  AddClipboard();
  AddTools(checks);
}

void PointToolsMenu::AddClipboard() {
  // What takes back and does again goes above.
  menu_->addSeparator();
  for (const ClipboardRow& row : kClipboard) {
    QAction* const action = menu_->addAction(QString::fromUtf8(row.caption));
    action->setObjectName(QLatin1String(row.name));
    // Shown only: the grid and every text field take these keys themselves.
    action->setShortcut(row.key);
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this,
            [this, command = row.command] { RunClipboard(command); });
  }
  menu_->addSeparator();
}

void PointToolsMenu::AddTools(CheckMarks& checks) {
  for (const ToolRow& row : kRowTools) {
    QAction* const action = AddTool(*menu_, row.name, QString::fromUtf8(row.caption), row.tool);
    if (row.key.key() != Qt::Key_unknown) action->setShortcut(row.key);
  }
  QMenu* const numbers = menu_->addMenu(QStringLiteral("Ca&lculate"));
  numbers->setObjectName(QStringLiteral("m_calc"));
  for (const ToolRow& row : kNumberTools) {
    AddTool(*numbers, row.name, QString::fromUtf8(row.caption), row.tool);
  }
  numbers->addSeparator();
  loads_ = AddTool(*numbers, "m_cvl", {}, EditStep::ConvertLoads);
  times_ = AddTool(*numbers, "m_cvt", {}, EditStep::ConvertTimes);
  connect(numbers, &QMenu::aboutToShow, this, &PointToolsMenu::NameConversions);
  menu_->addSeparator();
  QAction* const next = menu_->addAction(QStringLiteral("&Next marked cell"));
  next->setObjectName(QStringLiteral("m_next"));
  next->setShortcut(Qt::Key_F8);
  connect(next, &QAction::triggered, &checks, &CheckMarks::GoToNext);
  NameConversions();
}

QAction* PointToolsMenu::AddTool(QMenu& menu, const char* name, const QString& caption,
                                 EditStep tool) {
  QAction* const action = menu.addAction(caption);
  action->setObjectName(QLatin1String(name));
  connect(action, &QAction::triggered, this,
          [this, action, tool] { tools_.Run(tool, PlainTitle(action->text())); });
  return action;
}

void PointToolsMenu::NameConversions() {
  const texts::ToolTexts& texts = session_.texts.tools;
  const editor::ValueModes& modes = session_.modes;
  loads_->setText(
      QString::fromStdString(modes.absoluteValues ? texts.loadsToRelative : texts.loadsToAbsolute));
  times_->setText(QString::fromStdString(modes.milliseconds ? texts.timesToSeconds
                                                            : texts.timesToMilliseconds));
}

void PointToolsMenu::RunClipboard(CellCommand command) {
  QLineEdit* const field = OtherField(grid_);
  if (field == nullptr) {
    Q_EMIT grid_.CommandWanted(command);
    return;
  }
  switch (command) {
    case CellCommand::Cut:
      field->cut();
      break;
    case CellCommand::Copy:
      field->copy();
      break;
    case CellCommand::Paste:
      field->paste();
      break;
    case CellCommand::Clear:
      field->del();
      break;
  }
}

}  // namespace zentab::app
