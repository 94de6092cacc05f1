#pragma once

#include "Album.h"
#include "Form.h"
#include "Navigator.h"
#include "PhotoFacts.h"
#include "PictureLoader.h"
#include "PrintSource.h"
#include "SlideShow.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class QTimer;

namespace Ui {
class Zoom;
}

namespace hearthbook {

class ClipPlayer;
class CommentsBox;
class FactsPanel;
class FullScreen;
class ScreenAwake;
class Stage;
class ZoomArea;

/// Full Size View: one photo, large, with what is known of it.
///
/// One magnifies and moves it, walks through the photos, or lets them pass as a slide show; the
/// check button "Full [  ]" shows the photo alone on the screen. The album pages and Search open
/// it; they set rsZoom first.
class Zoom : public Form, public PrintSource {
  Q_OBJECT
public:
  Zoom(Album& album, PictureLoader& loader, WorkPool& pool, HoverHelp& help);
  ~Zoom() override;

  /// Shows the photo on which rsZoom stands; the set then stands behind it.
  void ComposeZoomView();

  void rowsChanged(const RowsChanged& change) override;

  [[nodiscard]] const char* printTag() const override { return "Zoom"; }
  [[nodiscard]] bool isReadyToPrint() const override { return !isWaitingForPicture(); }
  [[nodiscard]] PrintPage printPage() const override;

  [[nodiscard]] const ZoomArea& area() const { return *area_; }
  [[nodiscard]] const SlideShow& slideShow() const { return show_; }
  /// True while the pixels of the photo are on their way.
  [[nodiscard]] bool isWaitingForPicture() const;
  [[nodiscard]] bool isLookingForSound() const;

protected:
  void load() override;
  void activated() override;
  bool unloading() override;

private:
  void makePanels();
  void wireControls();
  void wireKeys();
  void setFaces();
  void orderTabs();

  void compose();
  void composeFacts();
  void composeNothing();
  void decodeNeighbours();
  void decodeAhead(const std::vector<std::filesystem::path>& files);
  [[nodiscard]] Recordset& photos() const { return *album_.vars.rsZoom; }

  void nextPhoto();
  void previousPhoto();
  void firstPhoto();
  void lastPhoto();
  void moveAcross(int direction);
  void moveDown(int direction);
  void magnify();
  void reduce();

  void setSeconds(int seconds);
  void slide(bool on);
  void showNextSlide();
  [[nodiscard]] bool isShowingLate() const;
  void showSlide();
  void fullScreen(bool on);
  void flipShow();
  void leaveFullScreen();
  void tellFailure(const QString& why);
  void tellTryAgain();
  void tellBroken(const QString& why);

  void pointAtPerson();
  void readDescription();
  void playSound();
  void done();

  Album& album_;
  HoverHelp& help_;
  PictureLoader& loader_;
  WorkPool& pool_;
  std::string shownId_; ///< the Tag of the photo
  SlideShow show_;
  bool isTelling_ = false;
  PhotoMarkers markers_;
  Stage* stage_;
  std::unique_ptr<Ui::Zoom> ui;
  FactsPanel* facts_;
  CommentsBox* comments_;
  ZoomArea* area_;
  ClipPlayer* clip_;
  QTimer* Timer1_;
  std::unique_ptr<ScreenAwake> awake_;
};

} // namespace hearthbook
