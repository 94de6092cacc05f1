#include "JetEngine.h"

#include "DatabaseFile.h"
#include "FileError.h"
#include "RunTimeError.h"
#include "SafeFile.h"
#include "Statement.h"

#include <sqlite3.h>

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>
#include <system_error>

namespace hearthbook {

namespace {

namespace fs = std::filesystem;

/// A file that is removed again unless it was kept.
class TemporaryFile {
public:
  explicit TemporaryFile(fs::path path) : path_(std::move(path)) { removeIt(); }
  ~TemporaryFile() {
    if (!kept_)
      removeIt();
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  [[nodiscard]] const fs::path& path() const { return path_; }
  void keep() { kept_ = true; }

private:
  void removeIt() {
    std::error_code ignored;
    fs::remove(path_, ignored);
    fs::remove(path_.string() + "-journal", ignored);
  }

  fs::path path_;
  bool kept_ = false;
};

[[noreturn]] void throwNotMade(const fs::path& file, const std::string& trouble) {
  throw RunTimeError("The compacted copy " + file.string() + " could not be made: " + trouble +
                     ".");
}

void writeCompacted(const fs::path& source, const fs::path& copy, const fs::path& destination) {
  const DatabaseHandle database = openDatabase(source);
  Statement vacuum(database.get(), "VACUUM INTO ?1");
  vacuum.bind(1, copy.string());
  try {
    vacuum.run();
  } catch (const RunTimeError&) {
    // The source was read whole before: what fails now is the writing.
    if (const auto cause = causeOutside(database.get()))
      throwNotMade(destination, *cause);
    throw;
  }
}

void check(const fs::path& copy, const fs::path& destination) {
  const DatabaseHandle database = openDatabase(copy);
  if (!passesQuickCheck(database.get()))
    throwNotMade(destination, "it is damaged");
}

/// Gives the file its name, unless that is taken.
void giveName(const fs::path& from, const fs::path& to) {
  if (link(from.c_str(), to.c_str()) == 0) {
    unlink(from.c_str());
    return;
  }
  if (errno == EEXIST)
    throwNotMade(to, "there is a file of that name already");
  if (std::rename(from.c_str(), to.c_str()) != 0) // a file system without links
    throwNotMade(to, causeOf(errno));
}

} // namespace

void JetEngine::CompactDatabase(const fs::path& source, const fs::path& destination) const {
  if (fs::exists(fs::symlink_status(destination)))
    throwNotMade(destination, "there is a file of that name already");
  TemporaryFile copy(destination.string() + ".new");
  writeCompacted(source, copy.path(), destination);
  check(copy.path(), destination);
  flushToDisk(copy.path());
  giveName(copy.path(), destination);
  copy.keep();
  flushToDisk(folderOf(destination));
}

} // namespace hearthbook
