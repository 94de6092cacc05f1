#pragma once

#include "FolderBrowser.h"

#include <QObject>

#include <filesystem>
#include <optional>
#include <vector>

class QListWidget;

namespace hearthbook {

/// The browser in which a wave or a MIDI file is chosen.
class SoundChoice : public QObject {
  Q_OBJECT
public:
  SoundChoice(const FolderBrowser::Parts& parts, QListWidget& list, const Drives& machine,
              WorkPool& pool, QObject* parent);

  [[nodiscard]] FolderBrowser& browser() { return *browser_; }
  [[nodiscard]] std::optional<std::filesystem::path> chosen() const;

Q_SIGNALS:
  void changed();       ///< another file is chosen, or none
  void doubleClicked(); ///< the chosen one

private:
  void showFiles(const std::vector<std::filesystem::path>& files);

  QListWidget& list_;
  FolderBrowser* browser_;
  std::vector<std::filesystem::path> files_;
};

} // namespace hearthbook
