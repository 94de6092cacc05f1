#include "AlbumPaging.h"

#include "AlbumPage.h"
#include "Numbers.h"

namespace hearthbook {

namespace {

std::string pageText(std::int64_t page, std::int64_t pages) {
  return "Page " + std::to_string(page) + " of " + std::to_string(pages);
}

void addPage(std::vector<PlaceOnPage>& photos, Recordset& walker, std::int64_t position) {
  walker.Move(position - 1, Recordset::Start::First);
  for (int cell = 0; cell < photosOnPage && !walker.atEOF(); ++cell, walker.MoveNext())
    photos.push_back({walker.Collect("PictureID").toText(), cell});
}

} // namespace

std::optional<std::int64_t> AlbumPaging::next() const {
  return pages.atEnd ? std::nullopt : std::optional(pages.position);
}

std::optional<std::int64_t> AlbumPaging::previous() const {
  constexpr int behindFirstPage = photosOnPage + 1;
  return pages.position == behindFirstPage ? std::nullopt : pages.previous();
}

// From a page that does not begin with a multiple of four the number is the nearest one.
std::string AlbumPaging::label() const {
  const std::int64_t all = pages.pages();
  const double page = static_cast<double>(pages.position) / photosOnPage;
  return pageText(pages.atEnd ? all : roundHalfEven(page), all);
}

std::string AlbumPaging::firstLabel() const { return pageText(1, pages.pages()); }

std::int64_t AlbumPaging::returnRowOfEditor() const { return pages.returnRow(1); }

std::int64_t AlbumPaging::returnRowOfBatch() const { return pages.returnRow(2); }

AlbumPaging albumPaging(const Recordset& rsViewer, std::int64_t viewPageCount) {
  return {pagePaging(rsViewer, photosOnPage, viewPageCount)};
}

std::vector<PlaceOnPage> neighbourPages(const Recordset& rsViewer, std::int64_t viewPageCount) {
  std::vector<PlaceOnPage> neighbours;
  const AlbumPaging paging = albumPaging(rsViewer, viewPageCount);
  if (paging.pages.recordCount == 0)
    return neighbours;
  const auto walker = rsViewer.Clone();
  for (const auto page : {paging.next(), paging.previous()})
    if (page)
      addPage(neighbours, *walker, *page);
  return neighbours;
}

void beginWithSelection(PublicVar& vars) {
  Recordset& photos = *vars.rsViewer;
  if (vars.selection.SelectedCount > 1) {
    vars.selection.sortAndGrow();
    const std::string statement = selectedPhotosStatement(vars.selection, photos);
    photos.Close();
    photos.Open(statement);
    return;
  }
  const auto selected = vars.selection.first();
  if (vars.selection.SelectedCount == 1 && selected)
    photos.Move(pageStart(*selected, photosOnPage), Recordset::Start::First);
  else if (photos.RecordCount() > 0)
    photos.MoveFirst();
}

} // namespace hearthbook
