#pragma once

#include <functional>

class QWidget;

namespace hearthbook {

/// Runs `work` in the event loop, once, behind the first paint of the window.
void afterFirstPaint(QWidget& window, std::function<void()> work);

} // namespace hearthbook
