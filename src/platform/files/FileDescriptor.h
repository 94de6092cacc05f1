#pragma once

#include <utility>

#include <unistd.h>

namespace hearthbook {

/// An open file of the system, closed with its owner.
class FileDescriptor {
public:
  explicit FileDescriptor(int number) : number_(number) {}
  ~FileDescriptor() {
    if (number_ >= 0)
      ::close(number_);
  }
  FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  FileDescriptor& operator=(FileDescriptor&&) = delete;

  [[nodiscard]] bool isOpen() const { return number_ >= 0; }
  [[nodiscard]] int number() const { return number_; }
  /// Closes now; false if the system reports a late write error.
  [[nodiscard]] bool close() { return ::close(std::exchange(number_, -1)) == 0; }

private:
  int number_;
};

} // namespace hearthbook
