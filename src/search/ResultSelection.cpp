#include "ResultSelection.h"

#include "ResultGrid.h"
#include "ResultPaging.h"
#include "Text.h"

#include <QAbstractButton>

#include <algorithm>

namespace hearthbook {

ResultSelection::ResultSelection(PublicVar& vars, ResultGrid& grid, Commands commands,
                                 QObject* parent)
    : QObject(parent), vars_(vars), grid_(grid), commands_(commands) {}

void ResultSelection::toggle(int cell) {
  const std::int64_t position = positionIn(cell);
  if (vars_.selection.contains(position))
    vars_.selection.deselect(position);
  else
    vars_.selection.select(position);
  anchor_ = position;
  show();
}

void ResultSelection::selectUpTo(int cell) {
  const std::int64_t position = positionIn(cell);
  const std::int64_t from = anchor_.value_or(position);
  selectAll(std::min(from, position), std::max(from, position));
  anchor_ = from;
}

void ResultSelection::selectPage() {
  selectAll(positionIn(0), positionIn(vars_.PageThumbCount - 1));
}

void ResultSelection::selectAll(std::int64_t from, std::int64_t to) {
  vars_.selection.selectAll(from, to);
  show();
}

void ResultSelection::extendFrom(int cell) { anchor_ = positionIn(cell); }

void ResultSelection::clear() {
  vars_.selection.clear();
  anchor_.reset();
  show();
}

void ResultSelection::show() {
  const int count = vars_.selection.SelectedCount;
  showFrames();
  enableBatchEdit();
  commands_.addToSubAlbum->setText(count > 0 ? QStringLiteral("Add To Sub-Album")
                                             : QStringLiteral("Add All To Sub-Album"));
  commands_.clear->setEnabled(count > 0);
  commands_.clear->setText(toQString(clearCaption(count)));
}

void ResultSelection::showFrames() {
  for (int cell = 0; cell < resultsPerPage; ++cell)
    grid_.setSelected(cell, grid_.hasPhoto(cell) && vars_.selection.contains(positionIn(cell)));
}

void ResultSelection::enableBatchEdit() {
  commands_.batchEdit->setEnabled(vars_.selection.SelectedCount > 0);
}

void ResultSelection::disableClear() {
  commands_.clear->setEnabled(false);
  commands_.clear->setText(toQString(clearCaption(0)));
}

std::int64_t ResultSelection::positionIn(int cell) const {
  return vars_.PagePositions.at(static_cast<std::size_t>(cell)).toInteger();
}

} // namespace hearthbook
