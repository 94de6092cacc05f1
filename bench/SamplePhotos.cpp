#include "SamplePhotos.h"

#include "Encode.h"
#include "WorkPool.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <string>

namespace hearthbook::bench {

namespace {

constexpr int cameraFactor = 5;

std::uint32_t channelAt(double wave, std::uint32_t grain) {
  return static_cast<std::uint32_t>(std::clamp(100 + 90 * wave + grain, 0.0, 255.0));
}

void writeSamplePhoto(const std::filesystem::path& file, unsigned seed) {
  std::ofstream stream(file, std::ios::binary);
  writeJpeg(stream, samplePhoto(twelveMegapixels, seed), cameraFactor);
}

} // namespace

Picture samplePhoto(PixelSize size, unsigned seed) {
  constexpr std::uint32_t grainMask = 15;
  Picture picture(size);
  std::uint32_t random = seed * 2654435761U + 1;
  for (int y = 0; y < size.height; ++y) {
    std::uint32_t* row = picture.writableRow(y);
    const double down = std::sin(y * 0.004 + seed);
    for (int x = 0; x < size.width; ++x) {
      random = random * 1664525U + 1013904223U;
      const std::uint32_t grain = random >> 24 & grainMask;
      const double across = static_cast<double>(x) / size.width;
      row[x] = 0xff000000U | channelAt(down * across, grain) << 16 |
               channelAt(across - 0.5, grain) << 8 | channelAt(-down, grain);
    }
  }
  return picture;
}

std::vector<std::filesystem::path> writeSamplePhotos(const std::filesystem::path& folder,
                                                     int count) {
  std::vector<std::filesystem::path> files;
  std::vector<std::future<void>> written;
  WorkPool pool;
  for (int i = 0; i < count; ++i) {
    files.push_back(folder / ("IMG_" + std::to_string(1000 + i) + ".jpg"));
    written.push_back(
        pool.run([file = files.back(), i] { writeSamplePhoto(file, static_cast<unsigned>(i)); }));
  }
  for (auto& one : written)
    one.get();
  return files;
}

} // namespace hearthbook::bench
