#include "Playback.h"

#include "PulseStream.h"
#include "SilentClock.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace hearthbook {

namespace {

constexpr int lookAgainMs = 10;
constexpr std::size_t pieceBytes = 1 << 15;
/// A thread that does not hang has ended by then.
constexpr auto endsWithin = std::chrono::milliseconds(50);

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
bool fill(PulseStream& out, SoundSource& source, std::vector<std::byte>& piece,
          const std::atomic<bool>& stopped) {
  const auto frame = static_cast<std::size_t>(source.format().frameBytes());
  for (std::size_t room = out.room(); room >= frame && !stopped; room = out.room()) {
    const std::size_t count = readPiece(source, piece, room);
    if (count == 0)
      return false;
    out.write(piece.data(), count);
  }
  return true;
}

} // namespace

/// What the thread works with. It is the thread's as well, which may outlive the object.
struct Playback::Run {
  Run(std::shared_ptr<SoundSource> sound, std::int64_t from, Listener told)
      : source(std::move(sound)), listener(std::move(told)), position(from) {}

  void run();
  void play();
  void playAloud();
  void countTime();
  template <class Tell, class... What> void tell(const Tell& to, const What&... what);
  void stop();

  std::shared_ptr<SoundSource> source;
  Listener listener;
  std::atomic<std::int64_t> position;
  std::atomic<bool> paused = false;
  std::atomic<bool> stopped = false; ///< set under `ending`, so that nothing is told behind it
  std::mutex ending;
  std::condition_variable ended;
  bool hasEnded = false;
};

template <class Tell, class... What> void Playback::Run::tell(const Tell& to, const What&... what) {
  const std::lock_guard<std::mutex> notStoppedMeanwhile(ending);
  if (!stopped)
    to(what...);
}

void Playback::Run::run() {
  {
    // The one before may still hang in it.
    const std::lock_guard<std::mutex> alone(source->inUse);
    if (!stopped)
      play();
  }
  const std::lock_guard<std::mutex> lock(ending);
  hasEnded = true;
  ended.notify_all();
}

void Playback::Run::stop() {
  std::unique_lock<std::mutex> lock(ending);
  stopped = true;
  ended.wait_for(lock, endsWithin, [this] { return hasEnded; });
}

void Playback::Run::play() {
  try {
    source->goTo(position);
    playAloud();
  } catch (const BrokenSound& sound) {
    return tell(listener.broken, sound.why);
  } catch (const std::exception& failure) {
    tell(listener.unheard, std::string(failure.what()));
    countTime();
  }
  tell(listener.ended);
}

void Playback::Run::playAloud() {
  if (stopped)
    return;
  PulseStream out(PulseStream::Direction::Play, source->format());
  while (!stopped && !out.isReady())
    out.turn(lookAgainMs);
  const std::int64_t from = position;
  std::vector<std::byte> piece(pieceBytes);
  bool hasMore = true;
  while (!stopped && !out.isPlayed()) {
    out.pause(paused);
    if (hasMore && !fill(out, *source, piece, stopped)) {
      hasMore = false;
      out.endHere();
    }
    out.turn(lookAgainMs);
    position = std::min(from + out.heard(), source->length());
  }
}

void Playback::Run::countTime() {
  SilentClock clock(position, source->length());
  while (!stopped && !clock.isAtEnd()) {
    std::this_thread::sleep_for(std::chrono::milliseconds(lookAgainMs));
    clock.pause(paused);
    position = clock.position();
  }
}

Playback::Playback(std::shared_ptr<SoundSource> source, std::int64_t from, Listener listener)
    : run_(std::make_shared<Run>(std::move(source), from, std::move(listener))) {
  std::thread([run = run_] { run->run(); }).detach();
}

Playback::~Playback() { run_->stop(); }

void Playback::pause(bool paused) { run_->paused = paused; }

std::int64_t Playback::position() const { return run_->position; }

} // namespace hearthbook
