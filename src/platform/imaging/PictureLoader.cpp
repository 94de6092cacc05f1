#include "PictureLoader.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>

namespace hearthbook {

namespace {

PictureLoader::Loaded decodeWish(const PictureWish& wish) {
  try {
    return {decodePictureAt(wish.file, wish.size), {}};
  } catch (const std::exception& error) {
    return {{}, error.what()};
  }
}

} // namespace

/// Shared with the work on the pool, which may outlive the loader.
struct PictureLoader::Impl : std::enable_shared_from_this<PictureLoader::Impl> {
  /// Somebody who asked, for as long as his ticket lives. Tickets end on the album's thread, the
  /// one on which callbacks run, so that a living ticket stays alive through its callback.
  struct Waiter {
    std::weak_ptr<void> alive;
    Callback callback;
  };
  using Job = std::vector<Waiter>; ///< empty where the picture is only wished

  static void tell(const Job& waiters, const Loaded& loaded);
  static bool anyoneWaits(const Job& waiters);

  Impl(WorkPool& workPool, Deliver deliverTo, PictureCache::Room cacheRoom)
      : pool(workPool), deliver(std::move(deliverTo)), room(cacheRoom), cache(cacheRoom) {}

  void close();
  std::optional<Loaded> ready(const PictureWish& wish);
  void ask(const PictureWish& wish, Waiter waiter);
  void keepWhatFits(std::deque<PictureWish>& wanted) const;
  void wishFor(std::deque<PictureWish> newWishes);
  void loadNow(const PictureWish& wish);
  void fulfilWishes();
  std::optional<PictureWish> nextWish();
  void decodeJob(const PictureWish& wish);
  void finish(const PictureWish& wish, const std::optional<FileStamp>& stamp, Loaded loaded);
  void handOver(Job waiters, Loaded loaded);

  WorkPool& pool;
  const Deliver deliver;
  const PictureCache::Room room;

  std::mutex mutex;
  std::condition_variable delivered;
  PictureCache cache;
  std::map<PictureWish, Job> jobs; ///< asked for or being decoded
  std::deque<PictureWish> wishes;
  int wishRunners = 0;
  int deliveries = 0; ///< calls of `deliver` under way
  bool closed = false;
};

void PictureLoader::Impl::tell(const Job& waiters, const Loaded& loaded) {
  for (const Waiter& waiter : waiters)
    if (const auto alive = waiter.alive.lock())
      waiter.callback(loaded);
}

bool PictureLoader::Impl::anyoneWaits(const Job& waiters) {
  return std::any_of(waiters.begin(), waiters.end(),
                     [](const Waiter& waiter) { return !waiter.alive.expired(); });
}

/// Callbacks are let go on this thread, which is the album's.
void PictureLoader::Impl::close() {
  std::map<PictureWish, Job> dropped;
  std::unique_lock lock(mutex);
  closed = true;
  dropped.swap(jobs);
  wishes.clear();
  delivered.wait(lock, [&] { return deliveries == 0; });
}

std::optional<PictureLoader::Loaded> PictureLoader::Impl::ready(const PictureWish& wish) {
  const auto stamp = stampOf(wish.file);
  if (!stamp)
    return {};
  const std::lock_guard lock(mutex);
  const Decoded* decoded = cache.find(wish, *stamp);
  if (!decoded)
    return {};
  return Loaded{*decoded, {}};
}

void PictureLoader::Impl::ask(const PictureWish& wish, Waiter waiter) {
  const std::lock_guard lock(mutex);
  const auto [job, isNew] = jobs.try_emplace(wish);
  job->second.push_back(std::move(waiter));
  if (isNew)
    pool.post([self = shared_from_this(), wish] { self->loadNow(wish); }, true);
}

/// A wish too many would only drive the likelier ones out again.
void PictureLoader::Impl::keepWhatFits(std::deque<PictureWish>& wanted) const {
  std::size_t bytes = 0;
  std::size_t count = 0;
  for (; count < std::min(wanted.size(), room.pictures); ++count) {
    bytes += decodedBytes(wanted[count].size);
    if (bytes > room.bytes)
      break;
  }
  wanted.resize(count);
}

void PictureLoader::Impl::wishFor(std::deque<PictureWish> newWishes) {
  keepWhatFits(newWishes);
  const std::lock_guard lock(mutex);
  wishes = std::move(newWishes);
  // One thread is left to what is asked for.
  const int most = std::max(1, pool.threads() - 1);
  while (wishRunners < most && wishRunners < static_cast<int>(wishes.size())) {
    ++wishRunners;
    pool.post([self = shared_from_this()] { self->fulfilWishes(); });
  }
}

void PictureLoader::Impl::loadNow(const PictureWish& wish) {
  Job tooLate;
  {
    const std::lock_guard lock(mutex);
    const auto job = jobs.find(wish);
    if (job == jobs.end())
      return;
    if (!anyoneWaits(job->second)) {
      tooLate.swap(job->second);
      jobs.erase(job);
    }
  }
  if (tooLate.empty())
    decodeJob(wish);
  else
    handOver(std::move(tooLate), {}); // for their callbacks to be let go where they belong
}

/// One wish, then the pool's turn again, so that what is asked for is not kept waiting.
void PictureLoader::Impl::fulfilWishes() {
  if (const auto wish = nextWish())
    decodeJob(*wish);
  const std::lock_guard lock(mutex);
  if (wishes.empty() || closed)
    --wishRunners;
  else
    pool.post([self = shared_from_this()] { self->fulfilWishes(); });
}

std::optional<PictureWish> PictureLoader::Impl::nextWish() {
  while (true) {
    std::unique_lock lock(mutex);
    if (closed || wishes.empty())
      return {};
    PictureWish wish = std::move(wishes.front());
    wishes.pop_front();
    if (jobs.contains(wish))
      continue;
    lock.unlock();
    const bool here = ready(wish).has_value();
    lock.lock();
    if (!here && !closed && jobs.try_emplace(wish).second)
      return wish;
  }
}

void PictureLoader::Impl::decodeJob(const PictureWish& wish) {
  const auto stamp = stampOf(wish.file);
  auto loaded = decodeWish(wish);
  finish(wish, stamp, std::move(loaded));
}

void PictureLoader::Impl::finish(const PictureWish& wish, const std::optional<FileStamp>& stamp,
                                 Loaded loaded) {
  const bool unchanged = stamp && stampOf(wish.file) == stamp;
  Job waiters;
  {
    const std::lock_guard lock(mutex);
    if (loaded.error.empty() && unchanged)
      cache.insert(wish, *stamp, loaded.decoded);
    if (const auto job = jobs.find(wish); job != jobs.end()) {
      waiters = std::move(job->second);
      jobs.erase(job);
    }
  }
  if (!waiters.empty())
    handOver(std::move(waiters), std::move(loaded));
}

void PictureLoader::Impl::handOver(Job waiters, Loaded loaded) {
  {
    const std::lock_guard lock(mutex);
    if (closed)
      return;
    ++deliveries;
  }
  deliver([waiters = std::move(waiters), loaded = std::move(loaded)] { tell(waiters, loaded); });
  {
    const std::lock_guard lock(mutex);
    --deliveries;
  }
  delivered.notify_all();
}

PictureLoader::PictureLoader(WorkPool& pool, Deliver deliver, PictureCache::Room room)
    : impl_(std::make_shared<Impl>(pool, std::move(deliver), room)) {}

PictureLoader::~PictureLoader() { impl_->close(); }

PictureLoader::Ticket PictureLoader::load(const std::filesystem::path& file, PixelSize size,
                                          Callback callback) {
  Ticket ticket;
  ticket.alive_ = std::make_shared<char>();
  const PictureWish wish{file, size};
  if (const auto loaded = impl_->ready(wish))
    callback(*loaded);
  else
    impl_->ask(wish, {ticket.alive_, std::move(callback)});
  return ticket;
}

void PictureLoader::decodeAhead(const std::vector<PictureWish>& wishes) {
  impl_->wishFor({wishes.begin(), wishes.end()});
}

} // namespace hearthbook
