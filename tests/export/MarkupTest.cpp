#include "Markup.h"

#include <gtest/gtest.h>

namespace hearthbook::test {
namespace {

TEST(Markup, TextThatABrowserTakesForMarkupIsSeen) {
  for (const char* text :
       {"a <b>bold</b> day", "</td>", "<!-- not -->", "Tom &amp; Ann", "&#8364; 5", "<?x"})
    EXPECT_TRUE(looksLikeMarkup(text)) << text;
  for (const char* text : {"", "Tom & Ann", "AT&T", "1 < 2", "a <3 b", "\"quoted\"", "<", "&",
                           "two\nlines", "R & D; fun"})
    EXPECT_FALSE(looksLikeMarkup(text)) << text;
}

TEST(Markup, OldEntitiesNeedNoSemicolon) {
  for (const char* text : {"Tom &amp Ann", "&copy 2000", "&lt3", "Ann&notHer", "&#8364 5",
                           "&#x20ac", "&Eacute", "&yuml"})
    EXPECT_TRUE(looksLikeMarkup(text)) << text;
  for (const char* text : {"&euro 5", "&# 5", "&#", "&#x", "&#xg", "B&B", "&Ann", "&"})
    EXPECT_FALSE(looksLikeMarkup(text)) << text;
}

TEST(Markup, APageIsLookedThroughWhole) {
  const NameOfPerson nameOf = [](std::int64_t id) {
    return id == 4 ? std::optional<std::string>("<Ann>") : std::nullopt;
  };
  EXPECT_FALSE(looksLikeMarkup(SidePage{}, nameOf));
  for (Value SidePage::*text : {&SidePage::event, &SidePage::place, &SidePage::description}) {
    SidePage page;
    page.*text = "<i>";
    EXPECT_TRUE(looksLikeMarkup(page, nameOf));
  }
  SidePage page;
  page.namesInPhoto = "005,";
  EXPECT_FALSE(looksLikeMarkup(page, nameOf));
  page.namesInPhoto = "005,004,";
  EXPECT_TRUE(looksLikeMarkup(page, nameOf));
}

} // namespace
} // namespace hearthbook::test
