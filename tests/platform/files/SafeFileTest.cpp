#include "SafeFile.h"
#include "FileBytes.h"
#include "PrivateMount.h"
#include "RunTimeError.h"
#include "TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

#include <unistd.h>

namespace hearthbook {
namespace {

using test::namesIn;
using test::readBytes;
using test::writeBytes;
namespace fs = std::filesystem;

class SafeFile : public testing::Test {
protected:
  [[nodiscard]] fs::path at(const std::string& name) const { return folder_.path() / name; }
  [[nodiscard]] std::vector<std::string> names() const { return namesIn(folder_.path()); }

  test::TemporaryFolder folder_;
};

void writeText(const fs::path& file, const std::string& text) {
  replaceFile(file, [&](std::ostream& stream) { stream << text; });
}

std::string messageOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const RunTimeError& error) {
    return error.what();
  }
  return "nothing was thrown";
}

/// Not a multiple of any buffer's size.
std::string manyBytes() {
  std::string bytes(3'000'017, '\0');
  for (std::size_t at = 0; at < bytes.size(); ++at)
    bytes[at] = static_cast<char>(at * 7 + at / 251);
  return bytes;
}

TEST_F(SafeFile, AReplacedFileHoldsTheNewBytesAndNothingElseIsLeft) {
  writeBytes(at("a.txt"), "old and longer");
  writeText(at("a.txt"), "new");
  EXPECT_EQ(readBytes(at("a.txt")), "new");
  EXPECT_THAT(names(), testing::ElementsAre("a.txt"));
}

TEST_F(SafeFile, SmallAndLargeWritesComeOutInOrder) {
  const std::string bytes = manyBytes();
  replaceFile(at("a"), [&](std::ostream& stream) {
    stream << "begin";
    stream.put('\n');
    stream << bytes << 12 << bytes;
  });
  EXPECT_TRUE(readBytes(at("a")) == "begin\n" + bytes + "12" + bytes);
}

TEST_F(SafeFile, WhileTheNewBytesAreWrittenTheOldFileStands) {
  writeBytes(at("a.txt"), "old");
  replaceFile(at("a.txt"), [&](std::ostream& stream) {
    stream << "new" << std::flush;
    EXPECT_EQ(readBytes(at("a.txt")), "old");
  });
}

TEST_F(SafeFile, AWriterThatFailsLeavesTheOldFileAndNoOther) {
  writeBytes(at("a.txt"), "old");
  EXPECT_THROW(replaceFile(at("a.txt"),
                           [](std::ostream& stream) {
                             stream << "half";
                             throw RunTimeError("no more");
                           }),
               RunTimeError);
  EXPECT_EQ(readBytes(at("a.txt")), "old");
  EXPECT_THAT(names(), testing::ElementsAre("a.txt"));
}

TEST_F(SafeFile, AStreamThatWentBadCountsAsAFailure) {
  EXPECT_THROW(
      replaceFile(at("a"), [](std::ostream& stream) { stream.setstate(std::ios::failbit); }),
      RunTimeError);
  EXPECT_TRUE(names().empty());
}

TEST_F(SafeFile, AMissingFolderIsToldWithTheFileAndTheCause) {
  EXPECT_EQ(messageOf([&] { writeText(at("no/a.txt"), "x"); }),
            "Cannot write \"" + at("no/a.txt").string() + "\": it is not there.");
}

TEST_F(SafeFile, ATargetThatIsAFolderIsToldAndStays) {
  fs::create_directory(at("a"));
  EXPECT_EQ(messageOf([&] { writeText(at("a"), "x"); }),
            "Cannot write \"" + at("a").string() + "\": it is a folder.");
  EXPECT_THAT(names(), testing::ElementsAre("a"));
}

TEST_F(SafeFile, ACopyHasTheBytesOfItsSourceWhichStays) {
  const std::string bytes = manyBytes();
  writeBytes(at("from"), bytes);
  copyFileSafely(at("from"), at("to"));
  EXPECT_TRUE(readBytes(at("to")) == bytes);
  EXPECT_TRUE(readBytes(at("from")) == bytes);
  EXPECT_THAT(names(), testing::ElementsAre("from", "to"));
}

TEST_F(SafeFile, AnEmptyFileIsCopied) {
  writeBytes(at("from"), "");
  copyFileSafely(at("from"), at("to"));
  EXPECT_EQ(readBytes(at("to")), "");
}

TEST_F(SafeFile, AFileOfTheKernelWithoutALengthIsCopiedToo) {
  copyFileSafely("/proc/self/cmdline", at("to"));
  EXPECT_FALSE(readBytes(at("to")).empty());
}

TEST_F(SafeFile, AFileCopiedOntoItselfStaysWhole) {
  writeBytes(at("a"), "bytes");
  copyFileSafely(at("a"), at("a"));
  EXPECT_EQ(readBytes(at("a")), "bytes");
}

TEST_F(SafeFile, AMissingSourceIsToldAndTheTargetStays) {
  writeBytes(at("to"), "old");
  EXPECT_EQ(messageOf([&] { copyFileSafely(at("from"), at("to")); }),
            "Cannot read \"" + at("from").string() + "\": it is not there.");
  EXPECT_EQ(readBytes(at("to")), "old");
}

TEST_F(SafeFile, ASourceThatIsAFolderIsToldAndNothingIsLeft) {
  fs::create_directory(at("from"));
  EXPECT_EQ(messageOf([&] { copyFileSafely(at("from"), at("to")); }),
            "Cannot read \"" + at("from").string() + "\": it is a folder.");
  EXPECT_THAT(names(), testing::ElementsAre("from"));
}

TEST_F(SafeFile, NamesWithBlanksQuotesUmlautsAndPicturesAreWritten) {
  for (const char* name : {" a b ", "it's \"here\"",
                           "Gr\xC3\xBC\xC3\x9F"
                           "e.jpg",
                           "\xF0\x9F\x8E\x82.jpg", "back\\slash", "new\nline", "-rf"}) {
    writeText(at(name), name);
    EXPECT_EQ(readBytes(at(name)), name);
  }
  EXPECT_EQ(names().size(), 7U);
}

TEST_F(SafeFile, ANameAsLongAsTheFileSystemAllowsIsWritten) {
  const std::string name(255, 'n');
  writeText(at(name), "x");
  EXPECT_EQ(readBytes(at(name)), "x");
}

TEST_F(SafeFile, ALongerNameIsToldAndNothingIsLeft) {
  const std::string name(256, 'n');
  EXPECT_EQ(messageOf([&] { writeText(at(name), "x"); }),
            "Cannot write \"" + at(name).string() + "\": its name is too long.");
  EXPECT_TRUE(names().empty());
}

TEST_F(SafeFile, DeletingAFileThatIsNotThereIsNoError) {
  writeBytes(at("a"), "x");
  deleteFile(at("a"));
  EXPECT_TRUE(names().empty());
  EXPECT_NO_THROW(deleteFile(at("a")));
}

TEST_F(SafeFile, WhatCannotBeDeletedIsTold) {
  fs::create_directory(at("a"));
  EXPECT_EQ(messageOf([&] { deleteFile(at("a")); }),
            "Cannot delete \"" + at("a").string() + "\": it is a folder.");
}

TEST_F(SafeFile, FlushingSomethingMissingIsTold) {
  EXPECT_NO_THROW(flushToDisk(folder_.path()));
  EXPECT_THROW(flushToDisk(at("a")), RunTimeError);
}

TEST_F(SafeFile, LeftoversOfAKilledWriteAreRemovedAndNothingElse) {
  writeBytes(at(".hearthbook-999999999-3.part"), "half"); // above the highest process number
  writeBytes(at(".hearthbook-" + std::to_string(getpid()) + "-7.part"), "half");
  writeBytes(at(".hearthbook-" + std::to_string(getppid()) + "-7.part"), "being written");
  writeBytes(at(".hearthbook-x.part"), "not ours");
  writeBytes(at("00012.part"), "not ours");
  removeLeftovers(folder_.path());
  EXPECT_THAT(names(), testing::ElementsAre(".hearthbook-" + std::to_string(getppid()) + "-7.part",
                                            ".hearthbook-x.part", "00012.part"));
}

class SafeFileOnAMount : public SafeFile {
protected:
  void SetUp() override {
    if (!test::canMountPrivately())
      GTEST_SKIP() << "this machine lets tests mount nothing";
  }
};

TEST_F(SafeFileOnAMount, AFullDiskIsToldAndLeavesTheOldFileAlone) {
  const test::SmallDisk disk(at("disk"), 1 << 20);
  writeBytes(at("from"), manyBytes());
  writeBytes(at("disk/a"), "old");
  const std::string expected = "Cannot write \"" + at("disk/a").string() + "\": the disk is full.";
  EXPECT_EQ(messageOf([&] { writeText(at("disk/a"), manyBytes()); }), expected);
  EXPECT_EQ(messageOf([&] { copyFileSafely(at("from"), at("disk/a")); }), expected);
  EXPECT_EQ(readBytes(at("disk/a")), "old");
  EXPECT_THAT(namesIn(at("disk")), testing::ElementsAre("a"));
}

TEST_F(SafeFileOnAMount, AFolderThatCanOnlyBeReadIsTold) {
  writeBytes(at("disk/a"), "old");
  const test::ReadOnlyMount disk(at("disk"));
  const std::string cause = " \"" + at("disk/a").string() + "\": the disk can only be read.";
  EXPECT_EQ(messageOf([&] { writeText(at("disk/a"), "new"); }), "Cannot write" + cause);
  EXPECT_EQ(messageOf([&] { deleteFile(at("disk/a")); }), "Cannot delete" + cause);
  EXPECT_EQ(readBytes(at("disk/a")), "old");
}

TEST_F(SafeFile, RemovingLeftoversOfAMissingFolderIsNoError) {
  EXPECT_NO_THROW(removeLeftovers(at("no")));
}

} // namespace
} // namespace hearthbook
