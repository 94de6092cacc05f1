#include "AddPhotos.h"

#include "PhotoIdentity.h"
#include "PhotoWriter.h"
#include "PhotosAhead.h"
#include "PreparedPhoto.h"
#include "Ready.h"
#include "Resample.h"
#include "ThumbnailSize.h"

#include <deque>
#include <future>
#include <string>
#include <system_error>

namespace hearthbook {

namespace fs = std::filesystem;

namespace {

std::deque<fs::path> selectedOf(const AddPhotosRequest& request) {
  std::deque<fs::path> sources;
  for (std::size_t i = 0; i < request.list.size(); ++i)
    if (request.selected.at(i))
      sources.push_back(request.list[i]);
  return sources;
}

Picture thumbnailOf(const Picture& picture) {
  return picture.isNull() ? picture : resample(picture, thumbnailSize(picture.size()));
}

class PhotoAdder {
public:
  PhotoAdder(Album& album, WorkPool& pool, const AddPhotosRequest& request,
             const AddPhotosListener& listener)
      : album_(album), request_(request), listener_(listener), held_(thumbnailOf(request.preview)),
        ahead_(pool, disk_, album.folder.path("\\Photos"), selectedOf(request), request.reduce,
               listener.wake) {}

  int run();

private:
  void add(const fs::path& source);
  std::vector<std::exception_ptr> addRow();
  void beginWriting(PhotoWriteOrder order);
  void finishWriting();
  [[nodiscard]] bool hasRow(const std::string& id) const;
  [[nodiscard]] bool isFileOfTheAlbum(const fs::path& source) const;
  [[nodiscard]] bool mayRemove(const fs::path& source) const;
  void load(const PreparedPhoto& photo);
  [[nodiscard]] PhotoWriteOrder orderFor(const fs::path& source,
                                         std::shared_ptr<const PreparedPhoto> photo) const;
  void tell(const PhotoWriter::Outcome& outcome);

  [[nodiscard]] fs::path inAlbum(const std::string& folder, const std::string& stem) const {
    return album_.folder.path("\\" + folder + "\\" + stem + ".jpg");
  }

  template <class Step> void step(Step work);
  void failed(const std::exception_ptr& failure);
  template <class Answer> Answer await(std::future<Answer> answer);

  Album& album_;
  const AddPhotosRequest& request_;
  const AddPhotosListener& listener_;
  fs::path source_;  ///< the file at work
  std::string id_;   ///< and its photo
  Picture held_;     ///< the picture at hand, at the size of a thumbnail
  WorkPool disk_{2}; ///< so that waiting for the disk takes no thread from the decoding
  PhotosAhead ahead_;
  std::future<PhotoWriter::Outcome> writing_; ///< the files of `source_`
};

int PhotoAdder::run() {
  int added = 0;
  for (std::size_t i = 0; i < request_.list.size(); ++i) {
    if (listener_.atIndex)
      listener_.atIndex(static_cast<int>(i));
    if (!request_.selected[i])
      continue;
    add(request_.list[i]);
    ++added;
  }
  finishWriting();
  return added;
}

/// The row is stored while the disk is still busy with the files of the photo before; what went
/// wrong is told in the order of the files all the same.
void PhotoAdder::add(const fs::path& source) {
  auto ahead = ahead_.next();
  const auto failures = addRow();
  finishWriting();
  source_ = source;
  for (const auto& failure : failures)
    failed(failure);
  const auto photo = std::make_shared<const PreparedPhoto>(await(std::move(ahead.prepared)));
  step([&] { load(*photo); });
  auto order = orderFor(source, photo);
  if (ahead.copy.valid())
    order.early = await(std::move(ahead.copy));
  if (request_.move)
    step([&] { order.remove = mayRemove(source); });
  beginWriting(std::move(order));
}

std::vector<std::exception_ptr> PhotoAdder::addRow() {
  std::vector<std::exception_ptr> failures;
  try {
    album_.vars.NextPhotoNumber = nextPhotoNumber(album_.data.rsPhotoAlbum);
  } catch (...) {
    failures.push_back(std::current_exception());
  }
  id_ = hardDiskId(album_.vars.NextPhotoNumber);
  try {
    album_.data.rsPhotoAlbum.AddNew({"PictureID"}, {Value(id_)});
  } catch (...) {
    failures.push_back(std::current_exception());
  }
  return failures;
}

void PhotoAdder::beginWriting(PhotoWriteOrder order) {
  writing_ = disk_.run([order = std::move(order)] { return PhotoWriter(order).run(); },
                       listener_.wake, true);
}

void PhotoAdder::finishWriting() {
  if (writing_.valid())
    tell(await(std::move(writing_)));
}

bool PhotoAdder::hasRow(const std::string& id) const {
  const auto rows = album_.data.rsPhotoAlbum.Clone();
  rows->Find("PictureID = '" + id + "'", Recordset::Start::First);
  return !rows->atEOF();
}

/// The photo or the thumbnail of a row, chosen from the album's own folders.
bool PhotoAdder::isFileOfTheAlbum(const fs::path& source) const {
  const std::string stem = source.stem().string();
  if (stem.find_first_not_of("0123456789") != std::string::npos)
    return false;
  std::error_code missing;
  return (fs::equivalent(source, inAlbum("Photos", stem), missing) ||
          fs::equivalent(source, inAlbum("Thumbnails", stem), missing)) &&
         hasRow("HD" + stem);
}

bool PhotoAdder::mayRemove(const fs::path& source) const {
  return !isFileOfTheAlbum(source) && hasRow(id_);
}

void PhotoAdder::load(const PreparedPhoto& photo) {
  if (photo.loadFailure)
    std::rethrow_exception(photo.loadFailure);
  held_ = photo.thumbnail;
  if (listener_.showing)
    listener_.showing(photo.preview);
}

PhotoWriteOrder PhotoAdder::orderFor(const fs::path& source,
                                     std::shared_ptr<const PreparedPhoto> photo) const {
  const std::string stem = stemOf(id_);
  PhotoWriteOrder order;
  order.source = source;
  order.photo = inAlbum("Photos", stem);
  order.thumbnail = inAlbum("Thumbnails", stem);
  order.backup = album_.folder.path("\\Backup");
  order.prepared = std::move(photo);
  order.held = held_;
  order.reduce = request_.reduce;
  return order;
}

void PhotoAdder::tell(const PhotoWriter::Outcome& outcome) {
  for (const auto& kept : outcome.kept)
    if (listener_.kept)
      listener_.kept(kept.original, kept.keptAs);
  for (const auto& failure : outcome.failures)
    failed(failure);
}

template <class Step> void PhotoAdder::step(Step work) {
  try {
    work();
  } catch (...) {
    failed(std::current_exception());
  }
}

void PhotoAdder::failed(const std::exception_ptr& failure) {
  if (!listener_.failed)
    return;
  try {
    std::rethrow_exception(failure);
  } catch (const std::exception& error) {
    listener_.failed(source_, error);
  }
}

template <class Answer> Answer PhotoAdder::await(std::future<Answer> answer) {
  if (listener_.wait)
    listener_.wait([&] { return isReady(answer); });
  return answer.get();
}

} // namespace

int addPhotos(Album& album, WorkPool& pool, const AddPhotosRequest& request,
              const AddPhotosListener& listener) {
  return PhotoAdder(album, pool, request, listener).run();
}

} // namespace hearthbook
