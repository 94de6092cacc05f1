#include "EditResults.h"

#include "DBeditor.h"
#include "Forms.h"
#include "Text.h"

namespace hearthbook {

void editSearchResults(Album& album) {
  auto& editor = Forms::get<DBeditor>();
  editor.setCaption(QStringLiteral("Editing Search Results For: ") +
                    toQString(album.vars.SearchSummary));
  editor.ComposeRecord();
  editor.Show();
}

} // namespace hearthbook
