#pragma once

#include <string>

namespace hearthbook {

/// A library that is loaded when its first function is wanted, and stays. For what draws many
/// others in and is seldom needed: the start of the program does not wait for it.
class SharedLibrary {
public:
  /// `file` as the loader looks it up ("libx.so.1"); `purpose` as users know it ("The reader of
  /// PCX pictures"). Throws RunTimeError where it is not installed.
  SharedLibrary(const char* file, const char* purpose);

  /// Throws RunTimeError where the library has none of that name.
  template <class Function> void find(Function& function, const char* name) const {
    function = reinterpret_cast<Function>(address(name));
  }

private:
  [[nodiscard]] void* address(const char* name) const;

  std::string file_;
  void* library_;
};

} // namespace hearthbook
