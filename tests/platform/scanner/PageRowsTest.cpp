#include "PageRows.h"

#include "ScanFailure.h"

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

namespace hearthbook {
namespace {

using Frame = PageFormat::Frame;
using Bytes = std::vector<std::uint8_t>;

void add(PageRows& page, const Bytes& bytes) { page.add(bytes.data(), bytes.size()); }

Picture pageOf(const PageFormat& format, const Bytes& bytes) {
  PageRows page;
  page.begin(format);
  add(page, bytes);
  return page.finish();
}

TEST(PageRows, ColoursAreTakenAsTheyCome) {
  const Picture page =
      pageOf({Frame::Colours, 8, 2, 2, 6}, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
  ASSERT_EQ(page.size(), (PixelSize{2, 2}));
  EXPECT_EQ(page.row(0)[0], 0xff010203U);
  EXPECT_EQ(page.row(0)[1], 0xff040506U);
  EXPECT_EQ(page.row(1)[1], 0xff0a0b0cU);
}

TEST(PageRows, GreyIsInAllColours) {
  const Picture page = pageOf({Frame::Grey, 8, 2, 1, 2}, {0, 200});
  EXPECT_EQ(page.row(0)[0], 0xff000000U);
  EXPECT_EQ(page.row(0)[1], 0xffc8c8c8U);
}

TEST(PageRows, ASingleBitIsInkOnPaper) {
  const Picture page = pageOf({Frame::Grey, 1, 10, 1, 2}, {0b01000000, 0b01000000});
  EXPECT_EQ(page.row(0)[0], 0xffffffffU);
  EXPECT_EQ(page.row(0)[1], 0xff000000U);
  EXPECT_EQ(page.row(0)[8], 0xffffffffU);
  EXPECT_EQ(page.row(0)[9], 0xff000000U);
}

TEST(PageRows, ASingleBitOfAColourIsLight) {
  const Picture page =
      pageOf({Frame::Colours, 1, 9, 1, 6}, {0b10000000, 0, 0b01000000, 0, 0b10000000, 0});
  EXPECT_EQ(page.row(0)[0], 0xffff0000U);
  EXPECT_EQ(page.row(0)[1], 0xff0000ffU);
  EXPECT_EQ(page.row(0)[8], 0xff00ff00U);
}

TEST(PageRows, OfSixteenBitsTheUpperEightCount) {
  std::vector<std::uint16_t> samples{0x12ff, 0x3400, 0xab80};
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(samples.data());
  const Picture page = pageOf({Frame::Colours, 16, 1, 1, 6}, Bytes(bytes, bytes + 6));
  EXPECT_EQ(page.row(0)[0], 0xff1234abU);
}

TEST(PageRows, PiecesOfAnyLengthMakeTheSamePage) {
  Bytes bytes(7 * 5 * 3);
  std::iota(bytes.begin(), bytes.end(), std::uint8_t{0});
  const PageFormat format{Frame::Colours, 8, 7, 5, 21};
  const Picture whole = pageOf(format, bytes);
  for (std::size_t length = 1; length < 50; ++length) {
    PageRows page;
    page.begin(format);
    for (std::size_t at = 0; at < bytes.size(); at += length)
      page.add(bytes.data() + at, std::min(length, bytes.size() - at));
    const Picture pieced = page.finish();
    for (int y = 0; y < 5; ++y)
      EXPECT_TRUE(std::equal(whole.row(y), whole.row(y) + 7, pieced.row(y))) << length;
  }
}

TEST(PageRows, WhatFillsUpALineIsLeftOut) {
  const Picture page = pageOf({Frame::Grey, 8, 2, 2, 4}, {10, 20, 99, 99, 30, 40, 99, 99});
  EXPECT_EQ(page.row(1)[0], 0xff1e1e1eU);
  EXPECT_EQ(page.row(1)[1], 0xff282828U);
}

TEST(PageRows, ThreeColoursOneAfterTheOtherMakeOnePage) {
  PageRows page;
  page.begin({Frame::Green, 8, 1, 2, 1});
  add(page, {2, 5});
  EXPECT_DOUBLE_EQ(page.share(3), 1.0 / 3);
  page.begin({Frame::Blue, 8, 1, 2, 1});
  add(page, {3, 6});
  page.begin({Frame::Red, 8, 1, 2, 1});
  add(page, {1, 4});
  EXPECT_DOUBLE_EQ(page.share(3), 1);
  const Picture picture = page.finish();
  EXPECT_EQ(picture.row(0)[0], 0xff010203U);
  EXPECT_EQ(picture.row(1)[0], 0xff040506U);
}

TEST(PageRows, APageThatEndsEarlyIsAsLongAsItCame) {
  const Picture page = pageOf({Frame::Grey, 8, 2, 100, 2}, {1, 2, 3, 4, 5});
  EXPECT_EQ(page.size(), (PixelSize{2, 2}));
}

TEST(PageRows, LinesBehindTheEndAreDropped) {
  const Picture page = pageOf({Frame::Grey, 8, 1, 2, 1}, {1, 2, 3, 4});
  EXPECT_EQ(page.size(), (PixelSize{1, 2}));
}

TEST(PageRows, APageOfUnknownLengthGrowsWithItsLines) {
  PageRows page;
  page.begin({Frame::Grey, 8, 1, -1, 1});
  EXPECT_LT(page.share(1), 0);
  for (int line = 0; line < 5000; ++line)
    add(page, {static_cast<std::uint8_t>(line)});
  const Picture picture = page.finish();
  ASSERT_EQ(picture.size(), (PixelSize{1, 5000}));
  EXPECT_EQ(picture.row(0)[0], 0xff000000U);
  EXPECT_EQ(picture.row(4999)[0] & 0xffU, 4999U % 256);
}

TEST(PageRows, TheShareOfThePageGrowsTowardsOne) {
  PageRows page;
  page.begin({Frame::Grey, 8, 1, 4, 1});
  EXPECT_DOUBLE_EQ(page.share(1), 0);
  add(page, {1});
  EXPECT_DOUBLE_EQ(page.share(1), 0.25);
  add(page, {1, 1, 1});
  EXPECT_DOUBLE_EQ(page.share(1), 1);
}

TEST(PageRows, NotOneLineIsAFailure) {
  PageRows page;
  page.begin({Frame::Grey, 8, 10, 10, 10});
  add(page, {1, 2, 3});
  EXPECT_THROW(page.finish(), ScanFailure);
}

TEST(PageRows, FormatsThatMakeNoSenseAreRefused) {
  for (const PageFormat& format :
       {PageFormat{Frame::Grey, 8, 0, 10, 10}, PageFormat{Frame::Grey, 8, -4, 10, 10},
        PageFormat{Frame::Grey, 8, 10, 0, 10}, PageFormat{Frame::Grey, 8, 10, 10, 9},
        PageFormat{Frame::Grey, 12, 10, 10, 20}, PageFormat{Frame::Colours, 16, 10, 10, 59},
        PageFormat{Frame::Colours, 8, 2'000'000'000, 10, 2'000'000'000}})
    EXPECT_THROW(PageRows().begin(format), ScanFailure);
}

TEST(PageRows, APageLargerThanAnyPictureIsRefused) {
  EXPECT_THROW(PageRows().begin({Frame::Grey, 8, 1'000'000, 1'000'000, 1'000'000}), RunTimeError);
}

TEST(PageRows, AColourOfAnotherWidthIsRefused) {
  PageRows page;
  page.begin({Frame::Red, 8, 4, 2, 4});
  EXPECT_THROW(page.begin({Frame::Green, 8, 5, 2, 5}), ScanFailure);
}

} // namespace
} // namespace hearthbook
