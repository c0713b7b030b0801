#include <QMainWindow>

#include "end_after_paint.h"

int main(int argc, char* argv[]) {
  QApplication application(argc, argv);
  QMainWindow window;
  window.resize(1240, 820);
  [[maybe_unused]] const EndAfterPaint end(window);
  window.show();
  return QApplication::exec();
}
