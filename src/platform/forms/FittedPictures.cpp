#include "FittedPictures.h"

#include "Beside.h"

#include <utility>

namespace hearthbook {

namespace {

constexpr std::size_t mostHeads = 5000; // then all are forgotten

} // namespace

struct FittedPictures::Request {
  std::filesystem::path file;
  Fit fit;
  Callback callback;
  std::string error{};
  PictureLoader::Ticket ticket{};
};

FittedPictures::FittedPictures(PictureLoader& loader, WorkPool& pool, std::filesystem::path standIn)
    : loader_(loader), pool_(pool), standIn_(std::move(standIn)) {}

FittedPictures::~FittedPictures() = default;

/// The stamp is taken first: a file that changes meanwhile has another one afterwards.
FittedPictures::ReadHead FittedPictures::readHead(const std::filesystem::path& file) {
  const auto stamp = stampOf(file);
  try {
    const PixelSize size = readPictureInfo(file).size;
    return {file, stamp ? std::optional(Head{*stamp, size}) : std::nullopt, {}};
  } catch (const std::exception& failure) {
    return {file, std::nullopt, failure.what()};
  }
}

std::optional<PixelSize> FittedPictures::knownSize(const std::filesystem::path& file) const {
  const auto found = heads_.find(file);
  if (found == heads_.end() || stampOf(file) != found->second.stamp)
    return std::nullopt;
  return found->second.size;
}

void FittedPictures::remember(const ReadHead& read) {
  if (!read.head)
    return;
  if (heads_.size() >= mostHeads)
    heads_.clear();
  heads_.insert_or_assign(read.file, *read.head);
}

FittedPictures::Ticket FittedPictures::load(const std::filesystem::path& file, Fit fit,
                                            Callback callback) {
  auto request = std::make_shared<Request>(Request{file, std::move(fit), std::move(callback)});
  begin(request);
  return request;
}

void FittedPictures::begin(const std::shared_ptr<Request>& request) {
  if (const auto size = knownSize(request->file))
    return start(request, *size);
  runBeside(
      pool_, this, [file = request->file] { return readHead(file); },
      [this, asked = std::weak_ptr(request)](const ReadHead& read) { headRead(asked, read); },
      true);
}

void FittedPictures::headRead(const std::weak_ptr<Request>& asked, const ReadHead& read) {
  remember(read);
  const auto request = asked.lock();
  if (!request)
    return;
  if (read.head)
    start(request, read.head->size);
  else
    fail(request, read.error.empty() ? read.file.string() : read.error);
}

/// What stands in may be broken itself: then there is nothing to show.
void FittedPictures::fail(const std::shared_ptr<Request>& request, const std::string& why) {
  if (request->error.empty())
    request->error = why;
  if (standIn_.empty() || request->file == standIn_)
    return request->callback({.file = request->file, .error = request->error});
  request->file = standIn_;
  begin(request);
}

void FittedPictures::start(const std::shared_ptr<Request>& request, PixelSize size) {
  request->ticket =
      loader_.load(request->file, request->fit(size),
                   [this, asked = std::weak_ptr(request)](const PictureLoader::Loaded& loaded) {
                     const auto waiting = asked.lock();
                     if (!waiting)
                       return;
                     if (loaded.decoded.picture.isNull())
                       return fail(waiting, loaded.error);
                     waiting->callback({waiting->file, loaded.decoded.fullSize,
                                        loaded.decoded.picture, waiting->error});
                   });
}

void FittedPictures::decodeAhead(const std::vector<std::filesystem::path>& files, const Fit& fit) {
  std::vector<Wish> wishes;
  wishes.reserve(files.size());
  for (const auto& file : files)
    wishes.push_back({file, fit});
  decodeAhead(std::move(wishes));
}

void FittedPictures::decodeAhead(std::vector<Wish> wishes) {
  std::vector<std::filesystem::path> unknown;
  for (const Wish& wish : wishes)
    if (!knownSize(wish.file))
      unknown.push_back(wish.file);
  const int number = ++wishes_;
  if (unknown.empty())
    return beginAhead(wishes);
  const auto readAll = [unknown] {
    std::vector<ReadHead> heads;
    heads.reserve(unknown.size());
    for (const auto& file : unknown)
      heads.push_back(readHead(file));
    return heads;
  };
  runBeside(pool_, this, readAll,
            [this, number, wishes = std::move(wishes)](const std::vector<ReadHead>& heads) {
              for (const ReadHead& head : heads)
                remember(head);
              if (number == wishes_)
                beginAhead(wishes);
            });
}

void FittedPictures::beginAhead(const std::vector<Wish>& wishes) {
  std::vector<PictureWish> sized;
  for (const Wish& wish : wishes)
    if (const auto size = knownSize(wish.file))
      sized.push_back({wish.file, wish.fit(*size)});
  loader_.decodeAhead(sized);
}

} // namespace hearthbook
