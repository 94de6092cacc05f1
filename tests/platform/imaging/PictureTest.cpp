#include "Picture.h"

#include "RunTimeError.h"

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

TEST(Picture, StartsBlack) {
  const Picture picture({3, 2});
  EXPECT_EQ(picture.row(1)[2], 0xff000000U);
}

TEST(Picture, CopiesShareTheirPixelsUntilOneIsWrittenTo) {
  Picture first({2, 2});
  Picture second = first;
  EXPECT_EQ(first.row(0), second.row(0));
  second.writableRow(0)[0] = 0xffffffff;
  EXPECT_EQ(first.row(0)[0], 0xff000000U);
  EXPECT_EQ(second.row(0)[0], 0xffffffffU);
}

TEST(Picture, WithoutASideOrTooLargeIsRefusedBeforeMemoryIsTaken) {
  EXPECT_THROW(Picture({0, 5}), RunTimeError);
  EXPECT_THROW(Picture({5, -1}), RunTimeError);
  EXPECT_THROW(Picture({60'000, 60'000}), RunTimeError);
}

} // namespace
} // namespace hearthbook
