#include "PlainFile.h"
#include "FileBytes.h"
#include "FileError.h"
#include "PrivateMount.h"
#include "TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace hearthbook {
namespace {

using test::namesIn;
using test::readBytes;
using test::writeBytes;
using testing::ElementsAre;
namespace fs = std::filesystem;

class PlainFile : public testing::Test {
protected:
  [[nodiscard]] fs::path at(const std::string& name) const { return folder_.path() / name; }

  test::TemporaryFolder folder_;
};

TEST_F(PlainFile, AFileIsWrittenOverAndReadBack) {
  writePlainFile(at("page.htm"), std::string(200'000, 'x'));
  writePlainFile(at("page.htm"), "short");
  EXPECT_EQ(readWholeFile(at("page.htm")), "short");
  writePlainFile(at("page.htm"), std::string(200'000, 'y'));
  EXPECT_EQ(readWholeFile(at("page.htm")), std::string(200'000, 'y'));
}

TEST_F(PlainFile, ACopyHasTheBytes) {
  writeBytes(at("source"), std::string(300'000, 'z'));
  writeBytes(at("copy"), std::string(400'000, 'a'));
  copyPlainFile(at("source"), at("copy"));
  EXPECT_EQ(readBytes(at("copy")), std::string(300'000, 'z'));
}

TEST_F(PlainFile, ASourceThatCannotBeReadIsToldApartFromATarget) {
  EXPECT_THROW(copyPlainFile(at("none"), at("copy")), UnreadableFile);
  writeBytes(at("source"), "bytes");
  try {
    copyPlainFile(at("source"), at("none/copy"));
    FAIL() << "nothing was thrown";
  } catch (const UnreadableFile&) {
    FAIL() << "the target was at fault";
  } catch (const RunTimeError& failure) {
    EXPECT_THAT(failure.what(), testing::HasSubstr("none/copy"));
  }
}

TEST_F(PlainFile, ASourceThatFailsWhileItIsReadLeavesNoCopy) {
  fs::create_directory(at("source")); // can be opened, and not read
  EXPECT_THROW(copyPlainFile(at("source"), at("copy")), UnreadableFile);
  EXPECT_THAT(namesIn(folder_.path()), ElementsAre("source"));
}

TEST_F(PlainFile, ATreeIsCopiedWithItsFolders) {
  writeBytes(at("tree/a.htm"), "a");
  writeBytes(at("tree/html/b.gif"), "b");
  fs::create_directory(at("tree/empty"));
  copyPlainTree(at("tree"), at("copy"));
  EXPECT_EQ(readBytes(at("copy/a.htm")), "a");
  EXPECT_EQ(readBytes(at("copy/html/b.gif")), "b");
  EXPECT_TRUE(fs::is_directory(at("copy/empty")));
  EXPECT_THROW(copyPlainTree(at("none"), at("copy2")), UnreadableFile);
}

TEST_F(PlainFile, ALinkInATreeThatLeadsNowhereIsAFileThatCannotBeRead) {
  fs::create_directory(at("tree"));
  fs::create_symlink("turn", at("tree/turn"));
  EXPECT_THROW(copyPlainTree(at("tree"), at("copy")), UnreadableFile);
}

TEST_F(PlainFile, AFolderIsNotMadeBelowOneThatIsGone) {
  EXPECT_THROW(makePlainFolder(at("gone/folder")), RunTimeError);
  makePlainFolder(at("folder"));
  EXPECT_NO_THROW(makePlainFolder(at("folder")));
  EXPECT_TRUE(fs::is_directory(at("folder")));
}

TEST_F(PlainFile, ADiskIsFlushedByAnyOfItsFolders) {
  EXPECT_NO_THROW(flushWholeDisk(folder_.path()));
  EXPECT_THROW(flushWholeDisk(at("gone")), RunTimeError);
}

TEST_F(PlainFile, AFullDiskIsToldWithTheFile) {
  if (!test::canMountPrivately())
    GTEST_SKIP() << "this machine does not allow private mounts";
  fs::create_directory(at("disk"));
  const test::SmallDisk disk(at("disk"), 1 << 16);
  try {
    writePlainFile(at("disk/page.htm"), std::string(1 << 20, 'x'));
    FAIL() << "nothing was thrown";
  } catch (const RunTimeError& failure) {
    EXPECT_EQ(std::string(failure.what()),
              "Cannot write \"" + at("disk/page.htm").string() + "\": the disk is full.");
  }
}

} // namespace
} // namespace hearthbook
