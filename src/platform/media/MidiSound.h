#pragma once

#include "MidiFile.h"
#include "SoundSource.h"

#include <filesystem>
#include <memory>
#include <string>

namespace hearthbook {

/// A MIDI file, played by the instruments of a sound font.
class MidiSound : public SoundSource {
public:
  /// Throws RunTimeError, naming the file, where it is no MIDI that can be read. The sound font
  /// is asked for when it is to be heard.
  explicit MidiSound(const std::filesystem::path& file);
  ~MidiSound() override;

  [[nodiscard]] SoundFormat format() const override;
  [[nodiscard]] std::int64_t length() const override { return midi_.length(); }
  void goTo(std::int64_t position) override;
  std::size_t read(std::byte* into, std::size_t bytes) override;

private:
  class Synth;

  std::filesystem::path name_;
  std::string bytes_;
  MidiFile midi_;
  std::unique_ptr<Synth> synth_;
  std::int64_t next_ = 0; ///< the moment that is read next
};

/// The instruments: HEARTHBOOK_SOUNDFONT if that is set, else those that the desktop has
/// installed. Throws RunTimeError where there are none.
std::filesystem::path soundFont();

} // namespace hearthbook
