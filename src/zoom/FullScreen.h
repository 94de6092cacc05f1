#pragma once

#include "Album.h"
#include "Form.h"
#include "FullScreenPlace.h"
#include "PictureLoader.h"

#include <QPointF>

#include <filesystem>
#include <memory>
#include <vector>

class QTimer;

namespace Ui {
class FullScreen;
}

namespace hearthbook {

class WorkPool;
class ZoomPicture;

/// The photo alone on the whole screen, at its own size.
///
/// The arrow keys walk through rsZoom, the blank starts and stops the slide show of the zoom
/// view, any other key leaves. The zoom view opens it and shows the photo that was seen last.
class FullScreen : public Form {
  Q_OBJECT
public:
  FullScreen(Album& album, PictureLoader& loader, WorkPool& pool);
  ~FullScreen() override;

  /// The photo of the zoom view, in the pixels that are there until its own have come.
  void begin(const ZoomPicture& shown);
  /// Shows the photo on which rsZoom stands; the set then stands behind it.
  void showNext();

  void LoadFullPhoto();           ///< of the row on which rsZoom stands
  void makeFull();                ///< places the photo
  void tell(const QString& note); ///< on the photo

  void decodeAhead(const std::vector<std::filesystem::path>& files);
  [[nodiscard]] const FullScreenPlace& place() const { return place_; }
  [[nodiscard]] const ZoomPicture& picture() const { return *picture_; }
  [[nodiscard]] bool isWaitingForPicture() const;

Q_SIGNALS:
  void showFlipped(); ///< the slide show is to start or to stop
  void shownAnother();
  void broken();
  void left();

protected:
  void activated() override;
  bool unloading() override;
  void mapWindow() override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

private:
  void nextPhoto();
  void previousPhoto();
  void takeKey(int key);
  void takePress(QPointF position, Qt::MouseButton button);
  void drag(QPointF position, bool leftDown);
  void tellKeys();
  void photoPlaced();
  void tellBroken(const QString& why);
  void namePhoto();
  void showPlace();
  void showPointer();
  void hidePointer();
  [[nodiscard]] Recordset& photos() const { return *album_.vars.rsZoom; }
  [[nodiscard]] TwipsSize sizeInTwips() const;
  [[nodiscard]] TwipsSize screenInTwips() const;

  Album& album_;
  FullScreenPlace place_;
  int lastX_ = 0;
  int lastY_ = 0;
  std::unique_ptr<Ui::FullScreen> ui;
  ZoomPicture* picture_;
  QTimer* rest_; ///< of the mouse, until its pointer goes
};

} // namespace hearthbook
