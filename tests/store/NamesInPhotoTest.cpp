#include "NamesInPhoto.h"
#include "AlbumFixture.h"

#include <gmock/gmock.h>

namespace hearthbook {
namespace {

using test::AlbumFixture;
using testing::ElementsAre;
using testing::IsEmpty;

class NamesInPhoto : public AlbumFixture {
protected:
  NamesInPhoto() {
    folder_.addPerson("Zoe");    // 1
    folder_.addPerson("Anna");   // 2
    folder_.addPerson("Moritz"); // 3
  }

  std::vector<NameEntry> list(std::string_view names, std::string_view cords = "") {
    return PopList(data().rsAppearances, names, cords);
  }
};

TEST_F(NamesInPhoto, TheListKeepsTheOrderOfTheField) {
  EXPECT_THAT(list("003,001,"), ElementsAre(NameEntry{"Moritz", 3}, NameEntry{"Zoe", 1}));
}

TEST_F(NamesInPhoto, AMarkedPersonHasAStar) {
  EXPECT_THAT(list("003,001,", "001-0341X1022,"),
              ElementsAre(NameEntry{"Moritz", 3}, NameEntry{"*Zoe", 1}));
}

TEST_F(NamesInPhoto, AnEmptyTextAddsNothing) { EXPECT_THAT(list(""), IsEmpty()); }

TEST_F(NamesInPhoto, AnIdWithoutARowIsPassedOverAndTheNextWriteDropsIt) {
  const auto names = list("003,099,001,");
  EXPECT_THAT(names, ElementsAre(NameEntry{"Moritz", 3}, NameEntry{"Zoe", 1}));
  EXPECT_EQ(namesInPhotoText(names), Value("003,001,"));
}

TEST_F(NamesInPhoto, TheListEndsAtTheFirstEmptyPart) {
  EXPECT_THAT(list("003,,001,"), ElementsAre(NameEntry{"Moritz", 3}));
  EXPECT_THAT(list(",001,"), IsEmpty());
}

TEST_F(NamesInPhoto, ALastEntryWithoutACommaIsReadToo) {
  EXPECT_THAT(list("003,001"), ElementsAre(NameEntry{"Moritz", 3}, NameEntry{"Zoe", 1}));
}

TEST_F(NamesInPhoto, AnIdIsComparedAsText) {
  EXPECT_THAT(list("3,"), IsEmpty());
  EXPECT_THAT(list("0003,"), IsEmpty());
  EXPECT_THAT(list(" 003,"), IsEmpty());
}

TEST_F(NamesInPhoto, AnIdOfFourDigitsStandsUnpadded) {
  folder_.addRow("Appearances", {{"AppearancesID", 1234}, {"AppearancesNames", "Late"}});
  EXPECT_THAT(list("1234,", "1234-0001X0002,"), ElementsAre(NameEntry{"*Late", 1234}));
  EXPECT_EQ(namesInPhotoText(list("1234,001,")), Value("1234,001,"));
}

TEST_F(NamesInPhoto, APersonNamedTwiceStandsTwice) { EXPECT_EQ(list("003,003,").size(), 2U); }

TEST_F(NamesInPhoto, TheListLeavesThePeopleReopenedOnAllOfThem) {
  data().rsAppearances.Close();
  data().rsAppearances.Open("Select * From Appearances where RelationID = 7");
  list("003,");
  EXPECT_EQ(data().rsAppearances.Source(), sources::appearances);
  EXPECT_EQ(data().rsAppearances.AbsolutePosition(), 1);
  EXPECT_EQ(data().rsAppearances.Collect("AppearancesNames").toText(), "Anna");
}

TEST_F(NamesInPhoto, WithoutAnyPeopleTheListIsEmpty) {
  data().AlbumDB.execute("DELETE FROM Appearances");
  EXPECT_THAT(list("003,001,"), IsEmpty());
}

TEST(NamedIds, AreThePiecesThatACommaEnds) {
  EXPECT_THAT(namedIds("003,,1001,00"), ElementsAre("003", "", "1001"));
  EXPECT_THAT(namedIds("003"), IsEmpty());
  EXPECT_THAT(namedIds(""), IsEmpty());
}

TEST(NamesInPhotoText, AnEmptyListIsNull) { EXPECT_TRUE(namesInPhotoText({}).isNull()); }

TEST(NamesInPhotoText, EachIdHasThreeDigitsAndAComma) {
  EXPECT_EQ(namesInPhotoText({{"a", 4}, {"b", 17}, {"c", 123}}), Value("004,017,123,"));
}

TEST(ChkList, APersonStandsInTheListByIdAlone) {
  const std::vector<NameEntry> list = {{"*Zoe", 1}, {"Moritz", 3}};
  EXPECT_TRUE(ChkList(list, 1));
  EXPECT_TRUE(ChkList(list, 3));
  EXPECT_FALSE(ChkList(list, 2));
  EXPECT_FALSE(ChkList({}, 0));
}

} // namespace
} // namespace hearthbook
