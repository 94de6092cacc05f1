#include "Machine.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <system_error>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace hearthbook::bench {

namespace fs = std::filesystem;

WorkFolder::WorkFolder() {
  std::string pattern = (fs::temp_directory_path() / "hearthbook-bench-XXXXXX").string();
  if (!mkdtemp(pattern.data()))
    throw std::runtime_error("cannot make a temporary folder");
  path_ = pattern;
}

WorkFolder::~WorkFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

OnOneCore::OnOneCore() {
  sched_getaffinity(0, sizeof before_, &before_);
  cpu_set_t one;
  CPU_ZERO(&one);
  int core = 0;
  while (core + 1 < CPU_SETSIZE && !CPU_ISSET(core, &before_))
    ++core;
  CPU_SET(core, &one);
  sched_setaffinity(0, sizeof one, &one);
}

OnOneCore::~OnOneCore() { sched_setaffinity(0, sizeof before_, &before_); }

void runProgram(std::vector<std::string> words) {
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words)
    arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t child = 0;
  int status = 1;
  if (posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ) == 0)
    waitpid(child, &status, 0);
  posix_spawn_file_actions_destroy(&actions);
  if (status != 0)
    throw std::runtime_error("cannot run " + words[0]);
}

std::size_t residentBytes() {
  std::size_t total = 0;
  std::size_t resident = 0;
  std::ifstream("/proc/self/statm") >> total >> resident;
  return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

} // namespace hearthbook::bench
