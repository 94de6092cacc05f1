#include "NameList.h"

#include "Connection.h"
#include "Words.h"

#include <optional>

namespace hearthbook {

namespace {

constexpr std::size_t longestName = 20;

std::string nameCriterion(const NameListWords& words, const std::string& name) {
  return std::string(words.nameField) + " = '" + name + "'";
}

bool holdsName(const Recordset& list, const NameListWords& words, std::string_view name) {
  const auto walker = list.Clone();
  if (walker->RecordCount() == 0)
    return false;
  walker->Find(nameCriterion(words, doubled(name, '\'')), Recordset::Start::First);
  return !walker->atEOF();
}

/// The filter is cleared; the set stands on the row of the bookmark.
void emptyField(Recordset& photos, const char* field, std::int16_t id) {
  std::optional<Recordset::Bookmark> row;
  if (photos.AbsolutePosition() > 0)
    row = photos.bookmark();
  photos.Filter(std::string(field) + " = '" + std::to_string(id) + "'");
  photos.setAll(field, {});
  photos.Filter("");
  if (row)
    photos.goTo(*row);
}

/// In the photos that are not open: those outside a search's result are the album's too.
void emptyFieldElsewhere(Connection& connection, const char* field, std::int16_t id) {
  Recordset photos(connection);
  photos.Open("SELECT * FROM PhotoAlbum WHERE " + std::string(field) + " = " + std::to_string(id));
  photos.setAll(field, {});
}

/// Reads the rows again after a change was taken back.
void readAgain(Recordset& rows, std::int64_t position) {
  if (!rows.Filter().empty())
    rows.Filter("");
  rows.Requery();
  if (position > 0)
    rows.Move(position - 1);
}

} // namespace

NewName judgeNewName(const Recordset& list, const NameListWords& words, std::string_view name) {
  if (name.empty())
    return NewName::Empty;
  if (holdsName(list, words, name))
    return NewName::AlreadyThere;
  return characterCount(name) > longestName ? NewName::TooLong : NewName::Fits;
}

void addListName(Recordset& list, const NameListWords& words, std::string_view name) {
  list.AddNew({words.nameField}, {name});
  list.MoveFirst();
}

void removeListName(Recordset& photos, Recordset& list, const NameListWords& words,
                    const std::string& name, std::int16_t id) {
  list.MoveFirst();
  list.Find(nameCriterion(words, name));
  photos.Update();
  const auto photo = photos.AbsolutePosition();
  try {
    photos.connection().transaction([&] {
      emptyField(photos, words.keyField, id);
      emptyFieldElsewhere(photos.connection(), words.keyField, id);
      list.Delete();
      list.UpdateBatch();
    });
  } catch (...) {
    readAgain(photos, photo);
    readAgain(list, 1);
    throw;
  }
  list.MoveFirst();
}

} // namespace hearthbook
