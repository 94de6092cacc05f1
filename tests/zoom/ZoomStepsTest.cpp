#include "ZoomSteps.h"

#include <gtest/gtest.h>

namespace hearthbook::test {

namespace {

/// A photo of so many pixels, fresh in the zoom view.
ZoomSteps fresh(double width, double height) {
  ZoomSteps steps;
  steps.show({width * twipsPerPixel, height * twipsPerPixel});
  return steps;
}

/// A photo that lies in the area at a size that no file gives.
ZoomSteps ofWidth(double width) {
  ZoomSteps steps;
  steps.photo = {0, 0, width, width / 2};
  return steps;
}

/// A landscape of 12 megapixels, magnified so often.
ZoomSteps landscape(int times) {
  ZoomSteps steps = fresh(4000, 3000);
  for (; times > 0; --times)
    steps.magnify();
  return steps;
}

void expectPhoto(const ZoomSteps& steps, TwipsRect place) {
  EXPECT_NEAR(steps.photo.left, place.left, 1e-6);
  EXPECT_NEAR(steps.photo.top, place.top, 1e-6);
  EXPECT_NEAR(steps.photo.width, place.width, 1e-6);
  EXPECT_NEAR(steps.photo.height, place.height, 1e-6);
}

} // namespace

TEST(ZoomSteps, ALandscapeFillsTheWidthOfTheBoxFromTheCorner) {
  expectPhoto(fresh(4000, 3000), {0, 0, 8285, 6213.75});
}

TEST(ZoomSteps, APortraitFillsTheHeightOfTheBox) {
  expectPhoto(fresh(3000, 4000), {0, 0, 5220, 6960});
}

TEST(ZoomSteps, APhotoThatIsTooLargeOneWayOnlyIsFittedToo) {
  expectPhoto(fresh(553, 100), {0, 0, 8285, 100 * 8285 / 553.0});
  expectPhoto(fresh(100, 465), {0, 0, 100 * 6960 / 465.0, 6960});
}

TEST(ZoomSteps, APhotoSmallerThanTheAreaKeepsItsOwnSize) {
  expectPhoto(fresh(300, 200), {0, 0, 4500, 3000});
  expectPhoto(fresh(552, 464), {0, 0, 8280, 6960}); // it just fits
  expectPhoto(fresh(1, 1), {0, 0, 15, 15});
}

TEST(ZoomSteps, ANearlySquareLandscapeStandsHigherThanTheArea) {
  EXPECT_NEAR(fresh(1100, 1000).photo.height, 8285 / 1.1, 1e-6);
  EXPECT_FALSE(fresh(1100, 1000).down.enabled);
}

TEST(ZoomSteps, AFreshPhotoHasNothingToScroll) {
  auto steps = landscape(2);
  ASSERT_TRUE(steps.across.enabled && steps.down.enabled);
  steps.show({60000, 45000});
  EXPECT_FALSE(steps.across.enabled);
  EXPECT_FALSE(steps.down.enabled);
  EXPECT_FALSE(steps.showsHand);
}

TEST(ZoomSteps, AFreshPhotoCanBeMagnifiedAndReducedWhateverTheLastOneCould) {
  auto steps = ofWidth(900);
  steps.reduce();
  steps.show({4500, 3000});
  EXPECT_TRUE(steps.canReduce);
  steps = ofWidth(30000);
  steps.magnify();
  steps.show({4500, 3000});
  EXPECT_TRUE(steps.canMagnify);
}

TEST(ZoomSteps, AStepIsOneAndAHalf) {
  auto steps = fresh(300, 200);
  EXPECT_TRUE(steps.magnify());
  expectPhoto(steps, {0, 0, 6750, 4500});
  EXPECT_TRUE(steps.reduce());
  expectPhoto(steps, {0, 0, 4500, 3000});
}

TEST(ZoomSteps, TheBarsOfASmallPhotoWakeWithTheStepThatMakesItLargerThanTheArea) {
  auto steps = fresh(300, 200); // 4500 by 3000 twips
  steps.magnify();              // 6750 by 4500
  EXPECT_FALSE(steps.across.enabled);
  EXPECT_FALSE(steps.down.enabled);
  EXPECT_FALSE(steps.showsHand);
  steps.magnify(); // 10125 by 6750
  EXPECT_TRUE(steps.across.enabled);
  EXPECT_FALSE(steps.down.enabled);
  EXPECT_TRUE(steps.showsHand);
  steps.magnify(); // 15187.5 by 10125
  EXPECT_TRUE(steps.down.enabled);
}

TEST(ZoomSteps, ABarReachesAsFarAsThePhotoGoesBeyondTheAreaAndTheOtherBar) {
  const auto steps = landscape(1); // 12427.5 by 9320.625
  EXPECT_NEAR(steps.across.maximum, 12427.5 - 8535 + 255, 1e-6);
  EXPECT_NEAR(steps.down.maximum, 9320.625 - 7215 + 255, 1e-6);
}

TEST(ZoomSteps, AWidthOf21844MagnifiesOnceMoreAndThenNoMore) {
  auto steps = ofWidth(21844);
  EXPECT_TRUE(steps.magnify());
  EXPECT_NEAR(steps.photo.width, 32766, 1e-6);
  EXPECT_TRUE(steps.canMagnify);
  const auto before = steps.photo;
  EXPECT_FALSE(steps.magnify());
  EXPECT_FALSE(steps.canMagnify);
  expectPhoto(steps, before);
}

TEST(ZoomSteps, AWidthOf21845DoesNotMagnify) {
  auto steps = ofWidth(21845);
  EXPECT_FALSE(steps.magnify());
  EXPECT_FALSE(steps.canMagnify);
}

TEST(ZoomSteps, AWidthOf1000IsNotReduced) {
  auto steps = ofWidth(1000);
  EXPECT_FALSE(steps.reduce());
  EXPECT_FALSE(steps.canReduce);
  expectPhoto(steps, {0, 0, 1000, 500});
  steps = ofWidth(1001);
  EXPECT_TRUE(steps.reduce());
  EXPECT_TRUE(steps.canReduce);
}

TEST(ZoomSteps, AStepTheOtherWayWakesTheCommandAgain) {
  auto steps = ofWidth(900);
  steps.reduce();
  steps.magnify();
  EXPECT_TRUE(steps.canReduce);
  steps = ofWidth(30000);
  steps.magnify();
  steps.reduce();
  EXPECT_TRUE(steps.canMagnify);
}

TEST(ZoomSteps, MagnifyingLeavesThePhotoWhereItWasAndReducingPutsItIntoTheCorner) {
  auto steps = landscape(2);
  steps.scrollAcross(1000);
  steps.scrollDown(700);
  steps.magnify();
  EXPECT_EQ(steps.photo.left, -1000);
  EXPECT_EQ(steps.photo.top, -700);
  steps.reduce();
  EXPECT_EQ(steps.photo.left, 0);
  EXPECT_EQ(steps.photo.top, 0);
}

TEST(ZoomSteps, AStepLeavesTheValuesOfTheBars) {
  auto steps = landscape(2);
  steps.scrollAcross(1000);
  steps.scrollDown(700);
  steps.magnify();
  EXPECT_EQ(steps.across.value, 1000);
  steps.reduce();
  EXPECT_EQ(steps.across.value, 1000);
  EXPECT_EQ(steps.down.value, 700);
}

TEST(ZoomSteps, ABarNeverStandsBehindItsEnd) {
  auto steps = landscape(2);
  steps.scrollAcross(1e6);
  EXPECT_EQ(steps.across.value, steps.across.maximum);
  EXPECT_EQ(steps.photo.left, -steps.across.maximum);
  steps.reduce();
  EXPECT_EQ(steps.across.value, steps.across.maximum);
}

TEST(ZoomSteps, ReducingKeepsTheHandOnThePhoto) {
  auto steps = landscape(1);
  steps.reduce();
  EXPECT_FALSE(steps.across.enabled);
  EXPECT_TRUE(steps.showsHand);
}

TEST(ZoomSteps, ADragMovesTheBarsTheWayOfTheMouseByAHundred) {
  auto steps = landscape(2);
  steps.scrollAcross(1000);
  steps.scrollDown(1000);
  steps.drag({500, 500}, {499, 501});
  EXPECT_EQ(steps.across.value, 900);
  EXPECT_EQ(steps.photo.left, -900);
  EXPECT_EQ(steps.down.value, 1100);
  EXPECT_EQ(steps.photo.top, -1100);
  steps.drag({500, 500}, {900, 500});
  EXPECT_EQ(steps.across.value, 1000);
  EXPECT_EQ(steps.down.value, 1100);
}

TEST(ZoomSteps, ADragStopsAHundredBeforeTheEndsOfABar) {
  auto steps = landscape(2);
  steps.scrollAcross(100);
  steps.drag({500, 0}, {400, 0});
  EXPECT_EQ(steps.across.value, 100);
  steps.scrollAcross(101);
  steps.drag({500, 0}, {400, 0});
  EXPECT_EQ(steps.across.value, 1);
  steps.scrollAcross(steps.across.maximum - 100);
  const double nearEnd = steps.across.value;
  steps.drag({500, 0}, {600, 0});
  EXPECT_EQ(steps.across.value, nearEnd);
}

TEST(ZoomSteps, ADragOfAPhotoThatFitsMovesNothing) {
  auto steps = fresh(4000, 3000);
  steps.across.value = 1000; // left from a photo before
  const auto before = steps;
  steps.drag({500, 500}, {600, 400});
  EXPECT_EQ(steps, before);
}

TEST(ZoomSteps, ABroughtPlaceLiesUnderThePoint) {
  auto steps = landscape(2);
  steps.bring({0.5, 0.5}, {4000, 3000});
  EXPECT_NEAR(steps.photo.left + steps.photo.width / 2, 4000, 1e-6);
  EXPECT_NEAR(steps.photo.top + steps.photo.height / 2, 3000, 1e-6);
  steps.bring({0, 0}, {4000, 3000}); // the edge stays at the edge
  EXPECT_EQ(steps.photo.left, 0);
  auto small = fresh(300, 200);
  small.bring({0.5, 0.5}, {0, 0});
  EXPECT_EQ(small.photo.left, 0);
}

TEST(ZoomSteps, MarkersFollowTheLongerSide) {
  EXPECT_EQ(fresh(4000, 3000).longerSide(), 8285);
  EXPECT_EQ(fresh(3000, 4000).longerSide(), 6960);
}

} // namespace hearthbook::test
