#include "FileBrowser.h"

#include "RunTimeError.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace hearthbook {

namespace {

void touch(const std::filesystem::path& file) { std::ofstream(file) << "x"; }

std::vector<std::string> namesOf(const FolderContent& content) {
  std::vector<std::string> names;
  for (const auto& file : content.pictures)
    names.push_back(file.filename().string());
  return names;
}

std::vector<Drive> someDrives(const std::filesystem::path& root) {
  return {{'c', Drive::Type::Fixed, true, "/", "Computer"},
          {'d', Drive::Type::CdRom, false, {}, "Disc"},
          {'e', Drive::Type::Removable, true, root / "stick", "Stick"},
          {'f', Drive::Type::Removable, true, root / "gone", "Gone"}};
}

} // namespace

TEST(FileBrowser, ThePatternIsTheSevenEndings) {
  EXPECT_EQ(picturePattern, "*.jpg;*.bmp;*.tif;*.ico;*.png;*.pcx;*.tga");
  for (const char* name : {"a.jpg", "a.bmp", "a.tif", "a.ico", "a.png", "a.pcx", "a.tga"})
    EXPECT_TRUE(isPictureName(name)) << name;
}

TEST(FileBrowser, ThePatternHasNoRegardToCase) {
  EXPECT_TRUE(isPictureName("HOLIDAY.JPG"));
  EXPECT_TRUE(isPictureName("Holiday.Jpg"));
}

TEST(FileBrowser, OtherEndingsAreNotListed) {
  for (const char* name : {"a.jpeg", "a.tiff", "a.gif", "a.jpg.txt", "jpg", "ajpg", ""})
    EXPECT_FALSE(isPictureName(name)) << name;
}

TEST(FileBrowser, AFolderIsReadByNameWithoutRegardToCase) {
  const test::TemporaryFolder folder;
  for (const char* name : {"b.jpg", "A.JPG", "c.png", "a.bmp", "notes.txt"})
    touch(folder.path() / name);
  EXPECT_EQ(namesOf(readFolder(folder.path())),
            (std::vector<std::string>{"a.bmp", "A.JPG", "b.jpg", "c.png"}));
}

TEST(FileBrowser, NamesWithBlanksQuotesAndUmlautsAreListed) {
  const test::TemporaryFolder folder;
  for (const char* name : {"Oma's \"Geburtstag\".jpg", "Käse.jpg", "🎂.jpg"})
    touch(folder.path() / name);
  EXPECT_EQ(readFolder(folder.path()).pictures.size(), 3U);
}

TEST(FileBrowser, FoldersAndDanglingLinksAreNoFiles) {
  const test::TemporaryFolder folder;
  std::filesystem::create_directory(folder.path() / "album.jpg");
  std::filesystem::create_symlink(folder.path() / "gone", folder.path() / "link.jpg");
  EXPECT_EQ(readFolder(folder.path()), FolderContent());
}

TEST(FileBrowser, AFolderThatCannotBeReadTellsWhy) {
  const auto content = readFolder("/nowhere/at all");
  EXPECT_TRUE(content.pictures.empty());
  EXPECT_NE(content.error.find("/nowhere/at all"), std::string::npos) << content.error;
}

TEST(FileBrowser, TheDriveOfAFolderIsTheOneWithTheLongestRoot) {
  const auto drives = someDrives("/media/anna");
  EXPECT_EQ(driveOf(drives, "/media/anna/stick/Lake"), 2U);
  EXPECT_EQ(driveOf(drives, "/media/anna/stick"), 2U);
  EXPECT_EQ(driveOf(drives, "/media/anna/sticky"), 0U);
  EXPECT_EQ(driveOf(drives, "/home/anna"), 0U);
  EXPECT_EQ(driveOf({}, "/home/anna"), std::nullopt);
}

TEST(FileBrowser, ADriveLeadsToItsRoot) {
  const test::TemporaryFolder folder;
  std::filesystem::create_directory(folder.path() / "stick");
  EXPECT_EQ(driveRoot(someDrives(folder.path()), 'e'), folder.path() / "stick");
}

TEST(FileBrowser, ADriveThatIsNotThereFailsWith68) {
  const test::TemporaryFolder folder;
  for (const char letter : {'d', 'f', 'z'}) {
    try {
      driveRoot(someDrives(folder.path()), letter);
      ADD_FAILURE() << letter;
    } catch (const RunTimeError& failure) {
      EXPECT_EQ(failure.number(), 68) << letter;
    }
  }
}

TEST(FileBrowser, ADriveReadsAsItsLetterAndName) {
  EXPECT_EQ(driveCaption({'e', Drive::Type::Removable, true, "/media/anna/stick", "Stick"}),
            "e: [Stick]");
  EXPECT_EQ(driveCaption({'c', Drive::Type::Fixed, true, "/", ""}), "c:");
}

TEST(FileBrowser, AFolderThatHasGoneIsReplacedByTheNearestAboveIt) {
  const test::TemporaryFolder folder;
  EXPECT_EQ(nearestFolder(folder.path() / "gone" / "deeper"), folder.path());
  EXPECT_EQ(nearestFolder(folder.path()), folder.path());
  EXPECT_EQ(nearestFolder("/nowhere/at/all"), "/");
}

TEST(FileBrowser, TheCommandNamesOneOrManyAndStaysForNone) {
  EXPECT_EQ(insertCaption(0), std::nullopt);
  EXPECT_EQ(insertCaption(1), "Insert Single");
  EXPECT_EQ(insertCaption(2), "Insert Multiple");
  EXPECT_EQ(insertCaption(10'000), "Insert Multiple");
}

} // namespace hearthbook
