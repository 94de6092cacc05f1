#pragma once

#include "ImageEdit.h"

#include <QObject>
#include <QRect>

#include <vector>

class QPushButton;
class QWidget;

namespace hearthbook {

/// The small buttons that lie on a page, one to each region: "Close" for the rectangle that is
/// drawn, "Revert" for what was edited. They keep their size on the screen at any zoom.
class RegionButtons : public QObject {
  Q_OBJECT
public:
  explicit RegionButtons(QWidget& layer);

  void setUsable(bool usable);
  void show(const ImageEdit& edit);

Q_SIGNALS:
  void pressed(const hearthbook::RegionButton& button);

private:
  QPushButton* makeButton();
  void dress(QPushButton& button, bool reverts) const;
  void leave(const QPushButton& button);
  [[nodiscard]] bool isInSight(const QRectF& region) const;
  [[nodiscard]] QRect placeOf(const QRect& region) const;

  QWidget& layer_;
  std::vector<RegionButton> shown_;
  std::vector<QPushButton*> buttons_; ///< as many as were ever needed
  bool isUsable_ = false;
};

} // namespace hearthbook
