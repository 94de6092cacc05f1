#pragma once

#include "Album.h"
#include "PhotoFacts.h"
#include "Picture.h"
#include "Stage.h"

#include <array>
#include <string>

class QLabel;
class QPixmap;
class QToolButton;

namespace hearthbook {

class NamesGrid;
class PaperPanel;
class WorkPool;

/// The panel beside a photo: its year, its event and place on a sheet of paper, icons where it
/// has a description or a sound, and at its foot the people in it.
class FactsPanel : public Stage {
  Q_OBJECT
public:
  struct Design {
    TwipsSize size;
    double gridHeight = 0;
    int namesInSight = 0;
    int index = 0; ///< of the controls' names: "txtYear(0)"
    QString helpKey{};
  };

  explicit FactsPanel(const Design& design, QWidget* parent = nullptr);

  void setArrow(const QPixmap& arrow); ///< of the names that have a marker
  void showFacts(const PhotoFacts& facts);
  /// Shows the icon of a sound as soon as it is known that the photo has one.
  void lookForSound(WorkPool& pool, const Album& album, const std::string& id);
  [[nodiscard]] bool isLookingForSound() const { return isLookingForSound_; }

  [[nodiscard]] NamesGrid& names() const { return *names_; }
  /// The controls in the order in which Tab goes through them.
  [[nodiscard]] std::array<QWidget*, 3> tabOrder() const;
  // What stands on it.
  [[nodiscard]] QString yearText() const;
  [[nodiscard]] QString placeText() const;
  /// "1987, Wedding in Lake": the photo in a few words.
  [[nodiscard]] QString summary() const;
  /// "1987, Wedding in Lake", with the comma and whatever else is left where nothing is known.
  [[nodiscard]] std::string heading() const;
  /// The grid of names: its size on the panel, and how it looks.
  [[nodiscard]] TwipsSize namesSize() const;
  [[nodiscard]] Picture namesPicture() const;
  [[nodiscard]] bool hasMoreNames() const; ///< than are in sight

Q_SIGNALS:
  void descriptionAsked();
  void soundAsked();

private:
  void makeTexts(const Design& design);
  void makeIcons(const Design& design);
  void makeNames(const Design& design);

  double gridHeight_;
  PaperPanel* paper_;
  QLabel* year_;
  QLabel* place_;
  QToolButton* description_;
  QToolButton* sound_;
  std::string soundOf_; ///< the photo for which it was looked last
  int lookups_ = 0;
  bool isLookingForSound_ = false;
  NamesGrid* names_;
};

/// "Image1(2)": what one of a family of controls is called.
QString familyName(const char* family, int index);

} // namespace hearthbook
