#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTableView>
#include <QTest>

#include "editor/widgets/chart/curve_chart.h"
#include "widgets/described_window.h"
#include "widgets/window_test.h"

namespace zentab::app {
namespace {

const QByteArray kLibrary = "{\"SI\"\t(1.5;10)(2;4.25)(3;2) 001}\r\n{\"V\"\t(100;500) 112}\r\n";

class LanguagesTest : public WindowTest {
  Q_OBJECT

 private:
  // The default catalogue is the English one.
  WindowFixture& Start(const QString& standard = QStringLiteral("Zentab.txt")) {
    made_ = std::make_unique<WindowFixture>(kLibrary);
    made_->window.reset();
    QDir(made_->Path("")).mkdir(QStringLiteral("catalogues"));
    for (const QString& name : QDir(QStringLiteral(CATALOGUES)).entryList({"*.txt"})) {
      if (!QFile::copy(QStringLiteral(CATALOGUES "/") + name, made_->Path("catalogues/" + name))) {
        qFatal("a catalogue could not be copied");
      }
    }
    if (!standard.isEmpty()) {
      QFile::copy(made_->Path("catalogues/" + standard), made_->Path("Zentab.txt"));
    }
    made_->Open();
    return *made_;
  }
  [[nodiscard]] QAction* Language(const QString& name) const {
    auto* const action = made_->window->findChild<QAction*>(name);
    if (action == nullptr) qFatal("there is no such language");
    return action;
  }
  // All that the window says.
  [[nodiscard]] QStringList Said() const {
    const WindowFixture& f = *made_;
    QCoreApplication::processEvents();
    f.window->resize(1500, 900);
    f.Click("Command1");
    auto* const edit = f.Find<QMenu>("m_edit");
    Q_EMIT edit->aboutToShow();
    Q_EMIT f.Find<QMenu>("m_calc")->aboutToShow();
    Q_EMIT edit->aboutToHide();
    const auto* const grid = f.Find<QTableView>("MSFlexGrid1")->model();
    QStringList said = Described(*f.window);
    for (const int column : {0, 1}) {
      said += grid->headerData(column, Qt::Horizontal).toString();
      said += grid->index(1, column).data(Qt::AccessibleTextRole).toString();
    }
    for (const auto* const control : f.window->findChildren<QWidget*>()) {
      if (control->objectName().isEmpty()) continue;
      said += control->objectName() + control->accessibleName() + control->accessibleDescription();
    }
    said += f.Find<editor::CurveChart>("MSChart1")->xAxis->label();
    said += f.window->windowTitle();
    said.sort();
    return said;
  }
  // What only one of the two has.
  static QString Differences(const QStringList& a, const QStringList& b) {
    const auto less = [](QStringList from, const QStringList& others) {
      for (const QString& line : others) from.removeOne(line);
      return from.join('\n');
    };
    return a == b ? QString() : less(a, b) + QStringLiteral("\nand not\n") + less(b, a);
  }

 private Q_SLOTS:
  void cleanup() { made_.reset(); }

  void SwitchingSaysWhatAStartInThatLanguageSays() {
    for (const char* const name : {"Zentab.de", "Zentab.zh_CN", "Zentab"}) {
      const QString file = QLatin1String(name);
      Start(file + QStringLiteral(".txt"));
      const QStringList expected = Said();
      Start();
      const QStringList before = Said();
      Language("m_lang_" + file)->trigger();
      QCOMPARE(Differences(Said(), expected), QString());
      made_->Open();
      QVERIFY(Language("m_lang_" + file)->isChecked());
      QCOMPARE(Differences(Said(), expected), QString());
      Language("m_langinstalled")->trigger();
      QCOMPARE(Differences(Said(), before), QString());
    }
  }

  void WithoutADefaultCatalogueTheBuiltInTextsComeBack() {
    Start({});
    // What two catalogues of the site call by other names.
    const QStringList site = {made_->Path("Zentab1.txt"), made_->Path("Zentab2.txt")};
    made_->Write("Zentab1.txt", "F1.COMMAND2.TEXT {One}\n");
    made_->Write("Zentab2.txt", "F1.COMMAND2.TEXT {Two}\n");
    Language("m_lang_Zentab.de")->trigger();
    QCOMPARE(made_->Find<QAbstractButton>("Command1")->text(), QStringLiteral("&Lesen"));
    QVERIFY(made_->Find<QWidget>("Check1")->isHidden());  // no language shows what is hidden
    for (const QString& file : site) QVERIFY(QFile::remove(file));
    for (int time = 0; time < 2; ++time) Language("m_langinstalled")->trigger();
    Q_EMIT made_->Find<QMenu>("m_calc")->aboutToShow();
    const std::pair<const char*, const char*> texts[] = {{"Command1", "&Read"},
                                                         {"Command2", "Re&move"},
                                                         {"Command5", "?"},
                                                         {"m_exit", "E&xit"},
                                                         {"Label3", "Load level (× pickup)"},
                                                         {"m_cvt", "&Times to ms"}};
    for (const auto& [name, text] : texts) {
      QCOMPARE(made_->Find<QObject>(name)->property("text").toString(), QString::fromUtf8(text));
    }
    QCOMPARE(made_->window->windowTitle(),
             QStringLiteral("Relay curve table editor – relayTables.dat[*]"));
  }

  void TheSiteWinsAndItsSettingsStay() {
    WindowFixture& f = Start();
    f.Write("Zentab.txt", f.Bytes("Zentab.txt")
                              .replace("TIMEOUT.VALUE {0}", "TIMEOUT.VALUE {7}")
                              .replace("F1.INSTRUMENT1.UNIT {A}", "F1.INSTRUMENT1.UNIT {kA}"));
    f.Write("Zentab1.txt", "F1.COMMAND1.TEXT {Site}\nDIFF.EQUATION.2 {t0}\nFILTER.TYPE {3}\n");
    f.Open();
    f.Find<QLineEdit>("Text5")->setText(QStringLiteral("5"));
    Language("m_lang_Zentab.de")->trigger();
    QCOMPARE(f.Find<QAbstractButton>("Command1")->text(), QStringLiteral("Site"));
    QCOMPARE(f.Find<QAbstractButton>("Command2")->text(), QStringLiteral("Lös&chen"));
    QCOMPARE(f.Find<QLineEdit>("Text5")->text(), QStringLiteral("5"));
    QCOMPARE(f.session.texts.import.timeout, std::string("7"));
    QCOMPARE(f.session.texts.import.filterType, std::int16_t{3});
    QCOMPARE(f.session.texts.equations[0][2], std::string("t0"));
    QCOMPARE(f.session.texts.instruments[1].unit, std::string("kA"));
    QCOMPARE(f.store.values["Language"], std::string("Zentab.de.txt"));
  }

  void ACopiedFileIsALanguageAndALostOneIsNone() {
    WindowFixture& f = Start();
    f.Write("catalogues/Zentab.sv.txt",
            "LANGUAGE.CODE {sv}\nLANGUAGE.NAME {Svenska & mer}\nF1.COMMAND1.TEXT {&Läs}\n");
    f.Write("catalogues/notes.txt", "no catalogue\n");
    f.Open();
    const auto languages = f.Find<QMenu>("m_language")->actions();
    QStringList names;
    for (const QAction* const action : languages) names += action->text();
    QCOMPARE(names.mid(2).join('|'), QStringLiteral("Deutsch|English|Svenska && mer|简体中文"));
    Language("m_lang_Zentab.sv")->trigger();
    QCOMPARE(f.Find<QAbstractButton>("Command1")->text(), QStringLiteral("&Läs"));
    QCOMPARE(f.Find<QAbstractButton>("Command2")->text(), QStringLiteral("Re&move"));
    QVERIFY(QFile::remove(f.Path("catalogues/Zentab.sv.txt")));
    f.Open();
    QVERIFY(Language("m_langinstalled")->isChecked());
    QCOMPARE(f.Find<QAbstractButton>("Command1")->text(), QStringLiteral("&Read"));
  }

  void QtSpeaksTheLanguageOfTheCatalogues() {
    const auto said = [] {
      return QCoreApplication::translate("QPlatformTheme", "Cancel") + ' ' +
             QKeySequence(Qt::CTRL | Qt::Key_A).toString(QKeySequence::NativeText);
    };
    WindowFixture& f = Start();
    QCOMPARE(said(), QStringLiteral("Cancel Ctrl+A"));
    Language("m_lang_Zentab.de")->trigger();
    QCOMPARE(said(), QStringLiteral("Abbrechen Strg+A"));
    Language("m_lang_Zentab.zh_CN")->trigger();
    QCOMPARE(said(), QStringLiteral("取消 Ctrl+A"));
    // What the site has counts here, too; a code that is none counts for none.
    for (const auto& [code, text] :
         {std::pair("de", "Abbrechen Strg+A"), {"../de", "Cancel Ctrl+A"}}) {
      f.Write("Zentab2.txt", QByteArray("LANGUAGE.CODE {") + code + "}\n");
      f.Open();
      QCOMPARE(said(), QString::fromUtf8(text));
    }
    made_.reset();
    QCOMPARE(said(), QStringLiteral("Cancel Ctrl+A"));
  }
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::LanguagesTest)
#include "languages_test.moc"
