#pragma once

#include "AddAudio.h"
#include "AddSubAlbum.h"
#include "AlbumFixture.h"
#include "BoxScript.h"
#include "FormControls.h"
#include "Forms.h"
#include "Guard.h"
#include "QtPrint.h"
#include "StripCell.h"
#include "SubAlbumFolder.h"
#include "SubAlbumStrip.h"
#include "SubAlbums.h"
#include "Text.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTest>

#include <numeric>
#include <vector>

namespace hearthbook::test {

/// The menu above the editor, as it was told.
class MenuNote : public Navigator {
public:
  void findPhoto() override {}
  [[nodiscard]] bool canFindPhoto() const override { return false; }
  void addAlbumEntry(int albumId, const QString& name) override { note("add", albumId, name); }
  void renameAlbumEntry(int albumId, const QString& name) override {
    note("rename", albumId, name);
  }
  void removeAlbumEntry(int albumId) override { note("remove", albumId, {}); }
  void popUpEdit(QPoint) override { ++popUps; }

  QStringList told;
  int popUps = 0;

private:
  void note(const char* what, int albumId, const QString& name) {
    told << QStringLiteral("%1 %2 %3").arg(toQString(what)).arg(albumId).arg(name).trimmed();
  }
};

/// Notes what the open forms are told of changed rows.
class ChangesNote : public Form {
public:
  ChangesNote() : Form(QStringLiteral("Note"), Kind::Dialog) {}
  void rowsChanged(const RowsChanged& change) override { told.push_back(change.by); }

  std::vector<RowsChanged::By> told;
};

/// An album, its sub-albums and their editor, as the program wires them.
class SubAlbumFixture : public AlbumFixture, protected FormControls {
protected:
  using Numbers = std::vector<int>;

  SubAlbumFixture() {
    Forms::provide<ChangesNote>([] { return new ChangesNote; });
    Forms::provide<AddAudio>([this] { return new AddAudio(album(), pool_); });
    Forms::provide<AddSubAlbum>([this] { return new AddSubAlbum(album(), loader_, pool_, menu_); });
  }
  ~SubAlbumFixture() override { Forms::reset(); }

  AddSubAlbum& openFor(void (AddSubAlbum::*task)()) {
    auto& form = Forms::get<AddSubAlbum>();
    (form.*task)();
    return show(form);
  }
  /// As Search opens it, on all photos and none of them selected.
  AddSubAlbum& openForResult() {
    vars().rsSearch = data().rsPhotoAlbum.Clone();
    return openFor(&AddSubAlbum::takeResult);
  }
  AddSubAlbum& openForEditor() { return openFor(&AddSubAlbum::takeEditedPhoto); }
  AddSubAlbum& openForViewer(std::int64_t albumId) {
    auto& form = Forms::get<AddSubAlbum>();
    form.workOnAlbum(QString::number(albumId));
    return show(form);
  }
  static AddSubAlbum& show(AddSubAlbum& form) {
    form.Show();
    settle();
    return form;
  }
  static void settle() {
    auto* form = Forms::loaded<AddSubAlbum>();
    waitUntil([&] { return !form || !form->isWaitingForPictures(); });
    QCoreApplication::processEvents();
  }
  static void press(const QWidget& form, const char* name) {
    FormControls::press(form, name);
    settle();
  }
  static void choose(const AddSubAlbum& form, std::int64_t albumId) {
    auto* list = control<DataList>(form, "SubAlbumList");
    list->setBoundText(albumId);
    Q_EMIT list->chosen();
    settle();
  }
  static void arrange(const AddSubAlbum& form, const char* choice) {
    auto* combo = control<QComboBox>(form, "Combo1");
    combo->setCurrentText(toQString(choice));
    Q_EMIT combo->activated(combo->currentIndex());
    settle();
  }
  void expectArrangeQuestion(MsgAnswer answer) {
    boxes_.expectQuestion(toQString("Are you sure you want to auto-arrange this sub-album?\r\nThis "
                                    "will override any manual arrangement you made!"),
                          toQString("Auto-Arrange Sub-Album"), MsgIcon::None, MsgButtons::OkCancel,
                          answer);
  }
  void expectAdded(const char* text) {
    boxes_.expectMessage(toQString(text), toQString("Add To Sub-Album"));
  }
  /// Types over a field and leaves it.
  static void enter(const AddSubAlbum& form, const char* name, const char* typed) {
    auto* field = control<QLineEdit>(form, name);
    field->setFocus();
    field->selectAll();
    if (*typed)
      field->insert(QString::fromUtf8(typed));
    else
      field->del();
    control<QComboBox>(form, "Combo1")->setFocus();
    settle();
  }
  static void leave() {
    Forms::get<AddSubAlbum>().Unload();
    settle();
  }

  static std::string text(const AddSubAlbum& form, const char* name) {
    const auto* control = form.findChild<QWidget*>(toQString(name));
    if (const auto* label = qobject_cast<const QLabel*>(control))
      return toUtf8(label->text());
    if (const auto* button = qobject_cast<const QAbstractButton*>(control))
      return toUtf8(button->text());
    if (const auto* edit = qobject_cast<const QLineEdit*>(control))
      return toUtf8(edit->text());
    if (const auto* combo = qobject_cast<const QComboBox*>(control))
      return toUtf8(combo->currentText());
    throw std::logic_error(name);
  }
  static bool isShown(const AddSubAlbum& form, const char* name) {
    return !control(form, name)->isHidden();
  }

  static SubAlbumStrip& strip(const AddSubAlbum& form) { return *form.findChild<SubAlbumStrip*>(); }
  static QScrollBar& scroll(const AddSubAlbum& form) {
    return *control<QScrollBar>(form, "VScroll1");
  }
  /// The thumbnails that are seen, by their positions.
  static std::vector<StripCell*> cells(const AddSubAlbum& form) {
    std::vector<StripCell*> seen;
    for (auto* cell : form.findChildren<StripCell*>(QStringLiteral("Image1")))
      if (!cell->isHidden())
        seen.push_back(cell);
    return seen;
  }
  static StripCell& cell(const AddSubAlbum& form, int position) {
    for (auto* cell : cells(form))
      if (cell->property("index").toInt() == position)
        return *cell;
    throw std::logic_error("no such photo in view");
  }
  /// The years of the photos that are seen, which addPhotoRows() made from their numbers.
  static Numbers shown(const AddSubAlbum& form) {
    Numbers numbers;
    for (const auto* cell : cells(form))
      numbers.push_back(2000 - cell->toolTip().section(QLatin1Char(','), 0, 0).toInt());
    return numbers;
  }
  static Numbers fromTo(int first, int last) {
    Numbers numbers(static_cast<std::size_t>(last - first + 1));
    std::iota(numbers.begin(), numbers.end(), first);
    return numbers;
  }
  /// A sub-album of the photos HD00002 to HD`last`.
  std::int64_t addAlbumUpTo(int last, const std::string& name = "Lake") {
    addPhotoRows(folder_, last);
    return addSubAlbum(folder_, name, fromTo(2, last));
  }

  WorkPool pool_{2};
  PictureLoader loader_{pool_, [](std::function<void()> task) {
                          QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(task),
                                                    Qt::QueuedConnection);
                        }};
  MenuNote menu_;
  BoxScript boxes_;
};

} // namespace hearthbook::test
