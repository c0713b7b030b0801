#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QTabBar>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <algorithm>

#include "app/widgets/qt_user_dialogs.h"
#include "app/widgets/window_font.h"
#include "editor/widgets/chart/chart_colours.h"
#include "editor/widgets/chart/curve_chart.h"
#include "editor/widgets/chart/overlay_style.h"
#include "widgets/cut_texts.h"
#include "widgets/described_window.h"
#include "widgets/picture.h"
#include "widgets/window_test.h"

namespace zentab::app {
namespace {

const QByteArray kLibrary =
    "{\"SI\"\t(1.5;10)(2;4.25)(3;2)(5;1.5) 001}\r\n{\"VI\"\t(1.5;27)(2;13.5)(3;6.75) 001}\r\n";

// What a screen reader has to call each kind of control; the first row that fits counts.
constexpr struct {
  const char* kind;
  QAccessible::Role role;
} kRoles[] = {{"QCheckBox", QAccessible::CheckBox},
              {"QRadioButton", QAccessible::RadioButton},
              {"QAbstractButton", QAccessible::Button},
              {"QLineEdit", QAccessible::EditableText},
              {"QPlainTextEdit", QAccessible::EditableText},
              {"QAbstractSpinBox", QAccessible::SpinBox},
              {"QComboBox", QAccessible::ComboBox},
              {"QTabBar", QAccessible::PageTabList},
              {"QTableView", QAccessible::Table},
              {"QListView", QAccessible::List},
              {"QCustomPlot", QAccessible::Chart}};

// Lists and tables whose texts F2 or a double-click would open, but for those that are for it.
bool IsOpenedByMistake(const QWidget& control) {
  const auto* const view = qobject_cast<const QAbstractItemView*>(&control);
  if (view == nullptr || view->model() == nullptr) return false;
  const bool isForEditing = view->objectName() == QLatin1String("List1") ||
                            view->objectName() == QLatin1String("TableCurves");
  return !isForEditing && view->editTriggers() != QAbstractItemView::NoEditTriggers &&
         (view->model()->index(0, 0).flags() & Qt::ItemIsEditable);
}

// The controls that the keyboard reaches and a screen reader has no name or another role for.
QStringList Unnamed(const QWidget& window) {
  QStringList found;
  for (auto* const control : window.findChildren<QWidget*>()) {
    if (!control->isVisible() || !(control->focusPolicy() & Qt::TabFocus)) continue;
    if (IsPartOfAnother(*control)) continue;
    const QAccessibleInterface* const said = QAccessible::queryAccessibleInterface(control);
    const QString which =
        control->metaObject()->className() + QLatin1String(" ") + control->objectName();
    const QString name = said->text(QAccessible::Name).trimmed();
    if (name.isEmpty() || name.contains('&')) found += which + " has no name: " + name;
    const auto* const row = std::ranges::find_if(
        kRoles, [control](const auto& known) { return control->inherits(known.kind); });
    if (IsOpenedByMistake(*control)) found += which + " can be edited";
    const bool isKnown = row != std::end(kRoles);
    if (!isKnown || said->role() != row->role) {
      found += which + QStringLiteral(" has the role %1").arg(said->role());
    }
  }
  return found;
}

class AccessTest : public WindowTest {
  Q_OBJECT

 private:
  QFont usual_ = QApplication::font();

  WindowFixture& Start(const QString& language) {
    made_ = std::make_unique<WindowFixture>(kLibrary);
    made_->Write("other.dat", "{\"SI\"\t(1.5;11)(2;5) 001}\r\n{\"New\"\t(1;2)(2;3) 001}\r\n");
    made_->Write("curve.csv", "I (A);t (ms)\r\n1,5;3440\r\n2;2006\r\n5;856\r\n");
    made_->WriteTimeTest("1\t0.1\t900\t\r\n2\t0.2\t500\t\r\n", QDateTime({2026, 1, 2}, {3, 4}));
    made_->OpenIn(language);
    made_->Activate();
    made_->Click("Command1");
    made_->Click("Option1");
    return *made_;
  }

  // What a dialog says while it is at work ends with an ellipsis.
  static bool IsAtWork(const QDialog& dialog) {
    const QList<QLabel*> labels = dialog.findChildren<QLabel*>();
    return std::any_of(labels.begin(), labels.end(), [](const QLabel* label) {
      return label->isVisible() && label->text().endsWith(QChar(0x2026));
    });
  }
  // Looks at the dialog that opens, once it has read what it is about, and closes it.
  template <typename Open, typename Look>
  void InDialog(const QString& name, const Open& open, const Look& look) {
    bool isSeen = false;
    bool isLooking = false;
    bool hasName = false;
    bool hasButtons = false;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
      auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr || isLooking || (!isSeen && IsAtWork(*dialog))) return;
      const QScopedValueRollback<bool> looking(isLooking, true);
      if (!isSeen) {
        look(*dialog, name);
        hasName = !dialog->objectName().isEmpty() || dialog->inherits("QMessageBox");
        const QList<QPushButton*> buttons = dialog->findChildren<QPushButton*>();
        hasButtons = std::ranges::any_of(buttons, &QPushButton::isVisible);
      }
      isSeen = true;
      // It may be at work still, and stay.
      dialog->reject();
    });
    timer.start(1);
    open();
    QTRY_VERIFY2(isSeen && QApplication::activeModalWidget() == nullptr, qPrintable(name));
    QVERIFY2(hasName, qPrintable(name));
    QVERIFY2(hasButtons, qPrintable(name));
  }

  template <typename Look>
  void LookAtAll(const Look& look) {
    WindowFixture& f = *made_;
    f.Find<QAction>("m_assess")->setChecked(true);
    f.Select(1);
    f.Find<QAction>("m_cmpentry")->trigger();
    QCoreApplication::processEvents();
    look(*f.window, QStringLiteral("main"));
    f.Find<QAction>("m_assess")->setChecked(false);
    for (const char* const action : {"m_standard", "m_fitcurve", "m_thin", "m_resample", "m_print",
                                     "preview", "m_impcurves", "m_cmplibrary", "m_imp", "m_exp"}) {
      const QString name = QLatin1String(action);
      f.dialogs.file = f.Path(name == "m_impcurves" ? "curve.csv" : "other.dat");
      const auto open = [&] {
        name == "preview" ? f.Click("CommandPreview") : f.Find<QAction>(action)->trigger();
      };
      InDialog(name, open, look);
    }
    LookAtQuestions(look);
  }
  template <typename Look>
  void LookAtQuestions(const Look& look) {
    WindowFixture& f = *made_;
    QtUserDialogs dialogs(f.session);
    dialogs.SetParent(f.window.get());
    const texts::LibraryTexts& words = f.session.texts.library;
    const auto text = [](const std::string& said) { return QString::fromStdString(said); };
    const auto ask = [&](const char* name, const auto& question) {
      InDialog(
          QLatin1String(name), [&] { static_cast<void>(question()); }, look);
    };
    ask("number", [&] {
      return dialogs.AskNumber({text(f.session.texts.history.steps[18]),
                                text(f.session.texts.tools.decimals), 1.0,
                                [](double) { return true; }});
    });
    ask("choice", [&] {
      return dialogs.Choose(
          {text(words.exportHeading),
           {{text(words.exportWhich), {text(words.exportAll)}, 0},
            {text(words.exportFormat),
             {text(words.exportOwn), text(words.exportNeutral), text(words.exportJson)},
             0}}});
    });
    ask("limits", [&] {
      return dialogs.AskLimits({{},
                                {1.23456, 2},
                                {1, 2},
                                {},
                                text(f.session.texts.labels.loadRelative),
                                text(f.session.texts.labels.timeSeconds)});
    });
    ask("picture", [&] {
      return dialogs.AskPictureSize({text(f.session.texts.output.saveChart), {}, true});
    });
    ask("entries", [&] { return dialogs.ChooseEntries("Title", {"a", "b"}); });
    ask("confirm", [&] { return dialogs.Confirm(f.session.texts.messages[2]); });
  }

 private Q_SLOTS:
  // Of numbers and dates; and nothing blinks.
  void initTestCase() {
    QLocale::setDefault(QLocale::c());
    QApplication::setCursorFlashTime(0);
  }
  void cleanup() {
    made_.reset();
    QApplication::setFont(usual_);
    QApplication::setPalette(QPalette());
  }

  void EveryControlHasANameAndItsRole() {
    for (const char* const language : {"", ".zh_CN"}) {
      Start(QLatin1String(language));
      QStringList found;
      LookAtAll([&found](const QWidget& window, const QString& name) {
        for (const QString& said : Unnamed(window)) found += name + ": " + said;
      });
      QVERIFY2(found.isEmpty(), qPrintable('\n' + found.join('\n')));
    }
  }

  // windows.txt has the main window, too, and the dialogs that other tests look at.
  void DialogsShowWhatTheyAreFor() {
    Start({});
    QStringList others;
    QStringList curves;  // what is drawn in the chart beside each
    LookAtAll([&, this](const QWidget& dialog, const QString& name) {
      if (name == QLatin1String("main") &&
          !ShowsAsDesigned(*dialog.findChild<QWidget*>("PanelAssessment"), QStringLiteral(WINDOWS),
                           QStringLiteral("PanelAssessment"))) {
        others += name;
      }
      const bool isKnown = name == QLatin1String("main") || name == QLatin1String("confirm") ||
                           name == QLatin1String("m_cmplibrary");
      if (name != QLatin1String("m_cmplibrary")) {
        curves += name + '\t' + CurvesOf(*made_->Find<QCustomPlot>("MSChart1"));
      }
      if (!isKnown && !ShowsAsDesigned(dialog, QStringLiteral(WINDOWS), name)) others += name;
      auto& drawn = const_cast<QWidget&>(dialog);
      // It takes some turns until every layout has the last of it.
      if (IsTakingPictures()) QTest::qWait(200);
      if (!QTest::qWaitFor([&] { return IsAsInPictures(PictureOf(drawn), name); }, 10'000)) {
        others += name + QStringLiteral(".png");
      }
    });
    QVERIFY2(others.isEmpty(), qPrintable(others.join(' ')));
    QVERIFY(AreAsDesigned(curves, QStringLiteral(WINDOWS), QStringLiteral("Curves")));
  }

  // Pictures for the eye go into the folder that the variable names.
  void NoTextIsCut_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<double>("scale");
    for (const char* const language : {"", ".de", ".zh_CN"}) {
      for (const double scale : {1.0, 2.0}) {
        QTest::addRow("%s at %g", language, scale) << QString::fromLatin1(language) << scale;
      }
    }
  }
  void NoTextIsCut() {
    QFETCH(const QString, language);
    QFETCH(const double, scale);
    QFont font = usual_;
    font.setPointSizeF(12.0);
    QApplication::setFont(font);
    QCOMPARE(TextScale(), 1.0);
    font.setPointSizeF(9.0 * scale);
    QApplication::setFont(font);
    WindowFixture& f = Start(language);
    QCOMPARE_GE(f.window->font().pointSizeF(), 8.0 * scale);
    const auto& quick = *f.Find<QToolButton>("Quick_m_act");
    QCOMPARE(quick.iconSize().height(), std::max(16, quick.fontMetrics().height()));
    QStringList found;
    LookAtAll([&](const QWidget& window, const QString& name) {
      // It takes some turns until every layout has the last of it.
      [[maybe_unused]] const bool isWhole =
          QTest::qWaitFor([&window] { return Cut(window).isEmpty(); }, 3000);
      for (const QString& said : Cut(window)) found += name + ": " + said;
      const QString folder = qEnvironmentVariable("ZENTAB_PICTURES");
      if (folder.isEmpty()) return;
      const_cast<QWidget&>(window).grab().save(
          QStringLiteral("%1/%2%3-%4.png").arg(folder, name, language).arg(scale));
    });
    QVERIFY2(found.isEmpty(), qPrintable('\n' + found.join('\n')));
  }

  void TextAndCurvesStandOutInEveryScheme() {
    QApplication::setStyle(QStringLiteral("windows"));
    WindowFixture& f = Start({});
    f.Find<QAction>("m_pickup")->setChecked(true);
    f.Select(1);
    f.Find<QAction>("m_cmpentry")->trigger();
    f.Find<QAction>("m_difference")->trigger();
    QPalette strong(Qt::black, Qt::black);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::PlaceholderText, QPalette::ToolTipText}) {
      strong.setColor(role, Qt::white);
    }
    for (const auto role : {QPalette::Base, QPalette::AlternateBase, QPalette::ToolTipBase}) {
      strong.setColor(role, Qt::black);
    }
    strong.setColor(QPalette::Highlight, QColor(0x1A, 0xEB, 0xFF));
    strong.setColor(QPalette::HighlightedText, Qt::black);
    strong.setColor(QPalette::Link, Qt::yellow);
    for (const char* const scheme : {"m_collight", "m_coldark", "strong"}) {
      auto* const action = f.Find<QAction>(scheme);
      if (action != nullptr) action->trigger();
      if (action == nullptr) QApplication::setPalette(strong);
      QTest::qWait(1);
      CheckContrast(scheme);
    }
    // Dark colours are those of the next start; the style that cannot show them comes back.
    f.window.reset();
    f.Open();
    QCOMPARE(QApplication::palette().color(QPalette::Window), QColor(0xFF2B2D30));
    QCOMPARE(QApplication::style()->name(), QStringLiteral("fusion"));
    f.Find<QAction>("m_colsystem")->trigger();
    QCOMPARE(QApplication::style()->name(), QStringLiteral("windows"));
  }

 private:
  void CheckContrast(const char* scheme) const {
    using P = QPalette;
    constexpr std::pair<P::ColorRole, P::ColorRole> kTexts[] = {{P::WindowText, P::Window},
                                                                {P::ButtonText, P::Button},
                                                                {P::Text, P::Base},
                                                                {P::Text, P::AlternateBase},
                                                                {P::HighlightedText, P::Highlight},
                                                                {P::PlaceholderText, P::Base},
                                                                {P::Link, P::Window},
                                                                {P::ToolTipText, P::ToolTipBase}};
    const auto check = [&](const QColor& text, const QColor& background, double least,
                           const QString& what) {
      const double contrast = editor::ContrastOf(text, background);
      QVERIFY2(contrast >= least,
               qPrintable(QStringLiteral("%1, %2: %3").arg(scheme, what).arg(contrast)));
    };
    for (const char* const name : {"Form1", "MSFlexGrid1", "List1", "StatusFile", "StatusCheck",
                                   "ListLegend", "TextFilter", "Command1"}) {
      const QWidget& control =
          *(made_->window->objectName() == QLatin1String(name) ? made_->window.get()
                                                               : made_->Find<QWidget>(name));
      for (const auto group : {P::Active, P::Inactive}) {
        for (const auto& [text, background] : kTexts) {
          check(control.palette().color(group, text), control.palette().color(group, background),
                4.5, QStringLiteral("%1 %2").arg(QLatin1String(name)).arg(text));
        }
      }
    }
    auto& chart = *made_->Find<editor::CurveChart>("MSChart1");
    const QColor base = chart.palette().color(P::Base);
    for (const auto* const plot : made_->window->findChildren<QCustomPlot*>()) {
      for (const QCPAxis* const axis : {plot->xAxis, plot->yAxis}) {
        check(axis->labelColor(), base, 4.5, plot->objectName() + " axis label");
        check(axis->tickLabelColor(), base, 4.5, plot->objectName() + " numbers of an axis");
        check(axis->basePen().color(), base, 3.0, plot->objectName() + " axis");
      }
    }
    for (auto* const plot : made_->window->findChildren<QCustomPlot*>()) {
      int drawn = 0;
      for (int at = 0; at < plot->plottableCount(); ++at) {
        if (!plot->plottable(at)->realVisibility()) continue;
        if (plot->plottable(at)->interface1D()->dataCount() == 0) continue;
        check(plot->plottable(at)->pen().color(), base, 3.0, QStringLiteral("curve %1").arg(at));
        ++drawn;
      }
      QVERIFY2(drawn >= 1, qPrintable(plot->objectName()));
    }
    for (int number = 0; number < 42; ++number) {
      check(editor::OverlayPen(number, base).color(), base, 3.0, QStringLiteral("further curve"));
    }
  }
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::AccessTest)
#include "access_test.moc"
