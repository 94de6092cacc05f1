#include "Decode.h"
#include "Encode.h"
#include "Machine.h"
#include "PictureImage.h"
#include "Resample.h"
#include "SamplePhotos.h"

#include <benchmark/benchmark.h>

#include <QImageReader>

#include <cstdio>

#include <jpeglib.h>

#include <sstream>
#include <vector>

// Pairs `X/ours` and `X/reference`, which bench/compare sets against each other.

namespace hearthbook::bench {
namespace {

constexpr PixelSize thumbnail{73, 55};
constexpr PixelSize editor{900, 675};

/// Made once, kept for the whole run.
const std::filesystem::path& cameraPhoto() {
  static const WorkFolder folder;
  static const std::filesystem::path photo = writeSamplePhotos(folder.path(), 1).front();
  return photo;
}

void thumbnailOurs(benchmark::State& state) {
  const auto& photo = cameraPhoto();
  for (auto _ : state) {
    std::ostringstream stream;
    writeJpeg(stream, decodePictureAt(photo, thumbnail).picture, thumbnailFactor);
    benchmark::DoNotOptimize(stream);
  }
}

/// The library alone, at an eighth, which no thumbnail can do without.
void decodeEighth(std::FILE* file) {
  jpeg_decompress_struct decoder{};
  jpeg_error_mgr errors{};
  decoder.err = jpeg_std_error(&errors);
  jpeg_create_decompress(&decoder);
  jpeg_stdio_src(&decoder, file);
  jpeg_read_header(&decoder, TRUE);
  decoder.scale_num = 1;
  decoder.scale_denom = 8;
  jpeg_start_decompress(&decoder);
  std::vector<JSAMPLE> row(std::size_t{decoder.output_width} * 3);
  JSAMPROW rows = row.data();
  while (decoder.output_scanline < decoder.output_height)
    jpeg_read_scanlines(&decoder, &rows, 1);
  jpeg_finish_decompress(&decoder);
  jpeg_destroy_decompress(&decoder);
}

void thumbnailReference(benchmark::State& state) {
  const auto& photo = cameraPhoto();
  for (auto _ : state) {
    std::FILE* file = std::fopen(photo.c_str(), "rb");
    decodeEighth(file);
    std::fclose(file);
  }
}

void showOurs(benchmark::State& state) {
  const auto& photo = cameraPhoto();
  for (auto _ : state)
    benchmark::DoNotOptimize(decodePictureAt(photo, editor));
}

void showReference(benchmark::State& state) {
  const QString photo = QString::fromStdString(cameraPhoto().string());
  for (auto _ : state) {
    QImageReader reader(photo);
    reader.setScaledSize(QSize(editor.width, editor.height));
    benchmark::DoNotOptimize(reader.read());
  }
}

void shrinkOurs(benchmark::State& state) {
  const Picture picture = samplePhoto(twelveMegapixels, 1);
  for (auto _ : state)
    benchmark::DoNotOptimize(resample(picture, editor));
}

void shrinkReference(benchmark::State& state) {
  const QImage image = toImage(samplePhoto(twelveMegapixels, 1));
  for (auto _ : state)
    benchmark::DoNotOptimize(
        image.scaled(editor.width, editor.height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

void measure(const char* name, void (*function)(benchmark::State&)) {
  benchmark::RegisterBenchmark(name, function)
      ->Unit(benchmark::kMillisecond)
      ->MeasureProcessCPUTime(); // Qt uses threads of its own
}

const bool registered = [] {
  measure("thumbnail of 12 megapixels/ours", thumbnailOurs);
  measure("thumbnail of 12 megapixels/reference", thumbnailReference);
  measure("12 megapixels for the editor/ours", showOurs);
  measure("12 megapixels for the editor/reference", showReference);
  measure("shrink 12 megapixels/ours", shrinkOurs);
  measure("shrink 12 megapixels/reference", shrinkReference);
  return true;
}();

} // namespace
} // namespace hearthbook::bench

BENCHMARK_MAIN();
