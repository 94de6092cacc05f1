#pragma once

#include "Recordset.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace hearthbook {

/// One of the two lists of names that photos refer to, and all that is said about it.
struct NameListWords {
  const char* nameField;
  const char* keyField; ///< in the list and in PhotoAlbum

  const char* prompt;
  const char* promptTitle;
  const char* messageTitle;
  const char* alreadyThere;

  const char* deleteQuestion;
  const char* deleteNote = "It will be removed from all photos.";
  const char* deleteTitle;
  const char* notChosen;
  const char* done;

  bool refillsAtOnce; ///< after an addition; else the drop-down stays old until the next refill
};

inline constexpr NameListWords placeWords{
    .nameField = "PlaceName",
    .keyField = "PlaceID",
    .prompt = "Please Type Place Name (up to 20 characters):",
    .promptTitle = "New Place",
    .messageTitle = "Add Place",
    .alreadyThere = "Place Is Already In List!",
    .deleteQuestion = "Are you sure you want to delete this Place?",
    .deleteTitle = "Delete Selected Place",
    .notChosen = "Please Select A Place From The list",
    .done = "The place was successfully deleted",
    .refillsAtOnce = false,
};

inline constexpr NameListWords eventWords{
    .nameField = "EventName",
    .keyField = "EventID",
    .prompt = "Please Type Event Name (up to 20 characters):",
    .promptTitle = "New Event",
    .messageTitle = "Add Event",
    .alreadyThere = "Event Is Already In List!",
    .deleteQuestion = "Are you sure you want to delete this Event?",
    .deleteTitle = "Delete Selected Event",
    .notChosen = "Please Select An Event From The list",
    .done = "The event was successfully deleted",
    .refillsAtOnce = true,
};

/// The same words with another note in the question before a deletion.
constexpr NameListWords withDeleteNote(NameListWords words, const char* note) {
  words.deleteNote = note;
  return words;
}

/// What is to be said to the name typed for a new row of a list.
enum class NewName { Empty, AlreadyThere, TooLong, Fits };

/// Names are the same without regard to case. `name` is trimmed.
NewName judgeNewName(const Recordset& list, const NameListWords& words, std::string_view name);

/// Stores a row of that name; the list then stands on its first.
void addListName(Recordset& list, const NameListWords& words, std::string_view name);

/// Takes the row of that name out of the list and its id out of all photos of the album, as one
/// transaction. `photos` are those that are open, perhaps a search's result: they show it, their
/// filter is then cleared, and they stand where they stood. An apostrophe in the name makes the
/// search fail, and nothing is changed.
void removeListName(Recordset& photos, Recordset& list, const NameListWords& words,
                    const std::string& name, std::int16_t id);

} // namespace hearthbook
