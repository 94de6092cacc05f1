#include "DesignedPage.h"

#include "AlbumFixture.h"
#include "Decode.h"
#include "Encode.h"
#include "FileBytes.h"
#include "RunTimeError.h"
#include "TestPictures.h"

#include <gmock/gmock.h>

#include <unistd.h>

#include <map>

namespace hearthbook {

namespace {

using test::readBytes;
using test::writeBytes;

class DesignedPageTest : public test::AlbumFixture {
protected:
  DesignedPageTest() {
    writeTemplate("index.htm", "<title>^^Title^^</title>^^Title^^|^^Bride^^|^^Groom^^|"
                               "^^Background^^|^^Music^^|<img src=\"Bride.jpg\">");
    writeTemplate("left_img.gif", "a drawing");
    writeTemplate("Bride.jpg", "nobody yet");
  }

  void writeTemplate(const char* name, const std::string& bytes) {
    std::filesystem::create_directories((wedding / name).parent_path());
    writeBytes(wedding / name, bytes);
  }

  /// Every file of the page with what is in it.
  [[nodiscard]] std::map<std::string, std::string> made() const {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(target))
      if (entry.is_regular_file())
        files[entry.path().string()] = readBytes(entry.path());
    return files;
  }

  void expectFailure(const char* file, const char* cause) {
    try {
      writeDesignedPage(album().folder, page);
      ADD_FAILURE() << "made without " << file;
    } catch (const RunTimeError& error) {
      EXPECT_THAT(error.what(),
                  testing::AllOf(testing::HasSubstr(file), testing::HasSubstr(cause)));
    }
  }

  std::string write() { return readBytes(writeDesignedPage(album().folder, page)); }

  std::filesystem::path wedding = at("export/templates/Wedding");
  std::filesystem::path target = at("export/testing1");
  DesignedPage page{
      "Wedding", {{"Title", "Our Day"}, {"Bride", "Clara"}, {"Groom", ""}}, {}, {}, {}};
};

TEST_F(DesignedPageTest, EveryTokenBecomesWhatWasWritten) {
  EXPECT_EQ(write(), "<title>Our Day</title>Our Day|Clara||||<img src=\"Bride.jpg\">");
}

TEST_F(DesignedPageTest, TextGoesInAsItIsWritten) {
  page.texts = {{"Title", "Grüße & <3"}, {"Bride", "\"Clara\""}, {"Groom", "^^Title^^ "}};
  EXPECT_EQ(write(), "<title>Grüße & <3</title>Grüße & <3|\"Clara\"|^^Title^^ |||"
                     "<img src=\"Bride.jpg\">");
}

TEST_F(DesignedPageTest, ItIsTheIndexOfTheFolderThatPagesAreMadeIn) {
  EXPECT_EQ(writeDesignedPage(album().folder, page), target / "index.htm");
}

TEST_F(DesignedPageTest, TheFilesOfTheDesignGoAlongAndStayAsTheyAre) {
  write();
  EXPECT_EQ(readBytes(target / "left_img.gif"), "a drawing");
  EXPECT_EQ(readBytes(target / "Bride.jpg"), "nobody yet");
  EXPECT_THAT(readBytes(wedding / "index.htm"), testing::HasSubstr("^^Title^^"));
}

TEST_F(DesignedPageTest, APhotoIsSavedByItsTagAtTheSizeOfItsBox) {
  page.photos = {{"Bride", test::corners({400, 600}), {120, 180}}};
  write();
  const Decoded saved = decodePicture(target / "Bride.jpg");
  EXPECT_EQ(saved.picture.size(), (PixelSize{120, 180}));
  EXPECT_LT(test::distance(saved.picture.row(10)[10], test::red), 8);
  EXPECT_LT(test::distance(saved.picture.row(170)[110], test::white), 8);
}

TEST_F(DesignedPageTest, ThePictureThatTilesThePageGoesAlong) {
  writeBytes(at("Media/Roses.GIF"), "roses");
  page.background = at("Media/Roses.GIF");
  EXPECT_THAT(write(), testing::HasSubstr("|background.gif|"));
  EXPECT_EQ(readBytes(target / "background.gif"), "roses");
}

TEST_F(DesignedPageTest, TheMusicGoesAlong) {
  writeBytes(at("Audio/march.wav"), "a march");
  page.music = at("Audio/march.wav");
  EXPECT_THAT(write(), testing::HasSubstr("|music.wav|"));
  EXPECT_EQ(readBytes(target / "music.wav"), "a march");
}

TEST_F(DesignedPageTest, AnotherPageTakesThePlaceOfTheOneBefore) {
  std::filesystem::create_directories(at("export/templates/New Baby"));
  writeBytes(at("export/templates/New Baby/index.htm"), "Baby ^^Title^^");
  writeBytes(at("Audio/march.wav"), "a march");
  page.music = at("Audio/march.wav");
  write();
  writeBytes(target / "letter.txt", "of the family's own");
  page.design = "New Baby";
  page.music.reset();
  EXPECT_EQ(write(), "Baby Our Day");
  EXPECT_FALSE(fileExists(target / "Bride.jpg"));
  EXPECT_FALSE(fileExists(target / "music.wav"));
  EXPECT_EQ(readBytes(target / "letter.txt"), "of the family's own");
}

TEST_F(DesignedPageTest, APhotoGoesAlongThoughTheDesignHasNoPictureForItsBox) {
  std::filesystem::remove(wedding / "Bride.jpg");
  page.photos = {{"Bride", test::corners({40, 60}), {12, 18}}};
  write();
  EXPECT_EQ(decodePicture(target / "Bride.jpg").picture.size(), (PixelSize{12, 18}));
}

TEST_F(DesignedPageTest, APhotoOfThePageBeforeGoesThoughNoDesignHasAPictureOfItsName) {
  std::filesystem::remove(wedding / "Bride.jpg");
  page.photos = {{"Bride", test::corners({40, 60}), {12, 18}}};
  write();
  ASSERT_TRUE(fileExists(target / "Bride.jpg"));
  page.photos.clear();
  write();
  EXPECT_FALSE(fileExists(target / "Bride.jpg"));
}

TEST_F(DesignedPageTest, ThePageBeforeStaysWholeWhereTheNextOneFails) {
  page.photos = {{"Bride", test::corners({40, 60}), {12, 18}}};
  write();
  const auto before = made();
  page.texts.clear();
  page.photos = {{"Bride", test::plain({40, 60}, test::red), {12, 18}}};
  page.music = at("Audio/gone.wav");
  EXPECT_THROW(writeDesignedPage(album().folder, page), RunTimeError);
  EXPECT_EQ(made(), before);
}

TEST_F(DesignedPageTest, ADesignThatCannotBeReadWholeMakesNoPageAndTellsTheFileAndTheCause) {
  std::filesystem::create_symlink("turn.gif", wedding / "turn.gif");
  expectFailure("turn.gif", "Too many levels of symbolic links");
  EXPECT_FALSE(std::filesystem::exists(target));
  std::filesystem::remove(wedding / "turn.gif");
  std::filesystem::create_symlink(wedding, wedding / "pictures");
  expectFailure("pictures", "it is a folder");
  EXPECT_FALSE(std::filesystem::exists(target));
}

TEST_F(DesignedPageTest, ADesignThatIsNoFolderIsToldWithTheCause) {
  std::filesystem::remove_all(wedding);
  writeBytes(wedding, "a file where the folder should be");
  expectFailure("Wedding", "not a folder");
}

TEST_F(DesignedPageTest, AFolderOfTheDesignThatMayNotBeReadIsToldAndMakesNoPage) {
  if (geteuid() == 0)
    GTEST_SKIP() << "everything can be read here";
  writeTemplate("pictures/rose.gif", "a rose");
  std::filesystem::permissions(wedding / "pictures", std::filesystem::perms::none);
  expectFailure("pictures", "access is not allowed");
  std::filesystem::permissions(wedding / "pictures", std::filesystem::perms::owner_all);
  EXPECT_FALSE(std::filesystem::exists(target));
}

TEST_F(DesignedPageTest, NothingIsLeftOfTheWorkOnIt) {
  write();
  page.music = at("Audio/gone.wav");
  EXPECT_THROW(writeDesignedPage(album().folder, page), RunTimeError);
  for (const auto& entry : std::filesystem::directory_iterator(target.parent_path()))
    EXPECT_THAT(entry.path().filename(), testing::AnyOf("templates", "testing1"));
}

TEST_F(DesignedPageTest, WhatARunThatWasCutShortLeftIsNotTakenForAPartOfThePage) {
  writeBytes(at("export/testing1.new/Groom.jpg"), "half a photo");
  write();
  EXPECT_FALSE(fileExists(target / "Groom.jpg"));
  EXPECT_FALSE(std::filesystem::exists(at("export/testing1.new")));
}

TEST_F(DesignedPageTest, FoldersOfTheDesignGoAlong) {
  writeTemplate("pictures/rose.gif", "a rose");
  write();
  EXPECT_EQ(readBytes(target / "pictures/rose.gif"), "a rose");
}

TEST_F(DesignedPageTest, APhotoIsSavedAtTheBestQuality) {
  const Picture photo = test::grainy({120, 180});
  page.photos = {{"Bride", photo, {120, 180}}};
  write();
  EXPECT_EQ(readBytes(target / "Bride.jpg"), jpegBytes(photo, 0));
}

TEST_F(DesignedPageTest, TheMusicAndTheBackgroundOfThePageBeforeMayBeTakenAgain) {
  writeBytes(at("Audio/march.wav"), "a march");
  writeBytes(at("Media/Roses.GIF"), "roses");
  page.music = at("Audio/march.wav");
  page.background = at("Media/Roses.GIF");
  write();
  page.music = target / "music.wav";
  page.background = target / "background.gif";
  EXPECT_THAT(write(), testing::HasSubstr("|music.wav|"));
  EXPECT_EQ(readBytes(target / "music.wav"), "a march");
  EXPECT_EQ(readBytes(target / "background.gif"), "roses");
}

TEST_F(DesignedPageTest, FilesOfTheFamilysOwnInFoldersBesideThePageStay) {
  write();
  std::filesystem::create_directories(target / "letters");
  writeBytes(target / "letters/background.doc", "how it began");
  write();
  EXPECT_EQ(readBytes(target / "letters/background.doc"), "how it began");
}

TEST_F(DesignedPageTest,
       AFolderOfTheDesignWhosePlaceIsTakenByAFileIsToldAndThePageBeforeStaysWhole) {
  write();
  writeTemplate("pictures/rose.gif", "a rose");
  writeBytes(target / "pictures", "a file where the folder should be");
  const auto before = made();
  page.photos = {{"Bride", test::corners({40, 60}), {12, 18}}};
  expectFailure("pictures", "Cannot write");
  EXPECT_EQ(made(), before);
}

TEST_F(DesignedPageTest, ADesignWithoutItsPageIsToldAndMakesNone) {
  std::filesystem::remove(wedding / "index.htm");
  expectFailure("index.htm", "it is not there");
  EXPECT_FALSE(std::filesystem::exists(target));
}

TEST_F(DesignedPageTest, ADesignWithoutFilesIsTold) {
  page.design = "Funeral";
  EXPECT_THROW(writeDesignedPage(album().folder, page), RunTimeError);
}

TEST_F(DesignedPageTest, AFolderThatCannotBeWrittenToIsTold) {
  writeBytes(target, "a file where the folder should be");
  expectFailure("testing1", "Cannot write");
}

} // namespace

} // namespace hearthbook
