#pragma once

#include "Picture.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace hearthbook {

/// What has to be put on the disk for one photo of the exported album.
struct PhotoExportOrder {
  std::int64_t number = 0; ///< of the photo, from 1: its files are called so
  bool onDisc = false;     ///< where files may shout: "00012.JPG"
  std::filesystem::path photo;
  std::filesystem::path thumbnail;
  std::optional<std::filesystem::path> sound;
  std::filesystem::path target;    ///< the folder of the exported album
  std::optional<PixelSize> limits; ///< nothing: the photo is copied
  int factor = 0;                  ///< of the compression
  int previewSide = 0;             ///< of a photo that is copied: show it this large; 0: do not
  std::string page;                ///< the side page
  std::string pageWithSound;       ///< the same once the sound is there
};

/// What became of it. A photo that is missing or broken is no failure.
struct ExportedPhoto {
  Picture shown;                     ///< for who waits
  std::vector<std::string> troubles; ///< "is missing", "could not be read", ...
  bool hasPage = false;              ///< a missing photo has none
  bool hasSound = false;
};

/// Runs on any thread. What cannot be read is a trouble; what cannot be written is a
/// RunTimeError, which ends the export.
ExportedPhoto exportPhoto(const PhotoExportOrder& order);

} // namespace hearthbook
