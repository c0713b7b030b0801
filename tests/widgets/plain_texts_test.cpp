#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QStandardItemModel>
#include <QTest>
#include <QTextDocumentFragment>
#include <QTimer>
#include <QToolTip>

#include "app/widgets/qt_user_dialogs.h"
#include "app/widgets/testset/import_progress.h"
#include "support/memory_use.h"
#include "texts/key_table.h"
#include "widgets/window_fixture.h"

namespace zentab::app {
namespace {

const QString kMarkup = QStringLiteral("U<I> <b>x</b> &amp; ");

class PlainTextsTest : public QObject {
  Q_OBJECT

 private:
  static QString ShownTip(QWidget& widget, const QPoint& place) {
    QHelpEvent event(QEvent::ToolTip, place, widget.mapToGlobal(place));
    QCoreApplication::sendEvent(&widget, &event);
    QString shown = QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText();
    QToolTip::showText({}, {});
    return shown;
  }
  // The number of texts with markup that the open windows show, all of them as they stand.
  static int MarkupShown() {
    int shown = 0;
    QWidgetList widgets = QApplication::allWidgets();
    erase_if(widgets, [](const QWidget* widget) {
      return widget->inherits("QTipLabel") || !widget->window()->isVisible();
    });
    for (QWidget* const widget : widgets) {
      const auto* const label = qobject_cast<QLabel*>(widget);
      if (label != nullptr && label->text().contains("U<I>") && label->isVisible()) {
        if (label->textFormat() != Qt::PlainText) qFatal("%s", qPrintable(label->text()));
        ++shown;
      }
      const QString tip = widget->toolTip();
      if (tip.isEmpty()) continue;
      if (ShownTip(*widget, widget->rect().center()) != tip) qFatal("%s", qPrintable(tip));
      shown += tip.contains("U<I>") ? 1 : 0;
    }
    return shown;
  }

 private Q_SLOTS:
  void MarkupIsShownAsItStandsInAllWindows() {
    WindowFixture f(("{\"" + kMarkup + "\"\t(1;2)(2;3) 001}\r\n").toUtf8());
    // Who reads the image, even if only to lay out a label, needs as much memory.
    constexpr qint64 kImageSize = 256 << 20;
    QFile image(f.Path("image.png"));
    QVERIFY(image.open(QIODevice::WriteOnly) && image.resize(kImageSize));
    [[maybe_unused]] const qint64 memory = test::MostMemory();
    const QString markup = kMarkup + "<img src=\"" + image.fileName() + "\"> ";
    QByteArray catalogue;
    for (const texts::KeyRow& row : texts::KeyTable()) {
      if (!row.key.empty()) catalogue += row.key.c_str() + (" {" + markup + "}\r\n").toUtf8();
    }
    f.Write("Zentab.txt", catalogue);
    f.window.reset();
    f.Open();
    f.Click("Command1");
    f.Click("Command3");
    QTest::qWait(1);
    QVERIFY(MarkupShown() > 20);

    QtUserDialogs dialogs(f.session);
    dialogs.SetParent(f.window.get());
    const texts::MessageText message{markup.toStdString(), markup.toStdString()};
    int shown = 0;
    const auto inDialog = [&](int least, const std::function<void()>& open) {
      const int behind = MarkupShown();
      shown = -1;
      QTimer look;
      connect(&look, &QTimer::timeout, this, [&] {
        QWidget* const dialog = QApplication::activeModalWidget();
        if (dialog == nullptr || shown >= 0) return;
        shown = MarkupShown();
        dialog->close();
      });
      look.start(50);
      open();
      QTRY_VERIFY(shown >= 0);
      QVERIFY2(shown >= behind + least, qPrintable(QString::number(shown - behind)));
    };
    inDialog(1, [&] { static_cast<void>(dialogs.Confirm(message)); });
    inDialog(1, [&] { dialogs.ReportError(message); });
    inDialog(0, [&] { static_cast<void>(dialogs.ChooseTargetFile()); });
    f.dialogs.file = f.Path("relayTables.dat");
    inDialog(3, [&] { f.Find<QAction>("m_imp")->trigger(); });
    inDialog(3, [&] { f.Find<QAction>("m_exp")->trigger(); });
    inDialog(1, [&] {
      ImportProgress progress(f.window.get(), f.session.texts.program);
      QTest::qWait(340);
      static_cast<void>(progress.Report(0.5));
      QTest::qWait(60);
    });
#ifndef __SANITIZE_ADDRESS__  // which takes memory of its own
    QVERIFY2(test::MostMemory() - memory < kImageSize / 2, "the image was read");
#endif
  }

  void AnItemsTooltipIsPlain() {
    const WindowFixture f("");
    QStandardItemModel model(2, 1);
    model.setData(model.index(0, 0), kMarkup + "1", Qt::ToolTipRole);
    QListView list;
    list.setModel(&model);
    list.setToolTip(kMarkup + "2");
    list.show();
    const auto tip = [&](int row) {
      return ShownTip(*list.viewport(), list.visualRect(model.index(row, 0)).center());
    };
    QCOMPARE(tip(0), kMarkup + "1");
    QCOMPARE(ShownTip(list, {1, 1}), kMarkup + "2");
  }
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::PlainTextsTest)
#include "plain_texts_test.moc"
