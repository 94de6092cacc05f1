#pragma once

#include "Picture.h"

#include <QAbstractButton>
#include <QPixmap>

namespace hearthbook {

/// A place for one picture that is clicked like a button. An empty one says what to do.
class PhotoBox : public QAbstractButton {
  Q_OBJECT
public:
  enum class Fit {
    Fills,  ///< the picture takes the whole box
    Within, ///< it keeps its proportions
  };
  PhotoBox(Fit fit, QString hint, QWidget* parent = nullptr);

  void setPicture(const Picture& picture);
  [[nodiscard]] const Picture& picture() const { return picture_; }

  [[nodiscard]] QSize sizeHint() const override;

protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;

private:
  [[nodiscard]] QRect pictureRect() const;
  void paintEmpty(QPainter& painter) const;
  void paintPicture(QPainter& painter);

  Fit fit_;
  QString hint_;
  Picture picture_;
  QPixmap prepared_; ///< the picture at exactly the pixels that it covers
};

} // namespace hearthbook
