#include "Mutation.h"

#include "Criterion.h"
#include "JetSql.h"
#include "RunTimeError.h"
#include "SelectShape.h"
#include "SqlTokens.h"
#include "TextOrder.h"

#include <gtest/gtest.h>

namespace hearthbook::test {
namespace {

constexpr int rounds = 20'000;

const std::vector<std::string> sqlFragments{
    "'",    "\"",   "`",    "[",     "]",     "(",       ")",       ".",
    ",",    ";",    " OR ", " SET ", " or ",  "WHERE ",  "index",   "CASE ",
    "END ", "--",   "/*",   "*/",    "*",     "''",      "\n",      "NULL",
    "é",    "\xFF", "1.5e", "<>",    " AND ", "SELECT ", "UPDATE ", "DELETE "};

const std::vector<std::string> statements{
    "SELECT PhotoAlbum.* From PhotoAlbum, SubAlbumPhotos Where PhotoAlbum.PictureID = "
    "SubAlbumPhotos.PhotoID AND (SubAlbumPhotos.AlbumID = 3) ORDER BY SubAlbumPhotos.index",
    "UPDATE SubAlbumPhotos SET SubAlbumPhotos.[Index] = 0, SubAlbumPhotos.PhotoID = 'it''s' WHERE "
    "SubAlbumPhotos.PhotoID = 'HD00001'",
    "DELETE * FROM SubAlbumPhotos WHERE AlbumID = 3",
    "SELECT * FROM PhotoAlbum WHERE (NamesInPhoto LIKE '%007%') AND (Year >= 1990) ORDER BY Year",
};

std::string orChain(std::size_t terms) {
  std::string text = "SELECT * FROM t WHERE (a = 0";
  for (std::size_t i = 0; i < terms; ++i)
    text += " OR a=1";
  return text + ")";
}

TEST(DatabaseTextFuzz, TokensPutTogetherAreTheStatement) {
  Mutation mutation(1, sqlFragments);
  for (int i = 0; i < rounds; ++i) {
    const std::string text = mutation.damaged(statements[mutation.below(statements.size())]);
    ASSERT_EQ(joined(sqlTokens(text)), text);
  }
}

TEST(DatabaseTextFuzz, TranslationOfATranslationIsTheSame) {
  Mutation mutation(2, sqlFragments);
  for (int i = 0; i < rounds; ++i) {
    const std::string once =
        toSqlite(mutation.damaged(statements[mutation.below(statements.size())]));
    ASSERT_EQ(toSqlite(once), once);
  }
}

TEST(DatabaseTextFuzz, LongChainsInDamagedStatementsAreTranslated) {
  Mutation mutation(3, sqlFragments);
  for (int i = 0; i < 60; ++i) {
    const std::string once = toSqlite(mutation.damaged(orChain(700)));
    ASSERT_EQ(toSqlite(once), once);
  }
}

TEST(DatabaseTextFuzz, ShapesAreReadFromAnything) {
  Mutation mutation(4, sqlFragments);
  for (int i = 0; i < rounds; ++i) {
    const std::string text = mutation.damaged(statements[mutation.below(statements.size())]);
    const SelectShape shape = selectShape(text);
    ASSERT_TRUE(shape.plain || shape.soleTable.empty());
    ASSERT_FALSE(withOrder(asSelect(text), {"a"}).empty());
  }
}

TEST(DatabaseTextFuzz, CriteriaAreTakenOrRefused) {
  Mutation mutation(5, sqlFragments);
  const std::vector<std::string> criteria{"Year = Null", "AppearancesNames = 'O''Brien'",
                                          "PictureID = 'HD00001' Or PictureID = 'HD00002'",
                                          "(Year >= 1990 AND Year <= 1995) OR [Index] = -1.5"};
  int refused = 0;
  for (int i = 0; i < rounds; ++i) {
    try {
      parseCriterion(mutation.damaged(criteria[mutation.below(criteria.size())]));
    } catch (const RunTimeError&) {
      ++refused;
    }
  }
  EXPECT_GT(refused, 0);
  EXPECT_LT(refused, rounds);
}

TEST(DatabaseTextFuzz, TextsOfAnyBytesCompareBothWaysAlike) {
  Mutation mutation(6, {"é", "e\u0301", "\xFF", "ß", "SS", "%", "_", "\u00ad"});
  for (int i = 0; i < rounds; ++i) {
    const std::string left = mutation.damaged("Émile 12");
    const std::string right = mutation.damaged("émile 12");
    ASSERT_EQ(compareText(left, right) < 0, compareText(right, left) > 0);
    ASSERT_EQ(sameText(left, right), compareText(left, right) == 0) << left << "|" << right;
    ASSERT_TRUE(LikePattern("%").matches(left));
    static_cast<void>(LikePattern(left).matches(right));
  }
}

} // namespace
} // namespace hearthbook::test
