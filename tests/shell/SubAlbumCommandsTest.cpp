#include "AddSubAlbum.h"
#include "AlbumStart.h"
#include "BoxScript.h"
#include "DBeditor.h"
#include "Export.h"
#include "ExportDesigner.h"
#include "FormControls.h"
#include "Forms.h"
#include "FrameMenu.h"
#include "MDIForm1.h"
#include "PageCells.h"
#include "Search.h"
#include "ShellFixture.h"
#include "Startup.h"
#include "SubAlbumStrip.h"
#include "Text.h"
#include "Viewer.h"
#include "Wiring.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

namespace hearthbook {
namespace {

/// The frame as the program opens it, on five photos and the sub-album Lake of two of them.
class SubAlbumCommandsTest : public test::ShellTest {
protected:
  SubAlbumCommandsTest() {
    for (const char* id : {"HD00002", "HD00003", "HD00004", "HD00005"})
      addPhoto(id, "1990");
    addSubAlbum(7, "Lake", {"HD00004", "HD00002"});
    EXPECT_EQ(startAlbum(album(), [] { return false; }), AlbumStart::Opened);
    frame = std::make_unique<MDIForm1>(album(), ShellServices());
    wiring = std::make_unique<Wiring>(album(), *frame);
    frame->open();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(frame.get()));
  }

  static void press(const QWidget& form, const char* name) {
    auto* button = form.findChild<QAbstractButton*>(QString::fromLatin1(name));
    ASSERT_TRUE(button && button->isEnabled()) << name;
    button->click();
  }
  static std::string labelOf(const QWidget& form, const char* name) {
    return toUtf8(form.findChild<QLabel*>(toQString(name))->text());
  }
  static void choose(const AddSubAlbum& editor, int albumId) {
    auto* list = editor.findChild<DataList*>(QStringLiteral("SubAlbumList"));
    list->setBoundText(albumId);
    Q_EMIT list->chosen();
  }
  /// What the user does in the sub-album editor that is about to open.
  template <class Act> static void inEditor(Act act) {
    QTimer::singleShot(0, qApp, [act] {
      auto* editor = Forms::loaded<AddSubAlbum>();
      ASSERT_NE(editor, nullptr);
      // While the frame behind it is active, a dialog counts as active too.
      ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == editor; }));
      act(*editor);
      if (Forms::loaded<AddSubAlbum>() == editor)
        editor->Unload();
    });
  }
  [[nodiscard]] std::vector<std::string> members() {
    Recordset rows(album().data.AlbumDB);
    rows.Open("SELECT * FROM SubAlbumPhotos WHERE AlbumID = 7 ORDER BY SubAlbumPhotos.Index");
    std::vector<std::string> ids;
    for (; !rows.atEOF(); rows.MoveNext())
      ids.push_back(rows.Collect("PhotoID").toText());
    return ids;
  }
  /// The pages of Lake, of all five photos now.
  Viewer& openLake() {
    album().data.AlbumDB.execute("INSERT INTO SubAlbumPhotos (AlbumID, PhotoID, [Index]) SELECT 7, "
                                 "PictureID, 10 FROM PhotoAlbum WHERE PictureID IN ('HD00001', "
                                 "'HD00003', 'HD00005')");
    frame->menu().album(7)->trigger();
    return Forms::get<Viewer>();
  }
  static std::vector<std::string> shownOn(const Viewer& pages) {
    std::vector<std::string> ids;
    for (int cell = 0; cell < photosOnPage; ++cell)
      if (pages.cells().at(cell).photo->hasSource())
        ids.push_back(pages.cells().at(cell).tag);
    return ids;
  }
  [[nodiscard]] QStringList menuNames() const {
    QStringList names;
    for (const QAction* entry : frame->menu().menu("mnuView").actions())
      names << entry->text();
    return names;
  }

  std::unique_ptr<MDIForm1> frame;
  std::unique_ptr<Wiring> wiring;
  test::BoxScript boxes;
};

using Ids = std::vector<std::string>;

TEST_F(SubAlbumCommandsTest, ThePhotoOfBuildAlbumGoesIntoASubAlbum) {
  frame->menu().item("mnuBuildAlbum")->trigger();
  album().data.rsPhotoAlbum.MoveLast();
  bool wasOpen = false;
  inEditor([&](const AddSubAlbum& editor) {
    wasOpen = true;
    EXPECT_EQ(labelOf(editor, "lblWait"), "Add photo from       Build Album");
    choose(editor, 7);
    boxes.expectMessage(toQString("Photo Was Successfully Added to Lake Sub-Album"),
                        toQString("Add To Sub-Album"));
    press(editor, "OKButton");
  });
  press(Forms::get<DBeditor>(), "Command15");
  EXPECT_TRUE(wasOpen);
  EXPECT_EQ(members(), (Ids{"HD00004", "HD00002", "HD00005"}));
}

TEST_F(SubAlbumCommandsTest, AResultGoesIntoASubAlbum) {
  frame->menu().item("mnuSearch")->trigger();
  auto& search = Forms::get<Search>();
  search.findChild<QLineEdit*>(QStringLiteral("FromYear"))->setText(toQString("1900"));
  press(search, "Command1");
  inEditor([&](const AddSubAlbum& editor) {
    EXPECT_EQ(labelOf(editor, "lblWait"), "4 Photos are in search results.");
    choose(editor, 7);
    boxes.expectMessage(toQString("Selected Photos Were Successfully Added to Lake Sub-Album"),
                        toQString("Add To Sub-Album"));
    press(editor, "OKButton");
  });
  press(search, "Command10");
  EXPECT_EQ(members(), (Ids{"HD00004", "HD00002", "HD00003", "HD00005"}));
}

TEST_F(SubAlbumCommandsTest, TheMenuOfAPhotoRemovesIt) {
  frame->menu().item("mnuBuildAlbum")->trigger();
  inEditor([&](const AddSubAlbum& editor) {
    choose(editor, 7);
    Q_EMIT editor.findChild<SubAlbumStrip*>()->menuAsked(0, QPoint(50, 50));
    auto& menu = frame->menu().menu("mnuEdit");
    EXPECT_TRUE(menu.isVisible());
    menu.close();
    frame->menu().item("mnuRemove")->trigger();
  });
  press(Forms::get<DBeditor>(), "Command15");
  EXPECT_EQ(members(), Ids{"HD00002"});
}

TEST_F(SubAlbumCommandsTest, RemovingWithoutTheEditorDoesNothing) {
  frame->menu().item("mnuRemove")->trigger();
  EXPECT_EQ(members().size(), 2u);
}

TEST_F(SubAlbumCommandsTest, ViewAlbumsFollowsWhatTheEditorDoes) {
  frame->menu().item("mnuBuildAlbum")->trigger();
  inEditor([&](const AddSubAlbum& editor) {
    boxes.expectInput(toQString("Please Enter Sub-Album Name (up to 20 characters):"),
                      toQString("Add New Sub-Album"), toQString("Beach & Sea"));
    press(editor, "Command1");
    EXPECT_EQ(menuNames(), (QStringList{toQString("Master Album"), toQString("Beach && Sea"),
                                        toQString("Lake")}));
    boxes.expectQuestion(toQString("Are you sure you want to delete \"Beach & Sea\"?"),
                         toQString("Delete Selected Sub-Album"), MsgIcon::None,
                         MsgButtons::OkCancel, MsgAnswer::Ok);
    boxes.expectMessage(toQString("Sub-Album Was Successfully Deleted"),
                        toQString("Delete Selected Sub-Album"));
    press(editor, "Command2");
  });
  press(Forms::get<DBeditor>(), "Command15");
  EXPECT_EQ(menuNames(), (QStringList{toQString("Master Album"), toQString("Lake")}));
}

TEST_F(SubAlbumCommandsTest, TheMenuOpensTheExportOverAllAlbums) {
  QStringList albums;
  QTimer::singleShot(0, qApp, [&] {
    auto* dialog = Forms::loaded<Export>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_TRUE(QTest::qWaitForWindowActive(dialog));
    albums = test::FormControls::textsOf(*dialog->findChild<DataList*>());
    dialog->Unload();
  });
  frame->menu().item("mnuExport")->trigger();
  EXPECT_EQ(albums, QStringList{QStringLiteral("Lake")});
}

TEST_F(SubAlbumCommandsTest, TheMenuOpensTheDesignerOfPages) {
  bool opened = false;
  QTimer::singleShot(0, qApp, [&] {
    auto* dialog = Forms::loaded<ExportDesigner>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_TRUE(QTest::qWaitForWindowActive(dialog));
    opened = true;
    dialog->Unload();
  });
  frame->menu().item("mnuDesign")->trigger();
  EXPECT_TRUE(opened);
}

TEST_F(SubAlbumCommandsTest, TheStartScreenOpensTheExportToo) {
  bool opened = false;
  QTimer::singleShot(0, qApp, [&] {
    auto* dialog = Forms::loaded<Export>();
    ASSERT_NE(dialog, nullptr);
    opened = true;
    dialog->Unload();
  });
  press(Forms::get<Startup>(), "Image6");
  EXPECT_TRUE(opened);
}

TEST_F(SubAlbumCommandsTest, WhatThePagesShowIsPutInOrderAndTheyBeginAnewWithIt) {
  auto& pages = openLake();
  press(pages, "Command1");
  EXPECT_EQ(labelOf(pages, "PosLabel"), "Page 2 of 2");
  inEditor([&](const AddSubAlbum& editor) {
    EXPECT_EQ(labelOf(editor, "Label1"), "Editing Lake");
    EXPECT_EQ(labelOf(editor, "lblCount"), "5 photos in sub-album");
    for (const char* hidden : {"Command1", "Command2", "OKButton", "SubAlbumList"})
      EXPECT_FALSE(editor.findChild<QWidget*>(toQString(hidden))->isVisible()) << hidden;
    Q_EMIT editor.findChild<SubAlbumStrip*>()->moveAsked(1, 0);
    press(editor, "CancelButton");
  });
  press(pages, "Command5");
  EXPECT_EQ(labelOf(pages, "PosLabel"), "Page 1 of 2");
  const auto shown = shownOn(pages);
  ASSERT_EQ(shown.size(), 4u);
  EXPECT_EQ(shown[0], "HD00002");
  EXPECT_EQ(shown[1], "HD00004");
  const auto stored = members();
  EXPECT_EQ(shown, Ids(stored.begin(), stored.begin() + 4));
}

TEST_F(SubAlbumCommandsTest, APhotoTakenOutOverThePagesIsGoneFromThem) {
  auto& pages = openLake();
  inEditor([&](const AddSubAlbum& editor) {
    Q_EMIT editor.findChild<SubAlbumStrip*>()->menuAsked(0, QPoint(50, 50));
    frame->menu().menu("mnuEdit").close();
    frame->menu().item("mnuRemove")->trigger();
  });
  press(pages, "Command5");
  EXPECT_EQ(labelOf(pages, "PosLabel"), "Page 1 of 1");
  EXPECT_EQ(shownOn(pages), members());
}

TEST_F(SubAlbumCommandsTest, PagesBearTheNewNameOfTheirAlbum) {
  auto& pages = openLake();
  inEditor([](const AddSubAlbum& editor) {
    auto* name = editor.findChild<QLineEdit*>(QStringLiteral("txtAlbumName"));
    name->setFocus();
    name->selectAll();
    QTest::keyClicks(name, QStringLiteral("Sea"));
    press(editor, "CancelButton");
  });
  press(pages, "Command5");
  EXPECT_EQ(pages.caption(), toQString("Viewing Album: Sea"));
  EXPECT_EQ(album().vars.chosenAlbum.name, "Sea");
  EXPECT_TRUE(menuNames().contains(toQString("Sea")));
}

TEST_F(SubAlbumCommandsTest, PagesOfAnotherAlbumKeepTheirName) {
  frame->menu().album(0)->trigger();
  frame->renameAlbumEntry(7, toQString("Sea"));
  EXPECT_EQ(Forms::get<Viewer>().caption(), toQString("Viewing Master Album"));
  EXPECT_EQ(album().vars.chosenAlbum.name, "Master Album");
}

TEST_F(SubAlbumCommandsTest, PagesOfASubAlbumThatIsEmptyNowClose) {
  frame->menu().album(7)->trigger();
  inEditor([&](const AddSubAlbum& editor) {
    for (int twice = 0; twice < 2; ++twice)
      Q_EMIT editor.findChild<SubAlbumStrip*>()->removeAsked(0);
  });
  press(Forms::get<Viewer>(), "Command5");
  EXPECT_TRUE(members().empty());
  EXPECT_EQ(Forms::loaded<Viewer>(), nullptr);
}

TEST_F(SubAlbumCommandsTest, WithoutAChangeThePagesStayWhereTheyAre) {
  auto& pages = openLake();
  press(pages, "Command1");
  inEditor([](const AddSubAlbum&) {});
  press(pages, "Command5");
  EXPECT_EQ(labelOf(pages, "PosLabel"), "Page 2 of 2");
}

} // namespace
} // namespace hearthbook
