#pragma once

#include "ApplicationFolder.h"

#include <string>

namespace hearthbook {

/// What is kept from mail to mail, in a row of the help database.
struct MailPreferences {
  std::string senderName;
  std::string sender; ///< address
  std::string host;

  bool operator==(const MailPreferences&) const = default;
};

enum class MailPreference { SenderName, Sender, Host };

/// Both open the help database on a connection of their own and close it again. They throw
/// RunTimeError.
MailPreferences readMailPreferences(const ApplicationFolder& folder);
void keepMailPreference(const ApplicationFolder& folder, MailPreference which,
                        const std::string& value);

} // namespace hearthbook
