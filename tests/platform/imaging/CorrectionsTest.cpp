#include "Corrections.h"

#include "RunTimeError.h"
#include "TestPictures.h"
#include "WorkPool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

namespace hearthbook {
namespace {

using namespace test;

std::uint32_t grey(int value) {
  return 0xff000000U | static_cast<std::uint32_t>(value) * 0x010101U;
}

/// Greys from `low` to `high`, each 200 pixels wide, so that none is left out as an outlier.
Picture greys(int low, int high) {
  Picture picture({200, high - low + 1});
  for (int y = 0; y < picture.height(); ++y)
    std::fill_n(picture.writableRow(y), 200, grey(low + y));
  return picture;
}

int largestDistance(const Picture& a, const Picture& b) {
  EXPECT_EQ(a.size(), b.size());
  int largest = 0;
  for (int y = 0; y < std::min(a.height(), b.height()); ++y)
    for (int x = 0; x < std::min(a.width(), b.width()); ++x)
      largest = std::max(largest, distance(a.row(y)[x], b.row(y)[x]));
  return largest;
}

/// A picture in black, each colour alone and all of it, but for one white pixel in the middle.
Picture spot() {
  Picture picture({21, 21});
  picture.writableRow(10)[10] = white;
  return picture;
}

int lightOf(const Picture& picture) {
  int sum = 0;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      sum += static_cast<int>(picture.row(y)[x] & 0xffU);
  return sum;
}

struct Correction {
  const char* name;
  std::function<Picture(const Picture&, WorkPool*)> run;
};

const std::vector<Correction>& corrections() {
  static const std::vector<Correction> all{
      {"auto levels", [](const Picture& p, WorkPool* w) { return autoLevels(p, w); }},
      {"brighter", [](const Picture& p, WorkPool* w) { return withLightness(p, 10, w); }},
      {"darker", [](const Picture& p, WorkPool* w) { return withLightness(p, -10, w); }},
      {"soften", [](const Picture& p, WorkPool* w) { return softened(p, 2, 1, w); }},
      {"sharpen", [](const Picture& p, WorkPool* w) { return sharpened(p, 1, 1, w); }},
      {"flip", [](const Picture& p, WorkPool* w) { return rotated(p, 180, w); }},
      {"right", [](const Picture& p, WorkPool* w) { return rotated(p, -90, w); }},
      {"left", [](const Picture& p, WorkPool* w) { return rotated(p, 90, w); }},
      {"a little", [](const Picture& p, WorkPool* w) { return rotated(p, 3.5, w); }}};
  return all;
}

TEST(Corrections, WithHelpersGiveTheSamePixels) {
  WorkPool pool(3);
  const Picture picture = grainy({403, 517});
  for (const Correction& correction : corrections()) {
    SCOPED_TRACE(correction.name);
    EXPECT_EQ(largestDistance(correction.run(picture, &pool), correction.run(picture, nullptr)), 0);
  }
}

TEST(Corrections, LeaveThePictureTheyAreGivenAlone) {
  const Picture picture = grainy({50, 40});
  const Picture same = grainy({50, 40});
  for (const Correction& correction : corrections())
    correction.run(picture, nullptr);
  EXPECT_EQ(largestDistance(picture, same), 0);
}

TEST(Corrections, EveryPixelStaysOpaque) {
  const Picture picture = grainy({57, 33});
  for (const Correction& correction : corrections()) {
    SCOPED_TRACE(correction.name);
    const Picture result = correction.run(picture, nullptr);
    for (int y = 0; y < result.height(); ++y)
      for (int x = 0; x < result.width(); ++x)
        ASSERT_EQ(result.row(y)[x] >> 24, 0xffU);
  }
}

TEST(Corrections, APlainPictureStaysPlain) {
  for (const Correction& correction : corrections()) {
    if (correction.name == std::string("a little"))
      continue; // paper comes into its corners
    SCOPED_TRACE(correction.name);
    const Picture result = correction.run(plain({37, 23}, 0xffc8641e), nullptr);
    for (int y = 0; y < result.height(); ++y)
      for (int x = 0; x < result.width(); ++x)
        ASSERT_EQ(result.row(y)[x], result.row(0)[0]);
  }
}

TEST(Corrections, OnePixelIsEnough) {
  for (const PixelSize size : {PixelSize{1, 1}, {1, 40}, {40, 1}, {2, 3}})
    for (const Correction& correction : corrections()) {
      SCOPED_TRACE(correction.name);
      EXPECT_FALSE(correction.run(grainy(size), nullptr).isNull());
    }
}

TEST(Corrections, WithoutAPictureAreRefused) {
  for (const Correction& correction : corrections())
    EXPECT_THROW(correction.run(Picture(), nullptr), RunTimeError) << correction.name;
}

TEST(AutoLevels, DarkestAndBrightestReachBlackAndWhite) {
  const Picture result = autoLevels(greys(60, 180));
  EXPECT_EQ(result.row(0)[0], grey(0));
  EXPECT_EQ(result.row(result.height() - 1)[0], grey(255));
  EXPECT_EQ(result.row(60)[0], grey(128)); // (120 - 60) * 255 / 120, rounded
}

TEST(AutoLevels, APictureThatReachesBothStays) {
  Picture full({200, 52});
  for (int y = 0; y < 52; ++y)
    std::fill_n(full.writableRow(y), 200, grey(5 * y));
  EXPECT_EQ(largestDistance(autoLevels(full), full), 0);
}

TEST(AutoLevels, AFewOutliersDoNotCount) {
  Picture picture = greys(60, 180);
  for (int x = 0; x < 100; ++x) {
    picture.writableRow(0)[x] = grey(0); // 100 of 24200 are fewer than 1 in 200
    picture.writableRow(120)[x] = grey(255);
  }
  const Picture result = autoLevels(picture);
  EXPECT_EQ(result.row(60)[0], grey(128));
  EXPECT_EQ(result.row(0)[0], grey(0));
}

TEST(AutoLevels, ATintIsTakenAway) {
  Picture yellowed({200, 101});
  for (std::uint32_t y = 0; y <= 100; ++y)
    std::fill_n(yellowed.writableRow(static_cast<int>(y)), 200,
                0xff000000U | (100 + y) << 16 | (80 + y) << 8 | (20 + y));
  const Picture result = autoLevels(yellowed);
  for (int y = 0; y <= 100; ++y) {
    const std::uint32_t pixel = result.row(y)[0];
    EXPECT_EQ(pixel >> 16 & 0xffU, pixel & 0xffU);
    EXPECT_EQ(pixel >> 8 & 0xffU, pixel & 0xffU);
  }
}

TEST(AutoLevels, AColourThatIsTheSameEverywhereStays) {
  Picture picture({200, 101});
  for (std::uint32_t y = 0; y <= 100; ++y)
    std::fill_n(picture.writableRow(static_cast<int>(y)), 200, 0xff0000c8U | y << 16);
  const Picture result = autoLevels(picture);
  EXPECT_EQ(result.row(50)[0] & 0xffU, 200U);
  EXPECT_EQ(result.row(100)[0] >> 16 & 0xffU, 255U);
}

TEST(Lightness, NoStepChangesNothing) {
  const Picture full = greys(0, 255);
  EXPECT_EQ(largestDistance(withLightness(full, 0), full), 0);
}

TEST(Lightness, MiddleGreyIsLiftedByHalfTheStep) {
  EXPECT_NEAR(static_cast<int>(withLightness(greys(127, 127), 10).row(0)[0] & 0xffU), 140, 1);
  EXPECT_NEAR(static_cast<int>(withLightness(greys(127, 127), 100).row(0)[0] & 0xffU), 254, 1);
}

TEST(Lightness, BlackAndWhiteStayAndNothingChangesPlaces) {
  for (const int step : {-500, -100, -37, -10, 10, 37, 100, 500}) {
    const Picture result = withLightness(greys(0, 255), step);
    EXPECT_EQ(result.row(0)[0], grey(0)) << step;
    EXPECT_EQ(result.row(255)[0], grey(255)) << step;
    for (int value = 1; value < 256; ++value) {
      EXPECT_GE(result.row(value)[0], result.row(value - 1)[0]) << step;
      if (step > 0)
        EXPECT_GE(result.row(value)[0], grey(value)) << step;
      else
        EXPECT_LE(result.row(value)[0], grey(value)) << step;
    }
  }
}

TEST(Lightness, DarkerUndoesBrighter) {
  const Picture picture = greys(8, 247);
  EXPECT_LE(largestDistance(withLightness(withLightness(picture, 10), -10), picture), 1);
  EXPECT_LE(largestDistance(withLightness(withLightness(picture, -10), 10), picture), 2);
}

TEST(Lightness, EveryColourFollowsTheSameCurve) {
  const Picture result = withLightness(plain({1, 1}, 0xff406080), 10);
  const auto light = [](int value) { return withLightness(greys(value, value), 10).row(0)[0]; };
  EXPECT_EQ(result.row(0)[0] >> 16 & 0xffU, light(0x40) & 0xffU);
  EXPECT_EQ(result.row(0)[0] >> 8 & 0xffU, light(0x60) & 0xffU);
  EXPECT_EQ(result.row(0)[0] & 0xffU, light(0x80) & 0xffU);
}

TEST(Soften, LevelZeroChangesNothing) {
  const Picture picture = grainy({30, 30});
  EXPECT_EQ(softened(picture, 0).share(), picture.share());
}

TEST(Soften, ASpotIsSpreadEvenlyToAllSides) {
  const Picture result = softened(spot(), 2);
  EXPECT_LT(result.row(10)[10] & 0xffU, 60U);
  for (int i = 0; i < 5; ++i) {
    const std::uint32_t expected = result.row(10)[10 + i];
    EXPECT_EQ(result.row(10)[10 - i], expected);
    EXPECT_EQ(result.row(10 + i)[10], expected);
    EXPECT_EQ(result.row(10 - i)[10], expected);
    EXPECT_GE(expected, result.row(10)[11 + i]);
  }
}

TEST(Soften, TheLightOfAPictureStaysAboutTheSame) {
  Picture square({41, 41});
  for (int y = 15; y < 26; ++y)
    std::fill_n(square.writableRow(y) + 15, 11, white);
  EXPECT_NEAR(lightOf(softened(square, 2)), lightOf(square), lightOf(square) / 100);
}

TEST(Soften, EdgesAreContinuedNotDarkened) {
  Picture picture = plain({20, 20}, white);
  picture.writableRow(10)[10] = grey(0);
  const Picture result = softened(picture, 2);
  EXPECT_EQ(result.row(0)[0], white);
  EXPECT_EQ(result.row(19)[19], white);
}

TEST(Soften, NothingGoesBeyondWhatWasThere) {
  const Picture picture = greys(50, 200);
  const Picture result = softened(picture, 3);
  for (int y = 0; y < result.height(); ++y)
    for (int x = 0; x < result.width(); ++x) {
      ASSERT_GE(result.row(y)[x], grey(50));
      ASSERT_LE(result.row(y)[x], grey(200));
    }
}

TEST(Soften, AHigherLevelIsSofterAndAPreviewIsSoftenedLess) {
  const auto peak = [](const Picture& picture) { return picture.row(10)[10] & 0xffU; };
  EXPECT_LT(peak(softened(spot(), 2)), peak(softened(spot(), 1)));
  EXPECT_EQ(peak(softened(spot(), 2, 0.5)), peak(softened(spot(), 1)));
  EXPECT_EQ(peak(softened(spot(), 2, 0)), 255U);
}

TEST(Soften, AVeryHighLevelIsStillAPicture) {
  const Picture result = softened(corners({60, 40}), 1e9);
  EXPECT_LE(largestDistance(result, softened(corners({60, 40}), 40)), 0);
}

TEST(Sharpen, LevelZeroChangesNothing) {
  const Picture picture = grainy({30, 30});
  EXPECT_EQ(sharpened(picture, 0).share(), picture.share());
}

TEST(Sharpen, AnEdgeGetsSteeperOnBothSides) {
  Picture edge({20, 20});
  for (int y = 0; y < 20; ++y) {
    std::fill_n(edge.writableRow(y), 10, grey(100));
    std::fill_n(edge.writableRow(y) + 10, 10, grey(150));
  }
  const Picture result = sharpened(edge, 1);
  EXPECT_LT(result.row(10)[9], grey(100));
  EXPECT_GT(result.row(10)[10], grey(150));
  EXPECT_EQ(result.row(10)[0], grey(100));
  EXPECT_EQ(result.row(10)[19], grey(150));
}

TEST(Sharpen, ColoursAreNotFringed) {
  Picture edge({20, 20});
  for (int y = 0; y < 20; ++y) {
    std::fill_n(edge.writableRow(y), 10, 0xff643c28);
    std::fill_n(edge.writableRow(y) + 10, 10, 0xff96b4a0);
  }
  const Picture result = sharpened(edge, 1);
  const auto lighter = [&](int x, int shift) {
    return static_cast<int>(result.row(10)[x] >> shift & 0xffU) -
           static_cast<int>(edge.row(10)[x] >> shift & 0xffU);
  };
  for (const int x : {9, 10}) {
    EXPECT_NE(lighter(x, 0), 0);
    EXPECT_EQ(lighter(x, 0), lighter(x, 8));
    EXPECT_EQ(lighter(x, 0), lighter(x, 16));
  }
}

TEST(Sharpen, SharpeningGivesBackSomeOfWhatSofteningTook) {
  const Picture soft = softened(spot(), 1);
  EXPECT_GT(sharpened(soft, 1).row(10)[10], soft.row(10)[10]);
}

} // namespace
} // namespace hearthbook
