#include "MailPhotoList.h"

#include "Beside.h"
#include "Decode.h"
#include "PictureImage.h"
#include "Text.h"

#include <QListWidget>
#include <QPixmap>

#include <algorithm>

namespace hearthbook {

namespace {

void showPicture(QListWidget& list, int row, const Picture& picture) {
  if (!picture.isNull() && row < list.count())
    list.item(row)->setIcon(QPixmap::fromImage(toImage(picture)));
}

} // namespace

void showMailPhotos(QListWidget& list, WorkPool& pool,
                    const std::vector<std::filesystem::path>& photos) {
  list.clear();
  const int side = std::max(list.iconSize().width(), list.iconSize().height()) * 2;
  for (const auto& file : photos) {
    const int row = list.count();
    auto* item = new QListWidgetItem(toQString(file), &list);
    item->setToolTip(item->text());
    runBeside(
        pool, &list, [file, side] { return pictureWithinOrNone(file, side); },
        [&list, row](const Picture& picture) { showPicture(list, row, picture); });
  }
}

std::vector<std::filesystem::path> mailPhotos(const QListWidget& list) {
  std::vector<std::filesystem::path> photos;
  photos.reserve(static_cast<std::size_t>(list.count()));
  for (int row = 0; row < list.count(); ++row)
    photos.push_back(toPath(list.item(row)->text()));
  return photos;
}

} // namespace hearthbook
