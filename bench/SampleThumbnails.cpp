#include "SampleThumbnails.h"

#include "Encode.h"

#include <cstdint>
#include <fstream>
#include <string>

namespace hearthbook::bench {

namespace {

constexpr int differentThumbnails = 240;

Picture smallLandscape(unsigned seed) {
  Picture picture({73, 55});
  std::uint32_t grain = seed * 2654435761U + 1;
  for (int y = 0; y < picture.height(); ++y) {
    std::uint32_t* row = picture.writableRow(y);
    for (int x = 0; x < picture.width(); ++x) {
      grain = grain * 1664525U + 1013904223U;
      const std::uint32_t shade = (static_cast<std::uint32_t>(x * (seed % 7 + 1) + y * 3)) & 127U;
      row[x] = 0xff000000U | (shade + (grain >> 27U)) << 16U | (shade + 60) << 8U | 90U;
    }
  }
  return picture;
}

} // namespace

std::filesystem::path numbered(const std::filesystem::path& folder, int number) {
  return folder / (std::to_string(100'000 + number).substr(1) + ".jpg");
}

void writeThumbnails(const std::filesystem::path& folder, int count) {
  std::filesystem::create_directories(folder);
  for (int number = 1; number <= count; ++number)
    if (number <= differentThumbnails) {
      std::ofstream file(numbered(folder, number), std::ios::binary);
      writeJpeg(file, smallLandscape(static_cast<unsigned>(number)), 15);
    } else {
      std::filesystem::create_hard_link(numbered(folder, number % differentThumbnails + 1),
                                        numbered(folder, number));
    }
}

} // namespace hearthbook::bench
