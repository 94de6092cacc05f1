#include "RecordPicture.h"

#include "ImgRatio.h"
#include "PictureBox.h"
#include "Stage.h"

#include <utility>

namespace hearthbook {

RecordPicture::RecordPicture(Stage& stage, PictureBox& image, PictureLoader& loader, WorkPool& pool,
                             QObject* parent)
    : QObject(parent), stage_(stage), image_(image),
      pictures_(loader, pool), box_{stage.rect(&image).width, stage.rect(&image).height} {
  connect(&stage_, &Stage::scaled, this, &RecordPicture::showAgain);
}

void RecordPicture::show(const std::filesystem::path& file) {
  wanted_ = file;
  ticket_ = pictures_.load(file, fit(), [this](const auto& loaded) { arrived(loaded); });
}

void RecordPicture::decodeAhead(const std::vector<std::filesystem::path>& files) {
  pictures_.decodeAhead(files, fit());
}

FittedPictures::Fit RecordPicture::fit() const {
  return [this](PixelSize picture) {
    const QSize pixels = stage_.toDevicePixels(fitted(picture));
    return PixelSize{pixels.width(), pixels.height()};
  };
}

TwipsRect RecordPicture::fitted(PixelSize picture) const {
  return FitImage(stage_.rect(&image_), picture.width, picture.height, box_.width, box_.height);
}

void RecordPicture::showAgain() {
  if (const auto file = wanted_ ? wanted_ : shown_)
    show(*file);
}

void RecordPicture::arrived(const FittedPictures::Loaded& loaded) {
  const auto file = std::exchange(wanted_, std::nullopt);
  if (!file || loaded.picture.isNull())
    return;
  shown_ = file;
  stage_.setRect(&image_, fitted(loaded.fullSize));
  image_.setPicture(loaded.picture);
  image_.show();
  Q_EMIT placed();
}

} // namespace hearthbook
