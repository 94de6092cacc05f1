#include "DiscSound.h"

#include "RunTimeError.h"

#include <cdio/cdio.h>
#include <cdio/logging.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <mutex>
#include <utility>

#include <fcntl.h>
#include <linux/cdrom.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace hearthbook {

namespace {

constexpr SoundFormat discFormat{SoundFormat::Sample::S16, 2, 44100};
constexpr int sectorsPerSecond = CDIO_CD_FRAMES_PER_SEC;
constexpr std::size_t sectorBytes = CDIO_CD_FRAMESIZE_RAW;
constexpr int sectorsAtOnce = 16;

std::int64_t millisecondsOf(int sectors) { return std::int64_t{sectors} * 1000 / sectorsPerSecond; }

bool isImage(const std::filesystem::path& drive) { return drive.extension() == ".cue"; }

/// Once, as more than one thread may use a drive. What goes wrong is told by what the library
/// returns.
void useTheDiscLibrary() {
  [[maybe_unused]] static const bool isReady = [] {
    cdio_log_set_handler([](cdio_log_level_t, const char*) {});
    return cdio_init();
  }();
}

std::vector<std::filesystem::path> drives() {
  std::vector<std::filesystem::path> found;
  char** names = cdio_get_devices(DRIVER_DEVICE);
  for (char** name = names; name && *name; ++name)
    found.emplace_back(*name);
  cdio_free_device_list(names);
  return found;
}

/// With a disc in it or not: its tray may be opened to put one in.
std::filesystem::path firstDrive() {
  const auto found = drives();
  if (found.empty())
    throw RunTimeError("There is no disc drive.");
  return found.front();
}

/// The library ejects discs only, and leaves a drive without one as it is.
bool openEmptyTray(const std::filesystem::path& drive) {
  const int device = ::open(drive.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (device < 0)
    return false;
  const bool isOpen = ::ioctl(device, CDROMEJECT) == 0;
  ::close(device);
  return isOpen;
}

/// The library takes an image's list of tracks apart by what all threads share, so one image at a
/// time; one that comes slowly is waited for before it is its turn.
CdIo_t* openedImage(const std::filesystem::path& image) {
  std::ifstream(image).peek();
  static std::mutex oneAtATime;
  const std::lock_guard lock(oneAtATime);
  return cdio_open(image.c_str(), DRIVER_BINCUE);
}

/// A drive waits for nobody: it may hang.
CdIo_t* opened(const std::filesystem::path& drive) {
  if (!isImage(drive))
    return cdio_open(drive.c_str(), DRIVER_DEVICE);
  return openedImage(drive);
}

} // namespace

struct DiscSound::Disc {
  explicit Disc(const std::filesystem::path& drive) : disc(opened(drive)) {}
  ~Disc() {
    if (disc)
      cdio_destroy(disc);
  }
  Disc(const Disc&) = delete;
  Disc& operator=(const Disc&) = delete;

  CdIo_t* disc;
};

DiscSound::DiscSound(const std::filesystem::path& drive) : drive_(drive) {
  useTheDiscLibrary();
  disc_ = std::make_unique<Disc>(drive);
  if (disc_->disc)
    addTracks();
  if (tracks_.empty())
    throw RunTimeError("There is no audio disc in the drive " + drive.string() + ".");
}

DiscSound::~DiscSound() = default;

void DiscSound::addTracks() {
  const int first = cdio_get_first_track_num(disc_->disc);
  const int count = cdio_get_num_tracks(disc_->disc);
  if (first == CDIO_INVALID_TRACK || count == CDIO_INVALID_TRACK)
    return;
  for (int number = first; number < first + count; ++number) {
    const auto track = static_cast<track_t>(number);
    const lsn_t start = cdio_get_track_lsn(disc_->disc, track);
    const lsn_t last = cdio_get_track_last_lsn(disc_->disc, track);
    const bool isAudio = cdio_get_track_format(disc_->disc, track) == TRACK_FORMAT_AUDIO;
    if (isAudio && start != CDIO_INVALID_LSN && last >= start)
      tracks_.push_back({start, last - start + 1, sectors()});
  }
}

int DiscSound::sectors() const {
  return tracks_.empty() ? 0 : tracks_.back().before + tracks_.back().sectors;
}

SoundFormat DiscSound::format() const { return discFormat; }

std::int64_t DiscSound::length() const { return millisecondsOf(sectors()); }

int DiscSound::trackAt(std::int64_t position) const {
  int track = 1;
  while (track < tracks() && startOf(track + 1) <= position)
    ++track;
  return track;
}

std::int64_t DiscSound::startOf(int track) const {
  return millisecondsOf(tracks_[static_cast<std::size_t>(track - 1)].before);
}

void DiscSound::goTo(std::int64_t position) {
  const std::int64_t byte = discFormat.byteAt(position);
  const auto sector = byte / static_cast<std::int64_t>(sectorBytes);
  nextSector_ = static_cast<int>(sector);
  waiting_.clear();
  taken_ = 0;
  skip_ = static_cast<std::size_t>(byte) % sectorBytes;
}

std::size_t DiscSound::read(std::byte* into, std::size_t bytes) {
  if (taken_ == waiting_.size() && nextSector_ < sectors())
    readSectors();
  const std::size_t count = std::min(bytes, waiting_.size() - taken_);
  std::memcpy(into, waiting_.data() + taken_, count);
  taken_ += count;
  return count;
}

void DiscSound::readSectors() {
  const auto inTrack = [this](const Track& track) {
    return nextSector_ < track.before + track.sectors;
  };
  const Track& track = *std::ranges::find_if(tracks_, inTrack);
  const int at = nextSector_ - track.before;
  const int count = std::min(sectorsAtOnce, track.sectors - at);
  waiting_.assign(static_cast<std::size_t>(count) * sectorBytes, std::byte{0});
  taken_ = std::exchange(skip_, 0);
  const auto result = cdio_read_audio_sectors(disc_->disc, waiting_.data(), track.firstSector + at,
                                              static_cast<unsigned>(count));
  if (result != DRIVER_OP_SUCCESS)
    throw RunTimeError("The disc in the drive " + drive_.string() + " cannot be read any more.");
  nextSector_ += count;
}

std::filesystem::path wantedDrive() {
  const char* wanted = std::getenv("HEARTHBOOK_DISC");
  return wanted ? wanted : "";
}

std::shared_ptr<DiscSound> openDisc(const std::filesystem::path& drive) {
  useTheDiscLibrary();
  if (!drive.empty())
    return std::make_shared<DiscSound>(drive);
  for (const auto& each : drives()) {
    try {
      return std::make_shared<DiscSound>(each);
    } catch (const RunTimeError&) {
      continue; // perhaps the next one has a disc
    }
  }
  throw RunTimeError("There is no drive with an audio disc in it.");
}

void ejectDisc(const std::filesystem::path& wanted) {
  useTheDiscLibrary();
  const auto drive = wanted.empty() ? firstDrive() : wanted;
  const bool isEjected = cdio_eject_media_drive(drive.c_str()) == DRIVER_OP_SUCCESS;
  if (!isEjected && !openEmptyTray(drive))
    throw RunTimeError("The drive " + drive.string() + " cannot be opened.");
}

} // namespace hearthbook
