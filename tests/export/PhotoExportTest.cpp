#include "PhotoExport.h"

#include "Decode.h"
#include "ExportPages.h"
#include "FileBytes.h"
#include "Resample.h"
#include "TemporaryFolder.h"
#include "TestPictures.h"

#include <gtest/gtest.h>

#include <cmath>

namespace hearthbook::test {
namespace {

namespace fs = std::filesystem;

/// How near two pictures are, in decibels; 50 and more cannot be told apart.
double nearness(const Picture& one, const Picture& other) {
  double squares = 0;
  for (int y = 0; y < one.height(); ++y)
    for (int x = 0; x < one.width(); ++x)
      for (const int shift : {0, 8, 16}) {
        const auto channel = [&](const Picture& picture) {
          return static_cast<int>(picture.row(y)[x] >> shift & 0xffU);
        };
        squares += std::pow(channel(one) - channel(other), 2);
      }
  const double mean = squares / (3.0 * one.width() * one.height());
  return 10 * std::log10(255.0 * 255.0 / std::max(mean, 1e-9));
}

class PhotoExport : public testing::Test {
protected:
  Picture exported(const fs::path& photo) {
    fs::create_directories(folder_.path() / "data");
    PhotoExportOrder order;
    order.number = 1;
    order.photo = photo;
    order.thumbnail = photo;
    order.target = folder_.path();
    order.limits = optimizations()[0].limits;
    return exportPhoto(order).shown;
  }
  static Picture exact(const fs::path& photo) {
    const Picture whole = decodePicture(photo).picture;
    return resample(whole, exportedSize(whole.size(), *optimizations()[0].limits));
  }
  [[nodiscard]] fs::path photo() const { return folder_.path() / "photo.jpg"; }

  TemporaryFolder folder_;
};

TEST_F(PhotoExport, AReducedPhotoIsAsSharpAsAnExactAverage) {
  writeBytes(photo(), jpegOf(grainy({2800, 2100}), 5));
  const Picture shown = exported(photo());
  ASSERT_EQ(shown.size(), (PixelSize{620, 465}));
  EXPECT_GE(nearness(shown, exact(photo())), 50.0);
}

// Larger than what is decoded whole: the decoder's own reduction comes first.
TEST_F(PhotoExport, APhotoOfTwelveMegapixelsIsAsSharpAsAnExactAverage) {
  writeBytes(photo(), jpegOf(grainy({4000, 3000}), 5));
  const Picture shown = exported(photo());
  ASSERT_EQ(shown.size(), (PixelSize{620, 465}));
  EXPECT_GE(nearness(shown, exact(photo())), 50.0);
}

TEST_F(PhotoExport, RealPhotographsKeepTheirSharpness) {
  const fs::path nature = "/usr/share/backgrounds/mate/nature";
  for (const char* name : {"Garden.jpg", "Dune.jpg"}) {
    if (!fs::exists(nature / name))
      GTEST_SKIP() << "the photographs are not installed";
    EXPECT_GE(nearness(exported(nature / name), exact(nature / name)), 50.0) << name;
  }
}

TEST_F(PhotoExport, WhatIsWrittenIsWhatWasShown) {
  writeBytes(photo(), jpegOf(grainy({1240, 930}), 5));
  const Picture shown = exported(photo());
  const Picture written = decodePicture(folder_.path() / "data" / "1.jpg").picture;
  ASSERT_EQ(written.size(), shown.size());
  EXPECT_GE(nearness(written, shown), 38.0); // quality 95
}

} // namespace
} // namespace hearthbook::test
