#include "RecordPicture.h"

#include "Beside.h"
#include "ImgRatio.h"
#include "PictureBox.h"
#include "Stage.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace hearthbook {

namespace {

struct FileSize {
  std::filesystem::path file;
  PixelSize size;
};

/// The files whose heads can be read; a broken or missing one is simply not decoded ahead.
std::vector<FileSize> readSizes(const std::vector<std::filesystem::path>& files) {
  std::vector<FileSize> sizes;
  for (const auto& file : files) {
    try {
      sizes.push_back({file, readPictureInfo(file).size});
    } catch (const std::exception&) { // NOLINT(bugprone-empty-catch): show() will tell
    }
  }
  return sizes;
}

} // namespace

RecordPicture::RecordPicture(Stage& stage, PictureBox& image, PictureLoader& loader, WorkPool& pool,
                             QObject* parent)
    : QObject(parent), stage_(stage), image_(image), loader_(loader),
      pool_(pool), box_{stage.rect(&image).width, stage.rect(&image).height} {
  connect(&stage_, &Stage::scaled, this, &RecordPicture::request);
}

void RecordPicture::show(const std::filesystem::path& file) {
  wanted_.reset();
  ticket_ = {};
  wanted_ = Source{file, readPictureInfo(file).size};
  request();
}

void RecordPicture::decodeAhead(const std::vector<std::filesystem::path>& files) {
  runBeside(
      pool_, this, [files] { return readSizes(files); },
      [this](const std::vector<FileSize>& sizes) {
        std::vector<std::pair<std::filesystem::path, PixelSize>> wishes;
        wishes.reserve(sizes.size());
        for (const auto& [path, size] : sizes)
          wishes.emplace_back(path, devicePixels(fitted(size)));
        loader_.decodeAhead(wishes);
      });
}

TwipsRect RecordPicture::fitted(PixelSize picture) const {
  return FitImage(stage_.rect(&image_), picture.width, picture.height, box_.width, box_.height);
}

PixelSize RecordPicture::devicePixels(TwipsRect rect) const {
  const QSize size = stage_.toPixels(rect).size();
  const double ratio = image_.devicePixelRatioF();
  return {std::max(1, static_cast<int>(std::lround(size.width() * ratio))),
          std::max(1, static_cast<int>(std::lround(size.height() * ratio)))};
}

void RecordPicture::request() {
  if (!wanted_)
    wanted_ = shown_;
  if (!wanted_)
    return;
  ticket_ = loader_.load(wanted_->file, devicePixels(fitted(wanted_->size)),
                         [this](const PictureLoader::Loaded& loaded) { arrived(loaded); });
}

void RecordPicture::arrived(const PictureLoader::Loaded& loaded) {
  const auto source = std::exchange(wanted_, std::nullopt);
  if (!source || loaded.decoded.picture.isNull())
    return;
  shown_ = source;
  stage_.setRect(&image_, fitted(source->size));
  image_.setPicture(loaded.decoded.picture);
  image_.show();
  Q_EMIT placed();
}

} // namespace hearthbook
