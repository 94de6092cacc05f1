#pragma once

#include "FittedPictures.h"
#include "Twips.h"

#include <QObject>

#include <filesystem>
#include <optional>
#include <vector>

namespace hearthbook {

class PictureBox;
class Stage;

/// The photo of a record editor: fits each picture into its box on the stage and has it
/// decoded for the device.
///
/// Place and picture change together, when the pixels are there: until then, and for good
/// where a file is broken, the last picture stays as it was.
class RecordPicture : public QObject {
  Q_OBJECT
public:
  /// `image` stands in its box on the stage, which it fills for now.
  RecordPicture(Stage& stage, PictureBox& image, PictureLoader& loader, WorkPool& pool,
                QObject* parent);

  void show(const std::filesystem::path& file);

  /// Has the pictures decoded that will probably be shown next.
  void decodeAhead(const std::vector<std::filesystem::path>& files);

  /// True from a show() until its picture is on the screen or has turned out to be broken.
  [[nodiscard]] bool isWaiting() const { return wanted_.has_value(); }
  /// The file whose picture is on the screen; nothing before the first one.
  [[nodiscard]] const std::optional<std::filesystem::path>& shown() const { return shown_; }

Q_SIGNALS:
  void placed(); ///< the image has a new place on the stage

private:
  [[nodiscard]] TwipsRect fitted(PixelSize picture) const;
  [[nodiscard]] FittedPictures::Fit fit() const;
  void showAgain();
  void arrived(const FittedPictures::Loaded& loaded);

  Stage& stage_;
  PictureBox& image_;
  FittedPictures pictures_;
  TwipsSize box_;
  std::optional<std::filesystem::path> wanted_;
  std::optional<std::filesystem::path> shown_;
  FittedPictures::Ticket ticket_;
};

} // namespace hearthbook
