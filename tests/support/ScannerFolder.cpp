#include "ScannerFolder.h"

#include "ChildProcess.h"

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <thread>

#include <arpa/inet.h>
#include <dlfcn.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace hearthbook::test {

namespace {

constexpr int scannerPort = 6566;

void write(const std::filesystem::path& file, const std::string& text) {
  std::ofstream(file) << text;
}

/// All of them each time: the driver, kept loaded, remembers what is not told.
void writeTestScanner(const std::filesystem::path& folder,
                      const ScannerFolder::Settings& settings) {
  ScannerFolder::Settings all{{"number_of_devices", "1"},
                              {"mode", "Color"},
                              {"depth", "8"},
                              {"hand-scanner", "false"},
                              {"three-pass", "false"},
                              {"resolution", "100"},
                              {"test-picture", "\"Color pattern\""},
                              {"fuzzy-parameters", "false"},
                              {"ppl-loss", "0"},
                              {"read-limit", "false"},
                              {"read-delay", "false"},
                              {"read-status-code", "Default"},
                              {"enable-test-options", "true"}};
  for (const auto& [name, value] : settings)
    all[name] = value;
  std::string text;
  for (const auto& [name, value] : all)
    text += name + " " + value + "\n";
  write(folder / "test.conf", text);
  write(folder / "dll.conf", "test\n");
}

const std::filesystem::path& sharedFolder() {
  static const TemporaryFolder folder;
  return folder.path();
}

sockaddr_in placeOf(const std::string& address) {
  sockaddr_in place{};
  place.sin_family = AF_INET;
  place.sin_port = htons(scannerPort);
  ::inet_pton(AF_INET, address.c_str(), &place.sin_addr);
  return place;
}

int newSocket() { return ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0); }

bool accepts(const std::string& address) {
  const int socket = newSocket();
  const sockaddr_in place = placeOf(address);
  const bool accepted =
      ::connect(socket, reinterpret_cast<const sockaddr*>(&place), sizeof(place)) == 0;
  ::close(socket);
  return accepted;
}

/// SANE's drivers forget some memory each time they are unloaded. While they stay, the leak checker
/// knows them by name, and the few bytes are theirs.
void keepDriversLoaded() {
  for (const char* driver : {"libsane-test.so.1", "libsane-net.so.1"})
    ::dlopen((std::string(SANE_DRIVERS) + "/" + driver).c_str(), RTLD_LAZY | RTLD_NODELETE);
}

} // namespace

ScannerFolder::ScannerFolder() {
  keepDriversLoaded();
  setenv("SANE_CONFIG_DIR", sharedFolder().c_str(), 1);
  write(sharedFolder() / "dll.conf", "");
}

void ScannerFolder::useTestScanner(const Settings& settings) {
  writeTestScanner(sharedFolder(), settings);
}

void ScannerFolder::useNetwork(const std::string& address) {
  write(sharedFolder() / "net.conf", "connect_timeout = 60\n" + address + "\n");
  write(sharedFolder() / "dll.conf", "net\n");
}

std::string ownLoopbackAddress() {
  const int process = getpid();
  return "127." + std::to_string(64 + (process >> 14 & 0x7f)) + "." +
         std::to_string(process >> 7 & 0x7f) + "." + std::to_string(1 + (process & 0x7f));
}

ScannerService::ScannerService(const std::string& address) {
  writeTestScanner(folder_.path(), {});
  write(folder_.path() / "saned.conf", "127.0.0.0/8\n");
  // It serves each call in a process of its own, which is to die with it.
  process_ = startProcess({"setsid", "/usr/sbin/saned", "-l", "-b", address},
                          {"SANE_CONFIG_DIR=" + folder_.path().string()});
  const auto giveUp = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  while (!accepts(address)) {
    if (::waitpid(process_, nullptr, WNOHANG) != 0 || std::chrono::steady_clock::now() > giveUp)
      throw std::runtime_error("saned does not start: is it installed?");
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
}

ScannerService::~ScannerService() {
  ::kill(-process_, SIGKILL);
  killProcess(process_);
}

SilentService::SilentService(const std::string& address) : socket_(newSocket()) {
  const sockaddr_in place = placeOf(address);
  const int yes = 1;
  ::setsockopt(socket_, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof(yes));
  if (::bind(socket_, reinterpret_cast<const sockaddr*>(&place), sizeof(place)) != 0 ||
      ::listen(socket_, 8) != 0)
    throw std::runtime_error("nothing can be served on " + address);
}

SilentService::~SilentService() {
  ::close(socket_);
  if (call_ >= 0)
    ::close(call_);
}

void SilentService::waitForCall() { call_ = ::accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC); }

} // namespace hearthbook::test

// The leak checker asks for it by this name.
extern "C" const char* __lsan_default_suppressions() { // NOLINT(bugprone-reserved-identifier)
  return "leak:libsane";
}
