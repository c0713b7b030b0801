#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QTest>
#include <cmath>

#include "editor/widgets/chart/curve_chart.h"
#include "widgets/companion.h"
#include "widgets/window_test.h"

namespace zentab::app {
namespace {

// An IEC A curve of T = 0.2 between 1.3 and 20 times the pickup value, but for point 5 (8 % late),
// with a first point below it.
const QByteArray kLibrary =
    "{\"Measured\"\t(1.3;5.3223)(1.5;3.4388)(2;2.0059)(3;1.2603)(4;1.0757)(6;0.76735)(8;0.65935)"
    "(10;0.59412)(12;0.54955)(14;0.5166)(17;0.48032)(20;0.45351) 001}\r\n"
    "{\"Reference\"\t(1.5;3.439)(2;2.006)(5;0.856)(10;0.594)(20;0.4535) 001}\r\n";

class CurveDialogsTest : public WindowTest {
  Q_OBJECT

 private:
  WindowFixture& Start() {
    Make(kLibrary);
    made_->Click("Command1");
    return *made_;
  }
  template <typename Control>
  [[nodiscard]] Control* Find(const char* name) const {
    return made_->Find<Control>(name);
  }
  [[nodiscard]] QString Library() const { return made_->Path(QStringLiteral("relayTables.dat")); }
  [[nodiscard]] QDialog* Opened(const char* action) {
    Find<QAction>(action)->trigger();
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) qFatal("no dialog opens");
    return dialog;
  }
  // "field=text field=text …", choices by their identifiers.
  static void Fill(const QDialog& dialog, const QString& fields) {
    for (const QString& pair : fields.split(' ', Qt::SkipEmptyParts)) {
      const QString name = QStringLiteral("Field_") + pair.section('=', 0, 0);
      const QString text = pair.section('=', 1);
      if (auto* const choice = dialog.findChild<QComboBox*>(name)) {
        choice->setCurrentIndex(choice->findData(text));
      } else if (auto* const number = dialog.findChild<QSpinBox*>(name)) {
        number->setValue(text.toInt());
      } else {
        dialog.findChild<QLineEdit*>(name)->setText(text);
      }
    }
  }
  [[nodiscard]] static QString Said(const QDialog& dialog, const char* label = "LabelOutcome") {
    return dialog.findChild<QLabel*>(QLatin1String(label))->text();
  }
  [[nodiscard]] bool ShowsProposal() const {
    auto* const chart = Find<editor::CurveChart>("MSChart1");
    for (int at = 0; at < chart->plottableCount(); ++at) {
      const QCPAbstractPlottable* const drawn = chart->plottable(at);
      if (drawn->pen().style() == Qt::DashLine && drawn->realVisibility() &&
          qobject_cast<const QCPCurve*>(drawn) != nullptr) {
        return true;
      }
    }
    return false;
  }

 private Q_SLOTS:
  void cleanup() { made_.reset(); }

  void DialogsGiveWhatTheCompanionPrints_data() {
    for (const auto* each : {"action", "fields", "arguments"}) QTest::addColumn<QString>(each);
    for (const QStringList& row : RowsIn("curves")) {
      QTest::newRow(qPrintable(row[0])) << row[1] << row[2] << row[3];
    }
  }
  void DialogsGiveWhatTheCompanionPrints() {
    QFETCH(QString, action);
    QFETCH(QString, fields);
    QFETCH(QString, arguments);
    const WindowFixture& f = Start();
    const QStringList before = Points();
    QString remark;
    const QStringList printed =
        Printed(arguments.replace(QStringLiteral("FILE"), Library()).split(' '), &remark);
    QDialog* dialog = Opened(action.toUtf8().constData());
    Fill(*dialog, fields);
    QVERIFY(ShowsProposal());
    const auto* const fault = dialog->findChild<QLabel*>(QStringLiteral("LabelEquation"));
    QVERIFY(fault == nullptr || fault->text().isEmpty());
    if (!remark.isEmpty()) {
      const QString deviation = QString::number(remark.toDouble(), 'f', 2);
      QVERIFY2(Said(*dialog).contains(deviation), qPrintable(Said(*dialog)));
    }
    dialog->reject();
    QCOMPARE(Points(), before);
    QVERIFY(!ShowsProposal() && !f.session.table.tableModified);
    dialog = Opened(action.toUtf8().constData());
    Fill(*dialog, fields);
    dialog->accept();
    QCOMPARE(Points(), printed);
    QVERIFY(f.session.table.tableModified && !ShowsProposal());
    Find<QAction>("m_undo")->trigger();
    QCOMPARE(Points(), before);
    // The next one begins where this one ended.
    dialog = Opened(action.toUtf8().constData());
    if (fields.contains(QLatin1String("from=2"))) return;
    dialog->accept();
    QCOMPARE(Points(), printed);
  }

  void WhatCannotBeIsSaid_data() {
    QTest::addColumn<QString>("fields");
    QTest::addColumn<QString>("said");
    for (const QStringList& row : RowsIn("refusals")) {
      QTest::newRow(qPrintable(row[0])) << row[0] << row[1];
    }
  }
  void WhatCannotBeIsSaid() {
    QFETCH(QString, fields);
    QFETCH(QString, said);
    Start();
    QDialog* const dialog = Opened("m_standard");
    Fill(*dialog, fields);
    const bool isEquation = said.startsWith(QStringLiteral("Character")) || said.contains(" w");
    const QString told = Said(*dialog, isEquation ? "LabelEquation" : "LabelOutcome");
    QVERIFY2(told.contains(said), qPrintable(told));
    QVERIFY(!dialog->findChild<QPushButton*>()->isEnabled() || !ShowsProposal());
    QTest::keyClick(dialog, Qt::Key_Return);
    QVERIFY(dialog->isVisible());
  }

  void ByKeyboardFromAnEmptyTable() {
    WindowFixture& f = Start();
    f.session.table.grid.ClearPoints();
    Q_EMIT Find<editor::CurveGridView>("MSFlexGrid1")->EditingLeft();
    QVERIFY(Find<QWidget>("MSChart1")->isHidden());
    QTest::keyClick(f.window.get(), Qt::Key_K, Qt::ControlModifier);
    QWidget* const dialog = QApplication::activeModalWidget();
    QVERIFY(dialog != nullptr);
    QTRY_COMPARE(QApplication::activeWindow(), dialog);
    QVERIFY(Find<QWidget>("MSChart1")->isVisible());
    QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("Field_family"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("0.5"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(Points(), Printed({"curve", "iec-b", "--tms", "0.5"}));
  }

  void LoadsAndTimesComeOutInTheGridsModes() {
    const WindowFixture& f = Start();
    f.Click("Check1");
    f.Click("Check2");
    Find<QLineEdit>("Text2")->clear();
    QVERIFY(Said(*Opened("m_standard")).startsWith(QStringLiteral("Absolute loads need")));
    qobject_cast<QDialog*>(QApplication::activeModalWidget())->reject();
    Find<QLineEdit>("Text2")->setText(QStringLiteral("5"));
    QDialog* dialog = Opened("m_standard");
    Fill(*dialog, QStringLiteral("points=4"));
    dialog->accept();
    QCOMPARE(Points(), Printed(QStringLiteral("curve iec-a --absolute --pickup 5 --ms --from 5.25 "
                                              "--to 100 --points 4")
                                   .split(' ')));
    f.Click("Check1");
    dialog = Opened("m_standard");
    QCOMPARE(dialog->findChild<QLineEdit*>("Field_to")->text(), QStringLiteral("20"));
  }

  void OwnConstantsAreKeptUnderTheirNames() {
    Start();
    QDialog* dialog = Opened("m_standard");
    Fill(*dialog, QStringLiteral("family=own alpha=0.5 c=0.1"));
    auto* const name = dialog->findChild<QComboBox*>(QStringLiteral("Field_name"));
    for (const auto& [k, called] : {std::pair("0.7", ""), std::pair("x", "Feeder 7"),
                                    std::pair("0.7", "Feeder 7"), std::pair("0.9", "Zone 2")}) {
      Fill(*dialog, QStringLiteral("k=%1").arg(k));
      name->setEditText(QLatin1String(called));
      dialog->findChild<QPushButton*>(QStringLiteral("CommandKeep"))->click();
      QCOMPARE(name->currentText(), QLatin1String(called));
    }
    dialog->reject();
    dialog = Opened("m_standard");
    Fill(*dialog, QStringLiteral("family=own"));
    auto* const again = dialog->findChild<QComboBox*>(QStringLiteral("Field_name"));
    QCOMPARE(again->itemText(0) + again->itemText(1), QStringLiteral("Feeder 7Zone 2"));
    Q_EMIT again->activated(0);
    dialog->accept();
    QCOMPARE(Points(), Printed(QStringLiteral("curve own --k 0.7 --alpha 0.5 --c 0.1").split(' ')));
  }

  void TheFitRanksAndLeavesOutWhatTheUserDoes() {
    Start();
    QDialog* const dialog = Opened("m_fitcurve");
    auto* const fits = dialog->findChild<QTableWidget*>();
    const auto isAsPrinted = [&](const QStringList& printed) {
      for (int row = 1; row < fits->rowCount(); ++row) {
        const QStringList cells = printed.at(row).split('\t');
        const double multiplier = fits->item(row, 1)->text().toDouble();
        const bool isSame =
            std::abs(multiplier / cells.at(1).toDouble() - 1.0) < 1.1e-5 &&
            std::abs(fits->item(row, 3)->text().toDouble() - cells.at(3).toDouble()) < 0.0051;
        if (!isSame) return false;
      }
      return fits->rowCount() == printed.size();
    };
    QStringList fit = {QStringLiteral("fit"), Library(), QStringLiteral("Measured")};
    QVERIFY(isAsPrinted(Printed(fit)));
    QCOMPARE(fits->item(1, 0)->text(), QStringLiteral("IEC standard inverse (A)"));
    dialog->findChild<QListWidget*>()->item(4)->setCheckState(Qt::Unchecked);
    fit += {QStringLiteral("--exclude"), QStringLiteral("5")};
    QVERIFY(isAsPrinted(Printed(fit)));
    Find<QAbstractButton>("CheckPickup")->click();
    QVERIFY(isAsPrinted(Printed(fit + QStringList{QStringLiteral("--pickup-free")})));
    Find<QAbstractButton>("CheckPickup")->click();
    fits->selectRow(1);
    dialog->accept();
    QVERIFY(std::abs(Points().at(4).section('\t', 1).toDouble() - 0.99603) < 2e-4);
    Find<QAction>("m_undo")->trigger();
    QCOMPARE(Points().at(4), QStringLiteral("4\t1.0757"));
  }

  void AFitSaysWhatItLeavesOutAndWhatItCannot() {
    WindowFixture& f = Start();
    f.session.table.grid.SetCell(1, 1, "0.9");
    QDialog* const dialog = Opened("m_fitcurve");
    QVERIFY2(Said(*dialog).startsWith(QLatin1String("The load 0.9 is at or below")),
             qPrintable(Said(*dialog)));
    dialog->findChild<QListWidget*>()->item(0)->setCheckState(Qt::Unchecked);
    dialog->findChild<QTableWidget*>()->selectRow(1);
    QVERIFY2(Said(*dialog).contains(QLatin1String(". It does not operate at one of the points")),
             qPrintable(Said(*dialog)));
    dialog->reject();
  }

  void TheAssessmentFollowsTheGrid() {
    WindowFixture& f = Start();
    f.Select(1);
    Find<QAction>("m_assess")->setChecked(true);
    const auto verdict = [this] { return Find<QLabel>("LabelVerdict")->text(); };
    auto* const table = Find<QTableWidget>("TableAssessment");
    QCOMPARE(Find<QLabel>("LabelReference")->text(), QStringLiteral("Reference"));
    f.Select(0);
    QCOMPARE(Find<QLabel>("LabelReference")->text(), QStringLiteral("Reference"));
    f.Click("CommandUseEntry");
    QCOMPARE(Find<QLabel>("LabelReference")->text(), QStringLiteral("Measured"));
    f.Select(1);
    f.Click("CommandUseEntry");
    QCOMPARE(verdict(),
             QStringLiteral("Assessment not passed. Points within the limits: 10, beyond them: 1, "
                            "outside the reference: 1 · Largest deviation: 8.42 %"));
    QCOMPARE(table->item(0, 7)->text(), QStringLiteral("outside"));
    Find<QLineEdit>("Limit_percent")->setText(QStringLiteral("-1"));
    QVERIFY(verdict().contains(QStringLiteral("from 0 up")));
    QApplication::clipboard()->setText(QStringLiteral("kept"));
    f.Click("CommandCopyAssessment");
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("kept"));
    Find<QLineEdit>("Limit_percent")->clear();
    Find<QLineEdit>("Limit_class")->setText(QStringLiteral("5"));
    auto* const factors = Find<QLineEdit>("Limit_factors");
    const QString usual = factors->text();
    for (const char* const text : {"2", "x:1", "1:x", "-1:2", "1:-2", "5:1 2:2", "2:1;2:2"}) {
      factors->setText(QLatin1String(text));
      QVERIFY2(verdict().contains(QLatin1String("pairs such as")), text);
    }
    // Twice the class up to a multiple of 5, then half of it.
    factors->setText(QStringLiteral("0:2 5:0.5"));
    QCOMPARE(table->item(1, 6)->text(), QStringLiteral("343.9"));
    QCOMPARE(table->item(11, 6)->text(), QStringLiteral("11.3"));
    factors->setText(usual);
    f.Click("CommandUseCurve");
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    Fill(*dialog, QStringLiteral("family=iec-a tms=0.2"));
    dialog->accept();
    const QStringList rows =
        Printed(QStringLiteral("assess|%1|Measured|--family|iec-a|--tms|0.2|--class|5")
                    .arg(Library())
                    .split('|'));
    QCOMPARE(table->rowCount(), rows.size());
    for (int row = 0; row < table->rowCount(); ++row) {
      const QStringList cells = rows.at(row).split('\t');
      for (const int column : {3, 4, 5, 6}) {
        const double shown = table->item(row, column)->text().toDouble();
        QVERIFY2(std::abs(shown - cells.at(column).toDouble()) < 0.051, qPrintable(rows.at(row)));
      }
      QCOMPARE(table->item(row, 7)->text(), cells.at(7));
    }
    QVERIFY(verdict().startsWith(QStringLiteral("Assessment passed: all 12")));
    f.Click("CommandCopyAssessment");
    QCOMPARE(QApplication::clipboard()->text().count('\n'), 15);
    f.session.table.grid.SetCell(5, 2, "1.3");
    Q_EMIT Grid().EditingLeft();
    QVERIFY(verdict().contains(QStringLiteral("within the limits: 11, beyond them: 1")));
    f.Click("CommandCloseAssessment");
    QVERIFY(Find<QWidget>("PanelAssessment")->isHidden());
  }

  void DialogsOpenBesideTheChart() {
    const WindowFixture& f = Start();
    // Where the window is, and where the dialog's right edge then is: no part is off the screen.
    const QRect screen = f.window->screen()->availableGeometry();
    for (const QPoint& place : {QPoint(500, 90), QPoint(-500, -90), QPoint(500, 4000)}) {
      f.window->move(place);
      QDialog* const dialog = Opened("m_thin");
      const QPoint chart = Find<QWidget>("MSChart1")->parentWidget()->mapToGlobal(QPoint());
      const int left = std::max(chart.x() - 12 - dialog->width(), 0);
      const int top = std::clamp(chart.y(), 0, screen.bottom() - dialog->height());
      QCOMPARE(dialog->pos(), QPoint(left, top));
      dialog->reject();
      QTRY_VERIFY(f.window->findChild<QDialog*>() == nullptr);
    }
  }

  void LimitsAndReferenceAreThereTheNextTime() {
    WindowFixture& f = Start();
    Find<QListView>("List1")->clearSelection();
    Find<QAction>("m_assess")->setChecked(true);
    f.Click("CommandUseEntry");
    QVERIFY(Find<QLabel>("LabelVerdict")->text().startsWith(QLatin1String("Choose what to")));
    f.Click("CommandUseCurve");
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    Fill(*dialog, QStringLiteral("family=iec-a tms=0.2"));
    dialog->accept();
    QTest::keyClicks(Find<QLineEdit>("Limit_ms"), QStringLiteral("40"));
    QTest::keyClick(Find<QLineEdit>("Limit_ms"), Qt::Key_Return);
    for (const char* const reference : {"0.2", "Reference"}) {
      f.window.reset();
      f.Open();
      f.Select(1);
      Find<QAction>("m_assess")->setChecked(true);
      QCOMPARE(Find<QLineEdit>("Limit_ms")->text(), QStringLiteral("40"));
      QVERIFY(Find<QLabel>("LabelReference")->text().contains(QLatin1String(reference)));
      f.Click("CommandUseEntry");
    }
  }
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::CurveDialogsTest)
#include "curve_dialogs_test.moc"
