#include "AlbumStart.h"
#include "BoxScript.h"
#include "DBeditor.h"
#include "FormControls.h"
#include "Forms.h"
#include "FrameMenu.h"
#include "LargePhoto.h"
#include "MDIForm1.h"
#include "Search.h"
#include "ShellFixture.h"
#include "Text.h"
#include "Viewer.h"
#include "WaitFor.h"
#include "Wiring.h"
#include "Zoom.h"
#include "ZoomArea.h"

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

/// What each work form hands to the printer, on an album with one photo that is described and two
/// of which nothing is known.
class PrintPagesTest : public test::ShellTest, protected test::FormControls {
protected:
  PrintPagesTest() {
    EXPECT_EQ(startAlbum(album(), [] { return false; }), AlbumStart::Opened);
    test::writeJpeg(folder_.at("Photos/00001.jpg"), 400, 300);
    const Value lake(folder_.addPlace("Lake"));
    const Value wedding(folder_.addEvent("Wedding"));
    folder_.addPerson("Anna");
    folder_.addPerson("Ben");
    execute("UPDATE PhotoAlbum SET Year = 1987, PlaceID = " + lake.toText() + ", EventID = " +
            wedding.toText() + ", NamesInPhoto = '001,002,', NamesCords = '001-0100X0100,'");
    folder_.addPhoto("HD00002");
    folder_.addPhoto("HD00003");
    frame = std::make_unique<MDIForm1>(album(), ShellServices());
    wiring = std::make_unique<Wiring>(album(), *frame);
    frame->open();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(frame.get()));
  }

  template <class Page, class Form> static Page pageOf(const Form& form) {
    EXPECT_TRUE(test::waitFor([&] { return form.isReadyToPrint(); }));
    return std::get<Page>(form.printPage());
  }
  SinglePrint editorPage() {
    frame->menu().item("mnuBuildAlbum")->trigger();
    album().data.rsPhotoAlbum.MoveFirst();
    Forms::get<DBeditor>().ComposeRecord();
    return pageOf<SinglePrint>(Forms::get<DBeditor>());
  }
  Zoom& openZoom() {
    frame->commands().viewAlbum(0, QStringLiteral("Master Album"));
    auto& pages = Forms::get<Viewer>();
    EXPECT_TRUE(test::waitFor([&] { return pages.isReadyToPrint(); }));
    const auto first = pages.printPage();
    for (const AlbumPrintCell& cell : std::get<AlbumPrint>(first).cells)
      if (cell.photo.file == folder_.at("Photos/00001.jpg"))
        QTest::mouseClick(control(pages, ("Image1(" + std::to_string(cell.place) + ")").c_str()),
                          Qt::LeftButton);
    press(pages, "Command6");
    auto& zoom = Forms::get<Zoom>();
    EXPECT_TRUE(test::waitFor([&] { return zoom.isReadyToPrint(); }));
    return zoom;
  }

  test::BoxScript boxes;
  std::unique_ptr<MDIForm1> frame;
  std::unique_ptr<Wiring> wiring;
};

TEST_F(PrintPagesTest, TheEditorGivesItsPhotoItsTextsAndItsNames) {
  const SinglePrint page = editorPage();
  EXPECT_EQ(page.from, SinglePrint::From::Editor);
  EXPECT_EQ(page.heading, "1987, Wedding in Lake");
  EXPECT_EQ(page.names, (std::vector<std::string>{"*Anna", "Ben"})); // as its list shows them
  ASSERT_TRUE(page.photo);
  EXPECT_EQ(page.photo->file, folder_.at("Photos/00001.jpg"));
  EXPECT_EQ(page.photo->place.width, 5760);
  EXPECT_EQ(page.photo->place.height, 4320);
  EXPECT_FALSE(page.photo->shown.isNull());
}

TEST_F(PrintPagesTest, TheEditorGivesWhatItShowsOfAPhotoOfWhichNothingIsKnown) {
  editorPage();
  press(Forms::get<DBeditor>(), "NextPhoto");
  const auto page = pageOf<SinglePrint>(Forms::get<DBeditor>());
  EXPECT_EQ(page.heading, ",  in ");
  EXPECT_TRUE(page.names.empty());
}

TEST_F(PrintPagesTest, TheZoomViewGivesItsPhotoAsLargeAsItIsNow) {
  Zoom& zoom = openZoom();
  auto page = pageOf<SinglePrint>(zoom);
  EXPECT_EQ(page.from, SinglePrint::From::Zoom);
  EXPECT_EQ(page.heading, "1987, Wedding in Lake");
  EXPECT_EQ(page.names, (std::vector<std::string>{"Anna", "Ben"})); // without the blanks of markers
  ASSERT_TRUE(page.photo);
  EXPECT_EQ(page.photo->file, folder_.at("Photos/00001.jpg"));
  const double width = page.photo->place.width;
  press(zoom, "Command4");
  page = pageOf<SinglePrint>(zoom);
  EXPECT_NEAR(page.photo->place.width, width * 1.5, 1);
  EXPECT_EQ(page.photo->place, zoom.area().steps().photo);
}

TEST_F(PrintPagesTest, TheAlbumPagesGiveTheFilledPlaces) {
  frame->commands().viewAlbum(0, QStringLiteral("Master Album"));
  const auto page = pageOf<AlbumPrint>(Forms::get<Viewer>());
  ASSERT_EQ(page.cells.size(), 3u);
  for (int place = 0; place < 3; ++place) {
    const AlbumPrintCell& cell = page.cells.at(static_cast<std::size_t>(place));
    EXPECT_EQ(cell.place, place);
    EXPECT_EQ(cell.infoWidth, 2175);
    EXPECT_EQ(cell.gridSize.width, 2175);
    EXPECT_NEAR(cell.grid.width(), 2175 / 1440.0 * 300, 4); // as fine as paper wants it
    EXPECT_FALSE(cell.photo.shown.isNull());
    EXPECT_EQ(std::max(cell.photo.place.width, cell.photo.place.height), 3375);
    const bool isKnown = cell.photo.file == folder_.at("Photos/00001.jpg");
    EXPECT_EQ(cell.caption, isKnown ? "1987, Wedding in Lake" : ", ");
  }
}

TEST_F(PrintPagesTest, ASearchGivesItsThumbnailsWhereTheyStand) {
  frame->menu().item("mnuSearch")->trigger();
  auto& search = Forms::get<Search>();
  EXPECT_TRUE(pageOf<ContactPrint>(search).cells.empty());
  press(search, "Command1");
  const auto page = pageOf<ContactPrint>(search);
  ASSERT_EQ(page.cells.size(), 3u);
  for (int place = 0; place < 3; ++place) {
    const auto& cell = page.cells.at(static_cast<std::size_t>(place));
    EXPECT_EQ(cell.place, place);
    // In the middle of its cell of 1095, of which there is one every 1320.
    EXPECT_NEAR(cell.thumbnail.place.left + cell.thumbnail.place.width / 2,
                240 + 1095 / 2.0 + 1320.0 * place, 20);
    EXPECT_FALSE(cell.thumbnail.file.empty());
    EXPECT_FALSE(cell.thumbnail.shown.isNull());
  }
}

} // namespace
} // namespace hearthbook
