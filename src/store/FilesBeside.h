#pragma once

#include "Album.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class QObject;

namespace hearthbook {

class WorkPool;

/// Finds the files of photos beside the window's thread, since looking for their disc may wait
/// for its drive, and hands them on if `wanted` still lives by then. `find` is imagePath or
/// thumbnailPath; photos for which it has nothing are left out.
void findFilesBeside(WorkPool& pool, QObject* wanted, const Album& album,
                     std::vector<std::string> ids,
                     std::optional<std::filesystem::path> (*find)(const Album& album,
                                                                  std::string_view pictureId),
                     std::function<void(const std::vector<std::filesystem::path>& files)> then);

} // namespace hearthbook
