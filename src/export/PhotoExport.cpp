#include "PhotoExport.h"

#include "ApplicationFolder.h"
#include "AudioFiles.h"
#include "Decode.h"
#include "Encode.h"
#include "ExportPages.h"
#include "FileError.h"
#include "PlainFile.h"
#include "Resample.h"
#include "Spelling.h"

#include <algorithm>
#include <sstream>

namespace hearthbook {

namespace fs = std::filesystem;

namespace {

/// How large a photo is decoded before it is averaged down. The decoder's own reduction is quick
/// and leaves sand and leaves a little off; where an average over two pixels each way follows, that
/// is not seen, and a photo that is not much larger than its export is decoded whole.
int decodedSide(PixelSize photo, PixelSize exported) {
  const int whole = std::max(photo.width, photo.height);
  const int wanted = std::max(exported.width, exported.height);
  return whole <= 5 * wanted ? whole : 2 * wanted;
}

fs::path asSpelled(const fs::path& file) {
  return file.parent_path() / spellingIn(file.parent_path(), file.filename().string());
}

class PhotoExporter {
public:
  explicit PhotoExporter(PhotoExportOrder order) : order_(std::move(order)) {}

  ExportedPhoto run() {
    if (order_.onDisc)
      for (fs::path* file : {&order_.photo, &order_.thumbnail})
        *file = asSpelled(*file);
    const bool isMissing = !fileExists(order_.photo);
    copyThumbnail(isMissing);
    if (isMissing) {
      tell("is missing");
      return result_;
    }
    if (order_.limits)
      writeReduced();
    else
      copyPhoto();
    copySound();
    writePlainFile(inData(".htm"), result_.hasSound ? order_.pageWithSound : order_.page);
    result_.hasPage = true;
    return result_;
  }

private:
  void tell(const char* trouble) { result_.troubles.emplace_back(trouble); }

  [[nodiscard]] std::string number() const { return std::to_string(order_.number); }
  [[nodiscard]] fs::path inData(const std::string& extension) const {
    return order_.target / "data" / (number() + extension);
  }

  bool copy(const fs::path& source, const fs::path& target, const char* trouble) {
    try {
      copyPlainFile(source, target);
      return true;
    } catch (const UnreadableFile&) {
      tell(trouble);
      return false;
    }
  }

  /// A photo that is missing is told once.
  void copyThumbnail(bool photoIsMissing) {
    if (fileExists(order_.thumbnail))
      copy(order_.thumbnail, order_.target / "data" / ("t" + number() + ".jpg"),
           "has a thumbnail that could not be read");
    else if (!photoIsMissing)
      tell("has no thumbnail");
  }

  void copyPhoto() {
    if (copy(order_.photo, inData(".jpg"), "could not be read"))
      lookAtHead();
    if (order_.previewSide > 0)
      result_.shown = pictureWithinOrNone(order_.photo, order_.previewSide);
  }

  /// The family learns of a broken photo also where no pixel of it is read.
  void lookAtHead() {
    try {
      readPictureInfo(order_.photo);
    } catch (const RunTimeError&) {
      tell("could not be read");
    }
  }

  void writeReduced() {
    result_.shown = reduced();
    if (result_.shown.isNull())
      return;
    std::ostringstream jpeg;
    writeJpeg(jpeg, result_.shown, order_.factor);
    writePlainFile(inData(".jpg"), jpeg.view());
  }

  /// The pixels alone: what the camera has noted of place and time does not go out with them.
  Picture reduced() {
    try {
      const PixelSize whole = readPictureInfo(order_.photo).size;
      const PixelSize size = exportedSize(whole, *order_.limits);
      const auto decoded = decodePictureRoughly(order_.photo, decodedSide(whole, size));
      if (decoded.cut)
        tell("is not whole");
      return resample(decoded.picture, size);
    } catch (const RunTimeError&) {
      tell("could not be read");
      return {};
    }
  }

  void copySound() {
    result_.hasSound =
        order_.sound &&
        copy(*order_.sound, order_.target / "audio" / (number() + soundExtension(*order_.sound)),
             "has a sound that could not be read");
  }

  PhotoExportOrder order_;
  ExportedPhoto result_;
};

} // namespace

ExportedPhoto exportPhoto(const PhotoExportOrder& order) { return PhotoExporter(order).run(); }

} // namespace hearthbook
