#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace hearthbook {

/// How long a piece of MIDI is, and which of its ticks sounds when: what the changes of its
/// tempo tell.
class MidiFile {
public:
  /// Throws RunTimeError, with the cause alone, for what is no MIDI, or damaged.
  explicit MidiFile(std::string_view bytes);

  [[nodiscard]] std::int64_t length() const { return length_; } ///< milliseconds
  [[nodiscard]] std::int64_t tickAt(std::int64_t milliseconds) const;

private:
  struct Tempo {
    std::int64_t tick = 0;
    int quarter = 0; ///< microseconds
    double at = 0;   ///< milliseconds
  };

  void readTrack(std::string_view bytes);
  void timeTempos();
  [[nodiscard]] double millisecondsBehind(const Tempo& tempo, std::int64_t tick) const;

  int ticksPerQuarter_ = 1;
  std::int64_t lastTick_ = 0;
  std::int64_t length_ = 0;
  std::vector<Tempo> tempos_;
};

} // namespace hearthbook
