#include "TestSounds.h"

#include "WaveFile.h"

#include <sstream>

namespace hearthbook::test {

std::string silentWave(const SoundFormat& format, std::int64_t milliseconds) {
  const std::int64_t bytes = format.byteAt(milliseconds);
  const char silence = format.sample == SoundFormat::Sample::U8 ? '\x80' : '\0';
  std::ostringstream wave;
  writeWaveHead(wave, format, bytes);
  return wave.str() + std::string(static_cast<std::size_t>(bytes), silence);
}

} // namespace hearthbook::test
