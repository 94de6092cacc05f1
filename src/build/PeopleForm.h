#pragma once

#include "NamesInPhoto.h"
#include "Value.h"

#include <optional>
#include <string>
#include <vector>

namespace hearthbook {

/// A choice in a bound list: the number behind it and the text on show. Null and empty where
/// nothing is chosen.
struct Choice {
  Value id;
  std::string text;

  bool operator==(const Choice&) const = default;
};

/// Who is in a photo, as its two fields say.
struct PhotoNames {
  std::string namesInPhoto;
  std::string namesCords;

  bool operator==(const PhotoNames&) const = default;
};

/// A form on which people are kept: the filter over the list of people, that list, and the
/// names of the photo. NamesManager and YearWizard work on whichever form opened them.
class PeopleForm {
public:
  enum class Field { Place, Event, Names };

  virtual ~PeopleForm() = default;

  [[nodiscard]] virtual NameEntry filter() const = 0; ///< empty text where none is chosen
  /// Fills the filter and chooses the entry of that text, without applying it.
  virtual void setFilter(const std::vector<NameEntry>& entries, const std::string& chosen) = 0;

  [[nodiscard]] virtual Choice person() const = 0; ///< chosen in the list of people
  virtual void refillPeople() = 0;                 ///< after rsAppearances has been reopened
  virtual void choosePerson(const Value& id) = 0;

  [[nodiscard]] virtual std::vector<NameEntry> namesInPhoto() const = 0; ///< as listed
  virtual void setNamesInPhoto(const std::vector<NameEntry>& names) = 0;
  [[nodiscard]] virtual std::optional<NameEntry> chosenName() const = 0; ///< in that list
  /// The names of the photo that the form shows; nothing where it shows none.
  [[nodiscard]] virtual std::optional<PhotoNames> photoNames() const = 0;

  [[nodiscard]] virtual Choice place() const = 0;
  [[nodiscard]] virtual Choice event() const = 0;
  virtual void setYear(const std::string& year) = 0;
  virtual void focus(Field field) = 0;
};

} // namespace hearthbook
