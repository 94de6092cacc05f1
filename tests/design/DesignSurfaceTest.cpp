#include "DesignerFixture.h"

#include "FileBytes.h"
#include "PageDesign.h"
#include "TestPictures.h"

#include <gmock/gmock.h>

#include <functional>

namespace hearthbook::test {

namespace {

using testing::HasSubstr;

class DesignSurfaceTest : public DesignerFixture {
protected:
  /// The surface as it is seen, by pixels of the drawing.
  static std::function<QRgb(double x, double y)> seenOn(const ExportDesigner& designer) {
    auto* surface = designer.findChild<DesignSurface*>();
    return [surface, shown = surface->grab().toImage()](double x, double y) {
      const TwipsRect spot{x * twipsPerPixel, y * twipsPerPixel, twipsPerPixel, twipsPerPixel};
      return shown.pixel(surface->toPixels(spot).topLeft());
    };
  }
};

TEST_F(DesignSurfaceTest, EachDecorationStandsOnItsSide) {
  writeBytes(at("export/templates/Wedding/left_img.gif"), encodedBy("png", plain({20, 20}, red)));
  writeBytes(at("export/templates/Wedding/right_img.gif"), encodedBy("png", plain({20, 20}, blue)));
  const auto colourAt = seenOn(open());
  EXPECT_LT(distance(colourAt(120, 135), red), 8);
  EXPECT_LT(distance(colourAt(960, 135), blue), 8);
}

TEST_F(DesignSurfaceTest, ATemplateWithoutARightPictureShowsItsRightBoxEmpty) {
  std::filesystem::remove(at("export/templates/New Baby/right_img.gif"));
  const auto& designer = open();
  chooseDesign(designer, 1);
  EXPECT_TRUE(isDecorated(designer, "left_img"));
  EXPECT_FALSE(isDecorated(designer, "right_img"));
}

TEST_F(DesignSurfaceTest, ATemplateWithoutALeftPictureShowsItsLeftBoxEmpty) {
  std::filesystem::remove(at("export/templates/New Baby/left_img.gif"));
  const auto& designer = open();
  EXPECT_TRUE(isDecorated(designer, "left_img"));
  chooseDesign(designer, 1);
  EXPECT_FALSE(isDecorated(designer, "left_img"));
  EXPECT_TRUE(isDecorated(designer, "right_img"));
}

TEST_F(DesignSurfaceTest, ABackgroundOfOnesOwnTilesTheSurfaceAndThePage) {
  background_ = at("Media/roses.png");
  writeBytes(*background_, encodedBy("png", plain({20, 20}, red)));
  auto& designer = open();
  EXPECT_GT(distance(seenOn(designer)(10, 800), red), 80);
  press(designer, "Command2");
  EXPECT_LT(distance(seenOn(designer)(10, 800), red), 8);
  designer.CreatePage();
  EXPECT_THAT(madePage(), HasSubstr("background.png"));
  EXPECT_EQ(readBytes(at("export/testing1/background.png")), readBytes(*background_));
}

TEST_F(DesignSurfaceTest, TheBackgroundIsRepeatedInStepsOfItsWidthAndHeight) {
  constexpr PixelSize tile{64, 48};
  background_ = at("Media/four.png");
  writeBytes(*background_, encodedBy("png", corners(tile)));
  auto& designer = open();
  press(designer, "Command2");
  const auto colourAt = seenOn(designer);
  for (const int column : {0, 1, 2}) // below the left picture
    for (const int row : {6, 11}) {
      const int left = column * tile.width;
      const int top = row * tile.height;
      EXPECT_LT(distance(colourAt(left + 10, top + 10), red), 40) << column << " " << row;
      EXPECT_LT(distance(colourAt(left + 54, top + 10), green), 40) << column << " " << row;
      EXPECT_LT(distance(colourAt(left + 10, top + 38), blue), 40) << column << " " << row;
      EXPECT_LT(distance(colourAt(left + 54, top + 38), white), 40) << column << " " << row;
    }
  leave(designer);
}

TEST_F(DesignSurfaceTest, TheBoxesAreTiledLikeTheSurface) {
  background_ = at("Media/roses.png");
  writeBytes(*background_, encodedBy("png", plain({20, 20}, red)));
  auto& designer = open();
  press(designer, "Command2");
  const auto colourAt = seenOn(designer);
  for (const DesignBox& box : pageDesigns().front().boxes) {
    const TwipsRect& frame = box.frame;
    const double left = frame.left / twipsPerPixel + 6;
    const double middle = (frame.top + frame.height / 2) / twipsPerPixel;
    EXPECT_LT(distance(colourAt(left, middle), red), 8) << box.caption;
  }
  EXPECT_LT(distance(colourAt(268, 100), red), 8) << "the title";
  leave(designer);
}

TEST_F(DesignSurfaceTest, APhotographAsBackgroundBeginsInTheUpperLeftCorner) {
  background_ = at("Media/beach.jpg");
  writeBytes(*background_, jpegOf(corners({1600, 400})));
  auto& designer = open();
  press(designer, "Command2");
  const auto colourAt = seenOn(designer);
  EXPECT_LT(distance(colourAt(10, 500), red), 20);
  EXPECT_LT(distance(colourAt(1070, 500), green), 20);
  EXPECT_LT(distance(colourAt(10, 700), blue), 20);
  EXPECT_LT(distance(colourAt(10, 890), red), 20);
  designer.CreatePage();
  EXPECT_EQ(readBytes(at("export/testing1/background.jpg")), readBytes(*background_));
}

TEST_F(DesignSurfaceTest, ThePaperOfTheProgramIsTheGroundOfEveryDesignAtFirst) {
  writeBytes(at("Media/WaterMark2.gif"), encodedBy("png", plain({20, 20}, green)));
  const auto& designer = open();
  EXPECT_LT(distance(seenOn(designer)(10, 800), green), 8);
  chooseDesign(designer, 2);
  EXPECT_LT(distance(seenOn(designer)(10, 800), green), 8);
}

TEST_F(DesignSurfaceTest, AnotherDesignKeepsTheBackgroundOfOnesOwn) {
  background_ = at("Media/roses.png");
  writeBytes(*background_, encodedBy("png", plain({20, 20}, red)));
  auto& designer = open();
  press(designer, "Command2");
  chooseDesign(designer, 1);
  EXPECT_LT(distance(seenOn(designer)(10, 800), red), 8);
  designer.CreatePage();
  EXPECT_EQ(readBytes(at("export/testing1/background.png")), readBytes(*background_));
}

TEST_F(DesignSurfaceTest, WithoutOneThePaperOfTheProgramTilesThePage) {
  auto& designer = open();
  press(designer, "Command2"); // cancelled
  designer.CreatePage();
  EXPECT_EQ(readBytes(at("export/testing1/background.gif")), readBytes(at("Media/WaterMark2.gif")));
}

TEST_F(DesignSurfaceTest, ABackgroundOfOnesOwnThatHasGoneIsTold) {
  background_ = at("Media/roses.png");
  writeBytes(*background_, encodedBy("png", plain({20, 20}, red)));
  auto& designer = open();
  press(designer, "Command2");
  std::filesystem::remove(*background_);
  boxes_.expectFailure(QStringLiteral("roses.png\": it is not there"));
  press(designer, "Command1");
  EXPECT_FALSE(fileExists(at("export/testing1/index.htm")));
  leave(designer);
}

TEST_F(DesignSurfaceTest, AMissingPaperOfTheProgramLeavesThePagePlain) {
  std::filesystem::remove(at("Media/WaterMark2.gif"));
  open().CreatePage();
  EXPECT_THAT(madePage(), HasSubstr("url('')"));
}

TEST_F(DesignSurfaceTest, ABackgroundOfOnesOwnIsNotLostWithoutAQuestion) {
  background_ = at("Media/roses.png");
  writeBytes(*background_, encodedBy("png", plain({20, 20}, red)));
  auto& designer = open();
  press(designer, "Command2");
  leave(designer, MsgAnswer::No);
  leave(designer);
}

TEST_F(DesignSurfaceTest, ABackgroundThatIsNoPictureIsToldAndTheFormerStays) {
  background_ = at("Media/roses.png");
  writeBytes(*background_, "no picture");
  auto& designer = open();
  boxes_.expectFailure(QStringLiteral("roses.png"));
  press(designer, "Command2");
  designer.CreatePage();
  EXPECT_TRUE(fileExists(at("export/testing1/background.gif")));
}

} // namespace

} // namespace hearthbook::test
