#pragma once

#include "NameFilter.h"
#include "PeopleFixture.h"
#include "PeopleRefresh.h"

namespace hearthbook::test {

inline const QString prompt = QStringLiteral("Please Type Screen Name (up to 20 characters):");
inline const QString newName = QStringLiteral("New Name");

/// The people manager, as its two ways in open it.
class NamesManagerFixture : public PeopleFixture {
protected:
  /// The dialog over somebody of that name, as "Update" opens it.
  template <class Act> void update(std::int64_t id, Act act, const char* filter = showAllEntry) {
    refreshPeople(caller().controls, people(), filter, 0);
    caller().people->setBoundText(id);
    inDialog<NamesManager>(act);
    caller().commands.updateName();
  }
  /// The dialog over somebody new, as "Add" opens it.
  template <class Act> void add(const char* name, Act act, const char* filter = showAllEntry) {
    refreshPeople(caller().controls, people(), filter, 0);
    boxes_.expectInput(prompt, newName, QString::fromUtf8(name));
    inDialog<NamesManager>(act);
    caller().commands.addName();
  }
  /// "Add New" within the dialog.
  void addAnother(const NamesManager& manager, const char* name) {
    boxes_.expectInput(prompt, newName, QString::fromUtf8(name));
    press(manager, "Command1");
  }
  static QComboBox& relation(const NamesManager& manager) {
    return *control<QComboBox>(manager, "Combo1");
  }
  static std::string relationText(const NamesManager& manager) {
    return toUtf8(relation(manager).currentText());
  }
  static void chooseName(const NamesManager& manager, std::int64_t id) {
    auto* list = control<DataList>(manager, "NamesList");
    list->setFocus();
    list->setBoundText(id);
    Q_EMIT list->chosen();
  }
  static void done(const NamesManager& manager) { press(manager, "OKButton"); }
  static void cancel(const NamesManager& manager) { press(manager, "Command2"); }
};

} // namespace hearthbook::test
