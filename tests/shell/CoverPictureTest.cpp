#include "CoverPicture.h"

#include "FileBytes.h"
#include "TemporaryFolder.h"
#include "TestPictures.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPixmap>
#include <QTest>

namespace hearthbook {
namespace {

class CoverPictureTest : public testing::Test {
protected:
  CoverPictureTest() { cover.resize(100, 100); }

  std::filesystem::path file(const std::string& bytes) {
    test::writeBytes(folder.path() / "picture.jpg", bytes);
    return folder.path() / "picture.jpg";
  }

  QRgb at(int x, int y) { return cover.grab().toImage().pixel(x, y); }

  test::TemporaryFolder folder;
  WorkPool pool{1};
  PictureLoader loader{pool, [](std::function<void()> work) {
                         QMetaObject::invokeMethod(qApp, std::move(work), Qt::QueuedConnection);
                       }};
  CoverPicture cover;
};

TEST_F(CoverPictureTest, CoversTheWholeWidgetWithTheMiddleOfThePicture) {
  cover.showPicture(loader, file(test::jpegOf(test::corners({400, 200}))));
  cover.show();

  ASSERT_TRUE(QTest::qWaitFor([this] { return cover.hasPicture(); }));

  EXPECT_LT(test::distance(at(3, 3), test::red), 40);
  EXPECT_LT(test::distance(at(96, 3), test::green), 40);
  EXPECT_LT(test::distance(at(3, 96), test::blue), 40);
  EXPECT_LT(test::distance(at(96, 96), test::white), 40);
}

TEST_F(CoverPictureTest, FollowsTheSizeOfTheWidget) {
  cover.showPicture(loader, file(test::jpegOf(test::corners({400, 200}))));
  cover.show();
  ASSERT_TRUE(QTest::qWaitFor([this] { return cover.hasPicture(); }));

  cover.resize(300, 60);

  EXPECT_LT(test::distance(at(3, 3), test::red), 40);
  EXPECT_LT(test::distance(at(296, 56), test::white), 40);
}

TEST_F(CoverPictureTest, WithoutItsFileItIsOneColour) {
  cover.showPicture(loader, folder.path() / "missing.jpg");
  cover.show();

  EXPECT_EQ(at(3, 3), at(96, 96));
  EXPECT_FALSE(cover.hasPicture());
}

} // namespace
} // namespace hearthbook
