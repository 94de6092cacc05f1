#include "NamesCords.h"

#include <gtest/gtest.h>

namespace hearthbook {
namespace {

constexpr const char* two = "004-0341X1022,017-1200X0415,";

TEST(NamesCords, AnEntryHasFourteenCharacters) {
  EXPECT_EQ(markerEntry(4, {341, 1022}), "004-0341X1022,");
  EXPECT_EQ(markerEntry(17, {0, 5760}), "017-0000X5760,");
  EXPECT_EQ(markerEntry(4, {340.5, 1021.4}), "004-0341X1021,");
}

TEST(NamesCords, AnIdOfFourDigitsMakesALongerEntry) {
  EXPECT_EQ(markerEntry(1234, {341, 1022}), "1234-0341X1022,");
}

TEST(NamesCords, AMarkerIsFoundByItsKey) {
  EXPECT_TRUE(hasMarker(two, 4));
  EXPECT_TRUE(hasMarker(two, 17));
  EXPECT_FALSE(hasMarker(two, 34));
  EXPECT_FALSE(hasMarker("", 4));
}

TEST(NamesCords, TheFirstMarkerIsTheWholeField) {
  EXPECT_EQ(withMarker("", 4, {341, 1022}), "004-0341X1022,");
}

TEST(NamesCords, AFurtherMarkerIsAppended) {
  EXPECT_EQ(withMarker("004-0341X1022,", 17, {1200, 415}), two);
}

TEST(NamesCords, AMovedMarkerKeepsItsPlaceInTheField) {
  EXPECT_EQ(withMarker(two, 4, {1, 2}), "004-0001X0002,017-1200X0415,");
  EXPECT_EQ(withMarker(two, 17, {1, 2}), "004-0341X1022,017-0001X0002,");
}

TEST(NamesCords, ARemovedMarkerLeavesTheOthers) {
  EXPECT_EQ(withoutMarker(two, 4), Value("017-1200X0415,"));
  EXPECT_EQ(withoutMarker(two, 17), Value("004-0341X1022,"));
}

TEST(NamesCords, RemovingTheOnlyMarkerLeavesNullAndNoEmptyText) {
  EXPECT_TRUE(withoutMarker("004-0341X1022,", 4).isNull());
}

TEST(NamesCords, RemovingAMarkerThatIsNotThereChangesNothing) {
  EXPECT_EQ(withoutMarker(two, 5), Value(two));
  EXPECT_TRUE(withoutMarker("", 5).isNull());
}

TEST(NamesCords, EntriesOfOnePersonGoWithAllThatStandsBetweenThem) {
  const std::string doubled = "004-0341X1022,017-1200X0415,004-0002X0002,020-0003X0003,";
  EXPECT_EQ(withoutMarker(doubled, 4), Value("020-0003X0003,"));
  EXPECT_EQ(withMarker(doubled, 4, {9, 9}), "004-0009X0009,020-0003X0003,");
}

TEST(NamesCords, TheCommaOfAFourDigitIdStaysBehindWhenItsMarkerIsRemoved) {
  EXPECT_EQ(withoutMarker("004-0341X1022,1234-0001X0002,017-1200X0415,", 1234),
            Value("004-0341X1022,,017-1200X0415,"));
  EXPECT_EQ(withoutMarker("1234-0001X0002,", 1234), Value(","));
}

TEST(NamesCords, TheCommaOfAFourDigitIdStaysBehindWhenItsMarkerIsMoved) {
  EXPECT_EQ(withMarker("1234-0001X0002,017-1200X0415,", 1234, {5, 6}),
            "1234-0005X0006,,017-1200X0415,");
}

TEST(NamesCords, AKeyIsFoundInsideALongerIdToo) {
  EXPECT_TRUE(hasMarker("1001-0341X1022,", 1));
  // The first hit counts, with fourteen characters from there.
  EXPECT_EQ(withoutMarker("1001-0341X1022,020-0003X0003,", 1), Value("1020-0003X0003,"));
  EXPECT_EQ(withoutMarker("1001-0341X1022,001-0003X0003,", 1), Value("1"));
}

TEST(NamesCords, AMarkerStandsWhereItsEntrySays) {
  EXPECT_EQ(markerPosition(two, 4), (TwipsPoint{341, 1022}));
  EXPECT_EQ(markerPosition(two, 17), (TwipsPoint{1200, 415}));
  EXPECT_EQ(markerPosition(two, 5), std::nullopt);
  EXPECT_EQ(markerPosition("", 4), std::nullopt);
}

TEST(NamesCords, OfTwoEntriesOfOnePersonTheFirstTellsThePlace) {
  EXPECT_EQ(markerPosition("004-0341X1022,004-0001X0002,", 4), (TwipsPoint{341, 1022}));
}

TEST(NamesCords, AnIdOfFourDigitsMatchesNoEntry) {
  EXPECT_EQ(markerPosition("1234-0001X0002,", 1234), std::nullopt);
}

TEST(NamesCords, TheEntriesOfAPageAreThePiecesBetweenTheCommas) {
  EXPECT_EQ(markerEntries("004-0341X1022,017-1200X0415,"),
            (std::vector<std::string>{"004-0341X1022", "017-1200X0415", ""}));
  EXPECT_EQ(markerEntries(""), std::vector<std::string>{""});
  EXPECT_EQ(placeOfMarker({"004-0341X1022", "017-1200X0415"}, 17), (TwipsPoint{1200, 415}));
  EXPECT_EQ(placeOfMarker({"004-0341X1022", ""}, 5), std::nullopt);
}

TEST(NamesCords, AnEntryThatNoCommaEndsIsNotRead) {
  EXPECT_EQ(markerPosition("004-0341X1022", 4), std::nullopt);
}

TEST(NamesCords, AnEntryTooShortForAPlaceHasNone) {
  EXPECT_EQ(markerPosition("004,", 4), std::nullopt);
  EXPECT_EQ(markerPosition("004-034,", 4), std::nullopt);
}

TEST(NamesCords, AFieldCutInsideAnEntryIsKeptAsFarAsItGoes) {
  EXPECT_EQ(withoutMarker("017-1200X0415,004-03", 4), Value("017-1200X0415,"));
  EXPECT_EQ(withMarker("017-1200X0415,004-03", 4, {1, 2}), "017-1200X0415,004-0001X0002,");
}

} // namespace
} // namespace hearthbook
