#pragma once

namespace hearthbook {

enum class Mixer {
  Playback,
  Recording,        ///< of what is to be recorded
  RunningRecording, ///< of what is being recorded
};

/// Starts the desktop's own program for how loud sound is, in a window of its own. False where
/// there is none.
bool startMixer(Mixer mixer);

} // namespace hearthbook
