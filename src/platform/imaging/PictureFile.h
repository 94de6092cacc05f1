#pragma once

#include "InputFile.h"
#include "Picture.h"

#include <memory>
#include <string>

namespace hearthbook {

enum class FileFormat { Jpeg, Png, Bmp, Tiff, Ico, Gif, Pcx, Tga };

/// "jpeg", "png", ... as PictureInfo tells it.
std::string formatName(FileFormat format);

/// A picture file whose head has been read. Everything in it lies as stored, not yet upright.
class PictureFile {
public:
  struct Head {
    PixelSize size;
    int orientation = 1;
    FileFormat format = FileFormat::Jpeg;
  };
  struct Pixels {
    Picture picture; ///< in sRGB
    bool cut = false;
  };

  virtual ~PictureFile() = default;
  [[nodiscard]] virtual Head head() const = 0; ///< corrected by read() where it was wrong
  /// The pixels, once: at the full size, or at a smaller one that is no smaller than `atLeast`
  /// where the format gives that sooner. Throws RunTimeError.
  virtual Pixels read(PixelSize atLeast) = 0;
};

/// Opens a file as what its content says it is, whatever its name, and reads its head. Throws
/// RunTimeError for anything but the formats above and for pictures over maxPixels.
std::unique_ptr<PictureFile> openPictureFile(const std::filesystem::path& path);

/// The libraries behind it.
std::unique_ptr<PictureFile> openJpeg(InputFile file);
std::unique_ptr<PictureFile> openThroughQt(InputFile file, FileFormat format);
std::unique_ptr<PictureFile> openThroughSdl(InputFile file, FileFormat format);

} // namespace hearthbook
