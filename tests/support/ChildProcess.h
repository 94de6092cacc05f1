#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

namespace hearthbook::test {

/// Starts a program that sees the variables ("HOME=/tmp/x") before those of this process, and
/// writes nowhere. Throws where it is not installed.
pid_t startProcess(std::vector<std::string> command, std::vector<std::string> variables);

/// Runs a program to its end and returns its exit code; -1 where it was killed.
int runProcess(std::vector<std::string> command, std::vector<std::string> variables);

/// Kills it, unless the number is 0, and waits for its end.
void killProcess(pid_t process);

} // namespace hearthbook::test
