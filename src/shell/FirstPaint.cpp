#include "FirstPaint.h"

#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <utility>

namespace hearthbook {

namespace {

class FirstPaintWatch : public QObject {
public:
  FirstPaintWatch(QWidget& window, std::function<void()> work)
      : QObject(&window), work_(std::move(work)) {
    window.installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      watched->removeEventFilter(this);
      QTimer::singleShot(0, this, [this] {
        deleteLater();
        work_();
      });
    }
    return false;
  }

private:
  std::function<void()> work_;
};

} // namespace

void afterFirstPaint(QWidget& window, std::function<void()> work) {
  new FirstPaintWatch(window, std::move(work)); // the window's child
}

} // namespace hearthbook
