#include "BoundControls.h"

#include "Text.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStandardItemModel>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace hearthbook {

int ListEntries::indexOf(const Value& value) const {
  if (value.isNull())
    return -1;
  const auto found = std::ranges::find_if(
      values, [text = value.toText()](const Value& entry) { return entry.toText() == text; });
  return found == values.end() ? -1 : static_cast<int>(found - values.begin());
}

ListEntries readEntries(const ListSource& source) {
  ListEntries entries;
  if (!source.rows || !source.rows->isOpen())
    return entries;
  const std::unique_ptr<Recordset> walk = source.rows->Clone();
  if (!source.rows->Filter().empty())
    walk->Filter(source.rows->Filter());
  for (; !walk->atEOF(); walk->MoveNext()) {
    entries.texts.push_back(toQString(walk->Collect(source.listField).toText()));
    entries.values.push_back(walk->Collect(source.boundColumn));
  }
  return entries;
}

DataCombo::DataCombo(QWidget* parent) : QComboBox(parent) {
  setFocusPolicy(Qt::StrongFocus); // the wheel alone gives no focus
  setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(12);
  connect(this, &QComboBox::activated, this, [this](int index) {
    wanted_ = values_.at(static_cast<std::size_t>(index));
    Q_EMIT chosen();
  });
}

void DataCombo::setListSource(ListSource source) {
  source_ = std::move(source);
  ReFill();
}

void DataCombo::ReFill() {
  ListEntries entries = readEntries(source_);
  const QSignalBlocker quiet(this);
  clear();
  addItems(entries.texts);
  setCurrentIndex(entries.indexOf(wanted_));
  values_ = std::move(entries.values);
}

QString DataCombo::Text() const { return currentText(); }

void DataCombo::setText(const QString& text) {
  const int listed = text.isEmpty() ? -1 : findText(text, Qt::MatchFixedString);
  choose(listed < 0 && !text.isEmpty() ? addUnlisted(text) : listed);
}

/// Has the row of that text behind the entries, where no user can choose it. -1 without a row.
int DataCombo::addUnlisted(const QString& text) {
  const ListEntries entries = readEntries(source_);
  const auto row = entries.texts.indexOf(text);
  auto* items = qobject_cast<QStandardItemModel*>(model());
  auto* popup = qobject_cast<QListView*>(view());
  if (row < 0 || !items || !popup)
    return -1;
  const QSignalBlocker quiet(this);
  addItem(text);
  values_.push_back(entries.values.at(static_cast<std::size_t>(row)));
  items->item(count() - 1)->setFlags(Qt::NoItemFlags);
  popup->setRowHidden(count() - 1, true);
  return count() - 1;
}

Value DataCombo::BoundText() const {
  return currentIndex() < 0 ? Value() : values_.at(static_cast<std::size_t>(currentIndex()));
}

void DataCombo::setBoundText(const Value& value) {
  wanted_ = value;
  const QSignalBlocker quiet(this);
  setCurrentIndex(ListEntries{{}, values_}.indexOf(value));
  update();
}

void DataCombo::choose(int index) {
  setCurrentIndex(index);
  wanted_ = BoundText();
  Q_EMIT chosen();
}

void DataCombo::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace)
    return choose(-1);
  QComboBox::keyPressEvent(event);
}

void DataCombo::wheelEvent(QWheelEvent* event) {
  if (hasFocus())
    QComboBox::wheelEvent(event);
  else
    event->ignore(); // what lies around may scroll
}

} // namespace hearthbook
