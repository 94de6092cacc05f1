#include "ZoomArea.h"

#include "Command.h"
#include "LargePhoto.h"
#include "Look.h"
#include "MarkerArrow.h"
#include "ZoomPanel.h"
#include "ZoomPicture.h"

#include <QAbstractButton>
#include <QLabel>
#include <QPalette>
#include <QPixmap>
#include <QScrollBar>
#include <QSignalBlocker>

#include <cstdlib>

namespace hearthbook {

namespace {

constexpr int patienceMs = 250;

TwipsSize ownSize(PixelSize pixels) {
  return {static_cast<double>(pixels.width) * twipsPerPixel,
          static_cast<double>(pixels.height) * twipsPerPixel};
}

void showBar(QScrollBar& control, const ZoomBar& bar) {
  const QSignalBlocker quiet(control);
  control.setEnabled(bar.enabled);
  control.setRange(0, qRound(bar.maximum));
  control.setValue(qRound(bar.value));
}

} // namespace

ZoomArea::ZoomArea(const Controls& controls, PictureLoader& loader, WorkPool& pool,
                   const std::filesystem::path& notFound, QObject* parent)
    : QObject(parent), ui_(controls),
      picture_(new ZoomPicture(
          *ui_.photo, loader, pool, notFound, [this](PixelSize full) { return freshPixels(full); },
          this)),
      arrow_(new MarkerArrow(*ui_.panel, *ui_.arrow, this)) {
  for (QScrollBar* bar : {ui_.across, ui_.down}) {
    bar->setSingleStep(static_cast<int>(ZoomBar::smallChange));
    bar->setPageStep(static_cast<int>(ZoomBar::largeChange));
  }
  QPalette palette = ui_.photo->palette();
  palette.setColor(QPalette::Window, look::desk); // nothing is seen of it without a picture
  ui_.photo->setPalette(palette);
  ui_.photo->hide();
  patience_.setObjectName(QStringLiteral("patience"));
  patience_.setParent(this);
  patience_.setSingleShot(true);
  patience_.setInterval(patienceMs);
  showBars();
  wire();
}

void ZoomArea::wire() {
  connect(picture_, &ZoomPicture::placed, this, &ZoomArea::showFresh);
  connect(picture_, &ZoomPicture::broken, this, &ZoomArea::broken);
  connect(&patience_, &QTimer::timeout, picture_, &ZoomPicture::clearFormer);
  connect(ui_.panel, &Stage::scaled, this, &ZoomArea::scaled);
  connect(ui_.across, &QScrollBar::valueChanged, this, [this](int value) {
    steps_.scrollAcross(value);
    scrolled();
  });
  connect(ui_.down, &QScrollBar::valueChanged, this, [this](int value) {
    steps_.scrollDown(value);
    scrolled();
  });
  connect(ui_.photo, &LargePhoto::mouseMoved, this, &ZoomArea::drag);
  connect(ui_.photo, &LargePhoto::pinched, this,
          [this](int steps, QPointF position) { runCommand([&] { step(steps, position); }); });
  connect(ui_.panel, &ZoomPanel::wheelTurned, this, [this](int steps, QPointF position) {
    runCommand([&] { step(steps, ui_.photo->mapFrom(ui_.panel, position)); });
  });
}

void ZoomArea::show(const std::filesystem::path& file) {
  picture_->show(file);
  patience_.start();
}

void ZoomArea::tell(const QString& note) { picture_->tell(note); }

void ZoomArea::clear() {
  picture_->clear();
  ui_.photo->hide();
}

void ZoomArea::decodeAhead(const std::vector<std::filesystem::path>& files) {
  picture_->decodeAhead(files);
}

PixelSize ZoomArea::freshPixels(PixelSize full) const {
  ZoomSteps fresh;
  fresh.show(ownSize(full));
  const QSize pixels = ui_.panel->toDevicePixels(fresh.photo);
  return {pixels.width(), pixels.height()};
}

void ZoomArea::showFresh() {
  steps_.show(ownSize(picture_->fullSize()));
  ui_.photo->unsetCursor();
  place();
  showBars();
  ui_.photo->show();
}

void ZoomArea::magnify() {
  if (steps_.magnify() && steps_.showsHand)
    ui_.photo->setCursor(Qt::SizeAllCursor);
  stepped();
}

void ZoomArea::reduce() {
  steps_.reduce();
  stepped();
}

void ZoomArea::step(int steps, QPointF inPhoto) {
  if (ui_.photo->isHidden())
    return;
  const TwipsPoint part{inPhoto.x() / ui_.photo->width(), inPhoto.y() / ui_.photo->height()};
  const TwipsPoint under = ui_.panel->toTwips(ui_.photo->mapTo(ui_.panel, inPhoto));
  for (int step = 0; step < std::abs(steps); ++step)
    steps > 0 ? magnify() : reduce();
  steps_.bring(part, under);
  scrolled();
}

void ZoomArea::stepped() {
  place();
  showBars();
  const PixelSize wanted = ui_.photo->wantedSize();
  picture_->sharpen(wanted);
}

bool ZoomArea::scrollAcross(int changes) {
  if (steps_.across.enabled)
    ui_.across->setValue(ui_.across->value() + changes * ui_.across->singleStep());
  return steps_.across.enabled;
}

bool ZoomArea::scrollDown(int changes) {
  if (steps_.down.enabled)
    ui_.down->setValue(ui_.down->value() + changes * ui_.down->singleStep());
  return steps_.down.enabled;
}

void ZoomArea::scrolled() {
  place();
  showBars();
}

/// The place is told in the photo, which moves under the mouse: the drag goes on by itself.
void ZoomArea::drag(QPointF position, bool leftDown) {
  const double twips = twipsPerPixel / ui_.panel->scale();
  const TwipsPoint mouse{position.x() * twips, position.y() * twips};
  if (leftDown) {
    steps_.drag(lastMouse_, mouse);
    scrolled();
  }
  lastMouse_ = mouse;
}

void ZoomArea::place() {
  ui_.panel->setRect(ui_.photo, steps_.photo);
  arrow_->photoMoved(*ui_.photo, steps_.longerSide());
}

void ZoomArea::showBars() {
  keepKeyboard();
  showBar(*ui_.across, steps_.across);
  showBar(*ui_.down, steps_.down);
  ui_.magnify->setEnabled(steps_.canMagnify);
  ui_.reduce->setEnabled(steps_.canReduce);
}

/// A button that is disabled under the keyboard would hand it on to the next one, which the key
/// that is still being struck would press.
void ZoomArea::keepKeyboard() {
  const bool loses = (ui_.magnify->hasFocus() && !steps_.canMagnify) ||
                     (ui_.reduce->hasFocus() && !steps_.canReduce);
  if (loses)
    ui_.photo->setFocus(Qt::OtherFocusReason);
}

void ZoomArea::scaled() {
  picture_->sharpen(ui_.photo->wantedSize());
  picture_->decodeAheadAgain();
}

void ZoomArea::setArrow(const QPixmap& arrow) { ui_.arrow->setPixmap(arrow); }

void ZoomArea::pointAt(TwipsPoint marker) {
  arrow_->pointAt(*ui_.photo, marker, steps_.longerSide());
  ui_.arrow->stackUnder(ui_.across); // the lowest of what stands over the photo
}

void ZoomArea::hideArrow() { arrow_->hide(); }

} // namespace hearthbook
