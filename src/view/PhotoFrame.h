#pragma once

#include <QColor>
#include <QWidget>

namespace hearthbook {

class PictureBox;

/// The frame and the mat of a photo on an album page. It stands on the photo's box, over the
/// photo, and leaves the photo free.
///
/// The width of its border is the mark of the selected photo: whoever wants to know asks for
/// the width 3.
class PhotoFrame : public QWidget {
  Q_OBJECT
public:
  static constexpr int selectedWidth = 3;

  explicit PhotoFrame(const PictureBox* photo, QWidget* parent = nullptr);

  void rest();
  void select();

  [[nodiscard]] bool isSelected() const { return borderWidth_ == selectedWidth; }
  [[nodiscard]] int borderWidth() const { return borderWidth_; }
  [[nodiscard]] QColor borderColour() const { return border_; }
  [[nodiscard]] QColor fillColour() const { return fill_; }

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  void take(int borderWidth, const QColor& border, const QColor& fill);

  const PictureBox* photo_;
  int borderWidth_ = 1;
  QColor border_;
  QColor fill_;
};

} // namespace hearthbook
