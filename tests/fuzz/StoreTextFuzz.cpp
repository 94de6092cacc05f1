#include "Mutation.h"

#include "Mounts.h"
#include "NamesCords.h"
#include "Numbers.h"
#include "PhotoIdentity.h"

#include "FileBytes.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cmath>

namespace hearthbook::test {
namespace {

constexpr int rounds = 20'000;
const std::string markers = "004-0341X1022,017-1200X0415,1234-0001X0002,001-5760X0000,";
const std::vector<std::string> markerFragments = {"004-", "-", "X", ",", "1001-", "0000", ",,", ""};

TEST(StoreTextFuzz, AMarkerSetInADamagedFieldIsFoundThere) {
  Mutation mutation(11, markerFragments);
  for (int i = 0; i < rounds; ++i) {
    const std::string field = mutation.damaged(markers);
    ASSERT_TRUE(hasMarker(withMarker(field, 4, {12, 34}), 4)) << field;
  }
}

TEST(StoreTextFuzz, RemovingAMarkerNeverMakesADamagedFieldLonger) {
  Mutation mutation(12, markerFragments);
  for (int i = 0; i < rounds; ++i) {
    const std::string field = mutation.damaged(markers);
    for (const std::int64_t id : {1, 4, 17, 1234}) {
      const Value rest = withoutMarker(field, id);
      ASSERT_LE(rest.toText().size(), field.size()) << field;
      ASSERT_FALSE(rest.isText() && rest.toText().empty()) << field;
    }
  }
}

TEST(StoreTextFuzz, ThePlaceOfAMarkerIsReadFromAnything) {
  Mutation mutation(13, markerFragments);
  for (int i = 0; i < rounds; ++i) {
    const std::string field = mutation.damaged(markers);
    const TwipsPoint place = markerPosition(field, 4).value_or(TwipsPoint());
    ASSERT_LT(std::abs(place.x), 10000) << field;
    ASSERT_LT(std::abs(place.y), 10000) << field;
  }
}

TEST(StoreTextFuzz, OnlyWhatHasAValueIsNumeric) {
  Mutation mutation(14,
                    {"1e3", "$", "(", ")", "&H", "&O", ",", ".", "-", "+", " ", "d", "\xC3\xA4"});
  int numbers = 0;
  for (int i = 0; i < rounds; ++i) {
    const std::string text = mutation.damaged("-$1,990.5e2");
    const auto value = numericValue(text);
    ASSERT_EQ(isNumeric(text), value.has_value()) << text;
    if (value) {
      ASSERT_TRUE(std::isfinite(*value)) << text;
      ++numbers;
    }
    static_cast<void>(leadingNumber(text));
  }
  EXPECT_GT(numbers, 0);
}

TEST(StoreTextFuzz, EveryIdHasAnOriginAndAStem) {
  Mutation mutation(15, {"HD", "CD", "\\", "/", "..", "'"});
  for (int i = 0; i < rounds; ++i) {
    const std::string id = mutation.damaged("HD00012");
    static_cast<void>(originOf(id));
    ASSERT_LE(stemOf(id).size(), id.size());
  }
}

TEST(StoreTextFuzz, MountsAreReadFromAnything) {
  const TemporaryFolder folder;
  Mutation mutation(16, {" - ", "\\040", "\\9", "\\", "\n", " ", "-", "\\134"});
  for (int i = 0; i < 300; ++i) {
    writeBytes(folder.path() / "mountinfo",
               mutation.damaged("36 25 11:0 / /media/a\\040b rw - iso9660 /dev/sr0 ro\n"
                                "37 25 11:1 / /media/c rw shared:1 - udf /dev/sr1 ro\n"));
    ASSERT_LE(readMounts(folder.path() / "mountinfo").size(), 10U);
  }
}

} // namespace
} // namespace hearthbook::test
