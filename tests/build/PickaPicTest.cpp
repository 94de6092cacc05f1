#include "PickaPicFixture.h"

#include "Command.h"
#include "FileBytes.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QTreeView>

#include <fstream>

namespace hearthbook {

namespace {

class PickaPicTest : public test::PickaPicFixture {};

} // namespace

TEST_F(PickaPicTest, AtFirstNothingIsChosen) {
  const auto& picker = openPicker();
  EXPECT_FALSE(isEnabled(picker, "OK"));
  EXPECT_TRUE(control<QRadioButton>(picker, "Option1")->isChecked());
  EXPECT_FALSE(control<QAbstractButton>(picker, "chkSize")->isChecked());
  EXPECT_FALSE(control<QWidget>(picker, "frmProgress")->isVisible());
  EXPECT_EQ(control<QListView>(picker, "File1")->selectionMode(),
            QAbstractItemView::ExtendedSelection);
}

TEST_F(PickaPicTest, ANameThatIsWiderThanItsPictureIsShown) {
  add("Landscape_0.jpg");
  const auto& picker = openPickerAtSource();
  const auto* list = control<QListView>(picker, "File1");
  const QRect place = list->visualRect(list->model()->index(0, 0));
  EXPECT_GT(place.width(), list->fontMetrics().horizontalAdvance(toQString("Landscape_0.jpg")));
}

TEST_F(PickaPicTest, OnALargeScreenItShowsMorePicturesAtOnce) {
  const QSize drawn(960, 640);
  EXPECT_EQ(PickaPic::sizeOn({1024, 768}, drawn), drawn);
  EXPECT_EQ(PickaPic::sizeOn({3840, 2160}, drawn), QSize(2304, 1296));
}

TEST_F(PickaPicTest, TheBrowserStartsInTheAlbumsPhotos) {
  const auto& picker = openPicker();
  EXPECT_EQ(listed(picker), QStringList{toQString("00001.jpg")});
  EXPECT_EQ(vars().LastFolder, at("Photos"));
}

TEST_F(PickaPicTest, TheFolderLastOpenedIsThereAgain) {
  add("lake.jpg");
  press(openPickerAtSource(), "Cancel");
  EXPECT_EQ(vars().LastFolder, source_);
  EXPECT_EQ(listed(openPicker()), QStringList{toQString("lake.jpg")});
}

TEST_F(PickaPicTest, AFolderThatHasGoneSinceIsReplacedByTheNearestAboveIt) {
  vars().LastFolder = source_ / "gone";
  openPicker();
  EXPECT_EQ(vars().LastFolder, source_);
}

TEST_F(PickaPicTest, AChoiceInTheFolderListShowsItsFiles) {
  add("sub/lake.jpg");
  auto& picker = openPickerAtSource();
  auto* folders = control<QTreeView>(picker, "Dir1");
  const QModelIndex here = folders->currentIndex();
  waitUntil([&] { return folders->model()->rowCount(here) > 0; });
  folders->setCurrentIndex(folders->model()->index(0, 0, here));
  wait(picker);
  EXPECT_EQ(vars().LastFolder, source_ / "sub");
  EXPECT_EQ(listed(picker), QStringList{toQString("lake.jpg")});
}

TEST_F(PickaPicTest, ATypedFolderIsOpened) {
  add("lake.jpg");
  const auto& picker = openPicker();
  auto* edit = control<QLineEdit>(picker, "folderEdit");
  edit->setText(toQString(source_));
  QTest::keyClick(edit, Qt::Key_Return);
  wait(picker);
  EXPECT_EQ(listed(picker), QStringList{toQString("lake.jpg")});
}

TEST_F(PickaPicTest, ATypedFolderIsOpenedWithoutReturnOnceTheUserIsDoneWithTheLine) {
  add("lake.jpg");
  auto& picker = openPicker();
  auto* edit = control<QLineEdit>(picker, "folderEdit");
  edit->setFocus();
  edit->setText(toQString(source_));
  control(picker, "File1")->setFocus();
  wait(picker);
  EXPECT_EQ(vars().LastFolder, source_);
  EXPECT_EQ(listed(picker), QStringList{toQString("lake.jpg")});
}

TEST_F(PickaPicTest, ACommandWaitsWhileATypedFolderIsNotThere) {
  auto& picker = openPicker();
  auto* edit = control<QLineEdit>(picker, "folderEdit");
  edit->setFocus();
  edit->setText(toQString("/nowhere"));
  boxes_.expectMessage(toQString("There is no folder /nowhere"), toQString("Add From File"),
                       MsgIcon::Exclamation);
  bool ran = false;
  EXPECT_FALSE(runCommand([&] { ran = true; }));
  EXPECT_FALSE(ran);
  EXPECT_EQ(edit->text(), toQString(at("Photos")));
  EXPECT_TRUE(runCommand([&] { ran = true; }));
  EXPECT_TRUE(ran);
}

TEST_F(PickaPicTest, ATypedFolderThatIsNotThereIsRefused) {
  const auto& picker = openPicker();
  auto* edit = control<QLineEdit>(picker, "folderEdit");
  edit->setText(toQString("/nowhere"));
  boxes_.expectMessage(toQString("There is no folder /nowhere"), toQString("Add From File"),
                       MsgIcon::Exclamation);
  QTest::keyClick(edit, Qt::Key_Return);
  EXPECT_EQ(edit->text(), toQString(at("Photos")));
}

TEST_F(PickaPicTest, ADriveThatIsNotReadyIsRefusedAndTheFolderStays) {
  folder_.drives().listOptical({"sr0"});
  const auto& picker = openPicker();
  auto* drives = control<QComboBox>(picker, "Drive1");
  const int disc = drives->findText(toQString("d:"), Qt::MatchStartsWith);
  ASSERT_GE(disc, 0);
  boxes_.expectMessage(toQString("Drive Does Not Exist"));
  Q_EMIT drives->activated(disc);
  EXPECT_EQ(vars().LastFolder, at("Photos"));
  EXPECT_NE(drives->currentIndex(), disc);
  EXPECT_EQ(control<QGroupBox>(picker, "Help")->title(), toQString("Drive"));
}

TEST_F(PickaPicTest, AReadyDriveIsOpenedAtItsRoot) {
  add("on disc.jpg");
  folder_.drives().insertDisc("sr0", source_);
  const auto& picker = openPicker();
  auto* drives = control<QComboBox>(picker, "Drive1");
  Q_EMIT drives->activated(drives->findText(toQString("d:"), Qt::MatchStartsWith));
  wait(picker);
  EXPECT_EQ(listed(picker), QStringList{toQString("on disc.jpg")});
}

TEST_F(PickaPicTest, OneSelectedFileReadsInsertSingleAndTwoInsertMultiple) {
  add("a.jpg");
  add("b.jpg");
  const auto& picker = openPickerAtSource();
  click(picker, 0);
  EXPECT_TRUE(isEnabled(picker, "OK"));
  EXPECT_EQ(control<QAbstractButton>(picker, "OK")->text(), toQString("Insert Single"));
  click(picker, 1, Qt::ControlModifier);
  EXPECT_EQ(control<QAbstractButton>(picker, "OK")->text(), toQString("Insert Multiple"));
  click(picker, 1, Qt::ControlModifier);
  EXPECT_EQ(control<QAbstractButton>(picker, "OK")->text(), toQString("Insert Single"));
}

TEST_F(PickaPicTest, DeselectingEverythingLeavesTheCommandEnabledAndAddsNothing) {
  add("a.jpg");
  const auto& picker = openPickerAtSource();
  click(picker, 0);
  click(picker, 0, Qt::ControlModifier);
  EXPECT_TRUE(isEnabled(picker, "OK"));
  expectCount(0);
  insert(picker);
  EXPECT_EQ(photos().RecordCount(), 1);
}

TEST_F(PickaPicTest, ThreeSelectedFilesAddThreeRowsWithConsecutiveIds) {
  for (const char* name : {"a.jpg", "b.jpg", "c.jpg"})
    add(name);
  const auto& picker = openPickerAtSource();
  control<QListView>(picker, "File1")->selectAll();
  expectCount(3);
  insert(picker);
  EXPECT_EQ(photos().RecordCount(), 4);
  EXPECT_EQ(currentId(), "HD00004");
  for (const char* stem : {"00002", "00003", "00004"}) {
    EXPECT_TRUE(std::filesystem::exists(at(std::string("Photos/") + stem + ".jpg"))) << stem;
    EXPECT_TRUE(std::filesystem::exists(at(std::string("Thumbnails/") + stem + ".jpg"))) << stem;
  }
}

TEST_F(PickaPicTest, OnlyTheSelectedFilesAreAdded) {
  for (const char* name : {"a.jpg", "b.jpg", "c.jpg"})
    add(name);
  const auto& picker = openPickerAtSource();
  click(picker, 1);
  expectCount(1);
  insert(picker);
  EXPECT_EQ(test::readBytes(at("Photos/00002.jpg")), test::readBytes(source_ / "b.jpg"));
}

TEST_F(PickaPicTest, AfterARunTheFormStaysAndOffersDone) {
  add("a.jpg");
  const auto& picker = openPickerAtSource();
  click(picker, 0);
  expectCount(1);
  insert(picker);
  EXPECT_FALSE(isEnabled(picker, "OK"));
  EXPECT_EQ(control<QAbstractButton>(picker, "Cancel")->text(), toQString("Done"));
  EXPECT_FALSE(control<QWidget>(picker, "frmProgress")->isVisible());
  EXPECT_EQ(control<QProgressBar>(picker, "ProgressBar1")->maximum(), 1);
  EXPECT_TRUE(control<QWidget>(picker, "File1")->hasFocus());
  click(picker, 0);
  EXPECT_TRUE(isEnabled(picker, "OK"));
}

TEST_F(PickaPicTest, MovedFilesLeaveTheList) {
  for (const char* name : {"a.jpg", "b.jpg"})
    add(name);
  const auto& picker = openPickerAtSource();
  control<QAbstractButton>(picker, "Option2")->click();
  click(picker, 0);
  expectCount(1);
  insert(picker);
  EXPECT_EQ(listed(picker), QStringList{toQString("b.jpg")});
}

TEST_F(PickaPicTest, AFileThatCannotBeDecodedIsToldAndCountedAllTheSame) {
  test::writeBytes(source_ / "text.png", "no picture");
  const auto& picker = openPickerAtSource();
  click(picker, 0);
  struct Listening : BoxPlayer {
    MsgAnswer message(const QString& text, const QString& title, MsgIcon icon,
                      MsgButtons) override {
      boxes.push_back({toUtf8(text), toUtf8(title), icon});
      return MsgAnswer::Ok;
    }
    QString input(const QString&, const QString&, const QString&) override { return {}; }
    struct Box {
      std::string text;
      std::string title;
      MsgIcon icon;
    };
    std::vector<Box> boxes;
  } listening;
  BoxPlayer* former = BoxPlayer::install(&listening);
  insert(picker);
  BoxPlayer::install(former);
  ASSERT_GE(listening.boxes.size(), 2U);
  EXPECT_EQ(listening.boxes.front().text,
            "An error occurred while inserting file: " + (source_ / "text.png").string());
  EXPECT_EQ(listening.boxes.front().title, "Error");
  EXPECT_EQ(listening.boxes.front().icon, MsgIcon::Critical);
  EXPECT_EQ(listening.boxes.back().text, "1 Files added to album.");
  EXPECT_EQ(photos().RecordCount(), 2);
}

TEST_F(PickaPicTest, AFolderOfTenThousandFilesIsListed) {
  for (int number = 0; number < 10'000; ++number)
    std::ofstream(source_ / (std::to_string(number) + ".jpg"));
  EXPECT_EQ(listed(openPickerAtSource()).size(), 10'000);
}

TEST_F(PickaPicTest, AFolderThatCannotBeReadIsTold) {
  auto& picker = openPicker();
  const auto gone = at("Gone");
  boxes_.expectMessage(
      toQString("The folder " + gone.string() + " cannot be read: it is not there."),
      toQString("Add From File"), MsgIcon::Exclamation);
  picker.showFolder(gone);
  wait(picker);
  EXPECT_TRUE(listed(picker).empty());
}

TEST_F(PickaPicTest, ReturnWhereAFolderIsChosenAddsNoFile) {
  add("a.jpg");
  auto& picker = openPickerAtSource();
  picker.activateWindow();
  for (const char* chooser : {"folderEdit", "Dir1", "Drive1"})
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
      click(picker, 0);
      ASSERT_TRUE(isEnabled(picker, "OK"));
      auto* widget = control<QWidget>(picker, chooser);
      widget->setFocus();
      ASSERT_EQ(picker.focusWidget(), widget);
      QTest::keyClick(widget, key);
      wait(picker);
      EXPECT_EQ(photos().RecordCount(), 1) << chooser;
    }
}

TEST_F(PickaPicTest, ReturnInTheFileListAddsTheChosenFile) {
  add("a.jpg");
  auto& picker = openPickerAtSource();
  picker.activateWindow();
  click(picker, 0);
  control<QWidget>(picker, "File1")->setFocus();
  expectCount(1);
  QTest::keyClick(control<QWidget>(picker, "File1"), Qt::Key_Return);
  EXPECT_EQ(photos().RecordCount(), 2);
}

TEST_F(PickaPicTest, AFolderThatIsBeingReadOffersNoFilesOfTheOneBefore) {
  add("a.jpg");
  auto& picker = openPickerAtSource();
  click(picker, 0);
  ASSERT_TRUE(isEnabled(picker, "OK"));
  picker.showFolder(at("Photos"));
  EXPECT_TRUE(picker.isReading());
  EXPECT_TRUE(listed(picker).empty());
  EXPECT_FALSE(isEnabled(picker, "OK"));
  wait(picker);
  EXPECT_FALSE(isEnabled(picker, "OK"));
  click(picker, 0);
  EXPECT_TRUE(isEnabled(picker, "OK"));
}

TEST_F(PickaPicTest, TheBarReachesOverAllFilesOfTheListSelectedOrNot) {
  for (const char* name : {"a.jpg", "b.jpg", "c.jpg"})
    add(name);
  const auto& picker = openPickerAtSource();
  click(picker, 1);
  expectCount(1);
  insert(picker);
  EXPECT_EQ(control<QProgressBar>(picker, "ProgressBar1")->maximum(), 3);
}

TEST_F(PickaPicTest, TheHelpPaneBeginsWithItsOwnKey) {
  const auto& picker = openPicker();
  EXPECT_EQ(control<QGroupBox>(picker, "Help")->title(), toQString("Help"));
  EXPECT_FALSE(control<QPlainTextEdit>(picker, "Text1")->toPlainText().isEmpty());
}

TEST_F(PickaPicTest, TheHelpPaneFollowsTheMouse) {
  const auto& picker = openPicker();
  const QString before = control<QPlainTextEdit>(picker, "Text1")->toPlainText();
  QTest::mouseMove(control<QWidget>(picker, "Option2"));
  EXPECT_EQ(control<QGroupBox>(picker, "Help")->title(), toQString("Move Files"));
  EXPECT_NE(control<QPlainTextEdit>(picker, "Text1")->toPlainText(), before);
}

TEST_F(PickaPicTest, CancelUnloads) {
  press(openPicker(), "Cancel");
  EXPECT_EQ(Forms::loaded<PickaPic>(), nullptr);
}

} // namespace hearthbook
