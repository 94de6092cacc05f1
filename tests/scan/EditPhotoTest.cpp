#include "ScanFixture.h"

#include "Corrections.h"
#include "Encode.h"
#include "Pointer.h"
#include "Resample.h"

#include <gmock/gmock.h>

#include <fstream>
#include <system_error>

namespace hearthbook::test {

namespace {

using testing::Contains;
using testing::ElementsAre;
namespace fs = std::filesystem;

class EditPhoto : public ScanFixture {
protected:
  EditPhoto() {
    writeBytes(photo_, jpegOf(grainy({600, 400})));
    folder_.addPhoto("HD00002");
    folder_.addPhoto("HD00003");
    photos().MoveFirst();
    original_ = readBytes(photo_);
  }

  void expectChangedMeanwhile(MsgAnswer answer) {
    boxes_.expectQuestion(toQString("Another program has changed this photo since it was opened "
                                    "here. Update it all the same? What is there now goes to the "
                                    "trash."),
                          toQString("Update Photo"), MsgIcon::Exclamation, MsgButtons::YesNo,
                          answer);
  }
  void expectLosingEdits(MsgAnswer answer) {
    boxes_.expectQuestion(
        toQString("The photo was not updated: what you have changed will be lost."),
        toQString("Edit Image"), MsgIcon::Exclamation, MsgButtons::OkCancel, answer);
  }
  void expectCloseToAsk(const Scan& scan) {
    expectLosingEdits(MsgAnswer::Cancel);
    press(scan, "BtnClose");
    ASSERT_NE(Forms::loaded<Scan>(), nullptr);
    expectLosingEdits(MsgAnswer::Ok);
    press(scan, "BtnClose");
    EXPECT_EQ(Forms::loaded<Scan>(), nullptr);
  }
  std::vector<std::string> rows() {
    std::vector<std::string> all;
    Recordset rows(data().AlbumDB);
    rows.Open("SELECT * FROM PhotoAlbum ORDER BY PictureID");
    for (; !rows.atEOF(); rows.MoveNext()) {
      std::string row;
      for (const std::string& field : rows.fieldNames())
        row += rows.Collect(field).toText() + "|";
      all.push_back(row);
    }
    return all;
  }

  /// Nothing can take the thumbnail's place.
  void blockThumbnail() {
    fs::remove(thumbnail_);
    fs::create_directories(thumbnail_ / "in the way");
  }
  void expectThumbnailFailure() {
    boxes_.expectFailure(toQString("The photo is saved, but its thumbnail is not. "));
  }
  static int timesOpen(const fs::path& file) {
    const fs::path opened = fs::canonical(file);
    int times = 0;
    for (const auto& descriptor : fs::directory_iterator("/proc/self/fd")) {
      std::error_code gone;
      times += fs::read_symlink(descriptor, gone) == opened ? 1 : 0;
    }
    return times;
  }

  const fs::path photo_ = at("Photos/00001.jpg");
  const fs::path thumbnail_ = at("Thumbnails/00001.jpg");
  std::string original_;
};

} // namespace

TEST_F(EditPhoto, ThePhotoIsLoadedAndEveryCommandUsable) {
  const auto& scan = openPhoto();
  EXPECT_EQ(scan.page().picture().size(), (PixelSize{600, 400}));
  EXPECT_EQ(control<QAbstractButton>(scan, "Command1")->text(), toQString("Update Photo"));
  EXPECT_TRUE(control(scan, "Command7")->isVisible());
  for (const char* name : {"Command1", "Command2", "Command7", "Command10"})
    EXPECT_TRUE(isEnabled(scan, name)) << name;
  EXPECT_TRUE(scanner_.wishes.empty()) << "nothing is scanned";
  EXPECT_EQ(scanner_.searches, 0) << "no scanner is woken";
}

TEST_F(EditPhoto, APhotoThatCannotBeDecodedIsTold) {
  writeBytes(photo_, "no picture at all");
  boxes_.expectMessage(toQString("The Image Could Not Be Displayed"), toQString("Edit Image"),
                       MsgIcon::Critical);
  const auto& scan = openPhoto();
  EXPECT_THAT(usableCommands(scan), ElementsAre("BtnClose", "Command2", "stopButton"));
}

TEST_F(EditPhoto, AMissingPhotoIsTold) {
  fs::remove(photo_);
  boxes_.expectMessage(toQString("The Image Could Not Be Displayed"), toQString("Edit Image"),
                       MsgIcon::Critical);
  openPhoto();
}

TEST_F(EditPhoto, UpdatePhotoChangesTheTwoFilesAndNothingElse) {
  const auto before = rows();
  const std::string neighbour = readBytes(at("Photos/00002.jpg"));
  const auto& scan = openPhoto();
  press(scan, "Command11");
  const Picture edited = scan.page().picture();
  press(scan, "Command1");
  EXPECT_EQ(Forms::loaded<Scan>(), nullptr) << "the form is unloaded";
  EXPECT_EQ(readBytes(photo_), jpegOf(edited, 0));
  EXPECT_EQ(readBytes(thumbnail_), jpegOf(resample(edited, {73, 49}), thumbnailFactor));
  EXPECT_FALSE(Hourglass::isShown());
  EXPECT_EQ(rows(), before);
  EXPECT_EQ(readBytes(at("Photos/00002.jpg")), neighbour);
  EXPECT_THAT(namesIn(at("Photos")), ElementsAre("00001.jpg", "00002.jpg", "00003.jpg"));
}

TEST_F(EditPhoto, TheOriginalGoesToTheTrash) {
  const auto& scan = openPhoto();
  press(scan, "Command3");
  press(scan, "Command1");
  EXPECT_EQ(readBytes(folder_.trash() / "00001.jpg"), original_);
}

TEST_F(EditPhoto, EditedRegionsAreWrittenWithThePhoto) {
  const auto& scan = openPhoto();
  draw(scan, {100, 100}, {300, 200});
  press(scan, "Command12");
  const Picture whole = ImageEdit::asSeen(scan.page().whole());
  press(scan, "Command1");
  EXPECT_EQ(readBytes(photo_), jpegOf(whole, 0));
}

TEST_F(EditPhoto, UpdatePhotoWritesToThePhotoOnWhichTheAlbumStandsNow) {
  const auto& scan = openPhoto();
  photos().MoveNext();
  vars().ImagePath = at("Photos/00003.jpg"); // as another form has resolved last
  expectChangedMeanwhile(MsgAnswer::Yes);    // it is not the file that was opened
  press(scan, "Command1");
  EXPECT_EQ(readBytes(photo_), original_);
  EXPECT_EQ(readPictureInfo(at("Photos/00002.jpg")).size, (PixelSize{600, 400}));
  EXPECT_EQ(readPictureInfo(at("Photos/00003.jpg")).size, (PixelSize{64, 48}));
}

TEST_F(EditPhoto, AFileThatAnotherProgramHasReplacedIsAskedFor) {
  auto& scan = openPhoto();
  press(scan, "Command11");
  const std::string theirs = jpegOf(plain({30, 20}, red));
  writeBytes(photo_, theirs);
  expectChangedMeanwhile(MsgAnswer::No);
  press(scan, "Command1");
  EXPECT_EQ(readBytes(photo_), theirs);
  expectChangedMeanwhile(MsgAnswer::Yes);
  press(scan, "Command1");
  EXPECT_EQ(readPictureInfo(photo_).size, (PixelSize{600, 400}));
  EXPECT_EQ(readBytes(folder_.trash() / "00001.jpg"), theirs);
}

TEST_F(EditPhoto, AFailedUpdateIsReportedAndThePhotoStays) {
  const auto& scan = openPhoto();
  press(scan, "Command11");
  const Picture edited = scan.page().picture();
  fs::rename(at("Photos"), at("Photos away"));
  writeBytes(at("Photos"), "no folder");
  expectChangedMeanwhile(MsgAnswer::Yes);
  boxes_.expectFailure(toQString("Photos"));
  press(scan, "Command1");
  EXPECT_EQ(readBytes(at("Photos away/00001.jpg")), original_);
  ASSERT_NE(Forms::loaded<Scan>(), nullptr) << "nothing of the work is lost";
  EXPECT_TRUE(isSame(scan.page().picture(), edited));
  expectLosingEdits(MsgAnswer::Ok);
  Forms::get<Scan>().Unload();
}

TEST_F(EditPhoto, ClosingWithoutUpdatingAsksFirst) {
  auto& scan = openPhoto();
  press(scan, "Command11");
  expectCloseToAsk(scan);
  EXPECT_EQ(readBytes(photo_), original_);
}

TEST_F(EditPhoto, ClosingWhatWasNotChangedAsksNothing) {
  auto& scan = openPhoto();
  draw(scan, {100, 100}, {300, 200});
  press(scan, "BtnClose");
  EXPECT_EQ(Forms::loaded<Scan>(), nullptr);
}

TEST_F(EditPhoto, CutAndSaveAsNewAddsARowOnAConnectionOfItsOwn) {
  photos().MoveNext();
  writeBytes(at("Photos/00002.jpg"), jpegOf(grainy({600, 400}, 2)));
  const auto& scan = openPhoto();
  draw(scan, {100, 100}, {300, 200});
  const Picture part = cropped(scan.page().picture(), scan.page().selected());
  const std::string whole = readBytes(at("Photos/00002.jpg"));
  press(scan, "Command7");
  EXPECT_EQ(photos().RecordCount(), 3) << "the shared rows stay as they are";
  EXPECT_EQ(photos().Collect("PictureID").toText(), "HD00002");
  EXPECT_EQ(rows().size(), 4u);
  EXPECT_EQ(rows().back().substr(0, 8), "HD00004|");
  EXPECT_EQ(readBytes(at("Photos/00004.jpg")), jpegOf(part, 0));
  EXPECT_EQ(readPictureInfo(at("Thumbnails/00004.jpg")).size.width, 73);
  EXPECT_EQ(readBytes(at("Photos/00002.jpg")), whole);
}

TEST_F(EditPhoto, TwoPartsGetTwoNumbers) {
  const auto& scan = openPhoto();
  for (const double left : {50.0, 300.0}) {
    draw(scan, {left, 100}, {left + 100, 200});
    press(scan, "Command7");
  }
  EXPECT_THAT(namesIn(at("Photos")),
              ElementsAre("00001.jpg", "00002.jpg", "00003.jpg", "00004.jpg", "00005.jpg"));
  EXPECT_EQ(rows().size(), 5u);
}

TEST_F(EditPhoto, WithoutARectangleNothingIsCut) {
  boxes_.expectMessage(toQString("Please Make A Selection\nBy Draging Your Mouse On The Image."),
                       toQString("Save Selected Image"));
  press(openPhoto(), "Command7");
  EXPECT_EQ(rows().size(), 3u);
}

TEST_F(EditPhoto, TheMarkOfACutPartIsNotWrittenIntoThePhoto) {
  const auto& scan = openPhoto();
  draw(scan, {100, 100}, {300, 200});
  press(scan, "Command7");
  press(scan, "Command3");
  const Picture edited = scan.page().picture();
  press(scan, "Command1");
  EXPECT_EQ(readBytes(photo_), jpegOf(edited, 0));
}

TEST_F(EditPhoto, ScanAgainTakesThePhotoAnewFromTheScanner) {
  willSend(corners({300, 200}));
  const auto& scan = openPhoto();
  press(scan, "Command2");
  EXPECT_TRUE(isSame(scan.page().picture(), corners({300, 200})));
  press(scan, "Command1");
  EXPECT_EQ(readPictureInfo(photo_).size, (PixelSize{300, 200}));
}

TEST_F(EditPhoto, ScanAgainAsksBeforeItDropsWhatWasChanged) {
  const auto& scan = openPhoto();
  press(scan, "Command11");
  const Picture edited = scan.page().picture();
  expectLosingEdits(MsgAnswer::Cancel);
  press(scan, "Command2");
  EXPECT_TRUE(scanner_.wishes.empty());
  EXPECT_TRUE(isSame(scan.page().picture(), edited));
  willSend(corners({300, 200}));
  expectLosingEdits(MsgAnswer::Ok);
  press(scan, "Command2");
  EXPECT_TRUE(isSame(scan.page().picture(), corners({300, 200})));
  expectLosingEdits(MsgAnswer::Ok);
  press(scan, "BtnClose");
}

TEST_F(EditPhoto, CloseWhileAnEditRunsAsksAboutThatEditToo) {
  const auto& scan = openPhoto();
  auto held = holdPool();
  FormControls::press(scan, "Command11");
  FormControls::press(scan, "BtnClose");
  expectLosingEdits(MsgAnswer::Cancel);
  held.reset();
  settle();
  ASSERT_NE(Forms::loaded<Scan>(), nullptr);
  EXPECT_TRUE(scan.page().canUndo());
  expectLosingEdits(MsgAnswer::Ok);
  press(scan, "BtnClose");
}

TEST_F(EditPhoto, WhatWasAskedForBeforeCloseIsDoneFirst) {
  const auto& scan = openPhoto();
  const Picture before = scan.page().picture();
  auto held = holdPool();
  for (const char* name : {"Command4", "Command4", "Command1", "BtnClose"})
    FormControls::press(scan, name);
  held.reset();
  waitUntil([] { return !Forms::loaded<Scan>(); });
  EXPECT_EQ(readBytes(photo_), jpegOf(rotated(before, 180), 0));
}

TEST_F(EditPhoto, NothingIsDoneToAPhotoThatIsUpdatedAndClosed) {
  const auto& scan = openPhoto();
  const Picture before = scan.page().picture();
  const auto count = photos().RecordCount();
  auto held = holdPool();
  for (const char* name : {"Command11", "Command1", "Command1", "Command4", "Command7"})
    FormControls::press(scan, name);
  held.reset();
  waitUntil([] { return !Forms::loaded<Scan>(); });
  finishPool();
  EXPECT_EQ(readBytes(photo_), jpegOf(withLightness(before, 10), 0));
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_.trash()), {}), 1);
  EXPECT_EQ(photos().RecordCount(), count);
}

TEST_F(EditPhoto, AFailedScanAgainLeavesNothingButCloseAndThePhotoAsItWas) {
  const auto& scan = openPhoto();
  press(scan, "Command11");
  willFail(ScanStatus::Jammed);
  expectLosingEdits(MsgAnswer::Ok);
  press(scan, "Command2");
  EXPECT_THAT(usableCommands(scan), ElementsAre("BtnClose", "stopButton"));
  EXPECT_EQ(hintOf(scan), "The paper is stuck in the scanner. To try again, close this window and "
                          "open it anew.");
  press(scan, "BtnClose"); // that the changes are lost was said before
  EXPECT_EQ(Forms::loaded<Scan>(), nullptr);
  EXPECT_EQ(readBytes(photo_), original_);
}

TEST_F(EditPhoto, StopWhileThePhotoIsOpenedLeavesAnEmptyForm) {
  auto held = holdPool();
  resolveImage(album(), "HD00001");
  auto& scan = Forms::get<Scan>();
  scan.Tag = toQString("edit");
  scan.begin();
  scan.Show();
  ASSERT_TRUE(scan.isBusy());
  press(scan, "stopButton");
  EXPECT_FALSE(scan.isBusy());
  held.reset();
  finishPool();
  EXPECT_TRUE(scan.page().isEmpty()) << "what was still being read comes too late";
  EXPECT_EQ(hintOf(scan), "It was not opened.");
  EXPECT_THAT(usableCommands(scan), ElementsAre("BtnClose", "Command2", "stopButton"));
  press(scan, "BtnClose");
  EXPECT_EQ(readBytes(photo_), original_);
}

TEST_F(EditPhoto, APhotoOfTwoHundredMegapixelsIsOpenedAndPutRight) {
  constexpr PixelSize huge{20'000, 10'000};
  writeBytes(photo_, plainGreyJpeg(huge, 100));
  const auto& scan = openPhoto();
  ASSERT_EQ(scan.page().picture().size(), huge);
  EXPECT_TRUE(isEnabled(scan, "Command1"));
  const std::uint32_t before = scan.page().picture().row(9'999)[19'999];
  draw(scan, {15'000, 8'000}, {20'000, 10'000});
  press(scan, "Command11");
  ASSERT_EQ(scan.page().elements().size(), 1u);
  EXPECT_GT(scan.page().elements()[0].result.row(0)[0], before);
  press(scan, "undoButton");
}

TEST_F(EditPhoto, APhotoLargerThanThereIsRoomForIsTold) {
  writeBytes(photo_, plainGreyJpeg({20'000, 16'000}, 100));
  boxes_.expectMessage(toQString("The Image Could Not Be Displayed"), toQString("Edit Image"),
                       MsgIcon::Critical);
  const auto& scan = openPhoto();
  EXPECT_NE(hintOf(scan).find("too large"), std::string::npos) << hintOf(scan);
}

TEST_F(EditPhoto, APictureTooLongForAJpegIsToldAndTheOldPhotoStaysWhole) {
  const auto& scan = openPhoto();
  willSend(plain({70'000, 10}, red));
  press(scan, "Command2");
  boxes_.expectFailure(toQString("A JPEG cannot have more than 65500 pixels on a side."));
  press(scan, "Command1");
  ASSERT_NE(Forms::loaded<Scan>(), nullptr);
  EXPECT_TRUE(isEnabled(scan, "Command1"));
  EXPECT_EQ(readBytes(photo_), original_);
  EXPECT_TRUE(namesIn(folder_.trash()).empty());
  press(scan, "Command9");
  draw(scan, {35000, 1}, {35300, 9});
  press(scan, "Command6");
  press(scan, "Command1");
  EXPECT_EQ(Forms::loaded<Scan>(), nullptr);
  EXPECT_NEAR(readPictureInfo(photo_).size.width, 300, 2);
}

TEST_F(EditPhoto, OnAFullDiskTheUpdateIsToldThePhotoStaysAndItCanBeTriedAgain) {
  if (!canMount)
    GTEST_SKIP() << "this machine lets tests mount nothing";
  const SmallDisk disk(at("Photos"), std::size_t{2} << 20);
  writeBytes(photo_, original_);
  disk.fillUpTo(20'000);
  const auto& scan = openPhoto();
  press(scan, "Command11");
  const Picture edited = scan.page().picture();
  boxes_.expectFailure(toQString("00001.jpg\": the disk is full."));
  press(scan, "Command1");
  ASSERT_NE(Forms::loaded<Scan>(), nullptr);
  EXPECT_EQ(readBytes(photo_), original_);
  EXPECT_THAT(namesIn(at("Photos")), Contains("00001.jpg"));
  EXPECT_TRUE(isSame(scan.page().picture(), edited)) << "nothing of the work is lost";
  disk.makeRoom();
  press(scan, "Command1");
  EXPECT_EQ(Forms::loaded<Scan>(), nullptr);
  EXPECT_EQ(readBytes(photo_), jpegOf(edited, 0));
}

TEST_F(EditPhoto, APartThatCannotBeSavedIsToldAndItsRowStays) {
  const auto& scan = openPhoto();
  fs::rename(at("Photos"), at("Photos away"));
  writeBytes(at("Photos"), "no folder");
  draw(scan, {100, 100}, {300, 200});
  boxes_.expectMessage(toQString("File Could Not Be Saved, Please Scan Photo Again"),
                       toQString("Save Selected"), MsgIcon::Exclamation);
  press(scan, "Command7");
  EXPECT_EQ(rows().back().substr(0, 8), "HD00004|");
  EXPECT_TRUE(scan.page().selection().isThere()) << "so that it can be tried again";
}

TEST_F(EditPhoto, APageLeftByACrashIsNotTouched) {
  const std::string left = jpegOf(grainy({60, 40}));
  writeBytes(at("Backup/Scanned page.jpg"), left);
  openPhoto().Unload();
  EXPECT_EQ(readBytes(at("Backup/Scanned page.jpg")), left);
  auto& scan = openPhoto();
  willSend(corners({300, 200}));
  press(scan, "Command2");
  finishPool();
  EXPECT_EQ(readBytes(at("Backup/Scanned page.jpg")), left);
  expectLosingEdits(MsgAnswer::Ok);
  scan.Unload();
  EXPECT_EQ(readBytes(at("Backup/Scanned page.jpg")), left);
}

TEST_F(EditPhoto, AScannedPageIsKeptUntilTheFormIsClosedWhereNoneWasLeft) {
  auto& scan = openPhoto();
  willSend(corners({300, 200}));
  press(scan, "Command2");
  finishPool();
  EXPECT_TRUE(fs::exists(at("Backup/Scanned page.jpg")));
  expectLosingEdits(MsgAnswer::Ok);
  scan.Unload();
  EXPECT_FALSE(fs::exists(at("Backup/Scanned page.jpg")));
}

TEST_F(EditPhoto, ClosingAPageThatCameByScanAgainAsksFirst) {
  willSend(corners({300, 200}));
  const auto& scan = openPhoto();
  press(scan, "Command2");
  expectCloseToAsk(scan);
}

TEST_F(EditPhoto, AnUpdateWhoseThumbnailFailsIsToldAsThatAndCanBeTriedAgain) {
  blockThumbnail();
  const auto& scan = openPhoto();
  press(scan, "Command11");
  const Picture edited = scan.page().picture();
  expectThumbnailFailure();
  press(scan, "Command1");
  ASSERT_NE(Forms::loaded<Scan>(), nullptr);
  EXPECT_EQ(readBytes(photo_), jpegOf(edited, 0));
  EXPECT_FALSE(Hourglass::isShown());
  fs::remove_all(thumbnail_);
  press(scan, "Command1"); // what it has written itself is no other program's change
  EXPECT_EQ(Forms::loaded<Scan>(), nullptr);
  EXPECT_EQ(readBytes(thumbnail_), jpegOf(resample(edited, {73, 49}), thumbnailFactor));
}

TEST_F(EditPhoto, ClosingAfterAnUpdateWhoseThumbnailFailedAsksOnlyForLaterEdits) {
  blockThumbnail();
  const auto& scan = openPhoto();
  press(scan, "Command11");
  expectThumbnailFailure();
  press(scan, "Command1");
  press(scan, "Command11");
  expectLosingEdits(MsgAnswer::Cancel);
  press(scan, "BtnClose");
  expectThumbnailFailure();
  press(scan, "Command1");
  press(scan, "BtnClose");
  EXPECT_EQ(Forms::loaded<Scan>(), nullptr);
}

TEST_F(EditPhoto, CutAndSaveAsNewClosesTheRowsThatItOpened) {
  const auto& scan = openPhoto();
  const auto before = timesOpen(at("Data/Photo_Album.mdb"));
  ASSERT_GT(before, 0);
  draw(scan, {100, 100}, {300, 200});
  press(scan, "Command7");
  EXPECT_EQ(timesOpen(at("Data/Photo_Album.mdb")), before);
  fs::create_directories(at("Thumbnails/00005.jpg/in the way"));
  draw(scan, {100, 100}, {300, 200});
  boxes_.expectFailure(toQString("thumbnail"));
  press(scan, "Command7");
  EXPECT_EQ(timesOpen(at("Data/Photo_Album.mdb")), before);
}

} // namespace hearthbook::test
