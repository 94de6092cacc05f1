#include "NameMarking.h"

#include "MsgBox.h"
#include "NameItems.h"
#include "NameMarks.h"
#include "NamesCords.h"
#include "PictureBox.h"
#include "Stage.h"

#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QSignalBlocker>

#include <algorithm>

namespace hearthbook {

NameMarking::NameMarking(Recordset& photos, Recordset& people, PeopleForm& form, Stage& stage,
                         Parts parts, QObject* parent)
    : QObject(parent), photos_(photos), people_(people), form_(form), stage_(stage), parts_(parts) {
  // A press on the marker is one on the photo behind it.
  parts_.marker->setAttribute(Qt::WA_TransparentForMouseEvents);
  parts_.marker->setScaledContents(true);
  connect(parts_.marking, &QCheckBox::toggled, this, &NameMarking::showPointer);
  connect(&stage_, &Stage::scaled, this, &NameMarking::showPointer);
}

void NameMarking::setPictures(const QPixmap& marker, const QPixmap& pointer) {
  parts_.marker->setPixmap(marker);
  pointer_ = pointer;
}

void NameMarking::clear() {
  const QSignalBlocker quiet(parts_.names);
  parts_.names->clear();
  showMarker(std::nullopt);
  parts_.marking->setChecked(false);
}

void NameMarking::showNames() {
  const QSignalBlocker quiet(parts_.names);
  const std::string names = photos_.Collect("NamesInPhoto").toText();
  if (!names.empty())
    form_.setNamesInPhoto(PopList(people_, names, photos_.Collect("NamesCords").toText()));
}

void NameMarking::nameChosen() {
  const auto chosen = form_.chosenName();
  if (!chosen)
    return;
  const std::string markers = photos_.Collect("NamesCords").toText();
  showMarker(markerPosition(markers, chosen->id));
}

void NameMarking::nameTakenOut() { showMarker(std::nullopt); } // it was that name's

void NameMarking::startMarking(bool on) {
  if (on && !form_.chosenName())
    refuseMarking();
}

void NameMarking::refuseMarking() {
  MsgBox(QStringLiteral("Please Select Name!"));
  parts_.marking->setChecked(false);
}

void NameMarking::press(QPointF position) {
  if (!parts_.marking->isChecked())
    return;
  if (!form_.chosenName())
    return refuseMarking();
  const QPointF onStage = parts_.image->mapTo(&stage_, position);
  markAt(pointOnImage(stage_.rect(parts_.image), stage_.toTwips(onStage)));
}

void NameMarking::markAt(TwipsPoint position) {
  markName(photos_, form_.chosenName()->id, position);
  const QSignalBlocker quiet(parts_.names);
  const int chosen = chosenRow(*parts_.names);
  parts_.names->clear();
  showNames();
  parts_.names->setCurrentRow(std::min(chosen, parts_.names->count() - 1));
  nameChosen();
}

void NameMarking::showMarker(std::optional<TwipsPoint> position) {
  marker_ = position;
  placeMarker();
  parts_.marker->setVisible(marker_.has_value());
}

void NameMarking::placeMarker() {
  if (marker_)
    stage_.setRect(parts_.marker, markerRect(stage_.rect(parts_.image), *marker_));
}

/// The pointer is as large as what else stands on the stage; its tip is its middle.
void NameMarking::showPointer() {
  if (!parts_.marking->isChecked() || pointer_.isNull()) {
    parts_.image->unsetCursor();
    return;
  }
  constexpr int standardSize = 32;
  const double ratio = parts_.image->devicePixelRatioF();
  QPixmap picture = pointer_.scaledToHeight(qRound(standardSize * stage_.scale() * ratio),
                                            Qt::SmoothTransformation);
  picture.setDevicePixelRatio(ratio);
  parts_.image->setCursor(QCursor(picture));
}

} // namespace hearthbook
