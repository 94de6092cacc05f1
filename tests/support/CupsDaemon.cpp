#include "CupsDaemon.h"

#include "ChildProcess.h"
#include "FileBytes.h"

#include <chrono>
#include <csignal>
#include <stdexcept>
#include <thread>
#include <utility>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace hearthbook::test {

namespace {

const std::filesystem::path cupsd = "/usr/sbin/cupsd";
const std::filesystem::path pdfPrinter = "/usr/lib/cups/backend/cups-pdf";
/// Where pages go whose user the machine does not know.
const std::filesystem::path pageFolder = "/var/spool/cups-pdf/ANONYMOUS";

sockaddr_in addressOf(int port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return address;
}

int freePort() {
  const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address = addressOf(0);
  socklen_t length = sizeof(address);
  ::bind(socket, reinterpret_cast<sockaddr*>(&address), length);
  ::getsockname(socket, reinterpret_cast<sockaddr*>(&address), &length);
  ::close(socket);
  return ntohs(address.sin_port);
}

bool accepts(int port) {
  const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const sockaddr_in address = addressOf(port);
  const bool accepted =
      ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
  ::close(socket);
  return accepted;
}

} // namespace

std::string CupsDaemon::whyNot() {
  if (::geteuid() != 0)
    return "the printer of PDFs runs as root only";
  for (const auto& program : {cupsd, pdfPrinter})
    if (!std::filesystem::exists(program))
      return program.string() + " is not installed";
  return {};
}

CupsDaemon::CupsDaemon()
    : port_(freePort()), server_("CUPS_SERVER", "127.0.0.1:" + std::to_string(port_)),
      user_("CUPS_USER", "nobody-of-this-machine"), home_("HOME", folder_.path().string()) {
  writeSettings();
  process_ = startProcess({cupsd, "-f", "-c", at("cupsd.conf"), "-s", at("cups-files.conf")},
                          {"HOME=" + folder_.path().string()});
  waitUntilItListens();
}

CupsDaemon::~CupsDaemon() {
  kill();
  for (const std::string& name : namesIn(pageFolder))
    if (name.starts_with(uniqueTitle()))
      std::filesystem::remove(pageFolder / name);
}

void CupsDaemon::writeSettings() const {
  using std::filesystem::perms;
  // Its filters run as another user.
  std::filesystem::permissions(folder_.path(), perms::others_exec | perms::others_read,
                               std::filesystem::perm_options::add);
  std::filesystem::create_directory(at("tmp"));
  std::filesystem::permissions(at("tmp"), perms::all | perms::sticky_bit);
  const std::string in = folder_.path().string();
  std::string files;
  for (const char* folder : {"ServerRoot", "StateDir", "RequestRoot", "CacheDir"}) {
    std::filesystem::create_directory(at(folder));
    files += std::string(folder) + ' ' + in + '/' + folder + '\n';
  }
  for (const char* log : {"AccessLog", "ErrorLog", "PageLog"})
    files += std::string(log) + ' ' + in + '/' + log + '\n';
  writeBytes(at("cups-files.conf"),
             files + "TempDir " + in + "/tmp\nSystemGroup root\nUser lp\nGroup lp\n");
  writeBytes(at("cupsd.conf"), "Listen 127.0.0.1:" + std::to_string(port_) +
                                   "\nBrowsing Off\nWebInterface No\nDefaultAuthType None\n"
                                   "PageLogFormat %p %u %j %T %P %C %{job-billing} "
                                   "%{job-originating-host-name} %{job-name} %{media} %{sides} "
                                   "quality %{print-quality} priority %{job-priority}\n"
                                   "<Location />\nOrder deny,allow\nAllow 127.0.0.1\n</Location>\n"
                                   "<Location /admin>\nOrder deny,allow\nAllow 127.0.0.1\n"
                                   "</Location>\n<Policy default>\n<Limit All>\n"
                                   "Order deny,allow\n</Limit>\n</Policy>\n");
}

void CupsDaemon::waitUntilItListens() const {
  const auto giveUp = std::chrono::steady_clock::now() + std::chrono::seconds(60);
  while (!accepts(port_)) {
    if (::waitpid(process_, nullptr, WNOHANG) != 0 || std::chrono::steady_clock::now() > giveUp)
      throw std::runtime_error("cupsd does not start");
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
}

void CupsDaemon::kill() {
  const pid_t process = std::exchange(process_, 0);
  if (process <= 0)
    return;
  ::kill(process, SIGTERM);
  ::waitpid(process, nullptr, 0);
}

void CupsDaemon::administer(std::vector<std::string> command) const {
  command.front() = "/usr/sbin/" + command.front();
  if (runProcess(command, {"HOME=" + folder_.path().string()}) != 0)
    throw std::runtime_error(command.front() + " fails");
}

void CupsDaemon::addPrinter(const std::string& name) {
  administer(
      {"lpadmin", "-p", name, "-E", "-v", "cups-pdf:/", "-m", "lsb/usr/cups-pdf/CUPS-PDF_opt.ppd"});
}

void CupsDaemon::setPaper(const std::string& name, const std::string& paper) {
  administer({"lpadmin", "-p", name, "-o", "PageSize=" + paper});
}

void CupsDaemon::makeCurrent(const std::string& name) { administer({"lpadmin", "-d", name}); }

void CupsDaemon::keepChoices(const std::string& name, const std::string& choices) {
  std::filesystem::create_directory(at(".cups"));
  writeBytes(at(".cups/lpoptions"), "Default " + name + ' ' + choices + '\n');
}

void CupsDaemon::takePrinterAway(const std::string& name) { administer({"lpadmin", "-x", name}); }

void CupsDaemon::refuseJobs(const std::string& name) { administer({"cupsreject", name}); }

std::string CupsDaemon::uniqueTitle() const {
  return "hearthbook-test-" + std::to_string(::getpid()) + "-" + std::to_string(port_);
}

std::filesystem::path CupsDaemon::printed(const std::string& title) const {
  if (pageLog().find(" " + title + " ") == std::string::npos)
    return {};
  for (const std::string& name : namesIn(pageFolder))
    if (name.starts_with(title) && std::filesystem::file_size(pageFolder / name) > 0)
      return pageFolder / name;
  return {};
}

std::string CupsDaemon::pageLog() const {
  return std::filesystem::exists(at("PageLog")) ? readBytes(at("PageLog")) : std::string();
}

} // namespace hearthbook::test
