#include "FilesBeside.h"

#include "AlbumFixture.h"
#include "FileBytes.h"
#include "Guard.h"
#include "PhotoFiles.h"
#include "WorkPool.h"

#include <QObject>

#include <optional>

namespace hearthbook::test {
namespace {

using Files = std::vector<std::filesystem::path>;

class FilesBeside : public AlbumFixture {
protected:
  std::optional<bool> soundOf(const std::string& id) {
    std::optional<bool> found;
    findSoundBeside(pool_, &window_, album(), id, [&](bool attached) { found = attached; });
    EXPECT_EQ(found, std::nullopt);
    waitUntil([&] { return found.has_value(); });
    return found;
  }

  WorkPool pool_{1};
  QObject window_;
};

TEST_F(FilesBeside, EachPhotoHasItsAnswerInItsPlace) {
  std::optional<Files> found;
  findFilesBeside(pool_, &window_, album(), {"HD00002", "XX00001", "HD00001"}, imagePath,
                  [&](const Files& files) { found = files; });
  waitUntil([&] { return found.has_value(); });
  EXPECT_EQ(*found, (Files{at("Photos/00002.jpg"), {}, at("Photos/00001.jpg")}));
}

TEST_F(FilesBeside, ASoundIsAnyFileOfTheNumber) {
  writeBytes(at("Audio/00002.mid"), "x");
  EXPECT_EQ(soundOf("HD00002"), true);
  EXPECT_EQ(soundOf("CD00002"), true);
  EXPECT_EQ(soundOf("HD00001"), false);
}

TEST_F(FilesBeside, AWindowThatHasGoneIsToldNothing) {
  bool isTold = false;
  {
    QObject gone;
    findSoundBeside(pool_, &gone, album(), "HD00001", [&](bool) { isTold = true; });
  }
  EXPECT_EQ(soundOf("HD00001"), false); // done behind it
  EXPECT_FALSE(isTold);
}

} // namespace
} // namespace hearthbook::test
