#pragma once

#include "MMControl.h"

#include <QObject>

#include <cstdint>
#include <filesystem>

namespace hearthbook {

/// The sound behind an album's pages. It goes round and round, and makes room for the clip of
/// a photo, behind which it goes on where it stopped.
class BackgroundSound : public QObject {
  Q_OBJECT
public:
  explicit BackgroundSound(QObject* parent);

  void start(const std::filesystem::path& file);
  /// The album has a background sound, whether or not it can be heard now.
  [[nodiscard]] bool isActive() const { return !player_.fileName().empty(); }

  void makeRoom(); ///< for a clip; what is active only
  void goOn();     ///< behind the clip
  void close() { player_.Close(); }
  void open() { player_.Open(); }

  [[nodiscard]] const MMControl& player() const { return player_; }

private:
  void again();

  MMControl player_;
  std::int64_t backgroundPosition_ = 0;
};

} // namespace hearthbook
