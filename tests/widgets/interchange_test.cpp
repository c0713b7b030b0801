#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTableWidget>
#include <QTest>

#include "editor/widgets/chart/curve_chart.h"
#include "widgets/companion.h"
#include "widgets/described_window.h"
#include "widgets/window_test.h"

namespace zentab::app {
namespace {

const QByteArray kLibrary =
    "{\"Alpha\"\t(1.5;10)(2;4) 001}\r\n{\"Beta\"\t(1.5;20)(2;8) 001}\r\n"
    "{\"Gamma\"\t(1.5;30)(2;12) 112}\r\n";
const QByteArray kOther =
    "{\"Gamma\"\t(1.5;30)(2;12)(3;9) 001}\r\n{\"alpha\"\t(1.5;10)(2;4) 001}\r\n"
    "{\"Delta\"\t(1.5;40)(2;16) 001}\r\n";
const QByteArray kTwoCurves =
    "Strom (A);Abgang 1 [ms];Abgang 2 [ms]\r\n1,5;3440;5000\r\n2;2006;\r\n5;856;900\r\n";

QByteArray RelayList() {
  QByteArray rows = "I/In\tt [s]\n";
  for (int row = 0; row < 120; ++row) {
    const double load = 1.05 + 0.15 * row;
    rows += QByteArray::number(load) + '\t' + QByteArray::number(0.5 + 9.0 / (load * load)) + '\n';
  }
  return rows;
}

// The windows for files of other programs and for another library.
class InterchangeTest : public WindowTest {
  Q_OBJECT

 private:
  WindowFixture& Start() { return Make(kLibrary); }
  template <typename Control>
  [[nodiscard]] static Control* In(const QDialog& dialog, const char* name) {
    return dialog.findChild<Control*>(QLatin1String(name));
  }
  [[nodiscard]] QDialog* Opened(const char* action, const QString& file = {}) const {
    made_->dialogs.file = file.isEmpty() ? file : made_->Path(file);
    made_->Find<QAction>(action)->trigger();
    return Shown();
  }
  // The dialog in front, once it has read what it is about.
  [[nodiscard]] static QDialog* Shown() {
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) qFatal("no dialog opens");
    Settle(*dialog);
    return dialog;
  }
  static void Settle(const QDialog& dialog) {
    const auto isBusy = [&dialog] { return Said(dialog).endsWith(QChar(0x2026)); };
    if (!QTest::qWaitFor([&] { return !isBusy(); }, 60'000)) qFatal("the files are not read");
  }
  [[nodiscard]] static QString Said(const QDialog& dialog) {
    return In<QLabel>(dialog, "LabelOutcome")->text();
  }
  // "field=identifier …"
  static void Fill(const QDialog& dialog, const QString& fields) {
    for (const QString& pair : fields.split(' ', Qt::SkipEmptyParts)) {
      auto* const field =
          dialog.findChild<QComboBox*>(QStringLiteral("Field_") + pair.section('=', 0, 0));
      field->setCurrentIndex(field->findData(pair.section('=', 1)));
    }
    Settle(dialog);
  }
  // As the companion has them.
  [[nodiscard]] QString Differences(const QDialog& dialog) const {
    QString texts = Texts(*In<QListView>(dialog, "ListDifferences")->model());
    return texts.replace(QChar(0x2212), '-').simplified();
  }
  // The rows of a table, cells apart by a comma.
  static QString Texts(const QAbstractItemModel& model) {
    QStringList rows;
    for (int row = 0; row < model.rowCount(); ++row) {
      QStringList cells;
      for (int column = 0; column < model.columnCount(); ++column) {
        cells += model.index(row, column).data().toString();
      }
      rows += cells.join(',');
    }
    return rows.join('|');
  }
  void Mark(const QDialog& dialog, const char* list, int row, bool isChosen = true) const {
    auto* const model = In<QAbstractItemView>(dialog, list)->model();
    model->setData(model->index(row, 0), isChosen ? Qt::Checked : Qt::Unchecked,
                   Qt::CheckStateRole);
  }

 private Q_SLOTS:
  void cleanup() { made_.reset(); }

  void TheGridGetsWhatTheCompanionPrints_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("fields");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("settings");  // ms, absolute, instrument
    for (QStringList row : RowsIn("readings")) {
      const QByteArray bytes = row[1].replace("\\r", "\r").replace("\\n", "\n").toUtf8();
      QTest::newRow(qPrintable(row[0])) << (bytes == "LIST" ? RelayList() : bytes) << row[2]
                                        << row[3].split(' ', Qt::SkipEmptyParts) << row[4];
    }
  }
  void TheGridGetsWhatTheCompanionPrints() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, fields);
    QFETCH(QStringList, arguments);
    QFETCH(QString, settings);
    const WindowFixture& f = Start();
    f.Write("curve.txt", bytes);
    const QPointer<QDialog> dialog = Opened("m_impcurves", "curve.txt");
    QCOMPARE(In<QComboBox>(*dialog, "Field_separator")->isEnabled(), !bytes.startsWith('{'));
    QString remark;
    const QStringList printed =
        Printed(QStringList{"read", f.Path("curve.txt")} + arguments, &remark);
    // What has become of the file meanwhile is not asked.
    f.Write("curve.txt", "1;1\n");
    Fill(*dialog, fields);
    if (printed.isEmpty()) {
      QVERIFY(!In<QPushButton>(*dialog, "CommandGrid")->isEnabled() && !Said(*dialog).isEmpty());
      return;
    }
    if (!remark.isEmpty()) {
      const QString percent = QString::number(remark.toDouble(), 'f', 2);
      QVERIFY2(Said(*dialog).contains(percent), qPrintable(Said(*dialog) + percent));
    }
    In<QPushButton>(*dialog, "CommandGrid")->click();
    QVERIFY(dialog == nullptr || !dialog->isVisible());
    QCOMPARE(Points(), printed);
    const auto digit = [](auto value) { return QString::number(static_cast<int>(value)); };
    QCOMPARE(digit(f.session.modes.milliseconds) + digit(f.session.modes.absoluteValues) +
                 digit(f.session.instrument),
             settings);
    QVERIFY(f.session.table.tableModified);
    f.Find<QAction>("m_undo")->trigger();
    QCOMPARE(Points(), QStringList{QString()});
    QVERIFY(!f.session.table.tableModified && !f.session.modes.absoluteValues);
    QCOMPARE(f.Bytes(), kLibrary);
  }

  // What is still being read then comes before the dialog is destroyed.
  void ADialogThatIsClosedAtOnceLeavesNoCurve() {
    WindowFixture& f = Start();
    f.Click("Command1");
    f.Write("other.dat", kOther);
    f.Write("german.csv", kTwoCurves);
    auto& chart = *f.Find<QCustomPlot>("MSChart1");
    const QString before = CurvesOf(chart);
    for (const auto& [action, file, isListed] : {std::tuple("m_cmplibrary", "other.dat", false),
                                                 std::tuple("m_cmplibrary", "other.dat", true),
                                                 std::tuple("m_impcurves", "german.csv", false)}) {
      f.dialogs.file = f.Path(QLatin1String(file));
      f.Find<QAction>(action)->trigger();
      auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (isListed) {
        Settle(*dialog);
        auto* const list = In<QListView>(*dialog, "ListDifferences");
        list->setCurrentIndex(list->model()->index(3, 0));
        Mark(*dialog, "ListDifferences", 3);
        In<QPushButton>(*dialog, "CommandTakeOver")->click();
      }
      dialog->reject();
      const QDeadlineTimer end(50);
      while (!end.hasExpired()) QCoreApplication::processEvents();
      QCOMPARE(CurvesOf(chart), before);
      QCOMPARE(f.Bytes(), kLibrary);
      QTRY_VERIFY(f.window->findChild<QDialog*>() == nullptr);
    }
  }

  void NamesAndLevelCurvesComeWhole() {
    const WindowFixture& f = Start();
    QString rows = QStringLiteral("\uFEFFI/In\t\U0001F600 [s]\n");
    for (int row = 1; row <= 30; ++row) rows += QStringLiteral("%1\t1\n").arg(row);
    QByteArray bytes;
    for (const QChar unit : rows) {
      bytes += static_cast<char>(unit.cell());
      bytes += static_cast<char>(unit.row());
    }
    f.Write("wide.txt", bytes);
    const QDialog* const dialog = Opened("m_impcurves", "wide.txt");
    QCOMPARE(Texts(*In<QTableView>(*dialog, "TableCurves")->model()),
             QStringLiteral("\U0001F600,30 → 26,"));
  }

  void ChosenCurvesBecomeEntriesInOneStep() {
    WindowFixture& f = Start();
    f.Write("feeder.csv", kTwoCurves + "\r\nBeta\r\n1,5;1;2\r\n3;1;2\r\n\r\nOne\r\n" +
                              QByteArray("2;3;4\r\n").repeated(27));
    QDialog* const dialog = Opened("m_impcurves", "feeder.csv");
    auto* const add = In<QPushButton>(*dialog, "CommandAdd");
    auto* const list = In<QTableView>(*dialog, "TableCurves");
    QCOMPARE(Texts(*list->model()),
             QStringLiteral("Abgang 1,3,|Abgang 2,2,|Beta Abgang 1,2,|Beta Abgang 2,2,|"
                            "One Abgang 1,27,not possible|One Abgang 2,27,not possible"));
    const auto name = [list](int row, const char* text) {
      list->model()->setData(list->model()->index(row, 0), QLatin1String(text), Qt::EditRole);
    };
    for (const int row : {0, 1, 2, 3, 4, 5}) Mark(*dialog, "TableCurves", row, false);
    QVERIFY(!add->isEnabled());
    for (const int row : {0, 2, 5}) Mark(*dialog, "TableCurves", row);
    QVERIFY(!add->isEnabled());
    Mark(*dialog, "TableCurves", 5, false);
    for (const auto& [text, why] : {std::pair("bETA", "already has an entry \"bETA\""),
                                    std::pair(" ", "no name"), std::pair("abgang 1", "Two of")}) {
      name(2, text);
      QVERIFY2(!add->isEnabled() && Said(*dialog).contains(QLatin1String(why)), why);
    }
    name(2, "New");
    // Read anew, they stay what they are.
    list->selectRow(2);
    Fill(*dialog, QStringLiteral("surplus=cut"));
    QCOMPARE(list->currentIndex().row(), 2);
    // Someone else takes the name meanwhile.
    f.Write("relayTables.dat", kLibrary + "{\"new\"\t(1;2)(2;3) 001}\r\n");
    add->click();
    QVERIFY2(Said(*dialog).contains(QStringLiteral("\"New\"")), qPrintable(Said(*dialog)));
    f.Write("relayTables.dat", kLibrary);
    f.files.bytesThatFit = 9;
    add->click();
    QVERIFY2(Said(*dialog).contains(QStringLiteral("o space")), qPrintable(Said(*dialog)));
    f.files.bytesThatFit = test::FailingFileLayer::kNever;
    add->click();
    QCOMPARE(f.Bytes(), kLibrary +
                            "{\"Abgang 1\"\t(1.5;3440)(2;2006)(5;856) 111}\r\n"
                            "{\"New\"\t(1.5;1)(3;1) 111}\r\n");
    QCOMPARE(NamesIn(*f.window), QStringLiteral("Alpha|Beta|Gamma|Abgang 1|New"));
    QCOMPARE(SaidBelow(), QStringLiteral("Curves added to the library: 2"));
    f.Find<QAction>("m_undo")->trigger();
    QCOMPARE(f.Bytes(), kLibrary);
    f.Find<QAction>("m_redo")->trigger();
    QCOMPARE(NamesIn(*f.window), QStringLiteral("Alpha|Beta|Gamma|Abgang 1|New"));
  }

  void EntriesOfALibraryKeepTheirLines() {
    const WindowFixture& f = Start();
    const QByteArray line = "{\"J\"\t(1.50;10.0)(2.0;4.25)  112}x\r\n";
    f.Write("odd.dat", line);
    f.Write("library.json",
            Printed({"export", f.Path("odd.dat"), "--format", "json"}).join('\n').toUtf8());
    QDialog* const dialog = Opened("m_impcurves", "library.json");
    // Back from the curves Tab leads over the rows to the fields.
    QCOMPARE(dialog->focusWidget()->objectName(), QStringLiteral("TableCurves"));
    for (const char* const former : {"TableRows", "Field_surplus"}) {
      QTest::keyClick(dialog->focusWidget(), Qt::Key_Backtab);
      QCOMPARE(dialog->focusWidget()->objectName(), QLatin1String(former));
    }
    In<QPushButton>(*dialog, "CommandAdd")->click();
    QCOMPARE(f.Bytes(), kLibrary + line);
  }

  void WhatIsNoCurveChangesNothing_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("said");
    QByteArray random;
    for (int at = 0; at < 5000; ++at) random += static_cast<char>((at * 7919 + at / 7) % 256);
    QTest::newRow("bytes") << random << "line 1: this is no text";
    QTest::newRow("column") << QByteArray("1\n2\n3\n") << "line 1: there is one column only";
    QTest::newRow("lines") << QByteArray("1;2\n").repeated(2'000'001)
                           << "line 2000001: more than 2000000 lines";
    QTest::newRow("signs") << QByteArray("1.5;3,4\n2,5;1.7\n3.5;1,2\n") << "is no number";
    QTest::newRow("missing") << QByteArray("1.5;3\n2;\n3;1\n") << "line 2: a load or a time";
    QTest::newRow("json") << QByteArray("{\"name\":\"x\"}") << "JSON, but no library";
    QTest::newRow("broken") << QByteArray("{\"format\":\n]") << "line 2, column 1: this is no JSON";
    QTest::newRow("empty") << QByteArray() << "no row of numbers";
  }
  void WhatIsNoCurveChangesNothing() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, said);
    const WindowFixture& f = Start();
    f.Write("bad.csv", bytes);
    QDialog* const dialog = Opened("m_impcurves", "bad.csv");
    QVERIFY2(Said(*dialog).contains(said), qPrintable(Said(*dialog)));
    QVERIFY(!In<QPushButton>(*dialog, "CommandGrid")->isEnabled());
    QVERIFY(!In<QPushButton>(*dialog, "CommandAdd")->isEnabled());
    QVERIFY(In<QTableWidget>(*dialog, "TableRows")->rowCount() <= 300);
    dialog->reject();
    QCOMPARE(f.Bytes(), kLibrary);
  }

  void FilesAreDroppedAndCellsPasted() {
    const WindowFixture& f = Start();
    for (const char* const command : {"m_impcurves", "m_cmplibrary"}) {
      made_->dialogs.file.clear();
      f.Find<QAction>(command)->trigger();
      QVERIFY(QApplication::activeModalWidget() == nullptr);
      QDialog* const missing = Opened(command, QStringLiteral("missing.json"));
      QVERIFY2(Said(*missing).contains(QStringLiteral("could not be read")), command);
      missing->reject();
    }
    QApplication::clipboard()->clear();
    f.Find<QAction>("m_pastecurves")->trigger();
    QCOMPARE(SaidBelow(), QStringLiteral("The clipboard holds no text"));
    QApplication::clipboard()->setText(QStringLiteral("1,5\t3,44\r\n2\t2,006\r\n"));
    QDialog* dialog = Opened("m_pastecurves");
    QCOMPARE(SaidBelow(), QString());
    QCOMPARE(dialog->windowTitle(), QStringLiteral("Import curves – Clipboard"));
    In<QPushButton>(*dialog, "CommandGrid")->click();
    QCOMPARE(Points().join('|'), QStringLiteral("1.5\t3.44|2\t2.006"));
    f.Write("Dropped.CSV", "1;2\n2;1\n");
    QVERIFY(f.DropFiles({QUrl::fromLocalFile(f.Path("Dropped.CSV"))}));
    dialog = Shown();
    QVERIFY(ShowsAsDesigned(*dialog, QStringLiteral(WINDOWS), QStringLiteral("FormImportCurves")));
  }

  void TheListIsWhatTheCompanionPrints() {
    WindowFixture& f = Start();
    f.Write("other.dat", kOther);
    QDialog* const dialog = Opened("m_cmplibrary", "other.dat");
    QCOMPARE(Differences(*dialog),
             Printed({"diff", f.Path("relayTables.dat"), f.Path("other.dat")}).join('|'));
    const auto entry = [dialog] { return In<QLabel>(*dialog, "LabelEntry")->text(); };
    QTRY_COMPARE(entry(), QStringLiteral("Name: Alpha → alpha"));
    QVERIFY(ShowsAsDesigned(*dialog, QStringLiteral(WINDOWS), QStringLiteral("FormCompare")));
    auto* const list = In<QListView>(*dialog, "ListDifferences");
    for (const int row : {1, 2}) list->setCurrentIndex(list->model()->index(row, 0));
    QTRY_VERIFY(entry().contains(QStringLiteral("Points: 2 → 3")));
    QVERIFY(entry().contains(QStringLiteral("Times: ms → s")));
    QVERIFY(entry().endsWith(QStringLiteral("Not every curve can be shown in the chart.")));
    In<QLineEdit>(*dialog, "TextFind")->setText(QStringLiteral("DEL"));
    QCOMPARE(Differences(*dialog), QStringLiteral("+ Delta"));
    QTRY_VERIFY(entry().contains(QStringLiteral("Only in the other")));
    In<QLineEdit>(*dialog, "TextFind")->setText(QStringLiteral("nobody"));
    QTRY_COMPARE(entry(), QString());
    dialog->reject();
    f.dialogs.file = f.Path("relayTables.dat");
    f.Find<QAction>("m_cmplibrary")->trigger();
    QCOMPARE(SaidBelow(), QStringLiteral("This is the open library itself"));
    QVERIFY(Opened("m_cmplibrary", "other.dat") != nullptr);
    QCOMPARE(SaidBelow(), QString());
  }

  void ChosenDifferencesAreTakenOverInOneStep() {
    WindowFixture& f = Start();
    f.Write("other.dat", kOther);
    f.Click("Command1");
    f.Select(2);
    QDialog* dialog = Opened("m_cmplibrary", "other.dat");
    auto* const take = In<QPushButton>(*dialog, "CommandTakeOver");
    QVERIFY(!take->isEnabled());
    In<QAbstractButton>(*dialog, "CheckAll")->click();
    Mark(*dialog, "ListDifferences", 0, false);
    // Someone else is quicker: nothing is done, and the list is what it is now.
    f.Write("relayTables.dat", kLibrary + "{\"Delta\"\t(9;9)(10;9) 001}\r\n");
    take->click();
    QVERIFY(!take->isEnabled());
    QTRY_VERIFY(Said(*dialog).contains(QStringLiteral("compared anew")));
    QCOMPARE(f.Bytes(), kLibrary + "{\"Delta\"\t(9;9)(10;9) 001}\r\n");
    QCOMPARE(Differences(*dialog), QStringLiteral("~ Alpha|- Beta|~ Gamma|~ Delta"));
    dialog->reject();
    f.Write("relayTables.dat", kLibrary);
    dialog = Opened("m_cmplibrary", "other.dat");
    for (const int row : {1, 2, 3}) Mark(*dialog, "ListDifferences", row);
    f.files.bytesThatFit = 9;
    In<QPushButton>(*dialog, "CommandTakeOver")->click();
    QTRY_VERIFY2(Said(*dialog).contains(QStringLiteral("o space")), qPrintable(Said(*dialog)));
    f.files.bytesThatFit = test::FailingFileLayer::kNever;
    In<QPushButton>(*dialog, "CommandTakeOver")->click();
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    const QByteArray taken =
        "{\"Alpha\"\t(1.5;10)(2;4) 001}\r\n{\"Gamma\"\t(1.5;30)(2;12)(3;9) 001}\r\n"
        "{\"Delta\"\t(1.5;40)(2;16) 001}\r\n";
    QCOMPARE(f.Bytes(), taken);
    QCOMPARE(NamesIn(*f.window), QStringLiteral("Alpha|Gamma|Delta"));
    QCOMPARE(f.SelectedRow(), 1);
    QCOMPARE(SaidBelow(),
             QStringLiteral("Taken over: 1 added, 1 removed, 1 changed: Beta, Gamma, Delta"));
    QCOMPARE(Printed({"diff", f.Path("relayTables.dat"), f.Path("other.dat")}).join('|'),
             QStringLiteral("~ Alpha"));
    f.Find<QAction>("m_undo")->trigger();
    QCOMPARE(f.Bytes(), kLibrary);
    f.Find<QAction>("m_redo")->trigger();
    QCOMPARE(f.Bytes(), taken);
    QCOMPARE(NamesIn(*f.window), QStringLiteral("Alpha|Gamma|Delta"));
  }
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::InterchangeTest)
#include "interchange_test.moc"
