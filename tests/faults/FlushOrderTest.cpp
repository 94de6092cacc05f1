// A kill does not empty the system's memory as a power cut does. So these look at the order of
// the calls: what a file's name promises must be on the disk before the name is given.

#include "AlbumFolder.h"
#include "ClosingBackup.h"
#include "FileBytes.h"
#include "KillAtSyscall.h"
#include "SafeFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>

#include <sys/syscall.h>

namespace hearthbook {
namespace {

using Steps = std::vector<std::uint64_t>;
namespace fs = std::filesystem;

/// The calls by which a file can be flushed, named and removed, in their newest spelling.
std::string nameOf(std::uint64_t call) {
  switch (call) {
  case SYS_fsync:
  case SYS_fdatasync:
    return "flush";
  case SYS_renameat:
  case SYS_renameat2:
  case SYS_linkat:
#ifdef SYS_rename
  case SYS_rename:
  case SYS_link:
#endif
    return "name";
  case SYS_unlinkat:
#ifdef SYS_unlink
  case SYS_unlink:
#endif
    return "remove";
  default:
    return "write";
  }
}

/// Without repeats: "write flush name flush".
std::string told(const Steps& steps) {
  std::string text;
  std::string last;
  for (const std::uint64_t step : steps) {
    const std::string name = nameOf(step);
    if (name != last)
      text += (text.empty() ? "" : " ") + name;
    last = name;
  }
  return text;
}

class FlushOrder : public testing::Test {
protected:
  void SetUp() override {
    if (!test::canWatchChildren())
      GTEST_SKIP() << "this machine does not let a process watch its child";
    test::writeBytes(from_, "bytes");
  }

  test::TemporaryFolder folder_;
  fs::path from_ = folder_.path() / "from";
  fs::path to_ = folder_.path() / "to";
};

TEST_F(FlushOrder, AFileIsOnTheDiskBeforeItHasItsNameAndThenTheName) {
  EXPECT_EQ(
      told(test::stepsOf([&] { replaceFile(to_, [](std::ostream& stream) { stream << "new"; }); })),
      "write flush name flush");
  EXPECT_EQ(told(test::stepsOf([&] { copyFileSafely(from_, to_); })), "write flush name flush");
}

TEST_F(FlushOrder, AMovedSourceGoesOnlyWhenItsCopyIsOnTheDisk) {
  EXPECT_EQ(told(test::stepsOf([&] {
              copyFileSafely(from_, to_);
              deleteFile(from_);
            })),
            "write flush name flush remove flush");
}

TEST_F(FlushOrder, ClosingReplacesNoFileBeforeItsCopyIsOnTheDisk) {
  const test::AlbumFolder album;
  const std::string steps =
      told(test::stepsOf([&] { compactAndBackUp(ApplicationFolder(album.root()), [](int) {}); }));
  // The copy is flushed, gets its name by a second link, loses its temporary one, and the folder
  // is flushed; only then is the live file removed, and the same follows for its replacement.
  EXPECT_THAT(steps, testing::ContainsRegex("flush name remove flush remove flush (remove )?write.*"
                                            "flush name remove flush$"));
}

} // namespace
} // namespace hearthbook
