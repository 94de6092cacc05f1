#pragma once

#include "EarlyCopy.h"
#include "PreparedPhoto.h"

#include <filesystem>
#include <memory>
#include <string_view>
#include <vector>

namespace hearthbook {

/// What has to be put on the disk for one photo.
struct PhotoWriteOrder {
  std::filesystem::path source;
  std::filesystem::path photo;     ///< where the photo goes
  std::filesystem::path thumbnail; ///< where its thumbnail goes
  std::filesystem::path backup;    ///< the folder for what would be written over
  std::shared_ptr<const PreparedPhoto> prepared;
  std::shared_ptr<EarlyCopy> early; ///< the photo, if it could be copied ahead
  Picture held; ///< the picture at hand: the source's thumbnail, or that of the file before
  bool reduce = false;
  bool remove = false; ///< the source has to go once the album has it
};

/// Writes the files of one photo, step by step; a step that fails is noted and the next follows.
/// Runs on any thread, without the album.
class PhotoWriter {
public:
  struct Kept {
    std::filesystem::path original;
    std::filesystem::path keptAs;
  };
  struct Outcome {
    std::vector<std::exception_ptr> failures; ///< in the order of the steps
    std::vector<Kept> kept;                   ///< album files that were in the way
  };

  explicit PhotoWriter(PhotoWriteOrder order);
  Outcome run();

private:
  /// What of the source the album has on its disk.
  enum class Holds { Nothing, ItsPicture, ItsBytes };

  template <class Step> void step(Step work);
  void writeThumbnail();
  void loadAgain() const;
  void writePhoto();
  void copyPhoto();
  void encodePhoto();
  void reducePhoto();
  [[nodiscard]] EncodedPicture reducedPhoto(std::uintmax_t length) const;
  void removeSource() const;

  void write(const std::filesystem::path& target, std::string_view bytes);
  void keep(const std::filesystem::path& target);
  [[nodiscard]] bool isLoaded() const { return !order_.prepared->loadFailure; }

  PhotoWriteOrder order_;
  Outcome outcome_;
  std::filesystem::path bytesFrom_; ///< the source, or where its bytes are kept by now
  bool photoIsOurs_ = false;        ///< what stands there was written for this photo
  Holds holds_ = Holds::Nothing;
};

} // namespace hearthbook
