#include "FakeScreenSaver.h"
#include "ScreenAwake.h"
#include "ZoomFixture.h"

#include <optional>

namespace hearthbook::test {

namespace {

/// On a session bus of the test's own, which `dbus-run-session` gives it: that of whoever runs
/// the tests is left alone.
class SlideShowAwake : public ZoomFixture {
protected:
  void SetUp() override {
    if (!qEnvironmentVariableIsSet("HEARTHBOOK_OWN_BUS"))
      GTEST_SKIP() << "run it by ctest, or as HEARTHBOOK_OWN_BUS=1 dbus-run-session -- PROGRAM";
    saver_.emplace();
  }
  void expectAwake() {
    waitUntil([&] { return saver_->isKeptAwake(); });
  }
  void expectAsleep() {
    waitUntil([&] { return !saver_->isKeptAwake(); });
  }

  std::optional<FakeScreenSaver> saver_;
};

} // namespace

TEST_F(SlideShowAwake, TheScreenStaysAwakeForAsLongAsTheShowRuns) {
  const auto& zoom = openZoomOf(2);
  EXPECT_EQ(saver_->given(), 0U);
  press(zoom, "Check1");
  expectAwake();
  EXPECT_EQ(saver_->program(), toQString("Hearthbook"));
  EXPECT_EQ(saver_->reason(), toQString("Slide show"));
  press(zoom, "Check1");
  expectAsleep();
  EXPECT_EQ(saver_->given(), 1U);
}

TEST_F(SlideShowAwake, AViewThatIsClosedInTheMiddleOfAShowLetsTheScreenSleep) {
  const auto& zoom = openZoomOf(2);
  press(zoom, "Check1");
  expectAwake();
  FormControls::press(zoom, "Command1");
  expectAsleep();
}

TEST_F(SlideShowAwake, AShowThatEndsBeforeTheDesktopHasAnsweredLeavesNothingBehind) {
  {
    ScreenAwake awake("Slide show");
    awake.keep(true);
    awake.keep(false);
    awake.keep(true);
  }
  waitUntil([&] { return saver_->given() == 2; });
  expectAsleep();
}

TEST_F(SlideShowAwake, WithoutTheServiceTheShowRunsAllTheSame) {
  saver_.reset();
  const auto& zoom = openZoomOf(2);
  press(zoom, "Check1");
  EXPECT_TRUE(timer(zoom).isActive());
  press(zoom, "Check1");
  EXPECT_FALSE(timer(zoom).isActive());
}

} // namespace hearthbook::test
