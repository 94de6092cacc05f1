#pragma once

#include "PeopleForm.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>

#include <functional>

namespace hearthbook {

class DataCombo;
class DataList;

/// The controls for people that the forms of building carry, as NamesManager and YearWizard
/// see them.
class PeopleControls : public PeopleForm {
public:
  struct Parts {
    QComboBox* filter = nullptr;
    DataList* people = nullptr;
    QListWidget* names = nullptr;
    DataCombo* places = nullptr;
    DataCombo* events = nullptr;
    QLineEdit* year = nullptr;
  };
  /// Says whose names the form shows; without one it shows no photo.
  using ShownPhoto = std::function<std::optional<PhotoNames>()>;

  explicit PeopleControls(Parts parts, ShownPhoto shownPhoto = {});

  [[nodiscard]] NameEntry filter() const override;
  void setFilter(const std::vector<NameEntry>& entries, const std::string& chosen) override;
  [[nodiscard]] Choice person() const override;
  void refillPeople() override;
  void choosePerson(const Value& id) override;
  [[nodiscard]] std::vector<NameEntry> namesInPhoto() const override;
  void setNamesInPhoto(const std::vector<NameEntry>& names) override;
  [[nodiscard]] std::optional<NameEntry> chosenName() const override;
  [[nodiscard]] std::optional<PhotoNames> photoNames() const override;
  [[nodiscard]] Choice place() const override;
  [[nodiscard]] Choice event() const override;
  void setYear(const std::string& year) override;
  void focus(Field field) override;

private:
  Parts parts_;
  ShownPhoto shownPhoto_;
};

} // namespace hearthbook
