#include "SmallPictures.h"

#include "Beside.h"
#include "Decode.h"
#include "PictureImage.h"

#include <QGuiApplication>
#include <QPainter>

namespace hearthbook {

namespace {

constexpr int keptPictures = 500;

Picture decodeSmall(const std::filesystem::path& file, int side) {
  try {
    return decodePictureWithin(file, side).picture;
  } catch (const std::exception&) {
    return {}; // adding the file will tell what is wrong with it
  }
}

QPixmap blankPaper(int side, double ratio) {
  QPixmap paper(QSize(side, side) * ratio);
  paper.setDevicePixelRatio(ratio);
  paper.fill(Qt::transparent);
  QPainter painter(&paper);
  painter.setPen(QColor(214, 204, 186));
  painter.setBrush(QColor(246, 240, 226));
  painter.drawRect(QRectF(side * 0.05, side * 0.15, side * 0.9, side * 0.7));
  return paper;
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
      pool_, this, [file, pixels] { return decodeSmall(file, pixels); },
      [this, row, list = list_](const Picture& picture) {
        // A broken file stays asked for, so that it is not read again at every paint.
        if (list == list_ && !picture.isNull())
          arrived(row, QPixmap::fromImage(toImage(picture)));
      });
}

void SmallPictures::arrived(int row, QPixmap picture) {
  picture.setDevicePixelRatio(ratio_);
  asked_.remove(row);
  kept_.insert(row, new QPixmap(std::move(picture)));
  Q_EMIT ready(row);
}

} // namespace hearthbook
