#include "PhotoWriter.h"

#include "ApplicationFolder.h"
#include "Encode.h"
#include "Resample.h"
#include "RunTimeError.h"
#include "SafeFile.h"
#include "ThumbnailSize.h"
#include "Trash.h"

#include <ostream>
#include <string>
#include <system_error>

namespace hearthbook {

namespace fs = std::filesystem;

namespace {

bool isSameFile(const fs::path& a, const fs::path& b) {
  std::error_code missing;
  return fs::equivalent(a, b, missing);
}

bool isReadOnly(const fs::path& file) {
  return (fs::status(file).permissions() & fs::perms::owner_write) == fs::perms::none;
}

/// "Photos 00001.jpg", "Photos 00001 (2).jpg", ...
std::string nameInBackup(const fs::path& original, int number) {
  std::string name = original.parent_path().filename().string();
  name += " " + original.stem().string();
  if (number > 1)
    name += " (" + std::to_string(number) + ")";
  return name += original.extension().string();
}

/// Nothing in Backup is written over.
fs::path freePlaceInBackup(const fs::path& backup, const fs::path& original) {
  int number = 1;
  while (fileExists(backup / nameInBackup(original, number)))
    ++number;
  return backup / nameInBackup(original, number);
}

} // namespace

PhotoWriter::PhotoWriter(PhotoWriteOrder order)
    : order_(std::move(order)), bytesFrom_(order_.source) {}

PhotoWriter::Outcome PhotoWriter::run() {
  if (order_.held.isNull())
    step([] { throw RunTimeError("There is no picture to make a thumbnail of."); });
  step([this] { writeThumbnail(); });
  step([this] { loadAgain(); });
  step([this] { writePhoto(); });
  if (order_.reduce)
    step([this] { reducePhoto(); });
  if (order_.remove)
    step([this] { removeSource(); });
  return std::move(outcome_);
}

template <class Step> void PhotoWriter::step(Step work) {
  try {
    work();
  } catch (...) {
    outcome_.failures.push_back(std::current_exception());
  }
}

void PhotoWriter::writeThumbnail() {
  if (isLoaded())
    write(order_.thumbnail, order_.prepared->thumbnailJpeg.bytes());
  else
    write(order_.thumbnail, jpegBytes(order_.held, thumbnailFactor));
}

/// The photo is made of a picture loaded anew, which fails as it failed for the thumbnail.
void PhotoWriter::loadAgain() const {
  if (!isLoaded())
    std::rethrow_exception(order_.prepared->loadFailure);
}

void PhotoWriter::writePhoto() {
  if (isStoredAsItIs(order_.source))
    copyPhoto();
  else
    encodePhoto();
}

void PhotoWriter::copyPhoto() {
  if (isSameFile(bytesFrom_, order_.photo)) {
    flushToDisk(order_.photo); // it is where it belongs
  } else {
    keep(order_.photo);
    if (!order_.early || !order_.early->place(bytesFrom_, order_.photo))
      copyFileSafely(bytesFrom_, order_.photo);
    photoIsOurs_ = true;
  }
  holds_ = Holds::ItsBytes;
}

void PhotoWriter::encodePhoto() {
  if (isLoaded()) {
    write(order_.photo, order_.prepared->photoJpeg.bytes());
    holds_ = Holds::ItsPicture;
  } else {
    write(order_.photo, jpegBytes(order_.held, photoFactor));
  }
  photoIsOurs_ = true;
}

void PhotoWriter::reducePhoto() {
  const std::uintmax_t length = fs::file_size(order_.photo);
  if (length <= reductionLimit)
    return;
  const EncodedPicture reduced = reducedPhoto(length);
  if (photoIsOurs_)
    replaceFile(order_.photo, [&](std::ostream& out) { out << reduced.bytes(); });
  else
    write(order_.photo, reduced.bytes());
  holds_ = isLoaded() ? Holds::ItsPicture : Holds::Nothing;
}

EncodedPicture PhotoWriter::reducedPhoto(std::uintmax_t length) const {
  const PreparedPhoto& prepared = *order_.prepared;
  if (!isLoaded())
    return EncodedPicture([&] {
      const PixelSize size = reducedSize(order_.held.size(), length);
      return jpegBytes(resample(order_.held, size), photoFactor);
    });
  if (prepared.reducedFrom == length)
    return prepared.reducedJpeg;
  return encodeReduced(bytesFrom_, prepared.size, length); // the source has changed meanwhile
}

void PhotoWriter::removeSource() const {
  if (isReadOnly(order_.source) || isSameFile(order_.source, order_.photo) ||
      isSameFile(order_.source, order_.thumbnail))
    return;
  switch (holds_) {
  case Holds::ItsBytes:
    deleteFile(order_.source);
    break;
  case Holds::ItsPicture:
    moveToTrash(order_.source, order_.backup);
    break;
  case Holds::Nothing:
    throw RunTimeError("The file " + order_.source.string() +
                       " stays where it is, because the album has no photo of it.");
  }
}

void PhotoWriter::write(const fs::path& target, std::string_view bytes) {
  keep(target);
  replaceFile(target, [&](std::ostream& out) { out << bytes; });
}

/// A copy, so that what is in the way is never absent from its place.
void PhotoWriter::keep(const fs::path& target) {
  if (!fileExists(target))
    return;
  fs::create_directories(order_.backup);
  const fs::path keptAs = freePlaceInBackup(order_.backup, target);
  copyFileSafely(target, keptAs);
  if (isSameFile(bytesFrom_, target))
    bytesFrom_ = keptAs;
  outcome_.kept.push_back({target, keptAs});
}

} // namespace hearthbook
