#include "AlbumFixture.h"
#include "RunTimeError.h"
#include "SearchCriteriaOf.h"

#include <algorithm>
#include <string>
#include <vector>

namespace hearthbook::test {

namespace {

/// What the statements find in a real album: 64 photos, of which number `n` meets the criteria
/// whose bits are set in n - 1.
class SearchStatements : public AlbumFixture {
protected:
  SearchStatements() : found_(data().AlbumDB) {}

  void addPhotoForEachCombination() {
    data().AlbumDB.execute("DELETE FROM PhotoAlbum");
    for (int met = 0; met < allCriteria; ++met)
      folder_.addRow("PhotoAlbum", fieldsMeeting(met));
  }

  static std::string idOf(int met) { return "HD000" + std::to_string(met + 10); }

  static AlbumFolder::Fields fieldsMeeting(int met) {
    AlbumFolder::Fields fields{{"PictureID", idOf(met)}};
    fields["PlaceID"] = met & 1 ? (met & 2 ? 3 : 5) : 4;
    fields["EventID"] = met & 2 ? Value(2) : Value();
    fields["NamesInPhoto"] = met & 4 ? "012,007," : "070,012,";
    // Both years are met by 1992 alone; one of them by years on either side of the range.
    fields["Year"] = met & 8 ? (met & 16 ? 1992 : 2001) : (met & 16 ? Value(1980) : Value());
    fields["Description"] = met & 32 ? "at BOB'S house" : "Bobs";
    return fields;
  }

  std::vector<std::string> found(const SearchCriteria& criteria) {
    if (found_.isOpen())
      found_.Close();
    found_.Open(BuildSearchQuery(criteria).sql);
    std::vector<std::string> ids;
    for (; !found_.atEOF(); found_.MoveNext())
      ids.push_back(found_.Collect("PictureID").toText());
    return ids;
  }

  std::vector<std::string> foundByDescription(const std::string& text) {
    SearchCriteria criteria;
    criteria.description = text;
    return found(criteria);
  }

  Recordset found_;
};

using Ids = std::vector<std::string>;

} // namespace

TEST_F(SearchStatements, FindThePhotosThatMeetEachCombinationOfCriteria) {
  addPhotoForEachCombination();
  for (int present = 0; present < allCriteria; ++present) {
    Ids wanted;
    for (int met = 0; met < allCriteria; ++met)
      if ((met & present) == present)
        wanted.push_back(idOf(met));
    Ids ids = found(criteriaOf(present));
    std::ranges::sort(ids);
    EXPECT_EQ(ids, wanted) << present;
  }
}

TEST_F(SearchStatements, SortByYearAndThenByPhotoWithUndatedPhotosFirst) {
  folder_.addPhoto("HD00002", {{"Year", 1990}});
  folder_.addPhoto("HD00003", {{"Year", 1950}});
  folder_.addPhoto("HD00004", {{"Year", 1950}});
  EXPECT_EQ(found({}), (Ids{"HD00001", "HD00003", "HD00004", "HD00002"}));
}

TEST_F(SearchStatements, FindNothingBetweenYearsThatAreTheWrongWayRound) {
  folder_.addPhoto("HD00002", {{"Year", 1995}});
  SearchCriteria criteria;
  criteria.fromYear = "2000";
  criteria.toYear = "1990";
  EXPECT_EQ(found(criteria), Ids());
}

TEST_F(SearchStatements, FindAPersonOfOtherDigitsThatHoldTheseToo) {
  folder_.addPhoto("HD00002", {{"NamesInPhoto", "1007,"}});
  EXPECT_EQ(found(criteriaOf(4)), Ids{"HD00002"});
}

TEST_F(SearchStatements, FindPiecesOfDescriptionsWithoutRegardToCase) {
  folder_.addPhoto("HD00002", {{"Description", "Grandma's\nÄPFEL"}});
  EXPECT_EQ(foundByDescription("ma's"), Ids{"HD00002"});
  EXPECT_EQ(foundByDescription("äpfel"), Ids{"HD00002"});
}

TEST_F(SearchStatements, PassJokersOfTheDescriptionThrough) {
  folder_.addPhoto("HD00002", {{"Description", "a red boat"}});
  EXPECT_EQ(foundByDescription("a%boat"), Ids{"HD00002"});
  EXPECT_EQ(foundByDescription("r_d"), Ids{"HD00002"});
  EXPECT_EQ(foundByDescription("r__d"), Ids());
}

TEST_F(SearchStatements, TakeEveryOtherCharacterOfTheDescriptionAsItStands) {
  const std::string odd = "[a] back\\slash \"quoted\" -- ; \xF0\x9F\x98\x80";
  folder_.addPhoto("HD00002", {{"Description", "before " + odd + " behind"}});
  folder_.addPhoto("HD00003", {{"Description", "a"}});
  EXPECT_EQ(foundByDescription(odd), Ids{"HD00002"});
  EXPECT_EQ(foundByDescription("[a]"), Ids{"HD00002"});
  EXPECT_EQ(foundByDescription("\\"), Ids{"HD00002"});
  EXPECT_EQ(foundByDescription("\xF0\x9F\x98\x80"), Ids{"HD00002"});
}

TEST_F(SearchStatements, TakeADescriptionOfTenThousandCharacters) {
  std::string smiles;
  for (int i = 0; i < 10'000; ++i)
    smiles += "\xF0\x9F\x98\x80";
  folder_.addPhoto("HD00002", {{"Description", smiles}});
  EXPECT_EQ(foundByDescription(smiles), Ids{"HD00002"});
  EXPECT_EQ(foundByDescription(std::string(10'000, 'x')), Ids());
}

TEST_F(SearchStatements, AreRefusedForNoSortAndForYearsThatAreNoNumbersOfTheirs) {
  SearchCriteria noSort;
  noSort.sort = sortEntries[3];
  EXPECT_THROW(found(noSort), RunTimeError);
  for (const char* year : {"1,990", "&H7C6", "$1990", "1990d0"}) {
    SearchCriteria criteria;
    criteria.fromYear = year;
    EXPECT_THROW(found(criteria), RunTimeError) << year;
  }
  EXPECT_EQ(found({}), Ids{"HD00001"});
}

TEST_F(SearchStatements, TakeYearsThatAreNumbersInAnotherForm) {
  folder_.addPhoto("HD00002", {{"Year", 1990}});
  for (const char* year : {" 1990 ", "1.99e3", "+1990", "1990.0", "(1990)"}) {
    SearchCriteria criteria;
    criteria.fromYear = year;
    EXPECT_EQ(found(criteria), Ids{"HD00002"}) << year;
  }
}

} // namespace hearthbook::test
