#pragma once

#include "AudioQuality.h"
#include "MMControl.h"

class QGroupBox;
class QLabel;
class QRadioButton;

namespace hearthbook {

/// What stands on Add Audio about the sound that is open: how long it is, what it takes on the
/// disk, what is going on; and the quality that a recording is to have.
class RecordingFigures {
public:
  struct Parts {
    QGroupBox* lengthFrame;
    QLabel* length;
    QLabel* size;
    QLabel* doing;
    QGroupBox* qualityFrame; ///< its property Tag holds the size factor
    QRadioButton* low;
    QRadioButton* high;
  };

  RecordingFigures(const Parts& parts, const MMControl& sound);

  void chooseQuality(const AudioQuality& quality);
  [[nodiscard]] const AudioQuality& readQuality() const;
  void enableQuality(bool enabled);

  void showStatus(); ///< while it plays or records
  void showLength(); ///< of all of it
  void hideStatus();

private:
  void showSizeOf(std::int64_t milliseconds);

  Parts parts_;
  const MMControl& sound_;
};

} // namespace hearthbook
