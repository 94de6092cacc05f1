#include "Playback.h"

#include "SilentClock.h"

#include <chrono>
#include <utility>

namespace hearthbook {

namespace {

constexpr auto lookAgain = std::chrono::milliseconds(10);

} // namespace

Playback::Playback(std::shared_ptr<SoundSource> source, std::int64_t from, Listener listener)
    : source_(std::move(source)), listener_(std::move(listener)), position_(from),
      thread_([this] { run(); }) {}

Playback::~Playback() {
  stopped_ = true;
  thread_.join();
}

void Playback::run() {
  countTime();
  if (!isToStop())
    listener_.ended();
}

void Playback::countTime() {
  SilentClock clock(position_, source_->length());
  while (!isToStop() && !clock.isAtEnd()) {
    std::this_thread::sleep_for(lookAgain);
    clock.pause(paused_);
    position_ = clock.position();
  }
}

} // namespace hearthbook
