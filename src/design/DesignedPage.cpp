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

/// What a page of any design may have left: the files of all designs, backgrounds and music.
void removeEarlierPage(const ApplicationFolder& folder, const fs::path& target) {
  std::set<fs::path> ours;
  for (const PageDesign& design : pageDesigns())
    for (const fs::path& file : filesOf(designFolder(folder, design.name)))
      ours.insert(file);
  for (const fs::path& file : filesOf(target))
    if (ours.contains(file) || file.stem() == "background" || file.stem() == "music")
      deleteFile(target / file);
}

void copyDesign(const fs::path& design, const fs::path& target) {
  const auto files = filesOf(design);
  if (files.empty())
    throw RunTimeError("The files of the design are not there: " + design.string());
  for (const fs::path& file : files) {
    fs::create_directories((target / file).parent_path());
    copyFileSafely(design / file, target / file);
  }
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

/// Copies a file of the family's beside the page; tells its new name.
std::string takeAlong(const fs::path& file, const char* name, const fs::path& target) {
  std::string taken = name + asciiLower(file.extension().string());
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
  removeEarlierPage(folder, target);
  copyDesign(designFolder(folder, page.design), target);
  fs::path file = target / "index.htm";
  std::string text = readWhole(file);
  for (const DesignedPage::Text& box : page.texts)
    text = replaced(text, box.tag, box.text);
  for (const DesignedPage::Photo& photo : page.photos)
    savePhoto(photo, target);
  text = replaced(text, backgroundTag,
                  fileExists(page.background) ? takeAlong(page.background, "background", target)
                                              : std::string());
  text = replaced(text, musicTag,
                  page.music ? takeAlong(*page.music, "music", target) : std::string());
  replaceFile(file, [&](std::ostream& out) { out << text; });
  return file;
}

} // namespace hearthbook
