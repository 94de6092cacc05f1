#include "AlbumStart.h"
#include "BoxScript.h"
#include "DBeditor.h"
#include "Forms.h"
#include "FrameMenu.h"
#include "MDIForm1.h"
#include "ResultCell.h"
#include "Search.h"
#include "ShellFixture.h"
#include "Startup.h"
#include "Text.h"
#include "Viewer.h"
#include "Wiring.h"
#include "Zoom.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QTest>

namespace hearthbook {
namespace {

/// The frame as the program opens it, on an album of five photos.
class SearchCommandsTest : public test::ShellTest {
protected:
  SearchCommandsTest() {
    for (const char* id : {"HD00002", "HD00003", "HD00004", "HD00005"})
      addPhoto(id, "1990");
    EXPECT_EQ(startAlbum(album(), [] { return false; }), AlbumStart::Opened);
    frame = std::make_unique<MDIForm1>(album(), ShellServices());
    wiring = std::make_unique<Wiring>(album(), *frame);
    frame->open();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(frame.get()));
  }

  void choose(const char* item) { frame->menu().item(item)->trigger(); }
  static void press(const QWidget& form, const char* name) {
    auto* button = form.findChild<QAbstractButton*>(QString::fromLatin1(name));
    ASSERT_TRUE(button && button->isEnabled()) << name;
    button->click();
  }
  [[nodiscard]] Recordset& result() { return *album().vars.rsSearch; }

  std::unique_ptr<MDIForm1> frame;
  std::unique_ptr<Wiring> wiring;
  test::BoxScript boxes;
};

TEST_F(SearchCommandsTest, TheMenuOpensSearchOnTheWholeAlbumInPlaceOfTheOpenForms) {
  choose("mnuBuildAlbum");
  choose("mnuSearch");

  EXPECT_EQ(Forms::loaded<DBeditor>(), nullptr);
  EXPECT_EQ(frame->activeForm(), Forms::loaded<Search>());
  EXPECT_EQ(Forms::get<Search>().caption(), QStringLiteral("Search Photos"));
  EXPECT_EQ(Forms::get<Search>().pos().x(), 0);
  EXPECT_EQ(album().vars.CallerForm, "Search");
  EXPECT_EQ(result().RecordCount(), 5);
  EXPECT_EQ(result().AbsolutePosition(), 1);
}

TEST_F(SearchCommandsTest, TheStartScreenOpensIt) {
  press(Forms::get<Startup>(), "Image4");

  EXPECT_EQ(frame->activeForm(), Forms::loaded<Search>());
  EXPECT_EQ(album().vars.CallerForm, "Search");
  EXPECT_EQ(result().RecordCount(), 5);
}

TEST_F(SearchCommandsTest, FindPhotoOpensItOverTheEditorWhichKeepsTheWorkingSet) {
  choose("mnuBuildAlbum");
  album().data.rsPhotoAlbum.MoveLast();
  press(Forms::get<DBeditor>(), "FindPhoto");

  EXPECT_EQ(frame->activeForm(), Forms::loaded<Search>());
  EXPECT_EQ(album().vars.CallerForm, "DBeditor");
  EXPECT_EQ(result().AbsolutePosition(), 1);
  press(Forms::get<Search>(), "Command9");
  EXPECT_EQ(frame->activeForm(), Forms::loaded<DBeditor>());
}

TEST_F(SearchCommandsTest, ADoubleClickOnAPhotoThatWasFoundOpensItInTheZoomView) {
  choose("mnuSearch");
  auto& search = Forms::get<Search>();
  press(search, "Command1");
  EXPECT_TRUE(QTest::qWaitFor([&] { return !search.isWaitingForPictures(); }));
  auto* third = search.findChildren<ResultCell*>(QStringLiteral("Image1")).at(2);
  QTest::mouseClick(third, Qt::LeftButton);
  QTest::mouseDClick(third, Qt::LeftButton);
  QTest::mouseRelease(third, Qt::LeftButton);
  ASSERT_NE(Forms::loaded<Zoom>(), nullptr);
  EXPECT_EQ(frame->activeForm(), Forms::loaded<Zoom>());
  EXPECT_EQ(album().vars.rsZoom->AbsolutePosition(), 4); // behind the photo
  EXPECT_TRUE(Forms::get<Zoom>().caption().startsWith(QStringLiteral("Full Size Results For: ")));
  press(Forms::get<Zoom>(), "Command1");
  EXPECT_EQ(frame->activeForm(), &search);
}

TEST_F(SearchCommandsTest, FindPhotoFromAnEditedResultStartsOver) {
  choose("mnuSearch");
  auto& search = Forms::get<Search>();
  press(search, "Command1");
  press(search, "Command5");
  press(Forms::get<DBeditor>(), "FindPhoto");

  EXPECT_EQ(frame->activeForm(), &search);
  EXPECT_EQ(search.caption(), QStringLiteral("Search Photos"));
  EXPECT_FALSE(search.findChild<QAbstractButton*>(QStringLiteral("Command5"))->isEnabled());
  EXPECT_NE(Forms::loaded<DBeditor>(), nullptr);
}

TEST_F(SearchCommandsTest, EditComesToTheFrontAndGoesBackToTheResult) {
  choose("mnuSearch");
  auto& search = Forms::get<Search>();
  press(search, "Command1");
  press(search, "Command5");
  EXPECT_EQ(frame->activeForm(), Forms::loaded<DBeditor>());
  press(Forms::get<DBeditor>(), "Command4");
  EXPECT_EQ(frame->activeForm(), &search);
}

TEST_F(SearchCommandsTest, ViewShowsTheResultPageByPageOverIt) {
  choose("mnuSearch");
  auto& search = Forms::get<Search>();
  press(search, "Command1");
  press(search, "Command4");
  auto& viewer = Forms::get<Viewer>();
  EXPECT_EQ(frame->activeForm(), &viewer);
  EXPECT_EQ(viewer.caption(), QStringLiteral("Viewing Search Results For: ") + search.Tag);
  EXPECT_EQ(album().vars.CallerForm, "Search");
  EXPECT_EQ(album().vars.rsViewer->RecordCount(), 5);
  EXPECT_EQ(album().vars.ViewPageCount, 4);
  press(viewer, "Command4");
  EXPECT_EQ(frame->activeForm(), &search);
}

TEST_F(SearchCommandsTest, ViewBeginsWithThePageOfTheSelectedPhoto) {
  choose("mnuSearch");
  auto& search = Forms::get<Search>();
  press(search, "Command1");
  album().vars.selection.select(5);
  press(search, "Command4");
  EXPECT_EQ(album().vars.ViewPageCount, 1);
  press(search, "Command4"); // once more: of what is selected now
  EXPECT_EQ(album().vars.ViewPageCount, 1);
}

TEST_F(SearchCommandsTest, EditedFromThePagesBothThePagesAndTheResultAreReadAgain) {
  choose("mnuSearch");
  auto& search = Forms::get<Search>();
  press(search, "Command1");
  press(search, "Command4");
  press(Forms::get<Viewer>(), "Command3");
  auto& editor = Forms::get<DBeditor>();
  album().data.AlbumDB.execute("DELETE FROM PhotoAlbum WHERE PictureID = 'HD00003'");
  press(editor, "Command4");
  EXPECT_EQ(frame->activeForm(), Forms::loaded<Viewer>());
  EXPECT_EQ(album().vars.rsViewer->RecordCount(), 4);
  EXPECT_EQ(result().RecordCount(), 4);
}

TEST_F(SearchCommandsTest, NoShortcutOfAFormIsTakenByTheMenu) {
  QStringList taken;
  for (const MenuRow& row : menuTree())
    if (*row.shortcut)
      taken << QString::fromLatin1(row.shortcut);
  choose("mnuSearch");
  press(Forms::get<Search>(), "Command1");
  press(Forms::get<Search>(), "Command5");
  Forms::get<DBeditor>().Hide();
  press(Forms::get<Search>(), "Command4");
  for (const Form* form : std::initializer_list<Form*>{
           &Forms::get<Search>(), &Forms::get<DBeditor>(), &Forms::get<Viewer>()})
    for (const auto* button : form->findChildren<QAbstractButton*>())
      EXPECT_FALSE(taken.contains(button->shortcut().toString()))
          << toUtf8(button->text()) << toUtf8(button->shortcut().toString());
}

} // namespace
} // namespace hearthbook
