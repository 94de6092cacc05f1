#include "ZoomPicture.h"

#include "LargePhoto.h"
#include "Resample.h"
#include "Text.h"

#include <utility>

namespace hearthbook {

namespace {

/// What is shown larger is stretched.
PixelSize withinFile(PixelSize wanted, PixelSize full) {
  const bool isMore = wanted.width > full.width || wanted.height > full.height;
  return sizeOfAtMost(mostDecoded, isMore ? full : wanted);
}

} // namespace

ZoomPicture::ZoomPicture(LargePhoto& image, PictureLoader& loader, WorkPool& pool,
                         std::filesystem::path notFound, Fit fit, QObject* parent)
    : QObject(parent), image_(image), pictures_(loader, pool, std::move(notFound)),
      fit_([fit = std::move(fit)](PixelSize own) { return sizeOfAtMost(mostDecoded, fit(own)); }) {}

void ZoomPicture::show(const std::filesystem::path& file) {
  note_.clear();
  endSharpening();
  wanted_ = file;
  ticket_ = pictures_.load(file, fit_, [this](const auto& loaded) { arrived(loaded); });
}

void ZoomPicture::arrived(const FittedPictures::Loaded& loaded) {
  wanted_.reset();
  if (!loaded.error.empty())
    note_ = toQString(loaded.error);
  if (loaded.picture.isNull())
    clear();
  else
    place(loaded);
  if (!loaded.error.empty())
    Q_EMIT broken(note_);
}

void ZoomPicture::place(const FittedPictures::Loaded& loaded) {
  shown_ = loaded.file;
  fullSize_ = loaded.fullSize;
  image_.setPicture(loaded.picture);
  image_.setNote(note_);
  Q_EMIT placed();
  sharpenAgain(loaded.picture.size());
}

/// The form may have got another size while the photo was on its way.
void ZoomPicture::sharpenAgain(PixelSize decoded) {
  const PixelSize wanted = fit_(fullSize_);
  if (wanted != decoded)
    sharpen(wanted);
}

void ZoomPicture::tell(const QString& note) {
  note_ = note;
  image_.setNote(note_);
}

void ZoomPicture::clear() {
  ticket_.reset();
  endSharpening();
  wanted_.reset();
  showNothing();
}

void ZoomPicture::clearFormer() {
  if (wanted_ && wanted_ != shown_)
    showNothing();
}

void ZoomPicture::showNothing() {
  shown_.reset();
  fullSize_ = {};
  image_.clear();
  image_.setNote({});
}

void ZoomPicture::sharpen(PixelSize wanted) {
  if (!shown_ || wanted_)
    return;
  const PixelSize size = withinFile(wanted, fullSize_);
  sharper_.reset();
  setSharpening(size != image_.picture().size());
  if (!sharpening_)
    return;
  sharper_ = pictures_.load(
      *shown_, [size](PixelSize) { return size; },
      [this](const auto& loaded) {
        setSharpening(false);
        if (loaded.error.empty())
          image_.setPicture(loaded.picture);
      });
}

void ZoomPicture::setSharpening(bool on) {
  sharpening_ = on;
  image_.expectFiner(on);
}

void ZoomPicture::endSharpening() {
  sharper_.reset();
  setSharpening(false);
}

void ZoomPicture::adopt(const ZoomPicture& other) {
  clear();
  shown_ = other.shown_;
  fullSize_ = other.fullSize_;
  image_.setPicture(other.image_.picture());
  tell(other.note_);
  Q_EMIT placed();
  if (other.wanted_)
    show(*other.wanted_);
}

void ZoomPicture::decodeAhead(std::vector<std::filesystem::path> files) {
  ahead_ = std::move(files);
  decodeAheadAgain();
}

void ZoomPicture::decodeAheadAgain() { pictures_.decodeAhead(ahead_, fit_); }

} // namespace hearthbook
