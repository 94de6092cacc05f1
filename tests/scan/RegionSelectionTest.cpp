#include "RegionSelection.h"
#include "ScanPrint.h"

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

constexpr PixelSize scanned{300, 200};

RegionSelection drawn(PixelPoint from, PixelPoint to) {
  RegionSelection selection;
  selection.begin(from);
  selection.pullTo(to);
  return selection;
}

TEST(RegionSelection, ARectangleIsTheSameWhicheverCornerOneBeginsWith) {
  const PixelRect wanted{10, 20, 30, 40};
  EXPECT_EQ(drawn({10, 20}, {40, 60}).mappedTo(scanned), wanted);
  EXPECT_EQ(drawn({40, 60}, {10, 20}).mappedTo(scanned), wanted);
  EXPECT_EQ(drawn({40, 20}, {10, 60}).mappedTo(scanned), wanted);
}

TEST(RegionSelection, WhatReachesBeyondTheImageIsCutAtItsEdge) {
  EXPECT_EQ(drawn({250, 150}, {400, 260}).mappedTo(scanned), (PixelRect{250, 150, 50, 50}));
  EXPECT_EQ(drawn({-50, -40}, {20, 30}).mappedTo(scanned), (PixelRect{0, 0, 20, 30}));
  EXPECT_EQ(drawn({-1e12, -1e12}, {1e12, 1e12}).mappedTo(scanned), (PixelRect{0, 0, 300, 200}));
}

TEST(RegionSelection, OutsideTheImageIsNothing) {
  EXPECT_TRUE(drawn({310, 20}, {400, 60}).mappedTo(scanned).isEmpty());
  EXPECT_TRUE(drawn({10, -60}, {40, -20}).mappedTo(scanned).isEmpty());
}

TEST(RegionSelection, ARectangleWithoutASideIsNothing) {
  EXPECT_TRUE(drawn({10, 20}, {10, 60}).mappedTo(scanned).isEmpty());
  EXPECT_TRUE(drawn({10, 20}, {10.2, 60}).mappedTo(scanned).isEmpty());
  EXPECT_TRUE(RegionSelection().mappedTo(scanned).isEmpty());
}

TEST(RegionSelection, OnePixelCanBeSelected) {
  EXPECT_EQ(drawn({10, 20}, {11, 21}).mappedTo(scanned), (PixelRect{10, 20, 1, 1}));
  EXPECT_EQ(drawn({299, 199}, {305, 205}).mappedTo(scanned), (PixelRect{299, 199, 1, 1}));
}

TEST(RegionSelection, PlacesBetweenPixelsGoToTheNearerEdge) {
  EXPECT_EQ(drawn({10.4, 20.6}, {40.4, 60.6}).mappedTo(scanned), (PixelRect{10, 21, 30, 40}));
}

TEST(RegionSelection, EachHandleMovesItsSidesAndNoOther) {
  struct Pull {
    Handle handle;
    PixelRect result;
  };
  const Pull pulls[] = {
      {Handle::TopLeft, {12, 25, 28, 35}},   {Handle::Top, {10, 25, 30, 35}},
      {Handle::TopRight, {10, 25, 2, 35}},   {Handle::Right, {10, 20, 2, 40}},
      {Handle::BottomRight, {10, 20, 2, 5}}, {Handle::Bottom, {10, 20, 30, 5}},
      {Handle::BottomLeft, {12, 20, 28, 5}}, {Handle::Left, {12, 20, 28, 40}},
  };
  for (const Pull& pull : pulls) {
    RegionSelection selection;
    selection.set({10, 20, 30, 40});
    selection.grab(pull.handle);
    selection.pullTo({12, 25});
    EXPECT_EQ(selection.mappedTo(scanned), pull.result) << static_cast<int>(pull.handle);
  }
}

TEST(RegionSelection, ACornerPulledOverTheOppositeOneTurnsTheRectangleOver) {
  RegionSelection selection;
  selection.set({10, 20, 30, 40});
  selection.grab(Handle::TopRight);
  selection.pullTo({5, 100});
  EXPECT_EQ(selection.mappedTo(scanned), (PixelRect{5, 60, 5, 40}));
}

TEST(RegionSelection, AHandleIsFoundWithinReach) {
  RegionSelection selection;
  selection.set({100, 100, 50, 40});
  EXPECT_EQ(selection.handleAt({102, 98}, 4), Handle::TopLeft);
  EXPECT_EQ(selection.handleAt({125, 103}, 4), Handle::Top);
  EXPECT_EQ(selection.handleAt({150, 140}, 4), Handle::BottomRight);
  EXPECT_EQ(selection.handleAt({148, 121}, 4), Handle::Right);
  EXPECT_EQ(selection.handleAt({125, 120}, 4), Handle::None);
  EXPECT_EQ(RegionSelection().handleAt({0, 0}, 4), Handle::None);
}

TEST(RegionSelection, OfTwoHandlesInReachTheNearerIsTaken) {
  RegionSelection selection;
  selection.set({100, 100, 6, 40});
  EXPECT_EQ(selection.handleAt({105.5, 100}, 10), Handle::TopRight);
  EXPECT_EQ(selection.handleAt({100.4, 100}, 10), Handle::TopLeft);
}

TEST(RegionSelection, KeysMoveItAndKeepAPixelOfIt) {
  RegionSelection selection;
  selection.set({10, 20, 30, 40});
  selection.moveBy(-2, 3);
  EXPECT_EQ(selection.mappedTo(scanned), (PixelRect{8, 23, 30, 40}));
  selection.growBy(5, -10);
  EXPECT_EQ(selection.mappedTo(scanned), (PixelRect{8, 23, 35, 30}));
  selection.growBy(-100, -100);
  EXPECT_EQ(selection.mappedTo(scanned), (PixelRect{8, 23, 1, 1}));
}

} // namespace
} // namespace hearthbook
