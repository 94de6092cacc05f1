#pragma once

#include <cmath>
#include <cstdint>
#include <string>

namespace hearthbook {

/// How a sound is recorded: as the template wave of that quality is written.
struct AudioQuality {
  const char* templateFile;
  int sizeFactor; ///< kilobytes that a second takes

  bool operator==(const AudioQuality&) const = default;
};

inline constexpr AudioQuality lowAudioQuality{"\\Audio\\8Bit.wav", 11};
inline constexpr AudioQuality highAudioQuality{"\\Audio\\16Bit.wav", 86};

/// What a sound must have been recorded with, by its bytes for each millisecond.
constexpr const AudioQuality& qualityOf(std::int64_t fileBytes, std::int64_t milliseconds) {
  const std::int64_t rate = fileBytes / (milliseconds + 1);
  return rate >= highAudioQuality.sizeFactor ? highAudioQuality : lowAudioQuality;
}

constexpr std::int64_t wholeSeconds(std::int64_t milliseconds) { return milliseconds / 1000; }

/// "660k": what a sound of that length takes, roughly.
inline std::string sizeEstimate(std::int64_t milliseconds, int sizeFactor) {
  return std::to_string(wholeSeconds(milliseconds) * sizeFactor) + "k";
}

/// "File Size: 12k".
inline std::string fileSizeCaption(std::uintmax_t bytes) {
  return "File Size: " + std::to_string(std::llround(static_cast<double>(bytes) / 1024)) + "k";
}

} // namespace hearthbook
