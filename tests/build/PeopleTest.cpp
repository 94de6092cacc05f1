#include "People.h"
#include "AlbumFixture.h"
#include "NameFilter.h"
#include "RunTimeError.h"

namespace hearthbook::test {
namespace {

class PeopleTest : public AlbumFixture {
protected:
  Recordset& people() { return data().rsAppearances; }

  std::vector<std::string> names() {
    Recordset all(data().AlbumDB);
    all.Open("Select * From Appearances Order By AppearancesID");
    std::vector<std::string> found;
    for (; !all.atEOF(); all.MoveNext())
      found.push_back(all.Collect("AppearancesNames").toText());
    return found;
  }
};

using Names = std::vector<std::string>;

TEST_F(PeopleTest, TheFilterOffersAllTheFamilyALineAndEachFamilyMemberByName) {
  folder_.addPerson("Zoe");
  const auto anna = folder_.addPerson("Anna");
  folder_.addPerson("Cousin", anna);
  const auto entries = nameFilterEntries(people());
  ASSERT_EQ(entries.size(), 5U);
  EXPECT_EQ(entries[0], (NameEntry{"Show All", 0}));
  EXPECT_EQ(entries[1], (NameEntry{"Family Members", 0}));
  EXPECT_EQ(entries[2].text, "-------------------");
  EXPECT_EQ(entries[3], (NameEntry{"Anna", anna}));
  EXPECT_EQ(entries[4].text, "Zoe");
  EXPECT_EQ(people().RecordCount(), 3) << "the filter is off again";
}

TEST_F(PeopleTest, AChoiceInTheFilterIsAStatement) {
  EXPECT_EQ(nameFilterStatement({"Show All", 0}),
            "Select * From Appearances Order By AppearancesNames");
  EXPECT_EQ(nameFilterStatement({"Family Members", 0}),
            "Select * From Appearances where RelationID = 0 Order By AppearancesNames");
  EXPECT_EQ(nameFilterStatement({"Anna", 12}),
            "Select * From Appearances where RelationID = 12 Order By AppearancesNames");
}

TEST_F(PeopleTest, TheRelationsAreTheFamilyALineAndEachFamilyMemberByName) {
  folder_.addPerson("Zoe");
  const auto anna = folder_.addPerson("anna");
  folder_.addPerson("Cousin", anna);
  people().MoveLast();
  const auto entries = relationEntries(people());
  ASSERT_EQ(entries.size(), 4U);
  EXPECT_EQ(entries[0], (NameEntry{"Family Member", 0}));
  EXPECT_EQ(entries[1], (NameEntry{"-------------------", 0}));
  EXPECT_EQ(entries[2], (NameEntry{"anna", anna}));
  EXPECT_EQ(entries[3].text, "Zoe");
  EXPECT_EQ(people().AbsolutePosition(), 3) << "the set stays where it stands";
}

TEST_F(PeopleTest, APersonIsAddedAsAFamilyMemberAndIsCurrentThen) {
  folder_.addPerson("Zoe");
  const auto id = addPerson(people(), "Anna");
  EXPECT_EQ(people().Collect("AppearancesID").toInteger(), id);
  EXPECT_EQ(people().Collect("AppearancesNames").toText(), "Anna");
  EXPECT_EQ(people().Collect("relationID"), Value(0));
  EXPECT_EQ(names(), (Names{"Zoe", "Anna"}));
}

TEST_F(PeopleTest, ANameOfAnyLengthAndScriptIsStored) {
  for (const char* name : {"O'Brien", "Anna, the elder", "\"Bob\"", "12345678901234567890",
                           "123456789012345678901", "Zoe\u0308", "שרה כהן", "عائشة"}) {
    const auto id = addPerson(people(), name);
    ASSERT_TRUE(personById(people(), id)) << name;
    EXPECT_EQ(people().Collect("AppearancesNames").toText(), name);
  }
}

TEST_F(PeopleTest, ARefusedAdditionLeavesTheSetUsable) {
  folder_.addPerson("Anna");
  EXPECT_THROW(addPerson(people(), "anna"), RunTimeError);
  EXPECT_FALSE(people().isPending());
  people().MoveFirst();
  EXPECT_EQ(names(), Names{"Anna"});
}

TEST_F(PeopleTest, AnIdWithoutARowIsNotFound) {
  folder_.addPerson("Anna");
  EXPECT_FALSE(personById(people(), 99));
  EXPECT_TRUE(people().atEOF());
}

TEST_F(PeopleTest, ANameWithAnApostropheIsFoundOnlyIfItIsDoubled) {
  folder_.addPerson("O'Brien");
  EXPECT_TRUE(personNamed(people(), "O''Brien"));
  EXPECT_THROW(personNamed(people(), "O'Brien"), RunTimeError);
}

TEST_F(PeopleTest, CaseDoesNotTellNamesApartButAccentsDo) {
  folder_.addPerson("Zoë");
  EXPECT_TRUE(personNamed(people(), "ZOË"));
  EXPECT_FALSE(personNamed(people(), "Zoe"));
}

TEST_F(PeopleTest, RemovingLeavesTheSetOnItsFirstRow) {
  folder_.addPerson("Anna");
  const auto zoe = folder_.addPerson("Zoe");
  removePerson(people(), zoe);
  EXPECT_EQ(names(), Names{"Anna"});
  EXPECT_EQ(people().AbsolutePosition(), 1);
  removePerson(people(), 99);
  EXPECT_EQ(names(), Names{"Anna"});
  EXPECT_EQ(people().AbsolutePosition(), 1);
}

TEST_F(PeopleTest, RemovingTheLastPersonLeavesAnEmptySet) {
  removePerson(people(), folder_.addPerson("Anna"));
  EXPECT_EQ(people().RecordCount(), 0);
}

TEST_F(PeopleTest, TheDuplicateMessageTellsEverythingKnownOfAFamilyMember) {
  folder_.addRow("Appearances", {{"AppearancesNames", "Anna"},
                                 {"AFirstName", "Anna Maria"},
                                 {"ALastName", "Hill"},
                                 {"BirthDate", "12/31"},
                                 {"BirthYear", 1977}});
  people().Requery();
  EXPECT_EQ(duplicateNameMessage(people()), "Screen Name Already Used With The Following Info.\n\n"
                                            "Screen Name: Anna\n\n"
                                            "First Name: Anna Maria\n\n"
                                            "Last Name: Hill\n\n"
                                            "Birthday: 12/31/1977\n\n"
                                            "Relation: Family Member\n\n"
                                            "Please try to add a different Screen Name");
}

TEST_F(PeopleTest, TheDuplicateMessageNamesTheRelatedPerson) {
  const auto zoe = folder_.addPerson("Zoe");
  folder_.addPerson("Anna", zoe);
  const std::string message = duplicateNameMessage(people());
  EXPECT_NE(message.find("First Name: \n\nLast Name: \n\nBirthday: /\n\nRelation: Zoe\n\n"
                         "Please try"),
            std::string::npos)
      << message;
  EXPECT_EQ(people().Collect("AppearancesNames").toText(), "Anna");
}

TEST_F(PeopleTest, TheDuplicateMessagePassesOverARelationWithoutARow) {
  folder_.addPerson("Anna", 99);
  const std::string message = duplicateNameMessage(people());
  EXPECT_EQ(message.find("Relation"), std::string::npos);
  EXPECT_NE(message.find("Birthday: /\n\nPlease try"), std::string::npos) << message;
}

TEST_F(PeopleTest, TheRelationIsUnknownWithoutARowOrAValue) {
  EXPECT_EQ(relationOf(people()), std::nullopt);
  folder_.addRow("Appearances", {{"AppearancesNames", "Anna"}, {"relationID", Value()}});
  people().Requery();
  EXPECT_EQ(relationOf(people()), std::nullopt);
  people().Collect("relationID", 7);
  EXPECT_EQ(relationOf(people()), 7);
}

TEST(Birthday, ADateBecomesMonthAndDay) {
  for (const char* typed : {"1/5", "Jan 5", "5 january", "01/05/1977", " 1-5 "}) {
    const auto ended = endBirthday(typed);
    EXPECT_TRUE(ended.isAccepted) << typed;
    EXPECT_EQ(ended.text, "01/05") << typed;
  }
}

TEST(Birthday, AnEmptyTextStaysEmpty) {
  EXPECT_TRUE(endBirthday("").isAccepted);
  EXPECT_EQ(endBirthday("").text, "");
}

TEST(Birthday, WhatIsNoDateIsTrimmedAndRefused) {
  EXPECT_FALSE(endBirthday("  spring ").isAccepted);
  EXPECT_EQ(endBirthday("  spring ").text, "spring");
  EXPECT_FALSE(endBirthday("   ").isAccepted);
}

TEST(BirthYear, OnlyWhatIsNeitherANumberNorOfFourCharactersIsRefused) {
  for (const char* typed :
       {"", "1977", "77", "abcd", "0", "3000", "-5", "1,990", "$5", "ñand", "12a4", "    "})
    EXPECT_TRUE(acceptsBirthYear(typed)) << typed;
  for (const char* typed : {"12a", "abc", "abcde", "  ", "ñan", "197 7"})
    EXPECT_FALSE(acceptsBirthYear(typed)) << typed;
}

TEST(BirthYear, TheAnswerToTheQuestionIsANumberOfFourCharacters) {
  EXPECT_EQ(askedBirthYear("1977"), 1977);
  EXPECT_EQ(askedBirthYear("-123"), -123);
  EXPECT_EQ(askedBirthYear("19.7"), 20);
  EXPECT_EQ(askedBirthYear("77"), std::nullopt);
  EXPECT_EQ(askedBirthYear("abcd"), std::nullopt);
  EXPECT_EQ(askedBirthYear("19777"), std::nullopt);
  EXPECT_EQ(askedBirthYear(""), std::nullopt);
  EXPECT_THROW(askedBirthYear("1e99"), RunTimeError);
}

} // namespace
} // namespace hearthbook::test
