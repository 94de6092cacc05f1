#include "MidiSound.h"

#include "ApplicationFolder.h"
#include "FileError.h"
#include "FluidLibrary.h"
#include "RunTimeError.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <mutex>
#include <utility>

namespace hearthbook {

namespace {

constexpr SoundFormat synthFormat{SoundFormat::Sample::S16, 2, 44100};
/// Strings and bells ring on behind the last note, but not for ever.
constexpr std::int64_t longestRinging = std::int64_t{2} * synthFormat.rate;
constexpr double gain = 0.6;
/// It is read while the window waits. Tunes have some hundred kilobytes.
constexpr std::uintmax_t mostTuneBytes = std::uintmax_t{8} << 20;

constexpr std::array fonts = {
    "/usr/share/sounds/sf2/default-GM.sf2", "/usr/share/sounds/sf3/default-GM.sf3",
    "/usr/share/sounds/sf2/TimGM6mb.sf2", "/usr/share/sounds/sf2/FluidR3_GM.sf2",
    "/usr/share/soundfonts/default.sf2"};

RunTimeError refusal(const std::filesystem::path& name, const std::string& why) {
  return RunTimeError("Cannot play \"" + name.string() + "\": " + why + ".");
}

std::string contentOf(const std::filesystem::path& name) {
  std::ifstream file(name, std::ios::binary);
  if (!file || std::filesystem::is_directory(name))
    throwFileError("read", name, file ? EISDIR : errno);
  const auto size = std::filesystem::file_size(name);
  if (size > mostTuneBytes)
    throw refusal(name, "it is too large for a tune");
  std::string bytes(size, '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(size));
  bytes.resize(static_cast<std::size_t>(file.gcount()));
  return bytes;
}

MidiFile midiOf(const std::filesystem::path& name, std::string_view bytes) {
  try {
    return MidiFile(bytes);
  } catch (const RunTimeError& failure) {
    throw refusal(name, failure.what());
  }
}

/// The library tries whatever a file may hold, and complains aloud; so it is shown fonts only.
bool isSoundFont(const std::string& name) {
  std::array<char, 12> head{};
  std::ifstream(name, std::ios::binary).read(head.data(), head.size());
  const std::string_view text(head.data(), head.size());
  return text.starts_with("RIFF") && text.ends_with("sfbk");
}

struct DeleteFluid {
  void operator()(fluid_settings_t* settings) const { fluid().deleteSettings(settings); }
  void operator()(fluid_synth_t* synth) const { fluid().deleteSynth(synth); }
  void operator()(fluid_player_t* player) const { fluid().deletePlayer(player); }
};
template <class Thing> using Fluid = std::unique_ptr<Thing, DeleteFluid>;

/// A synthesizer with a sound font in it.
class Instruments {
public:
  explicit Instruments(const std::string& font) : font_(font), settings_(fluid().newSettings()) {
    fluid().setNumber(settings_.get(), "synth.sample-rate", synthFormat.rate);
    fluid().setNumber(settings_.get(), "synth.gain", gain);
    fluid().setInteger(settings_.get(), "synth.lock-memory", 0);
    fluid().setText(settings_.get(), "player.timing-source", "sample");
    synth_.reset(fluid().newSynth(settings_.get()));
    if (!synth_ || !isSoundFont(font) ||
        fluid().loadFont(synth_.get(), font.c_str(), 1) == FLUID_FAILED)
      throw RunTimeError("Cannot play MIDI with the sound font \"" + font + "\".");
  }
  [[nodiscard]] const std::string& font() const { return font_; }
  [[nodiscard]] fluid_synth_t* synth() const { return synth_.get(); }
  void silence() { fluid().resetSynth(synth_.get()); }

private:
  std::string font_;
  Fluid<fluid_settings_t> settings_;
  Fluid<fluid_synth_t> synth_;
};

/// The instruments that were put back last. Fonts are large and slow to load, and a sound that
/// goes round and round must not make a pause for it.
struct Shelf {
  std::mutex mutex;
  std::unique_ptr<Instruments> free;
};

/// It stays to the very end: a thread that was left behind may still come to it.
Shelf& shelf() {
  static auto* const kept = new Shelf;
  return *kept;
}

std::unique_ptr<Instruments> takeInstruments(const std::string& font) {
  {
    const std::lock_guard<std::mutex> lock(shelf().mutex);
    if (shelf().free && shelf().free->font() == font)
      return std::move(shelf().free);
  }
  return std::make_unique<Instruments>(font);
}

void putBack(std::unique_ptr<Instruments> instruments) {
  instruments->silence();
  const std::lock_guard<std::mutex> lock(shelf().mutex);
  shelf().free.swap(instruments);
}

} // namespace

/// The instruments with one piece of music on the stand.
class MidiSound::Synth {
public:
  Synth(const std::string& font, const std::string& bytes)
      : instruments_(takeInstruments(font)), player_(fluid().newPlayer(instruments_->synth())) {
    fluid().addMusic(player_.get(), bytes.data(), bytes.size());
  }
  ~Synth() {
    player_.reset();
    putBack(std::move(instruments_));
  }
  Synth(const Synth&) = delete;
  Synth& operator=(const Synth&) = delete;

  void playFrom(std::int64_t tick) {
    if (fluid().seek(player_.get(), static_cast<int>(tick)) == FLUID_FAILED ||
        fluid().play(player_.get()) == FLUID_FAILED)
      throw RunTimeError("The music cannot be played from there.");
  }
  void read(std::byte* into, std::size_t frames) {
    fluid().write(instruments_->synth(), static_cast<int>(frames), into, 0, 2, into, 1, 2);
  }
  [[nodiscard]] bool isSilent() const { return fluid().activeVoices(instruments_->synth()) == 0; }

private:
  std::unique_ptr<Instruments> instruments_;
  Fluid<fluid_player_t> player_;
};

MidiSound::MidiSound(const std::filesystem::path& file)
    : name_(file), bytes_(contentOf(file)), midi_(midiOf(file, bytes_)) {}

MidiSound::~MidiSound() = default;

SoundFormat MidiSound::format() const { return synthFormat; }

void MidiSound::goTo(std::int64_t position) {
  synth_.reset(); // its instruments are used again
  synth_ = std::make_unique<Synth>(soundFont().string(), bytes_);
  synth_->playFrom(midi_.tickAt(position));
  next_ = position * synthFormat.rate / 1000;
}

std::size_t MidiSound::read(std::byte* into, std::size_t bytes) {
  const std::int64_t end = length() * synthFormat.rate / 1000;
  if (next_ >= end + longestRinging || (next_ >= end && synth_->isSilent()))
    return 0;
  const auto frame = static_cast<std::size_t>(synthFormat.frameBytes());
  const std::size_t frames = std::min<std::size_t>(bytes / frame, 1024);
  synth_->read(into, frames);
  next_ += static_cast<std::int64_t>(frames);
  return frames * frame;
}

std::filesystem::path soundFont() {
  const char* wanted = std::getenv("HEARTHBOOK_SOUNDFONT");
  if (wanted && fileExists(wanted))
    return wanted;
  if (!wanted)
    for (const char* font : fonts)
      if (fileExists(font))
        return font;
  throw RunTimeError("There are no instruments to play MIDI with: no sound font is installed.");
}

} // namespace hearthbook
