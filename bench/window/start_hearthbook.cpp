#include "EndAtFirstPaint.h"
#include "FormWindow.h"
#include "Guard.h"
#include "Look.h"
#include "Program.h"

// The program on the album folder that it is told, up to its first paint.
int main(int argc, char** argv) {
  hearthbook::EarlyStart early{hearthbook::ApplicationFolder(argv[1])};
  hearthbook::GuardedApplication application(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("Hearthbook"));
  hearthbook::applyLook(application);
  hearthbook::announceFormWindows();
  const hearthbook::bench::EndAtFirstPaint end;
  return hearthbook::runHearthbook(early, {});
}
