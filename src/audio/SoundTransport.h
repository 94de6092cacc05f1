#pragma once

#include "MMControl.h"
#include "TransportIcons.h"

#include <QWidget>

#include <utility>
#include <vector>

class QToolButton;

namespace hearthbook {

/// The buttons of a recorder or a disc player, and the control that they work.
///
/// Only what can be done now is enabled. The form that holds it says what recording means.
class SoundTransport : public QWidget {
  Q_OBJECT
public:
  explicit SoundTransport(QWidget* parent = nullptr);

  [[nodiscard]] MMControl& control() { return control_; }

  void showRecordButton(bool shown);
  /// Also those to the next track and to the tray. Play asks for a disc where none is open.
  void showDiscButtons();

Q_SIGNALS:
  void recordClicked(); ///< nothing is done yet
  void stopClicked();   ///< it is silent already
  void discAsked();     ///< by Play: a disc may have been put in by now

private:
  QToolButton* addButton(const char* name, TransportSymbol symbol, const QString& said);
  void wireButtons();
  void play();
  [[nodiscard]] bool mayAskForDisc() const { return isForDiscs_ && !control_.isOpen(); }
  void updateEnabled();
  void enable(const std::vector<std::pair<QToolButton*, bool>>& buttons);
  void focusNext(const std::vector<std::pair<QToolButton*, bool>>& buttons);

  MMControl control_;
  bool isForDiscs_ = false;
  QToolButton* toStart_;
  QToolButton* play_;
  QToolButton* pause_;
  QToolButton* stop_;
  QToolButton* toEnd_;
  QToolButton* record_;
  QToolButton* eject_;
};

} // namespace hearthbook
