#include "YearWizard.h"

#include "Command.h"
#include "Numbers.h"
#include "People.h"
#include "RunTimeError.h"
#include "Text.h"
#include "ui_YearWizard.h"

#include <QDate>

#include <utility>

namespace hearthbook {

namespace {

const QColor yearBack(180, 200, 220);
const QColor choiceColour(255, 200, 22); // the mouse is on the chosen row
const QColor restColour(128, 0, 0);

constexpr int yearColumn = 0;
constexpr int personColumn = 1;
constexpr int placeColumn = 2;
constexpr int eventColumn = 3;

} // namespace

YearWizard::YearWizard(Album& album, ThisYear thisYear)
    : Form(QStringLiteral("YearWizard"), Kind::Dialog), album_(album),
      thisYear_(std::move(thisYear)), ui(std::make_unique<Ui::YearWizard>()) {
  ui->setupUi(this);
  wireControls();
}

YearWizard::~YearWizard() = default;

void YearWizard::wireControls() {
  FlexGrid* years = ui->MSFlexGrid1;
  years->setSelection(restColour, FlexGrid::FocusRect::None);
  connect(years, &FlexGrid::mouseMoved, this, &YearWizard::followMouse);
  connect(years, &FlexGrid::gridClicked, this, asCommand([this] { chooseClickedYear(); }));
  connect(years, &FlexGrid::returnPressed, this,
          asCommand([this] { chooseYear(ui->MSFlexGrid1->row()); }));
}

int YearWizard::yearOfToday() { return QDate::currentDate().year(); }

void YearWizard::workOn(PeopleForm& caller) {
  caller_ = &caller;
  const YearQuestion question = readQuestion();
  showTable(yearTable(album_.data.AlbumDB, question));
}

YearQuestion YearWizard::readQuestion() {
  Recordset& people = album_.data.rsAppearances;
  openEverybody(people);
  YearQuestion question;
  question.personId = shortNumber(caller_->chosenName().value_or(NameEntry{}).id);
  question.placeId = caller_->place().id.toInteger();
  question.eventId = caller_->event().id.toInteger();
  album_.vars.WizardPlaceID = question.placeId;
  if (!personById(people, question.personId))
    throw RunTimeError("The album has no person of the number " +
                       std::to_string(question.personId) + ".");
  question.birthYear = firstYear(people.Collect("BirthYear"));
  question.currentYear = thisYear_();
  ui->MSFlexGrid1->setFormat(toQString(yearTableFormat(
      people.Collect("AppearancesNames").toText(), caller_->place().text, caller_->event().text)));
  return question;
}

void YearWizard::showTable(const YearTable& table) {
  FlexGrid* years = ui->MSFlexGrid1;
  years->clearRows();
  int row = 0;
  for (const YearRow& year : table.rows) {
    years->addRow(toQString(yearRowText(year)), ++row);
    formatRow(row);
  }
  formatHeader();
  years->shareWidthFrom(personColumn);
  years->setRow(table.firstHit);
  years->setTopRow(table.topRow());
}

void YearWizard::formatRow(int row) {
  constexpr int height = 350;
  constexpr double markPoints = 16;
  FlexGrid* years = ui->MSFlexGrid1;
  years->setCellBack(row, yearColumn, yearBack);
  years->setCellBold(row, yearColumn);
  for (const int column : {placeColumn, eventColumn}) {
    years->setCellBold(row, column);
    years->setCellPoints(row, column, markPoints);
  }
  years->setRowTwips(row, height);
}

void YearWizard::formatHeader() {
  constexpr int height = 300;
  ui->MSFlexGrid1->setRowTwips(0, height);
  for (int column = personColumn; column < ui->MSFlexGrid1->cols(); ++column)
    ui->MSFlexGrid1->setCellBold(0, column);
}

void YearWizard::followMouse() {
  FlexGrid* years = ui->MSFlexGrid1;
  if (years->mouseRow() == years->row())
    years->setSelection(choiceColour, FlexGrid::FocusRect::Heavy);
  else
    years->setSelection(restColour, FlexGrid::FocusRect::None);
}

void YearWizard::chooseClickedYear() {
  const FlexGrid* years = ui->MSFlexGrid1;
  if (years->mouseRow() == years->row() && years->mouseCol() == yearColumn)
    chooseYear(years->row());
}

void YearWizard::chooseYear(int row) {
  if (row < 1) // the header
    return;
  const std::string year = toUtf8(ui->MSFlexGrid1->cellText(row, yearColumn));
  Unload();
  caller_->setYear(year);
}

} // namespace hearthbook
