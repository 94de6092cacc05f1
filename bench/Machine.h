#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include <sched.h>

namespace hearthbook::bench {

/// A folder for the files of one measurement, gone with it.
class WorkFolder {
public:
  WorkFolder();
  ~WorkFolder();
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

private:
  std::filesystem::path path_;
};

/// Keeps this thread, the threads that it starts and its programs on one core while it lives.
class OnOneCore {
public:
  OnOneCore();
  ~OnOneCore();
  OnOneCore(const OnOneCore&) = delete;
  OnOneCore& operator=(const OnOneCore&) = delete;

private:
  cpu_set_t before_;
};

/// Runs a program, its output thrown away, and waits for its end.
void runProgram(std::vector<std::string> words);

/// What this process holds of the machine's memory.
std::size_t residentBytes();

} // namespace hearthbook::bench
