#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace hearthbook::test {

/// An environment variable that has another value (or none) while this lives.
class ScopedVariable {
public:
  ScopedVariable(const char* name, const std::optional<std::string>& value) : name_(name) {
    if (const char* before = std::getenv(name))
      before_ = before;
    set(value);
  }
  ~ScopedVariable() { set(before_); }
  ScopedVariable(const ScopedVariable&) = delete;
  ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
  void set(const std::optional<std::string>& value) const {
    if (value)
      setenv(name_, value->c_str(), 1);
    else
      unsetenv(name_);
  }

  const char* name_;
  std::optional<std::string> before_;
};

} // namespace hearthbook::test
