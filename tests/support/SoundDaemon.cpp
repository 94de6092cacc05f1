#include "SoundDaemon.h"

#include "ChildProcess.h"

#include <chrono>
#include <csignal>
#include <cstring>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

namespace hearthbook::test {

namespace {

const char* nameOf(SoundFormat::Sample sample) {
  return sample == SoundFormat::Sample::U8 ? "u8" : "s16le";
}

/// All that is the user's own is in the folder.
std::vector<std::string> variablesOf(const std::string& folder) {
  std::vector<std::string> variables;
  for (const char* own : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "PULSE_RUNTIME_PATH"})
    variables.push_back(std::string(own) + '=' + folder);
  return variables;
}

bool accepts(const std::filesystem::path& socketName) {
  const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::strncpy(address.sun_path, socketName.c_str(), sizeof(address.sun_path) - 1);
  const bool accepted =
      ::connect(socket, reinterpret_cast<sockaddr*>(&address), sizeof(address)) == 0;
  ::close(socket);
  return accepted;
}

} // namespace

SoundDaemon::SoundDaemon(const SoundFormat& device)
    : server_("PULSE_SERVER", "unix:" + socket().string()),
      cookie_("PULSE_COOKIE", (folder_.path() / "cookie").string()) {
  start(device);
  waitUntilItListens();
}

SoundDaemon::~SoundDaemon() { kill(); }

void SoundDaemon::start(const SoundFormat& device) {
  const std::string format = std::string(" format=") + nameOf(device.sample) +
                             " rate=" + std::to_string(device.rate) +
                             " channels=" + std::to_string(device.channels);
  process_ = startProcess(
      {"pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
       "--realtime=no", "--high-priority=no",
       "--load=module-native-protocol-unix auth-anonymous=1 socket=" + socket().string(),
       "--load=module-null-sink sink_name=album_out norewinds=1" + format},
      variablesOf(folder_.path().string()));
}

void SoundDaemon::waitUntilItListens() const {
  const auto giveUp = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  while (!accepts(socket())) {
    if (::waitpid(process_, nullptr, WNOHANG) != 0 || std::chrono::steady_clock::now() > giveUp)
      throw std::runtime_error("pulseaudio does not start: is it installed?");
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
}

void SoundDaemon::kill() { killProcess(std::exchange(process_, 0)); }

void SoundDaemon::freeze() { ::kill(process_, SIGSTOP); }

void SoundDaemon::takeDeviceAway() {
  const pid_t unloader = startProcess({"pactl", "unload-module", "module-null-sink"},
                                      variablesOf(folder_.path().string()));
  ::waitpid(unloader, nullptr, 0);
}

} // namespace hearthbook::test
