#pragma once

#include "Twips.h"

#include <QRect>
#include <QWidget>

#include <memory>

namespace hearthbook {

/// A widget whose children stand in a table of present rectangles in twips, scaled uniformly
/// to the room there is. Fitting, zooming and arranging change the table; pixels follow.
/// Printing reads the table, never a widget's pixels.
///
/// A stage that stands on another one is a panel of it: its places count from its own corner,
/// its scale is that of the stage below, whatever its size.
class Stage : public QWidget {
  Q_OBJECT
public:
  static constexpr double standardPoints = 8.25; ///< size of type at scale 1

  explicit Stage(TwipsSize design, QWidget* parent = nullptr);
  ~Stage() override;

  /// Puts a child on the stage; its font is `points` at scale 1. Give the child no minimum
  /// size of its own: it would stand against its rectangle.
  void place(QWidget* child, TwipsRect rect, double points = standardPoints);
  /// Takes over the children that a form's drawing (.ui) has put into `drawn`, each where it
  /// is drawn: a pixel of the drawing is 15 twips. A font size in the drawing is kept. Laid
  /// out over the whole of `drawn` itself.
  void placeAsDrawn(QWidget* drawn);

  void setRect(const QWidget* child, TwipsRect rect);
  [[nodiscard]] TwipsRect rect(const QWidget* child) const;

  void setDesign(TwipsSize design);
  [[nodiscard]] TwipsSize design() const;
  [[nodiscard]] double scale() const; ///< logical pixels per standard pixel (1 at 96 dpi)
  /// The scale of the stage on which the widget stands; 1 if it stands on none.
  [[nodiscard]] static double scaleOf(const QWidget* widget);

  [[nodiscard]] QRect toPixels(TwipsRect rect) const;
  /// The pixels of the screen that a rectangle covers, at least one: what to decode for it.
  [[nodiscard]] QSize toDevicePixels(TwipsRect rect) const;
  /// A point in this widget's pixels as twips of the design.
  [[nodiscard]] TwipsPoint toTwips(QPointF pixels) const;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
  void scaled(); ///< after all children have their new places

protected:
  void resizeEvent(QResizeEvent* event) override;
  bool event(QEvent* event) override;

private:
  void fitIn();

  struct Impl;
  std::unique_ptr<Impl> impl_;
};

} // namespace hearthbook
