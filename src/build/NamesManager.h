#pragma once

#include "Album.h"
#include "BoundControls.h"
#include "Form.h"
#include "PeopleForm.h"

#include <memory>
#include <string>

namespace Ui {
class NamesManager;
}

namespace hearthbook {

class ModalHelp;

/// The people who can be named in photos: their names, birthdays, and to whom of the family
/// they belong.
///
/// Opened over a form with people on it, for somebody just added or to update the person
/// chosen there. "Done" keeps what was entered; "Cancel" removes the person added last, or
/// writes back what the opener's lists show. Both bring the opener's lists up to date. The
/// caption is the mode.
class NamesManager : public Form {
  Q_OBJECT
public:
  explicit NamesManager(Album& album);
  ~NamesManager() override;

  void workOn(PeopleForm& caller); ///< to be called before it is shown
  void beginAddition();            ///< the person on whom rsAppearances stands is new
  void beginUpdate();
  void beginBirthYear(); ///< an update for the sake of the year

protected:
  void load() override;
  void closeEvent(QCloseEvent* event) override;

private:
  void wireControls();
  void bindFields();
  void setFaces();

  void showCurrent();
  void rebuildRelations();
  void showRelation(int indexIfUnknown);

  void chooseName();
  void chooseRelation();
  void addAnother();
  void done();
  void giveUp();
  void undo(const Choice& person, const NameEntry& filter, bool isAddition);

  bool endScreenName();
  bool refuseLongName();
  bool endBirthday();
  bool endBirthYear();

  [[nodiscard]] std::string screenName() const;

  Album& album_;
  Recordset& people_;
  std::unique_ptr<Ui::NamesManager> ui;
  Binding binding_;
  PeopleForm* caller_ = nullptr;
  ModalHelp* modalHelp_ = nullptr;
};

} // namespace hearthbook
