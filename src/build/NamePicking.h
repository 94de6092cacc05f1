#pragma once

#include "PeopleForm.h"
#include "Recordset.h"

#include <cstdint>
#include <functional>
#include <vector>

class QComboBox;
class QListWidget;
class QPushButton;

namespace hearthbook {

/// The names of a photo, or of many: people are picked from a filtered list and put into the
/// list of names, or taken out of it.
class NamePicking {
public:
  struct Parts {
    QComboBox* filter = nullptr;
    QListWidget* names = nullptr;
    QPushButton* putIn = nullptr;
    QPushButton* takeOut = nullptr;
  };
  /// What becomes of the names, before the list shows them.
  struct Keeper {
    std::function<void(const std::vector<NameEntry>& names)> added;
    std::function<void(const std::vector<NameEntry>& left, std::int64_t id)> takenOut;
  };

  NamePicking(Recordset& people, PeopleForm& form, Parts parts, Keeper keeper = {});

  void filterPeople();
  void personChosen();
  void putIn();
  void putInByDoubleClick();
  void nameChosen();
  void takeOut();

private:
  [[nodiscard]] bool mayPutInNow() const;
  void addChosenPerson();

  Recordset& people_;
  PeopleForm& form_;
  Parts parts_;
  Keeper keeper_;
};

} // namespace hearthbook
