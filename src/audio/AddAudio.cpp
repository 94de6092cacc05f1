#include "AddAudio.h"

#include "AudioOwner.h"
#include "Command.h"
#include "FolderBrowser.h"
#include "Look.h"
#include "MixerPrograms.h"
#include "MsgBox.h"
#include "PhotoFiles.h"
#include "PictureBox.h"
#include "Pointer.h"
#include "RecordingFigures.h"
#include "SoundChoice.h"
#include "SoundTransport.h"
#include "SubjectPicture.h"
#include "Text.h"
#include "ui_AddAudio.h"

#include <QCloseEvent>
#include <QScopeGuard>
#include <QSignalBlocker>

#include <initializer_list>
#include <utility>

namespace hearthbook {

namespace {

const QString removeTitle = QStringLiteral("Remove Audio");

constexpr const char* microphoneHint = "Press the red button and speak, sing or play. Stop when "
                                       "you are done, listen to it, and attach "
                                       "it.";
constexpr const char* discHint = "Press the red button and let the CD play. What is recorded of "
                                 "all that the computer hears, the mixer with the microphone "
                                 "decides: open it meanwhile.";

/// Hides first: with the parts of two tabs at once the window would grow, and stay so.
void showOnly(std::initializer_list<std::pair<QWidget*, bool>> parts) {
  for (const bool shown : {false, true})
    for (const auto& [part, isShown] : parts)
      if (isShown == shown)
        part->setVisible(shown);
}

} // namespace

AddAudio::AddAudio(Album& album, WorkPool& pool)
    : Form(QStringLiteral("AddAudio"), Kind::Dialog), album_(album),
      ui(std::make_unique<Ui::AddAudio>()) {
  ui->setupUi(this);
  sound_ = &ui->MMControl1->control();
  disc_ = &ui->MMControl2->control();
  figures_ = std::make_unique<RecordingFigures>(
      RecordingFigures::Parts{ui->Frame1, ui->lblLength, ui->lblSize, ui->lblRec, ui->frameQuality,
                              ui->Option1, ui->Option2},
      *sound_);
  picture_ = new SubjectPicture(*ui->ownerPicture, pool, this);
  dressControls();
  wireControls();
  wireSound();
  wireChoice(pool);
}

AddAudio::~AddAudio() = default;

void AddAudio::dressControls() {
  for (const char* tab : {"Add From Mic. or Line-In", "Add From CD Player", "Add From File"})
    ui->TabStrip1->addTab(toQString(tab));
  ui->MMControl2->showDiscButtons();
  ui->Command7->setIcon(transportIcon(TransportSymbol::Loudspeaker));
  ui->Command8->setIcon(transportIcon(TransportSymbol::Microphone));
  for (QLabel* label : {ui->lblRec, ui->soundNote}) {
    QPalette red = label->palette();
    red.setColor(QPalette::WindowText, look::darkRed);
    label->setPalette(red);
  }
  ui->soundNote->hide();
}

void AddAudio::wireControls() {
  connect(ui->TabStrip1, &QTabBar::currentChanged, this,
          [this](int index) { runCommand([=, this] { changeTab(index); }); });
  onCommand(ui->Option1, this, [this] { figures_->chooseQuality(lowAudioQuality); });
  onCommand(ui->Option2, this, [this] { figures_->chooseQuality(highAudioQuality); });
  onCommand(ui->Command7, this, &AddAudio::openPlaybackMixer);
  onCommand(ui->Command8, this, &AddAudio::openRecordingMixer);
  // On the two tabs for recording
  onCommand(ui->Command4, this, &AddAudio::attachRecording); // "Attach Recording"
  onCommand(ui->Command5, this, &AddAudio::removeSound);     // "Remove Audio"
  onCommand(ui->Command6, this, &AddAudio::closeAsked);      // "Close"
  // On the tab for files
  onCommand(ui->Command1, this, &AddAudio::attachFile);  // "Attach Audio File"
  onCommand(ui->Command3, this, &AddAudio::removeSound); // "Remove Audio"
  onCommand(ui->Command2, this, &AddAudio::closeAsked);  // "Close"
}

void AddAudio::wireSound() {
  connect(ui->MMControl1, &SoundTransport::recordClicked, this, &AddAudio::record);
  connect(ui->MMControl1, &SoundTransport::stopClicked, this, &AddAudio::stopped);
  connect(sound_, &MMControl::modeChanged, this, &AddAudio::modeChanged);
  connect(sound_, &MMControl::statusUpdate, this, [this] { figures_->showStatus(); });
  connect(sound_, &MMControl::done, this, &AddAudio::played);
  connect(sound_, &MMControl::failed, this, &AddAudio::soundFailed);
  connect(ui->MMControl2, &SoundTransport::discAsked, this, [this] {
    openDisc();
    playsDisc_ = true;
  });
  connect(disc_, &MMControl::modeChanged, this, &AddAudio::discChanged);
  connect(disc_, &MMControl::statusUpdate, this, &AddAudio::showTrack);
  connect(disc_, &MMControl::failed, this,
          [this](const QString& why) { noteTrouble(discTrouble_, why); });
}

void AddAudio::wireChoice(WorkPool& pool) {
  choice_ = new SoundChoice({ui->Drive1, ui->Dir1, ui->folderEdit}, *ui->File1, album_.drives, pool,
                            this);
  connect(choice_, &SoundChoice::changed, this, &AddAudio::fileChosen);
  connect(choice_, &SoundChoice::doubleClicked, this, [this] {
    if (sound_->isOpen())
      sound_->Play();
  });
  onCommand(ui->homeButton, this, [this] { choice_->browser().showHome(); });
  onCommand(ui->musicButton, this, [this] { choice_->browser().showFolder(musicFolder()); });
}

void AddAudio::load() {
  showTab(Tab::Microphone);
  ui->MMControl1->setFocus();
}

void AddAudio::activated() {
  sound_->setDeviceType(DeviceType::WaveAudio);
  findAttached();
  showSubject();
  openAttached();
  if (!attached_)
    return;
  std::error_code unknown;
  const auto bytes = static_cast<std::int64_t>(std::filesystem::file_size(*attached_, unknown));
  figures_->chooseQuality(qualityOf(unknown ? 0 : bytes, sound_->length()));
  figures_->showLength();
}

bool AddAudio::isReading() const { return choice_->browser().isReading(); }

AudioSubject AddAudio::subject() const {
  const bool isPhoto = Tag == QStringLiteral("picture");
  return {album_, isPhoto ? AudioSubject::Kind::Photo : AudioSubject::Kind::SubAlbum};
}

void AddAudio::findAttached() {
  attached_ = subject().attached();
  updateEnabled();
}

void AddAudio::tellOwner(bool attached) {
  if (owner_)
    owner_->soundChanged(attached);
}

void AddAudio::showSubject() {
  ui->ownerName->setText(toQString(subject().title()));
  picture_->hide();
  if (!subject().isPhoto())
    return;
  if (const auto photo = imagePath(album_, subject().pictureId()))
    picture_->show(*photo);
}

void AddAudio::changeTab(int index) {
  if (!mayDropRecording()) {
    const QSignalBlocker quiet(ui->TabStrip1);
    return ui->TabStrip1->setCurrentIndex(static_cast<int>(tab_));
  }
  closeBoth();
  noteTrouble(soundTrouble_, {}); // of the tab before
  noteTrouble(discTrouble_, {});
  showTab(static_cast<Tab>(index));
  if (tab_ == Tab::File)
    return fileChosen();
  openAttached();
  figures_->showLength();
  if (tab_ == Tab::Disc)
    openDisc();
}

void AddAudio::showTab(Tab tab) {
  tab_ = tab;
  const bool forFiles = tab == Tab::File;
  ui->recordingHint->setText(toQString(tab == Tab::Disc ? discHint : microphoneHint));
  showOnly({{ui->fromMic, !forFiles},
            {ui->Command7, !forFiles},
            {ui->Command8, !forFiles},
            {ui->recordingCommands, !forFiles},
            {ui->FromCD, tab == Tab::Disc},
            {ui->fromFile, forFiles},
            {ui->fileCommands, forFiles}});
  ui->MMControl1->showRecordButton(!forFiles);
  figures_->hideStatus();
  if (forFiles && choice_->browser().folder().empty())
    choice_->browser().start(album_.vars.LastSoundFolder.value_or(musicFolder()));
}

void AddAudio::fileChosen() {
  const auto file = choice_->chosen();
  std::error_code unknown;
  const auto bytes = file ? std::filesystem::file_size(*file, unknown) : 0;
  ui->Label1->setText(file && !unknown ? toQString(fileSizeCaption(bytes))
                                       : QStringLiteral("File Size: "));
  if (file)
    openSound(*file);
  else
    sound_->Close();
  figures_->showLength();
}

void AddAudio::attachFile() {
  const auto source = choice_->chosen();
  if (!source) {
    MsgBox(QStringLiteral("Please Select Audio File"), windowTitle(), MsgIcon::Exclamation);
    return;
  }
  sound_->Close();
  auto openAgain = qScopeGuard([&] {
    sound_->Open();
    figures_->showLength();
  });
  {
    const Hourglass hourglass;
    subject().attach(*source);
  }
  openAgain.dismiss();
  tellOwner(true);
  MsgBox(QStringLiteral("Audio File Attached Successfully"), windowTitle());
  Unload();
}

void AddAudio::removeSound() {
  const QString question = QStringLiteral("Are you sure you want to remove audio from current ");
  if (MsgBox(question + (subject().isPhoto() ? QStringLiteral("photo?") : QStringLiteral("album?")),
             removeTitle, MsgIcon::Information, MsgButtons::OkCancel) != MsgAnswer::Ok)
    return;
  const bool keepRecording = hasUnsavedRecording(); // it is not what is to be removed
  if (!keepRecording)
    closeBoth();
  const auto showWhatIsLeft = qScopeGuard([&] {
    findAttached();
    tellOwner(attached_.has_value());
    if (keepRecording)
      return;
    if (fileExists(sound_->fileName()))
      openSound(sound_->fileName());
    else
      openAttached();
    if (tab_ == Tab::Disc)
      openDisc();
    figures_->showLength();
  });
  subject().remove();
}

void AddAudio::closeAsked() {
  const MsgAnswer answer =
      MsgBox(QStringLiteral("Are you sure you want to close? Changes will not be saved"),
             removeTitle, MsgIcon::Information, MsgButtons::OkCancel);
  if (answer != MsgAnswer::Ok)
    return;
  closeBoth();
  Unload();
}

void AddAudio::openPlaybackMixer() {
  if (!startMixer(Mixer::Playback))
    MsgBox(QStringLiteral("System playback mixer could not be found, please run it manualy."), {},
           MsgIcon::Critical);
}

void AddAudio::openRecordingMixer() {
  if (!startMixer(isRecording_ ? Mixer::RunningRecording : Mixer::Recording))
    MsgBox(QStringLiteral("System recording mixer could not be found, please run it manualy."), {},
           MsgIcon::Critical);
}

void AddAudio::updateEnabled() {
  ui->Command3->setEnabled(attached_.has_value());
  ui->Command5->setEnabled(attached_.has_value());
  figures_->enableQuality(sound_->mode() != MMControl::Mode::Recording);
}

bool AddAudio::unloading() {
  if (const auto& folder = choice_->browser().folder(); !folder.empty())
    album_.vars.LastSoundFolder = folder;
  closeBoth();
  return true;
}

void AddAudio::closeEvent(QCloseEvent* event) {
  if (hasUnsavedRecording()) {
    runCommand([this] { closeAsked(); });
    return event->ignore();
  }
  Form::closeEvent(event);
}

} // namespace hearthbook
