#pragma once

#include "EditorFixture.h"
#include "FactsPanel.h"
#include "FullScreen.h"
#include "LargePhoto.h"
#include "NamesGrid.h"
#include "Viewer.h"
#include "Zoom.h"
#include "ZoomArea.h"
#include "ZoomPicture.h"

#include <QCheckBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>

#include <functional>
#include <string>

namespace hearthbook::test {

/// An album and its zoom view, as the program wires them.
class ZoomFixture : public EditorFixture {
protected:
  ZoomFixture() {
    Forms::provide<Viewer>(
        [this] { return new Viewer(album(), loader_, pool_, frame_, ViewerWindows()); });
    Forms::provide<Zoom>([this] { return new Zoom(album(), loader_, pool_, frame_); });
    Forms::provide<FullScreen>([this] { return new FullScreen(album(), loader_, pool_); });
  }
  ~ZoomFixture() override { Forms::reset(); } // before what they were made of

  /// As the album pages open it, on the photo at that position.
  Zoom& openZoom(int position = 1) {
    auto& zoom = openZoomAtOnce(position);
    settleZoom();
    return zoom;
  }
  /// The same, while its photo may still be on its way.
  Zoom& openZoomAtOnce(int position = 1) {
    vars().rsZoom = data().rsPhotoAlbum.Clone();
    vars().rsZoom->Move(position - 1, Recordset::Start::First);
    auto& zoom = Forms::get<Zoom>();
    zoom.resize(790, 522);
    zoom.ComposeZoomView();
    zoom.Show();
    return zoom;
  }
  Zoom& openZoomOf(int photos, int position = 1) {
    addPhotosUpTo(photos);
    return openZoom(position);
  }
  /// The photo of the row HD00001 has so many pixels.
  Zoom& openPhoto(int width, int height) {
    writeJpeg(at("Photos/00001.jpg"), width, height);
    return openZoom();
  }

  /// Lets the pictures arrive.
  static void settleZoom() {
    const auto isWaiting = [] {
      const auto* zoom = Forms::loaded<Zoom>();
      const auto* full = Forms::loaded<FullScreen>();
      return (zoom && (zoom->isWaitingForPicture() || zoom->isLookingForSound())) ||
             (full && full->isWaitingForPicture());
    };
    waitUntil([&] { return !isWaiting(); });
    QCoreApplication::processEvents();
  }
  static void press(const QWidget& form, const char* name) {
    FormControls::press(form, name);
    settleZoom();
  }
  static void key(QWidget& form, Qt::Key key) {
    QTest::keyClick(&form, key);
    settleZoom();
  }
  static void tickAtOnce(const Zoom& zoom) {
    QMetaObject::invokeMethod(zoom.findChild<QTimer*>(toQString("Timer1")), "timeout");
  }
  static void tick(const Zoom& zoom) {
    tickAtOnce(zoom);
    settleZoom();
  }
  static QTimer& timer(const Zoom& zoom) { return *zoom.findChild<QTimer*>(toQString("Timer1")); }

  /// Puts a file of so many pixels where nobody has read one before.
  void writePhoto(int number, int width, int height) {
    const auto name = "Photos/" + std::to_string(100000 + number).substr(1) + ".jpg";
    writeJpeg(at(name), width, height);
  }
  static QSize pixels(const QWidget& form) {
    return {photo(form).picture().width(), photo(form).picture().height()};
  }

  void expectNoMore(const char* title) {
    boxes_.expectMessage(toQString("No More Records"), toQString(title));
  }
  void expectTryAgain() {
    boxes_.expectMessage(toQString("Please try again!"), toQString("Slide"));
  }

  static std::string position(const Zoom& zoom) { return labelOf(zoom, "Label1"); }
  static LargePhoto& photo(const QWidget& form) { return *control<LargePhoto>(form, "Image1"); }
  static TwipsRect photoRect(const Zoom& zoom) {
    return control<Stage>(zoom, "Picture2")->rect(&photo(zoom));
  }
  static TwipsRect arrowOf(const Zoom& zoom) {
    return control<Stage>(zoom, "Picture2")->rect(control<QLabel>(zoom, "Picture1"));
  }
  static QScrollBar& bar(const QWidget& form, const char* name) {
    return *control<QScrollBar>(form, name);
  }
  static NamesGrid& names(const Zoom& zoom) { return *zoom.findChild<NamesGrid*>(); }
  static void expectPlace(const TwipsRect& place, const TwipsRect& wanted) {
    EXPECT_NEAR(place.left, wanted.left, 0.01);
    EXPECT_NEAR(place.top, wanted.top, 0.01);
    EXPECT_NEAR(place.width, wanted.width, 0.01);
    EXPECT_NEAR(place.height, wanted.height, 0.01);
  }
  Recordset& slides() { return *vars().rsZoom; }
};

} // namespace hearthbook::test
