#include "MailPage.h"

#include "PhotoFiles.h"
#include "PhotoIdentity.h"

#include <algorithm>

namespace hearthbook {

namespace {

constexpr std::size_t digits = 5;

std::string_view lastFive(std::string_view id) {
  return id.substr(id.size() - std::min(id.size(), digits));
}

std::string entryOf(const MailPhoto& photo) {
  std::string entry("Picture ");
  entry += lastFive(photo.id);
  entry += ":\r\n" + photo.year + ", " + photo.place + "\r\n\r\n";
  return entry;
}

} // namespace

MailDraft draftMail(const MailPage& page) {
  MailDraft draft{"E-Mail Album Page", "<Type message here>\r\n\r\n", {}};
  if (page.selected)
    draft.caption = "E-Mail Selected Photo";
  for (std::size_t i = 0; i < page.photos.size(); ++i) {
    if (page.selected && i != *page.selected)
      continue;
    draft.text += entryOf(page.photos[i]);
    draft.photoIds.push_back(page.photos[i].id);
  }
  return draft;
}

std::string mailSubject(std::string_view albumName) {
  return "Pictures From My Album: " + std::string(albumName);
}

std::filesystem::path mailedFile(const Album& album, std::string_view pictureId) {
  const std::string file = "\\Photos\\" + std::string(lastFive(pictureId)) + ".jpg";
  if (originOf(pictureId) == PhotoOrigin::HardDisk)
    return album.folder.path(file);
  return onPhotoDisc(album, file);
}

std::vector<std::filesystem::path> mailedFiles(const Album& album,
                                               const std::vector<std::string>& pictureIds) {
  std::vector<std::filesystem::path> files(pictureIds.size());
  std::ranges::transform(pictureIds, files.begin(),
                         [&](const std::string& id) { return mailedFile(album, id); });
  return files;
}

bool needPhotoDisc(const std::vector<std::string>& pictureIds) {
  return std::ranges::any_of(
      pictureIds, [](const std::string& id) { return originOf(id) != PhotoOrigin::HardDisk; });
}

} // namespace hearthbook
