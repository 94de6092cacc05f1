#include "TemplateWaves.h"

#include "AudioQuality.h"
#include "SafeFile.h"
#include "WaveFile.h"

namespace hearthbook {

namespace {

void makeEmptyWave(const std::filesystem::path& file, const SoundFormat& format) {
  replaceFile(file, [&](std::ostream& wave) { writeWaveHead(wave, format, 0); });
}

} // namespace

void makeTemplateWaves(const ApplicationFolder& folder) {
  std::filesystem::create_directories(folder.path("\\Audio"));
  makeEmptyWave(folder.path(lowAudioQuality.templateFile), {SoundFormat::Sample::U8, 1, 11025});
  makeEmptyWave(folder.path(highAudioQuality.templateFile), {SoundFormat::Sample::S16, 2, 22050});
}

} // namespace hearthbook
