#pragma once

namespace hearthbook {

/// The form from which a sound is attached to what that form shows.
class AudioOwner {
public:
  virtual ~AudioOwner() = default;
  virtual void soundChanged(bool attached) = 0;
};

} // namespace hearthbook
