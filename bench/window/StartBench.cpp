#include "BenchAlbum.h"

#include <benchmark/benchmark.h>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <string>

// From the start of a process to its first painted window: ours on an album of ten thousand
// photos, and a program that has nothing but a main window.

namespace hearthbook::bench {
namespace {

/// True if the program ended by itself, having painted.
bool run(std::string program, std::string argument) {
  const std::array<char*, 3> arguments{program.data(), argument.data(), nullptr};
  pid_t child = 0;
  if (posix_spawn(&child, program.c_str(), nullptr, nullptr, arguments.data(), environ) != 0)
    return false;
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

void startUntilPainted(benchmark::State& state, const char* program, const std::string& argument) {
  run(program, argument); // the files are in memory from here on, for both
  for (auto _ : state)
    if (!run(program, argument))
      state.SkipWithError("the program did not paint");
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
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(reference)
    ->Name("start to first paint, 10,000 photos/reference")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace hearthbook::bench

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", getenv("DISPLAY") ? "xcb" : "offscreen", 0);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
