#include "PackedWave.h"

#include "FileError.h"
#include "RunTimeError.h"

#include <algorithm>
#include <cerrno>
#include <string>
#include <utility>
#include <vector>

#include <sndfile.h>
#include <sys/stat.h>
#include <unistd.h>

namespace hearthbook {

namespace {

// Bare MP3, for which the library takes no head of a wave.
constexpr unsigned mpegPacking = 0x50;
constexpr unsigned mp3Packing = 0x55;

/// The part of a file that the library is shown.
struct Window {
  FileDescriptor file;
  std::int64_t start = 0;
  std::int64_t size = 0;
  std::int64_t place = 0;
  int failure = 0; ///< the system's number for why it could not be read
};

Window& windowOf(void* opaque) { return *static_cast<Window*>(opaque); }

sf_count_t sizeOfWindow(void* opaque) { return windowOf(opaque).size; }

sf_count_t placeInWindow(void* opaque) { return windowOf(opaque).place; }

sf_count_t seekInWindow(sf_count_t offset, int whence, void* opaque) {
  Window& window = windowOf(opaque);
  const std::int64_t from = whence == SEEK_CUR   ? window.place
                            : whence == SEEK_END ? window.size
                                                 : 0;
  window.place = std::clamp<std::int64_t>(from + offset, 0, window.size);
  return window.place;
}

sf_count_t readFromWindow(void* into, sf_count_t count, void* opaque) {
  Window& window = windowOf(opaque);
  const std::int64_t wanted = std::min<std::int64_t>(count, window.size - window.place);
  const ssize_t got = ::pread(window.file.number(), into, static_cast<std::size_t>(wanted),
                              window.start + window.place);
  if (got < 0) {
    window.failure = errno;
    return 0;
  }
  window.place += got;
  return got;
}

SF_VIRTUAL_IO windowAccess{sizeOfWindow, seekInWindow, readFromWindow, nullptr, placeInWindow};

struct CloseSound {
  void operator()(SNDFILE* sound) const { sf_close(sound); }
};

Window windowOnto(FileDescriptor file, const WaveInfo& info) {
  if (info.packing == mpegPacking || info.packing == mp3Packing)
    return {std::move(file), info.dataStart, info.dataBytes};
  struct stat status {};
  ::fstat(file.number(), &status);
  return {std::move(file), 0, status.st_size};
}

} // namespace

struct PackedWave::Unpacker {
  Unpacker(FileDescriptor file, const WaveInfo& info) : window(windowOnto(std::move(file), info)) {
    begin();
  }
  void begin();
  /// The next moments; fewer than asked for at the end only.
  sf_count_t read(short* into, sf_count_t moments);
  /// The library's own way to a place makes noise of MP3 and does not know GSM at all.
  void goTo(sf_count_t place);

  Window window;
  SF_INFO told{};
  std::unique_ptr<SNDFILE, CloseSound> sound;
  sf_count_t next = 0; ///< the moment at which it stands
};

void PackedWave::Unpacker::begin() {
  window.place = 0;
  told = {};
  sound.reset(sf_open_virtual(&windowAccess, SFM_READ, &told, &window));
  if (sound)
    sf_command(sound.get(), SFC_SET_CLIPPING, nullptr, SF_TRUE);
  next = 0;
}

sf_count_t PackedWave::Unpacker::read(short* into, sf_count_t moments) {
  const sf_count_t got = sound ? sf_readf_short(sound.get(), into, moments) : 0;
  next += got;
  return got;
}

void PackedWave::Unpacker::goTo(sf_count_t place) {
  if (place < next)
    begin();
  constexpr sf_count_t momentsOfAPiece = 4096;
  std::vector<short> piece(static_cast<std::size_t>(momentsOfAPiece * told.channels));
  while (next < place && read(piece.data(), std::min(place - next, momentsOfAPiece)) > 0)
    continue;
}

PackedWave::PackedWave(std::filesystem::path name, FileDescriptor file, const WaveInfo& info)
    : name_(std::move(name)), unpacker_(std::make_unique<Unpacker>(std::move(file), info)) {
  const SF_INFO& told = unpacker_->told;
  if (!unpacker_->sound || told.channels < 1 || told.samplerate < 1)
    throw RunTimeError("its sound is packed in a way that is not known here (" +
                       std::to_string(info.packing.value_or(0)) + ")");
  format_ = {SoundFormat::Sample::S16, told.channels, told.samplerate};
  const std::int64_t mostFrames = mostWaveBytes(format_) / format_.frameBytes();
  bytes_ = std::clamp<std::int64_t>(told.frames, 0, mostFrames) * format_.frameBytes();
}

PackedWave::~PackedWave() = default;

std::size_t PackedWave::readAt(std::int64_t place, std::byte* into, std::size_t count) {
  const std::lock_guard<std::mutex> alone(turn_);
  const auto frame = format_.frameBytes();
  const auto there = std::clamp<std::int64_t>(bytes_ - place, 0, static_cast<std::int64_t>(count));
  unpacker_->goTo(place / frame);
  const bool isThere = unpacker_->next == place / frame &&
                       unpacker_->told.channels == format_.channels; // not another file by now
  const sf_count_t got =
      isThere ? unpacker_->read(reinterpret_cast<short*>(into), there / frame) : 0;
  if (const int failure = std::exchange(unpacker_->window.failure, 0); failure != 0)
    throwFileError("read", name_, failure);
  return static_cast<std::size_t>(got * frame);
}

} // namespace hearthbook
