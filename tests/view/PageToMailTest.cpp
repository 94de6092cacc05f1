#include "ViewerFixture.h"

#include "PageToMail.h"

namespace hearthbook::test {

namespace {

class PageToMail : public ViewerFixture {
protected:
  static std::vector<std::string> idsOf(const MailPage& page) {
    std::vector<std::string> ids;
    for (const MailPhoto& photo : page.photos)
      ids.push_back(photo.id);
    return ids;
  }
};

} // namespace

TEST_F(PageToMail, EachPhotoGoesWithTheWordsBesideIt) {
  const auto place = folder_.addPlace("Lake");
  const auto event = folder_.addEvent("Wedding");
  execute("UPDATE PhotoAlbum SET Year = 1987, PlaceID = " + std::to_string(place) +
          ", EventID = " + std::to_string(event));
  const MailPage page = pageToMail(openPages().cells());
  ASSERT_EQ(page.photos.size(), 1U);
  EXPECT_EQ(page.photos[0].id, "HD00001");
  EXPECT_EQ(page.photos[0].year, "1987");
  EXPECT_EQ(page.photos[0].place, "Wedding in Lake");
  EXPECT_EQ(page.selected, std::nullopt);
}

TEST_F(PageToMail, ALastPageHandsOverItsFewPhotos) {
  auto& viewer = openAlbumOf(6);
  EXPECT_EQ(idsOf(pageToMail(viewer.cells())), ids(1, 4));
  press(viewer, "Command1");
  EXPECT_EQ(idsOf(pageToMail(viewer.cells())), ids(5, 6));
}

TEST_F(PageToMail, TheSelectedPhotoIsNamed) {
  auto& viewer = openAlbumOf(4);
  clickPhoto(viewer, 2);
  EXPECT_EQ(pageToMail(viewer.cells()).selected, 2U);
  clickPhoto(viewer, 2);
  EXPECT_EQ(pageToMail(viewer.cells()).selected, std::nullopt);
}

} // namespace hearthbook::test
