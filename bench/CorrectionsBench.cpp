#include "Corrections.h"
#include "Regions.h"
#include "SamplePhotos.h"
#include "VipsReference.h"
#include "WorkPool.h"

#include <benchmark/benchmark.h>

#include <functional>
#include <string>

// What puts a picture right, on 12 megapixels in memory, beside libvips on the same pixels. Both
// use all cores, so that the time that passes counts.

namespace hearthbook::bench {
namespace {

constexpr double aLittle = 3.5; // degrees
constexpr PixelRect region{500, 400, 3000, 2200};
constexpr PixelSize shown{2724, 1796}; // the view of the form at its largest, on 3840 by 2160
constexpr double wantedForPreview = 0.05;

WorkPool& pool() {
  static WorkPool threads;
  return threads;
}

const Picture& photo() {
  static const Picture picture = samplePhoto(twelveMegapixels, 1);
  return picture;
}

const Picture& piece() {
  static const Picture picture = samplePhoto(region.size(), 2);
  return picture;
}

using Ours = std::function<Picture(const Picture&)>;
using Reference = std::function<void(VipsReference&)>;

void measure(const std::string& name, const Ours& ours, const Reference& reference) {
  const auto oursTimed = [ours](benchmark::State& state) {
    for (auto _ : state)
      benchmark::DoNotOptimize(ours(photo()));
  };
  const auto referenceTimed = [reference](benchmark::State& state) {
    static VipsReference vips(photo(), piece());
    for (auto _ : state)
      reference(vips);
  };
  benchmark::RegisterBenchmark((name + "/ours").c_str(), oursTimed)
      ->Unit(benchmark::kMillisecond)
      ->UseRealTime();
  benchmark::RegisterBenchmark((name + "/reference").c_str(), referenceTimed)
      ->Unit(benchmark::kMillisecond)
      ->UseRealTime();
}

/// The slowest step on what is shown; the reference is what the eye allows.
void measurePreview() {
  const auto ours = [](benchmark::State& state) {
    const Picture picture = samplePhoto(shown, 3);
    for (auto _ : state)
      benchmark::DoNotOptimize(softened(picture, 2, 1, &pool()));
  };
  const auto allowed = [](benchmark::State& state) {
    for (auto _ : state)
      state.SetIterationTime(wantedForPreview);
  };
  benchmark::RegisterBenchmark("preview of a step/ours", ours)
      ->Unit(benchmark::kMillisecond)
      ->UseRealTime();
  benchmark::RegisterBenchmark("preview of a step/reference", allowed)
      ->Unit(benchmark::kMillisecond)
      ->Iterations(10)
      ->UseManualTime();
}

Picture withPiece(Picture picture) {
  paste(picture, piece(), region.left, region.top, &pool());
  return picture;
}

Picture flattenedWithPiece(const Picture& picture) {
  return flattened(picture, {{piece(), region.left, region.top}}, {}, &pool());
}

const bool registered = [] {
  measure(
      "auto levels", [](const Picture& p) { return autoLevels(p, &pool()); },
      [](VipsReference& vips) { vips.autoLevels(); });
  measure(
      "lightness", [](const Picture& p) { return withLightness(p, 10, &pool()); },
      [](VipsReference& vips) { vips.lightness(); });
  measure(
      "soften", [](const Picture& p) { return softened(p, 2, 1, &pool()); },
      [](VipsReference& vips) { vips.soften(2); });
  measure(
      "sharpen", [](const Picture& p) { return sharpened(p, 1, 1, &pool()); },
      [](VipsReference& vips) { vips.sharpen(1); });
  measure(
      "turn by a right angle", [](const Picture& p) { return rotated(p, 90, &pool()); },
      [](VipsReference& vips) { vips.turnLeft(); });
  measure(
      "turn by a half", [](const Picture& p) { return rotated(p, 180, &pool()); },
      [](VipsReference& vips) { vips.turnByHalf(); });
  measure(
      "turn by a little", [](const Picture& p) { return rotated(p, aLittle, &pool()); },
      [](VipsReference& vips) { vips.turnByALittle(aLittle); });
  measure(
      "crop", [](const Picture& p) { return cropped(p, region, &pool()); },
      [](VipsReference& vips) { vips.crop(region); });
  measure(
      "put a region back", [](const Picture& p) { return withPiece(p); },
      [](VipsReference& vips) { vips.putBack(region); });
  measure(
      "flatten", [](const Picture& p) { return flattenedWithPiece(p); },
      [](VipsReference& vips) { vips.flatten(region); });
  measurePreview();
  return true;
}();

} // namespace
} // namespace hearthbook::bench

BENCHMARK_MAIN();
