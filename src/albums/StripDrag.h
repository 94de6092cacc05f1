#pragma once

#include <QObject>
#include <QPoint>
#include <QTimer>

#include <cstddef>
#include <functional>
#include <optional>

class QScrollBar;
class QWidget;

namespace hearthbook {

class StripCell;
class StripPage;

/// One photo that is pulled over the strip: the mark where it would land, the pointer that says
/// whether it can be dropped, and the scrolling by one row for as long as it is moved over the
/// bars above and below.
class StripDrag : public QObject {
  Q_OBJECT
public:
  struct Parts {
    StripPage* page;
    QWidget* zoneAbove;
    QWidget* zoneBelow;
    QScrollBar* scroll;
    QWidget* mark;
    QWidget* noDrop;  ///< whose pointer says that no drop is possible here
    QWidget* canDrop; ///< whose pointer says that one is
    std::function<std::optional<std::size_t>(QPoint globalPosition)> photoAt;
  };

  StripDrag(Parts parts, QObject* parent);

  /// The photo at `source`, which is pulled by that cell, is here now.
  void pull(StripCell& cell, std::size_t source, QPoint globalPosition);
  void letGo(QPoint globalPosition);
  void cancel();
  void stopScrolling(); ///< a timer makes one step

  [[nodiscard]] bool isActive() const { return cell_ != nullptr; }
  [[nodiscard]] const StripCell* cell() const { return cell_; }

Q_SIGNALS:
  void dropped(std::size_t source, std::size_t target);
  void ended();

private:
  void goOver(QPoint globalPosition);
  void overPhoto(std::size_t target);
  void overScrollBar(QPoint globalPosition);
  void scrollUp();
  void scrollDown();
  void setPointer(const QWidget& icon);

  Parts parts_;
  QTimer* timer1_; ///< one row down
  QTimer* timer2_; ///< one row up
  StripCell* cell_ = nullptr;
  std::size_t source_ = 0;
  bool isCancelled_ = false; ///< until the button is let go
};

} // namespace hearthbook
