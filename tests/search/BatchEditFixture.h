#pragma once

#include "BatchEdit.h"
#include "BoundControls.h"
#include "EditorFixture.h"
#include "NameItems.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTimer>

#include <optional>
#include <vector>

namespace hearthbook::test {

/// Stands where Search stands: notes what it is told.
class ResultsWatch : public Form {
public:
  ResultsWatch() : Form(QStringLiteral("Search"), Kind::Work) {}

  void rowsChanged(const RowsChanged& change) override { told.push_back(change); }

  std::vector<RowsChanged> told;
};

/// Photos HD00001 to HD00006 found by a search that stands behind its first page, a place, an
/// event and three people, and the form of batch editing.
class BatchEditFixture : public EditorFixture {
protected:
  BatchEditFixture() {
    folder_.addPlace("Lake");
    folder_.addPlace("Home");
    folder_.addEvent("Picnic");
    folder_.addEvent("Wedding");
    anna_ = folder_.addPerson("Anna");
    ben_ = folder_.addPerson("Ben");
    cousin_ = folder_.addPerson("Cousin", anna_);
    addPhotosUpTo(6);
    vars().SearchSummary = "Lake, From 1990 ";
    Forms::provide<BatchEdit>([this] { return new BatchEdit(album()); });
    Forms::provide<ResultsWatch>([] { return new ResultsWatch; });
    search("SELECT * FROM PhotoAlbum  ORDER BY Year, PictureID");
  }

  void search(const std::string& statement) {
    vars().rsSearch = std::make_unique<Recordset>(data().AlbumDB);
    results().Open(statement);
    results().Move(results().RecordCount());
  }
  void select(std::initializer_list<int> positions) {
    for (const int position : positions)
      vars().selection.select(position);
  }
  void set(const std::string& photo, const std::string& assignment) {
    data().AlbumDB.execute("UPDATE PhotoAlbum SET " + assignment + " WHERE PictureID = '" + photo +
                           "'");
    results().Requery();
    results().Move(results().RecordCount());
  }

  BatchEdit& openBatch(const SearchCriteria& searched = {}) {
    auto& batch = Forms::get<BatchEdit>();
    batch.workOn(searched);
    batch.Show();
    QCoreApplication::processEvents();
    return batch;
  }
  static bool isOpen() { return Forms::loaded<BatchEdit>() != nullptr; }
  static ResultsWatch& watch() { return Forms::get<ResultsWatch>(); }

  static void type(const QWidget& form, const char* field, const char* text) {
    auto* edit = control<QLineEdit>(form, field);
    edit->setFocus();
    edit->setText(toQString(text));
  }
  static void describe(const QWidget& form, const char* text) {
    control<QPlainTextEdit>(form, "Description")->setPlainText(toQString(text));
  }
  static void choose(const QWidget& form, const char* dropDown, const char* text) {
    control<DataCombo>(form, dropDown)->setText(toQString(text));
  }
  static DataList& people(const QWidget& form) { return *control<DataList>(form, "DataList1"); }
  static QListWidget& names(const QWidget& form) { return *control<QListWidget>(form, "List2"); }
  static void choosePerson(const QWidget& form, const char* name) {
    auto& list = people(form);
    for (int row = 0; row < list.model()->rowCount(); ++row)
      if (const auto index = list.model()->index(row, 0); index.data() == toQString(name))
        return QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                                 list.visualRect(index).center());
    ADD_FAILURE() << "no person " << name;
  }
  static void chooseName(const QWidget& form, int row) {
    auto& list = names(form);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualItemRect(list.item(row)).center());
  }
  static void putIn(const QWidget& form, const char* name) {
    choosePerson(form, name);
    press(form, "Command2");
  }
  static void filterBy(const QWidget& form, const char* text) {
    auto* filter = control<QComboBox>(form, "Combo1");
    const int index = filter->findText(toQString(text));
    ASSERT_GE(index, 0) << text;
    filter->setCurrentIndex(index);
    Q_EMIT filter->activated(index);
  }
  static QStringList textsOf(QAbstractItemView& list) {
    QStringList texts;
    for (int row = 0; row < list.model()->rowCount(); ++row)
      texts << list.model()->index(row, 0).data().toString();
    return texts;
  }
  static QStringList texts(std::initializer_list<const char*> wanted) {
    QStringList list;
    for (const char* text : wanted)
      list << toQString(text);
    return list;
  }
  /// What the user does in the dialog that the next command opens.
  template <class Dialog, class Act> void inDialog(Act act) {
    QTimer::singleShot(0, qApp, [act] {
      auto* dialog = Forms::loaded<Dialog>();
      ASSERT_NE(dialog, nullptr);
      act(*dialog);
      if (Forms::loaded<Dialog>() == dialog)
        dialog->Unload();
    });
  }

  void expectUpdateAsked(int count, MsgAnswer answer) {
    boxes_.expectQuestion(
        QStringLiteral("Are you sure you want to Update %1 selected records?").arg(count), {},
        MsgIcon::None, MsgButtons::YesNo, answer);
  }
  void expectEditAsked(MsgAnswer answer) {
    boxes_.expectQuestion(toQString("Do you want to separately edit the selected photos?"),
                          toQString("Batch Edit"), MsgIcon::Question, MsgButtons::YesNo, answer);
  }
  void expectDeletionAsked(int count, MsgAnswer answer) {
    boxes_.expectQuestion(QStringLiteral("Are you sure you want to delete %1 selected records?\n"
                                         "The files will be deleted as well!")
                              .arg(count),
                          {}, MsgIcon::Exclamation, MsgButtons::YesNo, answer);
  }
  void expectAllDeleted() { boxes_.expectMessage(toQString("All Records Deleted!")); }
  /// Presses Update and wants nothing to be edited separately.
  void update(const BatchEdit& batch, int count) {
    expectUpdateAsked(count, MsgAnswer::Yes);
    expectEditAsked(MsgAnswer::No);
    press(batch, "Command4");
  }

  Recordset& results() { return *vars().rsSearch; }
  std::int64_t rowsOf(const std::string& select) {
    Recordset rows(data().AlbumDB);
    rows.Open(select);
    return rows.RecordCount();
  }

  std::int64_t anna_ = 0;
  std::int64_t ben_ = 0;
  std::int64_t cousin_ = 0;
};

} // namespace hearthbook::test
