#include "Drives.h"
#include "FakeDrives.h"
#include "FileBytes.h"
#include "PrivateMount.h"
#include "ScopedVariable.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

using test::writeBytes;
namespace fs = std::filesystem;

class DrivesTest : public testing::Test {
protected:
  [[nodiscard]] fs::path at(const std::string& name) const { return folder_.path() / name; }
  [[nodiscard]] std::vector<Drive> enumerate() const {
    return Drives(machine_.roots()).enumerate();
  }

  /// "c:fixed:/ d:optical:-": letter, type and root of each drive.
  [[nodiscard]] std::string told() const {
    std::string text;
    for (const Drive& drive : enumerate()) {
      const bool optical = drive.type == Drive::Type::CdRom;
      const bool removable = drive.type == Drive::Type::Removable;
      text += std::string(text.empty() ? "" : " ") + drive.letter + ":" +
              (optical     ? "optical"
               : removable ? "removable"
                           : "fixed") +
              ":" + (drive.ready ? drive.root.string() : "-");
    }
    return text;
  }

  test::TemporaryFolder folder_;
  test::FakeDrives machine_{folder_.path() / "machine"};
  test::ScopedVariable home_{"HOME", std::nullopt};
};

TEST_F(DrivesTest, AMachineWithoutDrivesHasItsFileSystemAlone) { EXPECT_EQ(told(), "c:fixed:/"); }

TEST_F(DrivesTest, AMachineThatTellsNothingHasItsFileSystemAlone) {
  const Drives drives({at("no/proc"), at("no/sys"), at("no/mountinfo")});
  EXPECT_EQ(drives.enumerate().size(), 1U);
}

TEST_F(DrivesTest, OpticalDrivesStandInTheOrderOfTheirNumbers) {
  machine_.listOptical({"sr10", "sr1", "sr0"}); // the kernel lists the newest first
  machine_.mount("/dev/sr1", "/media/ann/one");
  machine_.mount("/dev/sr10", "/media/ann/ten");
  EXPECT_EQ(told(), "c:fixed:/ d:optical:- e:optical:/media/ann/one f:optical:/media/ann/ten");
}

TEST_F(DrivesTest, AnOpticalDriveIsFoundWithoutTheKernelsListToo) {
  machine_.addDisk("sr0", true);
  EXPECT_EQ(told(), "c:fixed:/ d:optical:-");
}

TEST_F(DrivesTest, ADriveInBothListsStandsOnce) {
  machine_.listOptical({"sr0"});
  machine_.addDisk("sr0", true);
  EXPECT_EQ(told(), "c:fixed:/ d:optical:-");
}

TEST_F(DrivesTest, ADriveWithoutADiscIsNamedByItsDeviceAndOneWithADiscByTheDisc) {
  machine_.listOptical({"sr1", "sr0"});
  machine_.mount("/dev/sr1", "/media/ann/FAMILY_1999");
  const auto drives = enumerate();
  ASSERT_EQ(drives.size(), 3U);
  EXPECT_EQ(drives[1].name, "sr0");
  EXPECT_EQ(drives[2].name, "FAMILY_1999");
}

TEST_F(DrivesTest, AMountedDiscImageServesAsADisc) {
  machine_.mount("/dev/loop0", "/mnt/image", "iso9660");
  machine_.mount("fuseiso", "/home/ann/image", "fuse.fuseiso");
  EXPECT_EQ(told(), "c:fixed:/ d:optical:/mnt/image e:optical:/home/ann/image");
}

TEST_F(DrivesTest, MountedMediaThatCanBeTakenOutFollowTheOpticalDrives) {
  machine_.listOptical({"sr0"});
  machine_.addDisk("sda");
  machine_.addDisk("sdb", true);
  machine_.mount("/dev/sdb1", "/mnt/stick", "vfat");
  machine_.mount("/dev/sda2", "/var", "ext4");
  machine_.mount("/dev/sda3", "/run/media/ann/disk", "ext4");
  machine_.mount("tmpfs", "/media/ann/memory", "tmpfs");
  EXPECT_EQ(told(), "c:fixed:/ d:optical:- e:removable:/mnt/stick f:removable:/run/media/ann/disk");
}

TEST_F(DrivesTest, TheHomeFolderIsTheLastDrive) {
  const test::ScopedVariable home("HOME", "/home/ann");
  machine_.listOptical({"sr0"});
  EXPECT_EQ(told(), "c:fixed:/ d:optical:- e:fixed:/home/ann");
}

TEST_F(DrivesTest, EscapedCharactersOfAMountPointAreRead) {
  machine_.addMountLine(
      "40 25 11:0 / /media/ann/Our\\040Family\\011\\134x rw - iso9660 /dev/sr0 ro");
  machine_.listOptical({"sr0"});
  EXPECT_EQ(enumerate().at(1).root, "/media/ann/Our Family\t\\x");
}

TEST_F(DrivesTest, LinesWithoutAndWithManyOptionalFieldsAreRead) {
  machine_.addMountLine("40 25 11:0 / /one rw - iso9660 /dev/sr0 ro");
  machine_.addMountLine("41 25 11:1 / /two rw shared:1 master:2 unbindable - udf /dev/sr1 ro");
  EXPECT_EQ(told(), "c:fixed:/ d:optical:/one e:optical:/two");
}

TEST_F(DrivesTest, LinesThatCannotBeReadArePassedOver) {
  for (const char* line : {"", "-", "40 25 11:0 / /one rw", "40 25 11:0 / /one rw - iso9660",
                           "a b c d e f g h i j k l m n o p"})
    machine_.addMountLine(line);
  machine_.addMountLine("40 25 11:0 / /one rw - iso9660 /dev/sr0 ro");
  EXPECT_EQ(told(), "c:fixed:/ d:optical:/one");
}

TEST_F(DrivesTest, LettersEndWithTheAlphabet) {
  for (int number = 0; number < 40; ++number)
    machine_.addDisk("sr" + std::to_string(number), true);
  const auto drives = enumerate();
  EXPECT_EQ(drives.size(), 24U);
  EXPECT_EQ(drives.back().letter, 'z');
}

class RealPath : public DrivesTest {
protected:
  [[nodiscard]] fs::path real(const std::string& letterPath) const {
    return realPath(enumerate(), letterPath);
  }
};

TEST_F(RealPath, ALetterPathLiesBelowItsDrive) {
  machine_.insertDisc("sr0", at("disc"));
  EXPECT_EQ(real("d:\\Photos\\00012.jpg"), at("disc/Photos/00012.jpg"));
  EXPECT_EQ(real("D:\\Photos\\00012.jpg"), at("disc/Photos/00012.jpg"));
  EXPECT_EQ(real("d:/Photos/"), at("disc/Photos"));
  EXPECT_EQ(real("d:"), at("disc"));
  EXPECT_EQ(real("c:\\etc\\fstab"), "/etc/fstab");
}

TEST_F(RealPath, WhatADiscSpellsInAnotherCaseIsFound) {
  writeBytes(at("disc/PHOTOS/00012.JPG"), "x");
  machine_.insertDisc("sr0", at("disc"));
  EXPECT_EQ(real("d:\\Photos\\00012.jpg"), at("disc/PHOTOS/00012.JPG"));
}

TEST_F(RealPath, APathOnNoReadyDriveCanNeverExist) {
  machine_.listOptical({"sr0"});
  for (const char* path : {"d:\\Photos\\00012.jpg", "x:\\a", "Photos", "", ":", "\\"}) {
    std::error_code error;
    EXPECT_FALSE(fs::exists(real(path) / "x", error)) << path;
    EXPECT_FALSE(fs::create_directories(real(path) / "x", error)) << path;
  }
}

TEST_F(DrivesTest, OnlyAReadyDriveWithRoomTakesFiles) {
  Drive drive{.ready = true, .root = folder_.path(), .name = {}};
  EXPECT_TRUE(takesFiles(drive));
  drive.ready = false;
  EXPECT_FALSE(takesFiles(drive));
  EXPECT_FALSE(takesFiles({.ready = true, .root = "/proc", .name = {}})); // of no size
  EXPECT_FALSE(takesFiles({.ready = true, .root = at("gone"), .name = {}}));
}

TEST_F(DrivesTest, ADriveThatCanOnlyBeReadTakesNoFiles) {
  if (!test::canMountPrivately())
    GTEST_SKIP() << "this machine does not allow private mounts";
  const test::ReadOnlyMount mounted(folder_.path());
  EXPECT_FALSE(takesFiles({.ready = true, .root = folder_.path(), .name = {}}));
}

} // namespace
} // namespace hearthbook
