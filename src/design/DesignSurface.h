#pragma once

#include "DesignedPage.h"
#include "PageDesign.h"
#include "Stage.h"

#include <QPixmap>

#include <filesystem>
#include <vector>

class QLabel;
class QLineEdit;

namespace hearthbook {

class PhotoBox;

/// A frame of the design with its caption, on paper that lets the ground shine through. Its
/// property `Tag` is the name of the design to which it belongs.
class DesignFrame : public Stage {
  Q_OBJECT
public:
  DesignFrame(QString caption, TwipsSize size, QWidget* parent);

  [[nodiscard]] const QString& caption() const { return caption_; }

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  QString caption_;
};

/// The page as it is being designed: the tiled ground, the title between its decorations, and the
/// boxes of the chosen design. What was put into another design is kept meanwhile.
class DesignSurface : public Stage {
  Q_OBJECT
public:
  explicit DesignSurface(QWidget* parent = nullptr);

  /// A decoration that is not there leaves its place empty.
  void showDesign(const PageDesign& design, const QPixmap& left, const QPixmap& right);
  void tile(const Picture& ground);

  void setPhoto(int index, const Picture& photo);
  /// The box of that index, counted through all designs.
  [[nodiscard]] const DesignBox& box(int index) const;
  [[nodiscard]] bool isTouched() const; ///< something was put into any design

  /// The texts and photos of the controls whose container bears the name of the design.
  [[nodiscard]] DesignedPage content() const;

Q_SIGNALS:
  void photoAsked(int index);

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  struct Place {
    const PageDesign* design;
    const DesignBox* box;
    DesignFrame* frame;
    PhotoBox* photo; ///< null in a box of text alone
    QLineEdit* text;
  };

  void makeTitle();
  void makeDecorations();
  void makeBox(const PageDesign& design, const DesignBox& box);
  [[nodiscard]] QString chosenName() const;

  DesignFrame* titleFrame_ = nullptr;
  QLineEdit* title_ = nullptr;
  QLabel* left_ = nullptr;
  QLabel* right_ = nullptr;
  std::vector<Place> places_;
  QPixmap ground_;
};

} // namespace hearthbook
