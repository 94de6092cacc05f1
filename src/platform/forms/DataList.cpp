#include "BoundControls.h"

#include <QAbstractListModel>
#include <QMouseEvent>
#include <QSignalBlocker>

#include <utility>

namespace hearthbook {

class DataList::Model : public QAbstractListModel {
public:
  using QAbstractListModel::QAbstractListModel;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(entries_.texts.size());
  }

  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    const bool isText = role == Qt::DisplayRole || role == Qt::AccessibleTextRole;
    return isText && index.isValid() ? entries_.texts.at(index.row()) : QVariant();
  }

  [[nodiscard]] const ListEntries& entries() const { return entries_; }

  void setEntries(ListEntries entries) {
    beginResetModel();
    entries_ = std::move(entries);
    endResetModel();
  }

private:
  ListEntries entries_;
};

DataList::DataList(QWidget* parent) : QListView(parent), model_(new Model(this)) {
  setUniformItemSizes(true);
  setSelectionMode(SingleSelection);
  setEditTriggers(NoEditTriggers);
  setModel(model_);
  connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, &DataList::chosen);
  connect(this, &QAbstractItemView::activated, this, &DataList::doubleClickedRow);
}

DataList::~DataList() = default;

void DataList::setListSource(ListSource source) {
  source_ = std::move(source);
  ReFill();
}

void DataList::ReFill() {
  const Value kept = BoundText();
  model_->setEntries(readEntries(source_));
  choose(model_->entries().indexOf(kept));
}

QString DataList::Text() const {
  return chosenRow() < 0 ? QString() : model_->entries().texts.at(chosenRow());
}

Value DataList::BoundText() const {
  return chosenRow() < 0 ? Value()
                         : model_->entries().values.at(static_cast<std::size_t>(chosenRow()));
}

void DataList::setBoundText(const Value& value) { choose(model_->entries().indexOf(value)); }

void DataList::mousePressEvent(QMouseEvent* event) {
  const int before = chosenRow();
  QListView::mousePressEvent(event);
  if (before >= 0 && before == chosenRow())
    Q_EMIT chosen(); // the program may have chosen it, of which nobody was told
}

/// A choice goes only when another one is made: Control on the chosen row takes nothing away.
QItemSelectionModel::SelectionFlags DataList::selectionCommand(const QModelIndex& index,
                                                               const QEvent* event) const {
  const auto command = QListView::selectionCommand(index, event);
  const bool takesAway = command & (QItemSelectionModel::Deselect | QItemSelectionModel::Toggle);
  return takesAway && selectionModel()->isSelected(index) ? QItemSelectionModel::NoUpdate : command;
}

int DataList::chosenRow() const {
  const QModelIndexList rows = selectionModel()->selectedRows();
  return rows.isEmpty() ? -1 : rows.first().row();
}

void DataList::choose(int row) {
  const QSignalBlocker quiet(this);
  if (row < 0) {
    clearSelection();
    setCurrentIndex({});
  } else {
    setCurrentIndex(model_->index(row));
  }
}

} // namespace hearthbook
