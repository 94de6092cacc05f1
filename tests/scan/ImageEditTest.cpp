#include "ImageEdit.h"
#include "Corrections.h"
#include "Regions.h"
#include "ScanPrint.h"
#include "TestPictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace hearthbook {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr PixelSize shown{300, 200};
constexpr PixelRect region{40, 30, 80, 50};

bool isSame(const Picture& a, const Picture& b) {
  if (a.size() != b.size())
    return false;
  for (int y = 0; y < a.height(); ++y)
    if (!std::equal(a.row(y), a.row(y) + a.width(), b.row(y)))
      return false;
  return true;
}

class ImageEditTest : public testing::Test {
protected:
  ImageEditTest() { edit_.show(page_); }

  void select(const PixelRect& place) { edit_.selection().set(place); }
  void doEdit(const EditOperation& operation) {
    edit_.accept(ImageEdit::carryOut(edit_.edit(operation)));
  }
  void doCrop() { edit_.accept(ImageEdit::carryOut(edit_.crop())); }
  Picture whole() const { return ImageEdit::asSeen(edit_.whole()); }
  Picture cut() const { return ImageEdit::asSeen(edit_.cutOut()); }

  Picture page_ = test::grainy(shown);
  ImageEdit edit_;
};

TEST_F(ImageEditTest, APageIsShownWholeWithNothingOnIt) {
  EXPECT_FALSE(edit_.isEmpty());
  EXPECT_THAT(edit_.buttons(), IsEmpty());
  EXPECT_FALSE(edit_.canUndo());
  EXPECT_EQ(edit_.view().size(), (TwipsSize{4500, 3000}));
  EXPECT_TRUE(ImageEdit().isEmpty());
}

TEST_F(ImageEditTest, TheCommandsHaveTheirSteps) {
  using Kind = EditOperation::Kind;
  EXPECT_EQ(edits::autoLevels.kind, Kind::AutoLevels);
  EXPECT_EQ(edits::brighter, (EditOperation{Kind::Lightness, 10}));
  EXPECT_EQ(edits::darken, (EditOperation{Kind::Lightness, -10}));
  EXPECT_EQ(edits::soften, (EditOperation{Kind::Soften, 2}));
  EXPECT_EQ(edits::sharpen, (EditOperation{Kind::Sharpen, 1}));
  EXPECT_EQ(edits::flip, (EditOperation{Kind::Rotate, 180}));
  EXPECT_EQ(edits::rotateRight, (EditOperation{Kind::Rotate, -90}));
  EXPECT_EQ(edits::rotateLeft, (EditOperation{Kind::Rotate, 90}));
}

TEST_F(ImageEditTest, EachOperationIsTheOneOfItsName) {
  EXPECT_TRUE(isSame(applied(edits::autoLevels, page_), autoLevels(page_)));
  EXPECT_TRUE(isSame(applied(edits::brighter, page_), withLightness(page_, 10)));
  EXPECT_TRUE(isSame(applied(edits::darken, page_), withLightness(page_, -10)));
  EXPECT_TRUE(isSame(applied(edits::soften, page_), softened(page_, 2)));
  EXPECT_TRUE(isSame(applied(edits::sharpen, page_), sharpened(page_, 1)));
  EXPECT_TRUE(isSame(applied(edits::flip, page_), rotated(page_, 180)));
}

TEST_F(ImageEditTest, WithoutASelectionTheWholePictureIsEdited) {
  doEdit(edits::brighter);
  EXPECT_TRUE(isSame(edit_.picture(), withLightness(page_, 10)));
  EXPECT_THAT(edit_.elements(), IsEmpty());
}

TEST_F(ImageEditTest, ASelectionIsEditedAlone) {
  select(region);
  doEdit(edits::brighter);
  EXPECT_TRUE(isSame(edit_.picture(), page_)) << "the page below stays as it was";
  Picture wanted = page_;
  paste(wanted, withLightness(cropped(page_, region), 10), region.left, region.top);
  EXPECT_TRUE(isSame(whole(), wanted));
}

TEST_F(ImageEditTest, ASelectionThatReachesBeyondTheImageIsCutAtItsEdge) {
  select({250, 150, 500, 500});
  EXPECT_EQ(edit_.selected(), (PixelRect{250, 150, 50, 50}));
  doEdit(edits::darken);
  ASSERT_EQ(edit_.elements().size(), 1u);
  EXPECT_EQ(edit_.elements()[0].place, (PixelRect{250, 150, 50, 50}));
}

TEST_F(ImageEditTest, ASelectionOutsideTheImageIsNone) {
  select({310, 10, 20, 20});
  edit_.endSelecting();
  EXPECT_FALSE(edit_.selection().isThere());
  EXPECT_THAT(edit_.buttons(), IsEmpty());
}

TEST_F(ImageEditTest, OnePixelIsEdited) {
  select({299, 199, 1, 1});
  for (const EditOperation& operation :
       {edits::autoLevels, edits::brighter, edits::darken, edits::soften, edits::sharpen,
        edits::flip, edits::rotateLeft, edits::rotateRight})
    doEdit(operation);
  EXPECT_EQ(cut().size(), (PixelSize{1, 1}));
}

TEST_F(ImageEditTest, TheButtonOfASelectionClosesAndThatOfAnEditReverts) {
  select(region);
  EXPECT_THAT(edit_.buttons(), ElementsAre(RegionButton{region, false}));
  doEdit(edits::soften);
  EXPECT_THAT(edit_.buttons(), ElementsAre(RegionButton{region, true}));
}

TEST_F(ImageEditTest, CloseRemovesTheSelection) {
  select(region);
  edit_.press({region, false});
  EXPECT_FALSE(edit_.selection().isThere());
}

TEST_F(ImageEditTest, RevertBringsTheRegionBackToBeforeTheEdit) {
  select(region);
  doEdit(edits::brighter);
  doEdit(edits::sharpen);
  edit_.press({region, true});
  EXPECT_TRUE(isSame(whole(), page_));
  EXPECT_THAT(edit_.buttons(), ElementsAre(RegionButton{region, false}));
}

TEST_F(ImageEditTest, EditsOfARegionAddUp) {
  select(region);
  doEdit(edits::brighter);
  doEdit(edits::brighter);
  EXPECT_TRUE(isSame(cut(), withLightness(withLightness(cropped(page_, region), 10), 10)));
  EXPECT_EQ(edit_.elements().size(), 1u);
}

TEST_F(ImageEditTest, EachEditedRegionHasAButtonOfItsOwn) {
  select(region);
  doEdit(edits::brighter);
  const PixelRect other{150, 100, 60, 60};
  select(other);
  EXPECT_THAT(edit_.buttons(), ElementsAre(RegionButton{region, true}, RegionButton{other, false}));
  doEdit(edits::darken);
  edit_.press({region, true});
  EXPECT_THAT(edit_.buttons(), ElementsAre(RegionButton{other, true}));
}

TEST_F(ImageEditTest, ATurnedRegionKeepsItsPlaceAndIsSavedWhole) {
  select(region);
  doEdit(edits::rotateRight);
  EXPECT_EQ(edit_.selected(), region);
  EXPECT_TRUE(isSame(cut(), rotated(cropped(page_, region), -90)));
  const Picture seen = whole();
  Picture around = page_;
  paste(around, cropped(seen, region), region.left, region.top);
  EXPECT_TRUE(isSame(seen, around)) << "nothing beside the region has changed";
}

TEST_F(ImageEditTest, ATurnedRegionIsStillMeantByARectangleThatWasMovedOffItByAHair) {
  select(region);
  doEdit(edits::rotateRight);
  edit_.selection().moveBy(1, 0);
  edit_.selection().growBy(0, -3);
  EXPECT_TRUE(isSame(cut(), rotated(cropped(page_, region), -90))) << "not the small one on white";
  EXPECT_THAT(edit_.buttons(), ElementsAre(RegionButton{region, true}));
  doEdit(edits::rotateLeft);
  EXPECT_TRUE(isSame(whole(), page_));
}

TEST_F(ImageEditTest, ARectangleElsewhereOnATurnedRegionMeansWhatIsSeenThere) {
  select(region);
  doEdit(edits::rotateRight);
  const PixelRect elsewhere{region.left + 20, region.top, region.width, region.height};
  select(elsewhere);
  EXPECT_TRUE(isSame(cut(), cropped(whole(), elsewhere)));
}

TEST_F(ImageEditTest, ARectangleBesideAnEditThatKeepsItsPlaceMeansWhatIsSeenThere) {
  select(region);
  doEdit(edits::brighter);
  edit_.selection().moveBy(1, 0);
  EXPECT_TRUE(isSame(cut(), cropped(whole(), edit_.selected())));
}

TEST_F(ImageEditTest, FourQuarterTurnsOfARegionChangeNothing) {
  select(region);
  for (int turn = 0; turn < 4; ++turn)
    doEdit(edits::rotateLeft);
  EXPECT_TRUE(isSame(whole(), page_));
}

TEST_F(ImageEditTest, FlipIsAHalfTurnAndNoMirror) {
  edit_.show(test::corners(shown));
  doEdit(edits::flip);
  EXPECT_EQ(edit_.picture().row(0)[0], test::white);
  EXPECT_EQ(edit_.picture().row(0)[299], test::blue);
  EXPECT_EQ(edit_.picture().row(199)[299], test::red);
}

TEST_F(ImageEditTest, RotateRightTurnsWithTheClockAndFitsTheViewAnew) {
  edit_.show(test::corners({900, 300}));
  edit_.view().originalSize();
  doEdit(edits::rotateRight);
  EXPECT_EQ(edit_.picture().size(), (PixelSize{300, 900}));
  EXPECT_EQ(edit_.picture().row(0)[299], test::red);
  EXPECT_EQ(edit_.view().factor(), 1);
  EXPECT_EQ(edit_.view().size(), (TwipsSize{4500, 6735}));
  EXPECT_EQ(edit_.view().scrollBars(), ScrollBars::Vertical);
  doEdit(edits::rotateLeft);
  EXPECT_EQ(edit_.view().scrollBars(), ScrollBars::Horizontal);
}

TEST_F(ImageEditTest, AHalfTurnLeavesTheViewAsItIs) {
  edit_.show(test::corners({900, 300}));
  doEdit(edits::flip);
  EXPECT_EQ(edit_.view().scrollBars(), ScrollBars::None) << "it was fitted, and still is";
}

TEST_F(ImageEditTest, AQuarterTurnOfASquareAndACropOfAllFitTheViewAnewToo) {
  for (const bool isCrop : {false, true}) {
    edit_.show(test::corners({300, 300}));
    edit_.view().originalSize();
    doEdit(edits::flip);
    EXPECT_EQ(edit_.view().scrollBars(), ScrollBars::Both) << "a half turn changes no sides";
    if (isCrop) {
      select({0, 0, 300, 300});
      doCrop();
    } else {
      doEdit(edits::rotateRight);
    }
    EXPECT_EQ(edit_.view().size(), (TwipsSize{4500, 4500})) << isCrop;
    EXPECT_EQ(edit_.view().scrollBars(), ScrollBars::None) << isCrop;
  }
}

TEST_F(ImageEditTest, AnEditOfTheWholeTakesTheEditedRegionsIn) {
  select(region);
  doEdit(edits::brighter);
  const Picture before = whole();
  edit_.selection().clear();
  doEdit(edits::darken);
  EXPECT_TRUE(isSame(edit_.picture(), withLightness(before, -10)));
  EXPECT_THAT(edit_.elements(), IsEmpty());
}

TEST_F(ImageEditTest, CropLeavesTheSelectionAloneAndEndsIt) {
  select(region);
  doCrop();
  EXPECT_TRUE(isSame(edit_.picture(), cropped(page_, region)));
  EXPECT_FALSE(edit_.selection().isThere());
  EXPECT_EQ(edit_.view().size(), (TwipsSize{1200, 750}));
}

TEST_F(ImageEditTest, CropKeepsWhatWasEdited) {
  select(region);
  doEdit(edits::brighter);
  doCrop();
  EXPECT_TRUE(isSame(edit_.picture(), withLightness(cropped(page_, region), 10)));
  EXPECT_THAT(edit_.elements(), IsEmpty());
}

TEST_F(ImageEditTest, WhatWasSavedStaysMarkedAndTheNextRectangleBegins) {
  select(region);
  edit_.markSaved(edit_.selected());
  EXPECT_FALSE(edit_.selection().isThere());
  EXPECT_THAT(edit_.savedMarks(), ElementsAre(region));
}

TEST_F(ImageEditTest, AMarkIsNeverPartOfTheNextPhoto) {
  select(region);
  edit_.markSaved(edit_.selected());
  select({20, 20, 200, 100});
  EXPECT_TRUE(isSame(cut(), cropped(page_, {20, 20, 200, 100})));
  EXPECT_TRUE(isSame(whole(), page_));
}

TEST_F(ImageEditTest, MarksTurnWithThePageAndMoveWithACrop) {
  edit_.markSaved(region);
  doEdit(edits::rotateLeft);
  EXPECT_THAT(edit_.savedMarks(), ElementsAre(PixelRect{30, 180, 50, 80}));
  doEdit(edits::rotateRight);
  EXPECT_THAT(edit_.savedMarks(), ElementsAre(region));
  doEdit(edits::flip);
  EXPECT_THAT(edit_.savedMarks(), ElementsAre(PixelRect{180, 120, 80, 50}));
  select({100, 100, 150, 100});
  doCrop();
  EXPECT_THAT(edit_.savedMarks(), ElementsAre(PixelRect{80, 20, 80, 50}));
}

TEST_F(ImageEditTest, UndoGoesBackStepByStep) {
  doEdit(edits::brighter);
  const Picture brighter = edit_.picture();
  doEdit(edits::rotateLeft);
  select({10, 10, 20, 20});
  doCrop();
  edit_.undo();
  EXPECT_EQ(edit_.picture().size(), (PixelSize{200, 300}));
  edit_.undo();
  EXPECT_TRUE(isSame(edit_.picture(), brighter));
  edit_.undo();
  EXPECT_TRUE(isSame(edit_.picture(), page_));
  EXPECT_FALSE(edit_.canUndo());
  edit_.undo();
  EXPECT_TRUE(isSame(edit_.picture(), page_));
}

TEST_F(ImageEditTest, UndoBringsTheViewBackToThePicturesSides) {
  edit_.show(test::corners({900, 300}));
  edit_.view().originalSize();
  doEdit(edits::rotateRight);
  edit_.undo();
  EXPECT_EQ(edit_.view().scrollBars(), ScrollBars::Horizontal);
}

TEST_F(ImageEditTest, UndoOfARegionKeepsTheRectangle) {
  select(region);
  doEdit(edits::brighter);
  edit_.undo();
  EXPECT_THAT(edit_.buttons(), ElementsAre(RegionButton{region, false}));
  EXPECT_TRUE(isSame(whole(), page_));
}

TEST_F(ImageEditTest, ARevertCanBeUndone) {
  select(region);
  doEdit(edits::brighter);
  const Picture edited = whole();
  edit_.press({region, true});
  edit_.undo();
  EXPECT_TRUE(isSame(whole(), edited));
}

TEST_F(ImageEditTest, WhatWasSavedStaysMarkedThroughAnUndo) {
  doEdit(edits::rotateLeft);
  select({100, 100, 50, 40});
  doCrop();
  edit_.markSaved({10, 10, 20, 20});
  edit_.undo();
  EXPECT_THAT(edit_.savedMarks(), ElementsAre(PixelRect{110, 110, 20, 20}));
  edit_.undo();
  EXPECT_THAT(edit_.savedMarks(), ElementsAre(PixelRect{170, 110, 20, 20}));
}

TEST_F(ImageEditTest, OldStepsMakeRoomButTheLastOneStays) {
  const std::size_t page = std::size_t{300} * 200 * 4;
  for (const auto& [room, left] : {std::pair{page * 5 / 2, 3}, std::pair{std::size_t{0}, 1}}) {
    edit_ = ImageEdit(room);
    edit_.show(page_);
    for (int step = 0; step < 6; ++step)
      doEdit(edits::brighter);
    int steps = 0;
    for (; edit_.canUndo(); ++steps)
      edit_.undo();
    EXPECT_EQ(steps, left);
  }
}

TEST_F(ImageEditTest, AnotherPageKeepsNothingOfTheLastOne) {
  select(region);
  doEdit(edits::brighter);
  edit_.markSaved(region);
  edit_.show(test::corners({50, 40}));
  EXPECT_FALSE(edit_.canUndo());
  EXPECT_FALSE(edit_.selection().isThere());
  EXPECT_THAT(edit_.elements(), IsEmpty());
  EXPECT_THAT(edit_.savedMarks(), IsEmpty());
  EXPECT_EQ(edit_.view().size(), (TwipsSize{750, 600}));
}

TEST(RegionButtonTest, IsFortyFiveByTwentyOnTheScreen) {
  EXPECT_EQ(RegionButton::size, (TwipsSize{45 * 15, 20 * 15}));
}

} // namespace
} // namespace hearthbook
