#include "PeopleRefresh.h"
#include "AlbumFixture.h"
#include "FakePeopleForm.h"
#include "NameFilter.h"

#include <algorithm>

namespace hearthbook::test {
namespace {

class PeopleRefreshTest : public AlbumFixture {
protected:
  PeopleRefreshTest() {
    anna = folder_.addPerson("Anna");
    bob = folder_.addPerson("Bob", anna);
  }
  Recordset& people() { return data().rsAppearances; }

  std::int64_t anna = 0;
  std::int64_t bob = 0;
  FakePeopleForm form;
};

TEST_F(PeopleRefreshTest, TheFilterIsRebuiltAndTheListFollowsIt) {
  refreshPeople(form, people(), "Anna", static_cast<std::int16_t>(bob));
  EXPECT_EQ(form.filterEntries.size(), 4U);
  EXPECT_EQ(form.filter(), (NameEntry{"Anna", anna}));
  EXPECT_EQ(people().RecordCount(), 1);
  EXPECT_EQ(people().Collect("AppearancesNames").toText(), "Bob");
  EXPECT_EQ(form.refills, 1);
  EXPECT_EQ(form.person().id, Value(bob));
}

TEST_F(PeopleRefreshTest, WithShowAllEverybodyIsListed) {
  refreshPeople(form, people(), showAllEntry, 0);
  EXPECT_EQ(people().Source(), "Select * From Appearances Order By AppearancesNames");
  EXPECT_TRUE(form.person().id.isNull()) << "nobody is chosen for the id 0";
}

TEST_F(PeopleRefreshTest, ATextThatIsNoChoiceMeansTheFamily) {
  for (const char* text : {"", "-------------------", "Nobody"}) {
    form.chosenFilter = {};
    refreshPeople(form, people(), text, 0);
    EXPECT_EQ(form.filter().text, "Family Members") << text;
  }
}

TEST_F(PeopleRefreshTest, TheFamilyStandsInForNoRelationAndForFamilyMember) {
  EXPECT_EQ(filterForRelation(""), "Family Members");
  EXPECT_EQ(filterForRelation("Family Member"), "Family Members");
  EXPECT_EQ(filterForRelation("Anna"), "Anna");
}

TEST_F(PeopleRefreshTest, ARenameShowsAtOnceAmongTheNamesOfThePhoto) {
  form.photo = {"002,001,", "001-0100X0200,"};
  form.names = {{"old", bob}};
  refreshPeople(form, people(), showAllEntry, 0);
  EXPECT_EQ(form.names, (std::vector<NameEntry>{{"Bob", bob}, {"*Anna", anna}}));
}

TEST_F(PeopleRefreshTest, APhotoWithoutNamesLeavesTheListAlone) {
  form.photo = PhotoNames{};
  form.names = {{"old", bob}};
  refreshPeople(form, people(), showAllEntry, 0);
  EXPECT_EQ(form.names, (std::vector<NameEntry>{{"old", bob}}));
}

TEST_F(PeopleRefreshTest, AFormWithoutAPhotoKeepsItsIdsAndRenewsTheirTexts) {
  form.names = {{"old", bob}, {"gone", 99}, {"old", anna}};
  refreshPeople(form, people(), showAllEntry, 0);
  EXPECT_EQ(form.names, (std::vector<NameEntry>{{"Bob", bob}, {"gone", 99}, {"Anna", anna}}));
}

} // namespace
} // namespace hearthbook::test
