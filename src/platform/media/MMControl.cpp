#include "MMControl.h"

#include "DiscSound.h"
#include "MidiSound.h"
#include "Playback.h"
#include "Recording.h"
#include "RunTimeError.h"
#include "WaveSound.h"

#include <QFutureWatcher>
#include <QPromise>
#include <QTimer>

#include <algorithm>
#include <cctype>
#include <mutex>
#include <string>
#include <thread>
#include <utility>

namespace hearthbook {

std::optional<DeviceType> deviceTypeOf(const std::filesystem::path& file) {
  const std::string name = file.filename().string();
  std::string end = name.substr(name.size() - std::min<std::size_t>(name.size(), 3));
  std::ranges::transform(end, end.begin(), [](unsigned char letter) {
    return static_cast<char>(std::tolower(letter));
  });
  if (end == "wav")
    return DeviceType::WaveAudio;
  if (end == "mid")
    return DeviceType::Sequencer;
  return std::nullopt;
}

namespace {

/// So soon behind the start of a track "back" means the track before.
constexpr std::int64_t justBegunMs = 2000;

std::shared_ptr<SoundSource> openFile(DeviceType type, const std::filesystem::path& file) {
  if (type == DeviceType::Sequencer)
    return std::make_shared<MidiSound>(file);
  return std::make_shared<WaveSound>(file);
}

/// What came of what a drive was asked for.
struct DriveAnswer {
  std::shared_ptr<DiscSound> disc; ///< if one was to be opened
  std::string failure;
};

/// Nothing is read of it any more: what is stopped may hang in its drive.
bool isFree(SoundSource& source) {
  const std::unique_lock<std::mutex> lock(source.inUse, std::try_to_lock);
  return lock.owns_lock();
}

template <class Work> DriveAnswer answerOf(const Work& work) {
  try {
    return {work(), {}};
  } catch (const std::exception& failure) {
    return {nullptr, failure.what()};
  }
}

} // namespace

struct MMControl::Impl {
  explicit Impl(MMControl& owner) : control(owner) {
    ticks.setInterval(1000);
    QObject::connect(&ticks, &QTimer::timeout, &control, &MMControl::statusUpdate);
  }

  bool attempt(const std::function<void()>& command);
  void open();
  void close();
  /// Lets a drive work beside the window's thread. Its answer is dropped if meanwhile something
  /// else is to be opened.
  template <class Work> void askDrive(Work work);
  void take(const DriveAnswer& answer);
  [[nodiscard]] std::filesystem::path drive() const {
    return disc() ? disc()->drive() : !file.empty() ? file : wantedDrive();
  }
  void play(std::int64_t from);
  void record();
  void goToTrack(int track);
  void halt();
  void breakOff(const std::string& why);
  void enter(Mode next);
  void end();
  void tell(const std::string& why);
  /// A task for the window's thread that is dropped if the sound that sends it has been stopped.
  template <class Task> auto here(Task task);
  [[nodiscard]] WaveSound* wave() const { return dynamic_cast<WaveSound*>(source.get()); }
  [[nodiscard]] DiscSound* disc() const { return dynamic_cast<DiscSound*>(source.get()); }

  MMControl& control;
  QTimer ticks;
  DeviceType deviceType = DeviceType::WaveAudio;
  std::filesystem::path file;
  QString error;
  Mode mode = Mode::NotOpen;
  std::int64_t position = 0;
  int turn = 0;     ///< counts what was played and recorded
  int openings = 0; ///< and what was opened and closed
  std::shared_ptr<SoundSource> source;
  std::unique_ptr<Playback> playback;
  std::unique_ptr<Recording> recording;
};

template <class Task> auto MMControl::Impl::here(Task task) {
  return [this, task, mine = turn](auto... told) {
    QMetaObject::invokeMethod(
        &control,
        [=, this] {
          if (mine == turn)
            task(told...);
        },
        Qt::QueuedConnection);
  };
}

bool MMControl::Impl::attempt(const std::function<void()>& command) {
  error.clear();
  try {
    command();
  } catch (const std::exception& failure) {
    tell(failure.what());
  }
  return error.isEmpty();
}

void MMControl::Impl::tell(const std::string& why) {
  error = QString::fromStdString(why);
  Q_EMIT control.failed(error);
}

void MMControl::Impl::enter(Mode next) {
  if (next == mode)
    return;
  mode = next;
  if ((mode == Mode::Playing || mode == Mode::Recording) && ticks.interval() > 0)
    ticks.start();
  else
    ticks.stop();
  Q_EMIT control.modeChanged();
}

void MMControl::Impl::close() {
  halt();
  ++openings;
  source.reset();
  enter(Mode::NotOpen);
}

void MMControl::Impl::open() {
  close();
  position = 0;
  if (deviceType == DeviceType::CDAudio)
    return askDrive([drive = drive()] { return openDisc(drive); });
  source = openFile(deviceType, file);
  enter(Mode::Stopped);
}

template <class Work> void MMControl::Impl::askDrive(Work work) {
  auto* answer = new QFutureWatcher<DriveAnswer>(&control);
  QObject::connect(answer, &QFutureWatcherBase::finished, &control, [=, this, mine = openings] {
    answer->deleteLater();
    if (mine == openings)
      take(answer->result());
  });
  QPromise<DriveAnswer> promise;
  promise.start();
  answer->setFuture(promise.future());
  std::thread([promise = std::move(promise), work = std::move(work)]() mutable {
    promise.addResult(answerOf(work));
    promise.finish();
  }).detach();
}

void MMControl::Impl::take(const DriveAnswer& answer) {
  if (!answer.failure.empty())
    return tell(answer.failure);
  source = answer.disc;
  if (source)
    enter(Mode::Stopped);
}

void MMControl::Impl::play(std::int64_t from) {
  if (!source)
    throw RunTimeError("There is no sound to play.");
  halt();
  position = from;
  Playback::Listener listener;
  listener.ended = here([this] { end(); });
  listener.unheard = here([this](const std::string& why) { tell(why); });
  listener.broken = here([this](const std::string& why) { breakOff(why); });
  playback = std::make_unique<Playback>(source, from, std::move(listener));
  enter(Mode::Playing);
}

void MMControl::Impl::record() {
  if (!wave())
    throw RunTimeError("There is no wave to record into.");
  halt();
  if (!isFree(*source))
    throw RunTimeError("The sound is still being read.");
  recording =
      std::make_unique<Recording>(wave()->format(), wave()->recorded(), wave()->roomToRecord(),
                                  here([this](const std::string& why) { breakOff(why); }));
  enter(Mode::Recording);
}

void MMControl::Impl::goToTrack(int track) {
  const bool goesOn = mode == Mode::Playing;
  if (!goesOn) {
    control.Stop();
    position = disc()->startOf(track);
  } else {
    play(disc()->startOf(track));
  }
}

/// Silent, and standing where it was; the mode is the caller's.
void MMControl::Impl::halt() {
  ++turn;
  if (playback)
    position = playback->position();
  playback.reset();
  if (!recording)
    return;
  recording.reset();
  position = source->length();
}

void MMControl::Impl::breakOff(const std::string& why) {
  halt();
  enter(Mode::Stopped);
  tell(why);
}

void MMControl::Impl::end() {
  halt();
  position = source->length();
  enter(Mode::Stopped);
  Q_EMIT control.done();
}

MMControl::MMControl(QObject* parent) : QObject(parent), impl_(std::make_unique<Impl>(*this)) {}

MMControl::~MMControl() { impl_->halt(); }

DeviceType MMControl::deviceType() const { return impl_->deviceType; }

void MMControl::setDeviceType(DeviceType type) { impl_->deviceType = type; }

const std::filesystem::path& MMControl::fileName() const { return impl_->file; }

void MMControl::setFileName(const std::filesystem::path& file) { impl_->file = file; }

void MMControl::setFile(const std::filesystem::path& file) {
  setDeviceType(deviceTypeOf(file).value_or(deviceType()));
  setFileName(file);
}

bool MMControl::Open() {
  return impl_->attempt([this] { impl_->open(); });
}

void MMControl::Close() {
  impl_->error.clear();
  impl_->close();
}

bool MMControl::Play() {
  if (mode() == Mode::Paused) {
    impl_->playback->pause(false);
    impl_->enter(Mode::Playing);
    return true;
  }
  return PlayFrom(position() < length() ? position() : 0);
}

bool MMControl::PlayFrom(std::int64_t position) {
  return impl_->attempt([&] { impl_->play(std::clamp<std::int64_t>(position, 0, length())); });
}

void MMControl::Pause() {
  if (mode() != Mode::Playing)
    return;
  impl_->playback->pause(true);
  impl_->enter(Mode::Paused);
}

void MMControl::Stop() {
  impl_->halt();
  if (isOpen())
    impl_->enter(Mode::Stopped);
}

void MMControl::Prev() {
  if (const DiscSound* disc = impl_->disc()) {
    const bool hasJustBegun = position() - disc->startOf(track()) < justBegunMs;
    return impl_->goToTrack(std::max(1, track() - (hasJustBegun ? 1 : 0)));
  }
  Stop();
  impl_->position = 0;
}

void MMControl::Next() {
  if (impl_->disc() && track() < tracks())
    return impl_->goToTrack(track() + 1);
  Stop();
  impl_->position = length();
}

bool MMControl::Record() {
  return impl_->attempt([this] { impl_->record(); });
}

bool MMControl::Save(const std::function<void(const std::filesystem::path&)>& keepOld) {
  return impl_->attempt([&] {
    if (!impl_->wave())
      throw RunTimeError("There is no wave to save.");
    Stop();
    impl_->wave()->save(impl_->file, keepOld);
  });
}

bool MMControl::Eject() {
  return impl_->attempt([this] {
    const auto drive = impl_->drive();
    impl_->close();
    impl_->askDrive([drive] {
      ejectDisc(drive);
      return nullptr;
    });
  });
}

MMControl::Mode MMControl::mode() const { return impl_->mode; }

bool MMControl::isOpen() const { return impl_->source != nullptr; }

std::int64_t MMControl::length() const { return isOpen() ? impl_->source->length() : 0; }

std::int64_t MMControl::position() const {
  if (impl_->recording)
    return length();
  return impl_->playback ? impl_->playback->position() : impl_->position;
}

int MMControl::tracks() const { return impl_->disc() ? impl_->disc()->tracks() : 0; }

int MMControl::track() const { return impl_->disc() ? impl_->disc()->trackAt(position()) : 0; }

int MMControl::updateInterval() const { return impl_->ticks.interval(); }

void MMControl::setUpdateInterval(int milliseconds) {
  impl_->ticks.setInterval(milliseconds);
  if (milliseconds == 0)
    impl_->ticks.stop();
  else if (mode() == Mode::Playing || mode() == Mode::Recording)
    impl_->ticks.start();
}

const QString& MMControl::errorText() const { return impl_->error; }

} // namespace hearthbook
