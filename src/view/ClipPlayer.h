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
  ClipPlayer(BackgroundSound* background, QObject* parent);

  void play(const std::filesystem::path& file);
  void close() { player_.Close(); }

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
