#include "ResultGrid.h"

#include "GridWalk.h"
#include "Look.h"
#include "ResultCell.h"
#include "Text.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace hearthbook {

namespace {

constexpr TwipsPoint firstCell{240, 120};
constexpr double cellSide = 1095;
constexpr double pitch = 1320;

constexpr TwipsSize gridSize{2 * firstCell.x + (resultColumns - 1) * pitch + cellSide,
                             2 * firstCell.y + (resultRows - 1) * pitch + cellSide};

TwipsRect cellRect(int index) {
  const int column = index % resultColumns;
  const int row = index / resultColumns;
  return {firstCell.x + column * pitch, firstCell.y + row * pitch, cellSide, cellSide};
}

QString spokenName(const ResultPhoto& photo) {
  const QString number = QStringLiteral("Photo %1").arg(photo.position);
  return photo.toolTip.empty() ? number : number + QStringLiteral(", ") + toQString(photo.toolTip);
}

} // namespace

struct ResultGrid::Place {
  Place(int index, ResultGrid& grid)
      : image(new ResultCell(index, &grid)), frame(new SelectionFrame(&grid)),
        picture(grid, *image, cellRect(index)) {}

  ResultCell* image;
  SelectionFrame* frame;
  CellPicture picture;
  std::string id;
};

ResultGrid::ResultGrid(QWidget* parent) : Stage(gridSize, parent) {
  for (int index = 0; index < resultsPerPage; ++index)
    makePlace(index);
  connect(this, &Stage::scaled, this, [this] {
    for (const auto& place : places_)
      place->picture.request();
  });
}

ResultGrid::~ResultGrid() = default;

void ResultGrid::makePlace(int index) {
  auto& place = places_[static_cast<std::size_t>(index)];
  place = std::make_unique<Place>(index, *this);
  place->image->setObjectName(QStringLiteral("Image1"));
  place->image->setProperty("index", index);
  place->image->setProperty("helpKey", QStringLiteral("Search Album*Thumbnails"));
  place->frame->setObjectName(QStringLiteral("Shape1"));
  place->frame->setProperty("index", index);
  place->frame->hide();
  this->place(place->image, cellRect(index));
  this->place(place->frame, cellRect(index));
  wire(*place->image);
}

void ResultGrid::wire(ResultCell& cell) {
  const int index = cell.index();
  connect(&cell, &ResultCell::clicked, this,
          [this, index](Qt::KeyboardModifiers held) { clicked(index, held); });
  connect(&cell, &ResultCell::doubleClicked, this, [this, index] { Q_EMIT zoomAsked(index); });
  connect(&cell, &ResultCell::focusChanged, this, [this, index] {
    setCurrent(index);
    update();
  });
}

void ResultGrid::setSource(PictureLoader& loader, WorkPool& pool, std::filesystem::path notFound) {
  pictures_ = std::make_unique<FittedPictures>(loader, pool, std::move(notFound));
}

void ResultGrid::showPhoto(int cell, const ResultPhoto& photo) {
  ResultCell& image = *at(cell).image;
  at(cell).id = photo.id;
  image.setHasPhoto(true);
  image.setToolTip(toQString(photo.toolTip));
  image.setAccessibleName(spokenName(photo));
  setSelected(cell, photo.isSelected);
  at(cell).picture.show(*pictures_, photo.picture.file);
  setCurrent(std::min(current_, lastFilled()));
  update();
}

void ResultGrid::clearPhoto(int cell) {
  ResultCell& image = *at(cell).image;
  image.setHasPhoto(false);
  image.setAccessibleName(QString());
  setSelected(cell, false);
  at(cell).picture.clear();
  setCurrent(std::min(current_, lastFilled()));
  if (image.hasFocus() && hasPhoto(current_))
    at(current_).image->setFocus(Qt::OtherFocusReason);
  update();
}

void ResultGrid::setSelected(int cell, bool selected) {
  at(cell).frame->setVisible(selected);
  at(cell).image->setSelected(selected);
  update();
}

void ResultGrid::decodeAhead(const std::vector<std::filesystem::path>& files) {
  pictures_->decodeAhead(files, CellPicture::fitOn(*this));
}

bool ResultGrid::hasPhoto(int cell) const { return at(cell).image->hasPhoto(); }

bool ResultGrid::isWaiting() const {
  return std::ranges::any_of(places_, [](const auto& place) { return place->picture.isWaiting(); });
}

ContactPrint ResultGrid::printPage(const PhotoFile& photoOf) const {
  ContactPrint page;
  for (int cell = 0; cell < resultsPerPage; ++cell)
    if (const Place& shown = at(cell); shown.image->hasPicture())
      page.cells.push_back({cell,
                            {rect(shown.image), photoOf(shown.id).value_or(shown.picture.file()),
                             shown.image->picture()}});
  return page;
}

void ResultGrid::clicked(int cell, Qt::KeyboardModifiers held) {
  if (!hasPhoto(cell))
    return;
  if (held.testFlag(Qt::ShiftModifier))
    Q_EMIT rangeAsked(cell);
  else
    Q_EMIT toggleAsked(cell);
}

/// One stop of Tab for all cells, and none where there is no photo.
void ResultGrid::setCurrent(int cell) {
  current_ = std::max(0, cell);
  for (const auto& place : places_) {
    const bool isStop = place->image->index() == current_ && place->image->hasPhoto();
    place->image->setFocusPolicy(isStop                     ? Qt::StrongFocus
                                 : place->image->hasPhoto() ? Qt::ClickFocus
                                                            : Qt::NoFocus);
  }
}

void ResultGrid::keyPressEvent(QKeyEvent* event) {
  if (!hasPhoto(current_) || (!walk(*event) && !act(*event)))
    Stage::keyPressEvent(event);
}

bool ResultGrid::walk(QKeyEvent& event) {
  const auto target = walkedTo(current_, lastFilled(), resultColumns, event.key());
  if (!target || event.modifiers().testFlag(Qt::ControlModifier))
    return false;
  if (event.modifiers().testFlag(Qt::ShiftModifier))
    Q_EMIT rangeAsked(*target);
  else
    Q_EMIT moved(*target);
  at(*target).image->setFocus(Qt::OtherFocusReason);
  return true;
}

bool ResultGrid::act(const QKeyEvent& event) {
  switch (event.key()) {
  case Qt::Key_Space:
  case Qt::Key_Select:
    clicked(current_, event.modifiers());
    return true;
  case Qt::Key_Return:
  case Qt::Key_Enter:
    Q_EMIT zoomAsked(current_);
    return true;
  case Qt::Key_A:
    if (!event.modifiers().testFlag(Qt::ControlModifier))
      return false;
    Q_EMIT allAsked();
    return true;
  default:
    return false;
  }
}

int ResultGrid::lastFilled() const {
  const auto empty =
      std::ranges::find_if(places_, [](const auto& place) { return !place->image->hasPhoto(); });
  return static_cast<int>(empty - places_.begin()) - 1;
}

ResultGrid::Place& ResultGrid::at(int cell) const {
  return *places_.at(static_cast<std::size_t>(cell));
}

void ResultGrid::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  for (const auto& place : places_)
    if (place->image->hasPhoto())
      paintPrint(painter, *place->image);
  if (at(current_).image->hasFocus())
    paintFocus(painter);
}

/// The white border of a print, and a little shadow below. A selected one fills its frame.
void ResultGrid::paintPrint(QPainter& painter, const ResultCell& cell) const {
  const int border = cell.isSelected() ? 0 : qRound(3 * scale());
  const int shadow = std::max(1, qRound(scale()));
  const QRect place = cell.isSelected() ? toPixels(cellRect(cell.index())) : cell.geometry();
  const QRect print = place.adjusted(-border, -border, border, border);
  painter.fillRect(print, Qt::white);
  painter.fillRect(QRect(print.left(), print.bottom() + 1, print.width(), shadow),
                   QColor(70, 45, 20, 40));
}

void ResultGrid::paintFocus(QPainter& painter) const {
  painter.setRenderHint(QPainter::Antialiasing);
  const double gap = 4.5 * scale();
  const QRectF ring = QRectF(toPixels(cellRect(current_))).adjusted(-gap, -gap, gap, gap);
  painter.setPen(QPen(look::darkRed, 1.5 * scale(), Qt::DotLine));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(ring, 4 * scale(), 4 * scale());
}

} // namespace hearthbook
