#include "ChildProcess.h"

#include <csignal>
#include <stdexcept>
#include <utility>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace hearthbook::test {

namespace {

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts)
    pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

} // namespace

/// Nothing of this process may run in the new one: a lock that another thread holds at a fork
/// would never open there.
pid_t startProcess(std::vector<std::string> command, std::vector<std::string> variables) {
  for (char** variable = environ; *variable; ++variable)
    variables.emplace_back(*variable); // the first of a name counts
  posix_spawn_file_actions_t streams;
  ::posix_spawn_file_actions_init(&streams);
  for (const int stream : {0, 1, 2})
    ::posix_spawn_file_actions_addopen(&streams, stream, "/dev/null", O_RDWR, 0);
  pid_t process = 0;
  const int failed = ::posix_spawnp(&process, command.front().c_str(), &streams, nullptr,
                                    pointersTo(command).data(), pointersTo(variables).data());
  ::posix_spawn_file_actions_destroy(&streams);
  if (failed)
    throw std::runtime_error(command.front() + " does not start: is it installed?");
  return process;
}

int runProcess(std::vector<std::string> command, std::vector<std::string> variables) {
  const pid_t process = startProcess(std::move(command), std::move(variables));
  int status = 0;
  ::waitpid(process, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void killProcess(pid_t process) {
  if (process <= 0)
    return;
  ::kill(process, SIGKILL);
  ::waitpid(process, nullptr, 0);
}

} // namespace hearthbook::test
