#include "../SampleThumbnails.h"
#include "AddSubAlbum.h"
#include "AlbumStart.h"
#include "BenchAlbum.h"
#include "BoundControls.h"
#include "Forms.h"
#include "Guard.h"
#include "Look.h"
#include "MDIForm1.h"
#include "PaintWatch.h"
#include "StripGeometry.h"
#include "StripPage.h"
#include "Wiring.h"

#include <benchmark/benchmark.h>

#include <QElapsedTimer>
#include <QScrollBar>

#include <memory>
#include <stdexcept>
#include <string>

// A sub-album of 10,000 photos in its editor: from the click on its name until the strip and its
// eighteen thumbnails are painted, beside the 300 ms that this may take; and one row of scrolling,
// beside one frame of a screen at 60 Hz.

namespace hearthbook::bench {
namespace {

constexpr int photoCount = 10'000;
constexpr double openingSeconds = 0.3;
constexpr double frameSeconds = 1.0 / 60;
constexpr int restMs = 100;

/// The program with its sub-album editor open.
class OpenEditor {
public:
  OpenEditor() : folder_(photoCount), album_(ApplicationFolder(folder_.path())) {
    writeThumbnails(thumbnails(), photoCount);
    startAlbum(album_, [] { return false; });
    fillSubAlbum();
    frame_ = std::make_unique<MDIForm1>(album_, ShellServices());
    wiring_ = std::make_unique<Wiring>(album_, *frame_);
    frame_->open();
    editor_ = &Forms::get<AddSubAlbum>();
    editor_->takeEditedPhoto();
    editor_->resize(1344, 766); // as on a screen of 1920 by 1080
    editor_->Show();
    list_ = editor_->findChild<DataList*>();
    page_ = editor_->findChild<StripPage*>();
    scroll_ = editor_->findChild<QScrollBar*>(QStringLiteral("VScroll1"));
    list_->setBoundText(1);
  }

  /// The first thumbnails are read from their files once more.
  double open() {
    for (int number = 1; number <= static_cast<int>(stripInView); ++number)
      std::filesystem::last_write_time(numbered(thumbnails(), number),
                                       std::filesystem::file_time_type::clock::now());
    return untilPainted([this] { Q_EMIT list_->chosen(); });
  }
  double scrollByARow() {
    if (scroll_->maximum() == 0)
      open();
    if (scroll_->maximum() == 0)
      throw std::logic_error("the sub-album was not opened");
    if (scroll_->value() == scroll_->maximum())
      untilPainted([this] { scroll_->setValue(0); });
    return untilPainted([this] { scroll_->setValue(scroll_->value() + 1); });
  }

private:
  [[nodiscard]] std::filesystem::path thumbnails() const { return folder_.path() / "Thumbnails"; }
  void fillSubAlbum() {
    Connection& connection = album_.data.AlbumDB;
    connection.transaction([&] {
      for (int number = 1; number <= photoCount; ++number)
        connection.execute("INSERT INTO SubAlbumPhotos (AlbumID, PhotoID, [Index]) VALUES (1, 'HD" +
                           numbered({}, number).stem().string() + "', " +
                           std::to_string(number - 1) + ")");
    });
  }
  /// Seconds from the command until the strip is painted with all its pictures.
  template <class Command> double untilPainted(Command command) {
    runLoop(restMs); // what is still to be done for the one before
    PaintWatch watch(page_);
    QElapsedTimer passed;
    passed.start();
    command();
    while (editor_->isWaitingForPictures()) // asleep: both cores are for the pictures
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    watch.painted = false; // of the pixels that have come, not of those before
    page_->update();
    while (!watch.painted)
      QCoreApplication::processEvents();
    return static_cast<double>(passed.nsecsElapsed()) * 1e-9;
  }

  BenchAlbum folder_;
  Album album_;
  std::unique_ptr<MDIForm1> frame_;
  std::unique_ptr<Wiring> wiring_;
  AddSubAlbum* editor_ = nullptr;
  DataList* list_ = nullptr;
  StripPage* page_ = nullptr;
  QScrollBar* scroll_ = nullptr;
};

OpenEditor* opened = nullptr;

double open() { return opened->open(); }
double allowedToOpen() { return openingSeconds; }
double scroll() { return opened->scrollByARow(); }
double oneFrame() { return frameSeconds; }

void measure(const std::string& name, double (*measured)(), int iterations) {
  benchmark::RegisterBenchmark(name.c_str(),
                               [=](benchmark::State& state) {
                                 for (auto _ : state)
                                   state.SetIterationTime(measured());
                               })
      ->UseManualTime()
      ->Unit(benchmark::kMillisecond)
      ->Iterations(iterations);
}

} // namespace
} // namespace hearthbook::bench

int main(int argc, char** argv) {
  namespace bench = hearthbook::bench;
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  hearthbook::GuardedApplication application(argc, argv);
  hearthbook::applyLook(application);
  bench::measure("sub-album of 10,000 opened/ours", bench::open, 5);
  bench::measure("sub-album of 10,000 opened/reference", bench::allowedToOpen, 5);
  bench::measure("sub-album scrolled by a row/ours", bench::scroll, 20);
  bench::measure("sub-album scrolled by a row/reference", bench::oneFrame, 20);
  benchmark::Initialize(&argc, argv);
  {
    bench::OpenEditor editor;
    bench::opened = &editor;
    benchmark::RunSpecifiedBenchmarks();
  }
  return 0;
}
