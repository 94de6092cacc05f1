#pragma once

#include <QObject>
#include <QString>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

namespace hearthbook {

enum class DeviceType {
  WaveAudio, ///< waves: played and recorded
  Sequencer, ///< MIDI
  CDAudio,   ///< the audio disc in a drive; an image of one (".cue") counts as a drive
};

/// The device for a file, by the last three characters of its name in any case: "wav" or
/// "mid". Nothing for all others: a control then keeps the device that it has.
std::optional<DeviceType> deviceTypeOf(const std::filesystem::path& file);

/// Plays and records sound: one per clip, background, disc or recording.
///
///     player.Close();
///     player.setFile(sound); // with the device that its name asks for
///     if (player.Open())
///       player.Play();
///
/// Nothing here throws, and nothing of it waits for sound: playing and recording go on beside
/// the window's thread, signals come in its event loop. Only what ends a recording waits, for half
/// a second at most, until the last word is in. What cannot be done is told by
/// failed() and errorText(). A disc is opened and put out beside it too, as drives take their
/// time: Open and Eject return at once, modeChanged() or failed() tells how it went. Where no sound
/// can be heard (no device, no sound font) the control tells so and counts the time all the same,
/// so that what follows the end of a sound follows.
class MMControl : public QObject {
  Q_OBJECT
public:
  /// By the numbers that multimedia controls have always told it with.
  enum class Mode {
    NotOpen = 524,
    Stopped = 525,
    Playing = 526,
    Recording = 527,
    Paused = 529,
  };

  explicit MMControl(QObject* parent = nullptr);
  ~MMControl() override; ///< silent at once

  [[nodiscard]] DeviceType deviceType() const;
  void setDeviceType(DeviceType type);

  /// For the next Open or Save. For CDAudio the drive, where it is not the first with an audio
  /// disc.
  [[nodiscard]] const std::filesystem::path& fileName() const;
  void setFileName(const std::filesystem::path& file);
  /// Sets the file, and the device where the name asks for one.
  void setFile(const std::filesystem::path& file);

  // Commands. False where it could not be done.

  bool Open();  ///< reads how long the sound is; closes what was open, or was to be opened
  void Close(); ///< stops; what was recorded and not saved is dropped
  bool Play();  ///< from where it stands, from the start if it stands at the end
  bool PlayFrom(std::int64_t position);
  void Pause();  ///< Play goes on
  void Stop();   ///< stays where it is; behind a recording, at its end
  void Prev();   ///< stops and goes to the start
  void Next();   ///< stops and goes to the end
  bool Record(); ///< appends to the open wave, in memory, in the wave's format
  /// Writes the wave that is open, with what was recorded, to fileName(): whole, or not at all.
  /// `keepOld` is called when only the renaming is left to do, and may put away what is there.
  bool Save(const std::function<void(const std::filesystem::path&)>& keepOld = {});
  bool Eject(); ///< opens the tray of the drive
  // A disc is not stopped by Prev and Next: they go to the start of the track, of the track
  // before where this one has just begun, of the next track.

  [[nodiscard]] Mode mode() const;
  [[nodiscard]] bool isOpen() const;
  [[nodiscard]] std::int64_t length() const; ///< milliseconds; 0 if not open
  /// Milliseconds from the start. Close keeps it until the next Open.
  [[nodiscard]] std::int64_t position() const;
  [[nodiscard]] int tracks() const; ///< of the disc; 0 for other sounds
  [[nodiscard]] int track() const;  ///< the one at position(), from 1

  [[nodiscard]] int updateInterval() const;
  /// Milliseconds between two statusUpdate() while it plays or records; 0 for none.
  void setUpdateInterval(int milliseconds);

  /// Why the last command failed, in words for the user; empty if it did not.
  [[nodiscard]] const QString& errorText() const;

Q_SIGNALS:
  void done(); ///< played to its end; the mode is Stopped by then
  void statusUpdate();
  void modeChanged();
  void failed(const QString& why);

private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

} // namespace hearthbook
