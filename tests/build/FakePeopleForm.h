#pragma once

#include "PeopleForm.h"

#include <string>
#include <vector>

namespace hearthbook::test {

/// A form with people on it, without a window: what is set can be read.
class FakePeopleForm : public PeopleForm {
public:
  [[nodiscard]] NameEntry filter() const override { return chosenFilter; }
  void setFilter(const std::vector<NameEntry>& entries, const std::string& chosen) override {
    filterEntries = entries;
    for (const NameEntry& entry : entries)
      if (entry.text == chosen)
        chosenFilter = entry;
  }

  [[nodiscard]] Choice person() const override { return chosenPerson; }
  void refillPeople() override { ++refills; }
  void choosePerson(const Value& id) override { chosenPerson.id = id; }

  [[nodiscard]] std::vector<NameEntry> namesInPhoto() const override { return names; }
  void setNamesInPhoto(const std::vector<NameEntry>& shown) override { names = shown; }
  [[nodiscard]] std::optional<NameEntry> chosenName() const override { return {}; }
  [[nodiscard]] std::optional<PhotoNames> photoNames() const override { return photo; }

  [[nodiscard]] Choice place() const override { return {}; }
  [[nodiscard]] Choice event() const override { return {}; }
  void setYear(const std::string& set) override { year = set; }
  void focus(Field) override {}

  std::vector<NameEntry> filterEntries;
  NameEntry chosenFilter;
  Choice chosenPerson;
  int refills = 0;
  std::vector<NameEntry> names;
  std::optional<PhotoNames> photo;
  std::string year;
};

} // namespace hearthbook::test
