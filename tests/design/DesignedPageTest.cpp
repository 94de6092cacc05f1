#include "DesignedPage.h"

#include "AlbumFixture.h"
#include "Decode.h"
#include "FileBytes.h"
#include "RunTimeError.h"
#include "TestPictures.h"

#include <gmock/gmock.h>

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
    std::filesystem::create_directories(wedding);
    writeBytes(wedding / name, bytes);
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

TEST_F(DesignedPageTest, ThePageBeforeStaysWhereTheNextOneFails) {
  const std::string before = write();
  page.texts.clear();
  page.music = at("Audio/gone.wav");
  EXPECT_THROW(writeDesignedPage(album().folder, page), std::exception);
  EXPECT_EQ(readBytes(target / "index.htm"), before);
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

TEST_F(DesignedPageTest, ADesignWithoutFilesIsTold) {
  page.design = "Funeral";
  EXPECT_THROW(writeDesignedPage(album().folder, page), RunTimeError);
}

TEST_F(DesignedPageTest, AFolderThatCannotBeWrittenToIsTold) {
  writeBytes(target, "a file where the folder should be");
  EXPECT_THROW(writeDesignedPage(album().folder, page), std::exception);
}

} // namespace

} // namespace hearthbook
