#pragma once

#include "MMControl.h"

#include <QObject>
#include <QPointer>

#include <filesystem>

namespace hearthbook {

class BackgroundSound;

/// Plays the clip of a photo over the background sound, where there is one.
class ClipPlayer : public QObject {
  Q_OBJECT
public:
  explicit ClipPlayer(QObject* parent);

  /// Over the sound behind the album pages, if they are open.
  void play(const std::filesystem::path& file, BackgroundSound* background);
  void end();                       ///< what made room for the clip goes on
  void close() { player_.Close(); } ///< and there is silence

  [[nodiscard]] const MMControl& player() const { return player_; }

Q_SIGNALS:
  void failed(const QString& why); ///< the clip cannot be heard, or not on

private:
  void tell(const QString& why);
  void ended();

  QPointer<BackgroundSound> background_;
  MMControl player_;
};

} // namespace hearthbook
