#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTest>

#include "app/widgets/qt_user_dialogs.h"
#include "widgets/once_open.h"
#include "widgets/window_fixture.h"

namespace zentab::app {
namespace {

// The questions of the window as the user answers them.
class QuestionsTest : public QObject {
  Q_OBJECT

 private:
  std::unique_ptr<WindowFixture> made_;
  std::unique_ptr<QtUserDialogs> dialogs_;

  // Answers the dialog that `ask` opens.
  template <class Ask, class Answer>
  static auto Answered(const Ask& ask, const Answer& answer) {
    const auto always = [](const QDialog&) { return true; };
    const auto visit = OnceOpen<QDialog>(always, [&answer](QDialog& dialog) {
      answer(dialog);
      // What fails must not wait for somebody.
      if (dialog.isVisible()) dialog.reject();
    });
    return ask();
  }
  static QPushButton& Ok(const QDialog& dialog) {
    return *dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
  }
  static QPushButton& Cancel(const QDialog& dialog) {
    return *dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel);
  }

 private Q_SLOTS:
  void init() {
    made_ = std::make_unique<WindowFixture>("{\"SI\"\t(1;10)(2;20) 001}\r\n", ",");
    dialogs_ = std::make_unique<QtUserDialogs>(made_->session);
    dialogs_->SetParent(made_->window.get());
  }
  void cleanup() {
    dialogs_.reset();
    made_.reset();
  }

  void ANumberIsNothingElse() {
    const NumberQuestion question{"Scale", "Factor:", 1.5,
                                  [](double number) { return number != 0.0; }};
    const auto ask = [&] { return dialogs_->AskNumber(question); };
    const auto answer = [](QDialog& dialog) {
      auto* const field = dialog.findChild<QLineEdit*>("TextNumber");
      QCOMPARE(field->text(), QStringLiteral("1,5"));
      for (const char* const text : {"", "x", "0", "1 2"}) {
        field->setText(QLatin1String(text));
        QTest::keyClick(field, Qt::Key_Return);
        QVERIFY2(dialog.isVisible(), text);
      }
      field->setText(QStringLiteral(" 2,5"));
      QTest::keyClick(field, Qt::Key_Return);
    };
    QCOMPARE(Answered(ask, answer), std::optional(2.5));
    QCOMPARE(Answered(ask, [](QDialog& dialog) { Cancel(dialog).click(); }), std::nullopt);
  }

  void AQuestionIsAnsweredInTheProgramsWords() {
    made_->session.texts.program.cancel = "Not &now";
    const auto ask = [&] { return dialogs_->Confirm({"Title", "Text"}); };
    QVERIFY(Answered(ask, [](QDialog& dialog) { Ok(dialog).click(); }));
    QVERIFY(!Answered(ask, [](QDialog& dialog) {
      QCOMPARE(Cancel(dialog).text(), QStringLiteral("Not &now"));
      Cancel(dialog).click();
    }));
  }

  void OfSomeAnswersOneIsChosen() {
    const ChoiceQuestion question{"Export",
                                  {{"Which", {"A", "B"}, 1}, {"How", {"1", "2", "3"}, 2}}};
    const auto ask = [&] { return dialogs_->Choose(question); };
    const auto answer = [](QDialog& dialog) {
      QCOMPARE(dialog.focusWidget(), dialog.findChild<QWidget*>("Choice1_2"));
      dialog.findChild<QRadioButton*>("Choice1_1")->click();
      Ok(dialog).click();
    };
    QCOMPARE(Answered(ask, answer), std::optional(std::vector<std::size_t>{0, 2}));
    QCOMPARE(Answered(ask, [](QDialog& dialog) { Cancel(dialog).click(); }), std::nullopt);
  }

  void LimitsGoUpAndAboveZeroWhereTheAxisDoes() {
    const LimitsQuestion question{
        {{}, editor::Range{3.0, 4.5}}, {1.0, 2.0}, {1.0, 20.0}, {true, false}, "Load", "Time"};
    const auto ask = [&] { return dialogs_->AskLimits(question); };
    using Limits = std::optional<editor::Range>;
    const struct {
      std::array<const char*, 4> texts;
      bool isAnswer;
      Limits loads, times;
    } cases[] = {
        {{"", "", "", ""}, true, {}, {}},
        {{"0,5", "", "", "12"}, true, {{0.5, 2.0}}, {{1.0, 12.0}}},
        {{" ", "1.5", "-1", " 30 "}, true, {{1.0, 1.5}}, {{-1.0, 30.0}}},
        {{"1", "3", "0", ""}, true, {{1.0, 3.0}}, {{0.0, 20.0}}},
        {{"2", "", "", ""}, false, {}, {}},
        {{"", "1", "", ""}, false, {}, {}},
        {{"0", "", "", ""}, false, {}, {}},
        {{"1", "x", "", ""}, false, {}, {}},
        {{"", "", "1 2", ""}, false, {}, {}},
        {{"", "", "3", "3"}, false, {}, {}},
    };
    for (const auto& [texts, isAnswer, loads, times] : cases) {
      const auto answer = [&texts = texts, isAnswer = isAnswer](QDialog& dialog) {
        const char* const names[] = {"TextLoadFrom", "TextLoadTo", "TextTimeFrom", "TextTimeTo"};
        QString before;
        for (std::size_t field = 0; field < texts.size(); ++field) {
          auto* const edit = dialog.findChild<QLineEdit*>(names[field]);
          before += edit->text() + '|';
          edit->setText(texts[field]);
        }
        QCOMPARE(before, QStringLiteral("||3|4,5|"));
        QCOMPARE(Ok(dialog).isEnabled(), isAnswer);
        (isAnswer ? Ok(dialog) : Cancel(dialog)).click();
      };
      const std::optional<AxisLimits> limits = Answered(ask, answer);
      QVERIFY2(limits.has_value() == isAnswer, texts[0]);
      if (!limits) continue;
      QVERIFY2(limits->loads == loads, texts[0]);
      QVERIFY2(limits->times == times, texts[0]);
    }
  }

  void APictureHasASize() {
    const PictureSizeQuestion question{"Save", {{80.0, 50.0}, 254}, true};
    const auto ask = [&] { return dialogs_->AskPictureSize(question); };
    const auto answer = [](QDialog& dialog) {
      QStringList offered;
      for (const auto& [name, number] :
           {std::pair("Field_width", 100), std::pair("Field_height", 60),
            std::pair("Field_resolution", 96)}) {
        auto* const field = dialog.findChild<QSpinBox*>(name);
        offered += field->text();
        field->setValue(number);
      }
      QCOMPARE(offered.join(' '), QStringLiteral("80 mm 50 mm 254 dpi"));
      Ok(dialog).click();
    };
    const std::optional<PictureSize> size = Answered(ask, answer);
    QVERIFY(size && size->millimetres == QSizeF(100, 60) && size->dotsPerInch == 96);
    QVERIFY(!Answered(ask, [](QDialog& dialog) { Cancel(dialog).click(); }));
  }

  void SomeEntriesAreChosenByTheirPlaces() {
    const auto ask = [&] { return dialogs_->ChooseEntries("Curves", {"A", "B", "C"}); };
    const auto answer = [](QDialog& dialog) {
      QVERIFY(!Ok(dialog).isEnabled());
      auto* const list = dialog.findChild<QListView*>("ListEntries");
      for (const int row : {2, 0}) {
        list->selectionModel()->select(list->model()->index(row, 0), QItemSelectionModel::Select);
      }
      Ok(dialog).click();
    };
    QCOMPARE(Answered(ask, answer), (std::vector<std::size_t>{0, 2}));
    QVERIFY(Answered(ask, [](QDialog& dialog) { dialog.reject(); }).empty());
  }

  void MessagesHaveTheirIconAndButtons() {
    QStringList seen;
    const auto answer = [&seen](QMessageBox::StandardButton button) {
      return [&seen, button](QDialog& dialog) {
        auto& box = *qobject_cast<QMessageBox*>(&dialog);
        const bool mayBeLeft = box.button(QMessageBox::Cancel) != nullptr;
        seen += QStringLiteral("%1 %2 %3").arg(box.text()).arg(box.icon()).arg(mayBeLeft);
        QVERIFY(box.defaultButton() == box.button(QMessageBox::Ok));
        box.button(button)->click();
      };
    };
    const auto confirm = [&] { return dialogs_->Confirm({"T", "sure"}); };
    const auto inform = [&] { return dialogs_->Inform({"T", "done"}), true; };
    const auto report = [&] { return dialogs_->ReportError({"T", "failed"}), true; };
    QVERIFY(Answered(confirm, answer(QMessageBox::Ok)));
    QVERIFY(!Answered(confirm, answer(QMessageBox::Cancel)));
    QVERIFY(Answered(inform, answer(QMessageBox::Ok)));
    QVERIFY(Answered(report, answer(QMessageBox::Ok)));
    QCOMPARE(seen.join('|'), QStringLiteral("sure 4 1|sure 4 1|done 1 0|failed 3 0"));
  }
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::QuestionsTest)
#include "questions_test.moc"
