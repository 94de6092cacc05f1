#include "SaneSeat.h"

#include "ScanFailure.h"

#include <new>

namespace hearthbook {

namespace {

ScannedPage failed(ScanStatus status, const std::string& trouble) {
  ScannedPage page;
  page.status = status;
  page.trouble = trouble;
  return page;
}

} // namespace

SaneSession& SaneSeat::session() {
  if (!session_)
    session_.emplace();
  return *session_;
}

std::vector<ScannerDevice> SaneSeat::devices() {
  try {
    return session().devices();
  } catch (const RunTimeError&) {
    return {};
  }
}

ScannedPage SaneSeat::acquire(const ScanWish& wish, const SaneDevice::OnPiece& onPiece) {
  ScannedPage page;
  try {
    return tryToAcquire(wish, onPiece);
  } catch (const ScanFailure& failure) {
    page = failed(failure.status(), failure.what());
  } catch (const RunTimeError& failure) {
    page = failed(session_ ? ScanStatus::NoMemory : ScanStatus::NoScanner, failure.what());
  } catch (const std::bad_alloc&) {
    page = failed(ScanStatus::NoMemory, describe(ScanStatus::NoMemory));
  }
  device_.reset();
  return page;
}

ScannedPage SaneSeat::tryToAcquire(const ScanWish& wish, const SaneDevice::OnPiece& onPiece) {
  onPiece(-1);
  session();
  SaneDevice& device = open(wish.device);
  onPiece(-1);
  return device.acquire(wish, onPiece);
}

SaneDevice& SaneSeat::open(const std::string& wished) {
  const std::string name = choose(wished);
  if (!device_ || device_->name() != name) {
    device_.reset();
    device_.emplace(name);
  }
  return *device_;
}

std::string SaneSeat::choose(const std::string& wished) {
  if (!wished.empty())
    return wished;
  if (device_)
    return device_->name();
  const auto found = session().devices();
  if (found.empty())
    throw ScanFailure(ScanStatus::NoScanner);
  return found.front().name;
}

} // namespace hearthbook
