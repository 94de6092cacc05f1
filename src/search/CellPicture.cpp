#include "CellPicture.h"

#include "ImgRatio.h"
#include "PictureBox.h"
#include "Stage.h"

#include <utility>

namespace hearthbook {

namespace {

constexpr double side = 1090; // into which pictures are fitted, in twips

TwipsRect fittedInto(TwipsRect box, PixelSize picture) {
  return FitImage(box, picture.width, picture.height, side, side);
}

} // namespace

FittedPictures::Fit CellPicture::fitOn(const Stage& stage) {
  return [&stage](PixelSize picture) {
    const TwipsRect place = fittedInto({0, 0, side, side}, picture);
    const QSize pixels = stage.toDevicePixels({0, 0, place.width, place.height});
    return PixelSize{pixels.width(), pixels.height()};
  };
}

void CellPicture::show(FittedPictures& pictures, const std::filesystem::path& file) {
  clear();
  pictures_ = &pictures;
  file_ = file;
  request();
}

void CellPicture::clear() {
  ticket_.reset();
  waits_ = false;
  file_.clear();
  image_.clear();
  stage_.setRect(&image_, box_);
}

void CellPicture::request() {
  if (file_.empty())
    return;
  waits_ = true;
  ticket_ = pictures_->load(file_, fitOn(stage_), [this](const auto& loaded) { arrived(loaded); });
}

void CellPicture::arrived(const FittedPictures::Loaded& loaded) {
  waits_ = false;
  if (loaded.picture.isNull())
    return;
  file_ = loaded.file;
  stage_.setRect(&image_, fittedInto(box_, loaded.fullSize));
  image_.setPicture(loaded.picture);
  stage_.update(); // it paints what is around the picture
}

} // namespace hearthbook
