#include "PictureCommand.h"

#include "Beside.h"
#include "Look.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QTimer>

#include <utility>

namespace hearthbook {

namespace {

constexpr double captionShare = 0.2; // of the height, below the picture

/// The picture of a command that cannot be used: as faded as an old print.
QPixmap faded(const QPixmap& picture) {
  if (picture.isNull())
    return {};
  QPixmap print = picture;
  QPainter painter(&print);
  painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
  QColor veil = look::desk;
  veil.setAlphaF(0.62F);
  painter.fillRect(print.rect(), veil);
  return print;
}

/// The window that comes to the front gives the focus too, and that points at nothing.
bool isReachedByKey(Qt::FocusReason reason) {
  return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
         reason == Qt::ShortcutFocusReason;
}

} // namespace

PictureCommand::PictureCommand(QWidget* parent) : QAbstractButton(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
}

void PictureCommand::showPictures(WorkPool& pool, const QString& file, const QString& hoverFile) {
  pool_ = &pool;
  file_ = file;
  hoverFile_ = hoverFile;
  update();
}

// Asked for behind the first paint, which would else wait for the threads that read pictures.
void PictureCommand::loadPicture() {
  if (file_.isEmpty())
    return;
  runBeside(
      *pool_, this, [file = std::exchange(file_, {})] { return QImage(file); },
      [this](const QImage& picture) {
        picture_ = QPixmap::fromImage(picture);
        restingPicture_ = faded(picture_);
        update();
      });
}

void PictureCommand::setPointedAt(bool isPointedAt) {
  isPointedAt_ = isPointedAt;
  if (this->isPointedAt())
    loadHoverPicture();
  update();
}

// Read when it is first wanted: most starts never show most of these.
void PictureCommand::loadHoverPicture() {
  if (hoverFile_.isEmpty())
    return;
  runBeside(
      *pool_, this, [file = std::exchange(hoverFile_, {})] { return QImage(file); },
      [this](const QImage& picture) {
        hoverPicture_ = QPixmap::fromImage(picture);
        update();
      });
}

bool PictureCommand::event(QEvent* event) {
  const bool handled = QAbstractButton::event(event);
  if (event->type() == QEvent::Enter ||
      (event->type() == QEvent::FocusIn &&
       isReachedByKey(static_cast<QFocusEvent*>(event)->reason())))
    Q_EMIT reached();
  return handled;
}

// The space bar alone presses a button; here Return is expected to open things.
void PictureCommand::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    click();
  else
    QAbstractButton::keyPressEvent(event);
}

QRectF PictureCommand::pictureRect() const {
  const double side = qMin<double>(width(), height() * (1 - captionShare));
  return {(width() - side) / 2, 0, side, side};
}

QRectF PictureCommand::captionRect() const {
  const double caption = height() * captionShare;
  return {0, height() - caption, static_cast<double>(width()), caption};
}

void PictureCommand::paintEvent(QPaintEvent* /*event*/) {
  if (!file_.isEmpty())
    QTimer::singleShot(0, this, &PictureCommand::loadPicture);
  QPainter painter(this);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  const QPixmap& shown = isPointedAt() && !hoverPicture_.isNull() ? hoverPicture_ : picture_;
  if (!shown.isNull())
    painter.drawPixmap(pictureRect(), isEnabled() ? shown : restingPicture_, shown.rect());
  drawCaption(painter);
}

void PictureCommand::drawCaption(QPainter& painter) const {
  const QRectF plate = captionRect().adjusted(2, 2, -2, -2);
  painter.setPen(hasFocus() ? QPen(look::darkRed, 2) : QPen(Qt::NoPen));
  painter.setBrush(isPointedAt() ? look::panelYellow : isEnabled() ? look::paper : look::desk);
  painter.drawRoundedRect(plate, plate.height() / 2, plate.height() / 2);
  QFont caption = font();
  caption.setPixelSize(qMax(7, static_cast<int>(plate.height() * 0.52)));
  caption.setBold(true);
  painter.setFont(caption);
  painter.setPen(isEnabled() ? look::ink : look::fadedInk);
  painter.drawText(plate, Qt::AlignCenter, text());
}

} // namespace hearthbook
