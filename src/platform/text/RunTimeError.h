#pragma once

#include <stdexcept>
#include <string>

namespace hearthbook {

/// What a service throws when it cannot do what it was asked for.
///
/// `what()` is the description, in words that a user can read; it names the file or the
/// statement concerned. `number()` tells failures apart where a caller has to (68: the drive
/// does not exist; 0: no number of its own).
class RunTimeError : public std::runtime_error {
public:
  explicit RunTimeError(const std::string& description, int number = 0)
      : std::runtime_error(description), number_(number) {}

  [[nodiscard]] int number() const { return number_; }

private:
  int number_;
};

} // namespace hearthbook
