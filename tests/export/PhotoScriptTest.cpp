#include "PhotoScript.h"

#include <gtest/gtest.h>

namespace hearthbook::test {
namespace {

std::optional<std::string> annAlone(std::int64_t id) {
  return id == 4 ? std::optional<std::string>("Ann \"Nan\"") : std::nullopt;
}

TEST(PhotoScript, TellsWhatTheSidePageTells) {
  SidePage page;
  page.number = 12;
  page.year = 1987;
  page.event = "Wedding";
  page.place = "Lake House";
  page.namesInPhoto = "004,005,";
  page.description = "first\r\nsecond \\ last";
  page.soundExtension = ".MID";
  PhotoScript script;
  script.add(page, annAlone);
  EXPECT_EQ(
      script.text({7, 13, "Trip.wav"}),
      "var albumPhotos = {\"album\": 7, \"count\": 13, \"music\": \"Trip.wav\", \"photos\": {\n"
      "\"12\": {\"year\": \"1987\", \"event\": \"Wedding in Lake House\", "
      "\"names\": [\"Ann \\\"Nan\\\"\"], "
      "\"description\": \"first\\u000d\\u000asecond \\\\ last\", \"sound\": \"12.MID\"}}};\n");
}

TEST(PhotoScript, APhotoOfWhichNothingIsKnownHasNoSound) {
  SidePage first;
  first.number = 1;
  SidePage second;
  second.number = 2;
  PhotoScript script;
  script.add(first, annAlone);
  script.add(second, annAlone);
  EXPECT_EQ(
      script.text({}),
      "var albumPhotos = {\"album\": 0, \"count\": 0, \"music\": \"\", \"photos\": {\n"
      "\"1\": {\"year\": \"----\", \"event\": \"\", \"names\": [], \"description\": \"\"},\n"
      "\"2\": {\"year\": \"----\", \"event\": \"\", \"names\": [], \"description\": \"\"}}};\n");
}

TEST(PhotoScript, TellsWhichAlbumItBelongsTo) {
  SidePage page;
  page.description = "var albumPhotos = {\"album\": 8, ";
  PhotoScript script;
  script.add(page, annAlone);
  EXPECT_EQ(albumOfScript("\xEF\xBB\xBF" + script.text({17, 1, {}})), 17);
  EXPECT_EQ(albumOfScript("var albumPhotos = {\"music\": \"\", \"photos\": {}};"), std::nullopt);
}

TEST(PhotoScript, WhatOlderBrowsersTakeForTheEndOfALineIsEscaped) {
  EXPECT_EQ(scriptText("one\u2028two\u2029three"), "\"one\\u2028two\\u2029three\"");
}

TEST(PhotoScript, LettersOfEveryAlphabetStandAsTheyAre) { EXPECT_EQ(scriptText("Zoë"), "\"Zoë\""); }

} // namespace
} // namespace hearthbook::test
