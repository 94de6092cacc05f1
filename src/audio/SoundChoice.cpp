#include "SoundChoice.h"

#include "Command.h"
#include "Text.h"

#include <QListWidget>
#include <QSignalBlocker>

namespace hearthbook {

namespace {

constexpr const char* soundPattern = "*.wav;*.mid";

} // namespace

SoundChoice::SoundChoice(const FolderBrowser::Parts& parts, QListWidget& list,
                         const Drives& machine, WorkPool& pool, QObject* parent)
    : QObject(parent), list_(list), browser_(new FolderBrowser(parts, machine, pool, soundPattern,
                                                               QStringLiteral("Add Audio"), this)) {
  connect(browser_, &FolderBrowser::reading, this, [this] { showFiles({}); });
  connect(browser_, &FolderBrowser::filesRead, this, &SoundChoice::showFiles);
  connect(&list_, &QListWidget::itemSelectionChanged, this,
          asCommand([this] { Q_EMIT changed(); }));
  connect(&list_, &QListWidget::itemDoubleClicked, this,
          asCommand([this] { Q_EMIT doubleClicked(); }));
}

std::optional<std::filesystem::path> SoundChoice::chosen() const {
  const auto selected = list_.selectionModel()->selectedRows();
  if (selected.isEmpty())
    return std::nullopt;
  return files_.at(static_cast<std::size_t>(selected.front().row()));
}

void SoundChoice::showFiles(const std::vector<std::filesystem::path>& files) {
  const bool hadChoice = chosen().has_value();
  {
    const QSignalBlocker quiet(list_);
    list_.clear();
    files_ = files;
    for (const auto& file : files_)
      list_.addItem(toQString(file.filename()));
  }
  if (hadChoice)
    Q_EMIT changed();
}

} // namespace hearthbook
