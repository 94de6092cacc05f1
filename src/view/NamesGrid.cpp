#include "NamesGrid.h"

#include "Look.h"
#include "Text.h"

#include <QEvent>
#include <QHeaderView>
#include <QSignalBlocker>

namespace hearthbook {

namespace {

constexpr int nameColumn = 0;
constexpr int idColumn = 1;
constexpr QSize arrowSize{8, 11}; // at scale 1

} // namespace

NamesGrid::NamesGrid(int rowsInSight, QWidget* parent)
    : FlexGrid(parent), rowsInSight_(rowsInSight) {
  setFormat(QStringLiteral("<|<"));
  setColTwips(idColumn, 0);
  shareWidthFrom(nameColumn);
  horizontalHeader()->hide();
  setFrameShape(NoFrame);
  setShowGrid(false);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setIconSize(arrowSize);
  setSelection(look::darkRed, FocusRect::None);
  connect(this, &QTableWidget::currentCellChanged, this, &NamesGrid::chosen);
  connect(this, &QTableWidget::cellClicked, this, &NamesGrid::chosen);
}

void NamesGrid::setArrow(const QPixmap& arrow) { arrow_ = arrow; }

void NamesGrid::showNames(const std::vector<NamesRow>& names) {
  const QSignalBlocker quiet(this);
  clearRows();
  for (const NamesRow& name : names) {
    addRow(toQString(name.text + "\t" + name.id));
    auto* shown = item(rows() - 2, nameColumn);
    shown->setToolTip(shown->text().trimmed()); // a long name is cut short
    if (name.id.empty())
      shown->setFlags(Qt::ItemIsEnabled); // nobody to be chosen
    if (name.marked)
      setCellPicture(rows() - 1, nameColumn, arrow_);
  }
  setRow(0);
  const bool fits = this->names() <= rowsInSight_;
  setVerticalScrollBarPolicy(fits ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAlwaysOn);
  shareHeight();
}

QString NamesGrid::nameText(int row) const { return cellText(row + 1, nameColumn); }

std::vector<std::string> NamesGrid::shownNames() const {
  std::vector<std::string> shown;
  for (int row = 0; row < names(); ++row)
    if (const QString name = nameText(row).trimmed(); !name.isEmpty())
      shown.push_back(toUtf8(name));
  return shown;
}

std::optional<std::int64_t> NamesGrid::chosenPerson() const {
  const QString id = row() > 0 ? cellText(row(), idColumn) : QString();
  return id.isEmpty() ? std::nullopt : std::optional<std::int64_t>(id.toLongLong());
}

void NamesGrid::resizeEvent(QResizeEvent* event) {
  FlexGrid::resizeEvent(event);
  shareHeight();
}

void NamesGrid::changeEvent(QEvent* event) {
  FlexGrid::changeEvent(event);
  if (event->type() == QEvent::FontChange && rowsInSight_ > 0)
    shareHeight();
}

/// The rows in sight fill the grid to the pixel, so that there is nothing to scroll.
void NamesGrid::shareHeight() {
  const int height = viewport()->height();
  for (int row = 0; row < names(); ++row) {
    const int place = row % rowsInSight_;
    setRowHeight(row, height * (place + 1) / rowsInSight_ - height * place / rowsInSight_);
  }
}

} // namespace hearthbook
