#include "EarlyStart.h"

#include "AlbumStart.h"
#include "SingleInstance.h"

#include <clocale>

#include <fontconfig/fontconfig.h>

namespace hearthbook {

EarlyStart::EarlyStart(const std::filesystem::path& programFile,
                       const std::filesystem::path& userFolder) {
  try {
    begin(ApplicationFolder::forProgram(programFile, userFolder));
  } catch (const std::exception& failure) {
    failure_ = failure.what();
  }
}

void EarlyStart::begin(const ApplicationFolder& folder) {
  album_.emplace(folder);
  lock_ = lockOf(folder.root());
  // The toolkit does this too, but then threads are at work that must not see it change.
  std::setlocale(LC_ALL, "");
  fonts_ = std::async(std::launch::async, [] { FcInit(); });
  if (lock_->tryLock(0))
    opening_ = std::async(std::launch::async, [this] { return openAlbumThatIsThere(*album_); });
}

} // namespace hearthbook
