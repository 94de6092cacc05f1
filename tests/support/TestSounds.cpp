#include "TestSounds.h"

#include "FileBytes.h"
#include "WaveFile.h"

#include <sndfile.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <stdexcept>

namespace hearthbook::test {

namespace fs = std::filesystem;

namespace {

constexpr int sectorBytes = 2352;
constexpr int sectorsPerSecond = 75;

std::string quoted(const std::filesystem::path& path) { return "'" + path.string() + "'"; }

std::string outputOf(const std::string& command) {
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(::popen((command + " 2>&1").c_str(), "r"),
                                                   ::pclose);
  std::string output;
  std::array<char, 4096> piece{};
  while (const std::size_t count = std::fread(piece.data(), 1, piece.size(), pipe.get()))
    output.append(piece.data(), count);
  return output;
}

void run(const std::string& command) {
  if (std::system(command.c_str()) != 0)
    throw std::runtime_error("failed: " + command);
}

/// The number behind a heading in what sox prints.
double numberBehind(const std::string& text, const std::string& heading) {
  const auto place = text.find(heading);
  if (place == std::string::npos)
    throw std::runtime_error("no " + heading + " in: " + text);
  return std::strtod(text.c_str() + text.find(':', place) + 1, nullptr);
}

std::string bytesOf(std::uint32_t value, int count) {
  std::string bytes;
  for (int index = count; index-- > 0;)
    bytes += static_cast<char>(value >> (8U * static_cast<unsigned>(index)));
  return bytes;
}

std::string timeCode(int sectors) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "%02d:%02d:%02d", sectors / sectorsPerSecond / 60,
                sectors / sectorsPerSecond % 60, sectors % sectorsPerSecond);
  return text.data();
}

const char* soxEncoding(SoundFormat::Sample sample) {
  switch (sample) {
  case SoundFormat::Sample::Float32:
    return " -e floating-point";
  case SoundFormat::Sample::ALaw:
    return " -e a-law";
  case SoundFormat::Sample::MuLaw:
    return " -e mu-law";
  default:
    return "";
  }
}

std::string mp3Of(const fs::path& wave) {
  SF_INFO info{};
  SNDFILE* from = sf_open(wave.c_str(), SFM_READ, &info);
  std::vector<short> samples(static_cast<std::size_t>(info.frames * info.channels));
  sf_readf_short(from, samples.data(), info.frames);
  sf_close(from);
  info.format = SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III;
  const fs::path packed = wave.string() + ".mp3";
  SNDFILE* into = sf_open(packed.c_str(), SFM_WRITE, &info);
  if (!into)
    throw std::runtime_error(sf_strerror(nullptr));
  sf_writef_short(into, samples.data(), static_cast<sf_count_t>(samples.size()) / info.channels);
  sf_close(into);
  std::string bytes = readBytes(packed);
  fs::remove(packed);
  return bytes;
}

std::string turned(std::string bytes) {
  std::ranges::reverse(bytes);
  return bytes;
}

/// As recorders that pack their voices wrote it: the head of a wave, and an MP3 as its sound.
void wrapMp3(const fs::path& file, const std::string& mp3) {
  const auto number = [](std::size_t value, int count) {
    return turned(bytesOf(static_cast<std::uint32_t>(value), count));
  };
  const std::string further = number(1, 2) + number(2, 4) + number(417, 2) + number(1, 2) +
                              number(1393, 2); // behind the 12 bytes' own size
  const std::string format = number(0x55, 2) + number(1, 2) + number(22050, 4) + number(8000, 4) +
                             number(1, 2) + number(0, 2) + number(further.size(), 2) + further;
  const std::string chunks = "WAVEfmt " + number(format.size(), 4) + format + "data" +
                             number(mp3.size(), 4) + mp3 + std::string(mp3.size() % 2, '\0');
  writeBytes(file, "RIFF" + number(chunks.size(), 4) + chunks);
}

} // namespace

std::string silentWave(const SoundFormat& format, std::int64_t milliseconds) {
  const std::int64_t bytes = format.byteAt(milliseconds);
  std::ostringstream wave;
  writeWaveHead(wave, format, bytes);
  return wave.str() +
         std::string(static_cast<std::size_t>(bytes), static_cast<char>(format.silence()));
}

void writeTone(const std::filesystem::path& file, int hertz, std::int64_t milliseconds,
               const SoundFormat& format) {
  const auto frames = milliseconds * format.rate / 1000;
  run("sox -r " + std::to_string(format.rate) + " -n -c " + std::to_string(format.channels) +
      " -b " + std::to_string(8 * format.sampleBytes()) + soxEncoding(format.sample) + " " +
      quoted(file) + " synth " + std::to_string(frames) + "s sine " + std::to_string(hertz) +
      " vol 0.8");
}

void writePackedTones(const fs::path& file, const std::string& packing,
                      const std::vector<Tone>& tones) {
  const bool isMp3 = packing == "mp3";
  std::string parts;
  for (const Tone& tone : tones)
    parts += " \"|sox -r 22050 -n -c 1 -b 16 -p synth " +
             std::to_string(tone.milliseconds / 1000.0) + " sine " + std::to_string(tone.hertz) +
             " vol 0.8\"";
  const fs::path packed = isMp3 ? fs::path(file.string() + ".plain.wav") : file;
  run("sox" + parts + (isMp3 ? std::string() : " -e " + packing) + " " + quoted(packed) +
      " 2>/dev/null");
  if (isMp3) {
    wrapMp3(file, mp3Of(packed));
    fs::remove(packed);
  }
}

void writeSpeech(const std::filesystem::path& file, const std::string& words) {
  run("espeak-ng -w " + quoted(file) + " '" + words + "'");
}

Heard listenTo(const std::filesystem::path& wave) {
  const std::string info = outputOf("soxi " + quoted(wave));
  const std::string stat = outputOf("sox " + quoted(wave) + " -n remix 1 stat");
  Heard heard;
  heard.rate = static_cast<int>(numberBehind(info, "Sample Rate"));
  heard.channels = static_cast<int>(numberBehind(info, "Channels"));
  heard.bits = static_cast<int>(numberBehind(info, "Precision"));
  heard.seconds = numberBehind(stat, "Length (seconds)");
  heard.hertz = numberBehind(stat, "Rough   frequency");
  heard.loudest = numberBehind(stat, "Maximum amplitude");
  return heard;
}

std::string midiTune(int quarters, int slow) {
  const auto tempo = [](std::uint32_t microseconds) {
    return std::string("\xFF\x51\x03") + bytesOf(microseconds, 3);
  };
  std::string track = std::string(1, '\0') + tempo(500'000);
  track += std::string("\0\xC0\x13", 3); // an organ holds its notes
  for (int note = 0; note < quarters; ++note) {
    if (note == slow)
      track += std::string(1, '\0') + tempo(250'000);
    track += std::string("\0\x90\x45\x64", 4) + "\x83\x60\x80\x45" + std::string(1, '\0');
  }
  track += std::string("\0\xFF\x2F\0", 4);
  return "MThd" + bytesOf(6, 4) + bytesOf(0, 2) + bytesOf(1, 2) + bytesOf(480, 2) + "MTrk" +
         bytesOf(static_cast<std::uint32_t>(track.size()), 4) + track;
}

std::filesystem::path makeDisc(const std::filesystem::path& folder, const std::vector<int>& hertz,
                               int secondsEach) {
  std::filesystem::create_directories(folder);
  std::string sound;
  std::string sheet = "FILE \"disc.bin\" BINARY\n";
  for (std::size_t track = 0; track < hertz.size(); ++track) {
    const auto raw = folder / "track.raw";
    run("sox -r 44100 -n -c 2 -b 16 " + quoted(raw) + " synth " + std::to_string(secondsEach) +
        " sine " + std::to_string(hertz[track]) + " vol 0.8");
    sheet += "  TRACK 0" + std::to_string(track + 1) + " AUDIO\n    INDEX 01 " +
             timeCode(static_cast<int>(sound.size() / sectorBytes)) + "\n";
    sound += readBytes(raw);
    sound.append((sectorBytes - sound.size() % sectorBytes) % sectorBytes, '\0');
  }
  writeBytes(folder / "disc.bin", sound);
  writeBytes(folder / "disc.cue", sheet);
  return folder / "disc.cue";
}

} // namespace hearthbook::test
