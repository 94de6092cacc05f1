#include "ImageView.h"
#include "ScanPrint.h"

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

constexpr PixelSize page{1654, 2339}; // A4 at 200 to the inch
constexpr PixelSize print{400, 300};

ImageView viewOf(PixelSize picture, double factor) {
  ImageView view;
  view.fit(picture);
  view.originalSize();
  while (view.factor() < factor)
    view.zoomIn();
  while (view.factor() > factor)
    view.zoomOut();
  return view;
}

TEST(ImageView, APageIsFittedIntoTheBoxWithoutScrollBars) {
  ImageView view;
  view.fit(page);
  EXPECT_DOUBLE_EQ(view.factor(), 6735.0 / (2339 * 15));
  EXPECT_DOUBLE_EQ(view.size().height, 6735);
  EXPECT_DOUBLE_EQ(view.size().width, 1654 * 15 * view.factor());
  EXPECT_EQ(view.scrollBars(), ScrollBars::None);
}

TEST(ImageView, APageAsWideAsTheBoxHasNoScrollBarsEither) {
  ImageView view;
  view.fit({3000, 1000});
  EXPECT_DOUBLE_EQ(view.size().width, 10215);
  EXPECT_EQ(view.scrollBars(), ScrollBars::None);
}

TEST(ImageView, ASmallPictureIsNotMagnifiedToFit) {
  ImageView view;
  view.fit(print);
  EXPECT_EQ(view.factor(), 1);
  EXPECT_EQ(view.size(), (TwipsSize{6000, 4500}));
}

TEST(ImageView, ZoomInAddsAQuarterBelowFour) {
  ImageView view = viewOf(print, 1);
  EXPECT_TRUE(view.zoomIn());
  EXPECT_EQ(view.factor(), 1.25);
  while (view.zoomIn()) {
  }
  EXPECT_EQ(view.factor(), 4.0);
}

TEST(ImageView, AFactorJustBelowFourStillGrows) {
  ImageView view;
  view.fit({1000, 500}); // 0.681
  while (view.zoomIn()) {
  }
  EXPECT_NEAR(view.factor(), 4.181, 1e-9);
}

TEST(ImageView, ZoomOutFromAQuarterArrivesAtNothingAndStaysThere) {
  ImageView view = viewOf(print, 0.25);
  EXPECT_TRUE(view.zoomOut());
  EXPECT_EQ(view.factor(), 0);
  EXPECT_EQ(view.size(), (TwipsSize{0, 0}));
  EXPECT_EQ(view.scrollBars(), ScrollBars::None);
  EXPECT_TRUE(view.isNothingInSight());
  EXPECT_FALSE(view.zoomOut());
}

TEST(ImageView, WhatIsZoomedOutOfSightComesBack) {
  ImageView view = viewOf(print, 0.25);
  view.zoomOut();
  EXPECT_TRUE(view.zoomIn());
  EXPECT_EQ(view.factor(), 0.25);
  EXPECT_EQ(view.size(), (TwipsSize{1500, 1125}));
  EXPECT_FALSE(view.isNothingInSight());
}

TEST(ImageView, AStepBelowNothingIsSurvivedToo) {
  ImageView view;
  view.fit(page); // 0.19
  EXPECT_TRUE(view.zoomOut());
  EXPECT_LT(view.factor(), 0);
  EXPECT_EQ(view.size(), (TwipsSize{0, 0}));
  EXPECT_EQ(view.toPicture({10, 10}), PixelPoint());
  view.originalSize();
  EXPECT_EQ(view.factor(), 1);
}

TEST(ImageView, AtATenthNothingIsTakenAway) {
  ImageView view;
  view.fit({6810, 100}); // factor 0.1
  EXPECT_FALSE(view.zoomOut());
}

TEST(ImageView, WhatIsSmallerThanTheBoxIsShownAsItIs) {
  const ImageView view = viewOf(print, 0.5);
  EXPECT_EQ(view.size(), (TwipsSize{3000, 2250}));
  EXPECT_EQ(view.scrollBars(), ScrollBars::None);
}

TEST(ImageView, AtTheWidthOfTheBoxItScrollsSideways) {
  ImageView view = viewOf({681, 100}, 1.25);
  EXPECT_EQ(view.size(), (TwipsSize{10215, 1875}));
  EXPECT_EQ(view.scrollBars(), ScrollBars::Horizontal);
  view.zoomOut(); // 10215 exactly
  EXPECT_EQ(view.size(), (TwipsSize{10215, 1500}));
  EXPECT_EQ(view.scrollBars(), ScrollBars::Horizontal);
  EXPECT_EQ(viewOf({680, 100}, 1.0).scrollBars(), ScrollBars::Both) << "Original Size";
  view = viewOf({680, 100}, 1.25);
  view.zoomOut();
  EXPECT_EQ(view.size(), (TwipsSize{10200, 1500}));
  EXPECT_EQ(view.scrollBars(), ScrollBars::None);
}

TEST(ImageView, AtTheHeightOfTheBoxItScrollsUpAndDown) {
  ImageView view = viewOf({100, 449}, 1.25);
  view.zoomOut(); // 6735 exactly
  EXPECT_EQ(view.size(), (TwipsSize{1500, 6735}));
  EXPECT_EQ(view.scrollBars(), ScrollBars::Vertical);
  view = viewOf({100, 448}, 1.25);
  view.zoomOut();
  EXPECT_EQ(view.size(), (TwipsSize{1500, 6720}));
  EXPECT_EQ(view.scrollBars(), ScrollBars::None);
}

TEST(ImageView, BeyondBothSidesOfTheBoxItScrollsBothWays) {
  const ImageView view = viewOf(page, 1.25);
  EXPECT_EQ(view.size(), ImageView::box);
  EXPECT_EQ(view.scrollBars(), ScrollBars::Both);
}

TEST(ImageView, TheScrollBarsCountAsTheirNumbers) {
  EXPECT_EQ(static_cast<int>(ScrollBars::None), 0);
  EXPECT_EQ(static_cast<int>(ScrollBars::Horizontal), 1);
  EXPECT_EQ(static_cast<int>(ScrollBars::Vertical), 2);
  EXPECT_EQ(static_cast<int>(ScrollBars::Both), 3);
}

TEST(ImageView, OriginalSizeTakesTheWholeBoxWhateverThePictureMeasures) {
  for (const PixelSize picture : {print, page, PixelSize{1, 1}}) {
    ImageView view;
    view.fit(picture);
    view.originalSize();
    EXPECT_EQ(view.factor(), 1);
    EXPECT_EQ(view.size(), ImageView::box);
    EXPECT_EQ(view.scrollBars(), ScrollBars::Both);
  }
}

TEST(ImageView, ATurnedPictureSwapsTheRolesOfTheLimits) {
  ImageView view = viewOf({900, 300}, 1.25);
  view.zoomOut();
  EXPECT_EQ(view.size(), (TwipsSize{10215, 4500}));
  EXPECT_EQ(view.scrollBars(), ScrollBars::Horizontal);
  view.resize({300, 900});
  EXPECT_EQ(view.factor(), 1);
  EXPECT_EQ(view.size(), (TwipsSize{4500, 6735}));
  EXPECT_EQ(view.scrollBars(), ScrollBars::Vertical);
}

TEST(ImageView, WhatWasFittedIsFittedAgainWhenItIsTurnedBack) {
  for (const PixelSize picture : {PixelSize{3000, 1000}, page}) {
    ImageView view;
    view.fit(picture);
    const TwipsSize fitted = view.size();
    view.resize({picture.height, picture.width});
    view.resize(picture);
    EXPECT_EQ(view.size(), fitted);
    EXPECT_EQ(view.scrollBars(), ScrollBars::None);
  }
}

TEST(ImageView, ScrollingEndsAtTheEdgesOfThePicture) {
  ImageView view = viewOf(page, 1);
  view.scrollTo({-10, 1e9});
  EXPECT_EQ(view.scroll(), (TwipsPoint{0, 2339 * 15 - 6735.0}));
}

TEST(ImageView, PlacesAreFoundInThePictureAndBack) {
  ImageView view = viewOf(page, 2);
  view.scrollTo({3000, 6000});
  EXPECT_EQ(view.toPicture({0, 0}), (PixelPoint{100, 200}));
  EXPECT_EQ(view.fromPicture({100, 200}), (TwipsPoint{0, 0}));
  EXPECT_EQ(view.fromPicture({110, 190}), (TwipsPoint{300, -300}));
}

TEST(ImageView, WhatIsInTheMiddleStaysThereWhileOneZooms) {
  ImageView view = viewOf(page, 1);
  view.scrollTo({6000, 12000});
  const TwipsPoint middle{view.size().width / 2, view.size().height / 2};
  const PixelPoint before = view.toPicture(middle);
  view.zoomIn();
  const PixelPoint after = view.toPicture(middle);
  EXPECT_NEAR(after.x, before.x, 1e-6);
  EXPECT_NEAR(after.y, before.y, 1e-6);
}

TEST(ImageView, WithoutAPictureNothingFails) {
  ImageView view;
  view.fit({});
  view.zoomIn();
  view.originalSize();
  view.scrollTo({5, 5});
  EXPECT_EQ(view.pictureSize(), TwipsSize());
  EXPECT_FALSE(view.isNothingInSight());
}

} // namespace
} // namespace hearthbook
