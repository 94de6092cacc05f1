#include "KillAtSyscall.h"

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <limits>
#include <optional>
#include <set>

#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace hearthbook::test {
namespace {

using SyscallInfo = __ptrace_syscall_info;

/// Calls that change the disk whatever their arguments are.
const std::set<std::uint64_t>& changingCalls() {
  static const std::set<std::uint64_t> calls = {
      SYS_write,     SYS_pwrite64,  SYS_writev,    SYS_pwritev,   SYS_pwritev2, SYS_fsync,
      SYS_fdatasync, SYS_ftruncate, SYS_truncate,  SYS_fallocate, SYS_renameat, SYS_renameat2,
      SYS_unlinkat,  SYS_linkat,    SYS_symlinkat, SYS_mkdirat,   SYS_sendfile, SYS_copy_file_range,
#ifdef SYS_rename
      SYS_rename,    SYS_unlink,    SYS_link,      SYS_symlink,   SYS_mkdir,    SYS_rmdir,
      SYS_creat,
#endif
  };
  return calls;
}

bool createsFile(const SyscallInfo& info) {
  constexpr std::uint64_t creating = O_CREAT | O_TRUNC;
  if (info.entry.nr == SYS_openat)
    return (info.entry.args[2] & creating) != 0;
#ifdef SYS_open
  if (info.entry.nr == SYS_open)
    return (info.entry.args[1] & creating) != 0;
#endif
  return false;
}

/// The number of the call that the thread is about to make, if it changes the disk.
std::optional<std::uint64_t> stepBefore(pid_t thread) {
  SyscallInfo info{};
  const long size = ptrace(PTRACE_GET_SYSCALL_INFO, thread, sizeof info, &info);
  if (size <= 0 || info.op != PTRACE_SYSCALL_INFO_ENTRY ||
      (!changingCalls().contains(info.entry.nr) && !createsFile(info)))
    return std::nullopt;
  return info.entry.nr;
}

[[noreturn]] void runAsChild(const std::function<void()>& work) {
  if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
    _exit(3);
  raise(SIGSTOP);
  try {
    work();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "the child failed: %s\n", error.what());
    _exit(2);
  }
  _exit(0);
}

/// The parent's side: lets the child run from stop to stop.
class Watch {
public:
  Watch(pid_t child, std::size_t lastStep) : child_(child), lastStep_(lastStep) {}

  [[nodiscard]] const std::vector<std::uint64_t>& steps() const { return steps_; }

  Ending run() {
    if (!begin())
      return Ending::Failed;
    for (;;) {
      int status = 0;
      const pid_t thread = waitpid(-1, &status, __WALL);
      if (thread < 0)
        return Ending::Failed;
      if (thread == child_ && (WIFEXITED(status) || WIFSIGNALED(status)))
        return endingOf(status);
      if (WIFSTOPPED(status))
        proceed(thread, status);
    }
  }

private:
  bool begin() const {
    int status = 0;
    if (waitpid(child_, &status, 0) != child_ || !WIFSTOPPED(status))
      return false;
    ptrace(PTRACE_SETOPTIONS, child_, nullptr,
           PTRACE_O_TRACESYSGOOD | PTRACE_O_TRACECLONE | PTRACE_O_EXITKILL);
    return ptrace(PTRACE_SYSCALL, child_, nullptr, nullptr) == 0;
  }

  void proceed(pid_t thread, int status) {
    const int signal = WSTOPSIG(status);
    if (signal == (SIGTRAP | 0x80)) {
      takeStep(stepBefore(thread));
      resume(thread, 0);
    } else {
      // A new thread's first stop and the notice of it are not for the thread itself.
      resume(thread, signal == SIGTRAP || signal == SIGSTOP ? 0 : signal);
    }
  }

  void takeStep(const std::optional<std::uint64_t>& step) {
    if (!step)
      return;
    steps_.push_back(*step);
    if (steps_.size() == lastStep_)
      kill(child_, SIGKILL);
  }

  static void resume(pid_t thread, int signal) { ptrace(PTRACE_SYSCALL, thread, nullptr, signal); }

  [[nodiscard]] Ending endingOf(int status) const {
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL && steps_.size() >= lastStep_)
      return Ending::Killed;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? Ending::Finished : Ending::Failed;
  }

  pid_t child_;
  std::size_t lastStep_;
  std::vector<std::uint64_t> steps_;
};

pid_t startChild(const std::function<void()>& work) {
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child == 0)
    runAsChild(work);
  return child;
}

} // namespace

Ending killAtStep(int step, const std::function<void()>& work) {
  const pid_t child = startChild(work);
  return child < 0 ? Ending::Failed : Watch(child, static_cast<std::size_t>(step)).run();
}

std::vector<std::uint64_t> stepsOf(const std::function<void()>& work) {
  const pid_t child = startChild(work);
  if (child < 0)
    return {};
  Watch watch(child, std::numeric_limits<std::size_t>::max());
  return watch.run() == Ending::Finished ? watch.steps() : std::vector<std::uint64_t>();
}

bool canWatchChildren() {
  return killAtStep(1, [] {}) == Ending::Finished;
}

} // namespace hearthbook::test
