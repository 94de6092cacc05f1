#include "BenchAlbum.h"

#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

// From the start of a process to its first painted window: ours on an album of ten thousand
// photos, and a program that has nothing but a main window.

namespace hearthbook::bench {
namespace {

/// A pipe whose one end becomes a child's output.
class Output {
public:
  Output() {
    if (pipe2(ends_.data(), O_CLOEXEC) != 0)
      throw std::runtime_error("no pipe can be made");
    posix_spawn_file_actions_init(&actions_);
    posix_spawn_file_actions_adddup2(&actions_, ends_[1], STDOUT_FILENO);
  }
  ~Output() {
    posix_spawn_file_actions_destroy(&actions_);
    close(ends_[0]);
    if (ends_[1] >= 0)
      close(ends_[1]);
  }
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  [[nodiscard]] const posix_spawn_file_actions_t* actions() const { return &actions_; }
  /// Waits for a word from the child. False if it went without one.
  bool hasSpoken() {
    close(std::exchange(ends_[1], -1));
    char word = 0;
    return read(ends_[0], &word, 1) == 1;
  }

private:
  std::array<int, 2> ends_{};
  posix_spawn_file_actions_t actions_{};
};

/// Seconds from the start of the program until it says that it has painted; nothing if it never
/// does. What its end takes is not counted.
std::optional<double> secondsUntilPainted(std::string program, std::string argument) {
  const std::array<char*, 3> arguments{program.data(), argument.data(), nullptr};
  Output output;
  pid_t child = 0;
  const auto start = std::chrono::steady_clock::now();
  if (posix_spawn(&child, program.c_str(), output.actions(), nullptr, arguments.data(), environ) !=
      0)
    return std::nullopt;
  const bool painted = output.hasSpoken();
  const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
  waitpid(child, nullptr, 0);
  return painted ? std::optional(passed.count()) : std::nullopt;
}

void startUntilPainted(benchmark::State& state, const char* program, const std::string& argument) {
  secondsUntilPainted(program, argument); // the files are in memory from here on, for both
  for (auto _ : state) {
    const auto seconds = secondsUntilPainted(program, argument);
    if (!seconds) {
      state.SkipWithError("the program did not paint");
      return;
    }
    state.SetIterationTime(*seconds);
  }
}

void ours(benchmark::State& state) {
  static const BenchAlbum album(10'000);
  startUntilPainted(state, HEARTHBOOK_START_OURS, album.path().string());
}

void reference(benchmark::State& state) {
  startUntilPainted(state, HEARTHBOOK_START_REFERENCE, "");
}

BENCHMARK(ours)
    ->Name("start to first paint, 10,000 photos/ours")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(reference)
    ->Name("start to first paint, 10,000 photos/reference")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace hearthbook::bench

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", getenv("DISPLAY") ? "xcb" : "offscreen", 0);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
