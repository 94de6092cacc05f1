#pragma once

#include <QKeySequence>
#include <QObject>

#include <functional>
#include <vector>

class QWidget;

namespace hearthbook {

/// The keys of a form that shows one thing: they are that thing's wherever the keyboard is on the
/// form, since a button would hand the focus on instead, and a list would look for them.
class ZoomKeys : public QObject {
  Q_OBJECT
public:
  explicit ZoomKeys(QWidget& form);

  void add(const std::vector<QKeySequence>& keys, const std::function<void()>& command);
  /// In there one goes up and down oneself.
  void leaveUpAndDownTo(QWidget& control);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  QWidget& form_;
};

} // namespace hearthbook
