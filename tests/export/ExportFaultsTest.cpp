#include "ExportFixture.h"

#include "PrivateMount.h"
#include "RunTimeError.h"

#include <gmock/gmock.h>

#include <unistd.h>

namespace hearthbook::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;

class ExportFaults : public ExportFixture {
protected:
  std::string failure() { return failureOn(pool_); }
  /// Threads that were there before do not see what is mounted privately.
  std::string failureOfNewThreads() {
    WorkPool pool(2);
    return failureOn(pool);
  }
  std::string failureOn(WorkPool& pool) {
    try {
      exportSubAlbum(album(), pool, request_, listener_);
    } catch (const RunTimeError& error) {
      return error.what();
    }
    return "nothing was thrown";
  }
};

TEST_F(ExportFaults, WithoutATemplateNothingIsDone) {
  addTrip(1);
  fs::remove_all(at("export/template"));
  EXPECT_EQ(failure(), "Sorry, can not export albums, export source not found!");
  EXPECT_THAT(namesIn(base_), testing::IsEmpty());
}

TEST_F(ExportFaults, FilesOfSomebodyElseStayWithoutAnAnswer) {
  addTrip(1);
  writeBytes(out("Trip/diary.txt"), "Dear diary");
  EXPECT_FALSE(exportSubAlbum(album(), pool_, request_, listener_).has_value());
  EXPECT_THAT(namesIn(out("Trip")), ElementsAre("diary.txt"));
}

TEST_F(ExportFaults, FilesOfSomebodyElseGoWhenThatIsAnswered) {
  addTrip(1);
  writeBytes(out("Trip/diary.txt"), "Dear diary");
  std::vector<std::string> asked;
  listener_.mayDelete = [&](const fs::path& folder, const std::vector<std::string>& names) {
    EXPECT_EQ(folder, out("Trip"));
    asked = names;
    return true;
  };
  exportAlbum();
  EXPECT_THAT(asked, ElementsAre("diary.txt"));
  EXPECT_FALSE(isThere("Trip/diary.txt"));
}

TEST_F(ExportFaults, TheSameAlbumAgainAsksNothing) {
  addTrip(2, "Été & co");
  listener_.mayDelete = [](const fs::path&, const std::vector<std::string>&) {
    ADD_FAILURE() << "asked";
    return false;
  };
  exportAlbum();
  exportAlbum();
}

TEST_F(ExportFaults, TwoAlbumsOfOneFolderNameAsk) {
  addTrip(1, "Trip 1");
  exportAlbum();
  addSubAlbum("Trip_1", {"HD00002"});
  int asked = 0;
  listener_.mayDelete = [&](const fs::path&, const std::vector<std::string>&) {
    return ++asked > 1;
  };
  EXPECT_FALSE(exportSubAlbum(album(), pool_, request_, listener_).has_value());
  EXPECT_THAT(page("Trip_1/trip_1.htm"), HasSubstr("<title>Trip 1</title>"));
  exportAlbum();
  EXPECT_THAT(page("Trip_1/trip_1.htm"), HasSubstr("<title>Trip_1</title>"));
}

TEST_F(ExportFaults, AnAlbumNamedAsAFolderOfTheProgramIsRefused) {
  const auto photo = readBytes(at("Photos/00001.jpg"));
  addSubAlbum("Photos", {"HD00001"});
  request_.base = folder_.root();
  EXPECT_THAT(failure(), HasSubstr("belongs to the program"));
  EXPECT_EQ(readBytes(at("Photos/00001.jpg")), photo);
  request_.albumName = "template";
  request_.base = at("export");
  EXPECT_THAT(failure(), HasSubstr("belongs to the program"));
  EXPECT_TRUE(fs::exists(at("export/template/master.htm")));
}

TEST_F(ExportFaults, AnAlbumGoesIntoTheProgramsOwnFolderForExports) {
  addTrip(1);
  request_.base = at("export");
  exportAlbum();
  EXPECT_TRUE(fs::exists(at("export/Trip/trip.htm")));
  EXPECT_TRUE(fs::exists(at("export/template/master.htm")));
}

TEST_F(ExportFaults, AnAlbumNamedAsAPageOfTheTemplateGetsANameOfItsOwn) {
  addTrip(1, "Frameset");
  const auto outcome = exportAlbum();
  EXPECT_EQ(outcome.name, "Frameset_");
  EXPECT_EQ(page("Frameset_/frameset.htm"), "<html><frameset></frameset></html>");
  EXPECT_THAT(page("Frameset_/frameset_.htm"), HasSubstr("<title>Frameset</title>"));
}

TEST_F(ExportFaults, AnAlbumMayBeNamedAsTheStartPageOfTheTemplate) {
  addTrip(1, "Master");
  EXPECT_EQ(exportAlbum().startPage, out("Master/master.htm"));
}

TEST_F(ExportFaults, NamesOfAllKindsStayBelowTheFolderChosen) {
  for (const char* name : {"..", ".", "   ", "*?", "", "../../etc", "C:\\Windows", "~", "-rf"}) {
    SCOPED_TRACE(name);
    addSubAlbum(name, {"HD00001"});
    const auto outcome = exportAlbum();
    EXPECT_EQ(outcome.folder.parent_path(), base_);
    EXPECT_TRUE(fs::exists(outcome.startPage));
  }
}

TEST_F(ExportFaults, ANameOf255LettersCanBeExported) {
  addSubAlbum(std::string(255, 'L'), {"HD00001"});
  writeBytes(at("Audio/A" + std::to_string(request_.albumId) + ".wav"), "wave");
  const auto outcome = exportAlbum();
  EXPECT_TRUE(fs::exists(outcome.startPage));
  EXPECT_EQ(outcome.name.size(), 251U);
}

TEST_F(ExportFaults, ALongNameBeyondAsciiIsCutBetweenItsLetters) {
  std::string name;
  std::string cut; // as much as leaves room for ".htm"
  for (int letter = 0; letter < 255; ++letter)
    name += "é";
  for (int letter = 0; letter < 125; ++letter)
    cut += "é";
  addSubAlbum(name, {"HD00001"});
  writeBytes(at("Audio/A" + std::to_string(request_.albumId) + ".wav"), "wave");
  EXPECT_EQ(exportAlbum().startPage, out(cut) / (cut + ".htm"));
  EXPECT_THAT(page(cut + "/" + cut + ".htm"), HasSubstr("<title>" + name + "</title>"));
  EXPECT_EQ(page(cut + "/audio/" + cut + ".wav"), "wave");
}

TEST_F(ExportFaults, TwoAlbumsOfOneNameAsk) {
  writeBytes(at("export/template/html/photos.js"), "");
  addTrip(1);
  exportAlbum();
  addSubAlbum("Trip", {"HD00001"});
  EXPECT_FALSE(exportSubAlbum(album(), pool_, request_, listener_).has_value());
}

TEST_F(ExportFaults, AFolderThatIsGoneIsNotMadeAgain) {
  addTrip(1);
  fs::remove_all(base_);
  EXPECT_THAT(failure(), HasSubstr("it is not there"));
  EXPECT_FALSE(fs::exists(base_));
}

TEST_F(ExportFaults, ATargetThatVanishesMidwayEndsTheExport) {
  addTrip(12);
  listener_.atPhoto = [&](std::int64_t number, std::int64_t, const std::string&) {
    if (number == 1)
      fs::rename(out("Trip"), out("gone"));
  };
  EXPECT_THAT(failure(), HasSubstr("it is not there"));
  EXPECT_FALSE(isThere("Trip/data"));
}

TEST_F(ExportFaults, AFileOfTheAlbumsNameIsLeftAlone) {
  addTrip(1);
  writeBytes(out("Trip"), "a file");
  EXPECT_THAT(failure(), HasSubstr("Trip"));
  EXPECT_EQ(page("Trip"), "a file");
}

TEST_F(ExportFaults, AFullDiskEndsTheExportWithItsCause) {
  if (!canMountPrivately())
    GTEST_SKIP() << "this machine does not allow private mounts";
  addTrip(4);
  for (int photo = 2; photo < 6; ++photo)
    writeBytes(at("Photos/0000" + std::to_string(photo) + ".jpg"), jpegOf(grainy({600, 500})));
  {
    const SmallDisk disk(base_, 1 << 18);
    EXPECT_THAT(failureOfNewThreads(), HasSubstr("the disk is full"));
    EXPECT_TRUE(isThere("Trip/frameset.htm")); // what was written stays
  }
  request_.optimization = 3;
  const SmallDisk disk(base_, 1 << 18);
  EXPECT_THAT(failureOfNewThreads(), HasSubstr("the disk is full"));
}

TEST_F(ExportFaults, AReadOnlyDiskEndsTheExportBeforeAnythingIsDeleted) {
  if (!canMountPrivately())
    GTEST_SKIP() << "this machine does not allow private mounts";
  addTrip(1);
  exportAlbum();
  const ReadOnlyMount disk(base_);
  EXPECT_THAT(failureOfNewThreads(), HasSubstr("can only be read"));
  EXPECT_TRUE(isThere("Trip/trip.htm"));
}

TEST_F(ExportFaults, AFirstExportToAReadOnlyDiskLeavesNothing) {
  if (!canMountPrivately())
    GTEST_SKIP() << "this machine does not allow private mounts";
  addTrip(1);
  const ReadOnlyMount disk(base_);
  EXPECT_THAT(failureOfNewThreads(), HasSubstr("can only be read"));
  EXPECT_FALSE(isThere("Trip"));
}

TEST_F(ExportFaults, AFirstExportToAFolderThatMayNotBeWrittenToLeavesNothing) {
  if (geteuid() == 0)
    GTEST_SKIP() << "root may write everywhere";
  addTrip(1);
  fs::permissions(base_, fs::perms::owner_read | fs::perms::owner_exec);
  EXPECT_THAT(failure(), HasSubstr("Trip"));
  fs::permissions(base_, fs::perms::owner_all);
  EXPECT_FALSE(isThere("Trip"));
}

TEST_F(ExportFaults, APhotoThatGoesWhileItIsExportedIsTold) {
  addTrip(12);
  listener_.atPhoto = [&](std::int64_t number, std::int64_t, const std::string&) {
    if (number == 1)
      fs::remove(at("Photos/00013.jpg"));
  };
  const auto outcome = exportAlbum();
  EXPECT_THAT(outcome.troubles, ElementsAre(ExportOutcome::Trouble{"00013.jpg", "is missing"}));
}

} // namespace
} // namespace hearthbook::test
