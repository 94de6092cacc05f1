#pragma once

#include "Picture.h"
#include "ZoomSteps.h"

#include <QObject>
#include <QPointF>
#include <QTimer>

#include <filesystem>
#include <functional>
#include <vector>

class QAbstractButton;
class QLabel;
class QPixmap;
class QScrollBar;

namespace hearthbook {

class LargePhoto;
class MarkerArrow;
class PictureLoader;
class WorkPool;
class ZoomPanel;
class ZoomPicture;

/// The viewing area of the zoom view: the photo in it, its scroll bars and the arrow that points
/// at a person, by the rules of ZoomSteps.
class ZoomArea : public QObject {
  Q_OBJECT
public:
  struct Controls {
    ZoomPanel* panel;
    LargePhoto* photo;
    QScrollBar* across;
    QScrollBar* down;
    QLabel* arrow;
    QAbstractButton* magnify;
    QAbstractButton* reduce;
  };

  ZoomArea(const Controls& controls, PictureLoader& loader, WorkPool& pool,
           const std::filesystem::path& notFound, QObject* parent);

  void show(const std::filesystem::path& file);
  void clear();
  void tell(const QString& note); ///< on the photo
  void decodeAhead(const std::vector<std::filesystem::path>& files);

  void magnify();
  void reduce();
  /// So many steps, with the place under the mouse kept there.
  void step(int steps, QPointF inPhoto);
  /// Scrolls by so many small changes; false where there is nothing to scroll that way.
  bool scrollAcross(int changes);
  bool scrollDown(int changes);

  void setArrow(const QPixmap& arrow);
  void pointAt(TwipsPoint marker);
  void hideArrow();

  [[nodiscard]] const ZoomSteps& steps() const { return steps_; }
  [[nodiscard]] const ZoomPicture& picture() const { return *picture_; }

Q_SIGNALS:
  void broken(const QString& why); ///< the photo cannot be read

private:
  void wire();
  [[nodiscard]] PixelSize freshPixels(PixelSize full) const;
  void showFresh();
  void stepped();
  void scrolled();
  void drag(QPointF position, bool leftDown);
  void place();
  void showBars();
  void keepKeyboard();
  void scaled();

  Controls ui_;
  ZoomSteps steps_;
  ZoomPicture* picture_;
  MarkerArrow* arrow_;
  TwipsPoint lastMouse_;
  QTimer patience_; ///< with a photo that is slow to come
};

} // namespace hearthbook
