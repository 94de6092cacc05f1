#pragma once

#include "PagePaging.h"
#include "PublicVar.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace hearthbook {

/// Where one is in the album, page by page. The set of photos stands behind the page shown.
struct AlbumPaging {
  PagePaging pages;

  /// The position with which the page begins; nothing where there are no more records.
  [[nodiscard]] std::optional<std::int64_t> next() const;
  [[nodiscard]] std::optional<std::int64_t> previous() const;
  [[nodiscard]] std::int64_t last() const { return pages.last(); }

  /// "Page 2 of 5", of the page that was just composed.
  [[nodiscard]] std::string label() const;
  /// The same for the first page, wherever the set stands.
  [[nodiscard]] std::string firstLabel() const;

  /// How many rows behind the first the page begins to which one returns, after the record
  /// editor was closed or a batch was edited.
  [[nodiscard]] std::int64_t returnRowOfEditor() const;
  [[nodiscard]] std::int64_t returnRowOfBatch() const;
};

AlbumPaging albumPaging(const Recordset& rsViewer, std::int64_t viewPageCount);

/// Where a photo will stand when its page is turned to.
struct PlaceOnPage {
  std::string id;
  int cell = 0;

  bool operator==(const PlaceOnPage&) const = default;
};

/// The photos of the pages behind and before the one shown, those behind first.
std::vector<PlaceOnPage> neighbourPages(const Recordset& rsViewer, std::int64_t viewPageCount);

/// Puts rsViewer on the photos with which the pages of a search's results begin: all of them
/// from the first page, where one photo is selected from its page; several selected ones become
/// the set themselves, and the selection is put in order.
void beginWithSelection(PublicVar& vars);

} // namespace hearthbook
