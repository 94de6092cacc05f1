#include "FilesBeside.h"

#include "Beside.h"
#include "PhotoFiles.h"

#include <utility>

namespace hearthbook {

void findFilesBeside(WorkPool& pool, QObject* wanted, const Album& album,
                     std::vector<std::string> ids,
                     std::optional<std::filesystem::path> (*find)(const Album& album,
                                                                  std::string_view pictureId),
                     std::function<void(const std::vector<std::filesystem::path>& files)> then) {
  runBeside(
      pool, wanted,
      [&album, ids = std::move(ids), find] {
        std::vector<std::filesystem::path> files;
        files.reserve(ids.size());
        for (const std::string& id : ids)
          files.push_back(find(album, id).value_or(std::filesystem::path()));
        return files;
      },
      std::move(then));
}

void findSoundBeside(WorkPool& pool, QObject* wanted, const Album& album, std::string id,
                     std::function<void(bool attached)> then) {
  runBeside(
      pool, wanted, [folder = album.folder, id = std::move(id)] { return hasSound(folder, id); },
      std::move(then), true);
}

} // namespace hearthbook
