#pragma once

#include "PeopleForm.h"
#include "Recordset.h"
#include "Twips.h"

#include <QObject>
#include <QPixmap>
#include <QPointF>

#include <optional>

class QCheckBox;
class QLabel;
class QListWidget;

namespace hearthbook {

class PictureBox;
class Stage;

/// Where the people of a photo are: the names of the photo, and the marker on the picture.
///
/// Marking goes on, press by press, until its box is cleared or another photo is shown. The
/// marker stands in the stage's table, so that it is on the face at every size of the window.
class NameMarking : public QObject {
  Q_OBJECT
public:
  struct Parts {
    QListWidget* names = nullptr; ///< of the photo
    QCheckBox* marking = nullptr;
    PictureBox* image = nullptr;
    QLabel* marker = nullptr;
  };

  NameMarking(Recordset& photos, Recordset& people, PeopleForm& form, Stage& stage, Parts parts,
              QObject* parent);

  void setPictures(const QPixmap& marker, const QPixmap& pointer);

  void clear();     ///< no name, no marker, no marking
  void showNames(); ///< of the row on which the photos stand

  void nameChosen(); ///< its marker is shown
  void nameTakenOut();
  void startMarking(bool on);
  void press(QPointF position); ///< on the image, in its pixels
  void placeMarker();           ///< the image has a new place

private:
  void refuseMarking();
  void markAt(TwipsPoint position);
  void showMarker(std::optional<TwipsPoint> position);
  void showPointer();

  Recordset& photos_;
  Recordset& people_;
  PeopleForm& form_;
  Stage& stage_;
  Parts parts_;
  QPixmap pointer_;
  std::optional<TwipsPoint> marker_; ///< the one on the picture
};

} // namespace hearthbook
