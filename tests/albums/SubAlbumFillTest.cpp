#include "SubAlbumFixture.h"

namespace hearthbook::test {

namespace {

/// Photos that come into a sub-album, leave it, and are put in order at once.
class SubAlbumFillForm : public SubAlbumFixture {};

} // namespace

TEST_F(SubAlbumFillForm, ThePhotoOfBuildAlbumGoesBehindTheOthersIntoView) {
  const auto lake = addAlbumUpTo(20);
  data().rsPhotoAlbum.MoveFirst();
  auto& form = openForEditor();
  choose(form, lake);
  expectAdded("Photo Was Successfully Added to Lake Sub-Album");
  press(form, "OKButton");
  EXPECT_EQ(storedOrder(folder_, lake).back(), std::pair(photoId(1), std::int64_t{19}));
  EXPECT_EQ(text(form, "lblCount"), "20 photos in sub-album");
  EXPECT_EQ(scroll(form).value(), 1);
}

TEST_F(SubAlbumFillForm, APhotoThatIsThereAlreadyIsNotAddedAgain) {
  const auto lake = addAlbumUpTo(3);
  data().rsPhotoAlbum.MoveLast();
  auto& form = openForEditor();
  choose(form, lake);
  expectAdded("This Photo Is Already In This Sub-Album.");
  press(form, "OKButton");
  EXPECT_EQ(storedNumbers(folder_, lake), (Numbers{2, 3}));
  EXPECT_EQ(data().rsSubAlbumPhotos.Filter(), "");
  EXPECT_EQ(shown(form), (Numbers{2, 3}));
}

TEST_F(SubAlbumFillForm, AddingWantsASubAlbum) {
  addAlbumUpTo(3);
  auto& form = openForEditor();
  expectAdded("Please Select A Sub-Album From The List.");
  press(form, "OKButton");
  leave();
  auto& search = openForResult();
  expectAdded("Please Select A Sub-Album From The List.");
  press(search, "OKButton");
}

TEST_F(SubAlbumFillForm, OfAWholeResultOnlyWhatIsNewIsAdded) {
  addPhotoRows(folder_, 30);
  const auto lake = addSubAlbum(folder_, "Lake", {5, 3});
  auto& form = openForResult();
  choose(form, lake);
  for (int twice = 0; twice < 2; ++twice) {
    expectAdded("Selected Photos Were Successfully Added to Lake Sub-Album");
    press(form, "OKButton");
    EXPECT_EQ(text(form, "lblCount"), "30 photos in sub-album");
  }
  const auto numbers = storedNumbers(folder_, lake);
  EXPECT_EQ(numbers.size(), 30u);
  EXPECT_EQ(Numbers(numbers.begin(), numbers.begin() + 5), (Numbers{5, 3, 1, 2, 4}));
  EXPECT_EQ(scroll(form).value(), 2);
  EXPECT_EQ(text(form, "lblWait"), "30 Photos are in search results.");
}

TEST_F(SubAlbumFillForm, TheSelectedPhotosAreAddedInTheOrderOfTheResult) {
  addPhotoRows(folder_, 9);
  const auto lake = addSubAlbum(folder_, "Lake", {});
  for (const int position : {7, 2, 5})
    vars().selection.select(position);
  auto& form = openForResult();
  choose(form, lake);
  expectAdded("Selected Photos Were Successfully Added to Lake Sub-Album");
  press(form, "OKButton");
  EXPECT_EQ(storedNumbers(folder_, lake), (Numbers{2, 5, 7}));
  EXPECT_EQ(shown(form), (Numbers{2, 5, 7}));
}

TEST_F(SubAlbumFillForm, AMovedPhotoKeepsItsPlaceWhenOthersAreAdded) {
  const auto lake = addAlbumUpTo(4);
  data().rsPhotoAlbum.MoveFirst();
  auto& form = openForEditor();
  choose(form, lake);
  Q_EMIT strip(form).moveAsked(2, 0);
  expectAdded("Photo Was Successfully Added to Lake Sub-Album");
  press(form, "OKButton");
  EXPECT_EQ(storedNumbers(folder_, lake), (Numbers{4, 2, 3, 1}));
}

TEST_F(SubAlbumFillForm, ARemovedPhotoLeavesTheSubAlbumAlone) {
  const auto lake = addAlbumUpTo(5);
  auto& form = openForEditor();
  choose(form, lake);
  Q_EMIT strip(form).menuAsked(1, {});
  EXPECT_EQ(vars().ContextPhotoID, photoId(3));
  EXPECT_EQ(menu_.popUps, 1);
  form.removePhoto();
  settle();
  EXPECT_EQ(storedNumbers(folder_, lake), (Numbers{2, 4, 5}));
  EXPECT_EQ(shown(form), (Numbers{2, 4, 5}));
  EXPECT_EQ(text(form, "lblCount"), "3 photos in sub-album");
  EXPECT_EQ(data().rsPhotoAlbum.RecordCount(), 5);
  leave();
  EXPECT_EQ(storedOrder(folder_, lake),
            (Stored{{photoId(2), 0}, {photoId(4), 1}, {photoId(5), 2}}));
}

TEST_F(SubAlbumFillForm, RemovingWantsASubAlbum) {
  const auto lake = addAlbumUpTo(3);
  auto& form = openForEditor();
  vars().ContextPhotoID = photoId(2);
  form.removePhoto();
  EXPECT_EQ(storedNumbers(folder_, lake), (Numbers{2, 3}));
}

TEST_F(SubAlbumFillForm, TheLastPhotoCanBeRemoved) {
  const auto lake = addSubAlbum(folder_, "Lake", {1});
  auto& form = openForEditor();
  choose(form, lake);
  Q_EMIT strip(form).removeAsked(0);
  settle();
  EXPECT_TRUE(cells(form).empty());
  EXPECT_EQ(text(form, "lblCount"), "0 photos in sub-album");
}

TEST_F(SubAlbumFillForm, LeavingItStoresTheOrderAndTheAlbumPagesAreTold) {
  const auto lake = addAlbumUpTo(4);
  auto& note = Forms::get<ChangesNote>();
  auto& form = openForViewer(lake);
  Q_EMIT strip(form).moveAsked(2, 0);
  press(form, "CancelButton");
  EXPECT_EQ(Forms::loaded<AddSubAlbum>(), nullptr);
  EXPECT_EQ(storedNumbers(folder_, lake), (Numbers{4, 2, 3}));
  EXPECT_EQ(note.told, std::vector{RowsChanged::By::OrderWritten});
}

TEST_F(SubAlbumFillForm, TheAlbumPagesAreNotToldWhereNothingChangedOrSomebodyElseOpenedIt) {
  const auto lake = addAlbumUpTo(4);
  auto& note = Forms::get<ChangesNote>();
  openForViewer(lake);
  leave();
  auto& form = openForEditor();
  choose(form, lake);
  Q_EMIT strip(form).moveAsked(2, 0);
  leave();
  EXPECT_EQ(storedNumbers(folder_, lake), (Numbers{4, 2, 3}));
  EXPECT_TRUE(note.told.empty());
}

TEST_F(SubAlbumFillForm, AnArrangementWantsASubAlbum) {
  addAlbumUpTo(3);
  auto& form = openForEditor();
  boxes_.expectMessage(toQString("Please select sub-album first"), toQString("Arrange Sub-Album"),
                       MsgIcon::Exclamation);
  arrange(form, "By Year");
  EXPECT_EQ(text(form, "Combo1"), "Select Auto Arrange:");
  arrange(form, "Select Auto Arrange:"); // says nothing
}

TEST_F(SubAlbumFillForm, AnArrangementSortsAndIsStoredAtTheEnd) {
  const auto lake = addAlbumUpTo(6);
  auto& form = openForEditor();
  choose(form, lake);
  expectArrangeQuestion(MsgAnswer::Ok);
  arrange(form, "By Year");
  EXPECT_EQ(shown(form), (Numbers{6, 5, 4, 3, 2}));
  EXPECT_EQ(text(form, "Combo1"), "By Year");
  EXPECT_EQ(storedNumbers(folder_, lake), (Numbers{2, 3, 4, 5, 6}));
  leave();
  EXPECT_EQ(storedNumbers(folder_, lake), (Numbers{6, 5, 4, 3, 2}));
}

TEST_F(SubAlbumFillForm, AnArrangementIsStoredBeforeAnotherSubAlbumIsShown) {
  addPhotoRows(folder_, 6);
  const auto lake = addSubAlbum(folder_, "Lake", {2, 3, 4});
  const auto home = addSubAlbum(folder_, "Home", {6, 5});
  auto& form = openForEditor();
  choose(form, lake);
  expectArrangeQuestion(MsgAnswer::Ok);
  arrange(form, "By Year");
  choose(form, home);
  EXPECT_EQ(storedNumbers(folder_, lake), (Numbers{4, 3, 2}));
  EXPECT_EQ(shown(form), (Numbers{6, 5}));
  EXPECT_EQ(text(form, "Combo1"), "Select Auto Arrange:");
}

// The arrangement stays with the open sub-album until it is chosen anew.
TEST_F(SubAlbumFillForm, AnArrangementSortsAgainWhenAPhotoIsRemovedOrAdded) {
  addPhotoRows(folder_, 6);
  const auto lake = addSubAlbum(folder_, "Lake", {2, 3, 4, 5});
  data().rsPhotoAlbum.MoveLast();
  auto& form = openForEditor();
  choose(form, lake);
  expectArrangeQuestion(MsgAnswer::Ok);
  arrange(form, "By Year");
  Q_EMIT strip(form).moveAsked(3, 0);
  EXPECT_EQ(shown(form), (Numbers{2, 5, 4, 3}));
  Q_EMIT strip(form).removeAsked(2);
  settle();
  EXPECT_EQ(shown(form), (Numbers{5, 3, 2}));
  Q_EMIT strip(form).moveAsked(2, 0);
  expectAdded("Photo Was Successfully Added to Lake Sub-Album");
  press(form, "OKButton");
  EXPECT_EQ(shown(form), (Numbers{6, 5, 3, 2}));
  leave();
  EXPECT_EQ(storedNumbers(folder_, lake), (Numbers{6, 5, 3, 2}));
}

TEST_F(SubAlbumFillForm, AnArrangementThatIsRefusedLeavesTheStrip) {
  const auto lake = addAlbumUpTo(6);
  auto& form = openForEditor();
  choose(form, lake);
  expectArrangeQuestion(MsgAnswer::Cancel);
  arrange(form, "By Year");
  EXPECT_EQ(shown(form), (Numbers{2, 3, 4, 5, 6}));
  EXPECT_EQ(text(form, "Combo1"), "By Year");
  leave();
  EXPECT_EQ(storedNumbers(folder_, lake), (Numbers{2, 3, 4, 5, 6}));
}

TEST_F(SubAlbumFillForm, ManuallyDoesNothing) {
  const auto lake = addAlbumUpTo(4);
  auto& form = openForEditor();
  choose(form, lake);
  arrange(form, "Manually");
  EXPECT_EQ(shown(form), (Numbers{2, 3, 4}));
}

TEST_F(SubAlbumFillForm, AnOrderThatCannotBeStoredKeepsTheFormOpen) {
  const auto lake = addAlbumUpTo(4);
  auto& form = openForEditor();
  choose(form, lake);
  Q_EMIT strip(form).moveAsked(2, 0);
  data().AlbumDB.execute("CREATE TEMP TRIGGER Full BEFORE UPDATE ON SubAlbumPhotos BEGIN SELECT "
                         "RAISE(ABORT, 'full'); END");
  boxes_.expectFailure({});
  press(form, "CancelButton");
  EXPECT_NE(Forms::loaded<AddSubAlbum>(), nullptr);
  EXPECT_EQ(shown(form), (Numbers{4, 2, 3}));
  data().AlbumDB.execute("DROP TRIGGER Full");
  press(form, "CancelButton");
  EXPECT_EQ(storedNumbers(folder_, lake), (Numbers{4, 2, 3}));
}

TEST_F(SubAlbumFillForm, APhotoWhoseRemovalFailsIsStillAMember) {
  const auto lake = addAlbumUpTo(4);
  auto& form = openForEditor();
  choose(form, lake);
  data().AlbumDB.execute("CREATE TEMP TRIGGER Full BEFORE UPDATE ON SubAlbumPhotos BEGIN SELECT "
                         "RAISE(ABORT, 'full'); END");
  Q_EMIT strip(form).moveAsked(2, 0);
  boxes_.expectFailure({});
  Q_EMIT strip(form).removeAsked(1);
  EXPECT_EQ(data().rsSubAlbumPhotos.RecordCount(), 3);
  EXPECT_EQ(shown(form), (Numbers{4, 2, 3}));
  data().AlbumDB.execute("DROP TRIGGER Full");
  Q_EMIT strip(form).removeAsked(1);
  EXPECT_EQ(storedNumbers(folder_, lake), (Numbers{4, 3}));
}

} // namespace hearthbook::test
