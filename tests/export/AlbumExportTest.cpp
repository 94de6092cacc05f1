#include "ExportFixture.h"

#include "RunTimeError.h"

#include <gmock/gmock.h>

namespace hearthbook::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class AlbumExport : public ExportFixture {};

TEST_F(AlbumExport, ASubAlbumBecomesAFolderOfPages) {
  addTrip(2, "Trip: 1.2");
  const auto outcome = exportAlbum();
  EXPECT_EQ(outcome.name, "Trip-_12");
  EXPECT_EQ(outcome.folder, out("Trip-_12"));
  EXPECT_EQ(outcome.startPage, out("Trip-_12/trip-_12.htm"));
  EXPECT_THAT(outcome.troubles, IsEmpty());
  EXPECT_THAT(namesIn(out("Trip-_12")), ElementsAre("Autorun.exe", "Autorun.inf", "audio", "data",
                                                    "frameset.htm", "html", "trip-_12.htm"));
  EXPECT_THAT(namesIn(out("Trip-_12/data")),
              ElementsAre("1.htm", "1.jpg", "2.htm", "2.jpg", "t1.jpg", "t2.jpg"));
  EXPECT_THAT(page("Trip-_12/trip-_12.htm"), HasSubstr("<h1>Trip: 1.2</h1>"));
  EXPECT_EQ(page("Trip-_12/Autorun.inf"), "[autorun]\r\nopen=Autorun.exe Trip-_12.htm\r\n");
}

TEST_F(AlbumExport, AnAlbumOfForbiddenCharactersIsCalledByItsNumber) {
  const std::string number = std::to_string(addSubAlbum("\\*?\"<>|", {"HD00001"}));
  const auto outcome = exportAlbum();
  EXPECT_EQ(outcome.startPage, out("Album_#" + number + "/album_#" + number + ".htm"));
  EXPECT_THAT(readBytes(outcome.startPage), HasSubstr("<h1>Album #" + number + "</h1>"));
}

TEST_F(AlbumExport, TheTokensOfTheTemplateAreFilled) {
  addTrip(9);
  exportAlbum();
  std::ostringstream table;
  writeThumbnailTable(table, 9);
  EXPECT_EQ(page("Trip/trip.htm"),
            "<html><head><title>Trip</title></head><body>\r\n<h1>Trip</h1><table>" + table.str() +
                "</table><bgsound src=\"audio/^^audio^^\"></body></html>\r\n");
  EXPECT_EQ(page("Trip/html/rightctrl.htm"), "<script>var pages=9;</script>9");
}

TEST_F(AlbumExport, AnEmptyAlbumHasAStartPageAlone) {
  addSubAlbum("Empty");
  exportAlbum();
  EXPECT_THAT(page("Empty/empty.htm"), HasSubstr("&nbsp;</td></tr></table>"));
  EXPECT_THAT(page("Empty/html/rightctrl.htm"), HasSubstr("pages=0;"));
  EXPECT_THAT(namesIn(out("Empty/data")), IsEmpty());
}

TEST_F(AlbumExport, PhotosGoOutInTheOrderOfTheSubAlbum) {
  folder_.addPhoto("HD00002", {{"Year", 1950}});
  folder_.addPhoto("HD00003", {{"Year", 1960}});
  writeJpeg(at("Photos/00003.jpg"), 100, 50);
  writeBytes(at("Thumbnails/00002.jpg"), "small 2");
  writeBytes(at("Thumbnails/00003.jpg"), "small 3");
  addSubAlbum("Trip", {"HD00003", "HD00002"});
  exportAlbum();
  EXPECT_EQ(page("Trip/data/t1.jpg"), "small 3");
  EXPECT_EQ(page("Trip/data/t2.jpg"), "small 2");
  EXPECT_THAT(page("Trip/data/1.htm"), HasSubstr(">1960<"));
  EXPECT_EQ(sizeOf("Trip/data/1.jpg"), (PixelSize{100, 50}));
  EXPECT_THAT(page("Trip/data/2.htm"), HasSubstr(">1950<"));
}

TEST_F(AlbumExport, PhotosOfOnePlaceInTheOrderGoByTheirIds) {
  for (const char* id : {"HD00004", "HD00003", "HD00002"})
    folder_.addPhoto(id, {{"Description", id}});
  addSubAlbum("Trip", {"HD00004", "HD00003", "HD00002"});
  data().AlbumDB.execute("UPDATE SubAlbumPhotos SET [Index] = 0 WHERE PhotoID <> 'HD00002'");
  exportAlbum();
  EXPECT_THAT(page("Trip/data/1.htm"), HasSubstr("HD00003"));
  EXPECT_THAT(page("Trip/data/2.htm"), HasSubstr("HD00004"));
  EXPECT_THAT(page("Trip/data/3.htm"), HasSubstr("HD00002"));
}

TEST_F(AlbumExport, APlaceInTheOrderWithoutAPhotoDoesNotCount) {
  folder_.addPhoto("HD00002");
  addSubAlbum("Trip", {"HD00077", "HD00002"});
  exportAlbum();
  EXPECT_THAT(page("Trip/html/rightctrl.htm"), HasSubstr("pages=1;"));
  EXPECT_THAT(namesIn(out("Trip/data")), ElementsAre("1.htm", "1.jpg", "t1.jpg"));
}

TEST_F(AlbumExport, TheSidePageTellsWhatTheAlbumKnows) {
  const auto ann = folder_.addPerson("Ann");
  const std::string key = "00" + std::to_string(ann);
  folder_.addPhoto("HD00002", {{"Year", 1987},
                               {"EventID", folder_.addEvent("Wedding")},
                               {"PlaceID", folder_.addPlace("Lake")},
                               {"NamesInPhoto", key + ","},
                               {"NamesCords", key + "-0341X1022,"},
                               {"Description", "line one\nline <two>"}});
  addSubAlbum("Trip", {"HD00002"});
  exportAlbum();
  SidePage wanted;
  wanted.number = 1;
  wanted.year = 1987;
  wanted.event = "Wedding";
  wanted.place = "Lake";
  wanted.namesInPhoto = key + ",";
  wanted.namesCords = key + "-0341X1022,";
  wanted.description = "line one\nline <two>";
  std::ostringstream text;
  writeSidePage(text, wanted, [](std::int64_t) { return std::optional<std::string>("Ann"); });
  EXPECT_EQ(page("Trip/data/1.htm"), text.str());
}

TEST_F(AlbumExport, APageBeyondAsciiSaysThatItIsUtf8) {
  folder_.addPhoto("HD00002", {{"Description", "Zoë in Évian"}});
  folder_.addPhoto("HD00003", {{"Description", "plain"}});
  addSubAlbum("Été", {"HD00002", "HD00003"});
  exportAlbum();
  EXPECT_TRUE(page("Été/data/1.htm").starts_with("\xEF\xBB\xBF<html>"));
  EXPECT_TRUE(page("Été/data/2.htm").starts_with("<html>"));
  EXPECT_TRUE(page("Été/été.htm").starts_with("\xEF\xBB\xBF<html>"));
  EXPECT_EQ(page("Été/Autorun.inf"), "[autorun]\r\nopen=Autorun.exe Été.htm\r\n");
}

TEST_F(AlbumExport, TheThumbnailIsTheAlbumsOwn) {
  addTrip(1);
  writeBytes(at("Thumbnails/00002.jpg"), "thumbnail");
  exportAlbum();
  EXPECT_EQ(page("Trip/data/t1.jpg"), "thumbnail");
}

TEST_F(AlbumExport, ALargePhotoIsReduced) {
  addTrip(3);
  writeJpeg(at("Photos/00002.jpg"), 1600, 1200);
  writeJpeg(at("Photos/00003.jpg"), 1200, 1600);
  writeJpeg(at("Photos/00004.jpg"), 900, 900);
  exportAlbum();
  EXPECT_EQ(sizeOf("Trip/data/1.jpg"), (PixelSize{620, 465}));
  EXPECT_EQ(sizeOf("Trip/data/2.jpg"), (PixelSize{300, 400}));
  EXPECT_EQ(sizeOf("Trip/data/3.jpg"), (PixelSize{900, 900}));
}

TEST_F(AlbumExport, TheThirdChoiceLeavesAPhotoOfExactlyItsWidth) {
  addTrip(1);
  writeJpeg(at("Photos/00002.jpg"), 760, 600);
  request_.optimization = 2;
  exportAlbum();
  EXPECT_EQ(sizeOf("Trip/data/1.jpg"), (PixelSize{760, 600}));
}

TEST_F(AlbumExport, TheSecondChoiceIsSmallerInPixelsAndBytes) {
  addTrip(1);
  writeBytes(at("Photos/00002.jpg"), jpegOf(grainy({800, 600})));
  exportAlbum();
  const auto best = page("Trip/data/1.jpg").size();
  request_.optimization = 1;
  exportAlbum();
  EXPECT_EQ(sizeOf("Trip/data/1.jpg"), (PixelSize{500, 375}));
  EXPECT_LT(page("Trip/data/1.jpg").size(), best / 2);
}

TEST_F(AlbumExport, WithoutOptimizationThePhotoIsTheVeryFile) {
  addTrip(1);
  const std::string photo = withOrientation(jpegOf(grainy({800, 600})), 6);
  writeBytes(at("Photos/00002.jpg"), photo);
  request_.optimization = 3;
  exportAlbum();
  EXPECT_EQ(page("Trip/data/1.jpg"), photo);
}

TEST_F(AlbumExport, WithoutOptimizationABrokenPhotoIsToldToo) {
  addTrip(3);
  writeBytes(at("Photos/00002.jpg"), "");
  writeBytes(at("Photos/00003.jpg"), "no picture at all");
  request_.optimization = 3;
  EXPECT_THAT(exportAlbum().troubles,
              ElementsAre(ExportOutcome::Trouble{"00002.jpg", "could not be read"},
                          ExportOutcome::Trouble{"00003.jpg", "could not be read"}));
  EXPECT_EQ(page("Trip/data/2.jpg"), "no picture at all");
}

TEST_F(AlbumExport, AReducedPhotoCarriesNothingOfTheCameraAndIsUpright) {
  addTrip(2);
  const std::string camera("Exif\0\0GPSLatitude Model X100", 27);
  writeBytes(at("Photos/00002.jpg"),
             withSegment(withOrientation(jpegOf(corners({800, 600})), 6), 0xe1, camera));
  writeBytes(at("Photos/00003.jpg"), withSegment(jpegOf(corners({80, 60})), 0xe1, camera));
  exportAlbum();
  EXPECT_EQ(sizeOf("Trip/data/1.jpg"), (PixelSize{300, 400}));
  for (const char* photo : {"Trip/data/1.jpg", "Trip/data/2.jpg"}) {
    EXPECT_THAT(page(photo), Not(HasSubstr("Exif")));
    EXPECT_THAT(page(photo), Not(HasSubstr("X100")));
    EXPECT_EQ(readPictureInfo(out(photo)).orientation, 1);
  }
}

TEST_F(AlbumExport, AnExportAgainReplacesTheEarlierOne) {
  addTrip(3);
  writeBytes(at("Audio/00004.wav"), "wave");
  exportAlbum();
  EXPECT_TRUE(isThere("Trip/audio/3.wav"));
  writeBytes(out("Trip/letters/mother.txt"), "Dear");
  writeBytes(at("export/template/html/leftctrl.htm"), "newer");
  data().AlbumDB.execute("DELETE FROM SubAlbumPhotos WHERE PhotoID <> 'HD00003'");
  writeJpeg(at("Photos/00003.jpg"), 200, 100);
  exportAlbum();
  EXPECT_THAT(namesIn(out("Trip/data")), ElementsAre("1.htm", "1.jpg", "t1.jpg"));
  EXPECT_THAT(namesIn(out("Trip/audio")), IsEmpty());
  EXPECT_EQ(page("Trip/html/leftctrl.htm"), "newer");
  EXPECT_EQ(sizeOf("Trip/data/1.jpg"), (PixelSize{200, 100}));
  EXPECT_THAT(page("Trip/html/rightctrl.htm"), HasSubstr("pages=1;"));
  EXPECT_TRUE(isThere("Trip/letters/mother.txt"));
}

TEST_F(AlbumExport, AnEarlierExportIsFoundInAnyCase) {
  addTrip(1);
  exportAlbum();
  fs::rename(out("Trip"), out("TRIP"));
  fs::rename(out("TRIP/trip.htm"), out("TRIP/TRIP.HTM"));
  const auto outcome = exportAlbum();
  EXPECT_EQ(outcome.folder, out("TRIP"));
  EXPECT_THAT(namesIn(base_), ElementsAre("TRIP"));
  EXPECT_THAT(namesIn(out("TRIP")), Not(testing::Contains("TRIP.HTM")));
  EXPECT_TRUE(isThere("TRIP/trip.htm"));
}

TEST_F(AlbumExport, WhoWaitsIsToldOfEachPhotoInOrder) {
  addTrip(12);
  std::vector<std::string> told;
  std::vector<PixelSize> shown;
  listener_.atPhoto = [&](std::int64_t number, std::int64_t count, const std::string& file) {
    told.push_back(std::to_string(number) + "/" + std::to_string(count) + " " + file);
  };
  listener_.showing = [&](const Picture& picture) { shown.push_back(picture.size()); };
  for (int i = 0; i < 12; ++i)
    writeJpeg(at("Photos/000" + std::string(i < 8 ? "0" : "") + std::to_string(i + 2) + ".jpg"),
              100 + i, 50);
  exportAlbum();
  ASSERT_EQ(told.size(), 12U);
  EXPECT_EQ(told.front(), "1/12 00002.jpg");
  EXPECT_EQ(told.back(), "12/12 00013.jpg");
  ASSERT_EQ(shown.size(), 12U);
  for (int i = 0; i < 12; ++i) {
    EXPECT_EQ(shown[static_cast<std::size_t>(i)].width, 100 + i);
    EXPECT_EQ(sizeOf("Trip/data/" + std::to_string(i + 1) + ".jpg").width, 100 + i);
  }
}

TEST_F(AlbumExport, PhotosThatAreOnlyCopiedAreShownNowAndThen) {
  addTrip(2);
  writeJpeg(at("Photos/00002.jpg"), 1600, 1200);
  int shown = 0;
  listener_.showing = [&](const Picture& picture) {
    ++shown;
    EXPECT_EQ(picture.size(), (PixelSize{320, 240}));
  };
  request_.optimization = 3;
  exportAlbum();
  EXPECT_EQ(shown, 0); // nobody looks
  request_.previewSide = 320;
  addSubAlbum("One", {"HD00002"});
  exportAlbum();
  EXPECT_EQ(shown, 1);
}

TEST_F(AlbumExport, AnAlbumOfWholeNumbersKeepsThemPlain) {
  addTrip(1);
  data().AlbumDB.execute("UPDATE PhotoAlbum SET Year = 1950 WHERE PictureID = 'HD00002'");
  exportAlbum();
  EXPECT_THAT(page("Trip/data/1.htm"), HasSubstr("<b>1950</b>"));
}

TEST_F(AlbumExport, TheAlbumIsLeftAsItIs) {
  addTrip(2);
  data().rsPhotoAlbum.MoveLast();
  exportAlbum();
  EXPECT_EQ(data().rsPhotoAlbum.Collect("PictureID").toText(), "HD00003");
  EXPECT_THAT(namesIn(at("export")), ElementsAre("template"));
  EXPECT_TRUE(fs::exists(at("export/template/master.htm")));
}

} // namespace
} // namespace hearthbook::test
