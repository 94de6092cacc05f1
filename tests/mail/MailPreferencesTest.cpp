#include "MailPreferences.h"

#include "AlbumFixture.h"
#include "RunTimeError.h"

namespace hearthbook::test {

namespace {

class MailPreferencesTest : public AlbumFixture {
protected:
  const ApplicationFolder& folder() { return album().folder; }
  Value stored(const char* field) {
    Recordset rows(album().helpConnection);
    rows.Open("SELECT * FROM Preferences");
    EXPECT_EQ(rows.RecordCount(), 1);
    return rows.Collect(field);
  }
};

} // namespace

TEST_F(MailPreferencesTest, WhatWasNeverKeptIsEmpty) {
  EXPECT_TRUE(stored("eMail").isNull());
  EXPECT_EQ(readMailPreferences(folder()), MailPreferences());
}

TEST_F(MailPreferencesTest, EachIsKeptInItsField) {
  keepMailPreference(folder(), MailPreference::SenderName, "Henry");
  keepMailPreference(folder(), MailPreference::Sender, "henry@example.com");
  keepMailPreference(folder(), MailPreference::Host, "mail.example.com");
  EXPECT_EQ(stored("EmailName"), Value("Henry"));
  EXPECT_EQ(stored("eMail"), Value("henry@example.com"));
  EXPECT_EQ(stored("EmailHost"), Value("mail.example.com"));
  EXPECT_EQ(readMailPreferences(folder()),
            (MailPreferences{"Henry", "henry@example.com", "mail.example.com"}));
}

TEST_F(MailPreferencesTest, ABlankTextIsKeptAsAnEmptyOne) {
  keepMailPreference(folder(), MailPreference::SenderName, "Henry");
  keepMailPreference(folder(), MailPreference::SenderName, "");
  EXPECT_FALSE(stored("EmailName").isNull());
  EXPECT_EQ(stored("EmailName"), Value(""));
}

TEST_F(MailPreferencesTest, AMissingRowIsMadeAgain) {
  album().helpConnection.execute("DELETE FROM Preferences");
  EXPECT_EQ(readMailPreferences(folder()), MailPreferences());
  keepMailPreference(folder(), MailPreference::Sender, "henry@example.com");
  EXPECT_EQ(stored("eMail"), Value("henry@example.com"));
}

TEST_F(MailPreferencesTest, AMissingDatabaseFails) {
  std::filesystem::remove(at("Data/Help.mdb"));
  EXPECT_THROW(readMailPreferences(folder()), RunTimeError);
  EXPECT_THROW(keepMailPreference(folder(), MailPreference::Host, "x"), RunTimeError);
}

} // namespace hearthbook::test
