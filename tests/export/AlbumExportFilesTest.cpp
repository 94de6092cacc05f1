#include "ExportFixture.h"

#include <gmock/gmock.h>

namespace hearthbook::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// Sounds, and photos that lie on a disc.
class AlbumExportFiles : public ExportFixture {
protected:
  void insertDisc() {
    fs::create_directories(disc_ / "Photos");
    folder_.drives().listOptical({"sr0"});
    folder_.drives().insertDisc("sr0", disc_);
  }
  std::string albumSound(const std::string& extension) const {
    return "A" + std::to_string(request_.albumId) + extension;
  }

  fs::path disc_ = folder_.root().parent_path() / "disc";
};

TEST_F(AlbumExportFiles, ThePhotosSoundGoesWithIt) {
  addTrip(2);
  writeBytes(at("Audio/00003.MID"), "MThd");
  exportAlbum();
  EXPECT_EQ(page("Trip/audio/2.MID"), "MThd");
  EXPECT_THAT(page("Trip/data/2.htm"), HasSubstr("SRC=\"../audio/2.MID\""));
  EXPECT_THAT(page("Trip/data/1.htm"), Not(HasSubstr("bgsound")));
  EXPECT_THAT(namesIn(out("Trip/audio")), ElementsAre("2.MID"));
}

TEST_F(AlbumExportFiles, OfSeveralSoundsTheFirstByNameCounts) {
  addTrip(1);
  writeBytes(at("Audio/00002.wav"), "wave");
  writeBytes(at("Audio/00002.mid"), "tune");
  exportAlbum();
  EXPECT_THAT(namesIn(out("Trip/audio")), ElementsAre("1.mid"));
}

TEST_F(AlbumExportFiles, TheAlbumsSoundIsCalledAfterIt) {
  addTrip(1, "Our Trip");
  writeBytes(at("Audio/" + albumSound(".wav")), "waltz");
  exportAlbum();
  EXPECT_EQ(page("Our_Trip/audio/Our_Trip.wav"), "waltz");
  EXPECT_THAT(page("Our_Trip/our_trip.htm"), HasSubstr("src=\"audio/Our_Trip.wav\""));
}

TEST_F(AlbumExportFiles, AnAlbumsSoundFromADiscLeavesTheTokenInThePage) {
  addTrip(1);
  insertDisc();
  writeBytes(disc_ / "Audio" / albumSound(".mid"), "waltz");
  exportAlbum();
  EXPECT_EQ(page("Trip/audio/Trip.mid"), "waltz");
  EXPECT_THAT(page("Trip/trip.htm"), HasSubstr("audio/^^audio^^"));
}

TEST_F(AlbumExportFiles, TheHardDisksSoundGoesBeforeTheDiscs) {
  addTrip(1);
  insertDisc();
  writeBytes(disc_ / "Audio/00002.wav", "disc");
  writeBytes(at("Audio/00002.mid"), "hard disk");
  exportAlbum();
  EXPECT_THAT(namesIn(out("Trip/audio")), ElementsAre("1.mid"));
  fs::remove(at("Audio/00002.mid"));
  exportAlbum();
  EXPECT_EQ(page("Trip/audio/1.wav"), "disc");
}

TEST_F(AlbumExportFiles, TheAlbumsSoundOfTheHardDiskGoesBeforeTheDiscs) {
  addTrip(1);
  insertDisc();
  writeBytes(disc_ / "Audio" / albumSound(".mid"), "disc");
  writeBytes(at("Audio/" + albumSound(".wav")), "hard disk");
  exportAlbum();
  EXPECT_THAT(namesIn(out("Trip/audio")), ElementsAre("Trip.wav"));
  EXPECT_EQ(page("Trip/audio/Trip.wav"), "hard disk");
  EXPECT_THAT(page("Trip/trip.htm"), HasSubstr("audio/Trip.wav"));
}

TEST_F(AlbumExportFiles, TheScriptsLearnOfSoundsAndStoriesWhereTheyAskForThem) {
  addTrip(2);
  insertDisc();
  writeBytes(disc_ / "Audio" / albumSound(".mid"), "waltz");
  writeBytes(at("Audio/00003.MID"), "MThd");
  exportAlbum();
  EXPECT_FALSE(isThere("Trip/html/photos.js")); // a template of another make
  writeBytes(at("export/template/html/photos.js"), "");
  exportAlbum();
  const std::string script = page("Trip/html/photos.js");
  EXPECT_THAT(script, HasSubstr("\"count\": 2, \"music\": \"Trip.mid\", "));
  EXPECT_THAT(script, HasSubstr("\"1\": {\"year\": \"----\""));
  EXPECT_THAT(script, HasSubstr("\"sound\": \"2.MID\"}}"));
}

TEST_F(AlbumExportFiles, AnAlbumWhoseSoundCannotBeReadGoesOutWithout) {
  addTrip(1);
  writeBytes(at("export/template/html/photos.js"), "");
  fs::create_directories(at("Audio"));
  fs::create_symlink("/proc/self/mem", at("Audio/" + albumSound(".wav")));
  const auto outcome = exportAlbum();
  EXPECT_THAT(outcome.troubles,
              ElementsAre(ExportOutcome::Trouble{
                  albumSound(".wav"), "is the sound of the album and could not be read"}));
  EXPECT_THAT(namesIn(out("Trip/audio")), IsEmpty());
  EXPECT_THAT(page("Trip/html/photos.js"), HasSubstr("\"music\": \"\""));
  EXPECT_THAT(page("Trip/trip.htm"), HasSubstr("audio/^^audio^^"));
  EXPECT_TRUE(isThere("Trip/data/1.jpg"));
}

TEST_F(AlbumExportFiles, TheScriptsLearnNothingOfWhatIsNotThere) {
  addTrip(2);
  writeBytes(at("export/template/html/photos.js"), "");
  fs::remove(at("Photos/00002.jpg"));
  fs::create_directories(at("Audio"));
  fs::create_symlink("/proc/self/mem", at("Audio/00003.wav")); // opens, and cannot be read
  const auto outcome = exportAlbum();
  EXPECT_THAT(
      outcome.troubles,
      ElementsAre(ExportOutcome::Trouble{"00002.jpg", "is missing"},
                  ExportOutcome::Trouble{"00003.jpg", "has a sound that could not be read"}));
  EXPECT_THAT(page("Trip/html/photos.js"), Not(HasSubstr("\"1\"")));
  EXPECT_THAT(page("Trip/html/photos.js"), HasSubstr("\"2\""));
  EXPECT_THAT(page("Trip/html/photos.js"), Not(HasSubstr("sound")));
  EXPECT_THAT(page("Trip/data/2.htm"), Not(HasSubstr("bgsound")));
}

TEST_F(AlbumExportFiles, AScriptBeyondAsciiSaysThatItIsUtf8) {
  writeBytes(at("export/template/html/photos.js"), "");
  folder_.addPhoto("HD00002", {{"Description", "Zoë in Évian"}});
  addSubAlbum("Trip", {"HD00002"});
  exportAlbum();
  EXPECT_TRUE(page("Trip/html/photos.js").starts_with("\xEF\xBB\xBFvar"));
  data().AlbumDB.execute("UPDATE PhotoAlbum SET Description = 'plain'");
  exportAlbum();
  EXPECT_TRUE(page("Trip/html/photos.js").starts_with("var"));
}

TEST_F(AlbumExportFiles, AFolderOfSoundsThatCannotBeReadIsTold) {
  addTrip(1);
  fs::remove_all(at("Audio"));
  EXPECT_THAT(exportAlbum().troubles, IsEmpty()); // an album without sounds
  fs::create_symlink("Audio", at("Audio"));       // which leads nowhere for ever
  EXPECT_THAT(exportAlbum().troubles,
              ElementsAre(ExportOutcome::Trouble{
                  at("Audio").string(), "is the folder of the sounds and could not be read"}));
  EXPECT_TRUE(isThere("Trip/data/1.jpg"));
}

TEST_F(AlbumExportFiles, APhotoOfADiscHasItsSoundFromTheHardDiskOrTheDisc) {
  folder_.addPhoto("CD00002");
  folder_.addPhoto("CD00003");
  addSubAlbum("Trip", {"CD00002", "CD00003"});
  insertDisc();
  for (const char* photo : {"00002", "00003"}) {
    writeJpeg(disc_ / "Photos" / (photo + std::string(".jpg")));
    writeBytes(disc_ / "Thumbnails" / (photo + std::string(".jpg")), "small");
    writeBytes(disc_ / "Audio" / (photo + std::string(".wav")), "disc");
  }
  writeBytes(at("Audio/00002.wav"), "hard disk");
  exportAlbum();
  EXPECT_EQ(page("Trip/audio/1.wav"), "hard disk");
  EXPECT_EQ(page("Trip/audio/2.wav"), "disc");
  EXPECT_THAT(page("Trip/data/2.htm"), HasSubstr("SRC=\"../audio/2.wav\""));
}

TEST_F(AlbumExportFiles, APhotoOfAnotherPrefixComesFromTheDisc) {
  folder_.addPhoto("XX00001"); // there is an HD00001 of the same number
  addSubAlbum("Trip", {"XX00001"});
  insertDisc();
  writeJpeg(disc_ / "Photos/00001.jpg", 90, 60);
  writeBytes(disc_ / "Thumbnails/00001.jpg", "small");
  EXPECT_THAT(exportAlbum().troubles, IsEmpty());
  EXPECT_EQ(sizeOf("Trip/data/1.jpg"), (PixelSize{90, 60}));
  EXPECT_EQ(page("Trip/data/t1.jpg"), "small");
}

TEST_F(AlbumExportFiles, APhotoOfADiscComesFromTheDisc) {
  folder_.addPhoto("CD00002");
  addSubAlbum("Trip", {"CD00002"});
  insertDisc();
  writeJpeg(disc_ / "PHOTOS/00002.JPG", 90, 60);
  fs::remove(disc_ / "Photos");
  writeBytes(disc_ / "Thumbnails/00002.jpg", "small");
  const auto outcome = exportAlbum();
  EXPECT_THAT(outcome.troubles, IsEmpty());
  EXPECT_EQ(sizeOf("Trip/data/1.jpg"), (PixelSize{90, 60}));
  EXPECT_EQ(page("Trip/data/t1.jpg"), "small");
}

TEST_F(AlbumExportFiles, AnAlbumGoesOntoAStick) {
  folder_.drives().addDisk("sdb", true);
  folder_.drives().mount("/dev/sdb1", base_, "vfat");
  addTrip(1);
  exportAlbum();
  EXPECT_TRUE(isThere("Trip/trip.htm"));
}

TEST_F(AlbumExportFiles, WithoutTheDiscItsPhotosAreMissing) {
  folder_.addPhoto("CD00001"); // there is an HD00001 of the same number
  addSubAlbum("Trip", {"CD00001"});
  const auto outcome = exportAlbum();
  EXPECT_THAT(outcome.troubles, ElementsAre(ExportOutcome::Trouble{"00001.jpg", "is missing"}));
}

TEST_F(AlbumExportFiles, AMissingPhotoHasItsCellAndNoPage) {
  addTrip(2);
  fs::remove(at("Photos/00002.jpg"));
  writeBytes(at("Audio/00002.wav"), "wave");
  const auto outcome = exportAlbum();
  EXPECT_THAT(namesIn(out("Trip/data")), ElementsAre("2.htm", "2.jpg", "t1.jpg", "t2.jpg"));
  EXPECT_THAT(namesIn(out("Trip/audio")), IsEmpty());
  EXPECT_THAT(page("Trip/trip.htm"), HasSubstr("?Page=1\""));
  EXPECT_THAT(page("Trip/html/rightctrl.htm"), HasSubstr("pages=2;"));
  EXPECT_THAT(outcome.troubles, ElementsAre(ExportOutcome::Trouble{"00002.jpg", "is missing"}));
}

TEST_F(AlbumExportFiles, AMissingThumbnailLeavesItsCell) {
  addTrip(1);
  fs::remove(at("Thumbnails/00002.jpg"));
  const auto outcome = exportAlbum();
  EXPECT_THAT(namesIn(out("Trip/data")), ElementsAre("1.htm", "1.jpg"));
  EXPECT_THAT(page("Trip/trip.htm"), HasSubstr("data\\t1.jpg"));
  EXPECT_THAT(outcome.troubles,
              ElementsAre(ExportOutcome::Trouble{"00002.jpg", "has no thumbnail"}));
}

TEST_F(AlbumExportFiles, ABrokenPhotoIsToldAndTheOthersGoOut) {
  addTrip(3);
  writeBytes(at("Photos/00003.jpg"), "no picture at all");
  const std::string whole = jpegOf(grainy({200, 150}));
  writeBytes(at("Photos/00004.jpg"), whole.substr(0, whole.size() / 2));
  const auto outcome = exportAlbum();
  EXPECT_THAT(outcome.troubles,
              ElementsAre(ExportOutcome::Trouble{"00003.jpg", "could not be read"},
                          ExportOutcome::Trouble{"00004.jpg", "is not whole"}));
  EXPECT_THAT(namesIn(out("Trip/data")), ElementsAre("1.htm", "1.jpg", "2.htm", "3.htm", "3.jpg",
                                                     "t1.jpg", "t2.jpg", "t3.jpg"));
  EXPECT_TRUE(isThere("Trip/Autorun.inf"));
}

TEST_F(AlbumExportFiles, PhotosWithTextThatLooksLikeMarkupAreCounted) {
  folder_.addPhoto("HD00002", {{"Description", "a <b>bold</b> day"},
                               {"EventID", folder_.addEvent("<i>Fair</i>")}});
  folder_.addPhoto("HD00003", {{"Description", "Tom & \"Ann\" < Ben"}});
  const auto person = folder_.addPerson("</html>");
  folder_.addPhoto("HD00004", {{"NamesInPhoto", "00" + std::to_string(person) + ","}});
  addSubAlbum("Trip", {"HD00002", "HD00003", "HD00004"});
  EXPECT_EQ(exportAlbum().markups, 2);
  fs::remove(at("Photos/00004.jpg")); // and has no page now
  EXPECT_EQ(exportAlbum().markups, 1);
}

} // namespace
} // namespace hearthbook::test
