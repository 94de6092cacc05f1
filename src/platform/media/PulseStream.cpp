#include "PulseStream.h"

#include "RunTimeError.h"

#include <pulse/context.h>
#include <pulse/error.h>
#include <pulse/mainloop.h>
#include <pulse/stream.h>

#include <chrono>

namespace hearthbook {

namespace {

/// How much sound is handed over in advance, so that a busy machine does not make it stutter.
constexpr int aheadMs = 500;
constexpr int startWithMs = 100;
/// In what portions recorded sound comes.
constexpr int portionMs = 50;
constexpr auto longestConnecting = std::chrono::seconds(5);

pa_sample_format_t nameOf(SoundFormat::Sample sample) {
  switch (sample) {
  case SoundFormat::Sample::U8:
    return PA_SAMPLE_U8;
  case SoundFormat::Sample::S16:
    return PA_SAMPLE_S16LE;
  case SoundFormat::Sample::S24:
    return PA_SAMPLE_S24LE;
  case SoundFormat::Sample::S32:
    return PA_SAMPLE_S32LE;
  case SoundFormat::Sample::Float32:
    return PA_SAMPLE_FLOAT32LE;
  case SoundFormat::Sample::ALaw:
    return PA_SAMPLE_ALAW;
  case SoundFormat::Sample::MuLaw:
    return PA_SAMPLE_ULAW;
  }
  return PA_SAMPLE_INVALID;
}

/// For operations that end by themselves: nobody waits for them.
void letGo(pa_operation* operation) {
  if (operation)
    pa_operation_unref(operation);
}

void noteSuccess(pa_stream*, int, void* flag) { *static_cast<bool*>(flag) = true; }

} // namespace

struct PulseStream::Impl {
  Impl(Direction streamDirection, const SoundFormat& streamFormat)
      : direction(streamDirection), format(streamFormat), loop(pa_mainloop_new()),
        context(pa_context_new(pa_mainloop_get_api(loop), "Hearthbook")) {}
  ~Impl() {
    if (stream) {
      pa_stream_disconnect(stream);
      pa_stream_unref(stream);
    }
    pa_context_disconnect(context);
    pa_context_unref(context);
    pa_mainloop_free(loop);
  }
  Impl(const Impl&) = delete;
  Impl& operator=(const Impl&) = delete;

  [[noreturn]] void fail() const;
  void require(bool succeeded) const {
    if (!succeeded)
      fail();
  }
  [[nodiscard]] bool isReady() const {
    return stream && pa_stream_get_state(stream) == PA_STREAM_READY;
  }
  [[nodiscard]] std::uint32_t bytesIn(int milliseconds) const {
    return static_cast<std::uint32_t>(format.byteAt(milliseconds));
  }
  void connect();
  void check();

  Direction direction;
  SoundFormat format;
  pa_mainloop* loop;
  pa_context* context;
  pa_stream* stream = nullptr;
  std::chrono::steady_clock::time_point begun = std::chrono::steady_clock::now();
  bool isPaused = false;
  bool isPlayed = false;
  bool hasStopped = false;
};

void PulseStream::Impl::fail() const {
  const int error = pa_context_errno(context);
  const bool isPlaying = direction == Direction::Play;
  if (error == PA_ERR_NOENTITY)
    throw RunTimeError(isPlaying ? "There is no loudspeaker to hear the sound on."
                                 : "There is no microphone or other input to record from.");
  throw RunTimeError(std::string("Sound cannot be ") + (isPlaying ? "heard" : "recorded") +
                     ": the desktop's sound service does not answer (" + pa_strerror(error) + ").");
}

void PulseStream::Impl::connect() {
  const pa_sample_spec spec{nameOf(format.sample), static_cast<std::uint32_t>(format.rate),
                            static_cast<std::uint8_t>(format.channels)};
  pa_channel_map map{};
  pa_channel_map_init_extend(&map, spec.channels, PA_CHANNEL_MAP_WAVEEX);
  stream = pa_stream_new(context, "Sound", &spec, &map);
  require(stream != nullptr);

  constexpr auto unset = static_cast<std::uint32_t>(-1);
  constexpr auto exactTime = static_cast<pa_stream_flags_t>(
      PA_STREAM_INTERPOLATE_TIMING | PA_STREAM_AUTO_TIMING_UPDATE | PA_STREAM_ADJUST_LATENCY);
  if (direction == Direction::Play) {
    const pa_buffer_attr buffer{unset, bytesIn(aheadMs), bytesIn(startWithMs), unset, unset};
    require(pa_stream_connect_playback(stream, nullptr, &buffer, exactTime, nullptr, nullptr) == 0);
  } else {
    const pa_buffer_attr buffer{unset, unset, unset, unset, bytesIn(portionMs)};
    require(pa_stream_connect_record(stream, nullptr, &buffer, exactTime) == 0);
  }
}

void PulseStream::Impl::check() {
  require(PA_CONTEXT_IS_GOOD(pa_context_get_state(context)));
  if (!stream && pa_context_get_state(context) == PA_CONTEXT_READY)
    connect();
  require(!stream || PA_STREAM_IS_GOOD(pa_stream_get_state(stream)));
  if (!isReady() && std::chrono::steady_clock::now() - begun > longestConnecting)
    throw RunTimeError("The desktop's sound service does not answer in time.");
}

PulseStream::PulseStream(Direction direction, const SoundFormat& format)
    : impl_(std::make_unique<Impl>(direction, format)) {
  // The service is the desktop's business: a program that nobody hears starts none.
  impl_->require(pa_context_connect(impl_->context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) == 0);
}

PulseStream::~PulseStream() = default;

void PulseStream::turn(int milliseconds) {
  const bool turned = pa_mainloop_prepare(impl_->loop, milliseconds * 1000) >= 0 &&
                      pa_mainloop_poll(impl_->loop) >= 0 && pa_mainloop_dispatch(impl_->loop) >= 0;
  impl_->require(turned);
  impl_->check();
}

bool PulseStream::isReady() const { return impl_->isReady(); }

std::size_t PulseStream::room() const {
  const std::size_t room = pa_stream_writable_size(impl_->stream);
  impl_->require(room != static_cast<std::size_t>(-1));
  return room;
}

void PulseStream::write(const std::byte* bytes, std::size_t count) {
  impl_->require(pa_stream_write(impl_->stream, bytes, count, nullptr, 0, PA_SEEK_RELATIVE) == 0);
}

void PulseStream::pause(bool paused) {
  if (paused != impl_->isPaused)
    letGo(pa_stream_cork(impl_->stream, paused ? 1 : 0, nullptr, nullptr));
  impl_->isPaused = paused;
}

void PulseStream::endHere() {
  letGo(pa_stream_drain(impl_->stream, noteSuccess, &impl_->isPlayed));
}

bool PulseStream::isPlayed() const { return impl_->isPlayed; }

std::int64_t PulseStream::heard() const {
  pa_usec_t time = 0;
  const bool isKnown = pa_stream_get_time(impl_->stream, &time) == 0; // not in the first moments
  return isKnown ? static_cast<std::int64_t>(time / 1000) : 0;
}

void PulseStream::takeRecorded(const Take& take) {
  while (pa_stream_readable_size(impl_->stream) > 0) {
    const void* bytes = nullptr;
    std::size_t count = 0;
    impl_->require(pa_stream_peek(impl_->stream, &bytes, &count) == 0);
    if (count == 0)
      return;
    take(static_cast<const std::byte*>(bytes), count);
    pa_stream_drop(impl_->stream);
  }
}

void PulseStream::stopRecording() {
  letGo(pa_stream_cork(impl_->stream, 1, noteSuccess, &impl_->hasStopped));
}

bool PulseStream::hasStopped() const { return impl_->hasStopped; }

} // namespace hearthbook
