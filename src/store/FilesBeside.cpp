#include "FilesBeside.h"

#include "Beside.h"

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
        for (const std::string& id : ids)
          if (auto file = find(album, id))
            files.push_back(std::move(*file));
        return files;
      },
      std::move(then));
}

} // namespace hearthbook
