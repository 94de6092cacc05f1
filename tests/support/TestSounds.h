#pragma once

#include "SoundFormat.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace hearthbook::test {

inline constexpr SoundFormat lowQuality{SoundFormat::Sample::U8, 1, 11025};
inline constexpr SoundFormat highQuality{SoundFormat::Sample::S16, 2, 22050};

/// The bytes of a wave that is silent for so long.
std::string silentWave(const SoundFormat& format, std::int64_t milliseconds);

/// Makes a wave with one tone, by sox.
void writeTone(const std::filesystem::path& file, int hertz, std::int64_t milliseconds,
               const SoundFormat& format = highQuality);

/// Makes a wave of some tones, packed as sox calls it ("ms-adpcm"), or with an "mp3" inside.
struct Tone {
  int hertz = 0;
  std::int64_t milliseconds = 0;
};
void writePackedTones(const std::filesystem::path& file, const std::string& packing,
                      const std::vector<Tone>& tones);

/// Makes a wave in which somebody speaks, by espeak-ng.
void writeSpeech(const std::filesystem::path& file, const std::string& words);

/// What sox says of a wave.
struct Heard {
  int rate = 0;
  int channels = 0;
  int bits = 0;
  double seconds = 0;
  double hertz = 0;   ///< roughly
  double loudest = 0; ///< 0 to 1
};
Heard listenTo(const std::filesystem::path& wave);

/// A tune of so many quarter notes, 480 ticks each, of an organ. The tempo doubles behind the
/// first `slow` of them, from half a second for each to a quarter of a second.
std::string midiTune(int quarters, int slow);

/// A disc with one tone on each track: an image, told by the .cue file that is returned.
std::filesystem::path makeDisc(const std::filesystem::path& folder, const std::vector<int>& hertz,
                               int secondsEach);

} // namespace hearthbook::test
