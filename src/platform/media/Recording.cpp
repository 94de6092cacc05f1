#include "Recording.h"

#include "PulseStream.h"
#include "RunTimeError.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <new>
#include <utility>
#include <vector>

namespace hearthbook {

namespace {

constexpr int takeAgainMs = 10;
constexpr auto longestEnding = std::chrono::milliseconds(500);

} // namespace

Recording::Recording(const SoundFormat& format, RecordedSound& into, std::int64_t room, Ended ended)
    : format_(format), into_(into), room_(room), ended_(std::move(ended)),
      thread_([this] { run(); }) {}

Recording::~Recording() {
  stopped_ = true;
  thread_.join();
}

void Recording::run() {
  try {
    record();
  } catch (const std::bad_alloc&) {
    ended_("The computer has no memory left for a longer recording.");
  } catch (const std::exception& failure) {
    ended_(failure.what());
  }
}

void Recording::record() {
  PulseStream in(PulseStream::Direction::Record, format_);
  while (!stopped_ && !in.isReady())
    in.turn(takeAgainMs);
  const auto takeIt = [this](const std::byte* bytes, std::size_t count) { take(bytes, count); };
  while (!stopped_) {
    in.turn(takeAgainMs);
    in.takeRecorded(takeIt);
  }
  if (in.isReady())
    takeLast(in);
}

/// What was said before the click on Stop is on its way still.
void Recording::takeLast(PulseStream& in) {
  const auto giveUp = std::chrono::steady_clock::now() + longestEnding;
  in.stopRecording();
  while (!in.hasStopped() && std::chrono::steady_clock::now() < giveUp)
    in.turn(takeAgainMs);
  in.takeRecorded([this](const std::byte* bytes, std::size_t count) { take(bytes, count); });
}

void Recording::take(const std::byte* bytes, std::size_t count) {
  const auto part = std::min(static_cast<std::int64_t>(count), room_);
  room_ -= part;
  if (bytes)
    into_.append(bytes, static_cast<std::size_t>(part));
  else
    takeSilence(static_cast<std::size_t>(part));
  if (room_ == 0)
    throw RunTimeError("The recording is as long as a wave can be.");
}

void Recording::takeSilence(std::size_t count) {
  lost_ += static_cast<std::int64_t>(count);
  const std::vector<std::byte> nothing(count, std::byte{format_.silence()});
  into_.append(nothing.data(), count);
}

} // namespace hearthbook
