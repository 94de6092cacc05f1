#pragma once

namespace hearthbook {

/// Shows the hourglass for as long as it lives.
class Hourglass {
public:
  Hourglass();
  ~Hourglass();
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;

  [[nodiscard]] static bool isShown();

private:
  friend class UserTurn;
  static int lift(); ///< shows the plain pointer while the user is asked; how many were lifted
  static void putBack(int count);
};

} // namespace hearthbook
