#pragma once

#include "Album.h"
#include "Form.h"
#include "PeopleForm.h"
#include "YearTable.h"

#include <functional>
#include <memory>

namespace Ui {
class YearWizard;
}

namespace hearthbook {

/// The year of an old photo, from how old somebody in it was: the years of that person's
/// life, with marks where the album has photos of the person at the same place or event.
///
/// Opened over a form on which a name, a place and an event are chosen; a click on a year, or
/// Return on its row, gives it to that form.
class YearWizard : public Form {
  Q_OBJECT
public:
  using ThisYear = std::function<int()>;

  /// `thisYear` says up to which year the table goes.
  explicit YearWizard(Album& album, ThisYear thisYear = yearOfToday);
  ~YearWizard() override;

  void workOn(PeopleForm& caller); ///< builds the table; to be called before it is shown

  static int yearOfToday();

private:
  void wireControls();
  [[nodiscard]] YearQuestion readQuestion();
  void showTable(const YearTable& table);
  void formatHeader();
  void formatRow(int row);

  void followMouse();
  void chooseClickedYear();
  void chooseYear(int row);

  Album& album_;
  ThisYear thisYear_;
  std::unique_ptr<Ui::YearWizard> ui;
  PeopleForm* caller_ = nullptr;
};

} // namespace hearthbook
