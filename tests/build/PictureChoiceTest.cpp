#include "PictureChoice.h"

#include "FileBrowser.h"

#include <gtest/gtest.h>

namespace hearthbook {

TEST(PictureChoice, ThePatternIsTheSevenEndings) {
  EXPECT_EQ(picturePattern, "*.jpg;*.bmp;*.tif;*.ico;*.png;*.pcx;*.tga");
  for (const char* name : {"a.jpg", "a.bmp", "a.tif", "a.ico", "a.png", "a.pcx", "a.tga"})
    EXPECT_TRUE(matchesPattern(name, picturePattern)) << name;
}

TEST(PictureChoice, OtherEndingsAreNotListed) {
  for (const char* name : {"a.jpeg", "a.tiff", "a.gif", "a.jpg.txt", "jpg", "ajpg", ""})
    EXPECT_FALSE(matchesPattern(name, picturePattern)) << name;
}

TEST(PictureChoice, TheCommandNamesOneOrManyAndStaysForNone) {
  EXPECT_EQ(insertCaption(0), std::nullopt);
  EXPECT_EQ(insertCaption(1), "Insert Single");
  EXPECT_EQ(insertCaption(2), "Insert Multiple");
  EXPECT_EQ(insertCaption(10'000), "Insert Multiple");
}

} // namespace hearthbook
