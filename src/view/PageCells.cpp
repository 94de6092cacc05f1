#include "PageCells.h"

#include "Look.h"
#include "NamesGrid.h"
#include "Text.h"

#include <QFrame>

namespace hearthbook {

namespace {

constexpr double gridHeight = 1740;

QFrame* makeBorder(int index, Stage& stage) {
  auto* border = new QFrame(&stage);
  border->setObjectName(familyName("infoBorder", index));
  border->setAttribute(Qt::WA_TransparentForMouseEvents);
  border->setFrameStyle(QFrame::Box | QFrame::Plain);
  QPalette palette = border->palette();
  palette.setColor(QPalette::WindowText, look::edge);
  border->setPalette(palette);
  return border;
}

} // namespace

PageCells::PageCells(Stage& stage, QObject* parent) : QObject(parent) {
  for (int index = 0; index < photosOnPage; ++index) {
    cells_[index] = make(index, stage);
    wire(index);
  }
}

PageCells::Cell PageCells::make(int index, Stage& stage) {
  Cell cell;
  cell.photo = new PagePhoto(&stage);
  cell.photo->setObjectName(familyName("Image1", index));
  cell.photo->setProperty("helpKey", QStringLiteral("View Album*Photos"));
  stage.place(cell.photo, photoBox(index));
  cell.frame = new PhotoFrame(cell.photo, &stage);
  cell.frame->setObjectName(familyName("Shape1", index));
  stage.place(cell.frame, photoBox(index));
  cell.facts = new FactsPanel(
      {infoSize, gridHeight, namesInSight, index, QStringLiteral("View Album*Names List")}, &stage);
  stage.place(cell.facts, infoBox(index));
  cell.border = makeBorder(index, stage);
  stage.place(cell.border, infoBox(index));
  return cell;
}

void PageCells::wire(int index) {
  const Cell& cell = cells_[index];
  connect(cell.photo, &PagePhoto::clicked, this, [this, index] { Q_EMIT clicked(index); });
  connect(cell.photo, &PagePhoto::opened, this, [this, index] { Q_EMIT opened(index); });
  connect(cell.facts, &FactsPanel::descriptionAsked, this,
          [this, index] { Q_EMIT descriptionAsked(index); });
  connect(cell.facts, &FactsPanel::soundAsked, this, [this, index] { Q_EMIT soundAsked(index); });
  connect(&cell.facts->names(), &NamesGrid::chosen, this,
          [this, index] { Q_EMIT nameChosen(index); });
}

std::array<PagePhoto*, photosOnPage> PageCells::photos() const {
  std::array<PagePhoto*, photosOnPage> photos{};
  for (int cell = 0; cell < photosOnPage; ++cell)
    photos[cell] = cells_[cell].photo;
  return photos;
}

void PageCells::fill(int cell, const std::string& id) {
  cells_[cell].tag = id;
  cells_[cell].photo->setSource(true);
}

void PageCells::showFacts(int cell, const PhotoFacts& facts) {
  const Cell& shown = cells_[cell];
  shown.facts->showFacts(facts);
  for (QWidget* part : std::initializer_list<QWidget*>{shown.facts, shown.frame, shown.border})
    part->show();
  const QString summary = shown.facts->summary();
  shown.photo->setToolTip(summary);
  shown.photo->setAccessibleName(summary.isEmpty()
                                     ? QStringLiteral("Photo %1").arg(cell + 1)
                                     : QStringLiteral("Photo %1: %2").arg(cell + 1).arg(summary));
}

void PageCells::empty(int cell) {
  const Cell& shown = cells_[cell];
  for (QWidget* part : std::initializer_list<QWidget*>{shown.facts, shown.frame, shown.border})
    part->hide();
  shown.photo->setSource(false);
  shown.photo->setToolTip({});
  shown.photo->setAccessibleName({});
}

void PageCells::select(int cell) {
  for (int other = 0; other < photosOnPage; ++other)
    rest(other);
  cells_[cell].frame->select();
  cells_[cell].photo->setAccessibleDescription(QStringLiteral("Selected"));
}

void PageCells::rest(int cell) {
  cells_[cell].frame->rest();
  cells_[cell].photo->setAccessibleDescription({});
}

std::optional<int> PageCells::selected() const {
  for (int cell = 0; cell < photosOnPage; ++cell)
    if (cells_[cell].frame->isSelected())
      return cell;
  return std::nullopt;
}

std::optional<int> PageCells::focused() const {
  for (int cell = 0; cell < photosOnPage; ++cell)
    if (cells_[cell].photo->hasFocus())
      return cell;
  return std::nullopt;
}

void PageCells::focus(int cell) {
  const Cell& wanted = cells_[cell].photo->hasSource() ? cells_[cell] : cells_[0];
  wanted.photo->setFocus(Qt::OtherFocusReason);
}

void PageCells::keepFocusOnPhotos() {
  const auto cell = focused();
  if (cell && !cells_[*cell].photo->hasSource())
    focus(0);
}

std::array<QWidget*, PageCells::tabStops> PageCells::tabOrder() const {
  std::array<QWidget*, tabStops> order{};
  auto* next = order.begin();
  for (const Cell& cell : cells_) {
    *next++ = cell.photo;
    for (QWidget* part : cell.facts->tabOrder())
      *next++ = part;
  }
  return order;
}

} // namespace hearthbook
