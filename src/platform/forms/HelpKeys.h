#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>

class QWidget;

namespace hearthbook {

/// Tells over which control of a form the mouse is, by the control's property `helpKey`
/// ("Build Album*Year"). A drop-down list whose property `helpOnFocus` is set tells when it
/// gets the focus instead. Commands that are disabled are explained too.
class HelpKeys : public QObject {
  Q_OBJECT
public:
  using Show = std::function<void(const QString& key)>;

  /// Lives as long as the form; `show` hears the keys.
  HelpKeys(QWidget* form, Show show);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void watch(QWidget* control);

  Show show_;
};

} // namespace hearthbook
