#include "FullScreenPlace.h"

#include <gtest/gtest.h>

namespace hearthbook::test {

namespace {

constexpr TwipsSize screen{15361, 11520};

FullScreenPlace placed(double width, double height, TwipsPoint before = {}) {
  FullScreenPlace place;
  place.photo = {before.x, before.y, width, height};
  place.makeFull(screen);
  return place;
}

void expectDragged(FullScreenPlace place, TwipsPoint by, TwipsPoint to) {
  place.drag(by, screen);
  EXPECT_EQ(place.photo.left, to.x);
  EXPECT_EQ(place.photo.top, to.y);
}

} // namespace

TEST(FullScreenPlace, APhotoThatFitsIsCentredInWholeTwips) {
  const auto place = placed(3001, 1501);
  EXPECT_EQ(place.pointer, DragPointer::None);
  EXPECT_EQ(place.photo, (TwipsRect{7680 - 1500, 5760 - 750, 3001, 1501}));
}

TEST(FullScreenPlace, APhotoOfTheScreensOwnSizeFits) {
  const auto place = placed(screen.width, screen.height);
  EXPECT_EQ(place.pointer, DragPointer::None);
  EXPECT_EQ(place.photo.left, 0);
  EXPECT_EQ(place.photo.top, 0);
}

TEST(FullScreenPlace, AHigherPhotoBeginsAtTheTopInTheMiddle) {
  const auto place = placed(3000, 20000, {-100, -100});
  EXPECT_EQ(place.pointer, DragPointer::UpAndDown);
  EXPECT_EQ(place.photo.left, 7680 - 1500);
  EXPECT_EQ(place.photo.top, 0);
}

TEST(FullScreenPlace, AWiderPhotoBeginsAtTheLeftInTheMiddle) {
  const auto place = placed(20000, 3000, {-100, -100});
  EXPECT_EQ(place.pointer, DragPointer::Sideways);
  EXPECT_EQ(place.photo.left, 0);
  EXPECT_EQ(place.photo.top, 5760 - 1500);
}

TEST(FullScreenPlace, APhotoLargerBothWaysStaysWhereTheOneBeforeWas) {
  const auto place = placed(60000, 45000, {-700, -300});
  EXPECT_EQ(place.pointer, DragPointer::Both);
  EXPECT_EQ(place.photo.left, -700);
  EXPECT_EQ(place.photo.top, -300);
}

TEST(FullScreenPlace, ASmallerPhotoAfterOneThatWasDraggedToItsEdgeStillCoversTheScreen) {
  const auto place = placed(20000, 15000, {screen.width - 90000, screen.height - 60000});
  EXPECT_EQ(place.photo.left, screen.width - 20000);
  EXPECT_EQ(place.photo.top, screen.height - 15000);
}

TEST(FullScreenPlace, APhotoLargerBothWaysAfterOneThatWasCentredCoversTheScreen) {
  const auto place = placed(60000, 45000, {700, 300});
  EXPECT_EQ(place.photo.left, 0);
  EXPECT_EQ(place.photo.top, 0);
}

TEST(FullScreenPlace, APhotoThatFitsIsNotDragged) {
  const auto place = placed(3000, 1500);
  expectDragged(place, {100, 100}, {place.photo.left, place.photo.top});
}

TEST(FullScreenPlace, AWiderPhotoIsDraggedSidewaysOnly) {
  const auto place = placed(20000, 3000);
  expectDragged(place, {-100, -100}, {-100, place.photo.top});
}

TEST(FullScreenPlace, AHigherPhotoIsDraggedUpAndDownOnly) {
  const auto place = placed(3000, 20000);
  expectDragged(place, {-100, -100}, {place.photo.left, -100});
}

TEST(FullScreenPlace, APhotoLargerBothWaysIsDraggedBothWays) {
  expectDragged(placed(60000, 45000), {-100, -200}, {-100, -200});
}

TEST(FullScreenPlace, TheEdgesOfThePhotoNeverComeInsideTheScreen) {
  const auto place = placed(60000, 45000);
  expectDragged(place, {1, 1}, {0, 0});
  expectDragged(place, {-1e6, -1e6}, {screen.width - 60000, screen.height - 45000});
}

} // namespace hearthbook::test
