#include "Encode.h"

#include "Decode.h"
#include "FileBytes.h"
#include "RunTimeError.h"
#include "TemporaryFolder.h"
#include "TestPictures.h"

#include <gtest/gtest.h>

#include <sstream>

namespace hearthbook {
namespace {

using namespace test;

/// The first quantiser of the first table: what the quality comes down to.
int firstQuantiser(const std::string& jpeg) {
  const auto table = jpeg.find("\xff\xdb");
  return static_cast<unsigned char>(jpeg.at(table + 5));
}

/// Horizontal and vertical sampling of the first component.
int firstSampling(const std::string& jpeg) {
  const auto frame = jpeg.find("\xff\xc0");
  return static_cast<unsigned char>(jpeg.at(frame + 11));
}

/// Takes so many bytes and fails then, as a full disk does.
class FullAfter : public std::stringbuf {
public:
  explicit FullAfter(std::streamsize room) : room_(room) {}

protected:
  std::streamsize xsputn(const char*, std::streamsize count) override {
    const auto taken = std::min(count, room_);
    room_ -= taken;
    return taken;
  }
  int overflow(int) override { return traits_type::eof(); }

private:
  std::streamsize room_;
};

TEST(Encode, AFactorIsTakenFromQuality95) {
  const Picture picture = grainy({64, 48});
  EXPECT_EQ(firstQuantiser(jpegOf(picture, 0)), 2);   // 16 at a tenth
  EXPECT_EQ(firstQuantiser(jpegOf(picture, 15)), 6);  // 16 at 40 %
  EXPECT_EQ(firstQuantiser(jpegOf(picture, 45)), 16); // 16 as it stands
  EXPECT_EQ(firstQuantiser(jpegOf(picture, 200)), 255);
}

TEST(Encode, TheBestFactorKeepsTheColoursOfEveryPixel) {
  EXPECT_EQ(firstSampling(jpegOf(corners({16, 16}), 0)), 0x11);
  EXPECT_EQ(firstSampling(jpegOf(corners({16, 16}), 15)), 0x22);
}

TEST(Encode, ComesBackAsItWas) {
  const TemporaryFolder folder;
  writeBytes(folder.path() / "a.jpg", jpegOf(corners({40, 30})));
  const Picture picture = decodePicture(folder.path() / "a.jpg").picture;
  ASSERT_EQ(picture.size(), (PixelSize{40, 30}));
  EXPECT_LE(distance(picture.row(2)[2], red), 3);
  EXPECT_LE(distance(picture.row(27)[37], white), 3);
}

TEST(Encode, AStreamThatFailsIsTold) {
  for (const int room : {0, 100, 70'000}) {
    FullAfter buffer(room);
    std::ostream stream(&buffer);
    EXPECT_THROW(writeJpeg(stream, grainy({400, 400}), 0), RunTimeError) << room;
  }
}

TEST(Encode, AStreamThatThrowsIsToldToo) {
  FullAfter buffer(100);
  std::ostream stream(&buffer);
  stream.exceptions(std::ios::badbit | std::ios::failbit);
  EXPECT_THROW(writeJpeg(stream, grainy({400, 400}), 0), RunTimeError);
}

TEST(Encode, NoPictureOrOneTooWideIsRefused) {
  std::ostringstream stream;
  EXPECT_THROW(writeJpeg(stream, Picture(), 0), RunTimeError);
  EXPECT_THROW(writeJpeg(stream, Picture({70'000, 1}), 0), RunTimeError);
}

} // namespace
} // namespace hearthbook
