#pragma once

#include "AlbumFixture.h"
#include "Beside.h"
#include "BoxScript.h"
#include "Decode.h"
#include "FakeScanner.h"
#include "FileBytes.h"
#include "FormControls.h"
#include "Forms.h"
#include "Guard.h"
#include "ImageEdit.h"
#include "MarkLayer.h"
#include "PagePlaces.h"
#include "PhotoFiles.h"
#include "PrivateMount.h"
#include "Regions.h"
#include "Scan.h"
#include "ScanPrint.h"
#include "TestPictures.h"
#include "Text.h"

#include <QAbstractButton>
#include <QLabel>
#include <QTest>

#include <algorithm>
#include <functional>
#include <future>
#include <latch>
#include <memory>
#include <string>
#include <utility>

namespace hearthbook::test {

inline bool isSame(const Picture& a, const Picture& b) {
  if (a.size() != b.size())
    return false;
  for (int y = 0; y < a.height(); ++y)
    if (!std::equal(a.row(y), a.row(y) + a.width(), b.row(y)))
      return false;
  return true;
}

/// Asked before there is any other thread: it would not see what is mounted.
inline const bool canMount = canMountPrivately();

/// The form in both of its uses, with a scanner of the test's own.
class ScanFixture : public AlbumFixture, protected FormControls {
protected:
  ScanFixture() {
    Forms::provide<Scan>([this] { return new Scan(album(), pool_, scanner_); });
  }
  ~ScanFixture() override { Forms::reset(); }

  Scan& open(const char* use) {
    auto& scan = Forms::get<Scan>();
    scan.Tag = toQString(use);
    scan.begin();
    scan.Show();
    settle();
    return scan;
  }
  void willSend(const Picture& page) { scanner_.scripted.push_back(FakeScanner::pageOf(page)); }
  void willFail(ScanStatus status) { scanner_.scripted.push_back(FakeScanner::failure(status)); }

  /// The form with that page from the scanner.
  Scan& openWith(const Picture& page) {
    willSend(page);
    return open("Scan");
  }
  /// The form with the photo on which the album stands.
  Scan& openPhoto() {
    resolveImage(album(), photos().Collect("PictureID").toText());
    return open("edit");
  }

  static void settle() {
    waitUntil([] {
      const auto* scan = Forms::loaded<Scan>();
      return !scan || (!scan->isBusy() && scan->isSharp());
    });
  }
  static void press(const QWidget& form, const char* name) {
    FormControls::press(form, name);
    settle();
  }

  /// The pool has no time for anything else while what it returns is there.
  [[nodiscard]] std::shared_ptr<void> holdPool() {
    auto release = std::make_shared<std::promise<void>>();
    const std::shared_future<void> released = release->get_future();
    for (int thread = 0; thread < pool_.threads(); ++thread)
      pool_.post([released] { released.wait(); }, true);
    return release;
  }
  /// All that was given to the pool before has been done, and its answers have come.
  void finishPool() {
    int done = 0;
    const auto all = std::make_shared<std::latch>(pool_.threads()); // none is busy with the last
    for (int thread = 0; thread < pool_.threads(); ++thread)
      runBeside(
          pool_, QCoreApplication::instance(),
          [all] {
            all->arrive_and_wait();
            return 1;
          },
          [&](int one) { done += one; });
    waitUntil([&] { return done == pool_.threads(); });
  }

  /// Draws with the mouse from one pixel of the page to another.
  static void draw(const Scan& scan, PixelPoint from, PixelPoint to) {
    auto* layer = control<MarkLayer>(scan, "NotX1");
    const PagePlaces places(scan.page(), *layer);
    const QPoint first = places.toWidget(from).toPoint();
    const QPoint last = places.toWidget(to).toPoint();
    QTest::mousePress(layer, Qt::LeftButton, {}, first);
    QTest::mouseMove(layer, (first + last) / 2);
    QTest::mouseMove(layer, last);
    QTest::mouseRelease(layer, Qt::LeftButton, {}, last);
  }

  /// The small button on the page that says so, or none.
  static QAbstractButton* regionButton(const Scan& scan, const char* text) {
    for (auto* button : control<MarkLayer>(scan, "NotX1")->findChildren<QAbstractButton*>())
      if (button->isVisible() && button->text() == toQString(text))
        return button;
    return nullptr;
  }

  static std::string hintOf(const Scan& scan) {
    return toUtf8(control<QLabel>(scan, "hint")->text());
  }
  static std::vector<std::string> usableCommands(const Scan& scan) {
    std::vector<std::string> names;
    for (const auto* button : scan.findChildren<QAbstractButton*>())
      if (!button->objectName().isEmpty() && button->isEnabled())
        names.push_back(toUtf8(button->objectName()));
    std::ranges::sort(names);
    return names;
  }

  Recordset& photos() { return data().rsPhotoAlbum; }

  WorkPool pool_{2};
  FakeScanner scanner_{[](std::function<void()> work) {
    QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(work), Qt::QueuedConnection);
  }};
  BoxScript boxes_;
};

} // namespace hearthbook::test
