// Damaged pictures by the hundred: none may bring the program down, and all that is thrown is a
// RunTimeError. The damage is the same in every run.

#include "Decode.h"
#include "Exif.h"
#include "FileBytes.h"
#include "PictureFormats.h"
#include "RunTimeError.h"
#include "TemporaryFolder.h"
#include "TestPictures.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <random>
#include <string>

namespace hearthbook {
namespace {

using namespace test;

constexpr int damagesEach = 150;
constexpr PixelSize size{48, 36};

using Random = std::minstd_rand;

std::size_t below(Random& random, std::size_t limit) { return random() % limit; }

char anyByte(Random& random) {
  constexpr char telling[] = {'\0', '\1', '\x7f', '\x80', '\xff', '\xfe'};
  return below(random, 2) ? telling[below(random, sizeof telling)]
                          : static_cast<char>(below(random, 256));
}

/// Mostly near the beginning, where the head is.
std::size_t anyPlace(Random& random, std::size_t length) {
  const std::size_t reach = below(random, 3) ? std::min<std::size_t>(length, 200) : length;
  return below(random, reach);
}

std::string damaged(std::string bytes, Random& random) {
  for (std::size_t count = 1 + below(random, 6); count > 0; --count)
    bytes[anyPlace(random, bytes.size())] = anyByte(random);
  if (below(random, 4) == 0)
    bytes.resize(1 + below(random, bytes.size()));
  if (below(random, 8) == 0)
    bytes.insert(anyPlace(random, bytes.size()), 1 + below(random, 40), anyByte(random));
  return bytes;
}

std::string bytesOf(const std::string& format) {
  const Picture picture = grainy(size);
  const std::map<std::string, std::function<std::string()>> ours = {
      {"jpeg", [&] { return withOrientation(jpegOf(picture), 6); }},
      {"progressive", [&] { return progressiveJpegOf(picture); }},
      {"press", [&] { return pressJpegOf(picture, true); }},
      {"pcx", [&] { return pcxOf(picture); }},
      {"tga", [&] { return tgaOf(picture); }},
      {"directoryFirst", [&] { return tiffOf(picture, 8); }},
      {"deep", [&] { return tiffOf(picture, 16); }},
      {"pngIcon", [&] { return pngIconOf(picture); }},
      {"bitmapIcon", [&] { return bitmapIconOf(picture); }},
      {"packedBmp", [] { return packedBmp(size); }},
      {"gif", [] { return gifOf(size); }},
  };
  const auto found = ours.find(format);
  return found == ours.end() ? encodedBy(format.c_str(), picture) : found->second();
}

/// True if it could be shown.
bool tryPicture(const std::filesystem::path& file) {
  try {
    const PictureInfo info = readPictureInfo(file);
    // What only claims to be large takes its time and finds nothing.
    if (std::int64_t{info.size.width} * info.size.height > 4'000'000)
      return false;
    const Decoded decoded = decodePicture(file);
    EXPECT_EQ(decoded.picture.size(), decoded.fullSize);
    EXPECT_EQ(decodePictureAt(file, {20, 15}).picture.size(), (PixelSize{20, 15}));
    return true;
  } catch (const RunTimeError& error) {
    EXPECT_NE(std::string(error.what()).find(file.string()), std::string::npos);
    return false;
  }
}

class PictureFuzz : public testing::TestWithParam<std::string> {};

TEST_P(PictureFuzz, DamageIsSurvived) {
  const TemporaryFolder folder;
  const auto file = folder.path() / "a.tga";
  const std::string whole = bytesOf(GetParam());
  Random random(20);
  int shown = 0;
  for (int i = 0; i < damagesEach; ++i) {
    SCOPED_TRACE(i);
    writeBytes(file, damaged(whole, random));
    shown += tryPicture(file) ? 1 : 0;
  }
  EXPECT_GT(shown, 0) << "the damage should leave something to read";
}

INSTANTIATE_TEST_SUITE_P(Formats, PictureFuzz,
                         testing::Values("jpeg", "progressive", "press", "png", "bmp", "tiff",
                                         "ico", "pcx", "tga", "directoryFirst", "deep", "pngIcon",
                                         "bitmapIcon", "packedBmp", "gif"),
                         [](const auto& format) { return format.param; });

TEST(ExifFuzz, DamageIsSurvived) {
  const std::string whole = withOrientation("\xff\xd8", 6).substr(6);
  Random random(20);
  for (int i = 0; i < 20'000; ++i) {
    const std::string segment = damaged(whole, random);
    const int orientation =
        exifOrientation({reinterpret_cast<const std::uint8_t*>(segment.data()), segment.size()});
    ASSERT_GE(orientation, 1);
    ASSERT_LE(orientation, 8);
  }
}

} // namespace
} // namespace hearthbook
