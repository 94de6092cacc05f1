#include "DesignedPage.h"

#include "Encode.h"
#include "ExportPages.h"
#include "FileError.h"
#include "Markup.h"
#include "PageDesign.h"
#include "PlainFile.h"
#include "Resample.h"
#include "RunTimeError.h"
#include "SafeFile.h"
#include "Words.h"

#include <algorithm>
#include <ostream>
#include <set>
#include <system_error>
#include <utility>
#include <vector>

namespace hearthbook {

namespace fs = std::filesystem;

namespace {

// What the designs say where the page is not from a box of theirs.
constexpr std::string_view backgroundTag = "Background";
constexpr std::string_view musicTag = "Music";

constexpr const char* pageName = "index.htm";
constexpr const char* backgroundName = "background";
constexpr const char* musicName = "music";

fs::path pageFolder(const ApplicationFolder& folder) { return folder.path("\\export\\testing1"); }

/// No sub-album is exported under a name with a dot.
fs::path workFolder(const ApplicationFolder& folder) {
  return folder.path("\\export\\testing1.new");
}

/// The files in a folder and in those within it, by their paths from there. Where it cannot be
/// read it ends early, with what it could not read and why.
struct Listing {
  std::vector<fs::path> files;
  fs::path unreadable;
  std::error_code error;
};

Listing listingOf(const fs::path& folder) {
  Listing listing{{}, folder, {}};
  fs::recursive_directory_iterator entry(folder, listing.error);
  for (const fs::recursive_directory_iterator end; !listing.error && entry != end;
       entry.increment(listing.error)) {
    listing.unreadable = entry->path();
    if (std::error_code broken; !fs::is_directory(entry->symlink_status(broken)))
      listing.files.push_back(entry->path().lexically_relative(folder));
  }
  return listing;
}

/// Everything that belongs to a design: a page with a part of it would be none.
std::vector<fs::path> filesOfDesign(const fs::path& design) {
  std::error_code notThere;
  const bool isThere = fs::exists(design, notThere);
  Listing listing = isThere ? listingOf(design) : Listing{};
  if (listing.error)
    throwFileError("read", listing.unreadable, listing.error.value());
  if (listing.files.empty())
    throw RunTimeError("The files of the design are not there: " + design.string());
  return listing.files;
}

void makeFolders(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (error)
    throwFileError("write", folder, error.value());
}

/// Where a page is put together, so that the one before stays as it is until this one is whole.
class Workplace {
public:
  explicit Workplace(fs::path folder) : folder_(std::move(folder)) {
    clear(); // a run may have been cut short
    makeFolders(folder_);
  }
  ~Workplace() { clear(); }
  Workplace(const Workplace&) = delete;
  Workplace& operator=(const Workplace&) = delete;

  [[nodiscard]] const fs::path& folder() const { return folder_; }

  /// The page itself goes last; what may fail goes first.
  void moveTo(const fs::path& target, const std::vector<fs::path>& files) const {
    for (const fs::path& file : files)
      makeFolders((target / file).parent_path());
    for (const fs::path& file : files)
      move(file, target);
    flushToDisk(target);
  }

private:
  void move(const fs::path& file, const fs::path& target) const {
    std::error_code error;
    fs::rename(folder_ / file, target / file, error);
    if (error)
      throwFileError("write", target / file, error.value());
  }
  void clear() const {
    std::error_code notThere;
    fs::remove_all(folder_, notThere);
  }

  fs::path folder_;
};

/// Under which names the family's own files go along.
bool isTakenAlong(const fs::path& file) {
  return file.parent_path().empty() && (file.stem() == backgroundName || file.stem() == musicName);
}

fs::path photoName(const std::string& tag) { return tag + ".jpg"; }

/// What pages of all designs consist of, but for the family's own files.
std::set<fs::path> filesOfPages(const ApplicationFolder& folder) {
  std::set<fs::path> ours;
  for (const PageDesign& design : pageDesigns()) {
    const Listing listing = listingOf(designFolder(folder, design.name));
    ours.insert(listing.files.begin(), listing.files.end());
    for (const DesignBox& box : design.boxes)
      ours.insert(photoName(box.tag));
  }
  return ours;
}

/// What a page of any design has left: files of the designs, photos, its background and its music.
void removeEarlierPage(const ApplicationFolder& folder, const fs::path& target,
                       const std::set<fs::path>& present) {
  const std::set<fs::path> ours = filesOfPages(folder);
  for (const fs::path& file : listingOf(target).files)
    if (!present.contains(file) && (ours.contains(file) || isTakenAlong(file)))
      deleteFile(target / file);
}

std::string replaced(const std::string& text, std::string_view tag, std::string_view value) {
  return withToken(text, "^^" + std::string(tag) + "^^", value);
}

/// Copies a file of the family's beside the page; tells its new name, none for no file.
std::string takeAlong(const fs::path& file, const char* name, const fs::path& work) {
  if (file.empty())
    return {};
  std::string taken = name + asciiLower(file.extension().string());
  copyFileSafely(file, work / taken);
  return taken;
}

void savePhoto(const DesignedPage::Photo& photo, const fs::path& work) {
  const Picture sized = resample(photo.picture, photo.size);
  replaceFile(work / photoName(photo.tag),
              [&](std::ostream& out) { writeJpeg(out, sized, photoFactor); });
}

/// All files of the design but the page itself, which says something only when its boxes are
/// filled.
std::vector<fs::path> copyDesign(const fs::path& design, const fs::path& work) {
  std::vector<fs::path> files = filesOfDesign(design);
  std::erase(files, pageName);
  for (const fs::path& file : files) {
    makeFolders((work / file).parent_path());
    copyFileSafely(design / file, work / file);
  }
  return files;
}

/// Puts the page together and tells its files, the page itself last.
std::vector<fs::path> makePage(const fs::path& design, const DesignedPage& page,
                               const fs::path& work) {
  std::vector<fs::path> files = copyDesign(design, work);
  std::string text = readWholeFile(design / pageName);
  for (const DesignedPage::Text& box : page.texts)
    text = replaced(text, box.tag, box.text);
  for (const DesignedPage::Photo& photo : page.photos) {
    savePhoto(photo, work);
    std::erase(files, photoName(photo.tag)); // the design's own picture
    files.push_back(photoName(photo.tag));
  }
  const auto goesAlong = [&](std::string_view tag, const fs::path& own, const char* name) {
    const std::string taken = takeAlong(own, name, work);
    text = replaced(text, tag, taken);
    if (!taken.empty())
      files.emplace_back(taken);
  };
  goesAlong(backgroundTag, page.background, backgroundName);
  goesAlong(musicTag, page.music.value_or(fs::path()), musicName);
  replaceFile(work / pageName, [&](std::ostream& out) { out << text; });
  files.emplace_back(pageName);
  return files;
}

} // namespace

fs::path designFolder(const ApplicationFolder& folder, std::string_view design) {
  return folder.path("\\export\\templates\\" + std::string(design));
}

fs::path paperPicture(const ApplicationFolder& folder) {
  return folder.path("\\media\\WaterMark2.gif");
}

fs::path designedPageFile(const ApplicationFolder& folder) { return pageFolder(folder) / pageName; }

std::vector<std::string> textsWithMarkup(const DesignedPage& page) {
  std::vector<std::string> texts;
  for (const DesignedPage::Text& box : page.texts)
    if (looksLikeMarkup(box.text))
      texts.push_back(box.text);
  return texts;
}

fs::path writeDesignedPage(const ApplicationFolder& folder, const DesignedPage& page) {
  const fs::path target = pageFolder(folder);
  const Workplace work(workFolder(folder));
  const auto files = makePage(designFolder(folder, page.design), page, work.folder());
  work.moveTo(target, files);
  removeEarlierPage(folder, target, {files.begin(), files.end()});
  return designedPageFile(folder);
}

} // namespace hearthbook
