#pragma once

#include "SoundFormat.h"

#include <cstdint>
#include <filesystem>
#include <string>

namespace hearthbook::test {

inline constexpr SoundFormat lowQuality{SoundFormat::Sample::U8, 1, 11025};
inline constexpr SoundFormat highQuality{SoundFormat::Sample::S16, 2, 22050};

/// The bytes of a wave that is silent for so long.
std::string silentWave(const SoundFormat& format, std::int64_t milliseconds);

} // namespace hearthbook::test
