#pragma once

#include "Album.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hearthbook {

/// A photo of an album page, with the words beside it.
struct MailPhoto {
  std::string id;
  std::string year;
  std::string place; ///< event and place, as on the page
};

/// What an album page hands to whoever mails it.
struct MailPage {
  std::vector<MailPhoto> photos;
  std::optional<std::size_t> selected{}; ///< goes alone
};

/// The mail as it is offered: what it is called, what is written in it, which photos go with it.
struct MailDraft {
  std::string caption;
  std::string text;
  std::vector<std::string> photoIds;
};

MailDraft draftMail(const MailPage& page);

std::string mailSubject(std::string_view albumName);

/// The photo's own file: below the album for "HD", else on the photo disc.
std::filesystem::path mailedFile(const Album& album, std::string_view pictureId);
std::vector<std::filesystem::path> mailedFiles(const Album& album,
                                               const std::vector<std::string>& pictureIds);

/// True where one of them lies on the photo disc, whose drive may take its time to answer.
bool needPhotoDisc(const std::vector<std::string>& pictureIds);

} // namespace hearthbook
