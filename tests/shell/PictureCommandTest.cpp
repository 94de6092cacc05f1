#include "PictureCommand.h"

#include "TemporaryFolder.h"
#include "Text.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QTest>

namespace hearthbook {
namespace {

class PictureCommandTest : public testing::Test {
protected:
  PictureCommandTest() { command.resize(100, 125); }

  QString picture(QColor colour) {
    QImage image(50, 50, QImage::Format_RGB32);
    image.fill(colour);
    const QString file =
        toQString((folder.path() / (colour.name().mid(1).toStdString() + ".png")).string());
    image.save(file);
    return file;
  }

  QColor middle() { return command.grab().toImage().pixelColor(50, 50); }

  test::TemporaryFolder folder;
  WorkPool pool{1};
  PictureCommand command;
};

TEST_F(PictureCommandTest, ItsPictureFollowsTheFirstPaint) {
  command.showPictures(pool, picture(Qt::blue), {});
  pool.run([] {}).get(); // whatever was asked for before has been read by then
  QCoreApplication::processEvents();
  EXPECT_NE(middle(), QColor(Qt::blue));

  EXPECT_TRUE(QTest::qWaitFor([this] { return middle() == QColor(Qt::blue); }));
}

TEST_F(PictureCommandTest, ShowsItsHoverPictureWhileItIsPointedAt) {
  command.showPictures(pool, picture(Qt::blue), picture(Qt::green));
  ASSERT_TRUE(QTest::qWaitFor([this] { return middle() == QColor(Qt::blue); }));

  command.setPointedAt(true);
  EXPECT_TRUE(QTest::qWaitFor([this] { return middle() == QColor(Qt::green); }));

  command.setPointedAt(false);
  EXPECT_EQ(middle(), QColor(Qt::blue));
}

} // namespace
} // namespace hearthbook
