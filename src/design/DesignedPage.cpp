#include "DesignedPage.h"

#include "Encode.h"
#include "ExportPages.h"
#include "PageDesign.h"
#include "Resample.h"
#include "RunTimeError.h"
#include "SafeFile.h"
#include "Words.h"

#include <fstream>
#include <iterator>
#include <ostream>
#include <set>

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

std::vector<fs::path> filesOf(const fs::path& design) {
  std::vector<fs::path> files;
  std::error_code error;
  for (fs::recursive_directory_iterator entry(design, error), end; !error && entry != end;
       entry.increment(error))
    if (entry->is_regular_file())
      files.push_back(entry->path().lexically_relative(design));
  return files;
}

/// Under which names the family's own files go along.
bool isTakenAlong(const fs::path& file) {
  return file.parent_path().empty() && (file.stem() == backgroundName || file.stem() == musicName);
}

/// What a page of any design has left: files of the designs, its background and its music.
void removeEarlierPage(const ApplicationFolder& folder, const fs::path& target,
                       const std::set<fs::path>& present) {
  std::set<fs::path> ours;
  for (const PageDesign& design : pageDesigns())
    for (const fs::path& file : filesOf(designFolder(folder, design.name)))
      ours.insert(file);
  for (const fs::path& file : filesOf(target))
    if (!present.contains(file) && (ours.contains(file) || isTakenAlong(file)))
      deleteFile(target / file);
}

/// All but the page itself, which says something only when its boxes are filled.
std::set<fs::path> copyDesign(const fs::path& design, const fs::path& target) {
  const auto files = filesOf(design);
  if (files.empty())
    throw RunTimeError("The files of the design are not there: " + design.string());
  for (const fs::path& file : files) {
    fs::create_directories((target / file).parent_path());
    if (file != pageName)
      copyFileSafely(design / file, target / file);
  }
  return {files.begin(), files.end()};
}

std::string readWhole(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::string text{std::istreambuf_iterator<char>(in), {}};
  if (in.bad() || !in.is_open())
    throw RunTimeError("Cannot read the file " + file.string());
  return text;
}

std::string replaced(const std::string& text, std::string_view tag, std::string_view value) {
  return withToken(text, "^^" + std::string(tag) + "^^", value);
}

/// Copies a file of the family's beside the page, if it is not that of the page before; tells its
/// new name.
std::string takeAlong(const fs::path& file, const char* name, const fs::path& target) {
  std::string taken = name + asciiLower(file.extension().string());
  std::error_code notThere;
  if (!fs::equivalent(file, target / taken, notThere))
    copyFileSafely(file, target / taken);
  return taken;
}

void savePhoto(const DesignedPage::Photo& photo, const fs::path& target) {
  const Picture sized = resample(photo.picture, photo.size);
  replaceFile(target / (photo.tag + ".jpg"),
              [&](std::ostream& out) { writeJpeg(out, sized, photoFactor); });
}

} // namespace

fs::path designFolder(const ApplicationFolder& folder, std::string_view design) {
  return folder.path("\\export\\templates\\" + std::string(design));
}

fs::path paperPicture(const ApplicationFolder& folder) {
  return folder.path("\\media\\WaterMark2.gif");
}

fs::path writeDesignedPage(const ApplicationFolder& folder, const DesignedPage& page) {
  const fs::path target = pageFolder(folder);
  std::set<fs::path> written = copyDesign(designFolder(folder, page.design), target);
  std::string text = readWhole(designFolder(folder, page.design) / pageName);
  for (const DesignedPage::Text& box : page.texts)
    text = replaced(text, box.tag, box.text);
  for (const DesignedPage::Photo& photo : page.photos)
    savePhoto(photo, target);
  const auto goesAlong = [&](std::string_view tag, const fs::path& own, const char* name) {
    const std::string taken = own.empty() ? std::string() : takeAlong(own, name, target);
    text = replaced(text, tag, taken);
    written.insert(taken);
  };
  goesAlong(backgroundTag, fileExists(page.background) ? page.background : fs::path(),
            backgroundName);
  goesAlong(musicTag, page.music.value_or(fs::path()), musicName);
  fs::path file = target / pageName;
  replaceFile(file, [&](std::ostream& out) { out << text; });
  removeEarlierPage(folder, target, written);
  return file;
}

} // namespace hearthbook
