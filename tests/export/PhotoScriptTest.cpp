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
      script.text("Trip.wav"),
      "var albumPhotos = {\"music\": \"Trip.wav\", \"photos\": {\n"
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
      "var albumPhotos = {\"music\": \"\", \"photos\": {\n"
      "\"1\": {\"year\": \"----\", \"event\": \"\", \"names\": [], \"description\": \"\"},\n"
      "\"2\": {\"year\": \"----\", \"event\": \"\", \"names\": [], \"description\": \"\"}}};\n");
}

TEST(PhotoScript, LettersOfEveryAlphabetStandAsTheyAre) { EXPECT_EQ(scriptText("Zoë"), "\"Zoë\""); }

} // namespace
} // namespace hearthbook::test
