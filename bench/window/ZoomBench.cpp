#include "../Machine.h"
#include "../SamplePhotos.h"
#include "AlbumStart.h"
#include "BenchAlbum.h"
#include "Forms.h"
#include "FrameCommands.h"
#include "FullScreen.h"
#include "Guard.h"
#include "LargePhoto.h"
#include "Look.h"
#include "MDIForm1.h"
#include "PaintWatch.h"
#include "Viewer.h"
#include "Wiring.h"
#include "Zoom.h"
#include "ZoomArea.h"
#include "ZoomPicture.h"

#include <benchmark/benchmark.h>

#include <QAbstractButton>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

// Photographs of 12 megapixels, one at a time: the step to one that has been decoded ahead, in the
// zoom view and on the full screen, the first zoom step of a photo, whose pixels are then decoded
// anew, and a move of a drag, each until it is painted and beside one frame of a screen at 60 Hz;
// slide shows, by how late their worst tick comes, and by what the process has more of memory at
// the end of the longer one than after its first 20 photos.

namespace hearthbook::bench {
namespace {

namespace fs = std::filesystem;

constexpr int photoCount = 1000;
constexpr int differentPhotos = 12;
constexpr int fewPhotos = 20;
constexpr double frameSeconds = 1.0 / 60;
constexpr int decodeAheadMs = 2000;
constexpr int quickMs = 100; // ten times faster than the show can be set, so that it ends today
constexpr int fewTicks = 30;
const char* const ticksVariable = "HEARTHBOOK_BENCH_TICKS"; // how many, of the show at a second
constexpr double mostGrowth = 10e6;

/// The program with the zoom view open on the first of its photos.
class OpenZoom {
public:
  OpenZoom() : folder_(photoCount), album_(ApplicationFolder(folder_.path())) {
    writePhotos();
    startAlbum(album_, [] { return false; });
    frame_ = std::make_unique<MDIForm1>(album_, ShellServices());
    wiring_ = std::make_unique<Wiring>(album_, *frame_);
    frame_->open();
    frame_->showNormal(); // no larger screen is there to fill
    frame_->resize(1920, 1080);
    frame_->commands().viewAlbum(0, QStringLiteral("Master Album"));
    button(Forms::get<Viewer>(), "Command6").click();
    zoom_ = &Forms::get<Zoom>();
    photo_ = zoom_->findChild<LargePhoto*>();
    runLoop(decodeAheadMs);
  }

  /// Seconds from a click on a command of the zoom view until the photo is painted anew.
  double press(const char* command) {
    return untilPainted(
        *photo_, [&] { button(*zoom_, command).click(); },
        [&] { return zoom_->area().picture().isWaiting(); });
  }
  double nextPhoto() {
    runLoop(decodeAheadMs);
    return press("Command2");
  }
  double nextPhotoOnFullScreen() {
    double seconds = 0;
    QTimer::singleShot(0, zoom_, [&] {
      auto& full = Forms::get<FullScreen>();
      full.resize(1920, 1080);
      runLoop(decodeAheadMs);
      seconds = untilPainted(
          *full.findChild<LargePhoto*>(), [&] { strikeRight(full); },
          [&] { return full.isWaitingForPicture(); });
      full.Unload();
    });
    button(*zoom_, "Command8").click(); // until it is left
    return seconds;
  }
  double firstStep() {
    press("Command2");
    sharpen();
    const double seconds = press("Command4");
    sharpen();
    return seconds;
  }
  double drag() {
    while (!zoom_->area().steps().across.enabled) {
      press("Command4");
      sharpen();
    }
    forward_ = zoom_->area().steps().across.value < 1000 || forward_;
    forward_ = zoom_->area().steps().across.value < 2500 && forward_;
    const QPointF to(forward_ ? 400 : 200, 300);
    moveMouse({300, 300}, Qt::NoButton);
    return untilPainted(
        *photo_, [&] { moveMouse(to, Qt::LeftButton); }, [] { return false; });
  }

  struct Show {
    double latest = 0; ///< of a tick, in seconds
    double growth = 0; ///< of memory, in bytes
  };
  /// All photos, as quickly as they can be seen.
  Show quickShow() {
    const auto* label = zoom_->findChild<QLabel*>(QStringLiteral("Label1"));
    QString last;
    int shown = 0;
    double few = 0;
    Show seen;
    seen.latest = latestTick(quickMs, [&] {
      if (last != label->text() && ++shown == fewPhotos)
        few = static_cast<double>(residentBytes());
      last = label->text();
      return shown < photoCount;
    });
    seen.growth = std::max(1.0, static_cast<double>(residentBytes()) - few);
    return seen;
  }
  /// So many ticks, at the least that the form lets one set.
  double latestTickAtASecond(int ticks) {
    zoom_->findChild<QScrollBar*>(QStringLiteral("VScroll2"))->setValue(1);
    return latestTick(zoom_->slideShow().interval(), [&] { return --ticks > 0; });
  }

private:
  /// Seconds by which the worst tick of a show from the first photo on is late. It goes on for as
  /// long as `ticked`, asked behind each tick, wants it to.
  double latestTick(int interval, const std::function<bool()>& ticked) {
    button(*zoom_, "Command6").click();
    auto& timer = *zoom_->findChild<QTimer*>(QStringLiteral("Timer1"));
    double latest = 0;
    bool goesOn = true;
    QElapsedTimer sinceTick;
    const auto watch = QObject::connect(&timer, &QTimer::timeout, zoom_, [&] {
      latest = std::max(latest, static_cast<double>(sinceTick.restart() - interval) / 1e3);
      goesOn = ticked();
    });
    button(*zoom_, "Check1").click();
    timer.setInterval(interval);
    sinceTick.start();
    while (goesOn)
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QObject::disconnect(watch);
    button(*zoom_, "Check1").click();
    return latest;
  }
  /// A thousand files of twelve pictures.
  void writePhotos() {
    const fs::path folder = folder_.path() / "Photos";
    fs::create_directories(folder);
    const auto made = writeSamplePhotos(folder, differentPhotos);
    for (int number = 1; number <= photoCount; ++number)
      fs::create_hard_link(made[static_cast<std::size_t>(number % differentPhotos)],
                           folder / (std::to_string(100'000 + number).substr(1) + ".jpg"));
  }
  static QAbstractButton& button(const QWidget& form, const char* name) {
    return *form.findChild<QAbstractButton*>(QString::fromLatin1(name));
  }
  static void strikeRight(FullScreen& full) {
    QKeyEvent strike(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);
    QCoreApplication::sendEvent(&full, &strike);
  }
  void moveMouse(QPointF place, Qt::MouseButton button) {
    QMouseEvent move(QEvent::MouseMove, place, photo_->mapToGlobal(place), button, button,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(photo_, &move);
  }
  void sharpen() const {
    while (zoom_->isWaitingForPicture())
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    runLoop(100);
  }
  static double untilPainted(LargePhoto& photo, const std::function<void()>& act,
                             const std::function<bool()>& isWaiting) {
    PaintWatch watch(&photo);
    QElapsedTimer passed;
    passed.start();
    act();
    while (isWaiting() || !watch.painted)
      QCoreApplication::processEvents();
    return static_cast<double>(passed.nsecsElapsed()) * 1e-9;
  }

  BenchAlbum folder_;
  Album album_;
  std::unique_ptr<MDIForm1> frame_;
  std::unique_ptr<Wiring> wiring_;
  Zoom* zoom_ = nullptr;
  LargePhoto* photo_ = nullptr;
  bool forward_ = true;
};

OpenZoom* opened = nullptr;

const OpenZoom::Show& theQuickShow() {
  static const OpenZoom::Show show = opened->quickShow();
  return show;
}

int ticksAtASecond() {
  const int wanted = qEnvironmentVariableIntValue(ticksVariable);
  return wanted > 0 ? wanted : fewTicks;
}

using Measured = std::function<double()>;

void measureSeconds(const std::string& name, const Measured& ours, double reference,
                    int iterations) {
  const auto add = [&](const char* side, const Measured& measured, int times) {
    benchmark::RegisterBenchmark((name + side).c_str(),
                                 [measured](benchmark::State& state) {
                                   for (auto _ : state)
                                     state.SetIterationTime(measured());
                                 })
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond)
        ->Iterations(times);
  };
  add("/ours", ours, iterations);
  add(
      "/reference", [reference] { return reference; }, 1);
}

void measureBytes(const std::string& name, const Measured& ours, double reference) {
  const auto add = [&](const char* side, const Measured& measured) {
    benchmark::RegisterBenchmark((name + side).c_str(), [measured](benchmark::State& state) {
      for (auto _ : state)
        state.counters["bytes"] = measured();
    })->Iterations(1);
  };
  add("/ours", ours);
  add("/reference", [reference] { return reference; });
}

void addMeasurements() {
  measureSeconds(
      "next photo of the zoom view", [] { return opened->nextPhoto(); }, frameSeconds, 3);
  measureSeconds(
      "next photo on the full screen", [] { return opened->nextPhotoOnFullScreen(); }, frameSeconds,
      2);
  measureSeconds(
      "zoom step", [] { return opened->firstStep(); }, frameSeconds, 12);
  measureSeconds(
      "drag of a magnified photo", [] { return opened->drag(); }, frameSeconds, 10);
  measureSeconds(
      "slide show at 1 second, latest tick",
      [] { return opened->latestTickAtASecond(ticksAtASecond()); }, 1, 1);
  measureSeconds(
      "slide show of 1,000 photos, latest tick", [] { return theQuickShow().latest; }, 1, 1);
  measureBytes(
      "memory after 1,000 photos", [] { return theQuickShow().growth; }, mostGrowth);
}

} // namespace
} // namespace hearthbook::bench

int main(int argc, char** argv) {
  namespace bench = hearthbook::bench;
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  hearthbook::GuardedApplication application(argc, argv);
  hearthbook::applyLook(application);
  bench::addMeasurements();
  benchmark::Initialize(&argc, argv);
  {
    bench::OpenZoom zoom;
    bench::opened = &zoom;
    benchmark::RunSpecifiedBenchmarks();
  }
  return 0;
}
