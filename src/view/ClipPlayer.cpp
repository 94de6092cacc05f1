#include "ClipPlayer.h"

#include "BackgroundSound.h"

#include <QTimer>

namespace hearthbook {

ClipPlayer::ClipPlayer(QObject* parent) : QObject(parent), player_(this) {
  player_.setObjectName(QStringLiteral("MMControl1"));
  connect(&player_, &MMControl::done, this, &ClipPlayer::ended);
  connect(&player_, &MMControl::failed, this, &ClipPlayer::tell);
}

void ClipPlayer::play(const std::filesystem::path& file, BackgroundSound* background) {
  background_ = background;
  if (background_)
    background_->makeRoom();
  player_.Close();
  player_.setFile(file);
  if (!player_.Open() || !player_.Play())
    ended();
}

void ClipPlayer::end() {
  if (player_.isOpen())
    ended();
}

/// A clip that breaks off has ended too, though nobody says so. That is seen when the command
/// that failed is over.
void ClipPlayer::tell(const QString& why) {
  QTimer::singleShot(0, this, [this] {
    if (player_.mode() == MMControl::Mode::Stopped)
      ended();
  });
  Q_EMIT failed(why);
}

void ClipPlayer::ended() {
  player_.Close();
  if (background_)
    background_->goOn();
}

} // namespace hearthbook
