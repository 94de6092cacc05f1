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
/// for its drive, and hands them on, one for each id, if `wanted` still lives by then. `find` is
/// imagePath or thumbnailPath; where it has nothing for a photo, there is an empty path.
void findFilesBeside(WorkPool& pool, QObject* wanted, const Album& album,
                     std::vector<std::string> ids,
                     std::optional<std::filesystem::path> (*find)(const Album& album,
                                                                  std::string_view pictureId),
                     std::function<void(const std::vector<std::filesystem::path>& files)> then);

/// Looks beside the window's thread whether a photo has a sound: their folder may be long or on
/// a slow disk.
void findSoundBeside(WorkPool& pool, QObject* wanted, const Album& album, std::string id,
                     std::function<void(bool attached)> then);

} // namespace hearthbook
