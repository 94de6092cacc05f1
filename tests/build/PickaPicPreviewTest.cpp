#include "PickaPicFixture.h"

#include "FileBytes.h"
#include "Pointer.h"
#include "TestPictures.h"

#include <QProgressBar>

namespace hearthbook {

namespace {

class PickaPicPreview : public test::PickaPicFixture {
protected:
  static constexpr unsigned lakeBlue = 0x336699;
  static constexpr unsigned leafGreen = 0x338833;

  static bool shows(const PickaPic& picker, unsigned colour) {
    const Picture& picture = control<PictureBox>(picker, "ImgX1")->picture();
    return !picture.isNull() &&
           test::distance(picture.row(picture.height() / 2)[picture.width() / 2],
                          0xff000000U | colour) < 8;
  }
  /// The preview follows a click when the file has been decoded.
  static void waitForPreview() {
    waitUntil([] { return !Hourglass::isShown(); });
  }
};

} // namespace

TEST_F(PickaPicPreview, ASelectedFileIsPreviewedAndItsPathKept) {
  const auto file = add("a.jpg");
  const auto& picker = openPickerAtSource();
  click(picker, 0);
  EXPECT_EQ(vars().ImagePath, file);
  const auto* preview = control<PictureBox>(picker, "ImgX1");
  waitForPreview();
  EXPECT_NEAR(double(preview->width()) / preview->height(), 160.0 / 120.0, 0.02);
}

TEST_F(PickaPicPreview, AFileThatIsNoPictureLeavesThePreviewEmpty) {
  test::writeBytes(source_ / "text.jpg", "no picture");
  const auto& picker = openPickerAtSource();
  click(picker, 0);
  waitForPreview();
  EXPECT_TRUE(isEnabled(picker, "OK"));
  EXPECT_FALSE(control<PictureBox>(picker, "ImgX1")->hasPicture());
}

TEST_F(PickaPicPreview, BehindARunItShowsThePictureAddedLast) {
  add("a.jpg", lakeBlue);
  add("b.jpg", leafGreen);
  const auto& picker = openPickerAtSource();
  click(picker, 1);
  click(picker, 0, Qt::ControlModifier); // the first has the focus now
  waitForPreview();
  ASSERT_TRUE(shows(picker, lakeBlue));
  expectCount(2);
  insert(picker);
  EXPECT_TRUE(shows(picker, leafGreen));
}

TEST_F(PickaPicPreview, AClickBehindARunShowsTheFileThatWasShownBeforeIt) {
  add("a.jpg", lakeBlue);
  add("b.jpg", leafGreen);
  const auto& picker = openPickerAtSource();
  click(picker, 1);
  click(picker, 0, Qt::ControlModifier);
  expectCount(2);
  insert(picker);
  click(picker, 0);
  waitForPreview();
  EXPECT_TRUE(shows(picker, lakeBlue));
}

TEST_F(PickaPicPreview, AFileChosenJustBeforeARunDoesNotComeBackIntoIt) {
  add("a.jpg", lakeBlue);
  add("b.jpg", leafGreen);
  const auto& picker = openPickerAtSource();
  control<QListView>(picker, "File1")
      ->setCurrentIndex(control<QListView>(picker, "File1")->model()->index(0, 0));
  control<QListView>(picker, "File1")->selectAll(); // its preview is still to be made
  expectCount(2);
  insert(picker);
  EXPECT_TRUE(shows(picker, leafGreen));
}

TEST_F(PickaPicPreview, TheHourglassStandsWhileAClickedFileIsDecoded) {
  add("a.jpg");
  const auto& picker = openPickerAtSource();
  const auto free = holdPool();
  click(picker, 0);
  EXPECT_TRUE(Hourglass::isShown());
  free();
  waitForPreview();
  EXPECT_TRUE(control<PictureBox>(picker, "ImgX1")->hasPicture());
}

TEST_F(PickaPicPreview, ADecodeThatIsNoLongerWantedKeepsNoHourglass) {
  add("a.jpg");
  const auto& picker = openPickerAtSource();
  control<QListView>(picker, "File1")->selectAll();
  press(picker, "Cancel");
  EXPECT_FALSE(Hourglass::isShown());
}

TEST_F(PickaPicPreview, TheHourglassStandsWhileFilesAreAddedAndIsGoneAtTheMessage) {
  for (const char* name : {"a.jpg", "b.jpg", "c.jpg"})
    add(name);
  const auto& picker = openPickerAtSource();
  control<QListView>(picker, "File1")->selectAll();
  std::vector<bool> shown;
  const auto* bar = control<QProgressBar>(picker, "ProgressBar1");
  QObject::connect(bar, &QProgressBar::valueChanged, bar,
                   [&] { shown.push_back(Hourglass::isShown()); });
  expectCount(3);
  insert(picker);
  EXPECT_EQ(shown, (std::vector<bool>{true, true}));
  EXPECT_FALSE(Hourglass::isShown());
}

} // namespace hearthbook
