#pragma once

#include "Album.h"
#include "AudioQuality.h"
#include "AudioSubject.h"
#include "Form.h"
#include "MMControl.h"
#include "WorkPool.h"

#include <QString>

#include <filesystem>
#include <memory>
#include <optional>

namespace Ui {
class AddAudio;
}

namespace hearthbook {

class AudioOwner;
class RecordingFigures;
class SoundChoice;
class SubjectPicture;

/// Add Audio: the family records what there is to tell about a photo, or chooses a tune for it
/// or for a sub-album, hears what is attached, and takes it off again.
///
/// Opened by DBeditor with the Tag "picture", for the current photo, and with another Tag for
/// the current sub-album. It writes files in Audio, and no row.
class AddAudio : public Form {
  Q_OBJECT
public:
  AddAudio(Album& album, WorkPool& pool);
  ~AddAudio() override;

  /// Who is told of what was attached and removed.
  void setOwner(AudioOwner* owner) { owner_ = owner; }

  /// True while a folder is being read beside the window's thread.
  [[nodiscard]] bool isReading() const;

protected:
  void load() override;
  void activated() override;
  bool unloading() override;
  void closeEvent(QCloseEvent* event) override;

private:
  enum class Tab { Microphone, Disc, File };

  void wireControls();
  void wireSound();
  void wireChoice(WorkPool& pool);
  void dressControls();

  [[nodiscard]] AudioSubject subject() const;
  void findAttached();
  void showSubject();
  void tellOwner(bool attached);

  // What is open
  void openSound(const std::filesystem::path& file);
  void openAttached();
  void openTemplate(const AudioQuality& quality);
  void openDisc();
  void closeBoth();
  [[nodiscard]] bool hasUnsavedRecording() const;
  [[nodiscard]] bool mayDropRecording() const;

  // Tabs and files
  void changeTab(int index);
  void showTab(Tab tab);
  void fileChosen();

  // Sound
  void record();
  void modeChanged();
  void stopped();
  void played();
  void soundFailed(const QString& why);
  void discChanged();
  void showTrack();

  // Commands
  void attachFile();
  void attachRecording();
  void removeSound();
  void closeAsked();
  void openPlaybackMixer();
  void openRecordingMixer();

  void noteTrouble(QString& player, const QString& why);
  void updateEnabled();

  Album& album_;
  std::unique_ptr<Ui::AddAudio> ui;
  MMControl* sound_ = nullptr; ///< what is attached, chosen or being recorded
  MMControl* disc_ = nullptr;
  std::unique_ptr<RecordingFigures> figures_;
  SubjectPicture* picture_ = nullptr;
  SoundChoice* choice_ = nullptr;
  AudioOwner* owner_ = nullptr;
  Tab tab_ = Tab::Microphone;
  std::optional<std::filesystem::path> attached_; ///< found when the form came to the front
  bool holdsRecording_ = false;                   ///< made, or being made, and not attached
  bool isRecording_ = false;                      ///< until it is stopped, or breaks off
  bool playsDisc_ = false;                        ///< as soon as its drive has answered
  QString soundTrouble_;
  QString discTrouble_;
};

} // namespace hearthbook
