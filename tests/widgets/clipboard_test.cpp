#include <QAbstractButton>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTest>

#include "widgets/window_test.h"

namespace zentab::app {
namespace {

const QByteArray kLibrary =
    "{\"Four\"\t(1;10)(2;20)(3;30)(4;40) 001}\r\n"
    "{\"Empty\"\t 000}\r\n";

class ClipboardTest : public WindowTest {
  Q_OBJECT

 private:
  WindowFixture& Start(const std::string& separator = ".") {
    made_ = std::make_unique<WindowFixture>(kLibrary, separator);
    made_->Write("Zentab.txt", "F1.COMMAND8.TEXT {E&xport}\nF1.COMMAND9.TEXT {Cl&ear}\n");
    made_->Open();
    made_->Activate();
    Press("Command1");
    QGuiApplication::clipboard()->setText(QStringLiteral("left over"));
    return *made_;
  }
  void Press(const char* name) {
    QTest::mouseClick(made_->Find<QAbstractButton>(name), Qt::LeftButton);
  }
  void Key(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
  }
  void Keys(QKeySequence::StandardKey key) {
    QTest::keySequence(QApplication::focusWidget(), QKeySequence(key));
  }
  [[nodiscard]] QPoint Middle(int row, int column) const {
    return Grid().visualRect(Grid().model()->index(row - 1, column - 1)).center();
  }
  void ClickCell(int row, int column, Qt::KeyboardModifiers modifiers = {}) {
    QTest::mouseClick(Grid().viewport(), Qt::LeftButton, modifiers, Middle(row, column));
  }
  void Drag(int row, int column, int toRow, int toColumn) {
    QTest::mousePress(Grid().viewport(), Qt::LeftButton, {}, Middle(row, column));
    QTest::mouseMove(Grid().viewport(), Middle(toRow, toColumn));
    QTest::mouseRelease(Grid().viewport(), Qt::LeftButton, {}, Middle(toRow, toColumn));
  }
  static void Put(const QString& text) { QGuiApplication::clipboard()->setText(text); }
  [[nodiscard]] static QString Clip() { return QGuiApplication::clipboard()->text(); }
  [[nodiscard]] QString Rows(int from, int to) const {
    return QString::fromStdString(editor::BlockText(made_->session.table.grid, {from, 1, to, 2}));
  }
  [[nodiscard]] QString Step() const {
    Q_EMIT made_->Find<QMenu>("m_edit")->aboutToShow();
    return made_->Find<QAction>("m_undo")->text();
  }
  [[nodiscard]] bool Modified() const { return made_->session.table.tableModified; }

 private Q_SLOTS:
  void cleanup() { made_.reset(); }

  void SelectingGoesAsInASpreadsheet() {
    Start();
    Drag(2, 1, 3, 2);
    QVERIFY(!EditorOpen());
    Press("Command8");
    QCOMPARE(Clip(), QStringLiteral("2\t20\r3\t30"));
    QTest::mouseClick(Grid().viewport(), Qt::RightButton, {}, Middle(2, 2));
    QVERIFY(!EditorOpen());
    ClickCell(2, 2);
    QVERIFY(EditorOpen());
    // Nothing of the cell is seen below it.
    auto* const open = made_->Find<QWidget>("Text11");
    const QRect place(open->mapTo(made_->window.get(), QPoint()), open->size());
    const QImage shown = made_->window->grab(place).toImage();
    QCOMPARE(shown.pixelColor(5, 5), open->palette().color(QPalette::Base));
    ClickCell(4, 2, Qt::ShiftModifier);
    QVERIFY(!EditorOpen());
    Keys(QKeySequence::Copy);
    QCOMPARE(Clip(), QStringLiteral("20\r30\r40"));
    // Walking on in the editor moves the place from which the arrows select.
    ClickCell(1, 1);
    for (int i = 0; i < 4; ++i) Key(Qt::Key_Return);
    Key(Qt::Key_Escape);
    Key(Qt::Key_Down, Qt::ShiftModifier);
    Key(Qt::Key_Right, Qt::ShiftModifier);
    Keys(QKeySequence::Copy);
    QCOMPARE(Clip(), QStringLiteral("3\t30\r4\t40"));
    for (const auto& [arrow, cells] :
         {std::pair(Qt::Key_Left, "3\t30"), {Qt::Key_Down, "30\r40"}, {Qt::Key_Up, "20\r30"}}) {
      ClickCell(3, 2);
      Key(arrow, Qt::ShiftModifier);
      Keys(QKeySequence::Copy);
      QCOMPARE(Clip(), QLatin1String(cells));
    }
    Grid().clearSelection();
    Keys(QKeySequence::Copy);
    QCOMPARE(Clip(), QStringLiteral("20"));
    ClickCell(1, 2);
    Key(Qt::Key_Return);
    auto* const field = made_->Find<QWidget>("Text11");
    QTest::mousePress(field, Qt::LeftButton);
    QTest::mouseMove(field, field->rect().bottomRight() + QPoint(20, 5));
    QCOMPARE(QWidget::mouseGrabber(), Grid().viewport());
    QTest::mouseMove(Grid().viewport(), Middle(4, 2));
    QTest::mouseRelease(Grid().viewport(), Qt::LeftButton, {}, Middle(4, 2));
    QVERIFY(QWidget::mouseGrabber() == nullptr);
    Keys(QKeySequence::Copy);
    QCOMPARE(Clip(), QStringLiteral("2\t20\r3\t30\r4\t40"));
    QVERIFY(!Modified());
  }

  void RowsAreChosenByTheirNumbersAndAllByTheCorner() {
    Start();
    ClickCell(1, 2);
    auto* const numbers = Grid().verticalHeader();
    QTest::mouseClick(numbers->viewport(), Qt::LeftButton, {},
                      {5, numbers->sectionViewportPosition(3) + 5});
    QTest::mouseClick(Grid().findChild<QAbstractButton*>(), Qt::LeftButton);
    QVERIFY(!EditorOpen());
    Keys(QKeySequence::Copy);
    QCOMPARE(Clip(), QStringLiteral("4\t40"));
    Keys(QKeySequence::SelectAll);
    Keys(QKeySequence::Copy);
    QCOMPARE(Clip(), Rows(1, 26));
    Key(Qt::Key_Return);
    QVERIFY(EditorOpen());
    Keys(QKeySequence::Copy);
    QVERIFY2(!Clip().contains('\t'), "an open editor means its own cell");
    QVERIFY(!Modified());
  }

  void AColumnWithDecimalCommasBecomesACurve() {
    WindowFixture& f = Start(",");
    f.session.table.grid.ClearPoints();
    ClickCell(1, 1);
    Put(QStringLiteral("1,05\n1,5\n2\n"));
    Keys(QKeySequence::Paste);
    QVERIFY(!EditorOpen());
    ClickCell(1, 2);
    Put(QStringLiteral("1234,5\r\n20,00\r\n4,2512\r\n"));
    Keys(QKeySequence::Paste);
    QCOMPARE(Rows(1, 4), QStringLiteral("1,05\t1234,5\r1,5\t20\r2\t4,251\r\t"));
    QVERIFY(f.Find<QWidget>("MSChart1")->isVisible() && f.Find<QWidget>("Command3")->isEnabled());
    QVERIFY2(!Modified(), "a paste counts as no edit");
  }

  void PastingFillsTheSelectionOnly() {
    Start();
    Drag(2, 1, 3, 1);
    Put(QStringLiteral("5\t50\r\n6\t60\r\n7\t70\r\n"));
    Press("Command7");
    auto* const nothing = new QMimeData;
    nothing->setData(QStringLiteral("image/png"), "no text");
    QGuiApplication::clipboard()->setMimeData(nothing);
    Press("Command7");
    QCOMPARE(Rows(1, 4), QStringLiteral("1\t10\r5\t20\r6\t30\r4\t40"));
  }

  void ClearingEmptiesTheSelectionAndCountsAsAnEdit() {
    WindowFixture& f = Start();
    Drag(3, 1, 4, 2);
    Press("Command9");
    QCOMPARE(Step(), QStringLiteral("&Undo Clear"));
    QCOMPARE(Rows(1, 4), QStringLiteral("1\t10\r2\t20\r\t\r\t"));
    QVERIFY(Modified() && !f.Find<QLabel>("StatusModified")->text().isEmpty());
    Drag(2, 1, 2, 2);
    Keys(QKeySequence::Cut);
    QCOMPARE(Step(), QStringLiteral("&Undo Cut"));
    QCOMPARE(Clip(), QStringLiteral("2\t20"));
    QCOMPARE(Rows(1, 2), QStringLiteral("1\t10\r\t"));
    QVERIFY(!f.Find<QWidget>("MSChart1")->isVisible() && !f.Find<QWidget>("Command4")->isEnabled());
    Drag(1, 2, 2, 2);
    Key(Qt::Key_Delete);
    QCOMPARE(Step(), QStringLiteral("&Undo Clear"));
    QCOMPARE(Rows(1, 1), QStringLiteral("1\t"));
    QVERIFY2(f.dialogs.asked.empty(), "no entry is to be removed");
  }

  void InACellThatWasOnlyOpenedTheKeysMeanTheCell() {
    WindowFixture& f = Start();
    ClickCell(2, 1);
    QGuiApplication::clipboard()->clear();
    Keys(QKeySequence::Paste);
    Keys(QKeySequence::Copy);
    QCOMPARE(Clip(), QStringLiteral("2"));
    for (int round = 0; round < 2; ++round) {
      Put(QStringLiteral("1,23456\t50\r\n"));
      Keys(QKeySequence::Paste);
      QVERIFY(EditorOpen());
    }
    QCOMPARE(Rows(2, 3), QStringLiteral("1.235\t50\r3\t30"));
    QVERIFY2(!Modified(), "a paste counts as no edit");
    // One value goes into the cell as if it were typed, and no other cell is tidied.
    f.session.table.grid.SetCell(1, 2, "10.12345");
    Put(QStringLiteral("7.12345\r\n"));
    Keys(QKeySequence::Paste);
    QCOMPARE(Rows(1, 2), QStringLiteral("1\t10.12345\r7.12345\t50"));
    QVERIFY(Modified() && EditorOpen());
    ClickCell(3, 2);
    Key(Qt::Key_Delete);
    QCOMPARE(Rows(1, 3), QStringLiteral("1\t10.12345\r7.12345\t50\r3\t"));
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("9"));
    ClickCell(4, 1);
    Keys(QKeySequence::Cut);
    QCOMPARE(Clip() + Step(), QStringLiteral("4&Undo Cut"));
    QCOMPARE(Rows(3, 4), QStringLiteral("3\t9\r\t40"));
  }

  void ADoubleClickOpensTheCellWithTheCaretAtItsEnd() {
    WindowFixture& f = Start();
    auto* const field = f.Find<QLineEdit>("Text11");
    f.session.table.grid.SetCell(2, 1, "12.75");
    for (int round = 0; round < 2; ++round) {
      ClickCell(2, 1);
      // The second click meets the field that the first one has opened.
      const QPoint place(field->width() - 12, field->height() / 2);
      QTest::mousePress(field, Qt::LeftButton, {}, place);
      QTest::mouseDClick(field, Qt::LeftButton, {}, place);
      QMouseEvent move(QEvent::MouseMove, QPoint(4, place.y()), field->mapToGlobal(place),
                       Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
      QCoreApplication::sendEvent(field, &move);
      QVERIFY(EditorOpen() && !field->hasSelectedText());
      QCOMPARE(field->cursorPosition(), 5);
      QVERIFY(!Modified());
    }
    // The second click may meet another cell, which another button leaves closed.
    QTest::mouseDClick(Grid().viewport(), Qt::LeftButton, {}, Middle(3, 2));
    QTest::mouseDClick(Grid().viewport(), Qt::RightButton, {}, Middle(1, 1));
    QCOMPARE(field->text(), QStringLiteral("30"));
  }

  void InTheTextOfACellTheKeysMeanTheText() {
    WindowFixture& f = Start();
    ClickCell(2, 2);
    auto* const field = f.Find<QLineEdit>("Text11");
    field->setSelection(0, 1);
    Keys(QKeySequence::Cut);
    QCOMPARE(Clip(), QStringLiteral("2"));
    QCOMPARE(Rows(2, 2), QStringLiteral("2\t0"));
    Put(QStringLiteral("5\r\n"));
    Keys(QKeySequence::Paste);
    QVERIFY(EditorOpen());
    QCOMPARE(Rows(2, 3), QStringLiteral("2\t50\r3\t30"));
    Key(Qt::Key_Home);
    Key(Qt::Key_Delete);
    Key(Qt::Key_End);
    Key(Qt::Key_Delete);
    QCOMPARE(Rows(2, 2), QStringLiteral("2\t0"));
    field->selectAll();
    Put(QStringLiteral("7\r\n8\r\n"));
    Keys(QKeySequence::Paste);
    QVERIFY(!EditorOpen());
    QCOMPARE(Rows(2, 3), QStringLiteral("2\t7\r3\t8"));
    // What stands behind the caret stays, also where the field itself pastes.
    ClickCell(2, 2);
    Key(Qt::Key_Home);
    Keys(QKeySequence::Paste);
    QCOMPARE(Rows(2, 3), QStringLiteral("2\t77\r3\t8"));
    ClickCell(2, 2);
    Key(Qt::Key_Home);
    field->paste();
    QCOMPARE(field->text(), QStringLiteral("777"));
    QCOMPARE(field->cursorPosition(), 1);
    Put(QStringLiteral("\n9"));
    Key(Qt::Key_Home);
    field->paste();
    QCOMPARE(field->cursorPosition(), 0);
    QCOMPARE(Rows(2, 3), QStringLiteral("2\t777\r3\t8"));
    // A tab splits the text, which is the user's edit all the same.
    ClickCell(2, 1);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("1"));
    Put(QStringLiteral("4\t50"));
    Keys(QKeySequence::Paste);
    Keys(QKeySequence::Paste);
    QCOMPARE(Rows(2, 2), QStringLiteral("2144\t50"));
  }
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::ClipboardTest)
#include "clipboard_test.moc"
