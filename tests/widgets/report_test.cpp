#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QImage>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QProcess>
#include <QProcessEnvironment>
#include <QPushButton>
#include <QRadioButton>
#include <QRawFont>
#include <QTest>
#include <QXmlStreamReader>

#include "app/widgets/report/chart_picture.h"
#include "app/widgets/report/report_controller.h"
#include "app/widgets/report/report_dialog.h"
#include "widgets/once_open.h"
#include "widgets/pdf_file.h"
#include "widgets/window_test.h"

namespace zentab::app {
namespace {

const QByteArray kLibrary =
    "{\"Feeder 12\"\t(1.1;31)(1.5;12)(2;6.5)(5;2)(20;0.9) 001}\r\n"
    "{\"\xC3\x9C 27 \xE5\x8F\x98\xE7\x94\xB5\xE7\xAB\x99\"\t"
    "(100;500)(110;450)(120;400)(130;370)(140;340)(160;300)(180;270)(200;250) 110}\r\n"
    "{\"Empty\"\t 000}\r\n";

// At which the program itself is started, which has a scale of its own.
constexpr double kOnce = 1;
constexpr double kScale = 1.5;  // of the program that is started

// Runs at several scales of the screen, which must not make a difference to anything on paper.
class ReportTest : public WindowTest {
  Q_OBJECT

 private:
  WindowFixture& Start() {
    made_ = std::make_unique<WindowFixture>(kLibrary);
    made_->Click("Command1");
    return *made_;
  }
  QString Save(const QString& name) const {
    made_->dialogs.file = made_->Path(name);
    made_->Find<QAction>("m_savechart")->trigger();
    return made_->dialogs.file;
  }
  // Runs the editor in the fixture's folder, without a display or with one: its exit code and what
  // it says; nothing when all went well.
  [[nodiscard]] QString Run(const QStringList& arguments, const QString& display = {}) const {
    QProcess process;
    QProcessEnvironment environment;
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::number(kScale));
    environment.insert(QStringLiteral("ZENTAB_SETTINGS_DIR"), made_->Path(QString()));
    environment.insert(QStringLiteral("TMPDIR"), made_->Path(QString()));
    if (!display.isEmpty()) environment.insert(QStringLiteral("QT_QPA_PLATFORM"), display);
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(made_->Path(QString()));
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral(PROGRAM), arguments);
    if (!process.waitForFinished()) return QStringLiteral("it hangs");
    const QString said = QString::fromUtf8(process.readAll());
    const int exit = process.exitCode();
    return exit == 0 && said.isEmpty() ? said : QString::number(exit) + ": " + said;
  }
  // The parts of an SVG picture, each with its place.
  static QStringList Drawn(const QString& svg) {
    return svg.section(QLatin1String("</defs>"), 1).split(QLatin1String("</g>"));
  }
  void InDialog(const std::function<void(ReportDialog&)>& work) {
    bool ran = false;
    const auto always = [](const ReportDialog&) { return true; };
    const auto visit = OnceOpen<ReportDialog>(always, [&](ReportDialog& dialog) {
      work(dialog);
      ran = true;
      dialog.close();
    });
    made_->Find<QAction>("m_print")->trigger();
    QVERIFY(ran);
  }
  // Whether a file is of that title and paper.
  static bool IsOn(const QString& pdf, const char* facts) {
    static const auto kLines = QRegularExpression::DotMatchesEverythingOption;
    return Said("pdfinfo", {QStringLiteral("-")}, pdf).contains(QRegularExpression(facts, kLines));
  }
  static void Press(const ReportDialog& dialog, const char* button) {
    dialog.findChild<QPushButton*>(QLatin1String(button))->click();
  }

 private Q_SLOTS:
  void cleanup() { made_.reset(); }

  void PicturesAreAsLargeAsTheyAreOnAnyScreen() {
    WindowFixture& f = Start();
    f.dialogs.picture = PictureSize{{80.0, 50.0}, 254};
    const QImage pixels(Save(QStringLiteral("chart.png")));
    QCOMPARE(pixels.size(), QSize(800, 500));
    QCOMPARE(QPoint(pixels.dotsPerMeterX(), pixels.dotsPerMeterY()), QPoint(10000, 10000));
    QVERIFY(IsAsInPictures(pixels, QStringLiteral("chart")));
    f.dialogs.picture = PictureSize();
    Save(QStringLiteral("chart.svg"));
    const QString vectors = QString::fromUtf8(f.Bytes(QStringLiteral("chart.svg")));
    QVERIFY(vectors.contains(QLatin1String("width=\"160mm\" height=\"120mm\"")));
    QVERIFY(vectors.contains(QLatin1String(">Trip time (s)<")));
    QVERIFY(!vectors.contains(QLatin1String("<image")));
    const QString font = vectors.section(QLatin1String("base64,"), 1).section(')', 0, 0);
    const QRawFont embedded(QByteArray::fromBase64(font.toLatin1()), 12);
    QVERIFY(embedded.supportsCharacter('T'));
    QVERIFY(!embedded.supportsCharacter('Q'));
    QVERIFY(vectors.contains(QLatin1String("U+54,")) && !vectors.contains(QLatin1String("U+51,")));
    QCOMPARE(vectors.count(QLatin1String("<circle")) + vectors.count(QLatin1String("<ellipse")), 5);
    const QString pdf = Save(QStringLiteral("chart.pdf"));
    QVERIFY(!kReadsPdf || TextOf(pdf).contains(QStringLiteral("Load level (× pickup)")));
    CheckFonts(pdf);
    // The program without a window, at another scale, puts everything in the same places.
    QCOMPARE(Run({"--chart", "relayTables.dat", "Feeder 12", "-o", "own.svg"}), QString());
    // What is drawn in the window besides comes on top of it.
    const QStringList shown = Drawn(vectors);
    for (const QString& part : Drawn(QString::fromUtf8(f.Bytes(QStringLiteral("own.svg"))))) {
      QVERIFY2(shown.contains(part), qPrintable(part));
    }
    // Further curves are lines as well.
    f.Find<QAction>("m_cmpentry")->trigger();
    Save(QStringLiteral("both.svg"));
    const QStringList both = Drawn(QString::fromUtf8(f.Bytes(QStringLiteral("both.svg"))));
    QVERIFY(both.size() > shown.size() && !both.join(QString()).contains("<image"));
    // Resolutions of pixels, widths of vectors: what was chosen the last time.
    QCOMPARE(f.dialogs.offered, (std::vector<double>{300, 80, 160, 160}));
  }

  void TheWindowIsStartedByItsArguments() {
    const WindowFixture& f = Start();
    if (f.window->devicePixelRatioF() != kOnce) return;
    const QString display = QStringLiteral("offscreen");
#ifndef Q_OS_WIN  // where it is a box that waits for somebody
    const QString help = Run({"--help"}, display);
    QVERIFY2(help.startsWith("0: ") && help.contains("--screenshot <file>"), qPrintable(help));
#endif
    const QString two = Run({"a.dat", "b.dat"}, display);
    QVERIFY2(two.startsWith("2: ") && two.endsWith("Zentab: one table file at most\n"),
             qPrintable(two));
    const QString drawn = Run({"--screenshot", "window.png", "relayTables.dat"}, display);
    QVERIFY2(drawn.isEmpty() || drawn.startsWith("0: "), qPrintable(drawn));
    QCOMPARE(QImage(f.Path("window.png")).size(), QSize(1240, 820) * kScale);
    QVERIFY(Run({"--screenshot", "no/window.png"}, display).startsWith("1: "));
    const QString demo = Run({"--demo", "--screenshot", "demo.png"}, display);
    QVERIFY2(demo.contains("The demo installation is " + f.Path("zentab-demo-")), qPrintable(demo));
    QVERIFY(QImage(f.Path("demo.png")) != QImage(f.Path("window.png")));
  }

  void SignsOfTheMarkupMayStandInAName() {
    WindowFixture& f = Start();
    f.Write(QStringLiteral("signs.dat"), "{\"A & <B>\"\t(1;2)(3;4) 001}\r\n");
    QCOMPARE(Run({"--chart", "signs.dat", "#0", "-o", "signs.svg"}), QString());
    QXmlStreamReader svg(f.Bytes(QStringLiteral("signs.svg")));
    QString title;
    while (!svg.atEnd()) {
      svg.readNext();
      if (svg.isStartElement() && svg.name() == QLatin1String("title")) {
        title = svg.readElementText();
      }
    }
    QVERIFY2(!svg.hasError(), qPrintable(svg.errorString()));
    QCOMPARE(title, QStringLiteral("A & <B>"));
  }

  void ReportsAreWrittenWithoutAWindow() {
    WindowFixture& f = Start();
    if (f.window->devicePixelRatioF() != kOnce) return;
    f.Write(QStringLiteral("former.pdf"), "former");
    f.Write(QStringLiteral("own.txt"), "REPORT.PAGE.OF {Blatt %1}\nF1.INSTRUMENT1.TEXT {S&trom}");
    for (const QStringList& row : RowsIn("windowless")) {
      const QString wanted = row[1];
      const QString said = Run(QString(row[0]).replace("\\n", "\n").split('|'));
      const QString all = row[0] + ": " + said;
      QVERIFY2(wanted.isEmpty() == said.isEmpty(), qPrintable(all));
      QVERIFY2(wanted.isEmpty() || said.startsWith(wanted.left(2) + " Zentab: "), qPrintable(all));
      QVERIFY2(wanted.isEmpty() || said.contains(wanted.mid(3)), qPrintable(all));
    }
    const QString help = Run({"--chart", "--help"});
    QVERIFY2(help.startsWith("0: Charts") && help.contains("=300 Needs"), qPrintable(help));
    QCOMPARE(f.Bytes(), kLibrary);
    QCOMPARE(f.Bytes(QStringLiteral("former.pdf")), QByteArray("former"));
    QCOMPARE(QImage(f.Path(QStringLiteral("c.png"))).size(), QSize(200, 100));
    if (!kReadsPdf) return;
    const QString text = TextOf(f.Path(QStringLiteral("own.pdf")));
    for (const char* const part : {"Bay", "Blatt 3", "Strom", "Feeder 12", "feeder 12"}) {
      QVERIFY2(text.contains(QLatin1String(part)), qPrintable(part + text));
    }
    QVERIFY(!text.contains(QLatin1String("Sixth")));
    QVERIFY(text.indexOf(QLatin1String("27")) < text.indexOf(QLatin1String("Feeder 12")));
    const QString assessed = TextOf(f.Path(QStringLiteral("own2.pdf")));
    QVERIFY2(assessed.contains(QLatin1String("Limit: 5 % of the nominal time")),
             qPrintable(assessed));
    QVERIFY(IsOn(f.Path(QStringLiteral("own.pdf")), "27.*595 x 842 pts"));
    QVERIFY(IsOn(f.Path(QStringLiteral("own2.pdf")), "Feeder 12\\n.*612 x 792 pts"));
  }

  void PaperIsWhiteWhateverTheWindowIs() {
    WindowFixture& f = Start();
    auto* const chart = f.Find<editor::CurveChart>("MSChart1");
    const QByteArray light = ChartPicture(*chart, PictureFormat::Svg, {}, {});
    QPalette dark(QColor(0x20, 0x22, 0x25));
    dark.setColor(QPalette::Base, QColor(0x14, 0x15, 0x16));
    f.window->setPalette(dark);
    const QColor screen = chart->palette().color(QPalette::Base);
    const QByteArray same = ChartPicture(*chart, PictureFormat::Svg, {}, {});
    QCOMPARE(chart->palette().color(QPalette::Base), screen);
    QCOMPARE(screen, QColor(0x14, 0x15, 0x16));
    QCOMPARE(same, light);
    QVERIFY(light.contains("fill=\"#ffffff\""));
  }

  void TheClipboardGetsPixelsAndVectors() {
    WindowFixture& f = Start();
    f.Find<QAction>("m_copychart")->trigger();
    const QMimeData* const data = QApplication::clipboard()->mimeData();
    QVERIFY(qvariant_cast<QImage>(data->imageData()).width() > 1000);
    QVERIFY(data->data(QStringLiteral("image/svg+xml")).contains("<svg"));
    QVERIFY(data->data(QStringLiteral("application/pdf")).startsWith("%PDF"));
    QCOMPARE(SaidBelow().toStdString(), f.session.texts.output.chartCopied);
    QVERIFY(QGuiApplication::overrideCursor() == nullptr);
    // Without a curve there is nothing to copy, and it says so.
    f.Select(2);
    f.Click("Command1");
    f.Find<QAction>("m_copychart")->trigger();
    QCOMPARE(SaidBelow().toStdString(), f.session.texts.output.noCurve);
  }

  void AWriteThatFailsLeavesTheFormerFile() {
    WindowFixture& f = Start();
    f.Write(QStringLiteral("chart.svg"), "old");
    f.files.bytesThatFit = 1000;
    Save(QStringLiteral("chart.svg"));
    QCOMPARE(f.Bytes(QStringLiteral("chart.svg")), QByteArray("old"));
    QVERIFY(SaidBelow().startsWith(f.session.texts.output.notWritten.c_str()));
    // Who breaks off leaves it as well, and nothing is said.
    f.files.bytesThatFit = test::FailingFileLayer::kNever;
    f.dialogs.picture.reset();
    Save(QStringLiteral("chart.svg"));
    f.dialogs.file.clear();
    f.Find<QAction>("m_savechart")->trigger();
    QCOMPARE(f.Bytes(QStringLiteral("chart.svg")) + SaidBelow().toUtf8(), QByteArray("old"));
    f.session.source->name = R"(a/b\c)" + std::string(80, 'x');
    Save(QStringLiteral("chart.bmp"));
    QCOMPARE(f.dialogs.asked.back(), "a_b_c" + std::string(75, 'x') + ".png");
    QCOMPARE(SaidBelow().toStdString(), f.session.texts.output.unknownFormat);
  }

  void EntriesBecomePagesBehindAListOfThem() {
    WindowFixture& f = Start();
    f.dialogs.file = f.Path(QStringLiteral("report.pdf"));
    const auto chooseAll = [](const ReportDialog& dialog) {
      dialog.findChild<QRadioButton*>(QStringLiteral("OptionEntries"))->setChecked(true);
      QVERIFY(!dialog.findChild<QPushButton*>(QStringLiteral("CommandSave"))->isEnabled());
      const auto& list = *dialog.findChild<QListView*>(QStringLiteral("ListEntries"));
      for (const int row : {2, 0, 1}) {
        list.selectionModel()->select(list.model()->index(row, 0), QItemSelectionModel::Select);
      }
    };
    InDialog([&](ReportDialog& dialog) {
      chooseAll(dialog);
      dialog.findChild<QPlainTextEdit*>()->setPlainText(QStringLiteral("Substation <b>7\n\nBay 3"));
      Press(dialog, "CommandSave");
    });
    QVERIFY(f.Bytes(QStringLiteral("report.pdf")).startsWith("%PDF-"));
    if (!kReadsPdf) return;
    const QStringList pages = TextOf(f.dialogs.file).split('\f');
    QVERIFY2(pages.size() == 5, qPrintable(SaidBelow()));
    QVERIFY2(pages[2].contains(QStringLiteral("Ü 27 变电站")), qPrintable(pages[2]));
    for (int page = 1; page <= 4; ++page) {
      QVERIFY(IsPageAsInPictures(f.dialogs.file, QStringLiteral("page-%1").arg(page), page));
    }
    CheckFonts(f.dialogs.file);
    CheckWords(f.dialogs.file);
    // The lines are there again after the next start, and the paper the next time.
    f.Open();
    int paper = -1;
    InDialog([&paper](ReportDialog& dialog) {
      QCOMPARE(dialog.findChild<QPlainTextEdit*>()->toPlainText(),
               QStringLiteral("Substation <b>7\nBay 3"));
      auto* const choice = dialog.findChild<QComboBox*>(QStringLiteral("ComboPaper"));
      paper = 1 - choice->currentIndex();
      choice->setCurrentIndex(paper);
      Press(dialog, "CommandSave");
    });
    InDialog([paper](ReportDialog& dialog) {
      QCOMPARE(dialog.findChild<QComboBox*>(QStringLiteral("ComboPaper"))->currentIndex(), paper);
    });
    // Some of the pages are printed; then an entry has become another.
    f.dialogs.printed = f.Path(QStringLiteral("printed.pdf"));
    f.dialogs.pages = {2, 9};
    InDialog([&](ReportDialog& dialog) { chooseAll(dialog), Press(dialog, "CommandPrint"); });
    const QStringList printed = TextOf(f.dialogs.printed).split('\f');
    QCOMPARE(printed.size(), 4);
    QVERIFY(printed[0].contains(QLatin1String("Page 2 of 4")));
    QVERIFY(IsOn(f.dialogs.printed, paper == 0 ? "Feeder 12.*595 x 842" : "Feeder 12.*612 x 792"));
    InDialog([&](ReportDialog& dialog) {
      chooseAll(dialog);
      f.Write("relayTables.dat", "{\"Other\"\t(1;2)(2;1) 001}\r\n");
      Press(dialog, "CommandSave");
    });
    QCOMPARE(SaidBelow().toStdString(), f.session.texts.program.entryChanged);
  }

  void TheGridsPageHasWhatWasAssessed() {
    if (!kReadsPdf) QSKIP("nobody reads PDF files here");
    WindowFixture& f = Start();
    f.dialogs.printed = f.Path(QStringLiteral("printed.pdf"));
    f.Find<QAction>("m_assess")->setChecked(true);
    for (const bool with : {true, false}) {
      for (int row = 6; !with && row <= 9; ++row) {
        f.session.table.grid.SetCell(row, 1, std::to_string(row + 20));
        f.session.table.grid.SetCell(row, 2, "0.8");
      }
      InDialog([with](ReportDialog& dialog) {
        auto* const box = dialog.findChild<QCheckBox*>(QStringLiteral("CheckAssessment"));
        QVERIFY(box->isEnabled());
        if (box->isChecked() != with) box->click();
        Press(dialog, "CommandPrint");
        QVERIFY(!dialog.isVisible());
      });
      QVERIFY(IsPageAsInPictures(f.dialogs.printed, with ? "page-assessed" : "page-grid"));
    }
    QVERIFY(QFile::remove(f.dialogs.printed));
    // It stays for those who choose no file and no printer.
    f.dialogs.answer = false;
    f.Find<QAction>("m_assess")->setChecked(false);
    InDialog([](ReportDialog& dialog) {
      QVERIFY(!dialog.findChild<QCheckBox*>()->isEnabled());
      dialog.findChild<QComboBox*>()->setCurrentIndex(1);
      for (const char* const button : {"CommandPreview", "CommandSave", "CommandPrint"}) {
        Press(dialog, button);
        QVERIFY2(dialog.isVisible(), button);
      }
    });
    QVERIFY(TextOf(f.dialogs.printed).contains(QLatin1String("Feeder 12")));
    QVERIFY(IsOn(f.dialogs.printed, "612 x 792"));
    // A preview of the page, as edited meanwhile.
    f.session.table.tableModified = true;
    f.Find<QAction>("m_preview")->trigger();
    QVERIFY(TextOf(f.dialogs.printed).contains(QLatin1String("Feeder 12 (edited, not stored)")));
    QCOMPARE(SaidBelow(), QString());
    f.dialogs.printed = f.Path(QStringLiteral("no/printed.pdf"));
    f.Find<QAction>("m_preview")->trigger();
    QCOMPARE(SaidBelow().toStdString(), f.session.texts.output.notPrinted);
  }

  void APageOfEachLanguageIsItsOwn() {
    if (!kReadsPdf) QSKIP("nobody reads PDF files here");
    WindowFixture& f = Start();
    f.dialogs.file = f.Path(QStringLiteral("page.pdf"));
    const std::pair<const char*, QStringList> rows[] = {
        {".de", {"Seite 1 von 1"}}, {".zh_CN", {"动作时间", "启动值", "页，共", "文件"}}};
    for (const auto& [language, texts] : rows) {
      f.OpenIn(QLatin1String(language));
      f.Click("Command1");
      f.Find<QAction>("m_assess")->setChecked(true);
      InDialog([](ReportDialog& dialog) { Press(dialog, "CommandSave"); });
      QVERIFY(IsPageAsInPictures(f.dialogs.file, QStringLiteral("page") + language));
      const QString shown = TextOf(f.dialogs.file);
      for (const QString& text : texts) QVERIFY2(shown.contains(text), qPrintable(shown));
      CheckFonts(f.dialogs.file);
      CheckWords(f.dialogs.file);
    }
  }

  // All rows with their deviations below many lines of the user's own.
  void AFullPageBecomesSmaller() {
    WindowFixture& f = Start();
    QByteArray points;
    for (int row = 1; row <= 26; ++row) {
      points += '(' + QByteArray::number(row + 0.5) + ';' + QByteArray::number(200.0 / row) + ')';
    }
    f.Write("relayTables.dat", "{\"Full\"\t" + points + " 001}\r\n");
    f.Open();
    f.Click("Command1");
    f.dialogs.file = f.Path(QStringLiteral("full.pdf"));
    for (const bool isAssessed : {false, true}) {
      f.Find<QAction>("m_assess")->setChecked(isAssessed);
      for (const char* const lines : {"", "1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n11\n12\n13\n14"}) {
        InDialog([=](ReportDialog& dialog) {
          dialog.findChild<QPlainTextEdit*>()->setPlainText(QLatin1String(lines));
          dialog.findChild<QComboBox*>()->setCurrentIndex(*lines == 0 ? 0 : 1);
          Press(dialog, "CommandSave");
        });
        CheckWords(f.dialogs.file);
        const QString name = QStringLiteral("page-full%1-%2").arg(isAssessed).arg(qstrlen(lines));
        QVERIFY(IsPageAsInPictures(f.dialogs.file, name));
      }
    }
  }

  void WithoutEntriesThereIsNoneToChoose() {
    WindowFixture& f = Start();
    f.Write("relayTables.dat", {});
    f.Open();
    f.session.table.grid.SetCell(1, 1, "1");
    InDialog([](ReportDialog& dialog) {
      QVERIFY(!dialog.findChild<QWidget*>(QStringLiteral("OptionEntries"))->isEnabled());
    });
  }
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::ReportTest)
#include "report_test.moc"
