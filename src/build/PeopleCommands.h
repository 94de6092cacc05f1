#pragma once

#include "Album.h"
#include "PeopleForm.h"

namespace hearthbook {

/// "Add", "Update" and "Find Year" of a form with people on it.
class PeopleCommands {
public:
  /// How "Find Year" asks for what it needs.
  struct YearManners {
    PeopleForm::Field askedFirst = PeopleForm::Field::Event; ///< of event and place
    bool asksBirthYear = true; ///< in a box; else the people manager is opened for it
  };

  PeopleCommands(Album& album, PeopleForm& form) : PeopleCommands(album, form, YearManners{}) {}
  PeopleCommands(Album& album, PeopleForm& form, YearManners manners)
      : album_(album), form_(form), manners_(manners) {}

  void addName();
  void updateName();
  void findYear();

private:
  [[nodiscard]] bool isReadyForYear();
  [[nodiscard]] bool isChosen(PeopleForm::Field field) const;
  bool hasBirthYear();
  bool askBirthYear();
  void openForBirthYear();

  Album& album_;
  PeopleForm& form_;
  YearManners manners_;
};

} // namespace hearthbook
