#pragma once

#include <QWheelEvent>

#include <cmath>

namespace hearthbook {

/// Counts the whole steps that a wheel is turned. A touch pad tells parts of one, or pixels; what
/// is over counts towards the next step, unless the hand turns back.
class WheelSteps {
public:
  /// Above 0: away from the user. Where pixels are told, a step has `pixelsPerStep` of them.
  int take(const QWheelEvent& event, int pixelsPerStep = notch) {
    const int pixels = event.pixelDelta().y();
    const double turned = pixels != 0 ? static_cast<double>(pixels) / pixelsPerStep
                                      : static_cast<double>(event.angleDelta().y()) / notch;
    if (turned * turned_ < 0)
      turned_ = 0;
    turned_ += turned;
    const int steps = static_cast<int>(turned_ + std::copysign(hardlyAny, turned_));
    turned_ -= steps;
    return steps;
  }

private:
  static constexpr double hardlyAny = 1e-6; // ten tenths are a step, though their sum is less
  static constexpr int notch = QWheelEvent::DefaultDeltasPerStep;
  double turned_ = 0;
};

} // namespace hearthbook
