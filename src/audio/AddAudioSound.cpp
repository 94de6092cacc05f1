#include "AddAudio.h"

#include "AudioFiles.h"
#include "Guard.h"
#include "MsgBox.h"
#include "RecordingFigures.h"
#include "RunTimeError.h"
#include "SoundTransport.h"
#include "Text.h"
#include "ui_AddAudio.h"

#include <QStringList>

#include <utility>

// What is open in the recorder and in the disc player, and what becomes of a recording.

namespace hearthbook {

namespace {

constexpr int tickMs = 1000;

} // namespace

void AddAudio::openSound(const std::filesystem::path& file) {
  sound_->Close();
  holdsRecording_ = false;
  noteTrouble(soundTrouble_, {});
  sound_->setFile(file);
  sound_->Open();
}

void AddAudio::openAttached() {
  if (attached_)
    openSound(*attached_);
  else
    openTemplate(lowAudioQuality);
}

void AddAudio::openTemplate(const AudioQuality& quality) {
  openSound(album_.folder.path(quality.templateFile));
}

void AddAudio::openDisc() {
  playsDisc_ = false;
  disc_->setDeviceType(DeviceType::CDAudio);
  disc_->Open();
}

void AddAudio::closeBoth() {
  holdsRecording_ = false;
  isRecording_ = false;
  playsDisc_ = false;
  for (MMControl* control : {sound_, disc_}) {
    control->Stop();
    control->Close();
  }
}

bool AddAudio::hasUnsavedRecording() const { return holdsRecording_ && sound_->length() > 0; }

bool AddAudio::mayDropRecording() const {
  return !hasUnsavedRecording() ||
         MsgBox(QStringLiteral("The recording is not attached yet. It will be lost."),
                windowTitle(), MsgIcon::Exclamation, MsgButtons::OkCancel) == MsgAnswer::Ok;
}

void AddAudio::record() {
  if (!mayDropRecording())
    return;
  openTemplate(figures_->readQuality());
  if (sound_->isOpen() && sound_->Record()) {
    holdsRecording_ = true;
    isRecording_ = true;
    return;
  }
  reportFailure(RunTimeError(toUtf8(sound_->errorText())));
}

void AddAudio::modeChanged() {
  updateEnabled();
  const bool runs =
      sound_->mode() == MMControl::Mode::Playing || sound_->mode() == MMControl::Mode::Recording;
  if (!runs)
    return figures_->hideStatus();
  noteTrouble(soundTrouble_, {}); // what it fails at now is told anew
  sound_->setUpdateInterval(tickMs);
  figures_->showStatus();
}

void AddAudio::stopped() {
  isRecording_ = false;
  sound_->Prev();
  figures_->hideStatus();
  figures_->showLength();
}

void AddAudio::played() {
  sound_->Prev();
  sound_->setUpdateInterval(0);
  figures_->hideStatus();
}

void AddAudio::soundFailed(const QString& why) {
  noteTrouble(soundTrouble_, why);
  if (!isRecording_)
    return;
  stopped(); // what was recorded until then can still be attached
  reportFailure(RunTimeError(toUtf8(why)));
}

void AddAudio::discChanged() {
  showTrack();
  if (!disc_->isOpen())
    return;
  noteTrouble(discTrouble_, {});
  if (std::exchange(playsDisc_, false))
    disc_->Play();
}

void AddAudio::showTrack() {
  if (disc_->tracks() == 0)
    return ui->discPosition->clear();
  ui->discPosition->setText(
      QStringLiteral("Track %1 of %2").arg(disc_->track()).arg(disc_->tracks()));
}

void AddAudio::attachRecording() {
  if (sound_->length() == 0 || sound_->deviceType() != DeviceType::WaveAudio) {
    MsgBox(QStringLiteral("Please Record Wave File"), windowTitle(), MsgIcon::Exclamation);
    return;
  }
  stopped();
  sound_->setFileName(subject().recordingFile());
  if (!sound_->Save([this](const auto& old) { putAwayAudio(album_, old); }))
    throw RunTimeError(toUtf8(sound_->errorText()));
  closeBoth();
  tellOwner(true);
  MsgBox(QStringLiteral("Recorded Wave File Attached Successfully"), windowTitle());
  Unload();
}

/// The recorder and the disc player may be in trouble at once; each is told until it is over.
void AddAudio::noteTrouble(QString& player, const QString& why) {
  player = why;
  QStringList troubles{soundTrouble_, discTrouble_};
  troubles.removeAll(QString());
  ui->soundNote->setText(troubles.join(QLatin1Char('\n')));
  ui->soundNote->setVisible(!troubles.isEmpty());
}

} // namespace hearthbook
