#include "SaneDevice.h"

#include "SaneLibrary.h"
#include "SaneOptions.h"
#include "ScanFailure.h"

#include <array>
#include <chrono>
#include <mutex>
#include <string_view>
#include <thread>
#include <utility>

#include <poll.h>

namespace hearthbook {

namespace {

/// Never destroyed: a scanner that hangs may hold it when the program ends.
std::mutex& sessionMutex() {
  static auto* mutex = new std::mutex;
  return *mutex;
}

ScanStatus statusFor(SANE_Status status) {
  switch (status) {
  case SANE_STATUS_CANCELLED:
    return ScanStatus::Cancelled;
  case SANE_STATUS_DEVICE_BUSY:
  case SANE_STATUS_ACCESS_DENIED:
    return ScanStatus::CannotOpen;
  case SANE_STATUS_JAMMED:
    return ScanStatus::Jammed;
  case SANE_STATUS_NO_DOCS:
    return ScanStatus::NoPaper;
  case SANE_STATUS_COVER_OPEN:
    return ScanStatus::CoverOpen;
  case SANE_STATUS_NO_MEM:
    return ScanStatus::NoMemory;
  default:
    return ScanStatus::Failed;
  }
}

void expectGood(SANE_Status status, const char* doing) {
  if (status != SANE_STATUS_GOOD)
    throw ScanFailure(statusFor(status), doing);
}

/// A web camera is offered as a scanner too, and no family means that.
bool isCamera(std::string_view name) { return name.starts_with("v4l:"); }

PageFormat::Frame frameOf(SANE_Frame frame) {
  switch (frame) {
  case SANE_FRAME_GRAY:
    return PageFormat::Frame::Grey;
  case SANE_FRAME_RGB:
    return PageFormat::Frame::Colours;
  case SANE_FRAME_RED:
    return PageFormat::Frame::Red;
  case SANE_FRAME_GREEN:
    return PageFormat::Frame::Green;
  case SANE_FRAME_BLUE:
    return PageFormat::Frame::Blue;
  default:
    throw ScanFailure(ScanStatus::Failed, "it sends a page of an unknown kind");
  }
}

PageFormat formatOf(const SANE_Parameters& parameters) {
  return {frameOf(parameters.format), parameters.depth, parameters.pixels_per_line,
          parameters.lines, parameters.bytes_per_line};
}

bool hasEnded(int connection) {
  pollfd state{connection, POLLRDHUP, 0};
  return ::poll(&state, 1, 0) > 0 && (state.revents & (POLLRDHUP | POLLHUP | POLLERR)) != 0;
}

/// The scanner is told when a page has ended, whole or not.
class PageEnd {
public:
  explicit PageEnd(SANE_Handle device) : device_(device) {}
  ~PageEnd() { sane().cancel(device_); }
  PageEnd(const PageEnd&) = delete;
  PageEnd& operator=(const PageEnd&) = delete;

private:
  SANE_Handle device_;
};

} // namespace

std::string labelOf(const SANE_Device& device) {
  std::string label;
  for (const char* part : {device.vendor, device.model})
    if (part && *part)
      label += (label.empty() ? "" : " ") + std::string(part);
  return label.empty() ? device.name : label;
}

SaneSession::SaneSession() {
  const SaneLibrary& library = sane(); // throws where it is not installed
  std::unique_lock alone(sessionMutex());
  if (library.init(nullptr, nullptr) != SANE_STATUS_GOOD)
    throw ScanFailure(ScanStatus::CannotOpen, "the access to scanners does not start");
  alone_ = std::move(alone);
}

SaneSession::~SaneSession() { sane().exit(); }

std::vector<ScannerDevice> SaneSession::devices() const {
  std::vector<ScannerDevice> found;
  const SANE_Device** list = nullptr;
  if (sane().getDevices(&list, SANE_FALSE) != SANE_STATUS_GOOD || !list)
    return found;
  for (; *list; ++list) {
    const SANE_Device& device = **list;
    if (device.name && !isCamera(device.name))
      found.push_back({device.name, labelOf(device)});
  }
  return found;
}

SaneDevice::SaneDevice(const std::string& name) : name_(name) {
  const SANE_Status status = sane().open(name.c_str(), &handle_);
  if (status == SANE_STATUS_INVAL)
    throw ScanFailure(ScanStatus::NoScanner, name);
  if (status != SANE_STATUS_GOOD)
    throw ScanFailure(ScanStatus::CannotOpen, name);
}

SaneDevice::~SaneDevice() { sane().close(handle_); }

ScannedPage SaneDevice::acquire(const ScanWish& wish, const OnPiece& onPiece) {
  SaneOptions options(handle_);
  options.follow(wish);
  ScannedPage page;
  page.dotsPerInch = options.dotsPerInch();
  page.picture = readPage(onPiece);
  page.status = ScanStatus::Success;
  return page;
}

/// Some scanners send red, green and blue one after the other, and say so at the first.
Picture SaneDevice::readPage(const OnPiece& onPiece) const {
  constexpr int colours = 3;
  const PageEnd end(handle_);
  PageRows page;
  for (;;) {
    const SANE_Parameters parameters = start();
    const PageFormat format = formatOf(parameters);
    const bool one =
        format.frame == PageFormat::Frame::Colours || format.frame == PageFormat::Frame::Grey;
    page.begin(format);
    readFrame(page, one ? 1 : colours, onPiece);
    if (parameters.last_frame)
      return page.finish();
  }
}

SANE_Parameters SaneDevice::start() const {
  expectGood(sane().start(handle_), "at the start of the page");
  SANE_Parameters parameters{};
  expectGood(sane().getParameters(handle_, &parameters), "at the start of the page");
  return parameters;
}

void SaneDevice::readFrame(PageRows& page, int frames, const OnPiece& onPiece) const {
  std::array<SANE_Byte, 65536> bytes;
  bool hasSent = true;
  for (;;) {
    onPiece(page.share(frames), hasSent);
    SANE_Int count = 0;
    const SANE_Status status =
        sane().read(handle_, bytes.data(), static_cast<SANE_Int>(bytes.size()), &count);
    if (status == SANE_STATUS_EOF)
      return;
    expectGood(status, "in the middle of the page");
    page.add(bytes.data(), static_cast<std::size_t>(count));
    hasSent = count > 0;
    if (!hasSent)
      waitForMore();
  }
}

/// A scanner of the network whose machine has gone is no error to its driver: it goes on to read
/// nothing from the broken connection.
void SaneDevice::waitForMore() const {
  constexpr auto aMoment = std::chrono::milliseconds(10);
  SANE_Int connection = -1;
  if (sane().getSelectFd(handle_, &connection) == SANE_STATUS_GOOD && hasEnded(connection))
    throw ScanFailure(ScanStatus::Failed, "the connection to it has broken");
  std::this_thread::sleep_for(aMoment);
}

} // namespace hearthbook
