#pragma once

#include "Album.h"
#include "PeopleForm.h"

namespace hearthbook {

/// "Add", "Update" and "Find Year" of a form with people on it.
class PeopleCommands {
public:
  PeopleCommands(Album& album, PeopleForm& form) : album_(album), form_(form) {}

  void addName();
  void updateName();
  void findYear();

private:
  [[nodiscard]] bool isReadyForYear();
  bool askBirthYear();

  Album& album_;
  PeopleForm& form_;
};

} // namespace hearthbook
