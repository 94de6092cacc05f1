#include "JetSql.h"

#include "SelectShape.h"

#include <gtest/gtest.h>

#include <string>

namespace hearthbook {
namespace {

TEST(JetSql, LeavesOrdinaryStatementsAsTheyAre) {
  for (const char* statement :
       {"", " ", "SELECT * FROM PhotoAlbum  ORDER BY Year, PictureID",
        "DELETE FROM SubAlbumPhotos WHERE AlbumID = 3",
        "SELECT a.b FROM a WHERE c = 'it''s .index'",
        "SELECT [Index], `Index`, \"Index\" FROM t -- a.index\n", "SELECT 1.5, .5, t.*  FROM t;",
        "INSERT INTO t(a) VALUES('x.index')", "SELECT /* t.index */ 1"})
    EXPECT_EQ(toSqlite(statement), statement);
}

TEST(JetSql, QuotesReservedWordsBehindADot) {
  EXPECT_EQ(toSqlite("ORDER BY SubAlbumPhotos.index"), "ORDER BY SubAlbumPhotos.[index]");
  EXPECT_EQ(toSqlite("ORDER BY SubAlbumPhotos . Index, b"), "ORDER BY SubAlbumPhotos . [Index], b");
  EXPECT_EQ(toSqlite("[a].Order = `b`.INDEX"), "[a].[Order] = `b`.[INDEX]");
  EXPECT_EQ(toSqlite("a.Year"), "a.Year");
}

TEST(JetSql, DropsTheTableBeforeSetTargets) {
  EXPECT_EQ(toSqlite("UPDATE t SET t.[Index] = 0 WHERE t.PhotoID = 'x'"),
            "UPDATE t SET [Index] = 0 WHERE t.PhotoID = 'x'");
  EXPECT_EQ(toSqlite("update t set t.a = t.b + f(t.c, t.d), t.index=2, e = 3"),
            "update t set a = t.b + f(t.c, t.d), [index]=2, e = 3");
  EXPECT_EQ(toSqlite("UPDATE t SET Index = 3"), "UPDATE t SET [Index] = 3");
}

TEST(JetSql, NeverTouchesTexts) {
  EXPECT_EQ(toSqlite("UPDATE t SET t.a = 'x, t.b = 3 where t.index it''s', t.c = t.c + 1"),
            "UPDATE t SET a = 'x, t.b = 3 where t.index it''s', c = t.c + 1");
  EXPECT_EQ(toSqlite("UPDATE t SET t.a = 'open, t.b"), "UPDATE t SET a = 'open, t.b");
}

TEST(JetSql, DropsTheStarOfDelete) {
  EXPECT_EQ(toSqlite("DELETE * FROM t WHERE a = 3"), "DELETE  FROM t WHERE a = 3");
  EXPECT_EQ(toSqlite("SELECT * FROM t"), "SELECT * FROM t");
}

std::string chain(int terms) {
  std::string text = "a=0";
  for (int i = 1; i < terms; ++i)
    text += " OR a=" + std::to_string(i);
  return text;
}

TEST(JetSql, BracketsOnlyLongChainsOfOr) {
  const std::string shortOne = "SELECT * FROM t WHERE " + chain(401) + " ORDER BY a";
  EXPECT_EQ(toSqlite(shortOne), shortOne);
  const std::string longOne = toSqlite("SELECT * FROM t WHERE " + chain(402) + " ORDER BY a");
  EXPECT_TRUE(longOne.starts_with("SELECT * FROM t WHERE (a=0 OR a=1"));
  EXPECT_TRUE(longOne.ends_with("OR a=399 ) OR ( a=400 OR a=401) ORDER BY a")) << longOne;
}

TEST(JetSql, BracketsChainsWithinBracketsAndKeepsOtherConditions) {
  const std::string text = toSqlite("SELECT * FROM t WHERE (" + chain(500) + ") AND b = f(1, 2)");
  EXPECT_TRUE(text.starts_with("SELECT * FROM t WHERE ((a=0"));
  EXPECT_TRUE(text.ends_with("OR a=499)) AND b = f(1, 2)"));
}

TEST(JetSql, IsTheSameWhenTakenTwice) {
  const std::string once = toSqlite("UPDATE t SET t.index = 1 WHERE " + chain(5'000));
  EXPECT_EQ(toSqlite(once), once);
}

TEST(SelectShape, SeesWhetherRowsCanBeWrittenBack) {
  EXPECT_TRUE(selectShape("SELECT * FROM a, b").plain);
  EXPECT_TRUE(selectShape("select x from a where b in (select max(c) from d group by e)").plain);
  for (const char* select : {"SELECT DISTINCT x FROM a", "SELECT x FROM a GROUP BY x",
                             "SELECT count(*) FROM a", "SELECT x, Max (y) FROM a", "DELETE FROM a",
                             "SELECT x FROM a UNION SELECT y FROM b", "VALUES (1)", ""})
    EXPECT_FALSE(selectShape(select).plain) << select;
}

TEST(SelectShape, KnowsTheSoleTable) {
  for (const char* select : {"SELECT * FROM a", "SELECT * FROM [a];", "SELECT x FROM a WHERE y = 1",
                             "SELECT x FROM a AS b LIMIT 3", "SELECT x FROM a b ORDER BY x"})
    EXPECT_EQ(selectShape(select).soleTable, "a") << select;
  for (const char* select : {"SELECT * FROM a, b", "SELECT * FROM a LEFT JOIN b ON c = d",
                             "SELECT * FROM (SELECT 1)", "SELECT 1", "SELECT DISTINCT x FROM a"})
    EXPECT_EQ(selectShape(select).soleTable, "") << select;
}

TEST(SelectShape, KnowsWhetherTheRowsHaveAnOrder) {
  EXPECT_TRUE(selectShape("SELECT * FROM a order by x").ordered);
  EXPECT_FALSE(selectShape("SELECT * FROM a WHERE b IN (SELECT c FROM d ORDER BY e)").ordered);
}

TEST(SelectShape, PutsAnOrderWhereItBelongs) {
  EXPECT_EQ(withOrder("SELECT * FROM a;", {"x", "y\"z"}),
            "SELECT * FROM a ORDER BY \"x\", \"y\"\"z\" ;");
  EXPECT_EQ(withOrder("SELECT * FROM a WHERE b", {"x", "y"}),
            "SELECT * FROM a WHERE b\n ORDER BY +\"x\", +\"y\"");
  EXPECT_EQ(withOrder("SELECT * FROM a LIMIT 3", {"x"}), "SELECT * FROM a  ORDER BY \"x\" LIMIT 3");
  EXPECT_EQ(withOrder("SELECT * FROM a -- all", {"x"}), "SELECT * FROM a -- all\n ORDER BY \"x\"");
}

TEST(SelectShape, PutsAColumnInFront) {
  EXPECT_EQ(withColumn(" SELECT x FROM a", "a", "k"), " SELECT \"a\".\"k\", x FROM a");
  EXPECT_EQ(withColumn("SELECT ALL x FROM a", "a", "k"), "SELECT ALL \"a\".\"k\", x FROM a");
}

TEST(SelectShape, ABareNameIsAWholeTable) {
  EXPECT_EQ(asSelect("Places"), "SELECT * FROM \"Places\"");
  EXPECT_EQ(asSelect(" [Two words] "), "SELECT * FROM \"Two words\"");
  EXPECT_EQ(asSelect("SELECT 1"), "SELECT 1");
  EXPECT_EQ(asSelect(""), "");
}

} // namespace
} // namespace hearthbook
