#pragma once

#include "Form.h"

class QProgressBar;

namespace hearthbook {

/// The one progress form of all long operations: a caller sets its caption, shows it, writes
/// the bar and unloads it at the end. The window is mapped only after 250 ms, so that short
/// work does not flicker; commands are blocked meanwhile.
class Progress : public Form {
  Q_OBJECT
public:
  Progress();

  void setRange(int minimum, int maximum);
  void setValue(int value); ///< repaints and lets timers and paints run, no user input
  [[nodiscard]] int value() const;
  [[nodiscard]] int minimum() const;
  [[nodiscard]] int maximum() const;

private:
  QProgressBar* ProgressBar1_;
};

} // namespace hearthbook
