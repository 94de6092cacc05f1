#include "BackgroundSound.h"

namespace hearthbook {

BackgroundSound::BackgroundSound(QObject* parent) : QObject(parent), player_(this) {
  player_.setObjectName(QStringLiteral("MMControl2"));
  connect(&player_, &MMControl::done, this, &BackgroundSound::again);
}

void BackgroundSound::start(const std::filesystem::path& file) {
  player_.Close();
  player_.setFile(file);
  if (player_.Open())
    player_.Play();
}

void BackgroundSound::makeRoom() {
  if (!isActive())
    return;
  backgroundPosition_ = player_.position();
  player_.Close();
}

void BackgroundSound::goOn() {
  if (isActive() && player_.Open())
    player_.PlayFrom(backgroundPosition_);
}

void BackgroundSound::again() {
  if (player_.length() == 0)
    return; // it would be over and over again at once
  player_.Prev();
  player_.Play();
}

} // namespace hearthbook
