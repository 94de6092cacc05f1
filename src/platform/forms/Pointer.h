#pragma once

namespace hearthbook {

/// Shows the hourglass for as long as it lives.
class Hourglass {
public:
  Hourglass();
  ~Hourglass();
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;
};

} // namespace hearthbook
