#include "PageToMail.h"

#include "PageCells.h"
#include "Text.h"

namespace hearthbook {

MailPage pageToMail(const PageCells& cells) {
  MailPage page;
  for (int i = 0; i < photosOnPage; ++i) {
    const PageCells::Cell& cell = cells.at(i);
    if (!cell.frame->isVisibleTo(cell.frame->parentWidget()))
      break;
    if (cell.frame->isSelected() && !page.selected)
      page.selected = page.photos.size();
    page.photos.push_back(
        {cell.tag, toUtf8(cell.facts->yearText()), toUtf8(cell.facts->placeText())});
  }
  return page;
}

} // namespace hearthbook
