#include "BoundControls.h"
#include "ControlChecks.h"
#include "ExportFormFixture.h"
#include "PictureBox.h"
#include "Pointer.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>

namespace hearthbook::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr Control controls[] = {
    {"albumFrame", "QGroupBox", "Select Sub-Album To Export"},
    {"SubAlbumList", "hearthbook::DataList"},
    {"optimizationFrame", "QGroupBox", "Select Optimization"},
    {"Combo1", "QComboBox"},
    {"destinationFrame", "QGroupBox", "Select Destination"},
    {"Drive1", "QComboBox"},
    {"Dir1", "QTreeView"},
    {"ProgressBar1", "QProgressBar"},
    {"Label1", "QLabel"},
    {"ImgX1", "hearthbook::PictureBox"},
    {"Command1", "QPushButton", "Export"},
    {"Command2", "QPushButton", "Close"},
    {"UserControl11", "hearthbook::HyperlinkControl"},
};

/// What one sees each time the label is painted anew.
class LabelWatch : public QObject {
public:
  explicit LabelWatch(std::function<void()> seen) : seen_(std::move(seen)) {}
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint)
      seen_();
    return false;
  }

private:
  std::function<void()> seen_;
};

class ExportForm : public ExportFormFixture {
protected:
  void exportNow(const Export& dialog) { press(dialog, "Command1"); }
  void expectReport(const QString& text) {
    boxes_.expectMessage(text, toQString("Export Sub-Album"), MsgIcon::Exclamation);
  }
};

TEST_F(ExportForm, HasItsControls) {
  auto& dialog = open();
  EXPECT_EQ(dialog.caption(), toQString("Export Sub-Album"));
  expectControls(dialog, "Export", controls);
}

TEST_F(ExportForm, TabReachesAllControlsAndTheyHaveNames) {
  addSubAlbum("Trip");
  auto& dialog = open();
  expectTabReachesAll(dialog, control(dialog, "SubAlbumList"), 8);
}

TEST_F(ExportForm, BeginsInTheProgramsFolderWithTheFirstChoice) {
  addSubAlbum("Trip");
  addSubAlbum("Lake");
  auto& dialog = open();
  EXPECT_EQ(folderShown(dialog), at("export").string());
  EXPECT_EQ(textsOf(*control<DataList>(dialog, "SubAlbumList")),
            (QStringList{toQString("Lake"), toQString("Trip")}));
  auto* choice = control<QComboBox>(dialog, "Combo1");
  EXPECT_EQ(choice->count(), 4);
  EXPECT_EQ(choice->currentText(),
            toQString("Optimize for 800X600 screens, Recommended for most viewers"));
  EXPECT_FALSE(control(dialog, "ImgX1")->isVisible());
}

TEST_F(ExportForm, GrowsWithTheScreen) {
  EXPECT_EQ(Export::sizeOn({1024, 768}, {900, 600}), QSize(900, 600));
  EXPECT_EQ(Export::sizeOn({3840, 2160}, {900, 600}), QSize(1536, 864));
}

TEST_F(ExportForm, WithoutAnAlbumChosenItAsksForOne) {
  addSubAlbum("Trip");
  auto& dialog = open();
  expectReport(toQString("Please select Sub-Album to export from the list"));
  exportNow(dialog);
}

TEST_F(ExportForm, WithoutATemplateItSaysSo) {
  addSubAlbum("Trip");
  auto& dialog = openChosen();
  fs::remove_all(at("export/template"));
  expectReport(toQString("Sorry, can not export albums, export source not found!"));
  exportNow(dialog);
  EXPECT_THAT(namesIn(base_), IsEmpty());
}

TEST_F(ExportForm, ATemplateWithoutAFileIsNone) {
  addSubAlbum("Trip");
  auto& dialog = openChosen();
  fs::remove_all(at("export/template"));
  for (const char* folder : {"export/template", "export/template/html"}) {
    fs::create_directories(at(folder));
    expectReport(toQString("Sorry, can not export albums, export source not found!"));
    exportNow(dialog);
  }
  EXPECT_THAT(namesIn(base_), IsEmpty());
}

TEST_F(ExportForm, ExportsTheChosenAlbumAndAsksWhetherToViewIt) {
  addTrip(3);
  auto& dialog = openChosen();
  expectClosingQuestion("Trip");
  exportNow(dialog);
  EXPECT_TRUE(isThere("Trip/data/3.jpg"));
  EXPECT_THAT(opened_, IsEmpty());
  EXPECT_TRUE(dialog.isShown());
}

TEST_F(ExportForm, AYesOpensTheStartPageInTheBrowser) {
  addTrip(1, "Trip: 1.2");
  auto& dialog = openChosen();
  expectClosingQuestion("Trip-_12", MsgAnswer::Yes);
  exportNow(dialog);
  EXPECT_THAT(opened_, ElementsAre(out("Trip-_12/trip-_12.htm")));
}

TEST_F(ExportForm, TheClosingQuestionNamesTheFolderAsItIsSpelled) {
  addTrip(1);
  fs::create_directories(out("TRIP"));
  auto& dialog = openChosen();
  expectClosingQuestion("Trip", out("TRIP"));
  exportNow(dialog);
  EXPECT_TRUE(isThere("TRIP/trip.htm"));
}

TEST_F(ExportForm, TheHourglassIsShownWhileItExports) {
  addTrip(1);
  auto& dialog = openChosen();
  bool shown = false;
  LabelWatch watch([&] {
    if (!control<QLabel>(dialog, "Label1")->text().isEmpty())
      shown = Hourglass::isShown();
  });
  control(dialog, "Label1")->installEventFilter(&watch);
  expectClosingQuestion("Trip");
  exportNow(dialog);
  EXPECT_TRUE(shown);
  EXPECT_FALSE(Hourglass::isShown());
}

TEST_F(ExportForm, ADesktopWithoutABrowserIsTold) {
  addTrip(1);
  hasBrowser_ = false;
  auto& dialog = openChosen();
  expectClosingQuestion("Trip", MsgAnswer::Yes);
  expectReport(
      toQString("The desktop has no program to show the page:\n" + out("Trip/trip.htm").string()));
  exportNow(dialog);
}

TEST_F(ExportForm, TheChoiceDecidesTheSize) {
  addTrip(1);
  writeJpeg(at("Photos/00002.jpg"), 1600, 1200);
  auto& dialog = openChosen();
  control<QComboBox>(dialog, "Combo1")->setCurrentIndex(3);
  expectClosingQuestion("Trip");
  exportNow(dialog);
  EXPECT_EQ(sizeOf("Trip/data/1.jpg"), (PixelSize{1600, 1200}));
}

TEST_F(ExportForm, ShowsThePhotosAndHowFarItIs) {
  addTrip(2);
  auto& dialog = openChosen();
  auto* label = control<QLabel>(dialog, "Label1");
  auto* bar = control<QProgressBar>(dialog, "ProgressBar1");
  auto* photo = control<PictureBox>(dialog, "ImgX1");
  QStringList told;
  LabelWatch watch([&] {
    if (label->text().isEmpty() || told.contains(label->text()))
      return;
    told << label->text();
    EXPECT_EQ(bar->value(), told.size());
    EXPECT_EQ(bar->maximum(), 2);
    EXPECT_TRUE(photo->isVisible());
    EXPECT_EQ(photo->hasPicture(), told.size() == 2);
  });
  label->installEventFilter(&watch);
  expectClosingQuestion("Trip");
  exportNow(dialog);
  EXPECT_EQ(told, (QStringList{toQString("1 of 2 (now saving file:00002.jpg)"),
                               toQString("2 of 2 (now saving file:00003.jpg)")}));
  EXPECT_EQ(label->text(), QString());
  EXPECT_EQ(bar->value(), 0);
  EXPECT_FALSE(photo->isVisible());
}

TEST_F(ExportForm, StaysOpenWhileItExports) {
  addTrip(1);
  auto& dialog = openChosen();
  bool refused = false;
  LabelWatch watch([&] {
    if (!control<QLabel>(dialog, "Label1")->text().isEmpty())
      refused = !dialog.Unload();
  });
  control(dialog, "Label1")->installEventFilter(&watch);
  expectClosingQuestion("Trip");
  exportNow(dialog);
  EXPECT_TRUE(refused);
  press(dialog, "Command2");
  EXPECT_EQ(Forms::loaded<Export>(), nullptr);
}

TEST_F(ExportForm, NothingCanBeChosenWhileItExports) {
  addTrip(1);
  auto& dialog = openChosen();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  control(dialog, "Command1")->setFocus();
  constexpr const char* choices[] = {"SubAlbumList", "Combo1", "Drive1",   "homeButton",
                                     "folderEdit",   "Dir1",   "Command1", "Command2"};
  int looks = 0;
  LabelWatch watch([&] {
    if (control<QLabel>(dialog, "Label1")->text().isEmpty())
      return;
    ++looks;
    for (const char* name : choices)
      EXPECT_FALSE(control(dialog, name)->isEnabled()) << name;
  });
  control(dialog, "Label1")->installEventFilter(&watch);
  expectClosingQuestion("Trip");
  exportNow(dialog);
  EXPECT_GT(looks, 0);
  for (const char* name : choices)
    EXPECT_TRUE(control(dialog, name)->isEnabled()) << name;
  EXPECT_TRUE(control(dialog, "Command1")->hasFocus());
}

TEST_F(ExportForm, BrokenPhotosAreToldByNameAtTheEnd) {
  addTrip(2);
  writeBytes(at("Photos/00002.jpg"), "no picture");
  fs::remove(at("Photos/00003.jpg"));
  auto& dialog = openChosen();
  expectReport(toQString("Some photos are not in the export as they should be:\n00002.jpg could "
                         "not be read\n00003.jpg is missing"));
  expectClosingQuestion("Trip");
  exportNow(dialog);
}

TEST_F(ExportForm, EachOfManyBrokenPhotosIsToldByName) {
  addTrip(40);
  fs::remove_all(at("Photos"));
  auto& dialog = openChosen();
  QString report = toQString("Some photos are not in the export as they should be:");
  for (int photo = 2; photo < 42; ++photo)
    report += toQString("\n000%1.jpg is missing").arg(photo, 2, 10, QLatin1Char('0'));
  expectReport(report);
  expectClosingQuestion("Trip");
  exportNow(dialog);
}

TEST_F(ExportForm, TextThatLooksLikeMarkupIsTold) {
  folder_.addPhoto("HD00002", {{"Description", "<b>bold</b>"}});
  addSubAlbum("Trip", {"HD00002"});
  auto& dialog = openChosen();
  expectReport(toQString("1 photo holds text that a browser takes for markup, such as <b>. It "
                         "stands in the pages as it was typed, and may not be shown as it was "
                         "meant."));
  expectClosingQuestion("Trip");
  exportNow(dialog);
  EXPECT_THAT(page("Trip/data/1.htm"), HasSubstr("<b>bold</b>"));
}

TEST_F(ExportForm, FilesOfSomebodyElseGoOnlyAfterAQuestion) {
  addTrip(1);
  writeBytes(out("Trip/diary.txt"), "Dear diary");
  auto& dialog = openChosen();
  const QString question = toQString(
      "The folder '" + out("Trip").string() +
      "' holds what was not written by an export of this sub-album:\ndiary.txt\n\nWould you like "
      "to delete that and export the sub-album into this folder?");
  boxes_.expectQuestion(question, toQString("Export Sub-Album"), MsgIcon::Exclamation,
                        MsgButtons::YesNo, MsgAnswer::No);
  exportNow(dialog);
  EXPECT_THAT(namesIn(out("Trip")), ElementsAre("diary.txt"));
  boxes_.expectQuestion(question, toQString("Export Sub-Album"), MsgIcon::Exclamation,
                        MsgButtons::YesNo, MsgAnswer::Yes);
  expectClosingQuestion("Trip");
  exportNow(dialog);
  EXPECT_FALSE(isThere("Trip/diary.txt"));
}

TEST_F(ExportForm, AFailureIsReportedAndTheFormCanBeUsedOn) {
  addTrip(1);
  auto& dialog = openChosen();
  fs::remove_all(base_);
  boxes_.expectFailure(toQString("it is not there"));
  exportNow(dialog);
  EXPECT_FALSE(control(dialog, "ImgX1")->isVisible());
  EXPECT_FALSE(Hourglass::isShown());
  fs::create_directories(base_);
  expectClosingQuestion("Trip");
  exportNow(dialog);
}

TEST_F(ExportForm, WhatTheEditorHasNotStoredYetGoesOutToo) {
  addTrip(1);
  QPlainTextEdit description;
  Binding binding(data().rsPhotoAlbum);
  binding.bind(&description, "Description");
  data().rsPhotoAlbum.Find("PictureID = 'HD00002'", Recordset::Start::First);
  auto& dialog = openChosen();
  description.setPlainText(toQString("Just typed"));
  expectClosingQuestion("Trip");
  exportNow(dialog);
  EXPECT_THAT(page("Trip/data/1.htm"), HasSubstr("Just typed"));
}

/// As on a desktop: while a box is shown the focus is in it, and it comes back later.
class BoxesWithTheFocus : public BoxScript {
public:
  MsgAnswer message(const QString& text, const QString& title, MsgIcon icon,
                    MsgButtons buttons) override {
    if (QWidget* focused = QApplication::focusWidget())
      focused->clearFocus();
    return BoxScript::message(text, title, icon, buttons);
  }
};

TEST_F(ExportForm, ReturnBehindAFolderThatIsNotThereExportsNothing) {
  addTrip(1);
  auto& dialog = openChosen();
  dialog.activateWindow();
  BoxesWithTheFocus boxes;
  boxes.expectMessage(toQString("There is no folder /nowhere"), toQString("Export Sub-Album"),
                      MsgIcon::Exclamation);
  auto* line = control<QLineEdit>(dialog, "folderEdit");
  line->setFocus();
  line->setText(toQString("/nowhere"));
  QTest::keyClick(line, Qt::Key_Return);
  EXPECT_EQ(folderShown(dialog), base_.string());
  EXPECT_THAT(namesIn(base_), IsEmpty());
}

TEST_F(ExportForm, AFolderThatVanishesIsNotExchangedForItsNeighbour) {
  addTrip(1);
  for (const char* name : {"A", "Stick", "Z"})
    fs::create_directories(base_ / name);
  auto& dialog = openChosen();
  dialog.showFolder(base_ / "Stick");
  wait(dialog);
  const auto* tree = control<QTreeView>(dialog, "Dir1");
  const auto siblings = [tree] { return tree->model()->rowCount(tree->currentIndex().parent()); };
  ASSERT_TRUE(waitFor([&] { return siblings() == 3; }));
  const QModelIndex parent = tree->currentIndex().parent();
  fs::remove(base_ / "Stick");
  ASSERT_TRUE(waitFor([&] { return tree->model()->rowCount(parent) == 2; }));
  EXPECT_EQ(folderShown(dialog), (base_ / "Stick").string());
  EXPECT_FALSE(tree->currentIndex().isValid()); // so that a click on any of them chooses it
  boxes_.expectFailure(toQString("Stick"));
  exportNow(dialog);
  EXPECT_THAT(namesIn(base_), testing::UnorderedElementsAre("A", "Z"));
}

TEST_F(ExportForm, ReturnInTheFolderLineExportsNothing) {
  addTrip(1);
  auto& dialog = openChosen();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  auto* line = control<QLineEdit>(dialog, "folderEdit");
  line->setFocus();
  line->setText(toQString(at("Photos")));
  QTest::keyClick(line, Qt::Key_Return);
  wait(dialog);
  EXPECT_EQ(folderShown(dialog), at("Photos").string());
  EXPECT_THAT(namesIn(base_), IsEmpty());
}

} // namespace
} // namespace hearthbook::test
