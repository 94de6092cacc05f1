#include "ExportTarget.h"

#include "FileError.h"
#include "PhotoScript.h"
#include "PlainFile.h"
#include "TextOrder.h"

#include <algorithm>
#include <cerrno>
#include <optional>
#include <set>
#include <system_error>

namespace hearthbook {

namespace fs = std::filesystem;

namespace {

constexpr const char* replacedFolders[] = {"html", "data", "audio"};
constexpr const char* startPageOfTemplate = "master.htm";
constexpr const char* framePage = "frameset.htm";

bool isFolder(const fs::path& path) {
  std::error_code unknown;
  return fs::is_directory(path, unknown);
}

bool isLink(const fs::path& path) {
  std::error_code unknown;
  return fs::is_symlink(path, unknown);
}

/// What lies directly in a folder; nothing where there is none.
std::vector<fs::path> entriesOf(const fs::path& folder) {
  std::vector<fs::path> entries;
  std::error_code error;
  fs::directory_iterator entry(folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error))
    entries.push_back(entry->path());
  if (error && error.value() != ENOENT)
    throwUnreadable(folder, error.value());
  std::ranges::sort(entries);
  return entries;
}

std::string nameOfEntry(const fs::path& entry) { return lowerCase(entry.filename().string()); }

std::set<std::string> namesInFolder(const fs::path& folder) {
  std::set<std::string> names;
  for (const fs::path& entry : entriesOf(folder))
    names.insert(nameOfEntry(entry));
  return names;
}

/// The real folder, also where its last parts are not there yet.
fs::path resolved(const fs::path& path) {
  std::error_code unknown;
  const fs::path real = fs::weakly_canonical(path, unknown);
  return unknown ? path.lexically_normal() : real;
}

bool isSameOrBelow(const fs::path& path, const fs::path& folder) {
  return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first ==
         folder.end();
}

/// "12.jpg", "t12.jpg", "12.htm", as they stand in the folder data.
bool isNumbered(std::string_view name) {
  if (name.starts_with('t'))
    name.remove_prefix(1);
  const auto dot = name.find_first_not_of("0123456789");
  return dot != 0 && dot != std::string_view::npos && name[dot] == '.';
}

/// What an earlier export of the album can have written, by names in small letters.
class KnownFiles {
public:
  KnownFiles(const fs::path& exportTemplate, const ExportNames& names)
      : names_(names), top_(namesInFolder(exportTemplate)),
        html_(namesInFolder(exportTemplate / "html")) {
    top_.insert(names.lcname + ".htm");
    top_.insert("autorun.inf");
  }

  [[nodiscard]] bool isAtTop(const std::string& name) const { return top_.contains(name); }

  [[nodiscard]] bool isIn(const std::string& folder, const std::string& name) const {
    if (folder == "html")
      return html_.contains(name);
    return isNumbered(name) || (folder == "audio" && name.starts_with(names_.lcname + "."));
  }

private:
  const ExportNames& names_;
  std::set<std::string> top_;
  std::set<std::string> html_;
};

bool isReplacedFolder(const fs::path& entry) {
  return isFolder(entry) &&
         std::ranges::find(replacedFolders, nameOfEntry(entry)) != std::end(replacedFolders);
}

std::vector<fs::path> whatGoes(const fs::path& target) {
  auto entries = entriesOf(target);
  std::erase_if(entries,
                [](const fs::path& entry) { return isFolder(entry) && !isReplacedFolder(entry); });
  return entries;
}

void addStrangersBelow(const fs::path& folder, const KnownFiles& known,
                       std::vector<std::string>& strangers) {
  const std::string name = folder.filename().string();
  for (const fs::path& entry : entriesOf(folder))
    if (isFolder(entry) || !known.isIn(lowerCase(name), nameOfEntry(entry)))
      strangers.push_back(name + "/" + entry.filename().string());
}

/// The words of a page around its title, where the template has it.
bool bearsTitle(const std::string& page, const std::string& master, const std::string& title) {
  const auto at = master.find(tokens::title);
  if (at == std::string::npos || at == 0)
    return true;
  const auto lineStart = master.find_last_of("^\r\n", at - 1) + 1; // behind npos stands 0
  const auto end =
      std::min(master.find_first_of("^\r\n", at + tokens::title.size()), master.size());
  const auto behind = at + tokens::title.size();
  return page.find(master.substr(lineStart, at - lineStart) + title +
                   master.substr(behind, end - behind)) != std::string::npos;
}

/// One of these names somebody else may have given to a page; the two together are an export's,
/// also where it was broken off before the start page got its name.
bool hasPagesOfExport(const fs::path& target, const ExportNames& names) {
  const auto has = [&](const std::string& page) { return fileExists(exportFolder(target, page)); };
  return has(framePage) && (has(names.lcname + ".htm") || has(startPageOfTemplate));
}

/// The number of the album that has been there; nothing where its pages do not tell.
std::optional<std::int64_t> albumIn(const fs::path& target) {
  const fs::path html = exportFolder(target, "html");
  if (!isFolder(html))
    return std::nullopt;
  const fs::path script = exportFolder(html, "photos.js");
  return fileExists(script) ? albumOfScript(readWholeFile(script)) : std::nullopt;
}

/// Another album whose name gives the same folder has been there; it may have the same title too.
bool isOfAnotherAlbum(const fs::path& target, const fs::path& exportTemplate,
                      const ExportNames& names, std::int64_t albumId) {
  const fs::path startPage = exportFolder(target, names.lcname + ".htm");
  if (!fileExists(startPage))
    return false;
  const std::string page = readWholeFile(startPage);
  if (page.find(tokens::title) != std::string::npos)
    return false; // it was broken off
  const std::string master = readWholeFile(exportTemplate / startPageOfTemplate);
  return albumIn(target).value_or(albumId) != albumId || !bearsTitle(page, master, names.title);
}

void refuseReadOnlyFiles(const fs::path& target) {
  for (const fs::path& entry : whatGoes(target)) {
    std::error_code broken; // a link that leads nowhere has no status, and can be deleted
    const auto status = fs::status(entry, broken);
    if (fs::is_regular_file(status) &&
        (status.permissions() & fs::perms::owner_write) == fs::perms::none)
      throw RunTimeError("Cannot delete \"" + entry.string() + "\": it is marked as read-only.");
  }
}

} // namespace

fs::path templateFolder(const ApplicationFolder& folder) {
  return folder.path("\\export\\template");
}

bool hasTemplate(const ApplicationFolder& folder) {
  return std::ranges::any_of(entriesOf(templateFolder(folder)),
                             [](const fs::path& entry) { return fileExists(entry); });
}

fs::path exportFolder(const fs::path& base, const std::string& name) {
  std::error_code unknown;
  if (fs::exists(base / name, unknown))
    return base / name;
  for (const fs::path& entry : entriesOf(base))
    if (nameOfEntry(entry) == lowerCase(name))
      return entry;
  return base / name;
}

bool belongsToProgram(const ApplicationFolder& folder, const fs::path& target) {
  const fs::path root = resolved(folder.root());
  const fs::path exports = resolved(folder.path("\\export"));
  const fs::path place = resolved(target);
  if (isSameOrBelow(root, place) || place == exports)
    return true;
  if (!isSameOrBelow(place, exports))
    return isSameOrBelow(place, root);
  for (const char* own : {"template", "templates", "testing1"}) // the last has the designer's page
    if (lowerCase((*place.lexically_relative(exports).begin()).string()) == own)
      return true;
  return false;
}

std::vector<std::string> strangersIn(const fs::path& target, const fs::path& exportTemplate,
                                     const ExportNames& names, std::int64_t albumId) {
  const KnownFiles known(exportTemplate, names);
  std::vector<std::string> strangers;
  std::vector<std::string> all;
  for (const fs::path& entry : whatGoes(target)) {
    const bool isReplaced = isReplacedFolder(entry) && !isLink(entry);
    const bool isKnown = isReplaced || known.isAtTop(nameOfEntry(entry));
    all.push_back(entry.filename().string());
    if (!isKnown)
      strangers.push_back(all.back());
    if (isReplaced)
      addStrangersBelow(entry, known, strangers);
  }
  if (!hasPagesOfExport(target, names) || isOfAnotherAlbum(target, exportTemplate, names, albumId))
    return all;
  return strangers;
}

void clearExport(const fs::path& target) {
  refuseReadOnlyFiles(target);
  const auto entries = whatGoes(target);
  const auto remove = [](const fs::path& entry) {
    std::error_code error;
    fs::remove_all(entry, error); // of a link the link alone
    if (error)
      throwFileError("delete", entry, error.value());
  };
  // Folders first: the pages beside them tell that this is an export, should it be broken off.
  for (const fs::path& entry : entries)
    if (isReplacedFolder(entry))
      remove(entry);
  for (const fs::path& entry : entries)
    if (!isReplacedFolder(entry))
      remove(entry);
}

} // namespace hearthbook
