#include "Manifest.h"

#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <stdexcept>

namespace hearthbook {

namespace {

class Manifest : public testing::Test {
protected:
  QList<Drawing> read(const char* text) {
    const auto file = folder_.path() / "render.txt";
    std::ofstream(file) << text;
    return readManifest(QString::fromStdString(file.string()));
  }

private:
  test::TemporaryFolder folder_;
};

TEST_F(Manifest, ALineNamesOutputSourceAndSize) {
  const auto drawings = read("# a note\n\nMedia/a.jpg a.svg 640x192 quality=88\n");
  ASSERT_EQ(drawings.size(), 1);
  EXPECT_EQ(drawings[0].output.toStdString(), "Media/a.jpg");
  EXPECT_EQ(drawings[0].source.toStdString(), "a.svg");
  EXPECT_EQ(drawings[0].size, QSize(640, 192));
  EXPECT_EQ(drawings[0].quality, 88);
}

TEST_F(Manifest, ALineMayTellWhatACameraWouldHaveWritten) {
  const auto drawings = read("a.jpg a.svg 8x8 taken=1998:06:14T15:02:11 orientation=6\n");
  ASSERT_EQ(drawings.size(), 1);
  EXPECT_EQ(drawings[0].camera.taken, "1998:06:14 15:02:11");
  EXPECT_EQ(drawings[0].camera.orientation, 6);
}

TEST_F(Manifest, ALineMayAskForAClearGround) {
  const auto drawings = read("a.gif a.svg 8x8 clear\nb.gif b.svg 8x8\n");
  ASSERT_EQ(drawings.size(), 2);
  EXPECT_TRUE(drawings[0].clear);
  EXPECT_FALSE(drawings[1].clear);
}

TEST_F(Manifest, ALineMayAskForABlankInTheNameAndForLeftAndRightToBeExchanged) {
  const auto drawings = read("New%20Baby/a.gif a.svg 8x8 mirrored\n");
  ASSERT_EQ(drawings.size(), 1);
  EXPECT_EQ(drawings[0].output.toStdString(), "New Baby/a.gif");
  EXPECT_TRUE(drawings[0].mirrored);
}

TEST_F(Manifest, ALineThatCannotBeReadIsRefused) {
  EXPECT_THROW(read("a.jpg a.svg\n"), std::runtime_error);
  EXPECT_THROW(read("a.jpg a.svg 8x8 colour=red\n"), std::runtime_error);
}

} // namespace

} // namespace hearthbook
