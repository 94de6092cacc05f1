#include "WaveFile.h"

#include "RunTimeError.h"

#include <algorithm>
#include <array>
#include <istream>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

namespace hearthbook {

namespace {

// What the head calls the ways to write sound down.
constexpr unsigned plainNumbers = 1;
constexpr unsigned floatNumbers = 3;
constexpr unsigned aLaw = 6;
constexpr unsigned muLaw = 7;
constexpr unsigned toldFurtherBehind = 0xFFFE;

constexpr std::int64_t chunkHead = 8;
/// A wrong size can lead into hours of silence, which reads like empty chunks, one every 8 bytes.
constexpr int mostChunks = 1000;
constexpr unsigned formatBytes = 16;
constexpr unsigned longFormatBytes = 40;
constexpr int mostChannels = 32;
constexpr int mostRate = 384000;
constexpr std::int64_t mostRiffBytes = 0xFFFFFFFE;

unsigned number(const char* bytes, int count) {
  unsigned value = 0;
  for (int index = count; index-- > 0;)
    value = value << 8U | static_cast<unsigned char>(bytes[index]);
  return value;
}

void put(std::ostream& file, std::int64_t value, int count) {
  for (int index = 0; index < count; ++index)
    file.put(static_cast<char>(value >> (8 * index) & 0xFF));
}

struct Chunk {
  std::string name;
  std::int64_t start = 0; ///< of its content
  std::int64_t bytes = 0; ///< as it says itself
};

std::int64_t sizeOf(std::istream& file) {
  file.seekg(0, std::ios::end);
  const std::int64_t size = file.tellg();
  file.seekg(0);
  return size;
}

std::optional<Chunk> chunkAt(std::istream& file, std::int64_t place) {
  std::array<char, chunkHead> head{};
  file.clear();
  file.seekg(place);
  if (!file.read(head.data(), head.size()))
    return std::nullopt;
  return Chunk{std::string(head.data(), 4), place + chunkHead, number(head.data() + 4, 4)};
}

std::optional<SoundFormat::Sample> sampleOf(unsigned kind, unsigned bits) {
  using enum SoundFormat::Sample;
  if (kind == plainNumbers)
    return bits == 8    ? std::optional(U8)
           : bits == 16 ? std::optional(S16)
           : bits == 24 ? std::optional(S24)
           : bits == 32 ? std::optional(S32)
                        : std::nullopt;
  if (kind == floatNumbers && bits == 32)
    return Float32;
  if (kind == aLaw && bits == 8)
    return ALaw;
  if (kind == muLaw && bits == 8)
    return MuLaw;
  return std::nullopt;
}

/// What the head tells of the way in which the sound is written down.
struct Writing {
  SoundFormat format;
  std::optional<unsigned> packing;
};

Writing writingOf(std::istream& file, const Chunk& chunk) {
  std::array<char, longFormatBytes> text{};
  file.clear();
  file.seekg(chunk.start);
  file.read(text.data(), std::min<std::int64_t>(chunk.bytes, text.size()));
  if (file.gcount() < formatBytes)
    throw RunTimeError("its head is cut off");
  unsigned kind = number(text.data(), 2);
  if (kind == toldFurtherBehind && file.gcount() == longFormatBytes)
    kind = number(text.data() + 24, 2);
  const unsigned channels = number(text.data() + 2, 2);
  const unsigned rate = number(text.data() + 4, 4);
  if (channels < 1 || channels > mostChannels || rate < 1 || rate > mostRate)
    throw RunTimeError("its head is damaged");
  const auto sample = sampleOf(kind, number(text.data() + 14, 2));
  if (!sample)
    return {{}, kind};
  const SoundFormat format{*sample, static_cast<int>(channels), static_cast<int>(rate)};
  if (number(text.data() + 12, 2) != static_cast<unsigned>(format.frameBytes()))
    throw RunTimeError("its head is damaged");
  return {format, std::nullopt};
}

bool isWave(std::istream& file) {
  std::array<char, 12> head{};
  file.read(head.data(), head.size());
  const std::string_view text(head.data(), static_cast<std::size_t>(file.gcount()));
  return text.size() == head.size() && text.starts_with("RIFF") && text.ends_with("WAVE");
}

unsigned kindOf(SoundFormat::Sample sample) {
  switch (sample) {
  case SoundFormat::Sample::Float32:
    return floatNumbers;
  case SoundFormat::Sample::ALaw:
    return aLaw;
  case SoundFormat::Sample::MuLaw:
    return muLaw;
  default:
    return plainNumbers;
  }
}

} // namespace

WaveInfo readWaveInfo(std::istream& file) {
  const std::int64_t size = sizeOf(file);
  if (!isWave(file))
    throw RunTimeError("it is no wave");
  std::optional<Writing> writing;
  std::int64_t place = 12;
  for (int walked = 0; walked < mostChunks; ++walked) {
    const auto chunk = chunkAt(file, place);
    if (!chunk)
      break;
    if (chunk->name == "fmt ")
      writing = writingOf(file, *chunk);
    if (chunk->name == "data" && writing) {
      const std::int64_t there = std::min(chunk->bytes, size - chunk->start);
      return {writing->format, chunk->start, there - there % writing->format.frameBytes(),
              writing->packing};
    }
    place = chunk->start + chunk->bytes + chunk->bytes % 2;
  }
  throw RunTimeError("there is no sound in it");
}

std::int64_t mostWaveBytes(const SoundFormat& format) {
  constexpr std::int64_t roomForHeads = 256;
  const std::int64_t most = mostRiffBytes - roomForHeads;
  return most - most % format.frameBytes();
}

void writeWaveHead(std::ostream& file, const SoundFormat& format, std::int64_t dataBytes) {
  const bool isPlain = kindOf(format.sample) == plainNumbers;
  const int formatSize = isPlain ? 16 : 18; // a packed sound tells of no further bytes
  const int factSize = isPlain ? 0 : 12;
  file << "RIFF";
  put(file, 4 + chunkHead + formatSize + factSize + chunkHead + dataBytes + dataBytes % 2, 4);
  file << "WAVEfmt ";
  put(file, formatSize, 4);
  put(file, kindOf(format.sample), 2);
  put(file, format.channels, 2);
  put(file, format.rate, 4);
  put(file, format.bytesPerSecond(), 4);
  put(file, format.frameBytes(), 2);
  put(file, std::int64_t{8} * format.sampleBytes(), 2);
  if (!isPlain) {
    put(file, 0, 2);
    file << "fact";
    put(file, 4, 4);
    put(file, dataBytes / format.frameBytes(), 4);
  }
  file << "data";
  put(file, dataBytes, 4);
}

} // namespace hearthbook
