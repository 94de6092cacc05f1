#include "SlideShow.h"

#include <gtest/gtest.h>

namespace hearthbook::test {

TEST(SlideShow, RestsWithTwoSecondsAtFirst) {
  const SlideShow show;
  EXPECT_FALSE(show.runs);
  EXPECT_EQ(show.interval(), 2000);
  EXPECT_EQ(show.label(), "2 Sec.");
  EXPECT_EQ(show.caption(), "Slide");
}

TEST(SlideShow, TheIntervalIsFromOneToTenWholeSeconds) {
  SlideShow show;
  for (int seconds = 1; seconds <= 10; ++seconds) {
    show.setSeconds(seconds);
    EXPECT_EQ(show.interval(), seconds * 1000);
    EXPECT_EQ(show.label(), std::to_string(seconds) + " Sec.");
  }
  show.setSeconds(0);
  EXPECT_EQ(show.seconds, 1);
  show.setSeconds(11);
  EXPECT_EQ(show.seconds, 10);
}

TEST(SlideShow, TheSwitchSaysWhatItWouldDo) {
  SlideShow show;
  show.runs = true;
  EXPECT_EQ(show.caption(), "Stop");
  show.runs = false;
  EXPECT_EQ(show.caption(), "Slide");
}

} // namespace hearthbook::test
