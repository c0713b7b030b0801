#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QSpinBox>
#include <QTableView>

#include "widgets/watch_fixture.h"

namespace zentab::app {
namespace {

const QByteArray kLibrary =
    "{\"Measured\"\t(1.3;5.3223)(1.5;3.4388)(2;2.0059)(3;1.2603)(4;1.0757)(6;0.76735)(8;0.65935)"
    "(10;0.59412)(12;0.54955)(14;0.5166)(17;0.48032)(20;0.45351) 001}\r\n"
    "{\"Reference\"\t(1.5;3.439)(2;2.006)(5;0.856)(10;0.594)(20;0.4535) 001}\r\n"
    "{\"Volts\"\t(100;500)(110;250)(120;90) 112}\r\n"
    "{\"Empty\"\t 000}\r\n";
const QByteArray kOther =
    "{\"Volts\"\t(100;500)(110;300)(125;90) 112}\r\n"
    "{\"measured\"\t(1.3;5.3223)(1.5;3.4388) 001}\r\n"
    "{\"New\"\t(1.5;4)(2;3)(5;1) 001}\r\n";
const QByteArray kCurves =
    "Strom (A);Abgang 1 [ms];Abgang 2 [ms]\r\n1,5;3440;5000\r\n2;2006;\r\n5;856;900\r\n";

// What windows, dialogs and menus look like while one works with them. A step is a row of what the
// user does: an action, a menu or a button by its name, "field=value", "field<typed".
class PicturesTest : public WatchFixture {
  Q_OBJECT

 private:
  WindowFixture& Begin() {
    Make(kLibrary);
    made_->Write("other.dat", kOther);
    made_->Write("curves.csv", kCurves);
    made_->Write("library.json",
                 "{\"format\":\"zentab-library\",\"version\":1,\"entries\":[{\"name\":\"J\","
                 "\"milliseconds\":true,\"absolute\":true,\"instrument\":\"voltage\","
                 "\"points\":[[1.5,10.0],[2.0,4.25]]}]}");
    made_->Write("bad.csv", "1.5;3,4\r\n2,5;1.7\r\n");
    made_->WriteTimeTest(WindowFixture::SixtyPoints(), QDateTime({2026, 1, 2}, {3, 4}));
    Shipped();
    made_->Click("Command1");
    return *made_;
  }
  [[nodiscard]] QWidget& Control(const QString& name) const {
    QWidget* const front = InFront();
    auto* found = front != nullptr ? front->findChild<QWidget*>(name) : nullptr;
    if (found == nullptr) found = made_->window->findChild<QWidget*>(name);
    if (found == nullptr) qFatal("there is no %s", qPrintable(name));
    return *found;
  }
  static void Set(QWidget& control, const QString& value) {
    if (auto* const choice = qobject_cast<QComboBox*>(&control)) {
      const int known = choice->findData(value);
      choice->setCurrentIndex(known < 0 ? value.toInt() : known);
    } else if (auto* const number = qobject_cast<QSpinBox*>(&control)) {
      number->setValue(value.toInt());
    } else if (auto* const field = qobject_cast<QLineEdit*>(&control)) {
      field->setText(value);
    } else if (auto* const tabs = qobject_cast<QTabBar*>(&control)) {
      tabs->setCurrentIndex(value.toInt());
    } else if (auto* const list = qobject_cast<QAbstractItemView*>(&control)) {
      const QModelIndex row = list->model()->index(value.toInt(), 0);
      list->setFocus();
      list->setCurrentIndex(row);
      if (value.endsWith('x')) {
        const bool isMarked = row.data(Qt::CheckStateRole).toInt() == Qt::Checked;
        list->model()->setData(row.siblingAtColumn(0), isMarked ? Qt::Unchecked : Qt::Checked,
                               Qt::CheckStateRole);
      }
    } else {
      control.setProperty("plainText", value);
    }
  }
  void Do(const QString& steps) {
    for (const QString& what : steps.split('|')) Take(what);
  }
  void Take(const QString& what) {
    if (what.contains('<')) {
      QWidget& control = Control(what.section('<', 0, 0));
      control.setFocus();
      QTest::keyClicks(&control, what.section('<', 1));
    } else if (what.startsWith(QLatin1String("menu:"))) {
      QWidget& control = Control(what.mid(5));
      QContextMenuEvent event(QContextMenuEvent::Keyboard, {9, 9},
                              control.mapToGlobal(QPoint(9, 9)));
      QCoreApplication::sendEvent(&control, &event);
    } else if (what.contains('=')) {
      Set(Control(what.section('=', 0, 0)), what.section('=', 1));
    } else if (what == QLatin1String("close")) {
      if (InFront() == nullptr) qFatal("nothing is to be closed");
      InFront()->close();
    } else if (what == QLatin1String("Ok")) {
      qobject_cast<QDialog*>(QApplication::activeModalWidget())->accept();
    } else if (auto* const menu = made_->Find<QMenu>(qPrintable(what))) {
      menu->popup(made_->window->pos() + QPoint(40, 40));
    } else if (auto* const action = made_->Find<QAction>(qPrintable(what))) {
      action->trigger();
    } else {
      qobject_cast<QAbstractButton*>(&Control(what))->click();
    }
  }
  void WatchSteps(std::initializer_list<const char*> rows) {
    std::vector<Step> steps;
    for (const char* const row : rows) {
      steps.push_back({row, [this, row] { Do(QString::fromUtf8(row)); }});
    }
    Watch(steps);
  }

 private Q_SLOTS:
  void initTestCase() {
    QLocale::setDefault(QLocale::c());
    QApplication::setCursorFlashTime(0);
  }
  void cleanup() { made_.reset(); }

  void Menus() {
    Begin();
    WatchSteps({"m_opt", "close|m_edit", "close|m_calc", "close|m_library", "close|m_order",
                "close|m_curve", "close|m_view", "close|m_compare", "close|m_axes",
                "close|m_colours", "close|m_language", "close|m_help", "close|menu:List1",
                "close|menu:MSFlexGrid1", "close|menu:MSChart1",
                "close|Command1|m_cmpentry|ListLegend=1|menu:ListLegend", "close|m_keys",
                "close|Check1|Check2|m_calc"});
  }
  void Curves() {
    Begin();
    WatchSteps({"m_standard", "Field_family=ieee-ei|Field_tms=2|Field_min=0.3",
                "Field_spacing=given|Field_loads=1.5;2;9", "Field_loads=1;2", "Field_family=own",
                "Field_family=thermal", "Field_family=equation|Field_equation=multiplier*(v",
                "close|m_fitcurve", "TableFits=3", "ListPoints=4x", "close|m_thin",
                "Field_points=4", "close|m_resample",
                "Field_spacing=linear|Field_points=6|Field_from=2", "Ok"});
  }
  void Assessment() {
    Begin();
    WatchSteps({"m_assess", "List1=1|CommandUseEntry", "Limit_percent=1", "Limit_ms=40",
                "TableAssessment=4", "Limit_percent=x", "Limit_percent=|Limit_class=5",
                "CommandUseCurve", "Field_family=iec-a|Field_tms=0.2|Ok", "Check2",
                "CommandCloseAssessment"});
  }
  void Equations() {
    Begin();
    WatchSteps({"Option1|CommandPreview", "Field_equation<ta", "Field_equation<n",
                "Field_equation=|Field_equation<a"});
  }
  void Files() {
    WindowFixture& f = Begin();
    f.dialogs.file = f.Path("curves.csv");
    WatchSteps({"m_impcurves", "TableCurves=1x", "Field_separator=,", "Field_separator=;",
                "Field_header=no", "Field_loadunit=ka|TableCurves=0"});
    Do(QStringLiteral("close"));
    f.dialogs.file = f.Path("library.json");
    WatchSteps({"m_impcurves"});
    Do(QStringLiteral("close"));
    f.dialogs.file = f.Path("bad.csv");
    WatchSteps({"m_impcurves"});
    Do(QStringLiteral("close"));
    f.dialogs.file = f.Path("other.dat");
    WatchSteps(
        {"m_cmplibrary", "ListDifferences=1", "ListDifferences=2x", "CheckAll", "TextFind=vo"});
  }
  void Workbench() {
    Begin();
    WatchSteps(
        {"Option1|CommandPreview", "Field_filter=2|Field_mean=3", "TabStages=1", "Field_timeout=2",
         "ListEquations=3|Field_equation=t0*abs(t1)", "CommandWrite", "Field_difference=3",
         "Field_equation=t0*)", "CommandRevert", "Ok", "CommandPreview|Field_equation=)",
         "ListEquations=9|Field_equation=averyveryverylongnamethatnobodyknowsandthatneverends"
         "andstilldoesnotend",
         "ListEquations=8"});
  }
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::PicturesTest)
#include "pictures_test.moc"
