#include "SubAlbumStrip.h"

#include "GridWalk.h"
#include "Look.h"
#include "PhotoOrder.h"
#include "StripCell.h"
#include "StripDrag.h"
#include "StripPage.h"
#include "StripPointer.h"
#include "StripZone.h"
#include "Text.h"

#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>

namespace hearthbook {

namespace {

constexpr double zoneHeight = 300;
constexpr double scrollWidth = 285;
constexpr TwipsSize wholeStrip{stripWidth + stripGap / 2 + scrollWidth,
                               stripViewHeight + 2 * zoneHeight};
/// The tip without the gaps that it has for what is not known.
QString spokenName(std::size_t position, QString tip) {
  if (tip.startsWith(QStringLiteral(", ")))
    tip.remove(0, 2);
  if (tip.endsWith(QStringLiteral(" in ")))
    tip.chop(4);
  tip = tip.simplified();
  if (tip.endsWith(QLatin1Char(',')))
    tip.chop(1);
  const QString number = QStringLiteral("Photo %1").arg(position + 1);
  return tip.isEmpty() ? number : number + QStringLiteral(", ") + tip;
}

const QString dragKey = QStringLiteral("Sub-Album Editor*DragDrop");

/// A mark between two cells, thin and upright.
QWidget* makeMark(QWidget* parent) {
  auto* mark = new QWidget(parent);
  mark->setObjectName(QStringLiteral("Shape1"));
  mark->setAttribute(Qt::WA_TransparentForMouseEvents);
  mark->setAutoFillBackground(true);
  QPalette palette = mark->palette();
  palette.setColor(QPalette::Window, look::darkRed);
  mark->setPalette(palette);
  mark->hide();
  return mark;
}

/// Holds a pointer.
QWidget* makeDragIcon(const char* name, QWidget* parent) {
  auto* icon = new QWidget(parent);
  icon->setObjectName(QString::fromLatin1(name));
  icon->hide();
  return icon;
}

} // namespace

SubAlbumStrip::SubAlbumStrip(QWidget* parent) : Stage(wholeStrip, parent) {
  makeParts();
  for (std::size_t cell = 0; cell < stripInView; ++cell)
    makeCell(cell);
  makeDrag();
  connect(scroll_, &QScrollBar::valueChanged, this, &SubAlbumStrip::scrolled);
  connect(this, &Stage::scaled, this, [this] {
    makePointers();
    if (pictures_)
      pictures_->loadAgain();
  });
}

SubAlbumStrip::~SubAlbumStrip() = default;

void SubAlbumStrip::makeParts() {
  page_ = new StripPage(this);
  page_->setObjectName(QStringLiteral("Picture2"));
  page_->setProperty("helpKey", dragKey);
  above_ = new StripZone(StripZone::Way::Up, this);
  above_->setObjectName(QStringLiteral("Picture3"));
  above_->setAccessibleName(QStringLiteral("Photos above"));
  below_ = new StripZone(StripZone::Way::Down, this);
  below_->setObjectName(QStringLiteral("Picture4"));
  below_->setAccessibleName(QStringLiteral("Photos below"));
  scroll_ = new QScrollBar(Qt::Vertical, this);
  scroll_->setObjectName(QStringLiteral("VScroll1"));
  scroll_->setAccessibleName(QStringLiteral("Rows of the sub-album"));
  scroll_->setSingleStep(1);
  scroll_->setPageStep(1);
  scroll_->setRange(0, 0);
  scroll_->setEnabled(false);
  place(above_, {0, 0, stripWidth, zoneHeight});
  place(page_, {0, zoneHeight, stripWidth, stripViewHeight});
  place(below_, {0, zoneHeight + stripViewHeight, stripWidth, zoneHeight});
  place(scroll_, {stripWidth + stripGap / 2, zoneHeight, scrollWidth, stripViewHeight});
}

void SubAlbumStrip::makeCell(std::size_t cell) {
  auto* image = new StripCell(page_);
  cells_.at(cell) = image;
  image->setObjectName(QStringLiteral("Image1"));
  image->setProperty("cell", static_cast<int>(cell));
  image->setProperty("helpKey", dragKey);
  image->hide();
  page_->place(image, stripCell(cell));
  connect(image, &StripCell::pulled, this, [this, image, cell](QPoint at) {
    if (first() + cell < count() || drag_->isActive())
      drag_->pull(*image, first() + cell, at);
  });
  connect(image, &StripCell::letGo, this, [this](QPoint at) { drag_->letGo(at); });
  connect(image, &StripCell::menuAsked, this,
          [this, cell](QPoint at) { Q_EMIT menuAsked(first() + cell, at); });
  connect(image, &StripCell::focusChanged, this, [this, image, cell] {
    if (image->hasFocus())
      setCurrent(cell);
    page_->update();
  });
}

void SubAlbumStrip::makeDrag() {
  QWidget* mark = makeMark(page_);
  page_->place(mark, stripCell(0));
  noDrop_ = makeDragIcon("Image2", this);
  canDrop_ = makeDragIcon("Image3", this);
  makePointers();
  drag_ = new StripDrag({page_, above_, below_, scroll_, mark, noDrop_, canDrop_,
                         [this](QPoint at) { return photoAt(at); }},
                        this);
  connect(drag_, &StripDrag::dropped, this, &SubAlbumStrip::moveAsked);
  connect(drag_, &StripDrag::ended, this, &SubAlbumStrip::showCells);
}

void SubAlbumStrip::makePointers() {
  noDrop_->setCursor(stripPointer(StripPointer::NoDrop, scale()));
  canDrop_->setCursor(stripPointer(StripPointer::CanDrop, scale()));
}

void SubAlbumStrip::setSource(StripPictures::Source source, const PhotoOrder& order) {
  order_ = &order;
  pictures_ = std::make_unique<StripPictures>(
      *this, std::move(source), [this](std::size_t position) { showPicture(position); });
}

std::size_t SubAlbumStrip::count() const { return order_ ? order_->count() : 0; }

std::size_t SubAlbumStrip::first() const {
  return static_cast<std::size_t>(scroll_->value()) * stripColumns;
}

void SubAlbumStrip::showOrder() {
  drag_->cancel();
  pictures_->clear();
  current_ = 0;
  setScrollRange();
  lastScroll_ = 0;
  loadView();
  showCells();
}

/// The first row is in view then. What a change of the value would load is of the former order.
void SubAlbumStrip::setScrollRange() {
  const QSignalBlocker quiet(scroll_);
  const auto last = static_cast<int>(lastStripScroll(count()));
  scroll_->setRange(0, last);
  scroll_->setValue(0);
  scroll_->setEnabled(last > 0);
}

void SubAlbumStrip::loadView() {
  pictures_->keepOnly({first(), first() + stripInView});
  for (std::size_t position = first(); position < std::min(count(), first() + stripInView);
       ++position)
    if (!pictures_->holds(position))
      pictures_->load(position, order_->photos()[position].id);
}

void SubAlbumStrip::scrolled() {
  const auto now = static_cast<std::size_t>(scroll_->value());
  const StripScroll change = stripScroll(lastScroll_, now);
  pictures_->blank(change.blank);
  for (std::size_t position = change.load.first; position < std::min(change.load.end, count());
       ++position)
    pictures_->load(position, order_->photos()[position].id);
  lastScroll_ = now;
  drag_->stopScrolling();
  showCells();
}

void SubAlbumStrip::showMove(std::size_t from, std::size_t to) {
  pictures_->move(from, to);
  loadView();
  showCells();
}

void SubAlbumStrip::scrollToEnd() {
  if (scroll_->isEnabled())
    scroll_->setValue(scroll_->maximum());
}

void SubAlbumStrip::showCells() {
  page_->setView(first(), count());
  above_->setMore(scroll_->value() > 0);
  below_->setMore(scroll_->value() < scroll_->maximum());
  for (std::size_t cell = 0; cell < stripInView; ++cell)
    showCell(cell);
  setCurrent(std::min(current_, count() > first() ? count() - first() - 1 : 0));
}

/// The cell that pulls a photo keeps the mouse, whatever comes to stand in its place.
void SubAlbumStrip::showCell(std::size_t cell) {
  StripCell& image = *cells_.at(cell);
  const std::size_t position = first() + cell;
  const bool isFilled = position < count();
  image.setProperty("index", static_cast<int>(position));
  if (!isFilled) {
    const bool hadFocus = image.hasFocus();
    image.clear();
    image.setVisible(drag_->cell() == &image);
    if (hadFocus && count() > 0)
      focusOn(count() - 1);
    return;
  }
  const QString caption = toQString(order_->photos()[position].caption);
  image.setToolTip(caption);
  image.setAccessibleName(spokenName(position, caption));
  showPicture(position);
  image.show();
}

void SubAlbumStrip::showPicture(std::size_t position) {
  if (position < first() || position >= first() + stripInView)
    return;
  const std::size_t cell = position - first();
  StripCell& image = *cells_.at(cell);
  const auto shown = pictures_->at(position);
  page_->setRect(&image, shown ? placeInStripCell(cell, shown->size) : stripCell(cell));
  image.setPicture(shown ? shown->picture : Picture());
}

/// One stop of Tab for all photos.
void SubAlbumStrip::setCurrent(std::size_t cell) {
  current_ = cell;
  for (std::size_t other = 0; other < stripInView; ++other)
    cells_.at(other)->setFocusPolicy(other == cell ? Qt::StrongFocus : Qt::ClickFocus);
}

std::optional<std::size_t> SubAlbumStrip::focused() const {
  for (std::size_t cell = 0; cell < stripInView; ++cell)
    if (cells_.at(cell)->hasFocus() && first() + cell < count())
      return first() + cell;
  return std::nullopt;
}

void SubAlbumStrip::focusOn(std::size_t position) {
  const std::size_t row = position / stripColumns;
  const auto top = static_cast<std::size_t>(scroll_->value());
  if (row < top)
    scroll_->setValue(static_cast<int>(row));
  else if (row >= top + stripRowsInView)
    scroll_->setValue(static_cast<int>(row - stripRowsInView + 1));
  cells_.at(position - first())->setFocus(Qt::OtherFocusReason);
}

std::optional<std::size_t> SubAlbumStrip::photoAt(QPoint globalPosition) const {
  if (!page_->QWidget::rect().contains(page_->mapFromGlobal(globalPosition)))
    return std::nullopt;
  for (std::size_t cell = 0; cell < stripInView; ++cell) {
    const StripCell& image = *cells_.at(cell);
    if (first() + cell < count() && image.rect().contains(image.mapFromGlobal(globalPosition)))
      return first() + cell;
  }
  return std::nullopt;
}

void SubAlbumStrip::keyPressEvent(QKeyEvent* event) {
  if (drag_->isActive() && event->key() == Qt::Key_Escape)
    return drag_->cancel();
  if (!act(*event))
    Stage::keyPressEvent(event);
}

bool SubAlbumStrip::act(const QKeyEvent& event) {
  const auto at = focused();
  if (!at)
    return false;
  if (event.key() == Qt::Key_Delete) {
    removeByKey(*at);
    return true;
  }
  const auto walked = walkedTo(static_cast<int>(*at), static_cast<int>(count()) - 1,
                               static_cast<int>(stripColumns), event.key());
  if (!walked)
    return false;
  const auto target = static_cast<std::size_t>(*walked);
  if (event.modifiers().testFlag(Qt::ControlModifier))
    moveByKey(*at, target);
  else
    focusOn(target);
  return true;
}

void SubAlbumStrip::moveByKey(std::size_t from, std::size_t to) {
  Q_EMIT moveAsked(from, to);
  focusOn(to);
}

/// The next Delete is for the photo that came into the place, not for one of the first row.
void SubAlbumStrip::removeByKey(std::size_t position) {
  Q_EMIT removeAsked(position);
  if (count() > 0)
    focusOn(std::min(position, count() - 1));
}

void SubAlbumStrip::wheelEvent(QWheelEvent* event) {
  scroll_->setValue(scroll_->value() - wheel_.take(*event));
  event->accept();
}

} // namespace hearthbook
