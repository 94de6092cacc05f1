#include "PrintSteps.h"

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

TEST(PrintSteps, TheBarGoesToAHundredButForThumbnails) {
  EXPECT_EQ(printSteps(SinglePrint{}), 100);
  EXPECT_EQ(printSteps(AlbumPrint{}), 100);
  EXPECT_EQ(printSteps(ContactPrint{}), 23);
}

TEST(PrintSteps, ASinglePhotoGoesByQuarters) {
  const PrintPage page = SinglePrint{};
  EXPECT_EQ(printStepValue(page, PrintStep::Begun, 0), 25);
  EXPECT_EQ(printStepValue(page, PrintStep::PictureReady, 1), 50);
  EXPECT_EQ(printStepValue(page, PrintStep::Painted, 1), 75);
  EXPECT_EQ(printStepValue(page, PrintStep::Delivered, 1), 100);
}

TEST(PrintSteps, AnAlbumPageMovesOnByAQuarterForEachPlace) {
  AlbumPrint page;
  for (const int place : {0, 2, 3}) {
    page.cells.emplace_back();
    page.cells.back().place = place;
  }
  EXPECT_EQ(printStepValue(page, PrintStep::Begun, 0), std::nullopt);
  EXPECT_EQ(printStepValue(page, PrintStep::PictureReady, 1), std::nullopt);
  EXPECT_EQ(printStepValue(page, PrintStep::PictureReady, 2), 25);
  EXPECT_EQ(printStepValue(page, PrintStep::PictureReady, 4), 75);
  EXPECT_EQ(printStepValue(page, PrintStep::PictureReady, 6), 100);
  EXPECT_EQ(printStepValue(page, PrintStep::Delivered, 6), 100);
}

TEST(PrintSteps, ThumbnailsAreCountedByTheirPlaces) {
  ContactPrint page;
  for (const int place : {0, 1, 5})
    page.cells.push_back({place, {}});
  EXPECT_EQ(printStepValue(page, PrintStep::PictureReady, 1), 0);
  EXPECT_EQ(printStepValue(page, PrintStep::PictureReady, 3), 5);
  EXPECT_EQ(printStepValue(page, PrintStep::Painted, 3), std::nullopt);
}

} // namespace
} // namespace hearthbook
