#pragma once

#include <memory>
#include <string>

namespace hearthbook {

/// Keeps the desktop's screen saver off while the family watches. A desktop without the service
/// for it does as it likes.
class ScreenAwake {
public:
  explicit ScreenAwake(std::string reason); ///< said to the user by some desktops
  ~ScreenAwake();                           ///< lets the screen sleep again
  ScreenAwake(const ScreenAwake&) = delete;
  ScreenAwake& operator=(const ScreenAwake&) = delete;

  void keep(bool awake);

private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

} // namespace hearthbook
