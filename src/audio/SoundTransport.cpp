#include "SoundTransport.h"

#include "Command.h"

#include <QHBoxLayout>
#include <QToolButton>

#include <algorithm>
#include <initializer_list>

namespace hearthbook {

SoundTransport::SoundTransport(QWidget* parent) : QWidget(parent) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(4);
  record_ = addButton("record", TransportSymbol::Record, QStringLiteral("Record"));
  toStart_ = addButton("toStart", TransportSymbol::ToStart, QStringLiteral("To the Start"));
  play_ = addButton("play", TransportSymbol::Play, QStringLiteral("Play"));
  pause_ = addButton("pause", TransportSymbol::Pause, QStringLiteral("Pause"));
  stop_ = addButton("stop", TransportSymbol::Stop, QStringLiteral("Stop"));
  toEnd_ = addButton("toEnd", TransportSymbol::ToEnd, QStringLiteral("Next Track"));
  eject_ = addButton("eject", TransportSymbol::Eject, QStringLiteral("Open the Tray"));
  for (QToolButton* rare : {record_, toEnd_, eject_})
    rare->hide();
  setFocusProxy(play_);
  wireButtons();
  updateEnabled();
}

QToolButton* SoundTransport::addButton(const char* name, TransportSymbol symbol,
                                       const QString& said) {
  constexpr int side = 22;
  auto* button = new QToolButton(this);
  button->setObjectName(QLatin1String(name));
  button->setIcon(transportIcon(symbol));
  button->setIconSize({side, side});
  button->setFixedSize({44, 38});
  button->setFocusPolicy(Qt::StrongFocus);
  button->setAccessibleName(said);
  button->setToolTip(said);
  layout()->addWidget(button);
  return button;
}

void SoundTransport::wireButtons() {
  onCommand(toStart_, this, [this] { control_.Prev(); });
  onCommand(play_, this, &SoundTransport::play);
  onCommand(pause_, this, [this] { control_.Pause(); });
  onCommand(stop_, this, [this] {
    control_.Stop();
    Q_EMIT stopClicked();
  });
  onCommand(toEnd_, this, [this] { control_.Next(); });
  onCommand(record_, this, [this] { Q_EMIT recordClicked(); });
  onCommand(eject_, this, [this] { control_.Eject(); });
  connect(&control_, &MMControl::modeChanged, this, &SoundTransport::updateEnabled);
}

void SoundTransport::play() {
  if (mayAskForDisc())
    Q_EMIT discAsked();
  else
    control_.Play();
}

void SoundTransport::showRecordButton(bool shown) {
  record_->setVisible(shown);
  setFocusProxy(shown ? record_ : play_);
}

void SoundTransport::showDiscButtons() {
  toStart_->setAccessibleName(QStringLiteral("Previous Track"));
  toStart_->setToolTip(toStart_->accessibleName());
  toEnd_->show();
  eject_->show();
  isForDiscs_ = true;
  updateEnabled();
}

void SoundTransport::updateEnabled() {
  using Mode = MMControl::Mode;
  const Mode mode = control_.mode();
  const bool isPlaying = mode == Mode::Playing;
  const bool isRecording = mode == Mode::Recording;
  const bool holdsSound = control_.isOpen() && control_.length() > 0;
  enable({{play_, mayAskForDisc() || (holdsSound && !isPlaying && !isRecording)},
          {pause_, isPlaying},
          {stop_, isPlaying || isRecording || mode == Mode::Paused},
          {toStart_, holdsSound && !isRecording},
          {toEnd_, holdsSound && !isRecording},
          {record_, !isRecording}});
}

/// A button that is disabled under the user's keys hands them on to what is wanted next, not to
/// whatever stands behind these buttons.
void SoundTransport::enable(const std::vector<std::pair<QToolButton*, bool>>& buttons) {
  for (const auto& [button, canBePressed] : buttons)
    if (canBePressed)
      button->setEnabled(true);
  const QWidget* focused = window()->focusWidget();
  for (const auto& [button, canBePressed] : buttons)
    if (!canBePressed && button == focused)
      focusNext(buttons);
  for (const auto& [button, canBePressed] : buttons)
    button->setEnabled(canBePressed);
}

void SoundTransport::focusNext(const std::vector<std::pair<QToolButton*, bool>>& buttons) {
  for (QToolButton* next : {pause_, play_, stop_, record_})
    if (next->isVisibleTo(this) &&
        std::ranges::find(buttons, std::pair(next, true)) != buttons.end())
      return next->setFocus();
}

} // namespace hearthbook
