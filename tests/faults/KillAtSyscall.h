#pragma once

#include <cstdint>
#include <functional>
#include <vector>

namespace hearthbook::test {

/// How a child ended that was to be killed at one step.
enum class Ending {
  Killed,   ///< in front of the step
  Finished, ///< it has fewer steps than that
  Failed    ///< its work threw, or it could not be watched
};

/// Runs `work` in a child process and kills that (SIGKILL) in front of its n-th system call
/// that changes the disk: writing, creating, renaming, removing, flushing, by any of its
/// threads. The first step is 1. No product code knows of it.
Ending killAtStep(int step, const std::function<void()>& work);

/// The numbers of all such calls of a child that is let to its end; empty if it fails.
std::vector<std::uint64_t> stepsOf(const std::function<void()>& work);

/// True if this machine lets a process watch its child.
bool canWatchChildren();

} // namespace hearthbook::test
