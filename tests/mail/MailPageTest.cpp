#include "MailPage.h"

#include "AlbumFixture.h"
#include "PhotoFiles.h"

#include <gmock/gmock.h>

namespace hearthbook::test {

using testing::ElementsAre;

namespace {

const MailPhoto wedding{"HD00012", "1987", "Wedding in Lake"};
const MailPhoto school{"HD00013", "", ""};
const MailPhoto disc{"CD00014", "1990", "Lake"};

} // namespace

TEST(MailPage, ThePageGoesWithAnEntryForEachPhoto) {
  const MailDraft draft = draftMail({{wedding, school, disc}});
  EXPECT_EQ(draft.caption, "E-Mail Album Page");
  EXPECT_EQ(draft.text, "<Type message here>\r\n\r\n"
                        "Picture 00012:\r\n1987, Wedding in Lake\r\n\r\n"
                        "Picture 00013:\r\n, \r\n\r\n"
                        "Picture 00014:\r\n1990, Lake\r\n\r\n");
  EXPECT_THAT(draft.photoIds, ElementsAre("HD00012", "HD00013", "CD00014"));
}

TEST(MailPage, ASelectedPhotoGoesAlone) {
  const MailDraft draft = draftMail({{wedding, school, disc}, 2});
  EXPECT_EQ(draft.caption, "E-Mail Selected Photo");
  EXPECT_EQ(draft.text, "<Type message here>\r\n\r\nPicture 00014:\r\n1990, Lake\r\n\r\n");
  EXPECT_THAT(draft.photoIds, ElementsAre("CD00014"));
}

TEST(MailPage, TheSubjectNamesTheAlbum) {
  EXPECT_EQ(mailSubject("Summer"), "Pictures From My Album: Summer");
}

class MailedFile : public AlbumFixture {};

TEST_F(MailedFile, AHardDiskPhotoLiesBelowTheAlbum) {
  EXPECT_EQ(mailedFile(album(), "HD00012"), at("Photos/00012.jpg"));
}

TEST_F(MailedFile, EveryOtherPhotoLiesOnTheDisc) {
  const auto onDisc = onPhotoDisc(album(), "\\Photos\\00012.jpg");
  EXPECT_EQ(mailedFile(album(), "CD00012"), onDisc);
  EXPECT_EQ(mailedFile(album(), "XY00012"), onDisc);
  EXPECT_NE(onDisc, at("Photos/00012.jpg"));
}

TEST_F(MailedFile, AreFoundInTheOrderOfTheirPhotos) {
  EXPECT_THAT(mailedFiles(album(), {"CD00014", "HD00012"}),
              ElementsAre(mailedFile(album(), "CD00014"), at("Photos/00012.jpg")));
}

TEST(MailPage, AsksForTheDiscOnlyWhereAPhotoLiesThere) {
  EXPECT_FALSE(needPhotoDisc({}));
  EXPECT_FALSE(needPhotoDisc({"HD00012", "HD00013"}));
  EXPECT_TRUE(needPhotoDisc({"HD00012", "CD00014"}));
}

} // namespace hearthbook::test
