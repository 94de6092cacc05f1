#include "MidiFile.h"

#include "RunTimeError.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace hearthbook {

namespace {

constexpr int tempoAtFirst = 500'000;
constexpr std::size_t midiChunkHead = 8;
constexpr std::int64_t mostTicks = std::int64_t{1} << 31; // what can be played knows no more

// What an event begins with.
constexpr unsigned metaEvent = 0xFF;
constexpr unsigned firstSystemEvent = 0xF0;
constexpr unsigned endOfSystemEvent = 0xF7;
constexpr unsigned tempoChange = 0x51;
constexpr unsigned endOfTrack = 0x2F;

/// Reads on through bytes; what reaches behind their end is damaged.
class Reader {
public:
  explicit Reader(std::string_view bytes) : rest_(bytes) {}

  [[nodiscard]] bool isAtEnd() const { return rest_.empty(); }
  std::string_view take(std::size_t count) {
    if (count > rest_.size())
      throw RunTimeError("it is cut off");
    const std::string_view taken = rest_.substr(0, count);
    rest_.remove_prefix(count);
    return taken;
  }
  unsigned number(std::size_t bytes) {
    unsigned value = 0;
    for (const char byte : take(bytes))
      value = value << 8U | static_cast<unsigned char>(byte);
    return value;
  }
  /// A number of one to four bytes, all but the last marked.
  unsigned freeNumber() {
    unsigned value = 0;
    for (int bytes = 0; bytes < 4; ++bytes) {
      const unsigned byte = number(1);
      value = value << 7U | (byte & 0x7FU);
      if (byte < 0x80)
        return value;
    }
    throw RunTimeError("it is damaged");
  }
  [[nodiscard]] bool nextIsStatus() const {
    return !rest_.empty() && static_cast<unsigned char>(rest_.front()) >= 0x80;
  }

private:
  std::string_view rest_;
};

/// How many bytes belong to a note, a pedal, a change of instrument.
std::size_t dataBytes(unsigned status) {
  const unsigned kind = status & 0xF0U;
  return kind == 0xC0 || kind == 0xD0 ? 1 : 2;
}

} // namespace

MidiFile::MidiFile(std::string_view bytes) {
  Reader file(bytes);
  if (bytes.size() < midiChunkHead || file.take(4) != "MThd")
    throw RunTimeError("it is no MIDI");
  Reader head(file.take(file.number(4)));
  head.take(2); // the kind
  const unsigned tracks = head.number(2);
  const unsigned division = head.number(2);
  if (division == 0 || division >= 0x8000)
    throw RunTimeError("its time is not counted in notes");
  ticksPerQuarter_ = static_cast<int>(division);
  tempos_.push_back({0, tempoAtFirst});

  unsigned read = 0;
  while (read < tracks && !file.isAtEnd()) { // what is behind the last track may be anything
    const std::string_view name = file.take(4);
    const std::string_view content = file.take(file.number(4));
    if (name != "MTrk")
      continue;
    readTrack(content);
    ++read;
  }
  if (read == 0)
    throw RunTimeError("there is no music in it");
  timeTempos();
}

void MidiFile::readTrack(std::string_view bytes) {
  Reader track(bytes);
  std::int64_t tick = 0;
  unsigned running = 0; // an event like the one before does not say again what it is
  while (!track.isAtEnd()) {
    tick += track.freeNumber();
    if (tick > mostTicks)
      throw RunTimeError("it is damaged");
    lastTick_ = std::max(lastTick_, tick);
    const unsigned status = track.nextIsStatus() ? track.number(1) : running;
    if (status == metaEvent) {
      const unsigned kind = track.number(1);
      Reader content(track.take(track.freeNumber()));
      if (kind == tempoChange)
        tempos_.push_back({tick, static_cast<int>(content.number(3))});
      if (kind == endOfTrack)
        return;
    } else if (status == firstSystemEvent || status == endOfSystemEvent) {
      track.take(track.freeNumber());
    } else if (status >= 0x80 && status < firstSystemEvent) {
      track.take(dataBytes(status));
      running = status;
    } else {
      throw RunTimeError("it is damaged");
    }
  }
}

/// The tracks told of the tempos one after the other; they hold for all of them.
void MidiFile::timeTempos() {
  std::ranges::stable_sort(tempos_, {}, &Tempo::tick);
  for (std::size_t index = 1; index < tempos_.size(); ++index)
    tempos_[index].at = millisecondsBehind(tempos_[index - 1], tempos_[index].tick);
  length_ = static_cast<std::int64_t>(millisecondsBehind(tempos_.back(), lastTick_));
}

double MidiFile::millisecondsBehind(const Tempo& tempo, std::int64_t tick) const {
  return tempo.at +
         static_cast<double>(tick - tempo.tick) * tempo.quarter / ticksPerQuarter_ / 1000;
}

std::int64_t MidiFile::tickAt(std::int64_t milliseconds) const {
  const auto time = static_cast<double>(milliseconds);
  const auto next = std::ranges::upper_bound(tempos_, time, {}, &Tempo::at);
  const Tempo& tempo = next == tempos_.begin() ? tempos_.front() : *std::prev(next);
  if (tempo.quarter == 0)
    return tempo.tick;
  const double ticks = (time - tempo.at) * 1000 * ticksPerQuarter_ / tempo.quarter;
  return std::min(lastTick_, tempo.tick + static_cast<std::int64_t>(ticks));
}

} // namespace hearthbook
