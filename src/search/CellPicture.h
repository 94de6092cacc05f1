#pragma once

#include "FittedPictures.h"
#include "Twips.h"

#include <filesystem>

namespace hearthbook {

class PictureBox;
class Stage;

/// The thumbnail of one cell: has its pixels decoded for the device and fits it into its box on
/// the stage when they come.
///
/// The pixels of another photo never stay meanwhile: what is selected by the look of it may be
/// deleted next.
class CellPicture {
public:
  /// `box` is the whole cell.
  CellPicture(Stage& stage, PictureBox& image, TwipsRect box)
      : stage_(stage), image_(image), box_(box) {}

  void show(FittedPictures& pictures, const std::filesystem::path& file);
  void clear();
  void request(); ///< the pixels for the present size of the stage

  [[nodiscard]] bool isWaiting() const { return waits_; }
  [[nodiscard]] const std::filesystem::path& file() const { return file_; } ///< empty for none
  /// At which size pictures are wanted: the same in each cell, so that one can be decoded before
  /// it is known in which it will be.
  [[nodiscard]] static FittedPictures::Fit fitOn(const Stage& stage);

private:
  void arrived(const FittedPictures::Loaded& loaded);

  Stage& stage_;
  PictureBox& image_;
  TwipsRect box_;
  FittedPictures* pictures_ = nullptr;
  std::filesystem::path file_; ///< empty where there is nothing to show
  FittedPictures::Ticket ticket_;
  bool waits_ = false;
};

} // namespace hearthbook
