#include "MailPreferences.h"

#include "Connection.h"
#include "Recordset.h"

namespace hearthbook {

namespace {

constexpr const char* fieldOf(MailPreference which) {
  switch (which) {
  case MailPreference::SenderName:
    return "EmailName";
  case MailPreference::Sender:
    return "eMail";
  case MailPreference::Host:
    break;
  }
  return "EmailHost";
}

/// The row, for as long as it is read or written.
struct OpenPreferences {
  explicit OpenPreferences(const ApplicationFolder& folder) {
    connection.Open(folder.path("\\Data\\Help.mdb"));
    rows.Open("SELECT * FROM Preferences");
  }

  Connection connection;
  Recordset rows{connection};
};

} // namespace

MailPreferences readMailPreferences(const ApplicationFolder& folder) {
  const OpenPreferences preferences(folder);
  if (!standsOnRow(preferences.rows))
    return {};
  const auto text = [&](MailPreference which) {
    return preferences.rows.Collect(fieldOf(which)).toText();
  };
  return {text(MailPreference::SenderName), text(MailPreference::Sender),
          text(MailPreference::Host)};
}

void keepMailPreference(const ApplicationFolder& folder, MailPreference which,
                        const std::string& value) {
  OpenPreferences preferences(folder);
  if (!standsOnRow(preferences.rows))
    preferences.rows.AddNew();
  preferences.rows.Collect(fieldOf(which), Value(value));
  preferences.rows.Update();
}

} // namespace hearthbook
