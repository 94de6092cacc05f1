#pragma once

#include "AlbumFixture.h"
#include "BoundControls.h"
#include "BoxScript.h"
#include "FormControls.h"
#include "Forms.h"
#include "NameItems.h"
#include "NamesManager.h"
#include "PeopleCommands.h"
#include "PeopleControls.h"
#include "QtPrint.h"
#include "Text.h"
#include "YearWizard.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

namespace hearthbook::test {

/// A form with people on it and nothing else.
class CallerForm : public Form {
public:
  explicit CallerForm(Album& album)
      : Form(QStringLiteral("Caller"), Kind::Dialog),
        controls({filter, people, names, places, events, year}, [this] { return photo; }),
        commands(album, controls) {
    auto* column = new QVBoxLayout(this);
    for (QWidget* part :
         std::initializer_list<QWidget*>{filter, people, names, places, events, year})
      column->addWidget(part);
    people->setListSource({&album.data.rsAppearances, "AppearancesNames", "AppearancesID"});
    places->setListSource({&album.data.rsPlaces, "PlaceName", "PlaceID"});
    events->setListSource({&album.data.rsEvents, "EventName", "EventID"});
  }

  QComboBox* filter = new QComboBox;
  DataList* people = new DataList;
  QListWidget* names = new QListWidget;
  DataCombo* places = new DataCombo;
  DataCombo* events = new DataCombo;
  QLineEdit* year = new QLineEdit;
  std::optional<PhotoNames> photo = PhotoNames{};
  PeopleControls controls;
  PeopleCommands commands;
};

/// An album, a form with people on it, and the two dialogs that it opens, in the year 2026.
class PeopleFixture : public AlbumFixture, protected FormControls {
protected:
  PeopleFixture() {
    Forms::provide<CallerForm>([this] { return new CallerForm(album()); });
    Forms::provide<NamesManager>([this] { return new NamesManager(album()); });
    Forms::provide<YearWizard>([this] { return new YearWizard(album(), [] { return 2026; }); });
  }
  ~PeopleFixture() override { Forms::reset(); }

  CallerForm& caller() {
    auto& form = Forms::get<CallerForm>();
    if (!form.isShown())
      form.Show();
    return form;
  }

  /// What the user does in the dialog that the next command opens, and how it is left.
  template <class Dialog, class Act> void inDialog(Act act) {
    QTimer::singleShot(0, qApp, [act] {
      auto* dialog = Forms::loaded<Dialog>();
      if (!dialog || !QTest::qWaitForWindowActive(dialog)) {
        ADD_FAILURE() << "no dialog came";
        return;
      }
      act(*dialog);
      if (Forms::loaded<Dialog>() == dialog) {
        ADD_FAILURE() << "the dialog is still open";
        dialog->Unload();
      }
    });
  }

  static std::string text(const QWidget& form, const char* name) {
    return toUtf8(control<QLineEdit>(form, name)->text());
  }
  /// Types over what stands in a field; the entry is not ended.
  static void type(const QWidget& form, const char* name, const char* typed) {
    auto* field = control<QLineEdit>(form, name);
    field->setFocus();
    field->selectAll();
    field->insert(QString::fromUtf8(typed));
  }
  static void leaveField(const QWidget& form) { QTest::keyClick(form.focusWidget(), Qt::Key_Tab); }
  /// The mouse comes over a control. Sent to it alone: which of two windows lies above the other
  /// is not known without a window system.
  static void hover(QWidget& control, QPoint position = {5, 5}) {
    QMouseEvent move(QEvent::MouseMove, position, control.mapToGlobal(position), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&control, &move);
  }
  static void chooseIn(QComboBox& combo, int index) {
    combo.setCurrentIndex(index);
    Q_EMIT combo.activated(index);
  }

  Recordset& people() { return data().rsAppearances; }
  /// A field of a person as it is on the disk.
  Value stored(std::int64_t id, const char* field) {
    Recordset rows(data().AlbumDB);
    rows.Open("Select * From Appearances Where AppearancesID = " + std::to_string(id));
    return rows.atEOF() ? Value("no such person") : rows.Collect(field);
  }
  int count() {
    Recordset rows(data().AlbumDB);
    rows.Open("Select * From Appearances");
    return static_cast<int>(rows.RecordCount());
  }

  BoxScript boxes_;
};

} // namespace hearthbook::test
