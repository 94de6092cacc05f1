#include "AlbumExport.h"

#include "AudioFiles.h"
#include "ExportPages.h"
#include "ExportRows.h"
#include "ExportTarget.h"
#include "FileBrowser.h"
#include "FileError.h"
#include "Markup.h"
#include "PhotoExport.h"
#include "PhotoFiles.h"
#include "PhotoIdentity.h"
#include "PhotoScript.h"
#include "PlainFile.h"
#include "Ready.h"
#include "SoundShelf.h"

#include <chrono>
#include <deque>
#include <future>
#include <sstream>

namespace hearthbook {

namespace fs = std::filesystem;

namespace {

/// The folders from which the photos of one origin and their sounds come.
struct PhotoPlaces {
  fs::path photos;
  fs::path thumbnails;
};

/// Where all that goes out is found. Reading the folders may wait for a disc.
struct ExportSources {
  explicit ExportSources(const Album& album)
      : drives(album.drives.enumerate()),
        disc(findPhotoDrive(drives)), hardDisk{album.folder.path("\\Photos"),
                                               album.folder.path("\\thumbnails")},
        onDisc{realPath(drives, disc + ":\\Photos"), realPath(drives, disc + ":\\thumbnails")},
        sounds(album.folder.path("\\Audio")), soundsOnDisc(realPath(drives, disc + ":\\Audio")) {}

  [[nodiscard]] const PhotoPlaces& placesOf(std::string_view pictureId) const {
    return originOf(pictureId) == PhotoOrigin::HardDisk ? hardDisk : onDisc;
  }
  [[nodiscard]] std::optional<fs::path> soundOf(std::string_view owner) const {
    auto sound = sounds.find(owner);
    return sound ? sound : soundsOnDisc.find(owner);
  }

  std::vector<Drive> drives;
  std::string disc;
  PhotoPlaces hardDisk;
  PhotoPlaces onDisc;
  SoundShelf sounds;
  SoundShelf soundsOnDisc;
};

/// A name that no page of the template has already.
ExportNames freeNames(const ExportRequest& request, const fs::path& exportTemplate) {
  ExportNames names = exportNames(request.albumName, request.albumId);
  while (names.lcname != "master" &&
         fileExists(exportFolder(exportTemplate, names.lcname + ".htm")))
    names = renamed(names, names.name + "_");
  return names;
}

class AlbumExporter {
public:
  AlbumExporter(const Album& album, WorkPool& pool, const ExportRequest& request,
                const ExportListener& listener)
      : album_(album), pool_(pool), request_(request), listener_(listener),
        optimization_(optimizations()[request.optimization]),
        template_(templateFolder(album.folder)), names_(freeNames(request, template_)),
        target_(exportFolder(request.base, names_.name)), rows_(album.folder, request.albumId) {}
  ~AlbumExporter() {
    for (const auto& photo : inWork_)
      photo.result.wait();
  }
  AlbumExporter(const AlbumExporter&) = delete;
  AlbumExporter& operator=(const AlbumExporter&) = delete;

  std::optional<ExportOutcome> run();

private:
  struct PhotoInWork {
    SidePage page;
    std::string file;
    bool isShown;
    std::future<ExportedPhoto> result;
  };

  void refuse() const;
  [[nodiscard]] bool mayReplace();
  void noteUnreadableSounds();
  void prepareTree();
  void copyMusic();
  void writePageCount() const;
  void exportPhotos();
  void beginPhoto();
  void finishPhoto();
  void note(PhotoInWork photo, const ExportedPhoto& exported);
  [[nodiscard]] PhotoExportOrder orderFor(SidePage& page, const std::string& pictureId);
  [[nodiscard]] bool wantsPreview() const;
  std::string sidePage(const SidePage& page) const;
  [[nodiscard]] std::string musicFile(const fs::path& sound) const;
  void writeStartPage() const;
  void writePhotoScript() const;
  void writeAutorunFile() const;
  [[nodiscard]] bool isOnStick() const;

  [[nodiscard]] fs::path startPage() const { return target_ / (names_.lcname + ".htm"); }

  template <class Work> auto beside(Work work) {
    auto answer = pool_.run(std::move(work), listener_.wake, true);
    await(answer);
    return answer.get();
  }
  template <class Answer> void await(std::future<Answer>& answer) const {
    if (listener_.wait)
      listener_.wait([&] { return isReady(answer); });
    answer.wait();
  }

  const Album& album_;
  WorkPool& pool_;
  const ExportRequest& request_;
  const ExportListener& listener_;
  const Optimization& optimization_;
  fs::path template_;
  ExportNames names_;
  fs::path target_;
  ExportRows rows_;
  NameOfPerson nameOf_ = [this](std::int64_t id) { return rows_.nameOfPerson(id); };
  PhotoScript script_;
  std::string music_; ///< in the folder audio
  bool musicIsFromDisc_ = false;
  std::optional<ExportSources> sources_;
  std::deque<PhotoInWork> inWork_;
  std::chrono::steady_clock::time_point lastShown_;
  ExportOutcome outcome_;
};

std::optional<ExportOutcome> AlbumExporter::run() {
  refuse();
  sources_.emplace(beside([this] { return ExportSources(album_); }));
  if (!mayReplace())
    return std::nullopt;
  noteUnreadableSounds();
  beside([this] {
    prepareTree();
    return 0;
  });
  exportPhotos();
  writePhotoScript();
  writeStartPage();
  writeAutorunFile();
  if (isOnStick())
    beside([this] {
      flushWholeDisk(target_);
      return 0;
    });
  outcome_.name = names_.name;
  outcome_.folder = target_;
  outcome_.startPage = startPage();
  return std::move(outcome_);
}

void AlbumExporter::refuse() const {
  if (!hasTemplate(album_.folder))
    throw RunTimeError(noExportSource);
  if (belongsToProgram(album_.folder, target_))
    throw RunTimeError("An album cannot be exported to \"" + target_.string() +
                       "\": the folder belongs to the program. Please select another one.");
}

bool AlbumExporter::mayReplace() {
  const auto strangers =
      beside([this] { return strangersIn(target_, template_, names_, request_.albumId); });
  return strangers.empty() || (listener_.mayDelete && listener_.mayDelete(target_, strangers));
}

/// Otherwise it would look as if the album had no sounds.
void AlbumExporter::noteUnreadableSounds() {
  for (const SoundShelf* shelf : {&sources_->sounds, &sources_->soundsOnDisc})
    if (shelf->isUnreadable())
      outcome_.troubles.push_back(
          {shelf->folder().string(), "is the folder of the sounds and could not be read"});
}

void AlbumExporter::prepareTree() {
  clearExport(target_);
  copyPlainTree(template_, target_);
  for (const char* folder : {"data", "audio"})
    makePlainFolder(target_ / folder);
  std::error_code error;
  fs::rename(target_ / "master.htm", startPage(), error);
  if (error)
    throwFileError("write", startPage(), error.value());
  copyMusic();
  writePageCount();
}

/// Of no more weight than a photo: where it cannot be read the album goes out without.
void AlbumExporter::copyMusic() {
  const std::string owner = albumAudioName(request_.albumId);
  const auto sound = sources_->soundOf(owner);
  if (!sound)
    return;
  musicIsFromDisc_ = !sources_->sounds.find(owner);
  try {
    copyPlainFile(*sound, target_ / "audio" / musicFile(*sound));
    music_ = musicFile(*sound);
  } catch (const UnreadableFile&) {
    outcome_.troubles.push_back(
        {sound->filename().string(), "is the sound of the album and could not be read"});
  }
}

std::string AlbumExporter::musicFile(const fs::path& sound) const {
  return names_.name + soundExtension(sound);
}

void AlbumExporter::writePageCount() const {
  const fs::path page = target_ / "html" / "rightctrl.htm";
  writePlainFile(page,
                 withToken(readWholeFile(page), tokens::pageCount, std::to_string(rows_.count())));
}

/// As many photos are at work as keep the pool busy, so that an album of thousands takes no more
/// memory than a small one.
void AlbumExporter::exportPhotos() {
  const auto most = 2 * static_cast<std::size_t>(pool_.threads());
  while (!rows_.atEnd() || !inWork_.empty()) {
    while (!rows_.atEnd() && inWork_.size() < most)
      beginPhoto();
    finishPhoto();
  }
}

void AlbumExporter::beginPhoto() {
  const std::string id = rows_.pictureId();
  SidePage page = rows_.page();
  auto order = orderFor(page, id);
  const bool isShown = optimization_.limits || order.previewSide > 0;
  inWork_.push_back(
      {std::move(page), stemOf(id) + ".jpg", isShown,
       pool_.run([order = std::move(order)] { return exportPhoto(order); }, listener_.wake)});
  rows_.moveNext();
}

PhotoExportOrder AlbumExporter::orderFor(SidePage& page, const std::string& pictureId) {
  const std::string file = stemOf(pictureId) + ".jpg";
  const PhotoPlaces& places = sources_->placesOf(pictureId);
  PhotoExportOrder order;
  order.number = page.number;
  order.onDisc = originOf(pictureId) != PhotoOrigin::HardDisk;
  order.photo = places.photos / file;
  order.thumbnail = places.thumbnails / file;
  order.sound = sources_->soundOf(photoAudioName(pictureId));
  order.target = target_;
  order.limits = optimization_.limits;
  order.factor = optimization_.factor;
  order.previewSide = wantsPreview() ? request_.previewSide : 0;
  order.page = sidePage(page);
  if (order.sound) {
    page.soundExtension = soundExtension(*order.sound);
    order.pageWithSound = sidePage(page);
  }
  return order;
}

/// To decode a photo takes far longer than to copy it: one now and then is enough to look at.
bool AlbumExporter::wantsPreview() const {
  constexpr auto lookingTime = std::chrono::milliseconds(400);
  for (const auto& photo : inWork_)
    if (photo.isShown)
      return false;
  return std::chrono::steady_clock::now() - lastShown_ >= lookingTime;
}

std::string AlbumExporter::sidePage(const SidePage& page) const {
  std::ostringstream text;
  writeSidePage(text, page, nameOf_);
  return markedAsUtf8(std::move(text).str());
}

void AlbumExporter::finishPhoto() {
  auto& photo = inWork_.front();
  if (listener_.atPhoto)
    listener_.atPhoto(photo.page.number, rows_.count(), photo.file);
  await(photo.result);
  auto done = std::move(photo);
  inWork_.pop_front();
  const ExportedPhoto exported = done.result.get();
  note(std::move(done), exported);
  if (exported.shown.isNull() || !listener_.showing)
    return;
  listener_.showing(exported.shown);
  lastShown_ = std::chrono::steady_clock::now();
}

void AlbumExporter::note(PhotoInWork photo, const ExportedPhoto& exported) {
  for (const std::string& trouble : exported.troubles)
    outcome_.troubles.push_back({photo.file, trouble});
  if (!exported.hasPage)
    return;
  outcome_.markups += looksLikeMarkup(photo.page, nameOf_);
  if (!exported.hasSound)
    photo.page.soundExtension.clear();
  script_.add(photo.page, nameOf_);
}

/// In a template that has it: pages of another make can do without.
void AlbumExporter::writePhotoScript() const {
  const fs::path script = target_ / "html" / "photos.js";
  if (fileExists(script))
    writePlainFile(script, markedAsUtf8(script_.text({request_.albumId, rows_.count(), music_})));
}

void AlbumExporter::writeStartPage() const {
  std::ostringstream thumbnails;
  writeThumbnailTable(thumbnails, rows_.count());
  std::string page = readWholeFile(startPage());
  page = withToken(page, tokens::thumbnails, thumbnails.view());
  page = withToken(page, tokens::title, names_.title);
  if (!music_.empty() && !musicIsFromDisc_)
    page = withToken(page, tokens::audio, music_);
  writePlainFile(startPage(), markedAsUtf8(std::move(page)));
}

void AlbumExporter::writeAutorunFile() const {
  std::ostringstream text;
  writeAutorun(text, names_.name);
  writePlainFile(target_ / "Autorun.inf", text.view());
}

/// It may be pulled out as soon as the family reads that all is done.
bool AlbumExporter::isOnStick() const {
  const auto drive = driveOf(sources_->drives, target_);
  return drive && sources_->drives[*drive].type == Drive::Type::Removable;
}

} // namespace

std::optional<ExportOutcome> exportSubAlbum(const Album& album, WorkPool& pool,
                                            const ExportRequest& request,
                                            const ExportListener& listener) {
  return AlbumExporter(album, pool, request, listener).run();
}

} // namespace hearthbook
