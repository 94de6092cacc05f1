#include "FileBrowser.h"

#include "RunTimeError.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace hearthbook {

namespace {

constexpr std::string_view pattern = "*.wav;*.mid";

void touch(const std::filesystem::path& file) { std::ofstream(file) << "x"; }

std::vector<std::string> namesOf(const FolderContent& content) {
  std::vector<std::string> names;
  for (const auto& file : content.files)
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

TEST(FileBrowser, ANameMatchesThePatternByItsEndingWithoutRegardToCase) {
  for (const char* name : {"a.wav", "TUNE.MID", "Voice.Wav", ".mid"})
    EXPECT_TRUE(matchesPattern(name, pattern)) << name;
  for (const char* name : {"a.wave", "a.midi", "a.jpg", "a.wav.txt", "wav", "awav", ""})
    EXPECT_FALSE(matchesPattern(name, pattern)) << name;
  EXPECT_FALSE(matchesPattern("a.wav", ""));
}

TEST(FileBrowser, AFolderIsReadByNameWithoutRegardToCase) {
  const test::TemporaryFolder folder;
  for (const char* name : {"b.wav", "A.WAV", "c.mid", "a.mid", "notes.txt"})
    touch(folder.path() / name);
  EXPECT_EQ(namesOf(readFolder(folder.path(), pattern)),
            (std::vector<std::string>{"a.mid", "A.WAV", "b.wav", "c.mid"}));
}

TEST(FileBrowser, NamesWithBlanksQuotesAndUmlautsAreListed) {
  const test::TemporaryFolder folder;
  for (const char* name : {"Oma's \"Geburtstag\".wav", "Käse.wav", "🎂.wav"})
    touch(folder.path() / name);
  EXPECT_EQ(readFolder(folder.path(), pattern).files.size(), 3U);
}

TEST(FileBrowser, FoldersAndDanglingLinksAreNoFiles) {
  const test::TemporaryFolder folder;
  std::filesystem::create_directory(folder.path() / "album.wav");
  std::filesystem::create_symlink(folder.path() / "gone", folder.path() / "link.wav");
  EXPECT_EQ(readFolder(folder.path(), pattern), FolderContent());
}

TEST(FileBrowser, AFolderThatCannotBeReadTellsWhy) {
  const auto content = readFolder("/nowhere/at all", pattern);
  EXPECT_TRUE(content.files.empty());
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

} // namespace hearthbook
