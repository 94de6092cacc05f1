#include "EndAtFirstPaint.h"

#include <QScreen>

// A program with an empty main window, up to its first paint.
int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const hearthbook::bench::EndAtFirstPaint end;
  QMainWindow window;
  // As large as ours where no window manager makes it as large as the screen.
  window.resize(window.screen()->availableSize() * 4 / 5);
  window.showMaximized();
  return QApplication::exec();
}
