#pragma once

#include <QString>

class QFrame;
class QLabel;
class QProgressBar;

namespace hearthbook {

/// The panel over the fields while a mail is prepared and sent.
class SendingPanel {
public:
  struct Parts {
    QFrame* frame;
    QLabel* heading;
    QLabel* note;
    QProgressBar* bar;
  };

  explicit SendingPanel(const Parts& parts);

  void show();
  void hide();

  void tell(const QString& note);
  void setMaximum(int maximum);
  void setValue(int value);
  void setBusy(); ///< there is nothing to count

private:
  Parts parts_;
};

} // namespace hearthbook
