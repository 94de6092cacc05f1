#include "PageDesign.h"

#include "Decode.h"
#include "DesignByName.h"
#include "DesignedPage.h"
#include "FileBytes.h"

#include <gmock/gmock.h>

#include <set>
#include <string>

namespace hearthbook {

namespace {

using testing::HasSubstr;

bool overlap(const TwipsRect& a, const TwipsRect& b) {
  return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
         b.top < a.top + a.height;
}

bool liesWithin(const TwipsRect& rect, TwipsSize size) {
  return rect.left >= 0 && rect.top >= 0 && rect.left + rect.width <= size.width &&
         rect.top + rect.height <= size.height;
}

const ApplicationFolder& staged() {
  static const ApplicationFolder folder{HEARTHBOOK_STAGED};
  return folder;
}

std::string pageOf(const PageDesign& design) {
  return test::readBytes(designFolder(staged(), design.name) / "index.htm");
}

TEST(PageDesign, ThereAreFiveAndThoseThatFamiliesWantFirst) {
  ASSERT_GE(pageDesigns().size(), 5u);
  EXPECT_STREQ(pageDesigns()[0].name, "Wedding");
  EXPECT_STREQ(pageDesigns()[1].name, "New Baby");
}

TEST(PageDesign, AWeddingHasTheCoupleAndTheirParentsAndABirthTheBaby) {
  std::set<std::string> captions;
  for (const char* name : {"Wedding", "New Baby"})
    for (const DesignBox& box : test::designOfName(name).boxes)
      captions.insert(box.caption);
  for (const char* caption :
       {"Groom Dad", "Groom Mom", "Bride Dad", "Bride Mom", "Bride", "Groom", "Baby"})
    EXPECT_TRUE(captions.contains(caption)) << caption;
}

TEST(PageDesign, NoBoxLiesOverAnotherOrLeavesTheSurface) {
  for (const PageDesign& design : pageDesigns()) {
    std::vector<TwipsRect> taken{designTitle, designLeft, designRight};
    for (const DesignBox& box : design.boxes) {
      EXPECT_TRUE(liesWithin(box.frame, designSurface)) << design.name << " " << box.caption;
      for (const TwipsRect& other : taken)
        EXPECT_FALSE(overlap(box.frame, other)) << design.name << " " << box.caption;
      taken.push_back(box.frame);
    }
  }
}

TEST(PageDesign, PhotoAndTextStandInTheirFrameOneAboveTheOther) {
  for (const PageDesign& design : pageDesigns())
    for (const DesignBox& box : design.boxes) {
      const TwipsSize frame{box.frame.width, box.frame.height};
      EXPECT_TRUE(liesWithin(textInFrame(frame, box.hasPhoto), frame)) << box.caption;
      if (!box.hasPhoto)
        continue;
      EXPECT_TRUE(liesWithin(photoInFrame(frame), frame)) << box.caption;
      EXPECT_FALSE(overlap(photoInFrame(frame), textInFrame(frame, true))) << box.caption;
      EXPECT_GE(photoPixels(box).width, 150) << box.caption;
      EXPECT_GE(photoPixels(box).height, 80) << box.caption;
    }
}

TEST(PageDesign, TagsAreNamesOfFilesAndEachIsOneBoxAlone) {
  for (const PageDesign& design : pageDesigns()) {
    std::set<std::string> tags{titleTag, "Background", "Music"};
    for (const DesignBox& box : design.boxes) {
      EXPECT_TRUE(tags.insert(box.tag).second) << box.tag;
      EXPECT_EQ(std::string(box.tag).find_first_not_of(
                    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"),
                std::string::npos)
          << box.tag;
    }
  }
}

TEST(PageDesign, EachPageHasAPlaceForEveryTextAndEveryPhoto) {
  for (const PageDesign& design : pageDesigns()) {
    const std::string page = pageOf(design);
    EXPECT_THAT(page, HasSubstr("^^Title^^")) << design.name;
    for (const DesignBox& box : design.boxes) {
      EXPECT_THAT(page, HasSubstr("^^" + std::string(box.tag) + "^^")) << design.name;
      const std::string picture = "src=\"" + std::string(box.tag) + ".jpg\"";
      EXPECT_EQ(page.find(picture) != std::string::npos, box.hasPhoto) << design.name;
    }
  }
}

TEST(PageDesign, EachPageHasDecorationsAndAPictureForABoxThatStaysEmpty) {
  for (const PageDesign& design : pageDesigns()) {
    const auto folder = designFolder(staged(), design.name);
    for (const char* decoration : {"left_img.gif", "right_img.gif"})
      EXPECT_TRUE(fileExists(folder / decoration)) << design.name;
    for (const DesignBox& box : design.boxes) {
      const auto picture = folder / (std::string(box.tag) + ".jpg");
      ASSERT_EQ(fileExists(picture), box.hasPhoto) << box.tag;
      if (box.hasPhoto) {
        EXPECT_EQ(readPictureInfo(picture).size, photoPixels(box)) << box.tag;
      }
    }
  }
}

TEST(PageDesign, ThePaperThatPagesBeginWithIsThere) {
  EXPECT_TRUE(fileExists(paperPicture(staged())));
}

} // namespace

} // namespace hearthbook
