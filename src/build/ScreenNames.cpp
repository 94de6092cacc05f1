#include "ScreenNames.h"

#include "MsgBox.h"
#include "People.h"
#include "Text.h"
#include "Words.h"

namespace hearthbook {

std::optional<std::string>
askScreenName(const std::function<bool(const std::string& answer)>& isTooLong) {
  for (;;) {
    const std::string answer =
        toUtf8(InputBox(QStringLiteral("Please Type Screen Name (up to 20 characters):"),
                        QStringLiteral("New Name")));
    if (trimmed(answer).empty())
      return std::nullopt;
    if (!isTooLong(answer))
      return answer;
    MsgBox(QStringLiteral("Please Type No More Then 20 Characters"), QStringLiteral("Add Name"));
  }
}

void tellDuplicateName(const Recordset& people) {
  MsgBox(toQString(duplicateNameMessage(people)), QStringLiteral("Add Name"), MsgIcon::Information);
}

} // namespace hearthbook
