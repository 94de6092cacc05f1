#include "Guard.h"
#include "Look.h"

#include <gtest/gtest.h>

#include <QtGlobal>

#include <clocale>
#include <cstdio>

int main(int argc, char** argv) {
  // Test discovery runs this program at build time, where there is no display.
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  setvbuf(stdout, nullptr, _IOLBF, 0);
  testing::InitGoogleTest(&argc, argv);
  hearthbook::GuardedApplication application(argc, argv);
  hearthbook::applyLook(application);
  return RUN_ALL_TESTS();
}
