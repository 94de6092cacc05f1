#include "DesignFiles.h"

#include "FolderBrowser.h"
#include "NestedLoop.h"
#include "Text.h"

#include <QApplication>
#include <QFileDialog>

namespace hearthbook {

namespace {

std::optional<std::filesystem::path>
chooseFile(const QString& title, const std::filesystem::path& folder, const QString& filter) {
  const UserTurn turn;
  const QString file =
      QFileDialog::getOpenFileName(QApplication::activeWindow(), title, toQString(folder), filter);
  return file.isEmpty() ? std::nullopt : std::optional(toPath(file));
}

} // namespace

DesignFiles designFileDialogs() {
  DesignFiles files;
  files.chooseBackground = [] { // what browsers show
    return chooseFile(QStringLiteral("Customize Background"), picturesFolder(),
                      QStringLiteral("Pictures (*.gif *.jpg *.jpeg *.png *.bmp)"));
  };
  files.chooseMusic = [] { // what browsers play
    return chooseFile(QStringLiteral("Play Welcome Music"), musicFolder(),
                      QStringLiteral("Sounds (*.wav *.mp3 *.ogg *.m4a)"));
  };
  return files;
}

} // namespace hearthbook
