#pragma once

#include "DesignedPage.h"
#include "PageDesign.h"
#include "Stage.h"

#include <QPixmap>

#include <string>
#include <vector>

class QLabel;
class QLineEdit;

namespace hearthbook {

class PhotoBox;

/// A frame of the design, on the ground of the page, with its caption on a slip of paper. Its
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
  void focusPhoto(int index);
  /// The box of that index, counted through all designs.
  [[nodiscard]] const DesignBox& box(int index) const;

  [[nodiscard]] const std::string& chosen() const { return chosen_; } ///< design, by its name
  /// The designs into which something was put that no page has yet. The title is the chosen one's.
  [[nodiscard]] std::vector<std::string> unmade() const;
  void pageMade(); ///< of the chosen design, as it is now

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
    bool isUnmade = false; ///< changed since a page was made of it
  };

  void makeTitle();
  void makeDecorations();
  void makeBox(const PageDesign& design, const DesignBox& box);
  Place& placeAt(int index);
  [[nodiscard]] static bool isUnmade(const Place& place);

  DesignFrame* titleFrame_ = nullptr;
  QLineEdit* title_ = nullptr;
  bool titleUnmade_ = false;
  QLabel* left_ = nullptr;
  QLabel* right_ = nullptr;
  std::vector<Place> places_;
  std::string chosen_;
  QPixmap ground_;
};

} // namespace hearthbook
