#include "SmallPictures.h"

#include "Beside.h"
#include "Decode.h"
#include "Look.h"
#include "PictureImage.h"

#include <QGuiApplication>
#include <QPainter>

namespace hearthbook {

namespace {

constexpr int keptPictures = 500;

QPixmap clearSquare(int side, double ratio) {
  QPixmap square(QSize(side, side) * ratio);
  square.setDevicePixelRatio(ratio);
  square.fill(Qt::transparent);
  return square;
}

QPixmap blankPaper(int side, double ratio) {
  QPixmap paper = clearSquare(side, ratio);
  QPainter painter(&paper);
  painter.setPen(look::linen.darker(110));
  painter.setBrush(look::linen);
  painter.drawRect(QRectF(side * 0.05, side * 0.15, side * 0.9, side * 0.7));
  return paper;
}

/// In a square of its own, so that the names below stand on one line.
QPixmap centredIn(int side, double ratio, QPixmap picture) {
  picture.setDevicePixelRatio(ratio);
  const QSizeF size = picture.deviceIndependentSize();
  QPixmap square = clearSquare(side, ratio);
  QPainter(&square).drawPixmap(QPointF((side - size.width()) / 2, (side - size.height()) / 2),
                               picture);
  return square;
}

} // namespace

SmallPictures::SmallPictures(WorkPool& pool, int side, QObject* parent)
    : QObject(parent), pool_(pool), side_(side), ratio_(qGuiApp->devicePixelRatio()),
      blank_(blankPaper(side, ratio_)), kept_(keptPictures) {}

QPixmap SmallPictures::of(int row, const std::filesystem::path& file) {
  if (const QPixmap* picture = kept_.object(row))
    return *picture;
  request(row, file);
  return blank_;
}

void SmallPictures::clear() {
  kept_.clear();
  asked_.clear();
  ++list_;
}

void SmallPictures::request(int row, const std::filesystem::path& file) {
  if (asked_.contains(row))
    return;
  asked_.insert(row);
  const int pixels = static_cast<int>(side_ * ratio_);
  runBeside(
      pool_, this, [file, pixels] { return pictureWithinOrNone(file, pixels); },
      [this, row, list = list_](const Picture& picture) {
        // A broken file stays asked for, so that it is not read again at every paint.
        if (list == list_ && !picture.isNull())
          arrived(row, QPixmap::fromImage(toImage(picture)));
      });
}

void SmallPictures::arrived(int row, QPixmap picture) {
  asked_.remove(row);
  kept_.insert(row, new QPixmap(centredIn(side_, ratio_, std::move(picture))));
  Q_EMIT ready(row);
}

} // namespace hearthbook
