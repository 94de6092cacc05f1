#include "ExportFormFixture.h"
#include "PrivateMount.h"
#include "ScopedVariable.h"

namespace hearthbook::test {
namespace {

namespace fs = std::filesystem;

class ExportDrive : public ExportFormFixture {
protected:
  ScopedVariable home_{"HOME", std::nullopt}; // which has a letter of its own
  void choose(const Export& dialog, const char* letter) {
    auto* drives = control<QComboBox>(dialog, "Drive1");
    const int index = drives->findText(toQString(letter), Qt::MatchStartsWith);
    ASSERT_GE(index, 0) << letter;
    drives->setCurrentIndex(index);
    Q_EMIT drives->activated(index);
    wait(dialog);
  }
  void expectRefused() {
    boxes_.expectMessage(
        toQString("Sorry, drive is read-only or not ready. Please selcet a different one"));
  }
  void expectHome(const Export& dialog) {
    EXPECT_EQ(folderShown(dialog), at("export").string());
    EXPECT_EQ(driveShown(dialog), "c:");
    EXPECT_EQ(folderInTree(dialog), "export");
  }
};

TEST_F(ExportDrive, ADriveWithRoomIsGoneTo) {
  folder_.drives().addDisk("sdb", true);
  folder_.drives().mount("/dev/sdb1", base_, "vfat");
  auto& dialog = open();
  choose(dialog, "d:");
  EXPECT_EQ(folderShown(dialog), base_.string());
  EXPECT_EQ(driveShown(dialog), "d:");
  EXPECT_EQ(folderInTree(dialog), base_.filename());
}

TEST_F(ExportDrive, ItBeginsInTheProgramsFolderForExports) { expectHome(open()); }

TEST_F(ExportDrive, ADriveWithALongNameMakesTheDialogNoWider) {
  folder_.drives().addDisk("sdb", true);
  const auto disk =
      base_ / "The photographs of all of us since we moved to the house above the lake";
  fs::create_directories(disk);
  folder_.drives().mount("/dev/sdb1", disk, "vfat");
  EXPECT_LE(open().minimumSizeHint().width(), 900);
}

TEST_F(ExportDrive, ADriveThatIsNotReadyIsRefused) {
  folder_.drives().listOptical({"sr0"});
  auto& dialog = open();
  dialog.showFolder(base_);
  wait(dialog);
  expectRefused();
  choose(dialog, "d:");
  expectHome(dialog);
}

TEST_F(ExportDrive, ADriveWithoutRoomIsRefused) {
  folder_.drives().addDisk("sdb", true);
  folder_.drives().mount("/dev/sdb1", "/proc", "vfat"); // a file system of no size
  auto& dialog = open();
  expectRefused();
  choose(dialog, "d:");
  expectHome(dialog);
}

TEST_F(ExportDrive, AFullDriveIsRefused) {
  if (!canMountPrivately())
    GTEST_SKIP() << "this machine does not allow private mounts";
  const SmallDisk disk(base_, 1 << 18);
  disk.fillUpTo(0);
  folder_.drives().addDisk("sdb", true);
  folder_.drives().mount("/dev/sdb1", base_, "vfat");
  auto& dialog = open();
  expectRefused();
  choose(dialog, "d:");
  expectHome(dialog);
}

TEST_F(ExportDrive, ADriveThatCanOnlyBeReadIsRefused) {
  if (!canMountPrivately())
    GTEST_SKIP() << "this machine does not allow private mounts";
  folder_.drives().addDisk("sdb", true);
  folder_.drives().mount("/dev/sdb1", base_, "vfat");
  auto& dialog = open();
  const ReadOnlyMount disk(base_);
  expectRefused();
  choose(dialog, "d:");
  expectHome(dialog);
}

TEST_F(ExportDrive, ADriveThatHasGoneIsRefused) {
  folder_.drives().addDisk("sdb", true);
  folder_.drives().mount("/dev/sdb1", base_, "vfat");
  auto& dialog = open();
  folder_.drives().unmountAll();
  expectRefused();
  choose(dialog, "d:");
  expectHome(dialog);
}

} // namespace
} // namespace hearthbook::test
