#pragma once

#include "FittedPictures.h"

#include <QObject>
#include <QString>

#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

namespace hearthbook {

class LargePhoto;

/// The pixels of one large photo: decoded at the size at which a form shows it. Until they are
/// there what was shown stays, or is stretched; a broken photo is told and the not-found picture
/// stands in for it, with a note of what is wrong.
class ZoomPicture : public QObject {
  Q_OBJECT
public:
  /// The pixels in which a photo of this size is wanted when it is first shown.
  using Fit = FittedPictures::Fit;

  ZoomPicture(LargePhoto& image, PictureLoader& loader, WorkPool& pool,
              std::filesystem::path notFound, Fit fit, QObject* parent);

  void show(const std::filesystem::path& file);
  void clear();
  /// A note on what is shown, until another photo comes.
  void tell(const QString& note);
  /// The photo shown must not be taken for another one that is on its way: it goes.
  void clearFormer();
  /// The photo shown is wanted in other pixels, never more than its file has.
  void sharpen(PixelSize wanted);
  /// The photo is shown already, somewhere else, in these pixels, or is on its way there.
  void adopt(const ZoomPicture& other);
  void decodeAhead(std::vector<std::filesystem::path> files);
  void decodeAheadAgain(); ///< at another size of the form

  [[nodiscard]] bool isWaiting() const { return wanted_.has_value(); }
  [[nodiscard]] bool isSharpening() const { return sharpening_; }
  [[nodiscard]] PixelSize fullSize() const { return fullSize_; }
  [[nodiscard]] const QString& note() const { return note_; }
  /// The file whose picture is on the screen.
  [[nodiscard]] const std::optional<std::filesystem::path>& shown() const { return shown_; }

Q_SIGNALS:
  void placed();                   ///< another photo is shown, of fullSize()
  void broken(const QString& why); ///< the photo that was asked for cannot be read

private:
  void showNothing();
  void arrived(const FittedPictures::Loaded& loaded);
  void sharpenAgain(PixelSize decoded);
  void setSharpening(bool on);
  void endSharpening();
  void place(const FittedPictures::Loaded& loaded);

  LargePhoto& image_;
  FittedPictures pictures_;
  Fit fit_;
  std::vector<std::filesystem::path> ahead_;
  std::optional<std::filesystem::path> wanted_;
  std::optional<std::filesystem::path> shown_;
  PixelSize fullSize_;
  QString note_; ///< for the picture that comes
  bool sharpening_ = false;
  FittedPictures::Ticket ticket_;
  FittedPictures::Ticket sharper_;
};

} // namespace hearthbook
