#pragma once

#include "Twips.h"

#include <QObject>

#include <optional>

class QLabel;

namespace hearthbook {

class Stage;

/// The small arrow that points at a person in a photo on the stage. It follows the photo to
/// each of its places.
class MarkerArrow : public QObject {
  Q_OBJECT
public:
  MarkerArrow(Stage& stage, QLabel& arrow, QObject* parent);

  /// The tip goes to the marker on the photo, whose longer side is `side` now.
  void pointAt(const QWidget& photo, TwipsPoint marker, double side);
  void photoMoved(const QWidget& photo, double side);
  void hide();

private:
  struct Aim {
    const QWidget* photo;
    TwipsPoint marker;
  };

  Stage& stage_;
  QLabel& arrow_;
  std::optional<Aim> aim_;
};

} // namespace hearthbook
