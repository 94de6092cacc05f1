#include "ViewerFixture.h"

#include "ControlChecks.h"
#include "HelpRows.h"

#include <QToolButton>

namespace hearthbook::test {

namespace {

const Control viewerControls[] = {
    {"PosLabel", "QLabel", "Page 1 of 1"},
    {"Command7", "QPushButton", "|<<", "Navigation Buttons"},
    {"Command2", "QPushButton", "<<", "Navigation Buttons"},
    {"Command1", "QPushButton", ">>", "Navigation Buttons"},
    {"Command8", "QPushButton", ">>|", "Navigation Buttons"},
    {"Command3", "QPushButton", "Edit All", "Edit All/Selected"},
    {"Command5", "QPushButton", "Edit Sub-Album", "Remove From Album"},
    {"Command6", "QPushButton", "Zoom", "Zoom"},
    {"Command9", "QPushButton", "E-Mail", "E-Mail"},
    {"Command4", "QPushButton", "Done", "Done"},
    {"Picture1", "QLabel"},
    {"CommentsBox", "hearthbook::CommentsBox"},
    {"lblComments", "QLabel"},
    {"Command10", "QPushButton", "X"},
    {"Label2", "QLabel", "Click To Close"},
};

/// The controls of each cell, by the name of their family.
const Control cellControls[] = {
    {"Image1", "hearthbook::PagePhoto", "", "Photos"},
    {"Shape1", "hearthbook::PhotoFrame"},
    {"Info", "hearthbook::FactsPanel"},
    {"infoBorder", "QFrame"},
    {"txtYear", "QLabel"},
    {"txtPlace", "QLabel"},
    {"BGpaper", "hearthbook::PaperPanel"},
    {"Image2", "QToolButton"},
    {"Image3", "QToolButton"},
    {"gridNames", "hearthbook::NamesGrid", "", "Names List"},
};

class ViewerCommands : public ViewerFixture {
protected:
  static void doubleClickPhoto(const Viewer& viewer, int cell) {
    clickPhoto(viewer, cell);
    QTest::mouseDClick(viewer.cells().at(cell).photo, Qt::LeftButton);
  }
  std::string zoomedId() { return vars().rsZoom->Collect("PictureID").toText(); }
  static QColor faceOf(QWidget& button) {
    button.setEnabled(true);
    return button.grab().toImage().pixelColor(button.width() / 2, 4);
  }
};

} // namespace

TEST_F(ViewerCommands, TheFormHasEachOfItsControlsOnce) {
  const auto& viewer = openPages();
  expectControls(viewer, "View Album", viewerControls);
  for (int cell = 0; cell < photosOnPage; ++cell)
    for (const Control& family : cellControls) {
      const std::string name = toUtf8(familyName(family.name, cell));
      expectControls(viewer, "View Album",
                     {Control{name.c_str(), family.kind, family.caption, family.helpItem}});
    }
}

TEST_F(ViewerCommands, EveryHelpKeyHasItsRow) { expectHelpRows(openPages(), *vars().rsHelp); }

TEST_F(ViewerCommands, TheMouseOverPhotosAndNamesAsksForTheirHelp) {
  const auto& viewer = openPages();
  for (QWidget* control :
       {static_cast<QWidget*>(viewer.cells().at(0).photo), names(viewer, 0).viewport()}) {
    QTest::mouseMove(control, QPoint(3, 3));
    QTest::mouseMove(control, QPoint(6, 6));
  }
  EXPECT_TRUE(frame_.keys.contains(toQString("View Album*Photos")));
  EXPECT_TRUE(frame_.keys.contains(toQString("View Album*Names List")));
}

TEST_F(ViewerCommands, InFrontThePagesTellTheHelpWindowSo) {
  openPages();
  EXPECT_EQ(frame_.active, toQString("View Album"));
}

TEST_F(ViewerCommands, TheCommandsTakeTheirFacesFromMedia) {
  const std::pair<const char*, std::vector<const char*>> faces[] = {
      {"Btn_Gry.jpg", {"Command1", "Command2", "Command7", "Command8"}},
      {"Btn_Org.jpg", {"Command3", "Command5", "Command6", "Command9"}},
      {"Btn_Brn.jpg", {"Command4"}}};
  unsigned colour = 0xd0a060;
  for (const auto& [file, buttons] : faces)
    writeJpeg(at("Media") / file, 32, 16, colour += 0x040c14);
  const auto& viewer = openPages();
  colour = 0xd0a060;
  for (const auto& [file, buttons] : faces) {
    const QColor wanted = QColor::fromRgb(0xff000000U | (colour += 0x040c14));
    for (const char* name : buttons) {
      const QColor face = faceOf(*control<QWidget>(viewer, name));
      EXPECT_NEAR(face.red(), wanted.red(), 4) << name;
      EXPECT_NEAR(face.blue(), wanted.blue(), 4) << name;
    }
  }
}

TEST_F(ViewerCommands, TabReachesAllBothWays) {
  folder_.addPhoto("HD00002", {{"Description", "Behind the house"}});
  auto& viewer = openPages();
  expectTabReachesAll(viewer, viewer.cells().at(0).photo, 13);
}

TEST_F(ViewerCommands, EveryCaptionFitsItsControl) {
  auto& viewer = openPages();
  control<QLabel>(viewer, "PosLabel")->setText(toQString("Page 25000 of 25000"));
  control<QPushButton>(viewer, "Command3")->setText(toQString("Edit Selected"));
  for (const QSize size : {QSize(790, 522), QSize(1012, 669), QSize(3000, 1982)}) {
    viewer.resize(size);
    for (const QPushButton* button : viewer.findChildren<QPushButton*>())
      EXPECT_LE(button->fontMetrics().horizontalAdvance(button->text()), button->width() - 8)
          << toUtf8(button->text());
    const auto* position = control<QLabel>(viewer, "PosLabel");
    EXPECT_LE(position->fontMetrics().horizontalAdvance(position->text()), position->width());
  }
}

TEST_F(ViewerCommands, EditAllOpensTheEditorOnTheAlbumsFirstPhoto) {
  vars().chosenAlbum = {7, "Lake"};
  const auto& viewer = openAlbumOf(6);
  press(viewer, "Command1");
  press(viewer, "Command3");
  auto* editor = Forms::loaded<DBeditor>();
  ASSERT_TRUE(editor && editor->isShown());
  EXPECT_EQ(editor->caption(), toQString("Editing Album: Lake"));
  EXPECT_EQ(photos().Source(), "SELECT * FROM PhotoAlbum Order By Year, PictureID");
  EXPECT_EQ(currentId(), "HD00001");
  EXPECT_EQ(labelOf(*editor, "NumRec"), "1 of 6");
  settle();
}

TEST_F(ViewerCommands, EditSelectedOpensTheEditorOnThatPhoto) {
  const auto& viewer = openAlbumOf(6);
  press(viewer, "Command1");
  clickPhoto(viewer, 1);
  press(viewer, "Command3");
  EXPECT_EQ(currentId(), "HD00006");
  settle();
}

TEST_F(ViewerCommands, ResultsAreEditedUnderTheirCriteria) {
  vars().SearchSummary = "Places: Lake";
  const auto& viewer = openResults();
  press(viewer, "Command3");
  EXPECT_EQ(Forms::get<DBeditor>().caption(),
            toQString("Editing Search Results For: Places: Lake"));
  settle();
}

TEST_F(ViewerCommands, AnEditorOfAnAlbumAddsNoPhotos) {
  press(openAlbumOf(2), "Command3");
  const auto& editor = Forms::get<DBeditor>();
  EXPECT_FALSE(isEnabled(editor, "Command1"));
  EXPECT_FALSE(isEnabled(editor, "Command13"));
  settle();
}

TEST_F(ViewerCommands, WhenTheEditorClosesThePageTellsWhatWasChanged) {
  const auto& viewer = openAlbumOf(10);
  press(viewer, "Command1");
  clickPhoto(viewer, 0);
  press(viewer, "Command3");
  auto& editor = Forms::get<DBeditor>();
  execute("UPDATE PhotoAlbum SET Description = 'Behind the house' WHERE PictureID = 'HD00007'");
  editor.Unload();
  settlePages();
  EXPECT_EQ(shownIds(viewer), ids(5, 8));
  EXPECT_EQ(position(viewer), "Page 2 of 3");
  EXPECT_TRUE(control<QToolButton>(viewer, "Image2(2)")->isVisible());
}

TEST_F(ViewerCommands, TheZoomOpensOnTheFirstPhotoOfThePage) {
  vars().chosenAlbum = {7, "Lake"};
  const auto& viewer = openAlbumOf(6);
  press(viewer, "Command1");
  press(viewer, "Command6");
  EXPECT_EQ(windows_.calls, QStringList{toQString("Full Size View: Lake")});
  EXPECT_EQ(zoomedId(), "HD00005");
  EXPECT_EQ(vars().rsZoom->RecordCount(), 6);
  EXPECT_TRUE(pages().atEOF()); // the page's own place stays
}

TEST_F(ViewerCommands, TheZoomOpensOnTheSelectedPhoto) {
  const auto& viewer = openAlbumOf(6);
  clickPhoto(viewer, 2);
  press(viewer, "Command6");
  EXPECT_EQ(zoomedId(), "HD00003");
}

TEST_F(ViewerCommands, APhotoThatHasGoneIsNotZoomed) {
  const auto& viewer = openAlbumOf(6);
  pages().Find("PictureID = 'HD00001'", Recordset::Start::First);
  pages().Delete();
  press(viewer, "Command6");
  EXPECT_TRUE(windows_.calls.isEmpty());
}

TEST_F(ViewerCommands, ADoubleClickZoomsIntoItsPhoto) {
  const auto& viewer = openAlbumOf(6);
  doubleClickPhoto(viewer, 3);
  EXPECT_EQ(windows_.calls.size(), 1);
  EXPECT_EQ(zoomedId(), "HD00004");
}

TEST_F(ViewerCommands, ReturnZoomsIntoThePhotoThatHasTheKeyboard) {
  const auto& viewer = openAlbumOf(6);
  QTest::keyClick(viewer.cells().at(1).photo, Qt::Key_Return);
  EXPECT_EQ(zoomedId(), "HD00002");
}

TEST_F(ViewerCommands, AnEmptyCellOpensThePhotoThatStoodThereBefore) {
  const auto& viewer = openAlbumOf(5);
  press(viewer, "Command1");
  doubleClickPhoto(viewer, 3);
  EXPECT_EQ(zoomedId(), "HD00004");
}

TEST_F(ViewerCommands, ACellThatWasAlwaysEmptyOpensNothing) {
  doubleClickPhoto(openAlbumOf(2), 3);
  EXPECT_TRUE(windows_.calls.isEmpty());
}

TEST_F(ViewerCommands, OnlyASubAlbumIsEditedAsOne) {
  auto& viewer = openAlbumOf(2);
  EXPECT_FALSE(isEnabled(viewer, "Command5"));
  viewer.allowSubAlbumEdit(true);
  viewer.Tag = toQString("7");
  EXPECT_TRUE(isEnabled(viewer, "Command5"));
  press(viewer, "Command5");
  EXPECT_EQ(windows_.calls, QStringList{toQString("sub-album 7")});
}

TEST_F(ViewerCommands, ThePageIsMailed) {
  press(openAlbumOf(2), "Command9");
  EXPECT_EQ(windows_.calls, QStringList{toQString("mail")});
}

TEST_F(ViewerCommands, WhatTheProgramDoesNotHaveIsDisabled) {
  hasWindows_ = false;
  auto& viewer = openAlbumOf(2);
  viewer.allowSubAlbumEdit(true);
  for (const char* command : {"Command5", "Command6", "Command9"})
    EXPECT_FALSE(isEnabled(viewer, command)) << command;
  EXPECT_TRUE(isEnabled(viewer, "Command3"));
  doubleClickPhoto(viewer, 0);
  EXPECT_EQ(viewer.cells().selected(), 0);
}

TEST_F(ViewerCommands, DoneClosesThePages) {
  press(openPages(), "Command4");
  EXPECT_EQ(Forms::loaded<Viewer>(), nullptr);
}

TEST_F(ViewerCommands, BackInFrontThePagesHaveTheirOwnMarkersAgain) {
  execute("UPDATE PhotoAlbum SET NamesCords = '001-0100X0200,'");
  openPages();
  const PhotoMarkers own = vars().PageMarkers[0];
  ASSERT_TRUE(own);
  auto& over = openEditor();
  vars().PageMarkers[0].reset(); // as one does that shows a single photo
  over.Hide();
  QCoreApplication::processEvents();
  EXPECT_EQ(vars().PageMarkers[0], own);
}

} // namespace hearthbook::test
