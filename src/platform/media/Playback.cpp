#include "Playback.h"

#include "PulseStream.h"
#include "SilentClock.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <exception>
#include <utility>
#include <vector>

namespace hearthbook {

namespace {

constexpr int lookAgainMs = 10;
constexpr std::size_t pieceBytes = 1 << 15;

/// The sound itself cannot be read, as opposed to what it is to be heard on.
struct BrokenSound {
  std::string why;
};

std::size_t readPiece(SoundSource& source, std::vector<std::byte>& piece, std::size_t room) {
  try {
    return source.read(piece.data(), std::min(room, piece.size()));
  } catch (const std::exception& failure) {
    throw BrokenSound{failure.what()};
  }
}

/// Hands over as much as there is room for; false when the sound has ended.
bool fill(PulseStream& out, SoundSource& source, std::vector<std::byte>& piece) {
  const auto frame = static_cast<std::size_t>(source.format().frameBytes());
  for (std::size_t room = out.room(); room >= frame; room = out.room()) {
    const std::size_t count = readPiece(source, piece, room);
    if (count == 0)
      return false;
    out.write(piece.data(), count);
  }
  return true;
}

} // namespace

Playback::Playback(std::shared_ptr<SoundSource> source, std::int64_t from, Listener listener)
    : source_(std::move(source)), listener_(std::move(listener)), position_(from),
      thread_([this] { run(); }) {}

Playback::~Playback() {
  stopped_ = true;
  thread_.join();
}

void Playback::run() {
  try {
    source_->goTo(position_);
    playAloud();
  } catch (const BrokenSound& sound) {
    return listener_.broken(sound.why);
  } catch (const std::exception& failure) {
    listener_.unheard(failure.what());
    countTime();
  }
  if (!stopped_)
    listener_.ended();
}

void Playback::playAloud() {
  PulseStream out(PulseStream::Direction::Play, source_->format());
  while (!stopped_ && !out.isReady())
    out.turn(lookAgainMs);
  const std::int64_t from = position_;
  std::vector<std::byte> piece(pieceBytes);
  bool hasMore = true;
  while (!stopped_ && !out.isPlayed()) {
    out.pause(paused_);
    if (hasMore && !fill(out, *source_, piece)) {
      hasMore = false;
      out.endHere();
    }
    out.turn(lookAgainMs);
    position_ = std::min(from + out.heard(), source_->length());
  }
}

void Playback::countTime() {
  SilentClock clock(position_, source_->length());
  while (!stopped_ && !clock.isAtEnd()) {
    std::this_thread::sleep_for(std::chrono::milliseconds(lookAgainMs));
    clock.pause(paused_);
    position_ = clock.position();
  }
}

} // namespace hearthbook
