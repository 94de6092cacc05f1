#include "HelpPlace.h"

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

// A work form is 790 by 522 standard pixels, the window 301 by 124.

TEST(HelpPlace, InAnOldScreenTheFormStandsAboveTheWindowAlmostAsDrawn) {
  const HelpPlace place = helpPlace(1024, 700);

  EXPECT_NEAR(place.scale, 700.0 / 666, 0.001);
  EXPECT_EQ(place.left, 0);
  EXPECT_NEAR(place.bottom, 144 * place.scale, 0.001);
}

TEST(HelpPlace, InAWideScreenTheFormStandsBesideTheWindow) {
  const HelpPlace place = helpPlace(1920, 1010);

  EXPECT_NEAR(place.scale, 1920.0 / 1091, 0.001);
  EXPECT_NEAR(place.left, 301 * place.scale, 0.001);
  EXPECT_EQ(place.bottom, 0);
}

TEST(HelpPlace, InASmallFrameTheWordsStayReadable) {
  const HelpPlace place = helpPlace(640, 420);

  EXPECT_EQ(place.scale, 1);
  EXPECT_EQ(place.bottom, 144);
}

} // namespace
} // namespace hearthbook
