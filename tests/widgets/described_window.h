#pragma once

#include <qcustomplot.h>
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QShortcut>
#include <QSpinBox>
#include <QTableView>
#include <cstdio>
#include <map>
#include <tuple>

namespace zentab::app {

/// The curves that a chart draws: their points, from the first to the last one, and their pens.
inline QString CurvesOf(QCustomPlot& plot) {
  QStringList curves;
  for (int at = 0; at < plot.plottableCount(); ++at) {
    QCPAbstractPlottable& curve = *plot.plottable(at);
    const auto& data = *curve.interface1D();
    const int count = data.dataCount();
    if (!curve.realVisibility() || count == 0) continue;
    curves += QStringLiteral("%1 points %2;%3 to %4;%5, pen %6")
                  .arg(count)
                  .arg(data.dataMainKey(0), 0, 'g', 3)
                  .arg(data.dataMainValue(0), 0, 'g', 3)
                  .arg(data.dataMainKey(count - 1), 0, 'g', 3)
                  .arg(data.dataMainValue(count - 1), 0, 'g', 3)
                  .arg(static_cast<int>(curve.pen().style()));
  }
  return curves.join('|');
}

/// What a control holds for the user: the choice of a box, the range of a number, whether a button
/// is checked or the default one, which field a text belongs to and how it is laid out where that
/// is not as usual, the first rows of a list or table with their headings, a chart's curves.
inline QString HeldBy(QWidget& control) {
  if (auto* const plot = qobject_cast<QCustomPlot*>(&control)) return CurvesOf(*plot);
  if (const auto* const box = qobject_cast<const QComboBox*>(&control)) {
    return QStringLiteral("%1 of %2").arg(box->currentText()).arg(box->count());
  }
  if (const auto* const number = qobject_cast<const QSpinBox*>(&control)) {
    return QStringLiteral("%1..%2").arg(number->minimum()).arg(number->maximum());
  }
  if (const auto* const label = qobject_cast<const QLabel*>(&control)) {
    const bool isUsual = label->alignment() == (Qt::AlignLeft | Qt::AlignVCenter);
    const QString buddy = label->buddy() == nullptr ? QString() : label->buddy()->objectName();
    return QLatin1String(label->wordWrap() ? "(wraps)" : "") +
           (buddy.isEmpty() ? buddy : "of " + buddy) +
           (isUsual ? QString() : '@' + QString::number(label->alignment().toInt(), 16));
  }
  const auto* const push = qobject_cast<const QPushButton*>(&control);
  if (push != nullptr && push->isDefault()) return QStringLiteral("(default)");
  const auto* const button = qobject_cast<const QAbstractButton*>(&control);
  if (button != nullptr && button->isCheckable()) {
    return QLatin1String(button->isChecked() ? "[x]" : "[ ]");
  }
  const auto* const view = qobject_cast<const QAbstractItemView*>(&control);
  if (view == nullptr || view->model() == nullptr) return {};
  const QAbstractItemModel& model = *view->model();
  constexpr int kRows = 5;
  QStringList rows;
  for (int row = -1; row < std::min(model.rowCount(), kRows); ++row) {
    QStringList cells;
    for (int column = 0; column < model.columnCount(); ++column) {
      const QVariant mark = model.index(row, column).data(Qt::CheckStateRole);
      if (mark.isValid()) cells += QLatin1String(mark.toInt() == Qt::Checked ? "[x]" : "[ ]");
      cells += row < 0 ? model.headerData(column, Qt::Horizontal).toString()
                       : model.index(row, column).data().toString();
    }
    rows += cells.join(',');
  }
  const auto* const table = qobject_cast<const QTableView*>(&control);
  const QString numbers =
      table == nullptr
          ? QString()
          : '@' + QString::number(table->verticalHeader()->defaultAlignment().toInt(), 16);
  return QStringLiteral("%1 rows%2: %3")
      .arg(model.rowCount())
      .arg(numbers, rows.join('|'))
      .replace('\n', ' ');
}

inline QString WithoutFolder(QString text) {
  static const QRegularExpression folder(QStringLiteral("(?<= )(/|[A-Z]:)\\S*[/\\\\]"));
  return text.remove(folder);
}

/// What a screen reader says of a control of the window beyond its label or text, and its tip.
inline QString SaidOf(const QWidget& control, const QWidget& window) {
  const QString name = control.accessibleName();
  const QString more = control.accessibleDescription();
  QString label = control.property("text").toString();
  for (const auto* const each : window.findChildren<QLabel*>()) {
    if (each->buddy() == &control) label = each->text();
  }
  QStringList said;
  if (name != label.remove('&')) said += name;
  if (more != control.toolTip() && more != name) said += more;
  said.removeAll(QString());
  return said.isEmpty() ? QString() : "says " + WithoutFolder(said.join(QStringLiteral(" / ")));
}

/// What a window shows: its title, and a line for each control that has a name or a text in the
/// order of reading, with its name, state ("-" hidden, "!" disabled), text, placeholder, tip, keys,
/// what is said of it and what it holds; behind them the named actions.
inline QStringList Described(const QWidget& window) {
  std::map<std::tuple<int, int, QString>, QString> rows;
  const auto add = [&](QObject& object, const QPoint& place, const QString& state) {
    QStringList fields = {object.objectName() + state};
    for (const char* const property : {"text", "title", "placeholderText", "toolTip", "shortcut"}) {
      QString value = object.property(property).toString();
      value.remove(
          QRegularExpression(QStringLiteral("^(/|[A-Z]:).*[/\\\\]")));  // the folder of this run
      if (!value.isEmpty()) fields += value.replace('\n', QStringLiteral("\\n"));
    }
    for (const auto* const shortcut : object.findChildren<QShortcut*>()) {
      if (shortcut->parent() == &object) fields += shortcut->key().toString();
    }
    if (auto* const control = qobject_cast<QWidget*>(&object)) {
      for (const QString& value : {SaidOf(*control, window), HeldBy(*control)}) {
        if (!value.isEmpty()) fields += value;
      }
    }
    rows[{place.y(), place.x(), object.objectName()}] = fields.join('\t');
  };
  for (auto* const control : window.findChildren<QWidget*>()) {
    const QString name = control->objectName();
    if (name.startsWith(QLatin1String("qt_"))) continue;
    if (name.isEmpty() && control->property("text").toString().isEmpty()) continue;
    add(*control, control->mapTo(&window, QPoint()),
        QLatin1String(control->isVisible() ? "" : "-") + (control->isEnabled() ? "" : "!"));
  }
  int number = 0;
  for (auto* const action : window.findChildren<QAction*>()) {
    if (!action->objectName().isEmpty()) add(*action, {number++, window.height()}, {});
  }
  QStringList lines;
  if (window.isWindow()) {
    lines += WithoutFolder(window.windowTitle());
  }
  for (const auto& [place, line] : rows) lines += line;
  return lines;
}

/// The style of Windows decides anew what stands higher by a hair.
#ifdef Q_OS_WIN
constexpr bool kMayBeInAnyOrder = true;
#else
constexpr bool kMayBeInAnyOrder = false;
#endif

/// Whether lines are those of a file behind "[section]"; prints them otherwise.
inline bool AreAsDesigned(const QStringList& lines, const QString& path, const QString& section) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) qFatal("there is no list of controls");
  const QString text = QString::fromUtf8(file.readAll()).section('[' + section + "]\n", 1);
  QStringList expected = text.section(QStringLiteral("\n\n"), 0, 0).split('\n');
  if (expected.last().isEmpty()) expected.removeLast();
  QStringList shown = lines;
  if (kMayBeInAnyOrder) {
    shown.sort();
    expected.sort();
  }
  if (shown != expected) {
    std::puts(qPrintable('[' + section + "]\n" + lines.join('\n') + '\n'));
  }
  return shown == expected;
}
inline bool ShowsAsDesigned(const QWidget& window, const QString& path, const QString& section) {
  return AreAsDesigned(Described(window), path, section);
}

}  // namespace zentab::app
