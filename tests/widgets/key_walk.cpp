// Presses keys at random in the editor's window, clicks here and there, and answers its questions
// one way or the other: nothing may end the program, and the list always shows the file's entries.
//   key_walk [KEYS [SEEDS [FIRST]]]   1500 keys for each of 2 seeds from 1 on, unless given
// The seed is told before its keys; the same seed presses the same keys.

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <random>

#include "support/listed.h"
#include "widgets/window_fixture.h"

namespace zentab::app {
namespace {

const QByteArray kLibrary =
    "{\"SI 51\"\t(1.5;10)(2;4.25)(3;2) 001}\r\n"
    "{\"U> ms\"\t(100;500)(110;250) 112}\r\n"
    "{\"Empty\"\t 000}\r\n"
    "{\"SI 67\"\t(1.2;20)(2;8.25)(3;-2) 000}\r\n";

const QByteArray kCatalogue =
    "F1.CHECK1.TEXT {A&bs}\nTIME.MS.TEXT {m&S}\nF1.COMMAND8.TEXT {E&xport}\n"
    "F1.COMMAND9.TEXT {Cl&ear}\nF1.COMMAND6.TEXT {&GRH}\nF1.INSTRUMENT3.TEXT {None}\n"
    "DIFF.TYPE {-}\nFILTER.TYPE {-}\nVALUE.MEAN.OVER {-}\n";

const char* const kClipboards[] = {"", "5", "1.5\t20\r\n", "1\t2\r\n3\t4\r\n5\t6\r\n", "x\n\ny"};

constexpr int kWalking[] = {Qt::Key_Up,    Qt::Key_Down,   Qt::Key_Left,   Qt::Key_Right,
                            Qt::Key_Home,  Qt::Key_End,    Qt::Key_PageUp, Qt::Key_PageDown,
                            Qt::Key_Enter, Qt::Key_Return, Qt::Key_Tab,    Qt::Key_Backtab,
                            Qt::Key_Space, Qt::Key_Escape, Qt::Key_Delete, Qt::Key_Backspace,
                            Qt::Key_F2,    Qt::Key_Return, Qt::Key_Down,   Qt::Key_Tab};

class Walk {
 public:
  explicit Walk(unsigned seed) : fixture_(kLibrary), random_(seed) {
    fixture_.Write("Zentab.txt", kCatalogue);
    fixture_.Write("other.dat", "{\"SI 51\"\t(5;5)(6;4) 000}\n{\"Y \xDC\"\t 1}\n");
    fixture_.Write("data/a.grh", "@A Jan 1 2024 1\r\n1\r\n1 2 3 4 0 0 0\r\n0 0\r\n");
    Reopen();
    LeaveDialog();
  }

  void Run(int keys) {
    for (int key = 0; key < keys; ++key) {
      if (!fixture_.window->isVisible()) Reopen();
      fixture_.dialogs.answer = Chance(2);
      fixture_.dialogs.file =
          Chance(3) ? QString() : fixture_.Path(Chance(2) ? "other.dat" : "data/a.grh");
      if (Chance(20)) QGuiApplication::clipboard()->setText(QLatin1String(kClipboards[Below(5)]));
      const bool blocked = QApplication::activePopupWidget() != nullptr ||
                           QApplication::activeModalWidget() != nullptr;
      if (Chance(50) && !blocked) {
        const auto commands = fixture_.window->findChildren<QAction*>(QRegularExpression("^m_"));
        commands[Below(static_cast<int>(commands.size()))]->trigger();
      } else if (Chance(8)) {
        Click();
      } else {
        Press();
      }
      QCoreApplication::processEvents();
      if (Chance(25)) Check();
    }
  }

 private:
  [[nodiscard]] int Below(int bound) {
    return std::uniform_int_distribution(0, bound - 1)(random_);
  }
  [[nodiscard]] bool Chance(int oneIn) { return Below(oneIn) == 0; }

  void Reopen() {
    fixture_.Open();
    fixture_.Activate();
  }

  // Where the keys of a user would go.
  [[nodiscard]] QWidget* InFront() const {
    if (QWidget* const menu = QApplication::activePopupWidget()) return menu;
    if (QWidget* const focus = QApplication::focusWidget()) return focus;
    QWidget* const dialog = QApplication::activeModalWidget();
    QWidget* const top = dialog != nullptr ? dialog : fixture_.window.get();
    return top->focusWidget() != nullptr ? top->focusWidget() : top;
  }

  void Press() {
    QWidget* const target = InFront();

    switch (Below(6)) {
      case 0:
        QTest::keyClick(target, "0123456789.,;-eSIUx %\"("[Below(23)]);
        break;
      case 1:
        QTest::keyClick(target, "acvxzyfrsnlo0q"[Below(14)], Qt::ControlModifier);
        break;
      case 2:
        QTest::keyClick(target, static_cast<char>('a' + Below(26)), Qt::AltModifier);
        break;
      default: {
        const auto key = static_cast<Qt::Key>(kWalking[Below(std::size(kWalking))]);
        constexpr Qt::KeyboardModifier kModifiers[] = {Qt::ShiftModifier, Qt::ControlModifier};
        QTest::keyClick(target, key, Chance(4) ? kModifiers[Below(2)] : Qt::NoModifier);
      }
    }
  }

  void Click() {
    QWidget* const top = QApplication::activeModalWidget() != nullptr
                             ? QApplication::activeModalWidget()
                             : fixture_.window.get();
    QWidget* const hit = top->childAt(Below(top->width()), Below(top->height()));
    if (hit == nullptr || !hit->isEnabled()) return;
    const QPoint place(Below(hit->width()), Below(hit->height()));
    const auto modifier = Chance(4) ? Qt::ShiftModifier : Qt::NoModifier;
    if (Chance(3)) {
      QTest::mouseDClick(hit, Qt::LeftButton, modifier, place);
    } else {
      QTest::mouseClick(hit, Qt::LeftButton, modifier, place);
    }
  }

  // A dialog that is waited for has to be left by itself.
  void LeaveDialog() {
    // Another one may come up from here.
    QTimer::singleShot(1, &context_, [this] { LeaveDialog(); });
    QWidget* const dialog = QApplication::activeModalWidget();
    if (dialog == nullptr) return;

    for (int key = Below(12); key > 0 && QApplication::activeModalWidget() == dialog; --key) {
      if (Chance(3)) {
        Click();
      } else {
        Press();
      }
    }
    if (QApplication::activeModalWidget() == dialog) dialog->close();
  }

  void Check() const {
    // A name with a quote is shown as it was typed, and reads shorter.
    const std::size_t shown = fixture_.session.listing.names.size();
    // Behind a dialog that copies entries into its own file the list waits.
    const auto file = ActiveTableFile(platform::SystemFiles(), PlaceOf(fixture_.session));
    if (QApplication::activeModalWidget() == nullptr && shown != test::Listed(file).names.size()) {
      qFatal("the list shows other entries than the file has");
    }
    if (fixture_.window->grab().isNull()) qFatal("the window cannot be drawn");
  }

  WindowFixture fixture_;
  std::mt19937 random_;
  QObject context_;
};

}  // namespace
}  // namespace zentab::app

int main(int argc, char* argv[]) {
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  const auto argument = [&](int place, int otherwise) {
    return argc > place ? static_cast<int>(std::strtol(argv[place], nullptr, 10)) : otherwise;
  };
  const int keys = argument(1, 1500);
  const int seeds = argument(2, 2);
  const int first = argument(3, 1);
  for (int seed = first; seed < first + seeds; ++seed) {
    std::printf("seed %d: %d keys\n", seed, keys);
    std::fflush(stdout);
    zentab::app::Walk(static_cast<unsigned>(seed)).Run(keys);
  }
  return 0;
}
