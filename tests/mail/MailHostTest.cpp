#include "MailHost.h"

#include "RunTimeError.h"

#include <gtest/gtest.h>

namespace hearthbook::test {

TEST(MailHost, WithoutAColonThePortIs25) {
  EXPECT_EQ(mailHost("mail.example.com"), (MailHost{"mail.example.com", 25}));
}

TEST(MailHost, TheNumberBehindTheColonIsThePort) {
  EXPECT_EQ(mailHost("mail.example.com:2525"), (MailHost{"mail.example.com", 2525}));
  EXPECT_EQ(mailHost("mail.example.com: 65535"), (MailHost{"mail.example.com", 65535}));
}

TEST(MailHost, BlanksAroundItAreTakenOff) {
  EXPECT_EQ(mailHost("  mail.example.com  "), (MailHost{"mail.example.com", 25}));
  EXPECT_EQ(mailHost(" mail.example.com:26 "), (MailHost{"mail.example.com", 26}));
}

TEST(MailHost, WhatIsNoPortFails) {
  for (const char* host : {"mail:smtp", "mail:", "mail:0", "mail:-1", "mail:65536", "mail:2.5",
                           "mail:25:26", "mail:1e99", ":", "::1"})
    EXPECT_THROW(mailHost(host), RunTimeError) << host;
}

} // namespace hearthbook::test
