#include "RecordingFigures.h"

#include "Text.h"

#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QVariant>

namespace hearthbook {

namespace {

constexpr const char* factorProperty = "Tag";

} // namespace

RecordingFigures::RecordingFigures(const Parts& parts, const MMControl& sound)
    : parts_(parts), sound_(sound) {
  parts_.doing->hide();
}

void RecordingFigures::chooseQuality(const AudioQuality& quality) {
  (quality == lowAudioQuality ? parts_.low : parts_.high)->setChecked(true);
  parts_.qualityFrame->setProperty(factorProperty, QString::number(quality.sizeFactor));
}

const AudioQuality& RecordingFigures::readQuality() const {
  return parts_.low->isChecked() ? lowAudioQuality : highAudioQuality;
}

void RecordingFigures::enableQuality(bool enabled) { parts_.qualityFrame->setEnabled(enabled); }

void RecordingFigures::showStatus() {
  const bool isPlaying = sound_.mode() == MMControl::Mode::Playing;
  const QString seconds = QString::number(wholeSeconds(sound_.position()));
  parts_.lengthFrame->setTitle(isPlaying ? QStringLiteral("Position")
                                         : QStringLiteral("Recording Length"));
  parts_.length->setText(isPlaying ? seconds : seconds + QStringLiteral(" Sec."));
  parts_.doing->setText(isPlaying ? QStringLiteral("Playing") : QStringLiteral("Recording"));
  parts_.doing->show();
  if (!isPlaying)
    showSizeOf(sound_.position());
}

void RecordingFigures::showLength() {
  parts_.lengthFrame->setTitle(QStringLiteral("Recording Length"));
  parts_.length->setText(QString::number(wholeSeconds(sound_.length())) + QStringLiteral(" Sec."));
  showSizeOf(sound_.length());
}

void RecordingFigures::hideStatus() { parts_.doing->hide(); }

void RecordingFigures::showSizeOf(std::int64_t milliseconds) {
  const int sizeFactor = parts_.qualityFrame->property(factorProperty).toInt();
  parts_.size->setText(toQString(sizeEstimate(milliseconds, sizeFactor)));
}

} // namespace hearthbook
