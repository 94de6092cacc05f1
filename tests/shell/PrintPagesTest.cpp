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

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

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

int dark(const Picture& picture) {
  const auto light = [](std::uint32_t pixel) { return pixel & 0xff; };
  int count = 0;
  for (int y = 0; y < picture.height(); ++y)
    count +=
        static_cast<int>(std::count_if(picture.row(y), picture.row(y) + picture.width(),
                                       [&](std::uint32_t pixel) { return light(pixel) < 100; }));
  return count;
}

TEST_F(PrintPagesTest, TheAlbumPagesGiveTheNamesAsTheGridShowsThem) {
  execute("UPDATE PhotoAlbum SET NamesInPhoto = '002,' WHERE PictureID = 'HD00002'");
  frame->commands().viewAlbum(0, QStringLiteral("Master Album"));
  const auto page = pageOf<AlbumPrint>(Forms::get<Viewer>());
  ASSERT_EQ(page.cells.size(), 3u);
  std::map<std::string, int> ink;
  for (const AlbumPrintCell& cell : page.cells)
    ink[cell.photo.file.stem().string()] = dark(cell.grid);
  EXPECT_GT(ink["00001"], ink["00002"]); // two names
  EXPECT_GT(ink["00002"], ink["00003"]); // one, none
}

/// Where a photo of 400 by 300 or of 300 by 400 stands in a box.
TwipsRect fittedAcross(double left, double top, double side) {
  return {left, top + side / 8, side, side * 3 / 4};
}
TwipsRect fittedUpright(double left, double top, double side) {
  return {left + side / 8, top, side * 3 / 4, side};
}

void expectNear(const TwipsRect& place, const TwipsRect& wanted) {
  EXPECT_NEAR(place.left, wanted.left, 1);
  EXPECT_NEAR(place.top, wanted.top, 1);
  EXPECT_NEAR(place.width, wanted.width, 1);
  EXPECT_NEAR(place.height, wanted.height, 1);
}

TEST_F(PrintPagesTest, TheAlbumPagesGiveEachPhotoWhereItStands) {
  folder_.addPhoto("HD00004");
  for (const int across : {1, 2})
    test::writeJpeg(folder_.at("Photos/0000" + std::to_string(across) + ".jpg"), 400, 300);
  for (const int upright : {3, 4})
    test::writeJpeg(folder_.at("Photos/0000" + std::to_string(upright) + ".jpg"), 300, 400);
  frame->commands().viewAlbum(0, QStringLiteral("Master Album"));
  const auto page = pageOf<AlbumPrint>(Forms::get<Viewer>());
  ASSERT_EQ(page.cells.size(), 4u);
  for (const AlbumPrintCell& cell : page.cells) {
    SCOPED_TRACE(cell.place);
    const double left = cell.place % 2 == 0 ? 2400 : 8280;
    const double top = cell.place < 2 ? 0 : 3480;
    const std::string name = cell.photo.file.filename().string();
    expectNear(cell.photo.place,
               name < "00003" ? fittedAcross(left, top, 3375) : fittedUpright(left, top, 3375));
    EXPECT_EQ(cell.infoWidth, 2175);
    EXPECT_EQ(cell.gridSize, (TwipsSize{2175, 1740}));
    EXPECT_FALSE(cell.hasMoreNames);
  }
}

TEST_F(PrintPagesTest, TheAlbumPagesTellOfNamesThatAreNotInSight) {
  std::string names;
  for (int person = 1; person <= 7; ++person) {
    folder_.addPerson("Person " + std::to_string(person));
    names += "00" + std::to_string(person) + ",";
  }
  const auto openPages = [&] {
    execute("UPDATE PhotoAlbum SET NamesInPhoto = '" + names + "' WHERE PictureID = 'HD00001'");
    frame->commands().viewAlbum(0, QStringLiteral("Master Album"));
    const auto page = pageOf<AlbumPrint>(Forms::get<Viewer>());
    return std::ranges::count(page.cells, true, &AlbumPrintCell::hasMoreNames);
  };
  EXPECT_EQ(openPages(), 1);
  names.resize(6 * 4);
  EXPECT_EQ(openPages(), 0);
}

TEST_F(PrintPagesTest, ASearchGivesItsThumbnailsInAllThreeRows) {
  for (int number = 4; number <= 25; ++number)
    folder_.addPhoto((number < 10 ? "HD0000" : "HD000") + std::to_string(number));
  frame->menu().item("mnuSearch")->trigger();
  auto& search = Forms::get<Search>();
  press(search, "Command1");
  const auto page = pageOf<ContactPrint>(search);
  ASSERT_EQ(page.cells.size(), 24u);
  for (int place = 0; place < 24; ++place) {
    SCOPED_TRACE(place);
    const auto& cell = page.cells.at(static_cast<std::size_t>(place));
    EXPECT_EQ(cell.place, place);
    const TwipsRect& shown = cell.thumbnail.place;
    EXPECT_NEAR(shown.left, 240 + 1320 * (place % 8), 3);
    EXPECT_NEAR(shown.width, 1090, 1);
    EXPECT_NEAR(shown.top + shown.height / 2, 120 + 1320 * (place / 8) + 1090 / 2.0, 4);
    EXPECT_NEAR(shown.height, 1090 * 3 / 4.0, 10); // of 73 by 55 pixels
  }
}

TEST_F(PrintPagesTest, ASearchGivesThePhotosThemselvesForPaper) {
  std::filesystem::remove(folder_.at("Photos/00003.jpg"));
  std::filesystem::create_directories(folder_.at("Disc/Photos"));
  test::writeJpeg(folder_.at("Disc/Photos/00007.jpg"));
  folder_.drives().insertDisc("sr0", folder_.at("Disc"));
  folder_.addPhoto("CD00007");
  frame->menu().item("mnuSearch")->trigger();
  auto& search = Forms::get<Search>();
  press(search, "Command1");
  const auto page = pageOf<ContactPrint>(search);
  ASSERT_EQ(page.cells.size(), 4u);
  std::vector<std::filesystem::path> files;
  for (const auto& cell : page.cells) {
    files.push_back(cell.thumbnail.file);
    EXPECT_FALSE(cell.thumbnail.shown.isNull());
  }
  std::ranges::sort(files);
  EXPECT_EQ(files, (std::vector{folder_.at("Disc/Photos/00007.jpg"), folder_.at("Photos/00001.jpg"),
                                folder_.at("Photos/00002.jpg"), folder_.at("Photos/00003.jpg")}));
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
