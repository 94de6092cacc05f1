#include "ExportTarget.h"

#include "ExportFixture.h"
#include "RunTimeError.h"

#include <gmock/gmock.h>

namespace hearthbook::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

class ExportTarget : public ExportFixture {
protected:
  std::vector<std::string> strangers(const std::string& albumName = "Trip",
                                     std::int64_t albumId = 1) {
    const ExportNames names = exportNames(albumName, albumId);
    return strangersIn(exportFolder(base_, names.name), templateFolder(album().folder), names,
                       albumId);
  }
};

TEST_F(ExportTarget, AFolderThatIsNotThereIsFree) { EXPECT_THAT(strangers(), IsEmpty()); }

TEST_F(ExportTarget, AnEmptyFolderIsFree) {
  fs::create_directories(out("Trip"));
  EXPECT_THAT(strangers(), IsEmpty());
}

TEST_F(ExportTarget, AnEarlierExportIsFree) {
  addTrip(2);
  writeBytes(at("Audio/00002.wav"), "RIFF");
  writeBytes(at("Audio/A" + std::to_string(request_.albumId) + ".mid"), "MThd");
  exportAlbum();
  EXPECT_THAT(strangers(), IsEmpty());
}

TEST_F(ExportTarget, AnExportThatWasBrokenOffIsFree) {
  copyTemplateTo("Trip");
  EXPECT_THAT(strangers(), IsEmpty());
  fs::rename(out("Trip/master.htm"), out("Trip/trip.htm")); // its title is not in it yet
  EXPECT_THAT(strangers(), IsEmpty());
}

TEST_F(ExportTarget, OneKnownNameMakesNoExport) {
  for (const char* known : {"trip.htm", "frameset.htm", "Autorun.inf", "Autorun.exe"}) {
    SCOPED_TRACE(known);
    fs::remove_all(out("Trip"));
    writeBytes(out("Trip") / known, "somebody's own");
    writeBytes(out("Trip/data/1.jpg"), "somebody's photo");
    EXPECT_THAT(strangers(), testing::UnorderedElementsAre("data", known));
  }
}

TEST_F(ExportTarget, AnExportIsKnownByItsPagesInAnyCase) {
  addTrip(1);
  exportAlbum();
  fs::rename(out("Trip/trip.htm"), out("Trip/TRIP.HTM"));
  fs::rename(out("Trip/frameset.htm"), out("Trip/FRAMESET.HTM"));
  EXPECT_THAT(strangers(), IsEmpty());
  fs::remove(out("Trip/FRAMESET.HTM"));
  EXPECT_THAT(strangers(), testing::Contains("TRIP.HTM"));
}

TEST_F(ExportTarget, FoldersThatStayAreNoStrangers) {
  writeBytes(out("Trip/letters/mother.txt"), "Dear");
  EXPECT_THAT(strangers(), IsEmpty());
}

TEST_F(ExportTarget, AFolderOfSomebodyElseIsToldWhole) {
  writeBytes(out("Trip/diary.txt"), "Dear diary");
  writeBytes(out("Trip/data/table.csv"), "1,2");
  writeBytes(out("Trip/letters/mother.txt"), "Dear");
  EXPECT_THAT(strangers(), ElementsAre("data", "diary.txt"));
}

TEST_F(ExportTarget, AFolderDataAloneIsNoExport) {
  writeBytes(out("Trip/data/1.jpg"), "somebody's photo");
  EXPECT_THAT(strangers(), ElementsAre("data"));
}

TEST_F(ExportTarget, FilesPutIntoAnEarlierExportAreTold) {
  addTrip(2);
  exportAlbum();
  writeBytes(out("Trip/diary.txt"), "Dear diary");
  writeBytes(out("Trip/data/notes.txt"), "notes");
  writeBytes(out("Trip/audio/song.mp3"), "song");
  EXPECT_THAT(strangers(), ElementsAre("audio/song.mp3", "data/notes.txt", "diary.txt"));
}

TEST_F(ExportTarget, AnotherAlbumThatGivesTheSameFolderIsTold) {
  addTrip(1, "Trip 1");
  exportAlbum();
  EXPECT_THAT(strangers("Trip 1"), IsEmpty());
  EXPECT_THAT(strangers("Trip_1"), testing::Contains("trip_1.htm"));
}

TEST_F(ExportTarget, AnotherAlbumOfTheSameTitleIsToldByItsNumber) {
  writeBytes(at("export/template/html/photos.js"), "");
  addTrip(1, "Smith/Jones");
  exportAlbum();
  EXPECT_THAT(strangers("Smith Jones", request_.albumId), IsEmpty());
  EXPECT_THAT(strangers("Smith Jones", request_.albumId + 1), testing::Contains("smith_jones.htm"));
  fs::rename(out("Smith_Jones/html"), out("Smith_Jones/HTML"));
  fs::rename(out("Smith_Jones/HTML/photos.js"), out("Smith_Jones/HTML/PHOTOS.JS"));
  EXPECT_THAT(strangers("Smith Jones", request_.albumId + 1), testing::Contains("smith_jones.htm"));
}

TEST_F(ExportTarget, AFolderIsFoundInAnyCase) {
  fs::create_directories(out("TRIP"));
  EXPECT_EQ(exportFolder(base_, "Trip"), out("TRIP"));
  fs::create_directories(out("Trip"));
  EXPECT_EQ(exportFolder(base_, "Trip"), out("Trip"));
  fs::create_directories(out("ÉVIAN"));
  EXPECT_EQ(exportFolder(base_, "Évian"), out("ÉVIAN"));
}

TEST_F(ExportTarget, ClearingDeletesThreeFoldersAndAllFiles) {
  for (const char* file : {"html/a", "DATA/b", "audio/c/d", "trip.htm", ".hidden", "letters/e"})
    writeBytes(out("Trip") / file, "x");
  clearExport(out("Trip"));
  EXPECT_THAT(namesIn(out("Trip")), ElementsAre("letters"));
  EXPECT_TRUE(isThere("Trip/letters/e"));
}

TEST_F(ExportTarget, ClearingTakesALinkThatLeadsNowhereToo) {
  fs::create_directories(out("Trip"));
  fs::create_symlink("turn", out("Trip/turn"));
  clearExport(out("Trip"));
  EXPECT_FALSE(fs::is_symlink(out("Trip/turn")));
}

TEST_F(ExportTarget, ClearingTakesALinkAndNotWhatItLeadsTo) {
  writeBytes(out("photos/1.jpg"), "x");
  fs::create_directories(out("Trip"));
  fs::create_directory_symlink(out("photos"), out("Trip/data"));
  fs::create_directory_symlink(out("photos"), out("Trip/more"));
  EXPECT_THAT(strangers(), ElementsAre("data"));
  clearExport(out("Trip"));
  EXPECT_TRUE(isThere("photos/1.jpg"));
  EXPECT_THAT(namesIn(out("Trip")), ElementsAre("more"));
}

TEST_F(ExportTarget, AFileThatMustNotBeWrittenToStopsTheClearingBeforeItBegins) {
  for (const char* file : {"html/a", "trip.htm", "will.txt"})
    writeBytes(out("Trip") / file, "x");
  fs::permissions(out("Trip/will.txt"), fs::perms::owner_read);
  EXPECT_THROW(clearExport(out("Trip")), RunTimeError);
  EXPECT_THAT(namesIn(out("Trip")), ElementsAre("html", "trip.htm", "will.txt"));
}

TEST_F(ExportTarget, ReadOnlyFilesInTheThreeFoldersGo) {
  writeBytes(out("Trip/data/1.jpg"), "x");
  fs::permissions(out("Trip/data/1.jpg"), fs::perms::owner_read);
  clearExport(out("Trip"));
  EXPECT_THAT(namesIn(out("Trip")), IsEmpty());
}

TEST_F(ExportTarget, TheFoldersOfTheAlbumBelongToTheProgram) {
  const auto& folder = album().folder;
  for (const char* own :
       {"Photos", "Data", "Photos/Trip", "export", "export/template", "export/Template/Trip",
        "export/templates", "export/templates/Wedding", "export/Testing1"})
    EXPECT_TRUE(belongsToProgram(folder, at(own))) << own;
  EXPECT_TRUE(belongsToProgram(folder, folder_.root()));
  EXPECT_TRUE(belongsToProgram(folder, folder_.root().parent_path()));
  for (const char* free : {"export/Trip", "export/Trips/Lake", "export/template_2"})
    EXPECT_FALSE(belongsToProgram(folder, at(free))) << free;
  EXPECT_FALSE(belongsToProgram(folder, out("Trip")));
}

TEST_F(ExportTarget, ALinkIntoTheAlbumBelongsToTheProgramToo) {
  fs::create_directory_symlink(at("Photos"), out("Trip"));
  EXPECT_TRUE(belongsToProgram(album().folder, out("Trip")));
}

} // namespace
} // namespace hearthbook::test
