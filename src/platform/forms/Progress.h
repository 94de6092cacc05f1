#pragma once

#include "Form.h"

#include <QElapsedTimer>
#include <QTimer>

#include <memory>

class QLabel;
class QProgressBar;

namespace hearthbook {

class CommandBlock;

/// The one progress form of all long operations: a caller sets its caption, shows it, writes
/// the bar and unloads it at the end. The window is mapped only after 250 ms, so that short
/// work does not flicker; commands are blocked meanwhile.
class Progress : public Form {
  Q_OBJECT
public:
  Progress();
  ~Progress() override;

  void setRange(int minimum, int maximum);
  void setValue(int value); ///< repaints and lets timers and paints run, no user input
  /// How long work may take before its window is mapped, in milliseconds.
  static void setPatience(int milliseconds);

  [[nodiscard]] int value() const { return value_; }
  [[nodiscard]] int minimum() const { return minimum_; }
  [[nodiscard]] int maximum() const { return maximum_; }

protected:
  void mapWindow() override;
  void unmapWindow() override;

private:
  void mapNow();
  void showBar();
  void breathe();

  QLabel* caption_;
  QProgressBar* ProgressBar1_;
  QTimer mapTimer_;
  QElapsedTimer sinceShown_;
  QElapsedTimer sinceBreath_;
  std::unique_ptr<CommandBlock> block_;
  int minimum_ = 0;
  int maximum_ = 100;
  int value_ = 0;
};

} // namespace hearthbook
