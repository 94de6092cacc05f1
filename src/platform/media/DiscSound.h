#pragma once

#include "SoundSource.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

namespace hearthbook {

/// The audio disc in a drive, all of its tracks one behind the other.
class DiscSound : public SoundSource {
public:
  /// A drive, or an image of a disc (".cue"). Throws RunTimeError where there is no audio disc.
  explicit DiscSound(const std::filesystem::path& drive);
  ~DiscSound() override;

  [[nodiscard]] SoundFormat format() const override;
  [[nodiscard]] std::int64_t length() const override;
  void goTo(std::int64_t position) override;
  std::size_t read(std::byte* into, std::size_t bytes) override;

  [[nodiscard]] const std::filesystem::path& drive() const { return drive_; }
  [[nodiscard]] int tracks() const { return static_cast<int>(tracks_.size()); }
  [[nodiscard]] int trackAt(std::int64_t position) const; ///< from 1
  [[nodiscard]] std::int64_t startOf(int track) const;    ///< milliseconds

private:
  struct Disc;
  struct Track {
    int firstSector = 0;
    int sectors = 0;
    int before = 0; ///< sectors of the tracks before
  };

  void addTracks();
  [[nodiscard]] int sectors() const;
  void readSectors();

  std::filesystem::path drive_;
  std::unique_ptr<Disc> disc_;
  std::vector<Track> tracks_;
  int nextSector_ = 0;             ///< counted over the tracks
  std::vector<std::byte> waiting_; ///< read and not yet handed out, from `taken_` on
  std::size_t taken_ = 0;
  std::size_t skip_ = 0; ///< bytes of the next sector that lie before the position
};

/// The drive to play: HEARTHBOOK_DISC if that is set, else none, for the first with a disc.
std::filesystem::path wantedDrive();

// What waits for a drive, for many seconds perhaps: not for the window's thread.

/// Opens the disc in the drive; in the first with an audio disc where none is named. Throws
/// RunTimeError where there is none.
std::shared_ptr<DiscSound> openDisc(const std::filesystem::path& drive);

/// Opens its tray; that of the first drive where none is named. Throws RunTimeError where it cannot
/// be opened.
void ejectDisc(const std::filesystem::path& drive);

} // namespace hearthbook
