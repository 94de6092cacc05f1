#include "NamesInPhoto.h"

#include "AlbumData.h"
#include "NamesCords.h"

#include "Numbers.h"

#include <algorithm>

namespace hearthbook {
namespace {

/// The parts in front of the first empty one.
std::vector<std::string_view> idsIn(std::string_view namesInPhoto) {
  std::vector<std::string_view> ids;
  while (!namesInPhoto.empty() && namesInPhoto[0] != ',') {
    const auto end = std::min(namesInPhoto.find(','), namesInPhoto.size());
    ids.push_back(namesInPhoto.substr(0, end));
    namesInPhoto.remove_prefix(std::min(end + 1, namesInPhoto.size()));
  }
  return ids;
}

struct Person {
  std::int64_t id;
  std::string name;
};

std::vector<Person> peopleOf(Recordset& appearances) {
  std::vector<Person> people;
  appearances.Open(sources::appearances);
  people.reserve(static_cast<std::size_t>(appearances.RecordCount()));
  for (; !appearances.atEOF(); appearances.MoveNext())
    people.push_back({appearances.Collect("AppearancesID").toInteger(),
                      appearances.Collect("AppearancesNames").toText()});
  if (!people.empty())
    appearances.MoveFirst();
  return people;
}

} // namespace

std::string personKey(std::int64_t id) { return padded(id, 3); }

std::vector<std::string> namedIds(std::string_view namesInPhoto) {
  auto ids = markerEntries(namesInPhoto); // both fields have their commas alike
  ids.pop_back();
  return ids;
}

std::vector<NameEntry> PopList(Recordset& appearances, std::string_view namesInPhoto,
                               std::string_view namesCords) {
  const std::vector<Person> people = peopleOf(appearances);
  std::vector<NameEntry> list;
  for (const std::string_view id : idsIn(namesInPhoto)) {
    for (const Person& person : people) {
      if (personKey(person.id) == id)
        list.push_back(
            {(hasMarker(namesCords, person.id) ? "*" : "") + person.name, leadingNumber(id)});
    }
  }
  return list;
}

bool ChkList(const std::vector<NameEntry>& list, std::int64_t id) {
  return std::ranges::find(list, id, &NameEntry::id) != list.end();
}

Value namesInPhotoText(const std::vector<NameEntry>& list) {
  std::string text;
  for (const NameEntry& entry : list)
    text += personKey(entry.id) + ",";
  return text.empty() ? Value() : Value(text);
}

} // namespace hearthbook
