#pragma once

#include "AlbumPage.h"
#include "FittedPictures.h"

#include <QObject>
#include <QTimer>

#include <array>
#include <filesystem>
#include <optional>
#include <vector>

namespace hearthbook {

class PagePhoto;
class Stage;

/// The pixels of the photos of an album page: fits each into its box and has it decoded for the
/// screen, and the pages beside this one ahead.
///
/// Until a photo's pixels come the last one stays in its place, but not for long. A photo that
/// turns out to be broken is stood in for by the not-found picture.
class PagePictures : public QObject {
  Q_OBJECT
public:
  using Photos = std::array<PagePhoto*, photosOnPage>;

  /// Each photo fills its box on the stage for now.
  PagePictures(Stage& stage, const Photos& photos, PictureLoader& loader, WorkPool& pool,
               std::filesystem::path notFound, QObject* parent);

  void show(int cell, const std::filesystem::path& file);
  void clear(int cell); ///< the cell is empty

  struct Neighbour {
    std::filesystem::path file;
    int cell = 0; ///< in which it will stand
  };
  /// What will probably be shown next, the likeliest first; begun when the page is complete, and
  /// again at another size of the stage.
  void decodeAhead(std::vector<Neighbour> neighbours);

  /// The file whose picture is on the screen; nothing in an empty cell.
  [[nodiscard]] const std::optional<std::filesystem::path>& shown(int cell) const {
    return slots_[cell].shown;
  }

  /// True while pixels of the page are on their way.
  [[nodiscard]] bool isWaiting() const;

Q_SIGNALS:
  void placed(int cell); ///< the photo has its place and its pixels

private:
  struct Slot {
    std::optional<std::filesystem::path> wanted{};
    std::optional<std::filesystem::path> shown{};
    FittedPictures::Ticket ticket{};
  };

  [[nodiscard]] FittedPictures::Fit fitInto(int cell) const;
  void arrived(int cell, const FittedPictures::Loaded& loaded);
  void place(int cell, const FittedPictures::Loaded& loaded);
  void showAgain();
  void clearLate();
  void beginAhead();

  Stage& stage_;
  Photos photos_;
  FittedPictures pictures_;
  std::array<Slot, photosOnPage> slots_;
  std::vector<Neighbour> ahead_;
  bool aheadIsDue_ = false; ///< not yet begun
  QTimer patience_;
};

} // namespace hearthbook
