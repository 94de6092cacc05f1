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

bool isOfTheNetwork(const std::string& name) { return name.starts_with("net:"); }

std::string firstOf(const SaneSession& session) {
  const auto found = session.devices();
  if (found.empty())
    throw ScanFailure(ScanStatus::NoScanner);
  return found.front().name;
}

} // namespace

/// The driver of the network crashes over a connection that broke since it was used last: only with
/// a scanner on the desk one goes on where one was.
SaneSession& SaneSeat::newSession() {
  leave();
  return session_.emplace();
}

void SaneSeat::leave() {
  device_.reset();
  session_.reset();
}

std::vector<ScannerDevice> SaneSeat::devices() {
  try {
    return newSession().devices();
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
  onPiece(-1, true);
  SaneDevice& device = open(wish.device);
  onPiece(-1, true);
  return device.acquire(wish, onPiece);
}

SaneDevice& SaneSeat::open(const std::string& wished) {
  if (device_ && !isOfTheNetwork(device_->name()) && (wished.empty() || wished == device_->name()))
    return *device_;
  const SaneSession& session = newSession();
  return device_.emplace(wished.empty() ? firstOf(session) : wished);
}

} // namespace hearthbook
