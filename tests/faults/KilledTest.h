#pragma once

#include "AlbumFolder.h"
#include "KillAtSyscall.h"
#include "PrivateMount.h"
#include "ScopedVariable.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace hearthbook::test {

/// Does one thing with an album again and again, killed one step later each time, and looks at
/// what the next start finds.
class KilledTest : public testing::Test {
protected:
  void SetUp() override {
    if (!canWatchChildren())
      GTEST_SKIP() << "this machine does not let a process watch its child";
    if (canMountPrivately())
      memory_.emplace(place_.path(), memorySize);
  }

  /// For steps 1, 2, ...: `work` on a fresh copy of `prepared`, killed in front of the step,
  /// then `check` on what is left; until the work finishes.
  void killAtEachStep(const std::filesystem::path& prepared,
                      const std::function<void(const std::filesystem::path&)>& work,
                      const std::function<void(const std::filesystem::path&)>& check) const {
    for (int step = 1; step < mostSteps; ++step) {
      SCOPED_TRACE("killed at step " + std::to_string(step));
      const auto folder = place_.path() / std::to_string(step);
      const auto copy = folder / "Hearthbook";
      std::filesystem::create_directory(folder);
      std::filesystem::copy(prepared, copy, std::filesystem::copy_options::recursive);
      const ScopedVariable dataHome("XDG_DATA_HOME", (folder / "data").string());
      const Ending ending = killAtStep(step, [&] { work(copy); });
      ASSERT_NE(ending, Ending::Failed);
      check(copy);
      if (HasFailure())
        return;
      std::filesystem::remove_all(folder);
      if (ending == Ending::Finished) {
        EXPECT_GT(step, 1) << "the work changed nothing";
        return;
      }
    }
    FAIL() << "more steps than can be believed";
  }

private:
  static constexpr int mostSteps = 5000;
  static constexpr std::size_t memorySize = std::size_t{64} << 20;

  TemporaryFolder place_;
  std::optional<SmallDisk> memory_; ///< on the place, where possible: flushing costs nothing there
};

} // namespace hearthbook::test
