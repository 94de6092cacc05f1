#include "../BareLoop.h"
#include "../Machine.h"
#include "../SampleThumbnails.h"
#include "AlbumStart.h"
#include "BenchAlbum.h"
#include "Forms.h"
#include "Guard.h"
#include "JetSql.h"
#include "Look.h"
#include "MDIForm1.h"
#include "PaintWatch.h"
#include "PhotoFiles.h"
#include "PictureBox.h"
#include "ResultGrid.h"
#include "Search.h"
#include "Wiring.h"

#include <benchmark/benchmark.h>

#include <QAbstractButton>
#include <QElapsedTimer>
#include <QImage>
#include <QLineEdit>
#include <QPainter>

#include <cstdio> // of which jpeglib.h speaks
#include <fstream>
#include <jpeglib.h>
#include <memory>
#include <unistd.h>

// Searching an album of 100,000 photos in the window of the program: from the press of Search to
// its first page on the screen, from page to page, and what it takes of memory to page through
// all of them. The references are a bare loop over the statement and the decoding of a page's
// thumbnails, by the library for JPEG alone or by djpeg.

namespace hearthbook::bench {
namespace {

constexpr int photoCount = 99'999;
constexpr int decodeAheadMs = 300;
constexpr double mostGrowth = 20e6;

/// With the library alone.
QImage decode(const std::filesystem::path& path) {
  const std::unique_ptr<FILE, int (*)(FILE*)> file(std::fopen(path.c_str(), "rb"), std::fclose);
  jpeg_decompress_struct info{};
  jpeg_error_mgr errors{};
  info.err = jpeg_std_error(&errors);
  jpeg_create_decompress(&info);
  jpeg_stdio_src(&info, file.get());
  jpeg_read_header(&info, TRUE);
  jpeg_start_decompress(&info);
  QImage picture(static_cast<int>(info.output_width), static_cast<int>(info.output_height),
                 QImage::Format_RGB888);
  while (info.output_scanline < info.output_height) {
    JSAMPROW row = picture.scanLine(static_cast<int>(info.output_scanline));
    jpeg_read_scanlines(&info, &row, 1);
  }
  jpeg_finish_decompress(&info);
  jpeg_destroy_decompress(&info);
  return picture;
}

double seconds(const QElapsedTimer& passed) {
  return static_cast<double>(passed.nsecsElapsed()) * 1e-9;
}

/// The program with its search open.
class OpenSearch {
public:
  OpenSearch() : folder_(photoCount), album_(ApplicationFolder(folder_.path())) {
    writeThumbnails(folder_.path() / "Thumbnails", photoCount);
    startAlbum(album_, [] { return false; });
    frame_ = std::make_unique<MDIForm1>(album_, ShellServices());
    wiring_ = std::make_unique<Wiring>(album_, *frame_);
    frame_->open();
    frame_->resize(1920, 1080);
    frame_->commands().searchFromStart();
    search_ = Forms::loaded<Search>();
    runLoop(decodeAheadMs);
  }

  /// Seconds from the press until the page with all its pictures is painted.
  double press(const char* command) {
    for (int pending = 0; pending < 3; ++pending)
      QCoreApplication::processEvents(); // what the page before has still to paint
    PaintWatch watch(search_->findChild<ResultGrid*>());
    QElapsedTimer passed;
    passed.start();
    search_->findChild<QAbstractButton*>(QString::fromLatin1(command))->click();
    while (search_->isWaitingForPictures() || !watch.painted)
      QCoreApplication::processEvents();
    QCoreApplication::processEvents(); // of the last pictures that came
    return seconds(passed);
  }
  static void rest() { runLoop(decodeAheadMs); }

  void searchFrom(const QString& year) {
    auto* field = search_->findChild<QLineEdit*>(QStringLiteral("FromYear"));
    if (album_.vars.PageThumbCount > 0 && field->text() == year)
      return;
    field->setText(year);
    press("Command1");
    rest();
  }

  /// The page shown is read from its files once more the next time.
  void forgetPictures() {
    for (const auto& file : filesOfPage())
      std::filesystem::last_write_time(file, std::filesystem::file_time_type::clock::now());
  }

  double bareSearch() {
    QElapsedTimer passed;
    passed.start();
    readAll(album_.data.AlbumDB, toSqlite(album_.vars.rsSearch->Source()));
    return seconds(passed);
  }
  double bareDecoding() {
    const auto files = filesOfPage();
    QElapsedTimer passed;
    passed.start();
    for (const auto& file : files)
      benchmark::DoNotOptimize(decode(file).constBits());
    return seconds(passed);
  }
  double djpegDecoding() {
    const auto files = filesOfPage();
    QElapsedTimer passed;
    passed.start();
    for (const auto& file : files)
      runProgram({"djpeg", file.string()});
    return seconds(passed);
  }
  /// Decodes them, brings them to the size at which they are shown, and draws them.
  double bareShowing() {
    const auto files = filesOfPage();
    const auto* cell = search_->findChild<PictureBox*>(QStringLiteral("Image1"));
    const QSize shown(cell->picture().size().width, cell->picture().size().height);
    QImage page(search_->size(), QImage::Format_RGB32);
    QElapsedTimer passed;
    passed.start();
    QPainter painter(&page);
    painter.fillRect(page.rect(), Qt::white);
    int at = 0;
    for (const auto& file : files)
      painter.drawImage(
          at++ * 10, 0,
          decode(file).scaled(shown, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    return seconds(passed);
  }
  /// How much more memory the process has when all pages have gone by.
  double growthOfPaging() {
    press("Command12");
    rest();
    const auto before = static_cast<double>(residentBytes());
    while (!album_.vars.rsSearch->atEOF())
      press("Command2");
    rest();
    return std::max(1.0, static_cast<double>(residentBytes()) - before);
  }

private:
  std::vector<std::filesystem::path> filesOfPage() {
    std::vector<std::filesystem::path> files;
    const auto walker = album_.vars.rsSearch->Clone();
    for (int cell = 0; cell < album_.vars.PageThumbCount; ++cell) {
      const auto position = album_.vars.PagePositions[static_cast<std::size_t>(cell)].toInteger();
      walker->Move(position - 1, Recordset::Start::First);
      files.push_back(thumbnailPath(album_, walker->Collect("PictureID").toText()).value());
    }
    return files;
  }

  BenchAlbum folder_;
  Album album_;
  std::unique_ptr<MDIForm1> frame_;
  std::unique_ptr<Wiring> wiring_;
  Search* search_ = nullptr;
};

OpenSearch* opened = nullptr;

double firstPage() {
  opened->forgetPictures();
  return opened->press("Command1");
}
double bareFirstPage() { return opened->bareSearch() + opened->bareDecoding(); }
double nextPage() {
  OpenSearch::rest();
  return opened->press("Command2");
}
double nextPageAtOnce() { return opened->press("Command2"); }
double bareNextPage() { return opened->djpegDecoding(); }
double barePixels() { return opened->bareShowing(); }

/// A new search begins only where the years are others, so that each page is turned to once.
void measure(const std::string& name, const char* fromYear, double (*measured)(), int iterations) {
  benchmark::RegisterBenchmark(name.c_str(),
                               [=](benchmark::State& state) {
                                 opened->searchFrom(QString::fromLatin1(fromYear));
                                 for (auto _ : state)
                                   state.SetIterationTime(measured());
                               })
      ->UseManualTime()
      ->Unit(benchmark::kMillisecond)
      ->Iterations(iterations);
}

void measureMemory(const std::string& name) {
  const auto tell = [](benchmark::State& state, double bytes) {
    for (auto _ : state)
      state.counters["bytes"] = bytes;
  };
  benchmark::RegisterBenchmark((name + "/ours").c_str(), [=](benchmark::State& state) {
    static const double growth = opened->growthOfPaging();
    tell(state, growth);
  })->Iterations(1);
  benchmark::RegisterBenchmark((name + "/reference").c_str(), [=](benchmark::State& state) {
    tell(state, mostGrowth);
  })->Iterations(1);
}

void addMeasurements() {
  const auto pair = [](const std::string& name, const char* fromYear, double (*ours)(),
                       double (*reference)(), int iterations) {
    measure(name + "/ours", fromYear, ours, iterations);
    measure(name + "/reference", fromYear, reference, iterations);
  };
  pair("first page of 100,000 found", "", firstPage, bareFirstPage, 3);
  pair("first page of 20,000 found", "2000", firstPage, bareFirstPage, 3);
  pair("next page", "", nextPage, bareNextPage, 10);
  pair("next page at once", "", nextPageAtOnce, bareNextPage, 10);
  pair("next page beside its pixels alone", "", nextPage, barePixels, 10);
  measureMemory("memory while paging through 100,000");
}

} // namespace
} // namespace hearthbook::bench

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  hearthbook::GuardedApplication application(argc, argv);
  hearthbook::applyLook(application);
  hearthbook::bench::addMeasurements();
  benchmark::Initialize(&argc, argv);
  {
    hearthbook::bench::OpenSearch search;
    hearthbook::bench::opened = &search;
    benchmark::RunSpecifiedBenchmarks();
  }
  return 0;
}
