#include "AlbumPickerPlace.h"

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

constexpr double row = 240;
constexpr double command = 5000;

constexpr double footOf(AlbumPickerPlace place) { return place.top + place.height; }

TEST(AlbumPickerPlace, WithoutSubAlbumsThereAreTwoRows) {
  EXPECT_EQ(albumPickerPlace(0, row, command), (AlbumPickerPlace{4260, 520, false}));
}

TEST(AlbumPickerPlace, EachAlbumAddsARowUpward) {
  EXPECT_EQ(albumPickerPlace(1, row, command), (AlbumPickerPlace{4020, 720, false}));
  EXPECT_EQ(albumPickerPlace(7, row, command), (AlbumPickerPlace{2580, 2160, false}));
  EXPECT_EQ(footOf(albumPickerPlace(1, row, command)), footOf(albumPickerPlace(7, row, command)));
}

TEST(AlbumPickerPlace, FromEightAlbumsOnItScrollsAndGrowsNoMore) {
  EXPECT_EQ(albumPickerPlace(8, row, command), (AlbumPickerPlace{2580, 2160, true}));
  EXPECT_EQ(albumPickerPlace(300, row, command), albumPickerPlace(8, row, command));
}

} // namespace
} // namespace hearthbook
