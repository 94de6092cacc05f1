#include "FirstPaint.h"

// A program with an empty main window, up to its first paint.
int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const hearthbook::bench::EndAtFirstPaint end;
  QMainWindow window;
  window.showMaximized();
  return QApplication::exec();
}
